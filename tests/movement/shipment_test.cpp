// Booking shipments: where they differ from receipts.
#include <gtest/gtest.h>

#include "tests/support/EntryDesk.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ShipmentTest : public ::testing::Test
{
protected:
    ShipmentTest()
    {
        desk.goods("A1", "鉛筆", "12", "50", "2", "100", "10");
        desk.goods("SET1", "文具セット", "2", "900", "1", "1500");
        desk.component("SET1", "A1", "3");
        page = &desk.open(Side::Shipment);
    }
    void stock(const std::string& code, const std::string& figure) const
    {
        desk.shop.add(zaikoTable, {code, figure, "0", "x", "x"});
    }
    [[nodiscard]] std::vector<std::string> out() const
    {
        return desk.shop.query("SELECT * FROM OutTB ORDER BY InpDate");
    }

    EntryDesk desk;
    MovementPage* page = nullptr;
};

} // namespace

TEST_F(ShipmentTest, booking_storesTheRow_lowersTheStock_andPutsTheRowOnTop)
{
    stock("A1", "100");
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 5, 7)));
    EntryDesk::book(*page, u"a1"_s);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(out(), std::vector<std::string>{
                         "A1|鉛筆||0000002|0000100|101|東商店|20260401|090507|個|0000000|0000000|0000000|01|"
                         "山田　太郎||||20260401090507|20260401090507"});
    EXPECT_EQ(desk.stockOf("A1"), "98");
    const vaSpread& grid = *page->grid();
    const char* const cells[] = {"A1",         "鉛筆",     "100",        "2",  "0", "200",
                                 "東商店",     "1",        "山田　太郎", "個", "0", "0",
                                 "2026/04/01", "09:05:07", "",           "2",  "1"};
    ASSERT_EQ(grid.MaxCols(), 17);
    for (int column = 1; column <= 17; ++column)
        EXPECT_EQ(grid.text(column, 1), cells[column - 1]) << "column " << column;
    EXPECT_EQ(grid.ActiveCol(), 4);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(desk.frame.loaded, (std::array{true, true, false, true, false}));
}

TEST_F(ShipmentTest, moreThanTheStock_isTold_andBookedAllTheSame)
{
    stock("A1", "1");
    EntryDesk::book(*page, u"A1"_s);
    expectOneBox(
        desk.box,
        {.title = u" 在庫不足"_s,
         .text =
             u"「 鉛筆 」　（ コード ： A1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -1\r\n\r\n在庫を確認して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.stockOf("A1"), "-1");
    EXPECT_EQ(out().size(), 1U);
}

TEST_F(ShipmentTest, goodsNeverInStock_goBelowZero_withoutTheClosingAdvice)
{
    EntryDesk::book(*page, u"A1"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「 鉛筆 」　（ コード ： A1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -2"_s);
    EXPECT_EQ(desk.stockOf("A1"), "-2");
}

TEST_F(ShipmentTest, lowStock_isTold)
{
    stock("A1", "11");
    EntryDesk::book(*page, u"A1"_s);
    expectOneBox(
        desk.box,
        {.title = u" 最低在庫数 未満"_s,
         .text =
             u"「 鉛筆 」　（ コード ： A1 ） の　　　\r\n在庫数が 最低在庫数 未満になります。　　　\r\n\r\n　　在庫数 = 9  <  最低在庫数 = 10　"_s,
         .icon = BoxIcon::Exclamation});
}

TEST_F(ShipmentTest, componentsOfAProduct_stayWhenItLeaves)
{
    stock("SET1", "5");
    stock("A1", "30");
    EntryDesk::book(*page, u"SET1"_s);
    EXPECT_EQ(desk.stockOf("SET1"), "4");
    EXPECT_EQ(desk.stockOf("A1"), "30");
}

TEST_F(ShipmentTest, returns_weakenTheTotal_andNeverTheStock)
{
    stock("A1", "100");
    EntryDesk::book(*page, u"A1"_s);
    EntryDesk::edit(*page, 4, 1, "10");
    EntryDesk::edit(*page, 11, 1, "3");
    EXPECT_EQ(page->grid()->text(6, 1), "700");
    EntryDesk::edit(*page, 11, 1, "0");
    EntryDesk::edit(*page, 12, 1, "3");
    EXPECT_EQ(page->grid()->text(6, 1), "700") << "good and defective returns count the same";
    EntryDesk::edit(*page, 11, 1, "2");
    EXPECT_EQ(page->grid()->text(6, 1), "500");
    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    EXPECT_EQ(desk.stockOf("A1"), "90");
    EXPECT_EQ(desk.shop.query("SELECT SyuSuu,RHenkyaku,FHenkyaku FROM OutTB"),
              std::vector<std::string>{"0000010|0000002|0000003"});
}

TEST_F(ShipmentTest, cells_goToTheirColumns)
{
    EntryDesk::book(*page, u"A1"_s);
    const std::pair<int, const char*> typed[] = {
        {2, "改名"}, {3, "7"}, {5, "8"}, {10, "箱"}, {13, "2026/03/31"}, {14, "08:00:01"}, {15, "備考"}};
    for (const auto& [column, text] : typed)
        EntryDesk::edit(*page, column, 1, text);
    for (const int column : {1, 6, 7, 8, 9})
        EntryDesk::edit(*page, column, 1, "x"); // not taken into the row set
    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    EXPECT_EQ(
        desk.shop.query("SELECT Code,Name,SyuPrice,SyuNebiki,Unit,SyuDate,SyuTime,Bikou,SysName FROM OutTB"),
        std::vector<std::string>{"A1|改名|0000007|0000008|箱|20260331|080001|備考|東商店"});
}

TEST_F(ShipmentTest, unknownCode_getsTheBoxOfReceipts)
{
    EntryDesk::book(*page, u"4999"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"入力された コード 「 4999 」 は\r\n「商品」 に登録されていません。\r\n\r\n【基本情報 登録】 で\r\n「商品」 に登録した後に、再度、入力して下さい。　　"_s);
    EXPECT_TRUE(out().empty());
}

TEST_F(ShipmentTest, rowThatCannotBeStored_bringsTheStockBack)
{
    stock("A1", "100");
    desk.shop.add(outTable, {"A1", "",  "", "0", "0", "", "", "20260401",       "090000",        "", "0",
                             "0",  "0", "", "",  "",  "", "", "20260401090000", "20260401090000"});
    EntryDesk::book(*page, u"A1"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「 出荷テーブル 」\r\n　　新規追加 (INSERT) エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。"_s);
    EXPECT_EQ(desk.stockOf("A1"), "100");
    EXPECT_EQ(page->grid()->MaxRows(), 0);
}

} // namespace suisui::test
