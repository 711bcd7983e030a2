// The SQL functions that the rules rely on: Like with "*" and "?", CDbl, CStr, Format. Trim and iif are the
// engine's own. Plus, Times and the aggregate SumOf take numbers and texts of numbers and compute as
// store/Numbers.h does, so that a figure computed in SQL has no binary tail either.
#pragma once

#include <string_view>

struct sqlite3;

namespace suisui {

/// Whether \a text matches \a pattern: "*" is any number of characters, "?" exactly one, everything else
/// itself, letters a to z without regard to case. Takes at worst time in proportion to the product of
/// lengths.
[[nodiscard]] bool like(std::string_view text, std::string_view pattern);

/// Registers the functions on a connection. Returns an engine code.
[[nodiscard]] int registerDialect(sqlite3* db);

} // namespace suisui
