// Backups of a shop's working database, made while the program runs, and the way back.
//
// The database engine makes a copy from one state of the live file. Before the copy gets its name it is
// opened, checked for damage and compared: its row counts and stock figures must be those of the live file at
// that moment. It counts as verified when every stock figure is also what its movements make of it.
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
    int keep = 14;            ///< number of copies to keep
    bool daily = false;       ///< unattended: a failure is left for the program to show, see BackupNote
    bool evenUnsound = false; ///< restore a copy even when its books do not hold
};

/// Adds a copy and removes the oldest. Found when the copy is faithful but its books do not hold: it is kept,
/// and so is the last verified one. A daily run does nothing where there is no database.
[[nodiscard]] ToolStatus backupShop(const BackupOrder& order, const Clock& clock, std::ostream& out,
                                    std::ostream& err);
/// Lists the copies, oldest first, and says which are verified. Found when one has changed since it was
/// verified, or when none is verified.
[[nodiscard]] ToolStatus listBackups(const BackupOrder& order, std::ostream& out, std::ostream& err);
/// Replaces the working database by the copy \a file (a name in the folder of the copies, or a path); what
/// was there is kept among the copies first. The copy itself is only read. Refused while the program runs or
/// might run, for a copy that has changed since it was verified, for a history file, for a database with
/// other indexes, triggers or views than the program's, and for one whose books do not hold unless the order
/// says so.
[[nodiscard]] ToolStatus restoreShop(const BackupOrder& order, const std::string& file, const Clock& clock,
                                     std::ostream& out, std::ostream& err);

} // namespace suisui
