// Checks a shop's database: that the file is undamaged, that columns hold what they should, and that every
// stock figure is what its movements make of it.
#pragma once

#include <string>
#include <vector>

#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// The problems found, a line each; empty when all is well. \a db must be open.
///
/// The stock figures are compared by checkBooks (booking/BooksCheck.h).
[[nodiscard]] std::vector<std::string> checkShop(AppDB& db, Language language = Language::English);

} // namespace suisui
