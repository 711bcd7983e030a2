// The folder that keeps a shop's copies: their dated names, the notes that say which of them are proved, and
// which of them have to go. One file a copy, "trnvik-20261121-094500.mdb", and beside it its note under the
// same name with ".proof" behind it. What a restore took the place of is kept there too, marked "-replaced".
//
// A copy has its name only from the moment on that it is whole, proved and on the disk. What a run that was
// killed leaves ends in ".part", or is a note without its copy; it is no copy and goes with the next run.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <QDateTime>

#include "tools/Cause.h"

namespace suisui {

/// What the note of a copy says, and whether the copy is still what the note was written for.
struct CopyProof
{
    enum Verdict { Proved, BooksDoNotHold, Changed, Unproved };
    Verdict verdict = Unproved;
    int figures = 0;  ///< stock figures that were compared
    int problems = 0; ///< what did not hold in the books at the time
};

class BackupFolder
{
public:
    enum class Kind { Regular, Replaced };

    struct Copy
    {
        std::string name; ///< of the file, without folder
        std::string stamp;
        int number = 1; ///< counts the copies of one second
        Kind kind = Kind::Regular;
    };

    /// Nothing is made or touched yet.
    explicit BackupFolder(const std::string& folder);
    ~BackupFolder();
    BackupFolder(const BackupFolder&) = delete;
    BackupFolder& operator=(const BackupFolder&) = delete;

    /// Makes the folder where it is missing, keeps other runs of this tool out of it until the object goes,
    /// and clears away what a killed run has left. False, with the reason in \a fault, when that cannot be.
    [[nodiscard]] bool take(Fault& fault);

    [[nodiscard]] std::string pathOf(const std::string& name) const { return m_folder + "/" + name; }
    /// Where the next copy is written, aside. There is no such file.
    [[nodiscard]] std::string aside() const;
    /// Gives the file aside its name, and the note first, so that what has a name has its note. Both are on
    /// the disk when this returns. Empty, with the reason in \a fault, when that cannot be.
    [[nodiscard]] std::string keep(const QDateTime& when, Kind kind, const CopyProof& proof, Fault& fault);
    /// As keep, for a file that could not be read as a database: without a note, hence never proved.
    [[nodiscard]] std::string keepUnread(const QDateTime& when, Fault& fault);

    /// All copies, oldest first.
    [[nodiscard]] std::vector<Copy> copies() const;
    /// Reads the copy and its note; the copy is not opened as a database.
    [[nodiscard]] static CopyProof proofOf(const std::string& path);

    /// Removes the oldest, of whatever sort, until \a count are left. \a newest stays whatever its date, and
    /// so does the newest proved copy, even as one too many. Returns the names that went.
    std::vector<std::string> rotate(int count, const std::string& newest);

private:
    [[nodiscard]] std::string freeName(const QDateTime& when, Kind kind) const;
    [[nodiscard]] std::string giveName(const std::string& name, Fault& fault);

    std::string m_folder;
    int m_lock = -1;
};

} // namespace suisui
