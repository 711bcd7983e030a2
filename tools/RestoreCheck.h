// What a database must be, besides undamaged, before a restore may use it: a shop's working database and not
// the history of a period, with the program's unique indexes and no triggers, views or unique indexes beside
// them.
#pragma once

#include <string>

#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// Why the open database, which comes from the file named \a name, cannot become the working database; empty
/// when it can.
[[nodiscard]] Message unfitToRestore(AppDB& db, const std::string& name);

} // namespace suisui
