// Sorting both lists by a click on a heading.
#include <set>

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTest>

#include "tests/lists/ListDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

const QColor yellow(255, 255, 0);
const QColor green(128, 255, 128);
const QColor grey(192, 192, 192);

class ListSorting : public testing::TestWithParam<Side>
{
protected:
    ListDesk desk{GetParam()};

    /// The cells \a of each row, joined.
    [[nodiscard]] Lines columns(std::initializer_list<int ListCells::*> of) const
    {
        Lines lines;
        for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
            std::string line;
            for (int ListCells::*const cell : of)
                line += (line.empty() ? "" : "|") + desk.cell(desk.cells.*cell, row);
            lines.push_back(line);
        }
        return lines;
    }
    [[nodiscard]] Lines headings() const
    {
        Lines all;
        for (int col = 1; col <= desk.grid().MaxCols(); ++col)
            all.push_back(desk.cell(col, 0));
        return all;
    }
    void storeShelf()
    {
        desk.store({{.date = "20260402", .code = "2", .name = "みかん", .price = "10", .partner = "102"},
                    {.date = "20260401", .code = "1", .name = "りんご", .price = "20", .staff = "02"},
                    {.date = "20260401", .code = "2", .name = "みかん", .price = "30"},
                    {.date = "20260403", .code = "1", .name = "りんご", .price = "40", .partner = "102"}});
    }
    /// The row that has the bar; exactly one must have it.
    [[nodiscard]] int barRow() const
    {
        int found = 0;
        for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
            if (desk.grid().rowBackColor(row) != grey)
                continue;
            EXPECT_EQ(found, 0) << "two bars";
            found = row;
        }
        return found;
    }
};

INSTANTIATE_TEST_SUITE_P(Sides, ListSorting, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

} // namespace

TEST_P(ListSorting, byName_groupsTheGoods_andLabelsThemSo)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.name);
    EXPECT_EQ(columns({&ListCells::date, &ListCells::name, &ListCells::amount, &ListCells::code}),
              (Lines{"2026/04/01|みかん|30|2", "2026/04/02|みかん|10|2", "　　小計|　　（商品 計）|40|",
                     "2026/04/01|りんご|20|1", "2026/04/03|りんご|40|1", "　　小計|　　（商品 計）|60|",
                     "　　合計||100|"}));
}

TEST_P(ListSorting, byCode_groupsTheGoods_andLabelsThemSo)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(columns({&ListCells::date, &ListCells::name, &ListCells::amount, &ListCells::code}),
              (Lines{"2026/04/01|りんご|20|1", "2026/04/03|りんご|40|1", "　　小計|　　（商品 計）|60|",
                     "2026/04/01|みかん|30|2", "2026/04/02|みかん|10|2", "　　小計|　　（商品 計）|40|",
                     "　　合計||100|"}));
}

TEST_P(ListSorting, byPartner_groupsThePartners_andNamesTheirHeading)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.partner);
    const std::string label = desk.bySide("　　（入荷先 計）", "　　（出荷先 計）");
    EXPECT_EQ(columns({&ListCells::date, &ListCells::name, &ListCells::partner, &ListCells::amount}),
              (Lines{"2026/04/01|みかん|東商店|30", "2026/04/01|りんご|東商店|20",
                     "　　小計|" + label + "||50", "2026/04/02|みかん|西商店|10",
                     "2026/04/03|りんご|西商店|40", "　　小計|" + label + "||50", "　　合計|||100"}));
}

TEST_P(ListSorting, byPerson_groupsThePersons_andNamesTheirHeading)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.staff);
    EXPECT_EQ(columns({&ListCells::date, &ListCells::name, &ListCells::staff, &ListCells::amount}),
              (Lines{"2026/04/01|みかん|山田|30", "2026/04/02|みかん|山田|10", "2026/04/03|りんご|山田|40",
                     "　　小計|　　（担当者 計）||80", "2026/04/01|りんご|鈴木|20",
                     "　　小計|　　（担当者 計）||20", "　　合計|||100"}));
}

