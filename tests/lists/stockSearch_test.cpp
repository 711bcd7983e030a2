// Searching the stock by patterns: check boxes, number of rows, and what the operator sees.
#include <QPushButton>

#include "tests/lists/StockTest.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/ManyRows.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor red(255, 0, 0);
const QColor purple(192, 0, 192);

} // namespace

TEST_F(StockTest, starAlone_showsAllStock_byCode_withMasksAndHeadings)
{
    fillShop();
    zero().setChecked(true);
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 C3 D4 ");
    EXPECT_EQ(row(1), "a1|鉛筆|1,200|1,500|2,480|||本|5");
    EXPECT_EQ(text(StockCells::index, 1), "1");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_TRUE(frame.enabled);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_TRUE(grid().ReDraw());
}

TEST_F(StockTest, stockOfZero_showsOnlyWhenWanted)
{
    fillShop();
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

TEST_F(StockTest, figureIsColoured_whereThereIsTooLittle)
{
    fillShop();
    zero().setChecked(true);
    search(u"*"_s);
    const auto look = [this](int row) {
        return std::pair(grid().cellForeColor(StockCells::quantity, row), grid().cellBold(3, row));
    };
    EXPECT_EQ(look(1), std::pair(QColor(), false));
    EXPECT_EQ(look(2), std::pair(purple, true)); // 3 of 10
    EXPECT_EQ(look(3), std::pair(red, true));    // 0 of 2
    EXPECT_EQ(look(4), std::pair(red, true));    // -7 of 0
}

TEST_F(StockTest, wildcards_matchAsTheySay)
{
    fillShop();
    goods("A10", "鉛筆 2B", "1");
    search(u"a*"_s);
    EXPECT_EQ(codes(), "a1 A10 ");
    search(u"?1"_s);
    EXPECT_EQ(codes(), "a1 ");
    search(u"????????"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
}

TEST_F(StockTest, patternWithoutResult_emptiesTheGrid_andLeavesTheHeadings)
{
    fillShop();
    search(u"*"_s);
    search(u"X*"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_EQ(headings(), searched);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, enterOnTheEmptyField_emptiesGridAndRowSet_underPlainHeadings)
{
    fillShop();
    search(u"*"_s);
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 3);
    search(QString());
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    EXPECT_EQ(headings(), plain);
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, firstSight_isTheEmptyGrid_andKeepsTheField)
{
    fillShop();
    page.barCodeField()->setText(u"a1"_s);
    frame.loaded[2] = false;
    page.firstShow();
    EXPECT_EQ(page.barCodeField()->text(), u"a1"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_TRUE(frame.TabLoaded(Tab::Stock)) << "or showing the tab again would clear the result";
}

TEST_F(StockTest, lowBox_ticksTheZeroBox_butNotTheOtherWayRound)
{
    fillShop();
    low().setChecked(true);
    EXPECT_TRUE(zero().isChecked());
    search(u"*"_s);
    EXPECT_EQ(codes(), "B2 C3 D4 ");
    zero().setChecked(false);
    EXPECT_TRUE(low().isChecked());
    search(u"*"_s);
    EXPECT_EQ(codes(), "B2 D4 ");
    low().setChecked(false);
    zero().setChecked(true);
    EXPECT_FALSE(low().isChecked());
}

TEST_F(StockTest, tickedBox_staysMarkedWhenTheFocusLeaves)
{
    const auto look = [](const QCheckBox& which) {
        return std::tuple(which.palette().color(QPalette::Window),
                          which.palette().color(QPalette::WindowText), which.font().pixelSize());
    };
    low().setChecked(true); // ticks and marks the zero box
    EXPECT_EQ(look(zero()), std::tuple(yellow, red, 16));
    StockPage::check_LostFocus(low());
    EXPECT_EQ(look(low()), std::tuple(yellow, red, 16));
    low().setChecked(false);
    StockPage::check_LostFocus(low());
    EXPECT_EQ(std::get<2>(look(low())), 14);
    EXPECT_EQ(std::get<1>(look(low())), page.palette().color(QPalette::WindowText));
}

TEST_F(StockTest, boxesChangeNothing_untilTheNextSearch)
{
    fillShop();
    search(u"*"_s);
    low().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    detail().setChecked(true); // a switch of the view keeps the rows that were selected
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

TEST_F(StockTest, searchButton_isEnterInTheField)
{
    fillShop();
    page.barCodeField()->setText(u"*"_s);
    control<QPushButton>("cmdZKensaku").click();
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

TEST_F(StockTest, aThousandRowsLoadUnasked_andOneMoreAsks)
{
    manyGoods(1001);
    search(u"G0*"_s);
    expectOneBox(box, manyRowsQuestion(1001));
    EXPECT_EQ(grid().MaxRows(), 0) << "No keeps what the grid showed";
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    EXPECT_TRUE(frame.enabled);
    box.answers = {BoxAnswer::Yes};
    search(u"G0*"_s);
    EXPECT_EQ(grid().MaxRows(), 1001);
    EXPECT_EQ(frame.waitTags, std::vector<QString>{u"在庫検索"_s});
    EXPECT_EQ(frame.waitMaximum, 1001);
    EXPECT_EQ(frame.waitValue, 1001);
    shop.add(zaikoTable, {"x", "1", "0", "s", "s"});
    db.Execute("DELETE FROM ZaikoTB WHERE Code='G01001'");
    db.Commit();
    box.shown.clear();
    frame.waitTags.clear();
    search(u"G*"_s);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_EQ(grid().MaxRows(), 1000);
}

TEST_F(StockTest, detailView_asksBeyondFiveHundred_andWaitsBeyondThirty)
{
    manyGoods(501);
    detail().setChecked(true);
    search(u"*"_s);
    expectOneBox(box, manyRowsQuestion(501));
    box.shown.clear();
    search(u"G00??0"_s); // 50
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(frame.waitTags.size(), 1U);
    frame.waitTags.clear();
    db.Execute("DELETE FROM ZaikoTB WHERE CDbl(ZaikoSuu) > 500");
    db.Commit();
    search(u"*"_s); // exactly 500
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(grid().MaxRows(), 500 * 7);
    db.Execute("DELETE FROM ZaikoTB WHERE CDbl(ZaikoSuu) > 30");
    db.Commit();
    frame.waitTags.clear();
    search(u"*"_s); // exactly 30
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_EQ(grid().MaxRows(), 30 * 7);
}

TEST_F(StockTest, fieldTakesThirteenCharacters_thenBackspaceAndEnterPass)
{
    fillShop();
    page.barCodeField()->setText(u"1234567890123"_s);
    const auto after = [this](int key) {
        page.barCode_KeyPress(key);
        return key;
    };
    EXPECT_EQ(after('4'), 0);
    EXPECT_EQ(after(8), 8);
    page.barCodeField()->selectAll();
    EXPECT_EQ(after('4'), '4') << "a selection can be typed over";
    page.barCodeField()->setText(u"1"_s);
    EXPECT_EQ(after('*'), '*');
    EXPECT_EQ(after('?'), '?');
    EXPECT_EQ(after('\''), 0);
}

TEST_F(StockTest, whileASearchRuns_otherKeysAreIgnored)
{
    manyGoods(1001);
    box.onShow = [this](const Box&) {
        int key = 13;
        page.barCode_KeyPress(key);
        EXPECT_EQ(key, 0);
        box.answers = {BoxAnswer::Yes};
    };
    search(u"*"_s);
    EXPECT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(grid().MaxRows(), 1001);
}

} // namespace suisui::test
