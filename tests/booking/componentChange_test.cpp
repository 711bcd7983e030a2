// Changing what goods are made of while receipts are in the books: the books stay sound.
#include "booking/ComponentChange.h"

#include <gtest/gtest.h>

#include "tests/support/TempShop.h"
#include "tools/ShopCheck.h"

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

/// Five sets have come in, of three apples and a basket each; two apples have been sold apart.
class ComponentChangeTest : public ::testing::Test
{
protected:
    ComponentChangeTest() : db(shop.databaseFolder())
    {
        for (const char* code : {"SET", "APPLE", "BASKET", "RIBBON", "OTHER"})
            shop.add(masterTable, {code, code});
        shop.add(hseihinTable, {"SET", "", "APPLE", "3"});
        shop.add(hseihinTable, {"set", "", "BASKET", "1"});
        receive("SET", "0000005", "20260401090000");
        sell("APPLE", "0000002", "20260401100000");
        stock("SET", "5", "0");
        stock("APPLE", "83", "100");
        stock("BASKET", "15", "20");
        stock("OTHER", "7", "7");
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
        EXPECT_EQ(checkShop(db), Texts{});
    }

    void receive(const std::string& code, const std::string& quantity, const std::string& stamp,
                 const std::string& returned = "0000000") const
    {
        shop.add(inpTable, {code, "", "", quantity, "0000000", "", "", "20260401", "090000", "", "0000000",
                            returned, "", "", "", stamp, stamp});
    }
    void sell(const std::string& code, const std::string& quantity, const std::string& stamp) const
    {
        shop.add(outTable,
                 {code,      "",        "",        quantity, "0000000", "", "", "20260401", "090000", "",
                  "0000000", "0000000", "0000000", "",       "",        "", "", "",         stamp,    stamp});
    }
    void stock(const std::string& code, const std::string& figure, const std::string& carried) const
    {
        shop.add(zaikoTable, {code, figure, carried, "20260101000000", "20260101000000"});
    }
    /// Does \a sql as a change of components, and stores it.
    bool change(const std::string& sql)
    {
        const bool done = changeComponents(db, "20260402090000", [&] {
            db.Execute(sql);
            return db.LastStatus() == DbStatus::Good;
        });
        if (done)
            db.Commit();
        else
            db.Rollback();
        return done;
    }
    [[nodiscard]] Texts stockOf(const std::string& code) const
    {
        return shop.query("SELECT ZaikoSuu, KuriSuu, UpdDate FROM ZaikoTB WHERE Code='" + code + "'");
    }

    TempShop shop;
    AppDB db;
};

} // namespace

