// The folder that keeps a shop's copies: their dated names, the notes that say which of them are verified,
// and which are removed when there are too many. Each copy is one file, "trnvik-20261121-094500.mdb", with a
// note beside it whose name has ".proof" appended. What a restore replaced is kept there too, marked
// "-replaced".
//
// A copy gets its name only when it is whole, checked and on the disk. What a killed run leaves ends in
// ".part", or is a note without its copy; the next run removes it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <QDateTime>

#include "tools/Cause.h"

namespace suisui {

/// What the note of a copy says, and whether the copy is unchanged since the note was written.
struct CopyProof
{
    enum Verdict { Verified, BooksDoNotHold, Changed, Unverified };
    Verdict verdict = Unverified;
    int figures = 0;  ///< stock figures that were compared
    int problems = 0; ///< problems of the books at that time
};

class BackupFolder
{
public:
    enum class Kind { Regular, Replaced };

    struct Copy
    {
        std::string name; ///< of the file, without folder
        std::string stamp;
        int number = 1; ///< among the copies of the same second
        Kind kind = Kind::Regular;
    };

    /// Touches nothing on the disk.
    explicit BackupFolder(const std::string& folder);
    ~BackupFolder();
    BackupFolder(const BackupFolder&) = delete;
    BackupFolder& operator=(const BackupFolder&) = delete;

    /// Creates the folder if it is missing, keeps other runs of this tool out of it for the life of the
    /// object, and removes what a killed run left. False, with the reason in \a fault, when that fails.
    [[nodiscard]] bool take(Fault& fault);

    [[nodiscard]] std::string pathOf(const std::string& name) const { return m_folder + "/" + name; }
    /// Where the next copy is written before it has a name. After take() there is no such file.
    [[nodiscard]] std::string aside() const;
    /// Names the file aside and returns that name. The note is written first, so that no named copy lacks its
    /// note. Both are on the disk when this returns. Empty, with the reason in \a fault, when that fails.
    [[nodiscard]] std::string keep(const QDateTime& when, Kind kind, const CopyProof& proof, Fault& fault);
    /// As keep, for a file that could not be read as a database: without a note, hence never verified.
    [[nodiscard]] std::string keepUnread(const QDateTime& when, Fault& fault);

    /// All copies, oldest first.
    [[nodiscard]] std::vector<Copy> copies() const;
    /// Reads the copy and its note; the copy is not opened as a database.
    [[nodiscard]] static CopyProof proofOf(const std::string& path);

    /// Removes the oldest copies of either kind until \a count are left. \a newest stays whatever its date,
    /// and so does the newest verified copy, even as one too many. Returns the removed names.
    std::vector<std::string> rotate(int count, const std::string& newest);

private:
    [[nodiscard]] std::string freeName(const QDateTime& when, Kind kind) const;
    [[nodiscard]] std::string giveName(const std::string& name, Fault& fault);

    std::string m_folder;
    int m_lock = -1;
};

} // namespace suisui
