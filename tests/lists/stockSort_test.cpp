// Sorting the stock by a click on a heading.
#include <QTest>

#include "tests/lists/StockTest.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_F(StockTest, headingClick_sortsWordsRisingAndFiguresFalling)
{
    fillShop();
    goods("F6", "鉛筆", "3", "10", "0", "50", "80", "本");
    zero().setChecked(true);
    search(u"*"_s);
    const auto click = [this](int col) {
        Q_EMIT grid().HeadingClick(col);
        return codes();
    };
    EXPECT_EQ(click(StockCells::quantity), "a1 B2 F6 C3 D4 "); // 1200, 3, 3, 0, -7
    EXPECT_EQ(headings(), "コード▽ |名称▽ |在庫数▲|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽");
    EXPECT_EQ(click(StockCells::code), "a1 B2 C3 D4 F6 ");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(click(StockCells::lowest), "B2 F6 a1 C3 D4 ");
    EXPECT_EQ(click(StockCells::receiptPrice), "a1 B2 C3 D4 F6 ");
    EXPECT_EQ(click(StockCells::unit), "B2 C3 D4 a1 F6 "); // 個 before 本
    EXPECT_EQ(headings(), "コード▽ |名称▽ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▲|最低在庫▽");
    click(StockCells::name);
    EXPECT_EQ(headings(), "コード▽ |名称▲ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽");
    EXPECT_LT(codes().find("a1"), codes().find("F6")) << "equal names are sorted by their codes";
    EXPECT_EQ(text(StockCells::index, 1).size(), 1U);
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, headingsWithoutOrder_doNothing)
{
    fillShop();
    search(u"*"_s);
    Q_EMIT grid().HeadingClick(StockCells::discount);
    Q_EMIT grid().HeadingClick(StockCells::amount);
    EXPECT_EQ(headings(), searched);
    detail().setChecked(true);
    Q_EMIT grid().HeadingClick(StockCells::quantity);
    EXPECT_EQ(headings(), plain);
    normal().setChecked(true);
    search(u"a1"_s);
    search(QString());
    search(u"a1"_s);
    Q_EMIT grid().HeadingClick(StockCells::quantity); // one row
    EXPECT_EQ(headings(), searched);
}

TEST_F(StockTest, sortStraightAfterASearch_movesBarAndCursorWithTheirGoods)
{
    fillShop();
    search(u"*"_s); // bar on a1
    Q_EMIT grid().HeadingClick(StockCells::lowest);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    const QColor bar = grid().rowBackColor(2);
    EXPECT_TRUE(bar == focusColor || bar == barWithoutFocus);
    EXPECT_EQ(grid().ActiveRow(), 2);
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
}

TEST_F(StockTest, afterSortsAndMoves_oneRowIsBarred_andItIsTheCursors)
{
    fillShop();
    search(u"*"_s);
    page.resize(1100, 600);
    page.show();
    grid().setFocus();
    const auto expectOneBar = [this](const char* when) {
        for (int row = 1; row <= grid().MaxRows(); ++row)
            EXPECT_EQ(grid().rowBackColor(row) == focusColor || grid().rowBackColor(row) == barWithoutFocus,
                      row == grid().ActiveRow())
                << when << ", row " << row;
    };
    expectOneBar("after the search");
    for (const int column : {StockCells::lowest, StockCells::code, StockCells::quantity,
                             StockCells::name}) { // right after the search, then repeatedly
        Q_EMIT grid().HeadingClick(column);
        expectOneBar("after a sort");
    }
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}) {
        QTest::keyClick(&grid(), key);
        expectOneBar("after a move");
        Q_EMIT grid().HeadingClick(StockCells::lowest);
        expectOneBar("after a sort");
        Q_EMIT grid().HeadingClick(StockCells::code);
    }
}

TEST_F(StockTest, sortAfterTheCursorHasMoved_followsItsGoods)
{
    fillShop();
    search(u"*"_s);
    grid().SetActiveCell(StockCells::quantity, 2);
    Q_EMIT grid().LeaveCell(StockCells::quantity, 1, StockCells::quantity,
                            2); // the operator moves down to B2
    Q_EMIT grid().HeadingClick(StockCells::lowest);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
    const QColor bar = grid().rowBackColor(1);
    EXPECT_TRUE(bar == focusColor || bar == barWithoutFocus);
    EXPECT_EQ(grid().rowBackColor(2), QColor(Qt::white));
}

TEST_F(StockTest, viewSwitch_losesTheOrder)
{
    fillShop();
    search(u"*"_s);
    Q_EMIT grid().HeadingClick(StockCells::lowest);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    detail().setChecked(true);
    normal().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

} // namespace suisui::test
