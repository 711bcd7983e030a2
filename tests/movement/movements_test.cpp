// Movements of both sides in random order at the entry tabs. After each one the grid, its hidden figures, the
// row buffer and the table say the same, and the books hold. What stock must be is compared with a model of
// its own without a window, in tests/booking/bookingModel_test.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <random>

#include "store/Numbers.h"
#include "tests/support/BooksHold.h"
#include "tests/support/EntryDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class MovementsTest : public ::testing::Test
{
protected:
    void addGoods(const std::string& code, double received, double shipped,
                  const std::vector<std::pair<std::string, double>>& parts = {})
    {
        desk.goods(code, "品 " + code, CStr(received), "100", CStr(shipped), "150");
        for (const auto& [part, perUnit] : parts)
            desk.component(code, part, CStr(perUnit));
        codes.push_back(code);
    }

    void open()
    {
        for (const Side side : {Side::Receipt, Side::Shipment})
            desk.open(side);
        ASSERT_EQ(watcher.emplace(desk.shop.databaseFolder()).Open("trnvik.mdb"), DbStatus::Good);
        desk.frame.guardActive = true; // the question of an update is another test's business
    }

    std::size_t below(std::size_t n) { return static_cast<std::size_t>(random() % n); }
    [[nodiscard]] MovementPage& page(Side side) { return *desk.pages[indexOf(side)]; }

    void correct(Side side)
    {
        MovementPage& entry = page(side);
        const MovementCells& cells = movementSide(side).cells;
        const int row = static_cast<int>(below(static_cast<std::size_t>(entry.grid()->MaxRows()))) + 1;
        EntryDesk::edit(entry, cells.quantity, row, std::to_string(below(50)));
        EntryDesk::edit(entry, cells.returned[0], row, std::to_string(below(10)));
        entry.cmdKousin_Click();
        ASSERT_FALSE(desk.frame.dirty(side));
    }

    void erase(Side side)
    {
        MovementPage& entry = page(side);
        const int rows = entry.grid()->MaxRows();
        const int row = static_cast<int>(below(static_cast<std::size_t>(rows))) + 1;
        entry.grid()->SetActiveCell(movementSide(side).cells.quantity, row);
        desk.box.answers = {BoxAnswer::Yes};
        desk.box.onShow = [this](const Box& box) { // warnings must not use up an answer of the script
            if (box.buttons == BoxButtons::Ok && !desk.box.answers.empty()
                && desk.box.answers.front() != BoxAnswer::Ok)
                desk.box.answers.push_front(BoxAnswer::Ok);
        };
        entry.cmdDelete_Click();
        desk.box.onShow = nullptr;
        desk.box.answers.clear();
        ASSERT_EQ(entry.grid()->MaxRows(), rows - 1);
    }

    /// Makes one random movement; returns its name.
    std::string step()
    {
        const Side side = below(2) == 0 ? Side::Receipt : Side::Shipment;
        desk.frame.tab = side == Side::Receipt ? Tab::Receipt : Tab::Shipment;
        const int rows = page(side).grid()->MaxRows();
        const std::size_t kind = rows == 0 ? 0 : below(rows > 30 ? 6 : 4);
        const std::string name = side == Side::Receipt ? "receipt" : "shipment";
        if (kind < 2) {
            EntryDesk::book(page(side), QString::fromStdString(codes[below(codes.size())]));
            return name;
        }
        if (kind < 4)
            return correct(side), name + " update";
        return erase(side), name + " delete";
    }

    /// Row \a row of the grid of \a side, the buffer's row behind it and the row of the table agree.
    void compareRow(Side side, int row, const RowSet& table)
    {
        const MovementCells& cells = movementSide(side).cells;
        const MovementColumns& columns = movementTable(side).columns;
        const RowSet& buffer = movementTable(side).rows(desk.db);
        vaSpread& grid = *page(side).grid();
        const auto figure = [&](int cell) { return numberOf(grid.text(cell, row)); };
        const int index = std::stoi(std::string(grid.text(cells.index, row)));
        ASSERT_EQ(buffer.RowState(index), "");
        for (int column = 0; column < movementTable(side).table.columnCount(); ++column)
            ASSERT_EQ(buffer.get(index, column), table.get(index, column)) << "column " << column;
        ASSERT_EQ(grid.text(cells.code, row), buffer.get(index, columns.code));
        ASSERT_EQ(grid.text(cells.name, row), buffer.get(index, columns.name));
        // A movement is stored in whole numbers, halves away from zero; the grid keeps what was posted.
        ASSERT_EQ(std::round(figure(cells.quantity)), numberOf(buffer.get(index, columns.quantity)));
        ASSERT_EQ(figure(cells.returned[0]), numberOf(buffer.get(index, columns.returned[0])));
        ASSERT_EQ(figure(cells.postedQuantity), figure(cells.quantity)) << "all that is shown is posted";
        if (cells.postedReturned != noCell) {
            ASSERT_EQ(figure(cells.postedReturned), figure(cells.returned[0]));
        }
        ASSERT_EQ(grid.qtext(cells.total, row).remove(u',').toDouble(),
                  std::round((figure(cells.quantity) - figure(cells.returned[0])) * figure(cells.price)));
    }

    void compareRows(Side side)
    {
        RowSet table(*watcher, movementTable(side).table);
        const int count = page(side).grid()->MaxRows();
        ASSERT_EQ(table.Select("ORDER BY InpDate"), count);
        ASSERT_EQ(movementTable(side).rows(desk.db).Count(), count);
        for (int row = 1; row <= count && !HasFatalFailure(); ++row)
            compareRow(side, row, table);
    }

    /// \a compare looks at more than the rows after each movement.
    void run(int movements, const std::function<void()>& compare)
    {
        for (int i = 0; i < movements && !HasFailure(); ++i) {
            const std::string what = step();
            SCOPED_TRACE(std::to_string(i) + " " + what);
            compareRows(Side::Receipt);
            compareRows(Side::Shipment);
            compare();
            desk.box.shown.clear();
        }
    }

    EntryDesk desk;
    std::optional<AppDB> watcher; ///< a second connection
    std::vector<std::string> codes;
    std::mt19937 random{printedSeed()};
};

} // namespace

TEST_F(MovementsTest, wholeQuantities_gridBufferAndTableAgree_andTheBooksHold)
{
    addGoods("A", 1, 1);
    addGoods("B", 12, 3);
    addGoods("C", 6, 2);
    addGoods("P", 2, 1, {{"A", 1}, {"B", 3}});
    addGoods("Q", 1, 1, {{"C", 2}, {"P", 1}, {"GONE", 4}}); // GONE has left the master
    addGoods("Z", 0, 0, {{"A", 5}});
    open();
    run(2500, [this] { expectBooksHold(*watcher); });
}

TEST_F(MovementsTest, fractions_gridBufferAndTableAgree)
{
    addGoods("A", 1.5, 0.5);
    addGoods("B", 2.5, 1.25);
    addGoods("P", 3.5, 1, {{"A", 0.5}, {"B", 1.5}, {"GONE", 1}});
    open();
    run(2500, [] {});
}

} // namespace suisui::test
