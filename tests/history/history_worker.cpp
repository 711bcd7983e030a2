// Saves a period and loads it back, again and again, until it is killed. Says what it begins, and each step
// that the operator would see as done. Argument: the folder of the shop.
#include <cstdio>

#include <QApplication>

#include "store/AppIni.h"
#include "tests/support/HistoryDesk.h"

using namespace suisui;
using namespace suisui::test;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc < 2)
        return 1;
    const QString base = QString::fromLocal8Bit(argv[1]);
    AppDB db((base + QStringLiteral("/DB")).toStdString());
    if (db.Open("trnvik.mdb") != DbStatus::Good)
        return 1;
    AppIni ini;
    ini.setIniFolder(base + QStringLiteral("/Ini"));
    SystemClock clock;
    ScriptedMsgBox box;
    TestFrame frame;
    ScriptedPrompts prompts;
    RirekiDB history(Services{db, ini, clock, box, frame}, prompts,
                     (base + QStringLiteral("/db/trnorg.mdb")).toStdString());
    history.setHistoryExt(QStringLiteral("hst"));
    const Period period{"20260101", "20260131"};
    const QString name = historyFileName(period, QStringLiteral("hst"));
    const QString folder = base + QStringLiteral("/old");
    history.settle();
    for (;;) {
        // What is to be done next is what the books say.
        const bool saved = db.RirekiTbl().CountRows("WHERE DateFrom='20260101'") == 1;
        if (!saved && QFile::exists(folder + u'/' + name) && !QFile::remove(folder + u'/' + name))
            return 2; // the operator has deleted the file that a load had no time to delete
        prompts.periods = {period};
        prompts.places = {saved ? Place{folder, folder + u'/' + name, name.left(name.lastIndexOf(u'.'))}
                                : Place{folder, {}, name}};
        std::puts(saved ? "load" : "save");
        std::fflush(stdout);
        if ((saved ? history.load() : history.save()) != RirekiDB::Done || !box.shown.empty())
            return 3;
        std::puts(saved ? "loaded" : "saved");
        std::fflush(stdout);
    }
}