TEST_P(ListSorting, byDay_isAsAfterTheSearch)
{
    storeShelf();
    desk.search();
    const Lines searched = desk.rows();
    const Lines searchedHeadings = headings();
    desk.clickHeading(desk.cells.code);
    ASSERT_NE(desk.rows(), searched);
    desk.clickHeading(desk.cells.date);
    EXPECT_EQ(desk.rows(), searched);
    EXPECT_EQ(headings(), searchedHeadings);
}

TEST_P(ListSorting, theHeadingsMarkTheClickedColumn)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.staff);
    EXPECT_EQ(headings(),
              desk.bySide(Lines{"入荷日▽ ", "商品名▽ ", "入荷先▽ ", "単価", "数量", "値引き", "合計",
                                "コード▽ ", "担当者▲ ", "返却数", "単位", "備考", ""},
                          Lines{"出荷日▽ ", "商品名▽ ", "出荷先▽ ", "単価", "数量", "値引き", "合計",
                                "コード▽ ", "担当者▲ ", "良品返品", "不良返品", "単位", "備考", ""}));
}

TEST_P(ListSorting, onlyFiveColumnsSortTheMovements)
{
    storeShelf();
    desk.search();
    const Lines before = desk.rows();
    const Lines headingsBefore = headings();
    const ListCells& cells = desk.cells;
    const std::set<int> sorting{cells.name, cells.code, cells.partner, cells.staff, cells.date};
    for (int col = 1; col <= desk.grid().MaxCols(); ++col) {
        if (sorting.contains(col))
            continue;
        desk.clickHeading(col);
        EXPECT_EQ(desk.rows(), before) << col;
        EXPECT_EQ(headings(), headingsBefore) << col;
        EXPECT_TRUE(desk.frame.enabled);
    }
}

TEST_P(ListSorting, rowsGetTheirColoursBack)
{
    storeShelf();
    desk.search();
    desk.clickHeading(desk.cells.name);
    const std::vector<QColor> rest{
        QColor(Qt::white), QColor(Qt::white), yellow, QColor(Qt::white), QColor(Qt::white), yellow, green};
    for (int row = 1; row <= 7; ++row) {
        if (row == barRow())
            continue;
        EXPECT_EQ(desk.grid().rowBackColor(row), rest[static_cast<std::size_t>(row - 1)]) << row;
    }
}

TEST_P(ListSorting, negativeAmountsStayRedAndOnlyThey)
{
    desk.store({{.date = "20260401", .code = "1", .quantity = "-5"},
                {.date = "20260402", .code = "2", .quantity = "5"},
                {.date = "20260403", .code = "1", .quantity = "1"}});
    desk.search();
    for (const int col :
         {desk.cells.code, desk.cells.name, desk.cells.date, desk.cells.partner, desk.cells.code}) {
        desk.clickHeading(col);
        int negatives = 0;
        for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
            const bool negative = desk.cell(desk.cells.amount, row).starts_with('-');
            EXPECT_EQ(desk.grid().cellBold(desk.cells.amount, row), negative) << col << " " << row;
            EXPECT_EQ(desk.grid().cellForeColor(desk.cells.amount, row) == QColor(255, 0, 0), negative)
                << col << " " << row;
            negatives += negative ? 1 : 0;
        }
        EXPECT_GE(negatives, 1) << col; // the movement, and its sum where it is the only one
    }
}

TEST_P(ListSorting, afterwards_everySumComesFromDisplayedFigures)
{
    desk.store({{.date = "20260401", .code = "1", .quantity = "2.5", .price = "1", .discount = "0.5"},
                {.date = "20260401", .code = "2", .quantity = "2.5", .price = "1", .discount = "0.5"}});
    desk.search();
    EXPECT_EQ(columns({&ListCells::quantity, &ListCells::discount, &ListCells::amount}),
              (Lines{"3|1|2", "3|1|2", "5|1|4", "5|1|4"}));
    desk.clickHeading(desk.cells.date);
    EXPECT_EQ(columns({&ListCells::quantity, &ListCells::discount, &ListCells::amount}),
              (Lines{"3|1|2", "3|1|2", "6|2|4", "6|2|4"}));
}

