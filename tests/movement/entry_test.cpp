// Booking a code at an entry tab: what it does to the grid, the table and the stock, and what every failure
// leaves. What a scan is by the rules is tested without a window, in tests/booking.
#include <gtest/gtest.h>

#include "frame/support/GridBar.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/EntryDesk.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/HeldFile.h"
#include "tests/support/SideName.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

/// What differs between the sides as a test sees it. Pencils are received by the dozen and shipped in pairs.
struct EntrySide
{
    Side side;
    const char* storedRow; ///< of one scan of pencils on 2026-04-01 at 09:05:07
    Texts shownRow;        ///< its cells from the first to the last
    const char* stock;     ///< of a hundred pencils after one scan
    const char* stockAfterFive;
    const char* storedQuantity;
    const char* totalOfTwenty;  ///< of twenty pencils at the price of the master
    std::array<bool, 5> loaded; ///< the tabs that a booking leaves as they are
    QString insertError;
};

const EntrySide entrySides[] = {
    {.side = Side::Receipt,
     .storedRow = "P1|鉛筆||0000012|0000050|101|東商店|20260401|090507|個|0000000|0000000|01|山田　太郎||"
                  "20260401090507|20260401090507",
     .shownRow = {"P1", "鉛筆", "50", "12", "0", "600", "東商店", "1", "山田　太郎", "個", "0", "2026/04/01",
                  "09:05:07", "", "0", "12", "1"},
     .stock = "112",
     .stockAfterFive = "160",
     .storedQuantity = "0000012",
     .totalOfTwenty = "1,000",
     .loaded = {true, true, false, false, true},
     .insertError =
         u"「 入荷テーブル 」\r\n　　新規追加 (INSERT) エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。"_s},
    {.side = Side::Shipment,
     .storedRow = "P1|鉛筆||0000002|0000100|101|東商店|20260401|090507|個|0000000|0000000|0000000|01|"
                  "山田　太郎||||20260401090507|20260401090507",
     .shownRow = {"P1", "鉛筆", "100", "2", "0", "200", "東商店", "1", "山田　太郎", "個", "0", "0",
                  "2026/04/01", "09:05:07", "", "2", "1"},
     .stock = "98",
     .stockAfterFive = "90",
     .storedQuantity = "0000002",
     .totalOfTwenty = "2,000",
     .loaded = {true, true, false, true, false},
     .insertError =
         u"「 出荷テーブル 」\r\n　　新規追加 (INSERT) エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。"_s},
};

/// An entry tab over a shop with pencils and a set that is put together of three of them.
struct EntryPage
{
    explicit EntryPage(Side which) : side(which), page(&desk.open(which))
    {
        desk.goods("P1", "鉛筆", "12", "50", "2", "100", "10");
        desk.goods("SET1", "文具セット", "2", "900", "1", "1500");
        desk.component("SET1", "P1", "3");
    }

    void stock(const std::string& code, const std::string& figure) const
    {
        desk.shop.add(zaikoTable, {code, figure, "0", "x", "x"});
    }
    void book(const QString& code) { EntryDesk::book(*page, code); }
    void edit(int cell, std::string_view text) { EntryDesk::edit(*page, cell, 1, text); }
    [[nodiscard]] std::string cell(int column, int row = 1) const
    {
        return std::string(page->grid()->text(column, row));
    }
    /// Columns \a of of all stored rows, the oldest booking first.
    [[nodiscard]] Texts stored(std::initializer_list<int MovementColumns::*> of) const
    {
        std::string columns;
        for (int MovementColumns::*const column : of)
            columns += (columns.empty() ? "" : ",")
                       + std::string(table.table.columns[static_cast<std::size_t>(table.columns.*column)]);
        return desk.shop.query("SELECT " + columns + " FROM " + std::string(table.table.name)
                               + " ORDER BY InpDate");
    }
    [[nodiscard]] std::size_t storedRows() const { return stored({&MovementColumns::code}).size(); }
    [[nodiscard]] RowSet& rows() { return table.rows(desk.db); }

    Side side;
    const MovementCells& cells = movementSide(side).cells;
    const MovementTable& table = movementTable(side);
    EntryDesk desk;
    MovementPage* page;
};

class EntryTest : public ::testing::TestWithParam<EntrySide>, protected EntryPage
{
protected:
    EntryTest() : EntryPage(GetParam().side)
    {
        // Enough for every shipment, so that no warning waits for an answer.
        stock("P1", "100");
        stock("SET1", "100");
    }

