// Subtotals of a list and its total. The arithmetic stands apart from the grid: rows are given to Subtotals
// in their order, each with the text that its group is known by, and a group is closed when that text
// changes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lists/ListRows.h"

namespace suisui {

class vaSpread;

class Subtotals
{
public:
    /// \a firstKey: text of the first group.
    explicit Subtotals(std::string_view firstKey) : m_key(firstKey) {}

    /// Takes the next row. Gives the sums of the group before it when the row begins another one.
    [[nodiscard]] std::optional<ListFigures> add(std::string_view key, const ListFigures& row);
    /// The sums of the last group, after the last row.
    [[nodiscard]] ListFigures close();
    /// The sum of all subtotals closed so far.
    [[nodiscard]] const ListFigures& total() const { return m_total; }

private:
    std::string m_key;
    ListFigures m_group{};
    ListFigures m_total{};
};

// Texts of column 1 by which the rows that are no movements are known.
inline constexpr std::string_view subtotalMark = "　　小計";
inline constexpr std::string_view totalMark = "　　合計";

enum class SumRow { Subtotal, Total };

/// Which of the two row \a row of \a grid is, by its column 1; nothing for a movement.
[[nodiscard]] std::optional<SumRow> sumRowAt(const vaSpread& grid, const ListCells& cells, int row);

/// The colour that a row has without the bar: yellow, green or white.
[[nodiscard]] QColor restColor(const vaSpread& grid, const ListCells& cells, int row);

/// Writes a subtotal with its group label, or the total, into the empty row \a row.
void writeSumRow(vaSpread& grid, const ListCells& cells, int row, SumRow kind, std::string_view label,
                 const ListFigures& sums);

/// Red and bold, as every negative amount is.
void markNegative(vaSpread& grid, int col, int row);

/// Closes the list that is in \a grid with a subtotal in front of each change of the text in column
/// \a groupCol, and a total. The sums come from the figures that the cells show. Subtotals and a total that
/// are there already must have been taken out.
void insertSubtotals(vaSpread& grid, const ListCells& cells, int groupCol, std::string_view label);

/// Takes all subtotals and totals out.
void removeSumRows(vaSpread& grid, const ListCells& cells);

} // namespace suisui
