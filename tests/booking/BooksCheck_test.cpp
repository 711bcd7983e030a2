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

TEST_F(BooksCheckTest, goodsThatWentAsTheyCame_oweNoStockRow)
{
    desk.shop->add(masterTable, {"A", "品"});
    desk.receipt("A", "0000004", "20260301", "20260301090000");
    desk.shipment("A", "0000004", "20260301", "20260301090001");
    EXPECT_TRUE(differences().empty());
    desk.shipment("A", "-000001", "20260301", "20260301090002");
    ASSERT_EQ(differences().size(), 1U);
    EXPECT_EQ(differences()[0].expected, 1);
    desk.shipment("A", "0000002", "20260301", "20260301090003");
    ASSERT_EQ(differences().size(), 1U);
    EXPECT_EQ(differences()[0].expected, -1);
}

TEST_F(BooksCheckTest, sixteenthDigit_isNoDifference_butTheFifteenthIsOne)
{
    const struct
    {
        std::string figure;
        std::string carried;
        std::string received;
        std::string shipped;
        bool differs;
    } cases[] = {
        // The room is the sixteenth digit of all that had a part in it.
        {"100000000000", "100000000000", "0.0001", "0", false},
        {"100000000000", "100000000000", "0.0004", "0", true},
        {"100000000000", "0", "100000000000.0001", "0", false},
        {"0.001", "0", "1000000000000", "1000000000000", false},
        {"-0.001", "0", "1000000000000", "1000000000000", false},
        {"0.005", "0", "1000000000000", "1000000000000", true},
        {"-0.005", "0", "1000000000000", "1000000000000", true},
        {"0.0000000000000005", "0", "0", "0", true},
        {"0.0000000000000005", "0", "0.2", "0.2", false},
    };
    for (const auto& each : cases) {
        for (const char* table : {"ZaikoTB", "InpTB", "OutTB"})
            desk.shop->execute(std::string("DELETE FROM ") + table);
        desk.stock("A", each.figure, each.carried);
        desk.receipt("A", each.received, "20260301", "20260301090000");
        desk.shipment("A", each.shipped, "20260301", "20260301090001");
        EXPECT_EQ(differences().size(), each.differs ? 1U : 0U) << each.figure << " " << each.received;
    }
}

TEST_F(BooksCheckTest, aFigureThatIsNotANumber_isThrown)
{
    desk.receipt("A", "many", "20260301", "20260301090000");
    EXPECT_THROW((void)differences(), RunTimeError);
}

} // namespace suisui::test
