// What one scan does to stocks and what it warns of, to the letter.
#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/support/BookingDesk.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

/// A shop with pencils, received by the dozen and shipped in pairs, and a set put together of three of them.
class ScanRules : public ::testing::Test
{
protected:
    ScanRules()
    {
        desk.shop.add(masterTable, {"P1", "鉛筆", "", "12", "50", "2", "100", "個", "10"});
        desk.goods("SET", "2", "1");
        desk.component("SET", "P1", "3");
    }
    /// Books one code that is to be stored.
    void receive(const char* code) { ASSERT_EQ(desk.receipts.book(code), BookResult::Stored); }
    void ship(const char* code) { ASSERT_EQ(desk.shipments.book(code), BookResult::Stored); }

    BookingDesk desk;
};

/// Goods mixed of parts of which half a piece can be taken: what a scan rounds, and what it does not.
class ComponentFractions : public ::testing::Test
{
protected:
    /// Books \a mixed pieces that take \a perUnit parts each, of which a hundred are in stock.
    void receive(const char* mixed, const char* perUnit)
    {
        desk.goods("MIX", mixed, "1");
        desk.goods("PART", "1", "1");
        desk.component("MIX", "PART", perUnit);
        desk.stock("PART", "100");
        ASSERT_EQ(desk.receipts.book("MIX"), BookResult::Stored);
    }

    BookingDesk desk;
};

} // namespace

TEST_F(ScanRules, goodsWithoutComponents_moveOnlyThemselves)
{
    receive("P1");
    EXPECT_EQ(desk.shop.query("SELECT Code,ZaikoSuu FROM ZaikoTB"), Texts{"P1|12"});
}

TEST_F(ScanRules, receivedProduct_takesItsComponentsOut_withOneStamp)
{
    desk.shop.add(zaikoTable, {"P1", "100", "0", "x", "x"});
    receive("SET");
    EXPECT_EQ(desk.stockOf("SET"), "2");
    EXPECT_EQ(desk.stockOf("P1"), "94");
    EXPECT_EQ(desk.shop.query("SELECT DISTINCT UpdDate FROM ZaikoTB").size(), 1U);
}

TEST_F(ScanRules, shippedProduct_leavesItsComponents)
{
    desk.stock("SET", "5");
    desk.stock("P1", "30");
    ship("SET");
    EXPECT_EQ(desk.stockOf("SET"), "4");
    EXPECT_EQ(desk.stockOf("P1"), "30");
}

TEST_F(ScanRules, fractions_areRoundedToEven_forComponentsOnly)
{
    desk.goods("FRAC", "2.5", "1");
    desk.component("FRAC", "P1", "1.5");
    desk.stock("P1", "100");
    receive("FRAC");
    EXPECT_EQ(desk.stockOf("FRAC"), "2.5");
    EXPECT_EQ(desk.stockOf("P1"), "96") << "2 times 2";
    EXPECT_EQ(desk.shop.query("SELECT NyuSuu FROM InpTB"), Texts{"0000003"});
}

TEST_F(ScanRules, componentMissingFromBothTables_isSkipped)
{
    desk.component("SET", "GONE", "1");
    receive("SET");
    EXPECT_EQ(desk.stockOf("SET"), "2");
    EXPECT_EQ(desk.stockOf("GONE"), "none");
    EXPECT_EQ(desk.shop.query("SELECT Code FROM InpTB").size(), 1U);
}

TEST_F(ScanRules, componentProductBeyondThirtyTwoBits_isARunTimeError)
{
    desk.goods("HUGE", "2000000000", "1");
    desk.component("HUGE", "P1", "2");
    EXPECT_THROW((void)desk.receipts.book("HUGE"), RunTimeError);
    desk.db.Rollback();
    EXPECT_EQ(desk.stockOf("P1"), "none");
}

TEST_F(ScanRules, moreThanTheStock_isReported_andBookedAllTheSame)
{
    desk.stock("P1", "1");
    ship("p1");
    expectOneBox(
        desk.box,
        {.title = u" 在庫不足"_s,
         .text =
             u"「 鉛筆 」　（ コード ： P1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -1\r\n\r\n在庫を確認して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.stockOf("P1"), "-1");
    EXPECT_EQ(desk.shop.query("SELECT Code FROM OutTB").size(), 1U);
}

TEST_F(ScanRules, goodsNeverInStock_goBelowZero_withoutTheClosingAdvice)
{
    ship("P1");
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「 鉛筆 」　（ コード ： P1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -2"_s);
    EXPECT_EQ(desk.stockOf("P1"), "-2");
}

TEST_F(ScanRules, lowStock_isReported)
{
    desk.stock("P1", "11");
    ship("P1");
    expectOneBox(
        desk.box,
        {.title = u" 最低在庫数 未満"_s,
         .text =
             u"「 鉛筆 」　（ コード ： P1 ） の　　　\r\n在庫数が 最低在庫数 未満になります。　　　\r\n\r\n　　在庫数 = 9  <  最低在庫数 = 10　"_s,
         .icon = BoxIcon::Exclamation});
}

TEST_F(ComponentFractions, aScanAndItsDelete_needNotCancel)
{
    receive("3", "1.5");
    EXPECT_EQ(desk.stockOf("PART"), "94") << "2 times 3: the quantity in one unit is rounded at the scan";
    ASSERT_EQ(desk.receipts.erase(1), EditResult::Done);
    EXPECT_EQ(desk.stockOf("MIX"), "0");
    EXPECT_EQ(desk.stockOf("PART"), "98.5") << "1.5 times 3 come back";
}

TEST_F(ComponentFractions, anUpdate_computesExactly)
{
    receive("2", "0.25");
    EXPECT_EQ(desk.stockOf("PART"), "100") << "a quarter is none at the scan";
    desk.receipts.type(1, 5, 0);
    ASSERT_EQ(desk.receipts.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("PART"), "99.25");
}

} // namespace suisui::test
