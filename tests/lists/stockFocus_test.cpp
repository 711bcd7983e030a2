// Operating the stock tab: where the focus is after each search, how the bar and the check boxes show it, and
// when the wait window appears.
#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "tests/lists/StockDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor cyan(0, 255, 255);
const QColor grey(192, 192, 192);

class StockFocusTest : public ::testing::Test, protected StockDesk
{
protected:
    StockFocusTest()
    {
        goods("A1", "鉛筆", "12");
        goods("B2", "糊", "3", "10");
        goods("C3", "定規", "0");
        page.resize(1100, 600);
        page.show();
        page.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page));
        field().setFocus();
    }
    QLineEdit& field() { return *page.barCodeField(); }
    /// Types \a text over what the field holds, and Enter.
    void type(const QString& text)
    {
        field().setFocus();
        field().selectAll();
        QTest::keyClicks(&field(), text);
        QTest::keyClick(&field(), Qt::Key_Return);
    }
    QPushButton& searchButton() { return control<QPushButton>("cmdZKensaku"); }
};

} // namespace

TEST_F(StockFocusTest, afterASearchItIsInTheGrid_andTheBarIsCyanThere)
{
    type(u"*"_s);
    EXPECT_EQ(codes(), "A1 B2 ");
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().rowBackColor(1), cyan);
    field().setFocus();
    EXPECT_EQ(grid().rowBackColor(1), grey);
    grid().setFocus();
    EXPECT_EQ(grid().rowBackColor(1), cyan);
    QTest::keyClick(&grid(), Qt::Key_Down);
    EXPECT_EQ(grid().rowBackColor(1), QColor(Qt::white));
    EXPECT_EQ(grid().rowBackColor(2), cyan);
    type(u"a1"_s); // shown already: the bar goes there
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().rowBackColor(1), cyan);
    EXPECT_EQ(grid().rowBackColor(2), QColor(Qt::white));
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
}

TEST_F(StockFocusTest, enterOnTheEmptyField_leavesItThere)
{
    type(u"*"_s);
    field().setFocus();
    field().clear();
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(grid().MaxRows(), 0);
}

TEST_F(StockFocusTest, enterOnTheEmptyField_bringsTheFirstColumnBackIntoView)
{
    page.resize(600, 500);
    type(u"*"_s);
    QScrollBar& across = *grid().horizontalScrollBar();
    ASSERT_GT(across.maximum(), 0);
    across.setValue(across.maximum());
    field().setFocus();
    field().clear();
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(across.value(), 0);
}

TEST_F(StockFocusTest, unknownCode_bringsItBackToTheField)
{
    field().setText(u"4999"_s);
    searchButton().setFocus();
    searchButton().click();
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(StockFocusTest, codeThatTheBoxesHide_bringsItToTheLowBox)
{
    type(u"C3"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_TRUE(low().hasFocus());
    box.shown.clear();
    // The goods are found whatever the letter case of the code.
    zero().setChecked(true);
    type(u"c3"_s);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(codes(), "C3 ");
}

TEST_F(StockFocusTest, clickOnACheckBox_bringsItToTheSearchButton)
{
    for (QCheckBox* each : {&zero(), &low(), &low(), &zero()}) {
        field().setFocus();
        QTest::mouseClick(each, Qt::LeftButton, Qt::NoModifier, QPoint(8, each->height() / 2));
        EXPECT_TRUE(searchButton().hasFocus()) << each->objectName().toStdString();
    }
    EXPECT_FALSE(low().isChecked());
    EXPECT_FALSE(zero().isChecked());
}

TEST_F(StockFocusTest, fieldTakesNoFourteenthCharacter_unlessItIsSelected)
{
    QTest::keyClicks(&field(), u"12345678901234"_s);
    EXPECT_EQ(field().text(), u"1234567890123"_s);
    QTest::keyClick(&field(), Qt::Key_Backspace);
    EXPECT_EQ(field().text(), u"123456789012"_s);
    field().selectAll();
    QTest::keyClick(&field(), '*');
    EXPECT_EQ(field().text(), u"*"_s);
}

TEST_F(StockFocusTest, field_namesItsWildcards)
{
    EXPECT_TRUE(field().toolTip().contains(u"「＊」"_s) && field().toolTip().contains(u"「？」"_s));
}

TEST_F(StockFocusTest, switchOfTheView_goesToTheGrid)
{
    type(u"*"_s);
    detail().setFocus();
    detail().click();
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
    EXPECT_EQ(grid().rowBackColor(1), cyan);
    normal().click();
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(StockFocusTest, headingClick_sorts_andTheCursorGoesWithItsGoods)
{
    goods("D4", "消しゴム", "1");
    type(u"*"_s);
    ASSERT_EQ(codes(), "A1 B2 D4 ");        // 12, 3, 1
    QTest::keyClick(&grid(), Qt::Key_Down); // on B2
    QHeaderView& headings = *grid().horizontalHeader();
    const auto click = [&headings](int col) {
        const QPoint middle(headings.sectionViewportPosition(col - 1) + headings.sectionSize(col - 1) / 2,
                            headings.height() / 2);
        QTest::mouseClick(headings.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    };
    click(StockCells::lowest); // minimum stock, the largest first
    EXPECT_EQ(codes(), "B2 A1 D4 ");
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().rowBackColor(1), cyan);
    click(StockCells::discount); // nothing to sort by
    EXPECT_EQ(codes(), "B2 A1 D4 ");
    click(StockCells::quantity);
    EXPECT_EQ(codes(), "A1 B2 D4 ");
    EXPECT_EQ(grid().ActiveRow(), 2);
    EXPECT_EQ(grid().rowBackColor(2), cyan);
    EXPECT_EQ(grid().rowBackColor(1), QColor(Qt::white));
}

TEST_F(StockFocusTest, switchBackOfMoreThanAThousandGoods_waitsAndAsksNothing)
{
    manyGoods(999); // 1001 with the two that are in stock
    box.answers = {BoxAnswer::Yes};
    type(u"*"_s);
    EXPECT_EQ(grid().MaxRows(), 1001);
    frame.waitTags.clear();
    box.shown.clear();
    detail().setChecked(true); // answered with No: back at once
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_TRUE(normal().isChecked());
    EXPECT_EQ(frame.waitTags, std::vector<QString>{u"在庫検索"_s});
    EXPECT_EQ(frame.waitMaximum, 1001);
    EXPECT_EQ(frame.waitValue, 1001);
    EXPECT_EQ(grid().MaxRows(), 1001);
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(StockFocusTest, switchBackOfAThousandGoods_needsNoWaitWindow)
{
    manyGoods(998);
    type(u"*"_s);
    EXPECT_EQ(grid().MaxRows(), 1000);
    detail().setChecked(true); // asked, and answered with No
    EXPECT_TRUE(normal().isChecked());
    EXPECT_TRUE(frame.waitTags.empty());
}

} // namespace suisui::test