    /// Somebody else's row of this moment: its stamp is taken.
    void takeStamp(const std::string& time) const
    {
        const MovementColumns& columns = table.columns;
        Texts texts(static_cast<std::size_t>(table.table.columnCount()));
        const std::pair<int, std::string> known[] = {{columns.code, "SET1"},
                                                     {columns.quantity, "0000000"},
                                                     {columns.price, "0000000"},
                                                     {columns.discount, "0000000"},
                                                     {columns.returned[0], "0000000"},
                                                     {columns.returned[1], "0000000"},
                                                     {columns.date, "20260401"},
                                                     {columns.time, time},
                                                     {columns.inpDate, "20260401" + time},
                                                     {columns.updDate, "20260401" + time}};
        for (const auto& [column, text] : known)
            if (column != noColumn)
                texts[static_cast<std::size_t>(column)] = text;
        desk.shop.add(table.table, texts);
    }
};

INSTANTIATE_TEST_SUITE_P(BothSides, EntryTest, ::testing::ValuesIn(entrySides),
                         [](const auto& tested) { return sideName(tested.param.side); });

class ReceiptEntryTest : public ::testing::Test, protected EntryPage
{
protected:
    ReceiptEntryTest() : EntryPage(Side::Receipt) {}
};

class ShipmentEntryTest : public ::testing::Test, protected EntryPage
{
protected:
    ShipmentEntryTest() : EntryPage(Side::Shipment) {}
};

} // namespace

// ---- a booking

TEST_P(EntryTest, booking_storesTheRow_movesTheStock_andPutsItOnTop)
{
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 5, 7)));
    book(u"P1"_s);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(desk.shop.query("SELECT * FROM " + std::string(table.table.name)), Texts{GetParam().storedRow});
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stock);

    const vaSpread& grid = *page->grid();
    ASSERT_EQ(grid.MaxRows(), 1);
    ASSERT_EQ(grid.MaxCols(), static_cast<int>(GetParam().shownRow.size()));
    for (int column = 1; column <= grid.MaxCols(); ++column)
        EXPECT_EQ(cell(column), GetParam().shownRow[static_cast<std::size_t>(column - 1)])
            << "column " << column;
    EXPECT_EQ(grid.ActiveCol(), cells.quantity);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_TRUE(grid.ReDraw());
}

TEST_P(EntryTest, newestRow_isOnTop_andTiedToItsBufferRow)
{
    book(u"P1"_s);
    book(u"SET1"_s);
    ASSERT_EQ(page->grid()->MaxRows(), 2);
    EXPECT_EQ(cell(cells.code), "SET1");
    EXPECT_EQ(cell(cells.index), "2");
    EXPECT_EQ(cell(cells.index, 2), "1");
}

TEST_P(EntryTest, bar_leavesTheOldRow_andMarksTheNewOne)
{
    book(u"P1"_s);
    book(u"SET1"_s);
    const QColor top = page->grid()->rowBackColor(1);
    EXPECT_TRUE(top == focusColor || top == barWithoutFocus);
    EXPECT_EQ(page->grid()->rowBackColor(2), QColor(Qt::white));
}

TEST_P(EntryTest, letterCaseOfACode_doesNotMatter_theMastersIsStored)
{
    book(u"p1"_s);
    EXPECT_EQ(cell(cells.code), "P1");
    EXPECT_EQ(stored({&MovementColumns::code}), Texts{"P1"});
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stock);
}

TEST_P(EntryTest, sixteenCharacters_areLookedUpWhole)
{
    desk.goods("1234567890123456", "長い", "1", "1", "1", "1");
    book(u"1234567890123456"_s);
    EXPECT_EQ(stored({&MovementColumns::code}), Texts{"1234567890123456"});
}

TEST_P(EntryTest, defaultQuantityZero_storesTheRow_andMovesNothing)
{
    desk.goods("ZERO", "見本", "0", "10", "0", "10");
    desk.component("ZERO", "P1", "3");
    book(u"ZERO"_s);
    EXPECT_EQ(storedRows(), 1U);
    EXPECT_EQ(desk.stockOf("ZERO"), "none");
    EXPECT_EQ(desk.stockOf("P1"), "100");
}

TEST_P(EntryTest, booking_makesStockTabAndItsListStale_only)
{
    book(u"P1"_s);
    EXPECT_EQ(desk.frame.loaded, GetParam().loaded);
}

