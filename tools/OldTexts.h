// Texts of older databases in the forms that the tables here hold.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suisui {

/// \a text as column \a column of the table named \a table holds it; nothing when it cannot be one. Columns
/// that are plain texts take everything.
[[nodiscard]] std::optional<std::string> asStored(std::string_view table, std::string_view column,
                                                  std::string_view text);

/// What the column is to hold, for a message ("date", "movement number"); empty for a plain text.
[[nodiscard]] std::string_view meaningOf(std::string_view table, std::string_view column);

} // namespace suisui
