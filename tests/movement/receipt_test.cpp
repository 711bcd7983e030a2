// Booking receipts: what one code does to the grid, the tables and the stock, and what is left after a
// failure.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "frame/support/GridBar.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/EntryDesk.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/HeldFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ReceiptTest : public ::testing::Test
{
protected:
    ReceiptTest()
    {
        desk.goods("4901001000017", "鉛筆 HB", "12", "50", "1", "80", "5");
        desk.goods("SET1", "文具セット", "2", "900", "1", "1500");
        desk.component("SET1", "4901001000017", "3");
        page = &desk.open(Side::Receipt);
    }

    std::vector<std::string> inp() const { return desk.shop.query("SELECT * FROM InpTB ORDER BY InpDate"); }

    EntryDesk desk;
    MovementPage* page = nullptr;
};

} // namespace

TEST_F(ReceiptTest, booking_storesRow_movesStock_andPutsRowOnTop)
{
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 5, 7)));
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(inp(),
              std::vector<std::string>{
                  "4901001000017|鉛筆 HB||0000012|0000050|101|東商店|20260401|090507|個|0000000|0000000|01|"
                  "山田　太郎||20260401090507|20260401090507"});
    EXPECT_EQ(desk.stockOf("4901001000017"), "12");

    const vaSpread& grid = *page->grid();
    ASSERT_EQ(grid.MaxRows(), 1);
    const char* const cells[] = {"4901001000017", "鉛筆 HB", "50",         "12", "0", "600",
                                 "東商店",        "1",       "山田　太郎", "個", "0", "2026/04/01",
                                 "09:05:07",      "",        "0",          "12", "1"};
    for (int column = 1; column <= 17; ++column)
        EXPECT_EQ(grid.text(column, 1), cells[column - 1]) << "column " << column;
    EXPECT_EQ(grid.ActiveCol(), 4);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_TRUE(grid.ReDraw());
}

TEST_F(ReceiptTest, newestRowStandsOnTop_andTiesToItsBufferRow)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EntryDesk::book(*page, u"SET1"_s);
    ASSERT_EQ(page->grid()->MaxRows(), 2);
    EXPECT_EQ(page->grid()->text(1, 1), "SET1");
    EXPECT_EQ(page->grid()->text(17, 1), "2");
    EXPECT_EQ(page->grid()->text(17, 2), "1");
}

TEST_F(ReceiptTest, barLeavesTheOldRow_andMarksTheNewOne)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EntryDesk::book(*page, u"SET1"_s);
    const QColor top = page->grid()->rowBackColor(1);
    EXPECT_TRUE(top == focusColor || top == barWithoutFocus);
    EXPECT_EQ(page->grid()->rowBackColor(2), QColor(Qt::white));
}

TEST_F(ReceiptTest, product_takesItsComponentsOutOfStock)
{
    desk.shop.add(zaikoTable, {"4901001000017", "100", "0", "x", "x"});
    EntryDesk::book(*page, u"SET1"_s);
    EXPECT_EQ(desk.stockOf("SET1"), "2");
    EXPECT_EQ(desk.stockOf("4901001000017"), "94");
    EXPECT_EQ(desk.shop.query("SELECT DISTINCT UpdDate FROM ZaikoTB").size(), 1U); // one stamp for all
}

TEST_F(ReceiptTest, goodsWithoutComponents_movesOnlyItself)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_EQ(desk.shop.query("SELECT Code FROM ZaikoTB"), std::vector<std::string>{"4901001000017"});
}

TEST_F(ReceiptTest, letterCaseOfACode_doesNotMatter_andTheMastersSpellingIsStored)
{
    EntryDesk::book(*page, u"set1"_s);
    EXPECT_EQ(page->grid()->text(1, 1), "SET1");
    EXPECT_EQ(desk.stockOf("SET1"), "2");
}

