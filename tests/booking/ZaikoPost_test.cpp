#include "booking/ZaikoPost.h"

#include <gtest/gtest.h>

#include "store/AppDB.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/HeldFile.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TempShop.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ZaikoPostTest : public ::testing::Test
{
protected:
    ZaikoPostTest() : db(shop.databaseFolder())
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
    }

    void goods(const std::string& code, const std::string& lowest)
    {
        shop.add(masterTable, {code, "鉛筆", "", "1", "100", "1", "150", "本", lowest});
    }
    void stock(const std::string& code, const std::string& figure)
    {
        shop.add(zaikoTable, {code, figure, "0", "20260101000000", "20260101000000"});
    }
    PostResult post(const std::string& code, const std::string& delta, std::string name = {})
    {
        lastName = std::move(name);
        return ZaikoPost(db, box, code, delta, lastName, "20260401090000");
    }
    std::string stored(const std::string& code)
    {
        db.Commit();
        const auto rows = shop.query("SELECT ZaikoSuu FROM ZaikoTB WHERE Code='" + code + "'");
        return rows.empty() ? "none" : rows.front();
    }
    /// The posting goes through without a word, and the stock is \a wanted afterwards.
    void expectSilent(const std::string& code, const std::string& delta, const std::string& wanted)
    {
        EXPECT_EQ(post(code, delta), PostResult::Posted);
        EXPECT_TRUE(box.shown.empty());
        EXPECT_EQ(stored(code), wanted);
    }

    TempShop shop;
    AppDB db;
    ScriptedMsgBox box;
    std::string lastName;
};

} // namespace

TEST_F(ZaikoPostTest, stockBelowMinimum_warns_andIsStored)
{
    goods("A1", "10");
    stock("A1", "5");
    EXPECT_EQ(post("A1", "-2", "消しゴム"), PostResult::Posted);
    expectOneBox(
        box,
        {.title = u" 最低在庫数 未満"_s,
         .text =
             u"「 消しゴム 」　（ コード ： A1 ） の　　　\r\n在庫数が 最低在庫数 未満になります。　　　\r\n\r\n　　在庫数 = 3  <  最低在庫数 = 10　"_s,
         .icon = BoxIcon::Exclamation,
         .buttons = BoxButtons::Ok});
    EXPECT_EQ(stored("A1"), "3");
}

