// Many rows put in or taken out of the grid in one go, against the same done one by one.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "platform/widgets/vaSpread.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

struct BulkGrid : testing::Test
{
    BulkGrid()
    {
        static constexpr std::array columns{SpreadColumn{.heading = "a"}, SpreadColumn{.heading = "b"}};
        for (vaSpread* grid : {&bulk, &single})
            grid->setColumns(columns);
    }

    void fill(int rows)
    {
        for (vaSpread* grid : {&bulk, &single}) {
            grid->setMaxRows(0);
            grid->setMaxRows(rows);
            for (int row = 1; row <= rows; ++row) {
                grid->SetText(1, row, std::string_view(std::to_string(row)));
                grid->setRowBackColor(row, QColor(row % 256, 0, 0));
                grid->setCellBold(2, row, row % 3 == 0);
            }
        }
    }

    void expectSame() const
    {
        ASSERT_EQ(bulk.MaxRows(), single.MaxRows());
        EXPECT_EQ(bulk.model()->rowCount(), bulk.MaxRows()) << "the view knows of all rows";
        for (int row = 1; row <= bulk.MaxRows(); ++row) {
            EXPECT_EQ(bulk.text(1, row), single.text(1, row)) << row;
            EXPECT_EQ(bulk.rowBackColor(row), single.rowBackColor(row)) << row;
            EXPECT_EQ(bulk.cellBold(2, row), single.cellBold(2, row)) << row;
        }
    }

    vaSpread bulk;
    vaSpread single;
};

} // namespace

TEST_F(BulkGrid, rowsGoInInFrontOfTheRowsNamed)
{
    fill(3);
    bulk.InsertRowsAt(std::array{1, 3, 4, 4});
    const std::array<std::string_view, 7> expected{"", "1", "2", "", "3", "", ""};
    ASSERT_EQ(bulk.MaxRows(), 7);
    for (int row = 1; row <= 7; ++row)
        EXPECT_EQ(bulk.text(1, row), expected[static_cast<std::size_t>(row - 1)]);
}

TEST_F(BulkGrid, theCursorStaysWithItsRow)
{
    fill(6);
    bulk.SetActiveCell(2, 3);
    bulk.InsertRowsAt(std::array{1, 3, 4});
    EXPECT_EQ(bulk.text(1, bulk.ActiveRow()), "3");
    EXPECT_EQ(bulk.currentIndex().row() + 1, bulk.ActiveRow());
    bulk.DeleteRowsWhere([this](int row) { return bulk.text(1, row).empty(); });
    EXPECT_EQ(bulk.ActiveRow(), 3);
    EXPECT_EQ(bulk.currentIndex().row(), 2);
    bulk.DeleteRowsWhere([](int row) { return row == 3; });
    EXPECT_EQ(bulk.ActiveRow(), 0) << "gone with its row";
    EXPECT_FALSE(bulk.currentIndex().isValid());
}

TEST_F(BulkGrid, anEmptyGridTakesRowsAndLosesNone)
{
    bulk.InsertRowsAt(std::array{1, 1});
    EXPECT_EQ(bulk.MaxRows(), 2);
    bulk.setMaxRows(0);
    bulk.DeleteRowsWhere([](int) { return true; });
    EXPECT_EQ(bulk.MaxRows(), 0);
}

TEST_F(BulkGrid, allAtOnceIsTheSameAsOneByOne)
{
    std::mt19937 random(printedSeed());
    for (int turn = 0; turn < 50 && !HasFailure(); ++turn) {
        fill(static_cast<int>(random() % 40));
        std::vector<int> places;
        for (int row = 1; row <= bulk.MaxRows() + 1; ++row)
            places.insert(places.end(), random() % 3 == 0 ? random() % 3 : 0, row);
        bulk.InsertRowsAt(places);
        for (std::size_t i = 0; i < places.size(); ++i)
            single.InsertRows(places[i] + static_cast<int>(i));
        expectSame();

        std::vector<bool> leaves(static_cast<std::size_t>(bulk.MaxRows()));
        for (std::size_t i = 0; i < leaves.size(); ++i)
            leaves[i] = random() % 2 == 0;
        bulk.DeleteRowsWhere([&leaves](int row) { return leaves[static_cast<std::size_t>(row - 1)]; });
        for (int row = single.MaxRows(); row >= 1; --row)
            if (leaves[static_cast<std::size_t>(row - 1)])
                single.DeleteRows(row);
        expectSame();
    }
}

} // namespace suisui::test
