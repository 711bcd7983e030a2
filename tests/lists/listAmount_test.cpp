// Searches that find many movements: the question before them and the wait window.
#include "tests/lists/ListSearch.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/ManyRows.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(ListSearch, aThousandMovementsLoadWithoutTheQuestion)
{
    desk.storeMany(1000);
    desk.search();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(desk.grid().MaxRows(), 1002);
    EXPECT_EQ(desk.frame.waitTags, std::vector{desk.bySide(u"入荷一覧明細"_s, u"出荷一覧明細"_s)});
    EXPECT_EQ(desk.frame.waitMaximum, 1000);
    EXPECT_EQ(desk.frame.waitValue, 1000);
}

TEST_P(ListSearch, aThousandAndOneMovementsAskFirst)
{
    desk.storeMany(1001);
    desk.box.answers = {BoxAnswer::Yes};
    desk.search();
    expectOneBox(desk.box, manyRowsQuestion(1001));
    EXPECT_EQ(desk.grid().MaxRows(), 1003);
    EXPECT_EQ(desk.frame.waitTags.size(), 1U);
}

TEST_P(ListSearch, noToTheQuestionLeavesTheListThatWasThere)
{
    desk.store({{.date = "20260115", .code = "77"}});
    desk.search();
    const auto before = desk.rows();
    const std::string headingsBefore = headings();
    desk.storeMany(1001);
    desk.box.answers = {BoxAnswer::No};
    desk.search();
    EXPECT_EQ(desk.rows(), before);
    EXPECT_EQ(headings(), headingsBefore);
    EXPECT_TRUE(desk.frame.waitTags.empty());
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_EQ(desk.isShipment() ? desk.db.OutList().Count() : desk.db.InpList().Count(), 0);
}

TEST_P(ListSearch, fiveHundredMovements_needNoWaitWindow_oneMoreDoes)
{
    desk.storeMany(500);
    desk.search();
    EXPECT_TRUE(desk.frame.waitTags.empty());
    desk.store({{.code = "9"}});
    desk.search();
    EXPECT_EQ(desk.frame.waitTags.size(), 1U);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, theSummedView_showsAWaitWindow_onlyAfterAQuestion)
{
    desk.storeMany(1000);
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.waitTags.empty());
    EXPECT_EQ(desk.grid().MaxRows(), 1000);

    desk.store({{.code = "9"}});
    desk.search(); // No
    EXPECT_EQ(desk.grid().MaxRows(), 1000);
    EXPECT_TRUE(desk.frame.waitTags.empty());
    desk.box.answers = {BoxAnswer::Yes};
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 1001);
    EXPECT_EQ(desk.frame.waitTags, std::vector{desk.bySide(u"入荷一覧集計"_s, u"出荷一覧集計"_s)});
    EXPECT_EQ(desk.frame.waitValue, 1001);
}

TEST_P(ListSearch, aSearchThatIsUnderWayTakesNoSecondStart)
{
    desk.storeMany(1001);
    int boxes = 0;
    desk.box.answers = {BoxAnswer::Yes};
    desk.box.onShow = [&](const Box&) {
        ++boxes;
        desk.search();
    };
    desk.search();
    EXPECT_EQ(boxes, 1);
}

} // namespace suisui::test
