// The program tagdb: takes the command and the options of its call apart and runs the command.
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include "platform/core/Clock.h"
#include "platform/core/OwnOnly.h"
#include "store/AppEnv.h"
#include "tools/Backup.h"
#include "tools/Forms.h"
#include "tools/JetImport.h"
#include "tools/Phrases.h"
#include "tools/TagDb.h"

using namespace Qt::Literals::StringLiterals;
using suisui::Language;
using suisui::Message;
using suisui::Phrase;
using suisui::ToolStatus;
namespace phrases = suisui::phrases;

namespace {

using Result = std::optional<ToolStatus>; ///< none when the call is meant for another command

/// What was asked for: the words after the command, and the options.
struct Call
{
    std::string base;
    std::vector<std::string> words;
    bool cp932;
    bool force;
    bool list;
    bool anyway;
    suisui::BackupOrder order;
    suisui::SystemClock clock;
};

struct Command
{
    QLatin1StringView name;
    QLatin1StringView arguments;
    qsizetype words; ///< number of words after the name
    const Phrase& help;
    Result (*run)(const Call& call);

    [[nodiscard]] QString usage() const { return (name + u' ' + arguments).trimmed(); }
};

constexpr Command commands[] = {
    {"create"_L1, ""_L1, 0, phrases::helpCreate,
     [](const Call& call) -> Result { return suisui::createShop(call.base, std::cout, std::cerr); }},
    {"sample"_L1, ""_L1, 0, phrases::helpSample,
     [](const Call& call) -> Result { return suisui::sampleShop(call.base, std::cout, std::cerr); }},
    {"check"_L1, ""_L1, 0, phrases::helpCheck,
     [](const Call& call) -> Result { return suisui::checkBooks(call.base, std::cout, std::cerr); }},
    {"export"_L1, "TABLE FILE"_L1, 2, phrases::helpExport,
     [](const Call& call) -> Result {
         return suisui::exportTable(
             call.base,
             {.table = call.words[0], .file = call.words[1], .cp932 = call.cp932, .replaceOther = call.force},
             std::cout, std::cerr);
     }},
    {"import"_L1, "TABLE FILE"_L1, 2, phrases::helpImportTable,
     [](const Call& call) -> Result {
         return suisui::importTable(call.base, call.words[0], call.words[1], call.cp932, std::cout,
                                    std::cerr);
     }},
    {"forms"_L1, "DIR"_L1, 1, phrases::helpForms,
     [](const Call& call) -> Result {
         return suisui::writeForms(call.base, call.words[0], std::cout, std::cerr);
     }},
    {"import"_L1, "DIR"_L1, 1, phrases::helpImportForms,
     [](const Call& call) -> Result {
         if (!QFileInfo(QString::fromStdString(call.words[0])).isDir())
             return std::nullopt;
         return suisui::takeForms(call.base, call.words[0], std::cout, std::cerr);
     }},
    {"import"_L1, "FILE"_L1, 1, phrases::helpImportJet,
     [](const Call& call) -> Result {
         return suisui::importJet(call.base, call.words[0], call.anyway, std::cout, std::cerr);
     }},
    {"backup"_L1, ""_L1, 0, phrases::helpBackup,
     [](const Call& call) -> Result {
         if (call.list)
             return std::nullopt;
         return suisui::backupShop(call.order, call.clock, std::cout, std::cerr);
     }},
    {"backup"_L1, "--list"_L1, 0, phrases::helpList,
     [](const Call& call) -> Result {
         if (!call.list)
             return std::nullopt;
         return suisui::listBackups(call.order, std::cout, std::cerr);
     }},
    {"restore"_L1, "COPY"_L1, 1, phrases::helpRestore,
     [](const Call& call) -> Result {
         return suisui::restoreShop(call.order, call.words[0], call.clock, std::cout, std::cerr);
     }},
};

struct Option
{
    QLatin1StringView name;
    const Phrase& help;
    QLatin1StringView value = {}; ///< empty: a switch
    QLatin1StringView whenMissing = {};
};

constexpr Option options[] = {
    {"base"_L1, phrases::optionBase, "DIR"_L1}, {"cp932"_L1, phrases::optionCp932},
    {"force"_L1, phrases::optionForce},         {"list"_L1, phrases::optionList},
    {"to"_L1, phrases::optionTo, "DIR"_L1},     {"keep"_L1, phrases::optionKeep, "N"_L1, "14"_L1},
    {"daily"_L1, phrases::optionDaily},         {"anyway"_L1, phrases::optionAnyway},
};

void describe(QCommandLineParser& parser, Language language)
{
    const auto text = [language](const Phrase& phrase) {
        return QString::fromStdString(Message(phrase).in(language));
    };
    QString commandList = text(phrases::whatItIs);
    for (const Command& command : commands)
        commandList += u"  "_s + command.usage().leftJustified(20) + text(command.help) + u'\n';
    parser.setApplicationDescription(commandList + text(phrases::exitStatus));
    parser.addOption({QStringList{u"h"_s, u"help"_s}, text(phrases::optionHelp)}); // Qt's own is English only
    for (const Option& option : options)
        parser.addOption(
            {QString(option.name), text(option.help), QString(option.value), QString(option.whenMissing)});
    parser.addPositionalArgument(u"command"_s, text(phrases::argumentCommand));
}

Call callOf(const QCommandLineParser& parser)
{
    const QString base = parser.isSet(u"base"_s)
                             ? parser.value(u"base"_s)
                             : suisui::AppEnv::programFolder(QCoreApplication::applicationFilePath());
    Call call{.base = base.toStdString(),
              .words = {},
              .cp932 = parser.isSet(u"cp932"_s),
              .force = parser.isSet(u"force"_s),
              .list = parser.isSet(u"list"_s),
              .anyway = parser.isSet(u"anyway"_s),
              .order = {.base = base.toStdString(),
                        .folder = parser.value(u"to"_s).toStdString(),
                        .keep = parser.value(u"keep"_s).toInt(),
                        .daily = parser.isSet(u"daily"_s),
                        .evenUnsound = parser.isSet(u"anyway"_s)},
              .clock = {}};
    for (const QString& word : parser.positionalArguments().mid(1))
        call.words.push_back(word.toStdString());
    return call;
}

int misused(const Message& what)
{
    for (const Message& sentence : {what, Message(phrases::seeHelp)})
        std::cerr << Message(phrases::complaint, {sentence});
    return static_cast<int>(ToolStatus::Failed);
}

int run(const QCommandLineParser& parser)
{
    const Call call = callOf(parser);
    const QStringList words = parser.positionalArguments();
    if (words.isEmpty())
        return misused(phrases::noCommand);
    if (call.order.keep <= 0)
        return misused({phrases::badKeep, {parser.value(u"keep"_s).toStdString()}});
    suisui::makeOwnOnly(call.base);
    for (const Command& command : commands) {
        if (words.first() != command.name || std::ssize(call.words) != command.words)
            continue;
        if (const Result status = command.run(call))
            return static_cast<int>(*status);
    }
    return misused({phrases::unknownCommand, {words.join(u' ').toStdString()}});
}

} // namespace

int main(int argc, char** argv)
{
    suisui::beginProgram();
    const QCoreApplication application(argc, argv);
    const Language language = suisui::languageOfSession();
    for (std::ostream* stream : {&std::cout, &std::cerr})
        suisui::speak(*stream, language);
    QTranslator qtsOwnTexts;
    if (language == Language::Japanese
        && qtsOwnTexts.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtsOwnTexts);
    QCommandLineParser parser;
    describe(parser, language);
    if (!parser.parse(QCoreApplication::arguments())) {
        const QStringList unknown = parser.unknownOptionNames();
        return misused(unknown.isEmpty()
                           ? Message(phrases::badOption, {parser.errorText().toStdString()})
                           : Message(phrases::unknownOption, {unknown.join(u", "_s).toStdString()}));
    }
    if (!parser.isSet(u"help"_s))
        return run(parser);
    std::cout << parser.helpText().toStdString();
    return static_cast<int>(ToolStatus::Good);
}