TEST_P(EntryTest, emptyEnter_doesNothing)
{
    book(QString());
    EXPECT_EQ(storedRows(), 0U);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EntryTest, choiceOfPartner_isTakenAtTheScan_andOlderRowsStay)
{
    book(u"P1"_s);
    page->partnerChoice()->setCurrentIndex(1);
    desk.frame.staffCode = "02";
    desk.frame.staffName = u"佐藤"_s;
    book(u"P1"_s);
    EXPECT_EQ(stored({&MovementColumns::partnerCode, &MovementColumns::partnerName,
                      &MovementColumns::staffCode, &MovementColumns::staffName}),
              (Texts{"101|東商店|01|山田　太郎", "102|西商店|02|佐藤"}));
    EXPECT_EQ(cell(cells.partner, 2), "東商店");
}

// ---- its moment

TEST_P(EntryTest, twoBookings_neverShareAStamp)
{
    for (int i = 0; i < 5; ++i)
        book(u"P1"_s);
    EXPECT_EQ(desk.shop.query("SELECT DISTINCT InpDate FROM " + std::string(table.table.name)).size(), 5U);
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stockAfterFive);
}

TEST_P(EntryTest, windowStaysDisabled_untilTheSecondHasPassed)
{
    int naps = 0;
    desk.clock.onPass = [&] {
        ++naps;
        EXPECT_FALSE(desk.frame.enabled);
    };
    book(u"P1"_s);
    EXPECT_GT(naps, 0);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EntryTest, clockThatStepsBack_holdsTheOperatorForOneSecond)
{
    const QDateTime start = desk.clock.now();
    bool stepped = false;
    desk.clock.onPass = [&] {
        if (!stepped)
            desk.clock.setNow(start.addSecs(-3600));
        stepped = true;
    };
    const auto before = desk.clock.steady();
    book(u"P1"_s);
    EXPECT_TRUE(stepped);
    EXPECT_LE((desk.clock.steady() - before).count(), 1100);
    EXPECT_EQ(page->grid()->MaxRows(), 1);
}

// ---- what cannot be booked

TEST_P(EntryTest, unknownCode_saysSo_andLeavesEverything)
{
    book(u"4999"_s);
    expectOneBox(
        desk.box,
        {.title = u"商品 未登録エラー"_s,
         .text =
             u"入力された コード 「 4999 」 は\r\n「商品」 に登録されていません。\r\n\r\n【基本情報 登録】 で\r\n「商品」 に登録した後に、再度、入力して下さい。　　"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(storedRows(), 0U);
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(page->barCodeField()->text(), u"4999"_s);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EntryTest, textsThatAreNotACode_areUnregistered)
{
    const QString evil[] = {u"'"_s,        u"x' OR '1'='1"_s,      u"'; DELETE FROM Master; --"_s,
                            u"P1'"_s,      QStringLiteral("a\0b"), u"\x01\x02"_s,
                            u"\"SET1\""_s, QString(300000, u'9')};
    for (const QString& code : evil) {
        desk.box.shown.clear();
        book(code);
        ASSERT_EQ(desk.box.shown.size(), 1U);
        EXPECT_EQ(desk.box.shown[0].title, u"商品 未登録エラー"_s);
    }
    EXPECT_EQ(storedRows(), 0U);
    EXPECT_EQ(desk.shop.query("SELECT COUNT(*) FROM Master"), Texts{"2"}) << "no text changes a statement";
}

TEST_P(EntryTest, noPartnerChosen_isARunTimeError_andStoresNothing)
{
    page->partnerChoice()->setCurrentIndex(-1);
    EXPECT_THROW(book(u"P1"_s), RunTimeError);
    desk.db.Rollback();
    EXPECT_EQ(storedRows(), 0U);
    EXPECT_EQ(desk.stockOf("P1"), "100");
}

TEST_P(EntryTest, rowThatCannotBeStored_undoesTheStock_andKeepsTheRowCount)
{
    book(u"P1"_s);
    takeStamp("090001"); // of the next booking
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 0, 1)));
    desk.box.onShow = [this](const Box&) { EXPECT_EQ(page->grid()->MaxRows(), 2); };
    book(u"SET1"_s);
    expectOneBox(desk.box,
                 {.title = u"データベースエラー"_s, .text = GetParam().insertError, .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.stockOf("SET1"), "100");
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stock);
    EXPECT_EQ(page->grid()->MaxRows(), 1);
    EXPECT_EQ(cell(cells.code), "SET1") << "the unsaved row on top, the bottom row cut off";
    EXPECT_FALSE(page->grid()->ReDraw());
    EXPECT_TRUE(desk.frame.enabled);

    desk.box.onShow = nullptr;
    page->cmdKensaku_Click();
    EXPECT_TRUE(page->grid()->ReDraw());
    EXPECT_EQ(page->grid()->MaxRows(), 2);
}