TEST_F(ZaikoPostTest, negativeStock_warnsWithClosingSentence_andIsStored)
{
    goods("A1", "0");
    stock("A1", "1");
    EXPECT_EQ(post("A1", "-2"), PostResult::Posted);
    expectOneBox(
        box,
        {.title = u" 在庫不足"_s,
         .text =
             u"「 鉛筆 」　（ コード ： A1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -1\r\n\r\n在庫を確認して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(stored("A1"), "-1");
}

TEST_F(ZaikoPostTest, stockFallingToItsMinimum_isSilent)
{
    goods("A1", "0");
    stock("A1", "1");
    expectSilent("A1", "-1", "0");
}

TEST_F(ZaikoPostTest, firstShipmentWithoutRow_warnsWithoutAdvice_andStoresTheText)
{
    goods("A1", "0");
    EXPECT_EQ(post("A1", "-3", "鉛筆"), PostResult::Posted);
    expectOneBox(
        box,
        {.title = u" 在庫不足"_s,
         .text =
             u"「 鉛筆 」　（ コード ： A1 ） の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -3"_s,
         .icon = BoxIcon::Stop});
    db.Commit();
    EXPECT_EQ(shop.query("SELECT Code,ZaikoSuu,KuriSuu,InpDate,UpdDate FROM ZaikoTB"),
              std::vector<std::string>{"A1|-3|0|20260401090000|20260401090000"});
}

TEST_F(ZaikoPostTest, newRowKeepsLeadingZeros_untilTheNextPosting)
{
    goods("A1", "0");
    EXPECT_EQ(post("A1", "0000012"), PostResult::Posted);
    EXPECT_EQ(stored("A1"), "0000012");
    EXPECT_EQ(post("A1", "1"), PostResult::Posted);
    EXPECT_EQ(stored("A1"), "13");
}

TEST_F(ZaikoPostTest, limitItselfPasses_oneMoreOverflows)
{
    goods("A1", "0");
    stock("A1", "99999999999998");
    EXPECT_EQ(post("A1", "1"), PostResult::Posted);
    EXPECT_EQ(stored("A1"), "99999999999999");
    EXPECT_EQ(post("A1", "1"), PostResult::DigitOverflow);
    expectOneBox(box, {.title = u"桁あふれエラー"_s,
                       .text = u"在庫数が 「桁あふれ」 しました。　　　\r\n\r\n　再度、入力して下さい。"_s,
                       .icon = BoxIcon::Stop});
    db.Rollback();
    EXPECT_EQ(stored("A1"), "99999999999999");
}

TEST_F(ZaikoPostTest, firstPostingAboveTheLimit_overflows_andMakesNoRow)
{
    goods("A1", "0");
    EXPECT_EQ(post("A1", "100000000000000"), PostResult::DigitOverflow);
    EXPECT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(stored("A1"), "none");
}

TEST_F(ZaikoPostTest, postingUpwards_neverWarns)
{
    goods("A1", "100");
    stock("A1", "-50");
    expectSilent("A1", "10", "-40");
}

TEST_F(ZaikoPostTest, negativeStockAboveANegativeMinimum_isSilent)
{
    goods("A1", "-10");
    stock("A1", "1");
    expectSilent("A1", "-5", "-4");
}

TEST_F(ZaikoPostTest, deltaZero_touchesNothing_butDoubleZeroDoes)
{
    goods("A1", "0");
    stock("A1", "7");
    EXPECT_EQ(post("A1", "0"), PostResult::Posted);
    EXPECT_FALSE(db.inUnit());
    EXPECT_EQ(shop.query("SELECT UpdDate FROM ZaikoTB"), std::vector<std::string>{"20260101000000"});
    EXPECT_EQ(post("A1", "00"), PostResult::Posted);
    db.Commit();
    EXPECT_EQ(shop.query("SELECT ZaikoSuu,UpdDate FROM ZaikoTB"),
              std::vector<std::string>{"7|20260401090000"});
}

TEST_F(ZaikoPostTest, firstPostingOfDoubleZero_makesARow_withoutABox)
{
    goods("A1", "10");
    EXPECT_EQ(post("A1", "00"), PostResult::Posted);
    EXPECT_TRUE(box.shown.empty()) << "nothing is not below nothing";
    EXPECT_EQ(stored("A1"), "00");
    goods("B1", "10");
    EXPECT_EQ(post("B1", "0"), PostResult::Posted);
    EXPECT_EQ(stored("B1"), "none");
}

TEST_F(ZaikoPostTest, codeInNeitherTable_isSkippedSilently)
{
    expectSilent("NIX", "-5", "none");
    EXPECT_EQ(lastName, "");
}

TEST_F(ZaikoPostTest, itemThatLeftTheMaster_isNamedByItsCode)
{
    stock("OLD", "1");
    EXPECT_EQ(post("OLD", "-2"), PostResult::Posted);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(
        box.shown[0].text,
        u"コード「 OLD 」 の　　　\r\n在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = -1\r\n\r\n在庫を確認して下さい。"_s);
    EXPECT_EQ(stored("OLD"), "-1");
}

TEST_F(ZaikoPostTest, fractions_areStoredAsTheyAddUpOnPaper)
{
    goods("A1", "0");
    stock("A1", "0.1");
    EXPECT_EQ(post("A1", "0.2"), PostResult::Posted);
    EXPECT_EQ(stored("A1"), "0.3");
}

TEST_F(ZaikoPostTest, threeTenthsLessThreeTimesATenth_areNothing)
{
    goods("A1", "0");
    stock("A1", "0.3");
    expectSilent("A1", "-0.1", "0.2");
    expectSilent("A1", "-0.1", "0.1");
    expectSilent("A1", "-0.1", "0");
    stock("B1", "1000000.1");
    goods("B1", "0.1");
    expectSilent("B1", "-1000000", "0.1"); // which is not below its minimum
}

TEST_F(ZaikoPostTest, fractionsInABox_haveNoTail)
{
    goods("A1", "0.2");
    stock("A1", "0.3");
    EXPECT_EQ(post("A1", "-0.2"), PostResult::Posted);
    EXPECT_EQ(post("A1", "-0.3"), PostResult::Posted);
    ASSERT_EQ(box.shown.size(), 2U);
    EXPECT_TRUE(box.shown[0].text.contains(u"在庫数 = 0.1  <  最低在庫数 = 0.2　"_s))
        << box.shown[0].text.toStdString();
    EXPECT_TRUE(box.shown[1].text.contains(u"在庫数 = -0.2\r\n"_s)) << box.shown[1].text.toStdString();
    EXPECT_EQ(stored("A1"), "-0.2");
}

TEST_F(ZaikoPostTest, writeThatFails_rollsBackAndGivesDatabaseFailure)
{
    goods("A1", "0");
    stock("A1", "5");
    {
        const HeldFile held(shop);
        EXPECT_EQ(post("A1", "3"), PostResult::DatabaseFailure);
    }
    EXPECT_FALSE(db.inUnit());
    EXPECT_EQ(stored("A1"), "5");
    EXPECT_EQ(post("A1", "3"), PostResult::Posted);
    EXPECT_EQ(stored("A1"), "8");
}

TEST_F(ZaikoPostTest, firstLine_comesBackInTheName)
{
    goods("A1", "0");
    stock("A1", "5");
    EXPECT_EQ(post("A1", "1", "名"), PostResult::Posted);
    EXPECT_EQ(lastName, "「 名 」　（ コード ： A1 ） の　　　\r\n");
}

TEST_F(ZaikoPostTest, callersGoodsItem_survivesThePosting)
{
    goods("A1", "0");
    ASSERT_EQ(db.MasterTbl().Select("WHERE Code='A1'"), 1);
    EXPECT_EQ(post("A1", "1"), PostResult::Posted);
    EXPECT_EQ(db.MasterTbl().Count(), 1);
    EXPECT_EQ(db.ZaikoTbl().Count(), 0);
}

} // namespace suisui::test
