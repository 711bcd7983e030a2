// Widths that the grids of all tabs have in common.
#pragma once

namespace suisui {

/// Pixels of a column of goods codes: the sixteen half-width characters that a code may have, and the gaps at
/// both ends of a cell.
inline constexpr int codeWidth = 122;

} // namespace suisui