TEST_P(EntryTest, lockedDatabase_booksNothing_andTheNextTryWorks)
{
    {
        const HeldFile held(desk.shop);
        book(u"P1"_s);
    }
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(desk.stockOf("P1"), "100");
    book(u"P1"_s);
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stock);
}

TEST_F(ReceiptEntryTest, stockOverflow_undoesTheComponents_too)
{
    stock("SET1", "99999999999999");
    stock("P1", "100");
    book(u"SET1"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(desk.stockOf("P1"), "100");
    EXPECT_EQ(desk.stockOf("SET1"), "99999999999999");
    EXPECT_EQ(storedRows(), 0U);
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_EQ(page->barCodeField()->text(), u"SET1"_s);
    EXPECT_TRUE(desk.frame.enabled);
}

// ---- corrections in the grid

TEST_P(EntryTest, cellChanges_goToTheBuffer_andPostNothing)
{
    book(u"P1"_s);
    const MovementColumns& columns = table.columns;
    edit(cells.quantity, "20");
    EXPECT_EQ(rows().get(1, columns.quantity), "0000020");
    EXPECT_EQ(rows().RowState(1), "U");
    EXPECT_EQ(cell(cells.total), GetParam().totalOfTwenty);
    edit(cells.price, "60");
    edit(cells.discount, "100");
    edit(cells.returned[0], "5");
    EXPECT_EQ(cell(cells.total), "800"); // (20 - 5) * 60 - 100
    edit(cells.name, "新しい名");
    edit(cells.unit, "箱");
    edit(cells.date, "2026/03/31");
    edit(cells.time, "08:00:01");
    edit(cells.remark, "備考'1");
    EXPECT_EQ(rows().get(1, columns.name), "新しい名");
    EXPECT_EQ(rows().get(1, columns.unit), "箱");
    EXPECT_EQ(rows().get(1, columns.date), "20260331");
    EXPECT_EQ(rows().get(1, columns.time), "080001");
    EXPECT_EQ(rows().get(1, columns.remark), "備考'1");
    EXPECT_TRUE(desk.frame.dirty(side));
    EXPECT_EQ(desk.stockOf("P1"), GetParam().stock);
    EXPECT_EQ(stored({&MovementColumns::quantity}), Texts{GetParam().storedQuantity});

    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    EXPECT_EQ(stored({&MovementColumns::code, &MovementColumns::name, &MovementColumns::quantity,
                      &MovementColumns::price, &MovementColumns::discount, &MovementColumns::unit,
                      &MovementColumns::date, &MovementColumns::time, &MovementColumns::remark,
                      &MovementColumns::partnerName}),
              Texts{"P1|新しい名|0000020|0000060|0000100|箱|20260331|080001|備考'1|東商店"});
}

TEST_P(EntryTest, emptiedNumberCell_becomesZero)
{
    book(u"P1"_s);
    edit(cells.quantity, "");
    EXPECT_EQ(cell(cells.quantity), "0");
    EXPECT_EQ(cell(cells.total), "0");
}

TEST_P(EntryTest, sameFigureTypedAgain_countsAsAChange_comparedAsText)
{
    book(u"P1"_s);
    edit(cells.quantity, cell(cells.quantity));
    EXPECT_TRUE(desk.frame.dirty(side));
}

TEST_P(EntryTest, cellsThatAreNotFedBack_changeNothing)
{
    book(u"P1"_s);
    for (const int column : {cells.code, cells.total, cells.partner, cells.print, cells.staff})
        edit(column, "x");
    EXPECT_FALSE(desk.frame.dirty(side));
    EXPECT_EQ(rows().RowState(1), "");
}

TEST_F(ShipmentEntryTest, returns_weakenTheTotal_andNeverTheStock)
{
    stock("P1", "100");
    book(u"P1"_s);
    edit(cells.quantity, "10");
    edit(cells.returned[0], "3");
    EXPECT_EQ(cell(cells.total), "700");
    edit(cells.returned[0], "0");
    edit(cells.returned[1], "3");
    EXPECT_EQ(cell(cells.total), "700") << "good and faulty returns weigh the same";
    edit(cells.returned[0], "2");
    EXPECT_EQ(cell(cells.total), "500");
    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    EXPECT_EQ(desk.stockOf("P1"), "90");
    EXPECT_EQ(desk.shop.query("SELECT SyuSuu,RHenkyaku,FHenkyaku FROM OutTB"),
              Texts{"0000010|0000002|0000003"});
}

} // namespace suisui::test