TEST_P(ListSorting, theBarStaysWithItsMovementAndItsColumn)
{
    storeShelf();
    desk.search(); // the fourth movement is row 6
    desk.goTo(desk.cells.quantity, 6);
    ASSERT_EQ(desk.cell(desk.cells.amount, 6), "40");
    desk.clickHeading(desk.cells.name);
    EXPECT_EQ(desk.grid().ActiveRow(), 5);
    EXPECT_EQ(desk.cell(desk.cells.amount, 5), "40");
    EXPECT_EQ(desk.grid().ActiveCol(), desk.cells.quantity);
    EXPECT_EQ(barRow(), 5);
    desk.clickHeading(desk.cells.partner);
    EXPECT_EQ(desk.cell(desk.cells.amount, desk.grid().ActiveRow()), "40");
    EXPECT_EQ(barRow(), desk.grid().ActiveRow());
}

TEST_P(ListSorting, aBarOnASubtotal_goesToTheFirstRowWithoutACode)
{
    storeShelf();
    desk.search();
    desk.goTo(desk.cells.name, 7); // the last subtotal
    ASSERT_EQ(desk.cell(desk.cells.date, 7), "　　小計");
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(desk.grid().ActiveRow(), 3);
    EXPECT_EQ(desk.cell(desk.cells.date, 3), "　　小計");
    EXPECT_EQ(barRow(), 3);
}

TEST_P(ListSorting, aListWithOneMovementKeepsItsRows)
{
    desk.store({{}});
    desk.search();
    const Lines before = desk.rows();
    desk.clickHeading(desk.cells.date);
    EXPECT_EQ(desk.rows(), before);
}

TEST_P(ListSorting, aClickOnAGridWithOneRowOrNoneDoesNothing)
{
    desk.clickHeading(desk.cells.date);
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    desk.store({{}});
    desk.sumBox().setChecked(true);
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 1);
    const Lines before = headings();
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(headings(), before);
}

TEST_P(ListSorting, whatIsShownDecidesTheView_notTheBoxForSums)
{
    storeShelf();
    desk.search();
    desk.sumBox().setChecked(true);
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(desk.grid().MaxRows(), 7) << "still movements and their subtotals";
    desk.search();
    desk.sumBox().setChecked(false);
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(desk.grid().MaxRows(), 4) << "still sums";
    EXPECT_EQ(desk.cell(desk.cells.date, 0), "－");
}

TEST_P(ListSorting, aClickWithTheMouseOnTheHeadingSorts)
{
    storeShelf();
    desk.search();
    desk.page->resize(1100, 600);
    desk.page->show();
    QHeaderView& header = *desk.grid().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      {header.sectionViewportPosition(1) + 20, header.height() / 2});
    EXPECT_EQ(desk.cell(desk.cells.name, 0), "商品名▲ ");
    EXPECT_EQ(desk.cell(desk.cells.name, 1), "みかん");
}

// ---- sums by goods

TEST_P(ListSorting, sums_sortByFiguresDown_andByTextsUp)
{
    desk.store({{.code = "1", .name = "う", .quantity = "9", .price = "1"},
                {.code = "2", .name = "い", .quantity = "10", .price = "1"},
                {.code = "3", .name = "あ", .quantity = "-2", .price = "1"},
                {.code = "4", .name = "え", .quantity = "1000", .price = "1"}});
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"3", "2", "1", "4"}));
    desk.clickHeading(desk.cells.quantity);
    EXPECT_EQ(columns({&ListCells::code, &ListCells::quantity}), (Lines{"4|1,000", "2|10", "1|9", "3|-2"}));
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"1", "2", "3", "4"}));
    desk.clickHeading(desk.cells.amount);
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"4", "2", "1", "3"}));
    desk.clickHeading(desk.cells.name);
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"3", "2", "1", "4"}));
}

