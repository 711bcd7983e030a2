// The rows of both lists: cells of a movement and of a sum, subtotals, total, colours.
#include <gtest/gtest.h>

#include "lists/ListRows.h"
#include "lists/ListSubtotals.h"
#include "tests/lists/ListDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ListRowsOf : public testing::TestWithParam<Side>
{
protected:
    ListDesk desk{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Sides, ListRowsOf, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

using Lines = std::vector<std::string>;

const QColor yellow(255, 255, 0);
const QColor green(128, 255, 128);

/// \a movement with these returned quantities; a receipt has only the first.
Movement returning(Movement movement, const std::string& first, const std::string& second)
{
    movement.returned1 = first;
    movement.returned2 = second;
    return movement;
}

} // namespace

TEST_P(ListRowsOf, aMovementShowsItsCellsAndItsAmount)
{
    desk.store({returning({.date = "20260401",
                           .code = "4901",
                           .name = "りんご",
                           .quantity = "0000012",
                           .price = "0001850",
                           .discount = "0000150",
                           .partner = "102",
                           .staff = "02",
                           .unit = "袋",
                           .remark = "備考,の欄"},
                          "0000002", "0000001")});
    desk.search();
    EXPECT_EQ(desk.row(1),
              desk.bySide("2026/04/01|りんご|西商店|1,850|12|150|18,350|4901|鈴木|2|袋|備考,の欄",
                          "2026/04/01|りんご|西商店|1,850|12|150|16,500|4901|鈴木|2|1|袋|備考,の欄"));
    EXPECT_EQ(desk.cell(desk.cells.index, 1), "1");
}

TEST_P(ListRowsOf, eachDayEndsInASubtotalAndTheListInATotal)
{
    desk.store({{.date = "20260401", .code = "1", .quantity = "3", .price = "1000", .discount = "10"},
                returning({.date = "20260401", .code = "2", .quantity = "2", .price = "500"}, "1", "0"),
                {.date = "20260402", .code = "3", .quantity = "4", .price = "20", .discount = "5"}});
    desk.search();
    EXPECT_EQ(
        desk.rows(),
        desk.bySide(Lines{"2026/04/01|りんご|東商店|1,000|3|10|2,990|1|山田|0|個|",
                          "2026/04/01|りんご|東商店|500|2|0|500|2|山田|1|個|",
                          "　　小計|　　（入荷日 計）|||5|10|3,490|||1||",
                          "2026/04/02|りんご|東商店|20|4|5|75|3|山田|0|個|",
                          "　　小計|　　（入荷日 計）|||4|5|75|||0||", "　　合計||||9|15|3,565|||1||"},
                    Lines{"2026/04/01|りんご|東商店|1,000|3|10|2,990|1|山田|0|0|個|",
                          "2026/04/01|りんご|東商店|500|2|0|500|2|山田|1|0|個|",
                          "　　小計|　　（出荷日 計）|||5|10|3,490|||1|0||",
                          "2026/04/02|りんご|東商店|20|4|5|75|3|山田|0|0|個|",
                          "　　小計|　　（出荷日 計）|||4|5|75|||0|0||", "　　合計||||9|15|3,565|||1|0||"}));
}

TEST_P(ListRowsOf, subtotalsAreYellow_theTotalGreen_andMovementsPlain)
{
    desk.store({{.date = "20260401"}, {.date = "20260402"}});
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 5);
    EXPECT_EQ(desk.grid().rowBackColor(2), yellow);
    EXPECT_FALSE(desk.grid().rowBackColor(3).isValid());
    EXPECT_EQ(desk.grid().rowBackColor(4), yellow);
    EXPECT_EQ(desk.grid().rowBackColor(5), green);
}

TEST_P(ListRowsOf, negativeAmounts_areRedAndBold_inEveryKindOfRow)
{
    desk.store({{.date = "20260401", .code = "1", .quantity = "-000003"},
                {.date = "20260402", .code = "2", .quantity = "2"},
                {.date = "20260403", .code = "3", .quantity = "1", .discount = "100"}});
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 7);
    const std::vector<std::pair<std::string, bool>> amounts{{"-300", true}, {"-300", true}, {"200", false},
                                                            {"200", false}, {"0", false},   {"0", false},
                                                            {"-100", true}};
    for (int row = 1; row <= 7; ++row) {
        const auto& [text, red] = amounts[static_cast<std::size_t>(row - 1)];
        EXPECT_EQ(desk.cell(desk.cells.amount, row), text);
        EXPECT_EQ(desk.grid().cellBold(desk.cells.amount, row), red) << row;
        EXPECT_EQ(desk.grid().cellForeColor(desk.cells.amount, row) == QColor(255, 0, 0), red) << row;
    }
}

