// Switching between the normal and the detail view of the stock.
#include "tests/lists/StockTest.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/ManyRows.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_F(StockTest, viewSwitches_rebuildFromTheRowsThatAreHeld)
{
    fillShop();
    search(u"*"_s);
    db.Execute("UPDATE ZaikoTB SET ZaikoSuu='9999' WHERE Code='a1'");
    db.Commit();
    detail().setChecked(true);
    EXPECT_EQ(headings(), plain);
    EXPECT_EQ(grid().MaxRows(), 3 * 7);
    EXPECT_EQ(text(StockCells::quantity, 1), "1,200");
    EXPECT_EQ(grid().rowBackColor(8), yellow);
    EXPECT_NE(grid().rowBackColor(9), yellow);
    EXPECT_TRUE(frame.enabled);
    normal().setChecked(true);
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().MaxRows(), 3);
}

TEST_F(StockTest, detailOfManyGoods_asks_andNoGoesBackToTheNormalView)
{
    manyGoods(501);
    search(u"*"_s);
    EXPECT_TRUE(box.shown.empty());
    detail().setChecked(true);
    expectOneBox(box, manyRowsQuestion(501));
    EXPECT_TRUE(normal().isChecked());
    EXPECT_EQ(grid().MaxRows(), 501);
    EXPECT_EQ(headings(), searched);
}

TEST_F(StockTest, insertedGoods_turnYellowOnlyWhenTheBarLeaves)
{
    fillShop();
    detail().setChecked(true);
    search(u"B2"_s);
    EXPECT_EQ(grid().MaxRows(), 7);
    EXPECT_NE(grid().rowBackColor(1), yellow);
    search(u"a1"_s);
    EXPECT_EQ(codes(), "a1 B2 ");
    EXPECT_NE(grid().rowBackColor(1), yellow);
    EXPECT_EQ(grid().rowBackColor(8), yellow) << "the bar has left it";
    EXPECT_EQ(text(StockCells::name, 2), "　① 入荷");
}

TEST_F(StockTest, nothingMoves_whenABoxIsTicked)
{
    page.resize(1000, 600);
    page.show();
    const auto places = [this] {
        QCoreApplication::processEvents();
        std::vector<QRect> all;
        for (const QWidget* control : page.findChildren<QWidget*>())
            if (control->isVisible())
                all.emplace_back(control->mapTo(&page, QPoint()), control->size());
        return all;
    };
    const std::vector<QRect> before = places();
    for (QCheckBox* each : {&low(), &zero()}) {
        each->setFocus();
        each->setChecked(true);
        StockPage::check_LostFocus(*each);
    }
    ASSERT_GT(low().font().pixelSize(), grid().font().pixelSize()) << "the larger font is there";
    EXPECT_EQ(places(), before);
    EXPECT_GE(low().width(), low().minimumSizeHint().width());
    for (QCheckBox* each : {&low(), &zero()}) {
        each->setChecked(false);
        StockPage::check_LostFocus(*each);
    }
    EXPECT_EQ(places(), before);
}

} // namespace suisui::test
