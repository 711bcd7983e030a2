#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include "platform/core/Clock.h"
#include "store/AppEnv.h"
#include "tools/Backup.h"
#include "tools/Forms.h"
#include "tools/JetImport.h"
#include "tools/TagDb.h"

using namespace Qt::Literals::StringLiterals;
using suisui::ToolStatus;

namespace {

using Result = std::optional<ToolStatus>; ///< nothing when the options ask for something else

/// What was asked for: the words behind the command, and the options.
struct Call
{
    std::string base;
    std::vector<std::string> words;
    bool cp932;
    bool list;
    bool anyway;
    suisui::BackupOrder order;
    suisui::SystemClock clock;
};

struct Command
{
    QLatin1StringView name;
    QLatin1StringView arguments;
    qsizetype words; ///< behind the name
    QLatin1StringView help;
    Result (*run)(const Call& call);

    [[nodiscard]] QString usage() const { return (name + u' ' + arguments).trimmed(); }
};

constexpr Command commands[] = {
    {"create"_L1, ""_L1, 0, "makes the working database and the empty template"_L1,
     [](const Call& call) -> Result { return suisui::createShop(call.base, std::cout, std::cerr); }},
    {"sample"_L1, ""_L1, 0, "fills an empty database with a small shop"_L1,
     [](const Call& call) -> Result { return suisui::sampleShop(call.base, std::cout, std::cerr); }},
    {"check"_L1, ""_L1, 0, "checks the file, the encodings and every stock figure"_L1,
     [](const Call& call) -> Result { return suisui::checkBooks(call.base, std::cout, std::cerr); }},
    {"export"_L1, "TABLE FILE"_L1, 2, "writes a table as CSV"_L1,
     [](const Call& call) -> Result {
         return suisui::exportTable(call.base, call.words[0], call.words[1], call.cp932, std::cout,
                                    std::cerr);
     }},
    {"import"_L1, "TABLE FILE"_L1, 2, "adds the records of a CSV file to a table"_L1,
     [](const Call& call) -> Result {
         return suisui::importTable(call.base, call.words[0], call.words[1], call.cp932, std::cout,
                                    std::cerr);
     }},
    {"forms"_L1, "DIR"_L1, 1, "writes the forms that are missing in DIR: staff, partners, goods, parts"_L1,
     [](const Call& call) -> Result {
         return suisui::writeForms(call.base, call.words[0], std::cout, std::cerr);
     }},
    {"import"_L1, "DIR"_L1, 1, "takes the forms in DIR over, or tells what is wrong in them"_L1,
     [](const Call& call) -> Result {
         if (!QFileInfo(QString::fromStdString(call.words[0])).isDir())
             return std::nullopt;
         return suisui::takeForms(call.base, call.words[0], std::cout, std::cerr);
     }},
    {"import"_L1, "FILE"_L1, 1, "makes the working database of a Jet 3 or Jet 4 file"_L1,
     [](const Call& call) -> Result {
         return suisui::importJet(call.base, call.words[0], call.anyway, std::cout, std::cerr);
     }},
    {"backup"_L1, ""_L1, 0, "adds a proved copy to the backups, also while the program runs"_L1,
     [](const Call& call) -> Result {
         if (call.list || call.order.keep <= 0)
             return std::nullopt;
         return suisui::backupShop(call.order, call.clock, std::cout, std::cerr);
     }},
    {"backup"_L1, "--list"_L1, 0, "lists the copies and which of them are proved"_L1,
     [](const Call& call) -> Result {
         if (!call.list)
             return std::nullopt;
         return suisui::listBackups(call.order, std::cout, std::cerr);
     }},
    {"restore"_L1, "COPY"_L1, 1, "puts a copy in the place of the working database, which it keeps"_L1,
     [](const Call& call) -> Result {
         return suisui::restoreShop(call.order, call.words[0], call.clock, std::cout, std::cerr);
     }},
};

void describe(QCommandLineParser& parser)
{
    QString text = u"Makes and checks the program folder of suisuitag.\n\nCommands:\n"_s;
    for (const Command& command : commands)
        text += u"  "_s + command.usage().leftJustified(20) + command.help + u'\n';
    parser.setApplicationDescription(
        text
        + u"Exit status: 0 good, 1 found what does not hold (check, import FILE, backup), 2 wrong use or failure."_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"base"_s, u"The program folder (default: the folder of this program)."_s, u"DIR"_s},
        {u"cp932"_s, u"CSV files are in code page 932 instead of UTF-8."_s},
        {u"list"_s, u"backup: lists the copies instead of making one."_s},
        {u"to"_s, u"backup, restore: the folder of the copies (default: backup in the program folder)."_s,
         u"DIR"_s},
        {u"keep"_s, u"backup: so many copies stay (default: 14)."_s, u"N"_s, u"14"_s},
        {u"anyway"_s, u"import FILE, restore: also what does not hold."_s},
    });
    parser.addPositionalArgument(u"command"_s, u"What to do."_s);
}

Call callOf(const QCommandLineParser& parser)
{
    const QString base = parser.isSet(u"base"_s)
                             ? parser.value(u"base"_s)
                             : suisui::AppEnv::programFolder(QCoreApplication::applicationFilePath());
    Call call{.base = base.toStdString(),
              .words = {},
              .cp932 = parser.isSet(u"cp932"_s),
              .list = parser.isSet(u"list"_s),
              .anyway = parser.isSet(u"anyway"_s),
              .order = {.base = base.toStdString(),
                        .folder = parser.value(u"to"_s).toStdString(),
                        .keep = parser.value(u"keep"_s).toInt(),
                        .evenUnsound = parser.isSet(u"anyway"_s)},
              .clock = {}};
    for (const QString& word : parser.positionalArguments().mid(1))
        call.words.push_back(word.toStdString());
    return call;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);

    const Call call = callOf(parser);
    const QString name = parser.positionalArguments().value(0);
    for (const Command& command : commands) {
        if (name != command.name || std::ssize(call.words) != command.words)
            continue;
        if (const Result status = command.run(call))
            return static_cast<int>(*status);
    }
    std::cerr << parser.helpText().toStdString();
    return static_cast<int>(ToolStatus::Failed);
}
