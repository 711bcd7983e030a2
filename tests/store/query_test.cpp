// Selections over several tables: stock with its goods, movements of one code, movements summed.
#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

class QueryTest : public ::testing::Test
{
protected:
    QueryTest() : db(shop.databaseFolder(), [this](const std::string& text) { said.push_back(text); })
    {
        EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        shop.add(masterTable, {"A1", "鉛筆", "", "1", "50", "1", "80", "本", "5"});
        shop.add(masterTable, {"B2", "消しゴム", "", "2", "30", "1", "60", "個", "10"});
        shop.add(zaikoTable, {"B2", "3", "1", "s", "s"});
        shop.add(zaikoTable, {"a1", "12", "0", "s", "s"});
        shop.add(zaikoTable, {"GONE", "7", "0", "s", "s"});
    }
    void receipt(const std::string& code, const std::string& name, const std::string& quantity,
                 const std::string& price, const std::string& unit, const std::string& discount,
                 const std::string& returned)
    {
        const std::string stamp = "202601010000" + std::to_string(10 + ++stamps);
        shop.add(inpTable, {code, name, "", quantity, price, "S", "", "20260101", "100000", unit, discount,
                            returned, "T", "", "", stamp, stamp});
    }
    void shipment(const std::string& code, const std::string& quantity, const std::string& price,
                  const std::string& good, const std::string& faulty)
    {
        const std::string stamp = "202601010000" + std::to_string(10 + ++stamps);
        shop.add(outTable, {code,      "n",  "",     quantity, price, "S", "", "20260101", "100000", "本",
                            "0000005", good, faulty, "T",      "",    "",  "", "",         stamp,    stamp});
    }

    TempShop shop;
    std::vector<std::string> said;
    AppDB db;
    int stamps = 0;
};

} // namespace

TEST_F(QueryTest, stockView_isStockWithItsGoods_byCodeInAnyLetterCase)
{
    ZaikoViewRec& rows = db.ZaikoViewTbl();
    ASSERT_EQ(rows.Select("Where ZaikoTB.Code Like '*'  Order by ZaikoTB.code", ""), 2);
    EXPECT_EQ(rows.get(1, ZaikoViewCol::Code), "a1");
    EXPECT_EQ(rows.get(1, ZaikoViewCol::Name), "鉛筆");
    EXPECT_EQ(rows.get(1, ZaikoViewCol::NyuPrice), "50");
    EXPECT_EQ(rows.get(1, ZaikoViewCol::ZaikoSuu), "12");
    EXPECT_EQ(rows.get(2, ZaikoViewCol::KuriSuu), "1");
    EXPECT_EQ(rows.get(2, ZaikoViewCol::SyuPrice), "60");
    EXPECT_EQ(rows.get(2, ZaikoViewCol::Unit), "個");
    EXPECT_EQ(rows.get(2, ZaikoViewCol::Stock), "10");
    EXPECT_THROW((void)rows.get(3, ZaikoViewCol::Code), RunTimeError);
}

TEST_F(QueryTest, stockView_takesTheConditionsOfTheCheckBoxes)
{
    ZaikoViewRec& rows = db.ZaikoViewTbl();
    const std::string low = " And Cdbl(Master.Stock) > Cdbl(ZaikoTB.ZaikoSuu) ";
    ASSERT_EQ(rows.Select("Where ZaikoTB.Code Like '*' " + low + " Order by ZaikoTB.code", ""), 1);
    EXPECT_EQ(rows.get(1, ZaikoViewCol::Code), "B2");
    EXPECT_EQ(rows.Select("Where ZaikoTB.Code Like '*'  And ZaikoSuu <> '12' ", ""), 1);
}

TEST_F(QueryTest, stockView_addsOnlyWhileTheKeepRowsFlagIsSet)
{
    ZaikoViewRec& rows = db.ZaikoViewTbl();
    ASSERT_EQ(rows.Select("Where ZaikoTB.Code Like 'A1'", "1"), 1);
    EXPECT_EQ(rows.Select("Where ZaikoTB.Code Like 'B2'", "1"), 1);
    rows.setKeepRows(true);
    EXPECT_EQ(rows.Select("Where ZaikoTB.Code Like 'A1'", "1"), 2);
    EXPECT_EQ(rows.Select("Where nonsense", "1"), -1);
    EXPECT_EQ(rows.Count(), 2) << "a failed addition leaves the buffer";
    EXPECT_EQ(rows.Select("Where nonsense", ""), -1);
    EXPECT_EQ(rows.Count(), 0);
}

