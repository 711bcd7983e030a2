// What a database must be before it may take the place of a shop's own, besides being whole: the shop's and
// not the history of a period, and with no rules in the file that are not the program's.
#pragma once

#include <string>

#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// Why the open database, which comes from the file named \a name, cannot be the working database; empty when
/// it can.
[[nodiscard]] Message unfitToRestore(AppDB& db, const std::string& name);

} // namespace suisui
