// The search of both lists: the period, the order, the headings, and what a search does not change.
#include "platform/core/RunTimeError.h"
#include "tests/lists/ListSearch.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

INSTANTIATE_TEST_SUITE_P(Sides, ListSearch, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

TEST_P(ListSearch, aPeriodWithNoHits_leavesAnEmptyGrid_withPlainHeadings)
{
    desk.storeMany(3);
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 5);
    ASSERT_NE(headings(), plainHeadings());
    desk.period(u"20270101"_s, u"20271231"_s);
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(headings(), plainHeadings());
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(ListSearch, bothDaysOfThePeriodBelongToIt)
{
    desk.store({{.date = "20260331", .code = "1"},
                {.date = "20260401", .code = "2"},
                {.date = "20260430", .code = "3"},
                {.date = "20260501", .code = "4"}});
    desk.period(u"20260401"_s, u"20260430"_s);
    desk.search();
    EXPECT_EQ(codes(), "2 3 ");
}

TEST_P(ListSearch, movementsAreOrderedByDay_name_andCode)
{
    desk.store({{.date = "20260402", .code = "9", .name = "a"},
                {.date = "20260401", .code = "2", .name = "b"},
                {.date = "20260401", .code = "3", .name = "A"},
                {.date = "20260401", .code = "1", .name = "b"}});
    desk.search();
    EXPECT_EQ(codes(), "3 1 2 9 ");
}

TEST_P(ListSearch, datesOutOfOrderAreRefusedAndTheListStays)
{
    desk.storeMany(2);
    desk.search();
    const auto before = desk.rows();
    desk.period(u"20260502"_s, u"20260501"_s);
    desk.search();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"日付エラー"_s);
    EXPECT_EQ(desk.rows(), before);
    EXPECT_TRUE(desk.frame.enabled);
    desk.period(u"20260401"_s, u"20260501"_s);
    desk.search();
    EXPECT_EQ(desk.box.shown.size(), 1U) << "a refused search does not block the next one";
}

TEST_P(ListSearch, aFigureThatIsNotANumber_isARunTimeErrorAtOnce)
{
    desk.store({{.quantity = "三個"}});
    EXPECT_THROW(desk.search(), RunTimeError);
    EXPECT_TRUE(desk.grid().ReDraw());
}

TEST_P(ListSearch, aTickOfTheBoxForSums_changesNothing_untilTheNextSearch)
{
    desk.storeMany(3);
    desk.search();
    const auto before = desk.rows();
    const std::string headingsBefore = headings();
    desk.sumBox().setChecked(true);
    EXPECT_EQ(desk.rows(), before);
    EXPECT_EQ(headings(), headingsBefore);
}

TEST_P(ListSearch, theHeadings_markTheOrder_andWhatCanBeSorted)
{
    desk.store({{}});
    desk.search();
    EXPECT_EQ(
        headings(),
        desk.bySide("入荷日▲ |商品名▽ |入荷先▽ |単価|数量|値引き|合計|コード▽ |担当者▽ |返却数|単位|備考||",
                    "出荷日▲ |商品名▽ |出荷先▽ |単価|数量|値引き|合計|コード▽ |担当者▽ "
                    "|良品返品|不良返品|単位|備考||"));
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(
        headings(),
        desk.bySide(
            "－|商品名▲ |入荷先|単価|数量▽|値引き|合計▽|コード▽ |担当者|返却数▽|単位|－||",
            "－|商品名▲ |出荷先|単価|数量▽|値引き|合計▽|コード▽ |担当者|良品返品▽|不良返品▽|単位|－||"));
}

TEST_P(ListSearch, afterASearch_theCursorIsOnTheFirstCell)
{
    desk.storeMany(3);
    desk.search();
    desk.grid().SetActiveCell(desk.cells.price, 3);
    desk.search();
    EXPECT_EQ(desk.grid().ActiveRow(), 1);
    EXPECT_EQ(desk.grid().ActiveCol(), desk.cells.date);
}

TEST_P(ListSearch, aFailedSelection_emptiesTheList_withoutAWord)
{
    desk.storeMany(3);
    desk.search();
    desk.db.ShowErrors(false);
    desk.db.CloseFile();
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(headings(), plainHeadings());
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, theBuffersAreEmptyAfterEachLoad)
{
    desk.storeMany(3);
    desk.search();
    EXPECT_EQ(desk.isShipment() ? desk.db.OutList().Count() : desk.db.InpList().Count(), 0);
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(desk.isShipment() ? desk.db.SyuSumTbl().Count() : desk.db.NyuSumTbl().Count(), 0);
    EXPECT_EQ(desk.grid().MaxRows(), 3);
}

} // namespace suisui::test