TEST_F(ReceiptTest, unknownCode_saysSo_andLeavesEverything)
{
    EntryDesk::book(*page, u"4999"_s);
    expectOneBox(
        desk.box,
        {.title = u"商品 未登録エラー"_s,
         .text =
             u"入力された コード 「 4999 」 は\r\n「商品」 に登録されていません。\r\n\r\n【基本情報 登録】 で\r\n「商品」 に登録した後に、再度、入力して下さい。　　"_s,
         .icon = BoxIcon::Stop});
    EXPECT_TRUE(inp().empty());
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(page->barCodeField()->text(), u"4999"_s);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_F(ReceiptTest, textsThatAreNoCode_areUnregistered_andChangeNoStatement)
{
    const QString evil[] = {u"'"_s,
                            u"x' OR '1'='1"_s,
                            u"'; DELETE FROM Master; --"_s,
                            u"4901001000017'"_s,
                            QStringLiteral("a\0b"),
                            u"\x01\x02"_s,
                            u"\"SET1\""_s,
                            QString(300000, u'9')};
    for (const QString& code : evil) {
        desk.box.shown.clear();
        EntryDesk::book(*page, code);
        ASSERT_EQ(desk.box.shown.size(), 1U);
        EXPECT_EQ(desk.box.shown[0].title, u"商品 未登録エラー"_s);
    }
    EXPECT_TRUE(inp().empty());
    EXPECT_EQ(desk.shop.query("SELECT COUNT(*) FROM Master"), std::vector<std::string>{"2"});
}

TEST_F(ReceiptTest, sixteenCharacters_areLookedUpWhole)
{
    desk.goods("1234567890123456", "長い", "1", "1", "1", "1");
    EntryDesk::book(*page, u"1234567890123456"_s);
    EXPECT_EQ(desk.stockOf("1234567890123456"), "1");
}

TEST_F(ReceiptTest, defaultQuantityZero_storesTheRow_andMovesNothing)
{
    desk.goods("ZERO", "見本", "0", "10", "0", "10");
    desk.component("ZERO", "4901001000017", "3");
    EntryDesk::book(*page, u"ZERO"_s);
    EXPECT_EQ(inp().size(), 1U);
    EXPECT_EQ(desk.stockOf("ZERO"), "none");
    EXPECT_EQ(desk.stockOf("4901001000017"), "none");
}

TEST_F(ReceiptTest, fractions_areRoundedToEvenForComponents_only)
{
    desk.goods("FRAC", "量り売り", "2.5", "10", "1", "10");
    desk.component("FRAC", "4901001000017", "1.5");
    desk.shop.add(zaikoTable, {"4901001000017", "100", "0", "x", "x"});
    EntryDesk::book(*page, u"FRAC"_s);
    EXPECT_EQ(desk.stockOf("FRAC"), "2.5");
    EXPECT_EQ(desk.stockOf("4901001000017"), "96"); // 2 times 2
    EXPECT_EQ(desk.shop.query("SELECT NyuSuu FROM InpTB"), std::vector<std::string>{"0000003"});
}

TEST_F(ReceiptTest, componentMissingFromBothTables_isSkipped)
{
    desk.component("SET1", "GONE", "1");
    EntryDesk::book(*page, u"SET1"_s);
    EXPECT_TRUE(inp().size() == 1U && desk.stockOf("SET1") == "2");
    EXPECT_EQ(desk.stockOf("GONE"), "none");
}

TEST_F(ReceiptTest, componentProductBeyondThirtyTwoBits_isARunTimeError)
{
    desk.goods("HUGE", "巨大", "2000000000", "1", "1", "1");
    desk.component("HUGE", "4901001000017", "2");
    EXPECT_THROW(EntryDesk::book(*page, u"HUGE"_s), RunTimeError);
    desk.db.Rollback();
    EXPECT_EQ(desk.stockOf("4901001000017"), "none");
}

TEST_F(ReceiptTest, stockOverflow_undoesTheComponents_too)
{
    desk.shop.add(zaikoTable, {"SET1", "99999999999999", "0", "x", "x"});
    desk.shop.add(zaikoTable, {"4901001000017", "100", "0", "x", "x"});
    EntryDesk::book(*page, u"SET1"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(desk.stockOf("4901001000017"), "100");
    EXPECT_EQ(desk.stockOf("SET1"), "99999999999999");
    EXPECT_TRUE(inp().empty());
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(page->barCodeField()->text(), u"SET1"_s);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_F(ReceiptTest, rowThatCannotBeStored_undoesTheStock_andKeepsTheRowCount)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    // Somebody else's row already has the stamp of the next booking.
    desk.shop.add(inpTable, {"SET1", "", "", "0000000", "0000000", "", "", "20260401", "090001", "",
                             "0000000", "0000000", "", "", "", "20260401090001", "20260401090001"});
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 0, 1)));
    desk.box.onShow = [this](const Box&) { EXPECT_EQ(page->grid()->MaxRows(), 2); };
    EntryDesk::book(*page, u"SET1"_s);
    expectOneBox(
        desk.box,
        {.title = u"データベースエラー"_s,
         .text =
             u"「 入荷テーブル 」\r\n　　新規追加 (INSERT) エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.stockOf("SET1"), "none");
    EXPECT_EQ(desk.stockOf("4901001000017"), "12");
    EXPECT_EQ(page->grid()->MaxRows(), 1);
    EXPECT_EQ(page->grid()->text(1, 1), "SET1"); // the unsaved row on top, the bottom row cut off
    EXPECT_FALSE(page->grid()->ReDraw());
    EXPECT_TRUE(desk.frame.enabled);

    desk.box.onShow = nullptr;
    page->cmdKensaku_Click();
    EXPECT_TRUE(page->grid()->ReDraw());
    EXPECT_EQ(page->grid()->MaxRows(), 2);
}

TEST_F(ReceiptTest, lockedDatabase_booksNothing_andTheNextTryWorks)
{
    {
        const HeldFile held(desk.shop);
        EntryDesk::book(*page, u"4901001000017"_s);
    }
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(desk.stockOf("4901001000017"), "none");
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_EQ(desk.stockOf("4901001000017"), "12");
}

TEST_F(ReceiptTest, bookingMakesStockTabAndReceiptListStale_only)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_EQ(desk.frame.loaded, (std::array{true, true, false, false, true}));
}