TEST_P(ListRowsOf, amountsAddUpAsDisplayed_otherFiguresAsStored)
{
    // Three times 0.4 of a thing at 1 yen: displayed as 0 each, so the amounts add up to 0; the quantities
    // to 1.2.
    desk.store({{.code = "1", .quantity = "0.4", .price = "1"},
                {.code = "2", .quantity = "0.4", .price = "1"},
                {.code = "3", .quantity = "0.4", .price = "1"}});
    desk.search();
    EXPECT_EQ(desk.cell(desk.cells.quantity, 4), "1");
    EXPECT_EQ(desk.cell(desk.cells.amount, 4), "0");
    // And 2.5 twice: each shown as 3, together 5 in the quantity and 6 in the amount.
    desk.store({{.date = "20260402", .code = "4", .quantity = "2.5", .price = "1"},
                {.date = "20260402", .code = "5", .quantity = "2.5", .price = "1"}});
    desk.search();
    EXPECT_EQ(desk.cell(desk.cells.quantity, 7), "5");
    EXPECT_EQ(desk.cell(desk.cells.amount, 7), "6");
    EXPECT_EQ(desk.cell(desk.cells.quantity, 8), "6") << "the total of 1.2 and 5";
    EXPECT_EQ(desk.cell(desk.cells.amount, 8), "6");
}

TEST_P(ListRowsOf, detailFiguresHaveNoLimit)
{
    desk.store({{.quantity = "99999999999999", .price = "5", .discount = "0"}});
    desk.search();
    EXPECT_EQ(desk.cell(desk.cells.quantity, 1), "99,999,999,999,999");
    EXPECT_EQ(desk.cell(desk.cells.amount, 1), "499,999,999,999,995");
}

TEST_P(ListRowsOf, blankFiguresCountAsNothing)
{
    desk.store({{.quantity = "", .price = "", .discount = "", .returned1 = "", .returned2 = "", .unit = ""}});
    desk.search();
    EXPECT_EQ(desk.row(1), desk.bySide("2026/04/01|りんご|東商店|0|0|0|0|4901|山田|0||",
                                       "2026/04/01|りんご|東商店|0|0|0|0|4901|山田|0|0||"));
}

// Somebody deletes rows while the question is open: the buffer marks them, and they are left out.
TEST_P(ListRowsOf, aRowThatIsGoneLeavesNoRowAndDoesNotCount)
{
    desk.store(
        {{.date = "20260401", .code = "1", .price = "7"}, {.date = "20260402", .code = "2", .price = "5"}});
    desk.storeMany(1001);
    desk.period(u"20260401"_s, u"20260402"_s);
    desk.box.answers = {BoxAnswer::Yes};
    desk.box.onShow = [&](const Box&) {
        desk.shop.execute(std::string("DELETE FROM ") + desk.bySide("InpTB", "OutTB") + " WHERE Code = '2'");
        RowSet& rows = desk.isShipment() ? static_cast<RowSet&>(desk.db.OutList()) : desk.db.InpList();
        ASSERT_EQ(rows.get(rows.Count(), movementTable(desk.side).columns.code), "2");
        EXPECT_NE(rows.UpdateRow(rows.Count()), DbStatus::Good);
        ASSERT_EQ(rows.RowState(rows.Count()), "D");
        desk.db.Rollback();
    };
    desk.search();
    // 1001 of the first day and code 1, their subtotal; of the second day nothing; the total.
    ASSERT_EQ(desk.grid().MaxRows(), 1004);
    EXPECT_EQ(desk.cell(desk.cells.amount, 1003), "100,107");
    EXPECT_EQ(desk.cell(desk.cells.date, 1003), "　　小計");
    EXPECT_EQ(desk.cell(desk.cells.amount, 1004), "100,107");
    EXPECT_EQ(desk.frame.waitValue, 1003) << "the progress bar moves on";
}

