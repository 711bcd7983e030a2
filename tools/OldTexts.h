// Brings texts from elsewhere (older databases, CSV files) into the format that the tables hold.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suisui {

/// \a text in the format of column \a column of the table named \a table; none when it cannot be one. Columns
/// of plain text take anything.
[[nodiscard]] std::optional<std::string> asStored(std::string_view table, std::string_view column,
                                                  std::string_view text);

/// What the column holds, for a message ("date", "whole number"); empty for plain text.
[[nodiscard]] std::string_view meaningOf(std::string_view table, std::string_view column);

} // namespace suisui
