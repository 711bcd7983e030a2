// Saving periods and loading them back.
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "store/Numbers.h"
#include "store/Stamps.h"
#include "tests/support/HistoryDesk.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

const Period january{"20260101", "20260131"};
const Period february{"20260201", "20260228"};

/// Three goods, movements in two months.
void fill(HistoryDesk& desk)
{
    desk.stock("A", "11", "0");
    desk.stock("B", "-2", "0");
    desk.stock("C", "7", "7");
    desk.receipt("A", "0000010", "20260101", "20260101090000", "備考");
    desk.receipt("A", "0000005", "20260131", "20260131090000");
    desk.receipt("B", "0000001", "20260201", "20260201090000");
    desk.shipment("A", "0000004", "20260115", "20260115090000");
    desk.shipment("B", "0000003", "20260228", "20260228090000");
}

Lines inFile(const QString& path, const std::string& sql)
{
    return queryFile(path.toStdString(), sql);
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace

TEST(Save, movesThePeriodIntoAFileOfItsOwn_andListsIt)
{
    HistoryDesk desk;
    fill(desk);
    const Lines before = desk.rows("ZaikoTB");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_TRUE(desk.box.shown.empty());

    EXPECT_EQ(desk.shop->query("SELECT InpDate FROM InpTB"), Lines{"20260201090000"});
    EXPECT_EQ(desk.shop->query("SELECT InpDate FROM OutTB"), Lines{"20260228090000"});
    const QString file = desk.folder() + QStringLiteral("/RRK20260101-20260131.hst");
    EXPECT_EQ(inFile(file, "SELECT InpDate, Bikou FROM InpTB ORDER BY 1"),
              (Lines{"20260101090000|備考", "20260131090000|"}));
    EXPECT_EQ(
        inFile(file, "SELECT * FROM OutTB"),
        Lines{"A|品名|ヒン|0000004|0000150|201|西商店|20260115|100000|個|0000000|0000000|0000000|01|山田||"
              "20260101|120000|20260115090000|20260115090000"});
    const std::string size = std::to_string(QFileInfo(file).size());
    EXPECT_EQ(desk.listed(), Lines{"20260101|20260131|hst|" + size + "|20260401090000"});
    EXPECT_EQ(desk.stockColumn("ZaikoSuu"), (Lines{"A|11", "B|-2", "C|7"}));
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"A|11", "B|0", "C|7"}));
    EXPECT_EQ(desk.stockColumn("UpdDate"),
              (Lines{"A|20260401090000", "B|20260401090000", "C|20260401090000"}));
    EXPECT_EQ(desk.ini.LastHistoryFolder(), desk.folder());
}

TEST(Save, leavesAWholeDatabase_andNoFileBesideIt)
{
    HistoryDesk desk;
    fill(desk);
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(filesIn(desk.folder()), QStringList{QStringLiteral("RRK20260101-20260131.hst")});
    const QString file = desk.fileOf(january);
    EXPECT_EQ(inFile(file, "PRAGMA integrity_check"), Lines{"ok"});
    EXPECT_EQ(inFile(file, "PRAGMA journal_mode"), Lines{"delete"});
    for (const char* table : {"Master", "ZaikoTB", "HSeihinTB", "KokyakuTB", "TantouTB", "RirekiTB"})
        EXPECT_EQ(inFile(file, std::string("SELECT COUNT(*) FROM ") + table), Lines{"0"}) << table;
}

TEST(Save, remembersFolderAndLastDay)
{
    HistoryDesk desk;
    fill(desk);
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    QFile settings(desk.shop->base() + QStringLiteral("/Ini/AppIni.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    EXPECT_TRUE(settings.readAll().contains("LastHistoryTo=20260131"));
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.ini.LastHistoryFolder(), desk.folder());
    settings.seek(0);
    EXPECT_TRUE(settings.readAll().contains("LastHistoryTo=20260131"));
}

TEST(Save, showsItsProgressInFourteenSteps_loadInEleven)
{
    HistoryDesk desk;
    fill(desk);
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(desk.frame.waitValue, 14);
    EXPECT_FALSE(desk.frame.waitVisible());
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.frame.waitValue, 11);
    EXPECT_FALSE(desk.frame.waitVisible());
    EXPECT_EQ(desk.frame.waitTags,
              (std::vector<QString>{QStringLiteral("履歴保存"), QStringLiteral("履歴読込")}));
}

