// Deleting a stored movement: what is asked, and what becomes of the stock and of the rows that stay.
#include "tests/movement/edit/EditTest.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, deleteOnAnEmptyBuffer_doesNothing)
{
    erase(1);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(EditTest, deleteAsks_andUndoesTheStock)
{
    bookThree();
    desk.frame.loaded = {true, true, true, true, true};
    erase(2, BoxAnswer::No);
    EXPECT_EQ(quantities().size(), 3U);
    desk.box.shown.clear();
    erase(2);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u"削除の確認"_s);
    EXPECT_EQ(desk.box.shown[0].text, GetParam().deleteQuestion);
    EXPECT_EQ(desk.box.shown[0].defaultButton, BoxAnswer::No);
    EXPECT_EQ(desk.box.shown[1].title, u"削除の完了"_s);
    EXPECT_EQ(desk.box.shown[1].text, u"「 %1 」を削除しました。　　　　"_s.arg(GetParam().term));
    EXPECT_EQ(quantities().size(), 2U);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
    EXPECT_FALSE(desk.frame.TabLoaded(Tab::Stock));
    EXPECT_FALSE(desk.frame.TabLoaded(GetParam().listTab));
    EXPECT_TRUE(page->grid()->ReDraw());
}

TEST_P(EditTest, indexesAfterTheDeletedRow_goDownByOne)
{
    fill(8);
    page->cmdKensaku_Click();
    (void)page->grid()->text(cells.code, 2); // makes the texts of one row, not of the others
    ASSERT_EQ(index(4), "5");
    erase(4);
    std::string all;
    for (int row = 1; row <= page->grid()->MaxRows(); ++row)
        all += index(row) + " ";
    EXPECT_EQ(all, "7 6 5 4 3 2 1 ");
    EntryDesk::edit(*page, cells.quantity, 1, "9"); // still the right row of the buffer
    update();
    EXPECT_EQ(quantities().back(), "0000009");
}

TEST_P(EditTest, deleteUndoesTheLastPosting_andKeepsCorrectionsOfOtherRows)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 2, "8");
    update();
    EntryDesk::edit(*page, cells.quantity, 1, "7");  // pending
    EntryDesk::edit(*page, cells.quantity, 2, "99"); // never posted
    erase(2);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    EXPECT_EQ(page->grid()->text(cells.quantity, 1), "7");
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000007"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(12));
}

} // namespace suisui::test