TEST_P(ListSorting, equalFiguresOfSums_areOrderedByName_thenCode)
{
    desk.store({{.code = "3", .name = "い"}, {.code = "2", .name = "い"}, {.code = "9", .name = "あ"}});
    desk.sumBox().setChecked(true);
    desk.search();
    desk.clickHeading(desk.cells.amount);
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"9", "2", "3"}));
}

TEST_P(ListSorting, sumsSortByTheirReturnedGoods)
{
    Movement one{.code = "1"};
    one.returned1 = "1";
    one.returned2 = "9";
    Movement two{.code = "2"};
    two.returned1 = "5";
    two.returned2 = "3";
    desk.store({one, two});
    desk.sumBox().setChecked(true);
    desk.search();
    desk.clickHeading(desk.cells.returned[0]);
    EXPECT_EQ(columns({&ListCells::code}), (Lines{"2", "1"}));
    // A receipt has no second return, and its unit does not sort.
    desk.clickHeading(desk.bySide(desk.cells.unit, desk.cells.returned[1]));
    EXPECT_EQ(columns({&ListCells::code}), desk.bySide(Lines{"2", "1"}, Lines{"1", "2"}));
}

TEST_P(ListSorting, theHeadingsOfSumsMarkTheClickedColumn)
{
    desk.store({{.code = "1"}, {.code = "2"}});
    desk.sumBox().setChecked(true);
    desk.search();
    desk.clickHeading(desk.cells.quantity);
    EXPECT_EQ(headings(),
              desk.bySide(Lines{"－", "商品名▽ ", "入荷先", "単価", "数量▲", "値引き", "合計▽", "コード▽",
                                "担当者", "返却数▽", "単位", "－", ""},
                          Lines{"－", "商品名▽ ", "出荷先", "単価", "数量▲", "値引き", "合計▽", "コード▽",
                                "担当者", "良品返品▽", "不良返品▽", "単位", "－", ""}));
    desk.clickHeading(desk.cells.name);
    EXPECT_EQ(desk.cell(desk.cells.name, 0), "商品名▲ ");
    EXPECT_EQ(desk.cell(desk.cells.code, 0), "コード▽");
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(desk.cell(desk.cells.code, 0), "コード▲");
}

TEST_P(ListSorting, onlySomeColumnsSortTheSums)
{
    desk.store({{.code = "2", .name = "あ"}, {.code = "1", .name = "い"}});
    desk.sumBox().setChecked(true);
    desk.search();
    const Lines before = desk.rows();
    const Lines headingsBefore = headings();
    const ListCells& cells = desk.cells;
    for (const int col :
         {cells.date, cells.partner, cells.price, cells.discount, cells.staff, cells.unit, cells.remark}) {
        desk.clickHeading(col);
        EXPECT_EQ(desk.rows(), before) << col;
        EXPECT_EQ(headings(), headingsBefore) << col;
    }
}

TEST_P(ListSorting, theBarStaysWithItsGoodsInTheSums)
{
    desk.store({{.code = "1", .name = "い"}, {.code = "2", .name = "あ"}, {.code = "3", .name = "う"}});
    desk.sumBox().setChecked(true);
    desk.search();
    desk.goTo(desk.cells.name, 3);
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(desk.cell(desk.cells.code, desk.grid().ActiveRow()), "3");
    EXPECT_EQ(barRow(), 3);
    EXPECT_EQ(desk.grid().ActiveCol(), desk.cells.name);
}

TEST_P(ListSorting, ofSumsWithOneCode_theFirstGetsTheBar_andOnlyIt)
{
    desk.store({{.code = "1", .price = "0000010"}, {.code = "1", .price = "0000020"}, {.code = "2"}});
    desk.sumBox().setChecked(true);
    desk.search();
    desk.goTo(desk.cells.name, 2);
    ASSERT_EQ(desk.cell(desk.cells.code, 2), "1");
    desk.clickHeading(desk.cells.code);
    EXPECT_EQ(barRow(), 1);
    EXPECT_EQ(desk.grid().ActiveRow(), 1);
}

} // namespace suisui::test