TEST(Save, asksForTheFolder_withTheNameOfThePeriod)
{
    HistoryDesk desk;
    desk.prompts.periods = {january};
    EXPECT_EQ(desk.history.save(), RirekiDB::Cancelled);
    ASSERT_EQ(desk.prompts.asked.size(), 1U);
    const PlaceQuestion& question = desk.prompts.asked.front();
    EXPECT_TRUE(question.saveMode);
    EXPECT_EQ(question.caption, QStringLiteral("履歴ファイルを保存する場所を選択して下さい。"));
    EXPECT_EQ(question.pattern, QStringLiteral("RRK*.hst"));
    EXPECT_EQ(question.fileName, QStringLiteral("RRK20260101-20260131.hst"));
    EXPECT_TRUE(desk.frame.waitTags.empty());
}

TEST(Save, cancelledAtThePeriod_asksForNoFolder)
{
    HistoryDesk desk;
    EXPECT_EQ(desk.history.save(), RirekiDB::Cancelled);
    EXPECT_TRUE(desk.prompts.asked.empty());
}

TEST(Save, ofReceiptsWithoutShipments_completes)
{
    HistoryDesk desk;
    desk.stock("A", "1", "0");
    desk.receipt("A", "0000001", "20260101", "20260101090000");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(inFile(desk.fileOf(january), "SELECT COUNT(*) FROM OutTB"), Lines{"0"});
    EXPECT_EQ(desk.stockColumn("KuriSuu"), Lines{"A|1"});
}

TEST(Load, bringsEveryRowBack_andTakesThePeriodOffTheList)
{
    HistoryDesk desk;
    fill(desk);
    const Lines movements = desk.movements();
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(desk.movements(), movements);
    EXPECT_TRUE(desk.listed().empty());
    EXPECT_TRUE(filesIn(desk.folder()).empty());
    EXPECT_EQ(desk.stockColumn("ZaikoSuu"), (Lines{"A|11", "B|-2", "C|7"}));
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"A|0", "B|0", "C|7"}));
    const PlaceQuestion& question = desk.prompts.asked.back();
    EXPECT_FALSE(question.saveMode);
    EXPECT_EQ(question.caption, QStringLiteral("読み込む履歴ファイルを選択して下さい。"));
    EXPECT_EQ(question.pattern, QStringLiteral("RRK*.hst"));
}

TEST(Load, rowThatTheWorkingTablesHoldAlready_staysAsItIsThere)
{
    HistoryDesk desk;
    fill(desk);
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    desk.receipt("A", "0000077", "20260301", "20260101090000", "別の行");
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.shop->query("SELECT NyuSuu, Bikou FROM InpTB WHERE InpDate='20260101090000'"),
              Lines{"0000077|別の行"});
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"3"});
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"A|-67", "B|0", "C|7"}));
}

TEST(Load, fileWithAnotherName_isAccepted_withItsPeriodInItsPlace)
{
    HistoryDesk desk;
    fill(desk);
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    const QString renamed = desk.folder() + QStringLiteral("/xyz20260101_20260131 写し.hst");
    ASSERT_TRUE(QFile::rename(desk.fileOf(january), renamed));
    desk.prompts.places = {{desk.folder(), renamed, QStringLiteral("xyz20260101_20260131 写し")}};
    EXPECT_EQ(desk.history.load(), RirekiDB::Done);
    EXPECT_FALSE(QFile::exists(renamed));
}

