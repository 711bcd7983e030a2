// How the texts of each column are written: dates of eight digits, time stamps of fourteen, movement numbers
// with their zeros, and so on. One table, by which a shop's books are checked and imported records are let
// in.
#pragma once

#include <string_view>

#include "store/Schema.h"

namespace suisui {

/// What is wrong with \a text as a value of \a column (counted from 0), in words that follow the value, such
/// as "is no date"; empty when nothing is.
[[nodiscard]] std::string_view encodingFault(const TableDef& table, int column, std::string_view text);

} // namespace suisui
