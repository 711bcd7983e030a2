// The program is killed at random instants while it saves 20,000 movements and loads them back. After each,
// every movement is in the working tables or in the history file that is on the list, and none is in both. A
// save has left nothing, or it is finished as soon as the program starts again.
#include <random>
#include <set>

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include "history/UnfinishedSave.h"
#include "tests/support/HistoryDesk.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

constexpr int movements = 20000;
constexpr int kept = 500; // of other periods

using Lines = std::vector<std::string>;

void fill(const TempShop& shop)
{
    AppDB db(shop.databaseFolder());
    ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<"
                                + std::to_string(movements + kept) + ") ";
    const std::string date = "iif(i<=" + std::to_string(movements) + ",'20260115','20260301')";
    const std::string rest = "'0000100','1','x'," + date + ",'090000','','0','0'";
    const std::string end = "'01','y','',";
    const std::string stamps = "printf('%014d',i),printf('%014d',i) FROM n";
    for (const std::string& statement :
         {numbers + "INSERT INTO InpTB SELECT 'G'||(i%50),'','','0000002'," + rest + "," + end + stamps
              + " WHERE i%2=0",
          numbers + "INSERT INTO OutTB SELECT 'G'||(i%50),'','','0000001'," + rest + ",'0'," + end + "'','',"
              + stamps + " WHERE i%2=1",
          std::string(
              "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<49) INSERT INTO ZaikoTB "
              "SELECT 'G'||i,'1000','0','20260101000000','20260101000000' FROM n")}) {
        db.Execute(statement);
        ASSERT_EQ(db.LastStatus(), DbStatus::Good) << db.LastErrText();
    }
    db.Commit();
}

/// Distinct movements, and movements in all.
std::pair<std::string, std::string> counted(const Lines& stamps)
{
    const std::set<std::string> distinct(stamps.begin(), stamps.end());
    return {std::to_string(distinct.size()), std::to_string(stamps.size())};
}

/// Microseconds that a save takes here and now.
unsigned timeOfASave(const TempShop& shop)
{
    QProcess worker;
    worker.start(QStringLiteral(HISTORY_WORKER), {shop.base()});
    EXPECT_TRUE(worker.waitForReadyRead()) << worker.readAllStandardError().toStdString();
    QElapsedTimer since;
    since.start();
    QByteArray said;
    while (!said.contains("saved") && worker.waitForReadyRead())
        said += worker.readAllStandardOutput();
    EXPECT_TRUE(said.contains("saved"));
    worker.kill();
    worker.waitForFinished();
    return static_cast<unsigned>(since.nsecsElapsed() / 1000);
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

/// What the worker was at when it was killed.
bool wasSaving(QProcess& worker, const QByteArray& first)
{
    const QByteArray said = first + worker.readAllStandardOutput();
    return said.lastIndexOf("save\n") > said.lastIndexOf("load\n");
}

} // namespace

TEST(HistoryKill, atAHundredRandomInstants_everyMovementIsThereOnce)
{
    constexpr int turns = 100;
    const TempShop shop;
    QDir(shop.base()).mkpath(QStringLiteral("old"));
    QDir(shop.base()).mkpath(QStringLiteral("db"));
    ASSERT_EQ(AppDB::Create((shop.base() + QStringLiteral("/db/trnorg.mdb")).toStdString()), DbStatus::Good);
    fill(shop);
    const QString folder = shop.base() + QStringLiteral("/old");
    const std::string file = (shop.base() + QStringLiteral("/old/RRK20260101-20260131.hst")).toStdString();
    const std::string both =
        "SELECT 'I'||InpDate||Code FROM InpTB UNION ALL SELECT 'O'||InpDate||Code FROM OutTB";
    const Lines stock = shop.query("SELECT Code, ZaikoSuu FROM ZaikoTB ORDER BY Code");
    std::mt19937 random(printedSeed());
    const unsigned longest = 2 * timeOfASave(shop); // a save and a load
    int endedSaved = 0;
    for (int turn = 0; turn < turns; ++turn) {
        QProcess worker;
        worker.start(QStringLiteral(HISTORY_WORKER), {shop.base()});
        ASSERT_TRUE(worker.waitForReadyRead()) << worker.readAllStandardError().toStdString();
        const QByteArray first = worker.readAllStandardOutput();
        QThread::usleep(random() % longest); // the random instant itself
        worker.kill();
        worker.waitForFinished();
        ASSERT_EQ(worker.exitStatus(), QProcess::CrashExit) << worker.exitCode();

        const bool saving = wasSaving(worker, first);
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        const Lines listed = shop.query("SELECT FileSize FROM RirekiTB WHERE DateFrom<>'Trn'");
        if (saving && listed.empty()) {
            ASSERT_FALSE(QFile::exists(QString::fromStdString(file))) << "it could be loaded, turn " << turn;
        }
        AppIni ini;
        ini.setIniFolder(shop.base() + QStringLiteral("/Ini"));
        settleUnfinishedSave(db, ini);
        db.CloseFile();
        Lines stamps = shop.query(both);
        if (saving && listed.empty()) {
            ASSERT_TRUE(filesIn(folder).isEmpty()) << "turn " << turn;
        }
        if (!listed.empty()) {
            ++endedSaved;
            ASSERT_EQ(filesIn(folder).size(), 1) << "turn " << turn;
            ASSERT_EQ(listed, Lines{std::to_string(QFileInfo(QString::fromStdString(file)).size())});
            ASSERT_EQ(queryFile(file, "PRAGMA integrity_check"), Lines{"ok"});
            const Lines more = queryFile(file, both);
            stamps.insert(stamps.end(), more.begin(), more.end());
        }
        const std::string all = std::to_string(movements + kept);
        ASSERT_EQ(counted(stamps), std::pair(all, all)) << "turn " << turn;
        ASSERT_EQ(shop.query("SELECT Code, ZaikoSuu FROM ZaikoTB ORDER BY Code"), stock);
        ASSERT_EQ(shop.query("PRAGMA integrity_check"), Lines{"ok"});
    }
    EXPECT_GT(endedSaved, 0);
    EXPECT_LT(endedSaved, turns);
}

} // namespace suisui::test
