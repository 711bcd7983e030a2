// Sorting a list by a click on a heading. The rows in the grid are sorted; the database is not asked again.
#pragma once

#include <string>

#include "lists/ListSide.h"

namespace suisui {

/// Movements with subtotals, or sums by goods. The heading of the first column says which of them is shown,
/// since the box that asks for sums may have been ticked since.
enum class ListView { Detail, Summed };

[[nodiscard]] ListView shownView(const vaSpread& grid, const ListCells& cells);

/// Whether a click on the heading of \a col sorts.
[[nodiscard]] bool sortsBy(const ListSide& side, ListView view, int col);

/// Sorts the grid by \a col, for which sortsBy must hold. Subtotals are taken out and made anew for the
/// groups of that column.
void sortList(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col);

/// Remembers the row of the cursor, so that it is found again when the order has changed.
class RowFinder
{
public:
    RowFinder(const vaSpread& grid, const ListCells& cells);
    /// The first row with the remembered code and, of a movement, the remembered date; 0 when there is none.
    [[nodiscard]] int find(const vaSpread& grid) const;

private:
    const ListCells& m_cells;
    std::string m_code;
    std::string m_date; ///< empty when the row had no date
};

} // namespace suisui
