// The program is killed at 200 random instants while it books. After each the books hold, and every receipt
// that was shown as stored is there.
#include <csignal>
#include <random>

#include <gtest/gtest.h>

#include <QProcess>
#include <QThread>

#include "tests/support/Seed.h"
#include "tests/support/TempShop.h"
#include "tools/ShopCheck.h"

namespace suisui::test {

TEST(Kill, atTwoHundredRandomInstants_losesNothingThatWasShownAsStored)
{
    constexpr int turns = 200;
    const TempShop shop;
    shop.add(masterTable, {"PART", "鉛筆", "", "12", "50", "1", "80", "本", "0"});
    shop.add(masterTable, {"SET", "文具セット", "", "1", "900", "1", "1500", "箱", "0"});
    shop.add(hseihinTable, {"SET", "", "PART", "3"});
    // Enough stock that no warning waits for an answer.
    shop.add(zaikoTable, {"PART", "1000000", "1000000", "20260101000000", "20260101000000"});
    std::mt19937 random(printedSeed());
    std::size_t shown = 0;
    for (int turn = 0; turn < turns; ++turn) {
        QProcess worker;
        worker.start(QStringLiteral(KILL_WORKER),
                     {QString::fromStdString(shop.databaseFolder()), QString::number(turn)});
        ASSERT_TRUE(worker.waitForReadyRead()) << worker.readAllStandardError().toStdString();
        QThread::usleep(random() % 20000); // the random instant itself
        worker.kill();
        worker.waitForFinished();
        ASSERT_EQ(worker.exitStatus(), QProcess::CrashExit);

        const QList<QByteArray> lines = worker.readAllStandardOutput().split('\n');
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        for (const QByteArray& stamp : lines) {
            if (stamp.size() < 14)
                continue; // cut off by the kill
            ASSERT_EQ(db.InpList().CountRows("WHERE InpDate='" + stamp.toStdString() + "'"), 1)
                << "turn " << turn;
            ++shown;
        }
        const std::vector<std::string> problems = checkShop(db);
        ASSERT_TRUE(problems.empty()) << "turn " << turn << ": " << problems.front();
    }
    EXPECT_GT(shown, static_cast<std::size_t>(turns));
}

} // namespace suisui::test
