// What a failed daily backup leaves for the program: a note in the program folder, which is shown to the
// operator when the program starts next. Nobody in a shop reads the system's log.
#pragma once

#include <optional>

#include <QDateTime>
#include <QString>

namespace suisui {

struct FailedBackup
{
    QDateTime when;
    QString why;    ///< in Japanese, one line
    QString advice; ///< what to do about it; may be empty
};

class BackupNote
{
public:
    explicit BackupNote(const QString& baseFolder);

    /// Replaces an older note. False when it could not be written.
    [[nodiscard]] bool write(const FailedBackup& failure) const;
    /// None when no backup has failed since the note was cleared. A note that lost its text on a full disk
    /// still says when.
    [[nodiscard]] std::optional<FailedBackup> read() const;
    void clear() const;

private:
    QString m_path;
};

} // namespace suisui