TEST(Load, fileWithoutASavedPeriod_isNotOfThisDatabase)
{
    const QString names[] = {QStringLiteral("RRK20260102-20260131"), QStringLiteral("RRK-20260101-20260131"),
                             QStringLiteral("RRK"), QStringLiteral("RRK20260101-' Or ''='"),
                             QStringLiteral("RRK' Or ''='-20260131")};
    for (const QString& name : names) {
        HistoryDesk desk;
        fill(desk);
        ASSERT_EQ(desk.save(january), RirekiDB::Done);
        const Lines before = desk.movements();
        desk.prompts.places = {{desk.folder(), desk.fileOf(january), name}};
        EXPECT_EQ(desk.history.load(), RirekiDB::Cancelled);
        ASSERT_EQ(desk.box.shown.size(), 1U) << name.toStdString();
        EXPECT_EQ(desk.box.shown[0].title, QStringLiteral(" 履歴ファイル 管理不整合エラー"));
        EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
        EXPECT_EQ(
            desk.box.shown[0].text,
            QStringLiteral(
                "現在使用している情報では\r\n指定された履歴ファイルを管理していません。\r\n\r\n　　指定された"
                " 「 {file name} . {HistoryExt} 」 は\r\n　　現在使用している情報から "
                "保存された履歴ファイルではありません。　　　\r\n\r\n【基本情報 登録】 の "
                "「ファイル管理」で\r\n「履歴の保存」 を行った情報 を 読込んだ後に、再度、実行して下さい。")
                .replace(QStringLiteral("{file name}"), name)
                .replace(QStringLiteral("{HistoryExt}"), QStringLiteral("hst")));
        EXPECT_EQ(desk.movements(), before);
        EXPECT_TRUE(QFile::exists(desk.fileOf(january)));
    }
}

TEST(Load, extensionWithAQuote_worksLikeAnyOther)
{
    HistoryDesk desk;
    fill(desk);
    desk.useExtension("o'ld");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_TRUE(desk.listed().empty());
}

TEST(Load, ofTwoPeriodsInEitherOrder_givesTheSameTables)
{
    Lines first;
    for (const bool januaryFirst : {true, false}) {
        HistoryDesk desk;
        fill(desk);
        ASSERT_EQ(desk.save(january), RirekiDB::Done);
        ASSERT_EQ(desk.save(february), RirekiDB::Done);
        EXPECT_EQ(desk.stockColumn("KuriSuu"), desk.stockColumn("ZaikoSuu"));
        ASSERT_EQ(desk.load(januaryFirst ? january : february), RirekiDB::Done);
        ASSERT_EQ(desk.load(januaryFirst ? february : january), RirekiDB::Done);
        Lines all = desk.movements();
        for (const char* table : {"ZaikoTB", "RirekiTB"}) {
            const Lines more = desk.rows(table);
            all.insert(all.end(), more.begin(), more.end());
        }
        if (januaryFirst)
            first = all;
        else
            EXPECT_EQ(all, first);
    }
}

TEST(SaveAndLoad, withinTheSecondOfAPosting_orOfEachOther_carryTheRightStock)
{
    HistoryDesk desk;
    desk.shop->add(zaikoTable, {"A", "13", "999", "20260101000000", "20260401090000"}); // posted this second
    desk.receipt("A", "0000010", "20260101", "20260101090000");
    desk.receipt("A", "0000003", "20260201", "20260201090000");
    ASSERT_EQ(stampOf(desk.clock.now()), "20260401090000");
    const QDateTime start = desk.clock.now();
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), Lines{"A|10"});
    const std::string carriedAt = desk.shop->query("SELECT UpdDate FROM ZaikoTB").front();
    EXPECT_NE(carriedAt, "20260401090000");
    desk.clock.setNow(
        QDateTime::fromString(QString::fromStdString(carriedAt), QStringLiteral("yyyyMMddHHmmss")));
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), Lines{"A|0"});
    EXPECT_LT(start.secsTo(desk.clock.now()), 10);
}