TEST_F(QueryTest, stockThatIsNotANumber_failsTheSelectionThatCountsWithIt)
{
    shop.add(masterTable, {"C3", "糊", "", "1", "50", "1", "80", "本", "5"});
    shop.add(zaikoTable, {"C3", "many", "0", "s", "s"});
    EXPECT_EQ(db.ZaikoViewTbl().Select(
                  "Where ZaikoTB.Code Like '*'  And Cdbl(Master.Stock) > Cdbl(ZaikoTB.ZaikoSuu) ", ""),
              -1);
    EXPECT_EQ(said.size(), 1U);
}

TEST_F(QueryTest, movementsOfACode_areOrderedByPriceAndUnit_toTheLetter)
{
    receipt("A1", "鉛筆", "0000001", "0000050", "kg", "0", "0");
    receipt("A1", "鉛筆", "0000002", "0000040", "KG", "0", "0");
    receipt("A1", "鉛筆", "0000003", "0000050", "KG", "0", "0000001");
    receipt("A1", "鉛筆", "0000004", "0000050", "kg", "0000007", "0");
    receipt("B2", "消しゴム", "0000009", "0000050", "kg", "0", "0");
    NyuViewRec& rows = db.NyuViewTbl();
    ASSERT_EQ(rows.Select(" WHERE Code='a1' ", ""), 4);
    std::string order;
    for (int row = 1; row <= 4; ++row)
        order +=
            rows.get(row, NyuViewCol::NyuSuu).back() + std::string(rows.get(row, NyuViewCol::Unit)) + ",";
    EXPECT_EQ(order, "2KG,3KG,1kg,4kg,");
    EXPECT_EQ(rows.get(2, NyuViewCol::Henkyaku), "0000001");
    EXPECT_EQ(rows.get(4, NyuViewCol::NyuNebiki), "0000007");
    shipment("B2", "0000004", "0000060", "0000001", "0000002");
    ASSERT_EQ(db.SyuViewTbl().Select(" WHERE Code='B2' ", ""), 1);
    EXPECT_EQ(db.SyuViewTbl().get(1, SyuViewCol::SyuSuu), "0000004") << "what left the stock, returns or not";
    EXPECT_EQ(db.SyuViewTbl().get(1, SyuViewCol::SyuNebiki), "0000005");
}

TEST_F(QueryTest, sums_areARowForGoodsPriceAndUnit_withTheAmountOfItsRows)
{
    receipt("A1", "鉛筆", "0000010", "0000050", "本", "0000100", "0000002");
    receipt("A1", "鉛筆", "0.5", "0000050", "本", "0", "0");
    receipt("A1", "鉛筆", "0000001", "0000050", "箱", "0", "0");
    receipt("B2", "消しゴム", "0000001", "0000030", "個", "0", "0");
    NyuSumRec& rows = db.NyuSumTbl();
    const std::string where = "WHERE NyuDate >= '20260101'  AND NyuDate <= '20260131' AND Code Like '*'";
    ASSERT_EQ(rows.Select(where, " ORDER BY Name, Code", ""), 3);
    EXPECT_EQ(rows.get(1, NyuSumCol::Name), "消しゴム");
    EXPECT_EQ(rows.get(2, NyuSumCol::Code), "A1");
    const int pieces = rows.get(2, NyuSumCol::Unit) == "本" ? 2 : 3;
    EXPECT_EQ(rows.get(pieces, NyuSumCol::NyuSuu), "10.5");
    EXPECT_EQ(rows.get(pieces, NyuSumCol::Henkyaku), "2");
    EXPECT_EQ(rows.get(pieces, NyuSumCol::NyuNebiki), "100");
    EXPECT_EQ(rows.get(pieces, NyuSumCol::Amount), "325"); // (10 - 2) * 50 - 100 + 0.5 * 50
    EXPECT_EQ(rows.Select(where + " AND Nyusakicd = 'X'", " ORDER BY Name, Code", ""), 0);
}

TEST_F(QueryTest, sumsOfShipments_takeBothReturnsOffTheAmount)
{
    shipment("A1", "0000010", "0000080", "0000001", "0000002");
    shipment("A1", "0000001", "0000080", "0", "0");
    SyuSumRec& rows = db.SyuSumTbl();
    ASSERT_EQ(
        rows.Select("WHERE SyuDate >= '20260101'  AND SyuDate <= '20260101'", " ORDER BY Name, Code", ""), 1);
    EXPECT_EQ(rows.get(1, SyuSumCol::SyuSuu), "11");
    EXPECT_EQ(rows.get(1, SyuSumCol::RHenkyaku), "1");
    EXPECT_EQ(rows.get(1, SyuSumCol::FHenkyaku), "2");
    EXPECT_EQ(rows.get(1, SyuSumCol::SyuNebiki), "10");
    EXPECT_EQ(rows.get(1, SyuSumCol::Amount), "630"); // 7 * 80 - 5 + 80 - 5
}

} // namespace suisui::test
