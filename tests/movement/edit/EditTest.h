// The fixture for stored movements: an entry page of either side, with goods that are in stock.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/EntryDesk.h"

namespace suisui::test {

/// What differs between the sides for a test.
struct Mirror
{
    Side side;
    const char* table;
    const char* quantity; ///< column of the table
    const char* date;
    QString term;
    QString waitTag;
    QString deleteQuestion;
    Tab listTab;
};

class EditTest : public ::testing::TestWithParam<Mirror>
{
protected:
    EditTest();

    /// \a count movements of goods without a stock row, one a minute.
    void fill(int count) const;
    /// Three movements of five pencils; the newest is in row 1.
    void bookThree();
    /// Stock of the pencils after movements of \a moved pieces in all.
    [[nodiscard]] static std::string stockAfter(int moved);
    /// Quantities in the table, oldest booking first.
    [[nodiscard]] std::vector<std::string> quantities() const;
    void update(BoxAnswer answer = BoxAnswer::Yes);
    void erase(int row, BoxAnswer answer = BoxAnswer::Yes);
    /// The row of the row set that a row of the grid shows.
    [[nodiscard]] std::string index(int row) const
    {
        return std::string(page->grid()->text(cells.index, row));
    }

    const MovementCells& cells = movementSide(GetParam().side).cells;
    EntryDesk desk;
    MovementPage* page = nullptr;
};

} // namespace suisui::test
