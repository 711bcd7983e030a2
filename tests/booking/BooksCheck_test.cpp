// What the check of the books finds, and what it lets pass.
#include "booking/BooksCheck.h"

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/support/BooksDesk.h"

namespace suisui::test {

namespace {

using Kind = BooksDifference::Kind;

struct BooksCheckTest : public ::testing::Test
{
    std::vector<BooksDifference> differences()
    {
        InpRec receipts(desk.db, inpTable);
        OutRec shipments(desk.db, outTable);
        HSeihinRec components(desk.db, hseihinTable);
        ZaikoRec stock(desk.db, zaikoTable);
        RowSet* const all[] = {&receipts, &shipments, &components, &stock};
        for (RowSet* rows : all)
            rows->Select({});
        return checkBooks(
            desk.db,
            {.receipts = receipts, .shipments = shipments, .components = components, .stock = stock});
    }

    BooksDesk desk;
};

} // namespace

TEST_F(BooksCheckTest, booksThatHold_haveNoDifference)
{
    desk.component("SET", "PART", "2.5");
    desk.receipt("SET", "0000004", "20260301", "20260301090000", "", "0000001");
    desk.shipment("PART", "0000002", "20260301", "20260301090001");
    desk.stock("set", "3", "0");
    desk.stock("Part", "0.5", "10");
    EXPECT_TRUE(differences().empty());
}

TEST_F(BooksCheckTest, stockThatItsMovementsDoNotMake_isFoundWithBothFigures)
{
    desk.receipt("A", "0000004", "20260301", "20260301090000");
    desk.stock("A", "5", "3");
    const auto found = differences();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].kind, Kind::StockDiffers);
    EXPECT_EQ(found[0].code, "A");
    EXPECT_EQ(found[0].stock, 5);
    EXPECT_EQ(found[0].expected, 7);
}

TEST_F(BooksCheckTest, goodsThatMoved_oweAStockRow_unlessNobodyKnowsThem)
{
    desk.receipt("KNOWN", "0000004", "20260301", "20260301090000");
    desk.receipt("GONE", "0000004", "20260301", "20260301090001");
    desk.shop->add(masterTable, {"Known", "品"});
    const auto found = differences();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].kind, Kind::NoStockRow);
    EXPECT_EQ(found[0].code, "known");
    EXPECT_EQ(found[0].expected, 4);
}

TEST_F(BooksCheckTest, afterASavedPeriod_returnsMayCountEitherWay)
{
    desk.receipt("A", "0000004", "20260301", "20260301090000", "", "0000001");
    desk.stock("A", "4", "0");
    EXPECT_EQ(differences().size(), 1U);
    desk.shop->add(rirekiTable, {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    EXPECT_TRUE(differences().empty());
    desk.shop->execute("UPDATE ZaikoTB SET ZaikoSuu='3'");
    EXPECT_TRUE(differences().empty());
    desk.shop->execute("UPDATE ZaikoTB SET ZaikoSuu='5'");
    EXPECT_EQ(differences().size(), 1U);
}

TEST_F(BooksCheckTest, aFigureThatIsNotANumber_isThrown)
{
    desk.receipt("A", "many", "20260301", "20260301090000");
    EXPECT_THROW((void)differences(), RunTimeError);
}

} // namespace suisui::test
