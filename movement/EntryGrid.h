// The grid of an entry tab, by the names of its cells: shows stored movements, puts a new one on top, takes a
// deleted one out. Hidden cells keep what was last posted of each row; corrections read it from here.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "booking/Booking.h"
#include "booking/Correction.h"
#include "frame/support/GridBar.h"
#include "movement/MovementSide.h"

namespace suisui {

/// A cell whose corrections are stored.
struct EditedCell
{
    int cell;
    int column; ///< of the table
    CellForm form;
};

class EntryGrid final : public EntryRows
{
public:
    EntryGrid(vaSpread& sheet, const MovementSide& side);

    [[nodiscard]] int count() const override { return m_sheet.MaxRows(); }
    [[nodiscard]] int bufferIndex(int row) const override;
    [[nodiscard]] std::string code(int row) const override;
    [[nodiscard]] Figures shown(int row) const override;
    [[nodiscard]] Figures posted(int row) const override;
    void setPosted(int row, const Figures& figures) override;
    void putBack(int row, const Figures& posted, const std::string& total) override;

    /// Takes the cell in \a column of \a row into the corrections; an empty figure becomes 0. False when it
    /// says nothing new or is not stored.
    [[nodiscard]] bool take(int column, int row, Correction& edit);

    /// Shows all rows of \a rows that are in the table, the newest first. Calls \a shown after each.
    void load(const RowSet& rows, const std::function<void(int row)>& shown);
    /// Puts \a movement, row \a index of the row set, on top.
    void insertTop(const MovementTexts& movement, const std::string& total, int index);
    /// What the cells of row 1 hold. The codes of partner and staff have no cells.
    [[nodiscard]] MovementTexts top() const;
    /// Takes out \a row, which showed row \a index of the row set, and moves bar and cursor to the next one.
    void takeOut(int row, int index, const Correction& edit);

    /// Moves the bar from \a oldRow (0: none) to \a newRow.
    void moveBar(int oldRow, int newRow) { m_bar->move(oldRow, newRow); }
    /// Puts the cursor into the quantity of row 1, by way of the price, so that both are in view.
    void cursorToQuantity();

private:
    void makeRow(const PackedRow& stored, int index, std::span<std::string> texts) const;

    vaSpread& m_sheet;
    const MovementSide& m_side;
    const MovementTable& m_table;
    GridBar* m_bar;
    std::vector<EditedCell> m_edited;
};

} // namespace suisui
