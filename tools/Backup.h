// Backups of a shop's working database, made while the program runs, and the way back.
//
// A copy is made by the engine from one state of the live file and is proved before it gets its name: opened,
// checked for damage, its row counts and every stock figure the same as the live ones at that moment, and
// every stock figure what its movements make of it.
#pragma once

#include <iosfwd>
#include <string>

#include "platform/core/Clock.h"
#include "tools/TagDb.h"

namespace suisui {

struct BackupOrder
{
    std::string base;         ///< the program folder
    std::string folder;       ///< where the copies are; empty: backup under the program folder
    int keep = 14;            ///< copies that stay
    bool daily = false;       ///< nobody watches: a failure is noted for the program, see BackupNote
    bool evenUnsound = false; ///< restore also what does not hold
};

/// Adds a copy and lets the oldest go. Found when the copy is true but the books in it do not hold: it is
/// kept and never pushes the last proved one out. A daily run has nothing to do where there is no database.
[[nodiscard]] ToolStatus backupShop(const BackupOrder& order, const Clock& clock, std::ostream& out,
                                    std::ostream& err);
/// Lists the copies, oldest first, and which of them are proved. Found when one has changed since, or when
/// there is none to rely on.
[[nodiscard]] ToolStatus listBackups(const BackupOrder& order, std::ostream& out, std::ostream& err);
/// Puts the copy \a file (a name in the folder of the copies, or a path) in the place of the working
/// database, which is kept among the copies first. The copy itself is only read. Refused while the program
/// runs or might run, for a copy that has changed since it was proved, for a history file and a database with
/// other rules than the program's, and for one that does not hold unless the order says so.
[[nodiscard]] ToolStatus restoreShop(const BackupOrder& order, const std::string& file, const Clock& clock,
                                     std::ostream& out, std::ostream& err);

} // namespace suisui