TEST_F(ComponentChangeTest, fewerOfAPart_isCarriedForward_andTheStockStays)
{
    ASSERT_TRUE(change("UPDATE HSeihinTB SET Suuryou='2' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"83|95|20260402090000"}); // 83 = 95 - 2 - 5 * 2
    EXPECT_EQ(stockOf("BASKET"), Texts{"15|20|20260101000000"}) << "as much of it as before";
    EXPECT_EQ(stockOf("OTHER"), Texts{"7|7|20260101000000"});
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, aPartTakenOut_isConsumedByNobody)
{
    ASSERT_TRUE(change("DELETE FROM HSeihinTB WHERE HSeihinCD='BASKET'"));
    EXPECT_EQ(stockOf("BASKET"), Texts{"15|15|20260402090000"});
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, allPartsReplaced_bothSidesAreCarriedForward)
{
    ASSERT_TRUE(change("UPDATE HSeihinTB SET HSeihinCD='other', Suuryou='0.5' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"83|85|20260402090000"});
    EXPECT_EQ(stockOf("OTHER"), Texts{"7|9.5|20260402090000"});
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, aPartThatNeverMoved_getsItsStockRow)
{
    ASSERT_TRUE(change("INSERT INTO HSeihinTB (Code, HSeihinCD, Suuryou) VALUES ('SET', 'ribbon', '2')"));
    EXPECT_EQ(shop.query("SELECT * FROM ZaikoTB WHERE Code='RIBBON'"),
              Texts{"RIBBON|0|10|20260402090000|20260402090000"});
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, aPartThatNobodyKnows_orOfGoodsThatNeverCameIn_getsNone)
{
    ASSERT_TRUE(change("INSERT INTO HSeihinTB (Code, HSeihinCD, Suuryou) VALUES ('SET', 'GONE', '2')"));
    ASSERT_TRUE(change("INSERT INTO HSeihinTB (Code, HSeihinCD, Suuryou) VALUES ('OTHER', 'RIBBON', '2')"));
    EXPECT_EQ(stockOf("GONE"), Texts{});
    EXPECT_EQ(stockOf("RIBBON"), Texts{});
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, aShopThatIsStillBeingFilled_getsNoStockRows)
{
    shop.execute("DELETE FROM ZaikoTB");
    ASSERT_TRUE(change("INSERT INTO HSeihinTB (Code, HSeihinCD, Suuryou) VALUES ('SET', 'RIBBON', '2')"));
    EXPECT_EQ(shop.query("SELECT count(*) FROM ZaikoTB"), Texts{"0"});
}

TEST_F(ComponentChangeTest, returns_countAsPosted_andAfterASavedPeriodAsSaved)
{
    receive("SET", "0000004", "20260401110000", "0000001");
    shop.execute("UPDATE ZaikoTB SET ZaikoSuu='8' WHERE Code='SET'");
    shop.execute("UPDATE ZaikoTB SET ZaikoSuu='74' WHERE Code='APPLE'");
    shop.execute("UPDATE ZaikoTB SET ZaikoSuu='12' WHERE Code='BASKET'");
    EXPECT_EQ(checkShop(db), Texts{});
    ASSERT_TRUE(change("UPDATE HSeihinTB SET Suuryou='2' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"74|92|20260402090000"}); // 74 + 2 + 2 * (5 + 3)
    EXPECT_EQ(checkShop(db), Texts{});
    shop.add(rirekiTable, {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    ASSERT_TRUE(change("UPDATE HSeihinTB SET Suuryou='4' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"74|112|20260402090000"}); // 74 + 2 + 4 * (5 + 4)
    EXPECT_EQ(checkShop(db), Texts{});
}

TEST_F(ComponentChangeTest, onlyALetterCaseOrAName_changesNothing)
{
    ASSERT_TRUE(
        change("UPDATE HSeihinTB SET Code='Set', HSeihinCD='apple', Name='詰合せ' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"83|100|20260101000000"});
}

TEST_F(ComponentChangeTest, aChangeThatFails_leavesComponentsAndStockAsTheyWere)
{
    const bool done = changeComponents(db, "20260402090000", [this] {
        db.Execute("UPDATE HSeihinTB SET Suuryou='2'");
        return false;
    });
    EXPECT_FALSE(done);
    db.Rollback();
    EXPECT_FALSE(change("UPDATE HSeihinTB SET Suuryou='many' WHERE HSeihinCD='APPLE'")) << "is not a number";
    EXPECT_EQ(shop.query("SELECT Suuryou FROM HSeihinTB ORDER BY rowid"), (Texts{"3", "1"}));
    EXPECT_EQ(stockOf("APPLE"), Texts{"83|100|20260101000000"});
}

TEST_F(ComponentChangeTest, stockThatIsNotANumber_isNotCarriedForward)
{
    shop.execute("UPDATE ZaikoTB SET ZaikoSuu='many' WHERE Code='APPLE'");
    EXPECT_FALSE(change("UPDATE HSeihinTB SET Suuryou='2' WHERE HSeihinCD='APPLE'"));
    EXPECT_EQ(stockOf("APPLE"), Texts{"many|100|20260101000000"});
}

} // namespace suisui::test