TEST_P(ListRowsOf, aFirstRowThatIsGoneStillGivesTheFirstDay)
{
    desk.store({{.date = "20260331", .code = "1"}});
    desk.storeMany(1000);
    desk.box.answers = {BoxAnswer::Yes};
    desk.box.onShow = [&](const Box&) {
        desk.shop.execute(std::string("DELETE FROM ") + desk.bySide("InpTB", "OutTB") + " WHERE Code = '1'");
        RowSet& rows = desk.isShipment() ? static_cast<RowSet&>(desk.db.OutList()) : desk.db.InpList();
        EXPECT_NE(rows.UpdateRow(1), DbStatus::Good);
        ASSERT_EQ(rows.RowState(1), "D");
        desk.db.Rollback();
    };
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 1003);
    EXPECT_EQ(desk.row(1), desk.bySide("　　小計|　　（入荷日 計）|||0|0|0|||0||",
                                       "　　小計|　　（出荷日 計）|||0|0|0|||0|0||"));
    EXPECT_EQ(desk.cell(desk.cells.date, 2), "2026/04/01");
    EXPECT_EQ(desk.cell(desk.cells.index, 2), "2") << "its number in the row set";
}

// ---- sums by goods

TEST_P(ListRowsOf, theSummedView_hasOneRowForEachGoodsPriceAndUnit)
{
    desk.store({returning({.code = "1", .name = "い", .quantity = "3", .price = "0001000", .discount = "10"},
                          "1", "1"),
                {.date = "20260402", .code = "1", .name = "い", .quantity = "4", .price = "0001000"},
                {.code = "1", .name = "い", .quantity = "5", .price = "0000900"},
                {.code = "1", .name = "い", .quantity = "6", .price = "0001000", .unit = "袋"},
                {.code = "2", .name = "あ", .quantity = "-7", .price = "0000002", .unit = ""}});
    desk.sumBox().setChecked(true);
    desk.search();
    Lines expected = desk.bySide(Lines{"|あ|          －|2|-7|0|-14|2|       －|0||",
                                       "|い|          －|1,000|6|0|6,000|1|       －|0|袋|",
                                       "|い|          －|1,000|7|10|5,990|1|       －|1|個|",
                                       "|い|          －|900|5|0|4,500|1|       －|0|個|"},
                                 Lines{"|あ|          －|2|-7|0|-14|2|       －|0|0||",
                                       "|い|          －|1,000|6|0|6,000|1|       －|0|0|袋|",
                                       "|い|          －|1,000|7|10|4,990|1|       －|1|1|個|",
                                       "|い|          －|900|5|0|4,500|1|       －|0|0|個|"});
    Lines shown = desk.rows();
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_EQ(shown[0], expected[0]) << "by name";
    std::sort(shown.begin(), shown.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(shown, expected);
    EXPECT_TRUE(desk.grid().cellBold(desk.cells.amount, 1));
    EXPECT_EQ(desk.grid().cellForeColor(desk.cells.amount, 1), QColor(255, 0, 0));
    EXPECT_FALSE(desk.grid().cellBold(desk.cells.amount, 2));
    EXPECT_EQ(desk.cell(desk.cells.index, 3), "3");
}

TEST_P(ListRowsOf, theSummedView_namesThePartnerAndThePersonAskedFor)
{
    desk.store({{}});
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(0);
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(0);
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(desk.cell(desk.cells.partner, 1), "東商店");
    EXPECT_EQ(desk.cell(desk.cells.staff, 1), "山田");
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(1);
    EXPECT_EQ(desk.cell(desk.cells.partner, 1), "東商店")
        << "the search counts, not what the combo box shows now";
}

TEST_P(ListRowsOf, summedFiguresTooLongForTheirCells_leaveThemEmpty)
{
    desk.store(
        {returning({.code = "1", .quantity = "99999999999998", .price = "1", .discount = "99999999999999"},
                   "99999999999998", "100000000000000"),
         {.code = "2", .quantity = "99999999999999", .price = "1"},
         {.code = "3", .quantity = "-99999999999999999", .price = "1"}});
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(desk.cell(desk.cells.quantity, 1), "99,999,999,999,998");
    EXPECT_EQ(desk.cell(desk.cells.discount, 1), "");
    EXPECT_EQ(desk.cell(desk.cells.returned[0], 1), "99,999,999,999,998");
    if (desk.isShipment()) {
        EXPECT_EQ(desk.cell(desk.cells.returned[1], 1), "");
    }
    EXPECT_EQ(desk.cell(desk.cells.quantity, 2), "");
    EXPECT_EQ(desk.cell(desk.cells.amount, 2), "");
    EXPECT_FALSE(desk.grid().cellBold(desk.cells.amount, 2)) << "an empty cell is not negative";
    EXPECT_FALSE(desk.cell(desk.cells.amount, 3).empty()) << "negative figures have no limit";
    EXPECT_TRUE(desk.grid().cellBold(desk.cells.amount, 3));
}

TEST_P(ListRowsOf, theSumsAgreeWithTheMovements)
{
    std::vector<Movement> movements;
    for (int i = 0; i < 60; ++i)
        movements.push_back(returning({.code = std::to_string(1 + i % 3),
                                       .quantity = std::to_string(i - 20) + ".25",
                                       .price = "8",
                                       .discount = std::to_string(i % 7)},
                                      std::to_string(i % 4), std::to_string(i % 5)));
    desk.store(movements);
    desk.search();
    const std::string totalAmount = desk.cell(desk.cells.amount, desk.grid().MaxRows());
    desk.sumBox().setChecked(true);
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 3);
    double sum = 0;
    for (int row = 1; row <= 3; ++row)
        sum += desk.grid().qtext(7, row).remove(u',').toDouble();
    EXPECT_EQ(QString::fromStdString(totalAmount).remove(u',').toDouble(), sum);
}

