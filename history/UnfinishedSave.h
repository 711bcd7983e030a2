// A save that was cut short by a kill, a power cut or a stick that was pulled out, and what becomes of it.
//
// The file of a period is filled and flushed under a hidden name, and gets its own only after the working
// database has given up the rows and lists the period. So no kill leaves a file that could be chosen for a
// load and is not a finished save. What a kill may leave is the hidden file, and the list says what it is:
// listed, it holds the rows and only its name is missing; not listed, its rows never left the tables.
#pragma once

#include <string>

#include <QString>

#include "store/RowSet.h"

namespace suisui {

class AppDB;
class AppIni;

enum class FileFit { Fits, Differs, Unreadable };

/// Whether \a file is the one that row \a row of the list was made with, by its size and by the mark of the
/// save. A file without a mark is judged by its size alone.
[[nodiscard]] FileFit fitOf(const RirekiRec& rows, int row, const std::string& file);

enum class Listing { Listed, NotListed, Unknown };

/// Whether the list has the file \a aside, which is to be called \a path, with its mark. Unknown when the
/// list cannot be read.
[[nodiscard]] Listing listingOf(AppDB& db, const std::string& aside, const std::string& path);

/// Ends the save that \a ini has noted, if any: gives a listed file its name, or removes what is not listed.
/// Where the folder or the list cannot be reached now, the note stays for the next time.
void settleUnfinishedSave(AppDB& db, AppIni& ini);

/// Gives the listed files with \a extension in \a folder their names, wherever the folder is mounted today.
void nameListedFiles(AppDB& db, const QString& folder, const QString& extension);

} // namespace suisui
