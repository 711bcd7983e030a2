// Corrected and deleted receipts of goods that are made from others.
#include <gtest/gtest.h>

#include "tests/support/EntryDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

/// Five sets have come in, each made from three parts.
class ReceiptEditTest : public ::testing::Test
{
protected:
    ReceiptEditTest()
    {
        desk.goods("SET", "組", "5", "100", "1", "1");
        desk.goods("PART", "部品", "1", "1", "1", "1");
        desk.component("SET", "PART", "3");
        EntryDesk::book(page, u"SET"_s);
    }

    const MovementCells& cells = movementSide(Side::Receipt).cells;
    EntryDesk desk;
    MovementPage& page = desk.open(Side::Receipt);
};

TEST_F(ReceiptEditTest, raisedQuantityLessReturns_takesComponentsAlong)
{
    EXPECT_EQ(desk.stockOf("PART"), "-15");
    EntryDesk::edit(page, cells.quantity, 1, "8");
    EntryDesk::edit(page, cells.returned[0], 1, "1");
    desk.frame.guardActive = true;
    page.cmdKousin_Click();
    EXPECT_EQ(desk.stockOf("SET"), "7"); // +2
    EXPECT_EQ(desk.stockOf("PART"), "-21");
    EXPECT_EQ(page.grid()->text(cells.postedReturned, 1), "1");
    desk.box.answers = {BoxAnswer::Yes};
    page.cmdDelete_Click();
    EXPECT_EQ(desk.stockOf("SET"), "0");
    EXPECT_EQ(desk.stockOf("PART"), "0");
}

TEST_F(ReceiptEditTest, componentThatOverflows_undoesTheUpdate_andLeavesTheCells)
{
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999999' WHERE Code='PART'");
    EntryDesk::edit(page, cells.quantity, 1, "4");
    desk.frame.guardActive = true;
    desk.box.shown.clear();
    page.cmdKousin_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(page.grid()->text(cells.quantity, 1), "4");
    EXPECT_EQ(page.grid()->text(cells.postedQuantity, 1), "5");
    EXPECT_EQ(desk.stockOf("SET"), "5");
    EXPECT_EQ(desk.shop.query("SELECT NyuSuu FROM InpTB"), std::vector<std::string>{"0000005"});
}

} // namespace suisui::test
