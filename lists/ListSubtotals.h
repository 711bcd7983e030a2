// Subtotals of a list and its total. The arithmetic knows no grid: Subtotals takes the rows in their order,
// each with the text that names its group, and closes a group when that text changes.
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

    /// Takes the next row. Returns the sums of the previous group when the row begins a new one.
    [[nodiscard]] std::optional<ListFigures> add(std::string_view key, const ListFigures& row);
    /// The sums of the last group, after the last row.
    [[nodiscard]] ListFigures close();
    /// The sum of all groups closed so far.
    [[nodiscard]] const ListFigures& total() const { return m_total; }

private:
    std::string m_key;
    ListFigures m_group{};
    ListFigures m_total{};
};

// Texts in column 1 of the rows that are not movements.
inline constexpr std::string_view subtotalMark = "　　小計";
inline constexpr std::string_view totalMark = "　　合計";

enum class SumRow { Subtotal, Total };

/// What row \a row of \a grid is, by its column 1; none for a movement.
[[nodiscard]] std::optional<SumRow> sumRowAt(const vaSpread& grid, const ListCells& cells, int row);

/// The colour of a row that the bar is not on: yellow, green or white.
[[nodiscard]] QColor restColor(const vaSpread& grid, const ListCells& cells, int row);

/// Writes a subtotal with its group label, or the total, into the empty row \a row.
void writeSumRow(vaSpread& grid, const ListCells& cells, int row, SumRow kind, std::string_view label,
                 const ListFigures& sums);

/// Red and bold, as every negative amount is.
void markNegative(vaSpread& grid, int col, int row);

/// Puts a subtotal after each group of rows with the same text in column \a groupCol, and a total at the end.
/// The sums come from the figures that the cells show. Earlier subtotals must have been taken out.
void insertSubtotals(vaSpread& grid, const ListCells& cells, int groupCol, std::string_view label);

/// Takes all subtotals and totals out.
void removeSumRows(vaSpread& grid, const ListCells& cells);

} // namespace suisui
