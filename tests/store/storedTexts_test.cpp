// How selections treat the stored texts: plain and padded figures, the two kinds of history rows.
#include <gtest/gtest.h>

#include "store/Numbers.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

class StoredTextsTest : public ::testing::Test
{
protected:
    StoredTextsTest() : db(shop.databaseFolder()) { EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good); }

    TempShop shop;
    AppDB db;
};

} // namespace

TEST_F(StoredTextsTest, paddedAndPlainFigures_areOneQuantity_butTwoTexts)
{
    for (const char* figure : {"12", "0000012", "0", "0000000"})
        shop.add(zaikoTable, {figure, figure, "0", "s", "s"});
    ZaikoRec& rows = db.ZaikoTbl();
    EXPECT_EQ(rows.Select("WHERE CDbl(ZaikoSuu) = 12"), 2);
    EXPECT_EQ(rows.Select("WHERE ZaikoSuu = '12'"), 1);
    // Goods that have run out have the text "0", which every posting writes unpadded.
    EXPECT_EQ(rows.Select("WHERE ZaikoSuu <> '0'"), 3);
    EXPECT_EQ(numberOf("0000012"), numberOf("12"));
    EXPECT_EQ(movementNumber("12"), "0000012");
    EXPECT_EQ(CStr(numberOf("0000012")), "12");
}

TEST_F(StoredTextsTest, historyRows_differFromTheRowThatHoldsTheExtension)
{
    shop.add(rirekiTable, {"20260101", "20260131", "hst", "8192", "20260201090000"});
    shop.add(rirekiTable, {"20260201", "20260228", "hst", "8192", "20260301090000"});
    shop.add(rirekiTable, {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    RirekiRec& rows = db.RirekiTbl();
    ASSERT_EQ(rows.Select("Where DateFrom = 'Trn' And DateTo = 'Vik'   And FileSize = '00000000' AND "
                          "FileUpdate = '00000000000000'"),
              1);
    EXPECT_EQ(rows.get(1, RirekiCol::KakuTyo), "hst");
    ASSERT_EQ(rows.Select("Where DateFrom <> 'Trn' And DateTo <> 'Vik'   And FileSize <> '00000000' AND "
                          "FileUpdate <> '00000000000000'  ORDER BY DateFrom DESC"),
              2);
    EXPECT_EQ(rows.get(1, RirekiCol::DateFrom), "20260201") << "newest first";
}

TEST_F(StoredTextsTest, aRepeatedRow_isRefusedByItsKey_inEveryTableThatHistoryFills)
{
    shop.add(inpTable, {"A", "", "", "0000001", "", "", "", "20260101", "", "", "", "", "", "", "",
                        "20260101090000", "20260101090000"});
    db.Execute("INSERT INTO InpTB (Code, InpDate) VALUES ('A', '20260101090000')");
    EXPECT_EQ(db.LastErrNo(), "3022");
    db.Execute("INSERT INTO InpTB (Code, InpDate) VALUES ('B', '20260101090000')");
    EXPECT_EQ(db.LastStatus(), DbStatus::Good) << "other goods may have a row of the same moment";
    db.Execute("INSERT INTO OutTB (Code, InpDate) VALUES ('A', '20260101090000')");
    EXPECT_EQ(db.LastStatus(), DbStatus::Good);
    db.Execute("INSERT INTO OutTB (Code, InpDate) VALUES ('A', '20260101090000')");
    EXPECT_EQ(db.LastErrNo(), "3022");
    db.Rollback();
    EXPECT_EQ(shop.query("SELECT COUNT(*) FROM InpTB"), std::vector<std::string>{"1"});
}

} // namespace suisui::test