// ---- the bar

TEST_P(ListRowsOf, theBar_givesSubtotalsAndTotalTheirColoursBack)
{
    desk.store({{.date = "20260401"}, {.date = "20260402"}});
    desk.search();
    desk.page->show();
    vaSpread& grid = desk.grid();
    for (const auto& [row, rest] :
         {std::pair{1, QColor(Qt::white)}, std::pair{2, yellow}, std::pair{4, yellow}, std::pair{5, green}}) {
        Q_EMIT grid.LeaveCell(desk.cells.date, row == 5 ? 1 : 5, desk.cells.date, row);
        EXPECT_NE(grid.rowBackColor(row), rest);
        Q_EMIT grid.LeaveCell(desk.cells.date, row, desk.cells.date, row == 5 ? 1 : 5);
        EXPECT_EQ(grid.rowBackColor(row), rest) << row;
    }
}

TEST_P(ListRowsOf, theBarIsGreyWhileNoControlHasTheFocus)
{
    desk.store({{.date = "20260401"}, {.date = "20260402"}});
    desk.search();
    ASSERT_EQ(QApplication::focusWidget(), nullptr);
    Q_EMIT desk.grid().LeaveCell(desk.cells.date, 1, desk.cells.date, 3);
    EXPECT_EQ(desk.grid().rowBackColor(3), QColor(192, 192, 192));
    Q_EMIT desk.grid().LeaveCell(desk.cells.date, 3, -1, 1);
    EXPECT_EQ(desk.grid().rowBackColor(3), QColor(192, 192, 192)) << "without a new cell nothing happens";
    Q_EMIT desk.grid().GotFocus();
    EXPECT_EQ(desk.grid().rowBackColor(desk.grid().ActiveRow()), QColor(0, 255, 255));
    Q_EMIT desk.grid().LostFocus();
    EXPECT_EQ(desk.grid().rowBackColor(desk.grid().ActiveRow()), QColor(192, 192, 192));
}

// ---- pure parts

TEST(Subtotals, closeAGroupWhenItsTextChanges)
{
    Subtotals subtotals("a");
    EXPECT_FALSE(subtotals.add("a", {1, 2, 3, 4, 5}));
    EXPECT_FALSE(subtotals.add("a", {1, 0, 0, 0, 0}));
    const auto closed = subtotals.add("b", {10, 0, 0, 0, 0});
    ASSERT_TRUE(closed);
    EXPECT_EQ(*closed, (ListFigures{2, 2, 3, 4, 5}));
    EXPECT_EQ(subtotals.total(), *closed);
    EXPECT_EQ(subtotals.close(), (ListFigures{10, 0, 0, 0, 0}));
    EXPECT_EQ(subtotals.total(), (ListFigures{12, 2, 3, 4, 5}));
}

TEST(Subtotals, ofAFirstGroupThatNoRowHasAreNothing)
{
    Subtotals subtotals("gone");
    EXPECT_EQ(subtotals.add("a", {1, 1, 1, 1, 1}), ListFigures{});
}

TEST(DisplayedFigures, readAsTheCellShowsThem)
{
    for (const auto& [number, shown] :
         {std::pair{0.0, 0.0}, std::pair{0.4, 0.0}, std::pair{0.5, 1.0}, std::pair{-0.4, 0.0},
          std::pair{-0.5, -1.0}, std::pair{2.5, 3.0}, std::pair{1234567.49, 1234567.0},
          std::pair{-12.0, -12.0}, std::pair{999999999999999.0, 999999999999999.0},
          std::pair{12345678901234567.0, 12345678901234600.0}})
        EXPECT_EQ(displayed(number), shown) << number;
}

} // namespace suisui::test