TEST_F(ReceiptTest, twoBookings_neverShareAStamp)
{
    for (int i = 0; i < 5; ++i)
        EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_EQ(desk.shop.query("SELECT DISTINCT InpDate FROM InpTB").size(), 5U);
    EXPECT_EQ(desk.stockOf("4901001000017"), "60");
}

TEST_F(ReceiptTest, windowStaysDisabled_untilTheSecondHasPassed)
{
    int naps = 0;
    desk.clock.onPass = [&] {
        ++naps;
        EXPECT_FALSE(desk.frame.enabled);
    };
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_GT(naps, 0);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_F(ReceiptTest, clockThatStepsBack_holdsTheOperatorForOneSecondAtMost)
{
    const QDateTime start = desk.clock.now();
    bool stepped = false;
    desk.clock.onPass = [&] {
        if (!stepped)
            desk.clock.setNow(start.addSecs(-3600));
        stepped = true;
    };
    const auto before = desk.clock.steady();
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_TRUE(stepped);
    EXPECT_LE((desk.clock.steady() - before).count(), 1100);
    EXPECT_EQ(page->grid()->MaxRows(), 1);
}

TEST_F(ReceiptTest, emptyEnter_doesNothing)
{
    EntryDesk::book(*page, QString());
    EXPECT_TRUE(inp().empty());
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_F(ReceiptTest, choiceOfPartner_isTakenAtTheScan_andDoesNotTouchOlderRows)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    page->partnerChoice()->setCurrentIndex(1);
    desk.frame.staffCode = "02";
    desk.frame.staffName = u"佐藤"_s;
    EntryDesk::book(*page, u"4901001000017"_s);
    EXPECT_EQ(desk.shop.query("SELECT NyuSakiCD,NysName,TanCD,TanName FROM InpTB ORDER BY InpDate"),
              (std::vector<std::string>{"101|東商店|01|山田　太郎", "102|西商店|02|佐藤"}));
    EXPECT_EQ(page->grid()->text(7, 2), "東商店");
}

TEST_F(ReceiptTest, noPartnerChosen_isARunTimeError_andStoresNothing)
{
    page->partnerChoice()->setCurrentIndex(-1);
    EXPECT_THROW(EntryDesk::book(*page, u"4901001000017"_s), RunTimeError);
    desk.db.Rollback();
    EXPECT_TRUE(inp().empty());
    EXPECT_EQ(desk.stockOf("4901001000017"), "none");
}

TEST_F(ReceiptTest, cellChanges_goToTheBuffer_andPostNothing)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    RowSet& rows = desk.db.InpTbl();
    EntryDesk::edit(*page, 4, 1, "20");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::NyuSuu)), "0000020");
    EXPECT_EQ(rows.RowState(1), "U");
    EXPECT_EQ(page->grid()->text(6, 1), "1,000");
    EntryDesk::edit(*page, 3, 1, "60");
    EntryDesk::edit(*page, 5, 1, "100");
    EntryDesk::edit(*page, 11, 1, "5");
    EXPECT_EQ(page->grid()->text(6, 1), "800"); // (20 - 5) * 60 - 100
    EntryDesk::edit(*page, 2, 1, "新しい名");
    EntryDesk::edit(*page, 10, 1, "箱");
    EntryDesk::edit(*page, 12, 1, "2026/03/31");
    EntryDesk::edit(*page, 13, 1, "08:00:01");
    EntryDesk::edit(*page, 14, 1, "備考'1");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::Name)), "新しい名");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::Unit)), "箱");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::NyuDate)), "20260331");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::NyuTime)), "080001");
    EXPECT_EQ(rows.get(1, static_cast<int>(InpCol::Bikou)), "備考'1");
    EXPECT_TRUE(desk.frame.dirty(Side::Receipt));
    EXPECT_EQ(desk.stockOf("4901001000017"), "12");
    EXPECT_EQ(desk.shop.query("SELECT NyuSuu FROM InpTB"), std::vector<std::string>{"0000012"});
}

TEST_F(ReceiptTest, emptiedNumberCell_becomesZero)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EntryDesk::edit(*page, 4, 1, "");
    EXPECT_EQ(page->grid()->text(4, 1), "0");
    EXPECT_EQ(page->grid()->text(6, 1), "0");
}

TEST_F(ReceiptTest, sameFigureTypedAgain_countsAsAChange_becauseTextsAreCompared)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    EntryDesk::edit(*page, 4, 1, "12");
    EXPECT_TRUE(desk.frame.dirty(Side::Receipt));
}

TEST_F(ReceiptTest, cellsThatAreNotFedBack_changeNothing)
{
    EntryDesk::book(*page, u"4901001000017"_s);
    for (const int column : {1, 6, 7, 8, 9})
        EntryDesk::edit(*page, column, 1, "x");
    EXPECT_FALSE(desk.frame.dirty(Side::Receipt));
    EXPECT_EQ(desk.db.InpTbl().RowState(1), "");
}

} // namespace suisui::test
