// In place of a column where a grid has none. Columns count from 1.
#pragma once

namespace suisui {

inline constexpr int noCell = 0;

} // namespace suisui
