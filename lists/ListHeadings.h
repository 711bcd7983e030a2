// The heading row of a list. Behind the words stand the marks that say how the list is sorted and what a
// click would sort by.
#pragma once

#include <string>
#include <string_view>

#include "lists/ListSort.h"

namespace suisui {

/// Heading of a column that has nothing in the summed view. Over column 1 it tells the view.
inline constexpr std::string_view nothingHere = "－";

/// The word of a column.
[[nodiscard]] std::string heading(const ListSide& side, const AppIni& ini, int col);

/// The words alone.
void writePlainHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid);
/// As they stand after a search.
void writeSearchHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view);
/// As they stand after a sort by \a col.
void writeSortHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col);

/// What stands in column 2 of a subtotal, of a list that is grouped by \a groupCol.
[[nodiscard]] std::string groupLabel(const ListSide& side, const AppIni& ini, int groupCol);

} // namespace suisui
