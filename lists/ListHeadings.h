// The heading row of a list. Marks after the words show which column the list is sorted by and which a click
// would sort by.
#pragma once

#include <string>
#include <string_view>

#include "lists/ListSort.h"

namespace suisui {

/// Heading of a column that is empty in the summed view. Over column 1 it identifies that view.
inline constexpr std::string_view nothingHere = "－";

/// The word of a column.
[[nodiscard]] std::string heading(const ListSide& side, const AppIni& ini, int col);

/// The words without marks.
void writePlainHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid);
/// The headings after a search.
void writeSearchHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view);
/// The headings after a sort by \a col.
void writeSortHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col);

/// Text in column 2 of the subtotals of a list that is grouped by \a groupCol.
[[nodiscard]] std::string groupLabel(const ListSide& side, const AppIni& ini, int groupCol);

} // namespace suisui
