// How an operation of the store has ended, with a name for everything that a caller may have to distinguish.
#pragma once

namespace suisui {

/// Good is 0; after anything else nothing was written. A status may also be the meaning of a selection's
/// failure, since a count of rows says only that there was one.
enum class DbStatus {
    Good = 0,
    Failed,     ///< none of the others; AppDB::LastErrText says more
    RowChanged, ///< somebody else has changed or deleted the row since it was read
    Busy,       ///< another process holds the file
    Full,       ///< no room on the disk, or a limit on the size of the file
    ReadOnly,   ///< the file takes no writes
    Damaged,
    NoDatabase, ///< the file is not there or cannot be opened
    NotADatabase,
    DuplicateKey = 3022, ///< a row with the key is there already; AppDB::LastErrNo gives the number as a text
};

/// In place of a count of rows.
inline constexpr int selectionFailed = -1;

} // namespace suisui
