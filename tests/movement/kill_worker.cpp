// Books receipts without a pause until it is killed, and says each one that the operator would see as stored.
// Arguments: the database folder, and the number of the turn.
#include <cstdio>
#include <cstdlib>

#include <QApplication>

#include "movement/MovementPage.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Stamps.h"
#include "tests/support/EntryDesk.h"

using namespace suisui;
using namespace suisui::test;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    AppDB db(argv[1]);
    if (argc < 3 || db.Open("trnvik.mdb") != DbStatus::Good)
        return 1;
    AppIni ini;
    // Each turn has an hour of its own, so that no two receipts have the same stamp.
    TestClock clock(QDateTime(QDate(2026, 4, 1), QTime(0, 0)).addSecs(3600 * std::atoi(argv[2])));
    ScriptedMsgBox box;
    TestFrame frame;
    MovementPage page(Side::Receipt, Services{db, ini, clock, box, frame});
    page.setPartners({{"101", QStringLiteral("東商店")}});
    const MovementCells& cells = movementSide(Side::Receipt).cells;
    for (int i = 0;; ++i) {
        EntryDesk::book(page, i % 3 == 0 ? QStringLiteral("SET") : QStringLiteral("PART"));
        if (!box.shown.empty())
            return 2;
        std::printf("%s%s\n", storedDate(page.grid()->text(cells.date, 1)).c_str(),
                    storedTime(page.grid()->text(cells.time, 1)).c_str());
        std::fflush(stdout);
    }
}
