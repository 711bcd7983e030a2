// Searching a period: number of rows, questions, and what the grid shows.
#include "tests/movement/edit/EditTest.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/ManyRows.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, aThousandRowsLoadUnasked_newestFirst)
{
    fill(1000);
    page->cmdKensaku_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.waitTags.empty());
    const vaSpread& grid = *page->grid();
    ASSERT_EQ(grid.MaxRows(), 1000);
    EXPECT_EQ(grid.text(cells.time, 1), "00:10:00");
    EXPECT_EQ(index(1), "1000");
    EXPECT_EQ(index(1000), "1");
    EXPECT_EQ(grid.text(cells.print, 1), "") << "the label mark is not stored";
    EXPECT_EQ(grid.ActiveCol(), cells.quantity);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_TRUE(grid.ReDraw());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, moreThanAThousandRowsAsk_andLoadUnderTheWaitWindow)
{
    fill(1001);
    desk.box.answers = {BoxAnswer::Yes};
    page->cmdKensaku_Click();
    expectOneBox(desk.box, manyRowsQuestion(1001));
    EXPECT_EQ(desk.frame.waitTags, std::vector<QString>{GetParam().waitTag});
    EXPECT_EQ(desk.frame.waitMaximum, 1001);
    EXPECT_EQ(desk.frame.waitValue, 1001);
    EXPECT_EQ(page->grid()->MaxRows(), 1001);
}

TEST_P(EditTest, noToManyRows_leavesTheOldGrid_whichTouchesNothingAnyMore)
{
    bookThree();
    fill(1001);
    desk.box.answers = {BoxAnswer::No};
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_EQ(movementTable(GetParam().side).rows(desk.db).Count(), 1004);
    EXPECT_EQ(page->grid()->text(cells.code, 1), "A");
    const auto before = desk.shop.query(std::string("SELECT * FROM ") + GetParam().table);
    desk.box.shown.clear();
    EntryDesk::edit(*page, cells.quantity, 1, "77");
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"データベースエラー"_s);
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    erase(2);
    EXPECT_EQ(desk.shop.query(std::string("SELECT * FROM ") + GetParam().table), before);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    // Rows booked from here on are in step again.
    EntryDesk::book(*page, u"A"_s);
    EntryDesk::edit(*page, cells.quantity, 1, "9");
    update();
    EXPECT_EQ(quantities().back(), "0000009");
    EXPECT_EQ(quantities().size(), before.size() + 1);
}

TEST_P(EditTest, searchWithoutResult_emptiesTheGrid_withoutAWord)
{
    bookThree();
    page->setDefaultDates(u"20300101"_s, u"20300102"_s);
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, periodWithItsEndBeforeItsStart_isReported_notSearched)
{
    bookThree();
    page->setDefaultDates(u"20260402"_s, u"20260401"_s);
    page->cmdKensaku_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"日付エラー"_s);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, rowsOfAnotherDay_areNotFound)
{
    bookThree();
    desk.shop.execute(std::string("UPDATE ") + GetParam().table + " SET " + GetParam().date
                      + "='20260331' WHERE InpDate='20260401090000'");
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 2);
}

} // namespace suisui::test
