// Sorting a list by a click on a heading. The list is sorted as it stands in the grid, without going back to
// the database.
#pragma once

#include <string>

#include "lists/ListSide.h"

namespace suisui {

/// Movements with subtotals, or sums by goods. What is shown is told by the heading of the first column,
/// since the box that asks for sums may have been ticked since.
enum class ListView { Detail, Summed };

[[nodiscard]] ListView shownView(const vaSpread& grid, const ListCells& cells);

/// Whether a click on the heading of \a col sorts.
[[nodiscard]] bool sortsBy(const ListSide& side, ListView view, int col);

/// Sorts the grid by \a col, for which sortsBy must hold. Subtotals are torn out and built again round the
/// groups of that column.
void sortList(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col);

/// Where the cursor was: what is needed to find its row again when the order has changed.
class RowFinder
{
public:
    RowFinder(const vaSpread& grid, const ListCells& cells);
    /// The first row that has the remembered code and, of a movement, the remembered date. 0: there is none.
    [[nodiscard]] int find(const vaSpread& grid) const;

private:
    const ListCells& m_cells;
    std::string m_code;
    std::string m_date; ///< empty when the day does not matter
};

} // namespace suisui
