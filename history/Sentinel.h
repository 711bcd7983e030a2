// The row of RirekiTB that is not a period: it carries the extension of all history files of the
// database, chosen once.
#pragma once

#include <string>

#include "store/DbStatus.h"

namespace suisui {

class AppDB;

enum class SentinelRow { Found, Missing, Unreadable };

/// Selects the row into RirekiTbl. Unreadable when the selection failed: there may be one.
[[nodiscard]] SentinelRow findSentinel(AppDB& db);

/// Adds the row and leaves it in RirekiTbl. It is stored with the next commit and goes with the next
/// rollback.
[[nodiscard]] DbStatus addSentinel(AppDB& db, const std::string& extension);

/// Extension in the row that findSentinel or addSentinel has left in RirekiTbl.
[[nodiscard]] std::string sentinelExtension(AppDB& db);

} // namespace suisui
