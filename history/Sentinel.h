// The row of RirekiTB that stands for no period: it carries the extension of all history files of the
// database, chosen once.
#pragma once

#include <string>

namespace suisui {

class AppDB;

/// Selects the row into RirekiTbl. False when there is none.
[[nodiscard]] bool findSentinel(AppDB& db);

/// Adds the row and leaves it in RirekiTbl. It is stored with the next commit and goes with the next
/// rollback.
int addSentinel(AppDB& db, const std::string& extension);

/// Extension in the row that findSentinel or addSentinel has left in RirekiTbl.
[[nodiscard]] std::string sentinelExtension(AppDB& db);

} // namespace suisui
