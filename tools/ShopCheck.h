// Whether a shop's books hold together: the encodings of all columns, and for every code that the stock
// figure is what its movements make of it.
#pragma once

#include <string>
#include <vector>

#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// What does not hold, a line each; empty when all is well. \a db must be open.
///
/// The stock figures are compared by checkBooks (booking/BooksCheck.h).
[[nodiscard]] std::vector<std::string> checkShop(AppDB& db, Language language = Language::English);

} // namespace suisui