TEST(Save, ofAnOverlappingPeriod_takesOnlyWhatIsStillInTheTables)
{
    HistoryDesk desk;
    fill(desk);
    const Lines movements = desk.movements();
    const Period middle{"20260115", "20260210"};
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(desk.save(middle), RirekiDB::Done);
    EXPECT_EQ(inFile(desk.fileOf(middle), "SELECT InpDate FROM InpTB"), Lines{"20260201090000"});
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    ASSERT_EQ(desk.load(middle), RirekiDB::Done);
    EXPECT_EQ(desk.movements(), movements);
}

TEST(Save, keepsWhateverAColumnHolds_exceptAQuote)
{
    HistoryDesk desk;
    desk.stock("A", "1", "0");
    const std::string odd = "\"\\%_;--\r\n\t～①－𠮷 　";
    desk.receipt("A", "0000001", "20260101", "20260101090000", odd);
    desk.shipment("A", "0000001", "20260101", "20260101090000", odd);
    const Lines movements = desk.movements();
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.movements(), movements);
}

TEST(SaveAndLoad, ofRandomHistories_moveNoStock_andLoseNoRow)
{
    std::mt19937 random(printedSeed());
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int turn = 0; turn < 15; ++turn) {
        HistoryDesk desk;
        std::map<std::string, double> explained; // KuriSuu with nothing saved
        for (int i = 0; i < 8; ++i) {
            const std::string figure = CStr(below(4000) / 16.0);
            desk.stock("G" + std::to_string(i), figure, "0");
            explained["G" + std::to_string(i)] = CDbl(figure);
        }
        desk.component("G0", "G1", "0.5");
        desk.component("G0", "G2", "3");
        desk.component("G3", "G1", "1.25");
        for (int i = 0; i < 80; ++i) {
            const std::string code = "G" + std::to_string(below(9));
            const std::string quantity = movementNumber(CStr(below(60) - 10));
            const std::string date = std::to_string(20260100 + 1 + below(28) + 100 * below(3));
            const std::string stamp = std::to_string(20260301000000 + i);
            const bool receipt = below(2) == 0;
            receipt ? desk.receipt(code, quantity, date, stamp) : desk.shipment(code, quantity, date, stamp);
            explained[code] += receipt ? -CDbl(quantity) : CDbl(quantity);
            if (receipt && code == "G0") {
                explained["G1"] += CDbl(quantity) * 0.5;
                explained["G2"] += CDbl(quantity) * 3;
            }
            if (receipt && code == "G3")
                explained["G1"] += CDbl(quantity) * 1.25;
        }
        const Lines movements = desk.movements();
        const Lines stock = desk.stockColumn("ZaikoSuu");
        std::set<std::pair<std::string, std::string>> saved;
        for (int step = 0; step < 6; ++step) {
            std::string from = std::to_string(20260101 + below(28) + 100 * below(3));
            std::string to = std::to_string(20260101 + below(28) + 100 * below(3));
            if (to < from)
                std::swap(from, to);
            if (!saved.emplace(from, to).second)
                continue;
            ASSERT_EQ(desk.save({from, to}), RirekiDB::Done);
            EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB WHERE NyuDate>='" + from
                                       + "' AND NyuDate<='" + to + "'"),
                      Lines{"0"});
            EXPECT_EQ(desk.stockColumn("ZaikoSuu"), stock);
        }
        std::vector<std::pair<std::string, std::string>> order(saved.begin(), saved.end());
        std::shuffle(order.begin(), order.end(), random);
        for (const auto& [from, to] : order) {
            ASSERT_EQ(desk.load({from, to}), RirekiDB::Done);
            EXPECT_EQ(desk.stockColumn("ZaikoSuu"), stock);
        }
        EXPECT_EQ(desk.movements(), movements);
        EXPECT_TRUE(desk.listed().empty());
        desk.db.ZaikoTbl().Select({});
        for (int row = 1; row <= desk.db.ZaikoTbl().Count(); ++row) {
            const std::string code(desk.db.ZaikoTbl().get(row, ZaikoCol::Code));
            EXPECT_NEAR(CDbl(desk.db.ZaikoTbl().get(row, ZaikoCol::KuriSuu)), explained[code], 1e-9);
        }
    }
}

} // namespace suisui::test
