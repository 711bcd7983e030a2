#include <iostream>

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

constexpr auto commands =
    "Commands:\n"
    "  create              makes the working database and the empty template\n"
    "  sample              fills an empty database with a small shop\n"
    "  check               checks the file, the encodings and every stock figure\n"
    "  export TABLE FILE   writes a table as CSV\n"
    "  import TABLE FILE   adds the records of a CSV file to a table\n"
    "  import FILE         makes the working database of a Jet 3 or Jet 4 file\n"
    "  forms DIR           writes the forms that are missing in DIR: staff, partners, goods, parts\n"
    "  import DIR          takes the forms in DIR over, or tells what is wrong in them\n"
    "  backup              adds a proved copy to the backups, also while the program runs\n"
    "  backup --list       lists the copies and which of them are proved\n"
    "  restore COPY        puts a copy in the place of the working database, which it keeps\n"
    "Exit status: 0 good, 1 found what does not hold (check, import FILE, backup), 2 wrong use or failure.";

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Makes and checks the program folder of suisuitag.\n\n"_s
                                     + QString::fromLatin1(commands));
    parser.addHelpOption();
    const QCommandLineOption base(u"base"_s, u"The program folder (default: the folder of this program)."_s,
                                  u"DIR"_s);
    const QCommandLineOption cp932(u"cp932"_s, u"CSV files are in code page 932 instead of UTF-8."_s);
    const QCommandLineOption list(u"list"_s, u"backup: lists the copies instead of making one."_s);
    const QCommandLineOption to(u"to"_s,
                                u"backup, restore: the folder of the copies (default: backup in the "
                                u"program folder)."_s,
                                u"DIR"_s);
    const QCommandLineOption keep(u"keep"_s, u"backup: so many copies stay (default: 14)."_s, u"N"_s,
                                  u"14"_s);
    const QCommandLineOption anyway(u"anyway"_s, u"import FILE, restore: also what does not hold."_s);
    parser.addOptions({base, cp932, list, to, keep, anyway});
    parser.addPositionalArgument(u"command"_s, u"What to do."_s);
    parser.process(application);

    const QStringList words = parser.positionalArguments();
    const QString command = words.value(0);
    const std::string folder =
        (parser.isSet(base) ? parser.value(base)
                            : suisui::AppEnv::programFolder(QCoreApplication::applicationFilePath()))
            .toStdString();
    const auto runs = [&](const QString& name, qsizetype arguments) {
        return command == name && words.size() == arguments + 1;
    };
    const suisui::SystemClock clock;
    const suisui::BackupOrder order{.base = folder,
                                    .folder = parser.value(to).toStdString(),
                                    .keep = parser.value(keep).toInt(),
                                    .evenUnsound = parser.isSet(anyway)};
    auto status = ToolStatus::Failed;
    if (runs(u"create"_s, 0))
        status = suisui::createShop(folder, std::cout, std::cerr);
    else if (runs(u"sample"_s, 0))
        status = suisui::sampleShop(folder, std::cout, std::cerr);
    else if (runs(u"check"_s, 0))
        status = suisui::checkBooks(folder, std::cout, std::cerr);
    else if (runs(u"export"_s, 2))
        status = suisui::exportTable(folder, words[1].toStdString(), words[2].toStdString(),
                                     parser.isSet(cp932), std::cout, std::cerr);
    else if (runs(u"import"_s, 2))
        status = suisui::importTable(folder, words[1].toStdString(), words[2].toStdString(),
                                     parser.isSet(cp932), std::cout, std::cerr);
    else if (runs(u"forms"_s, 1))
        status = suisui::writeForms(folder, words[1].toStdString(), std::cout, std::cerr);
    else if (runs(u"import"_s, 1) && QFileInfo(words[1]).isDir())
        status = suisui::takeForms(folder, words[1].toStdString(), std::cout, std::cerr);
    else if (runs(u"import"_s, 1))
        status =
            suisui::importJet(folder, words[1].toStdString(), parser.isSet(anyway), std::cout, std::cerr);
    else if (runs(u"backup"_s, 0) && parser.isSet(list))
        status = suisui::listBackups(order, std::cout, std::cerr);
    else if (runs(u"backup"_s, 0) && order.keep > 0)
        status = suisui::backupShop(order, clock, std::cout, std::cerr);
    else if (runs(u"restore"_s, 1))
        status = suisui::restoreShop(order, words[1].toStdString(), clock, std::cout, std::cerr);
    else
        std::cerr << parser.helpText().toStdString();
    return static_cast<int>(status);
}
