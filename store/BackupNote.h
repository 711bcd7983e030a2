// What a daily backup that failed leaves for the program: a note in the program folder, shown to the operator
// when the program starts next. Nobody looks at the journal of the system in a shop.
#pragma once

#include <optional>

#include <QDateTime>
#include <QString>

namespace suisui {

struct FailedBackup
{
    QDateTime when;
    QString why;    ///< in Japanese, a line
    QString advice; ///< what to do about it; may be empty
};

class BackupNote
{
public:
    explicit BackupNote(const QString& baseFolder);

    /// Takes the place of an older note. False when the disk does not take it.
    [[nodiscard]] bool write(const FailedBackup& failure) const;
    /// Nothing when no backup has failed since the note was cleared. A note that lost its words, as on a full
    /// disk, still says when.
    [[nodiscard]] std::optional<FailedBackup> read() const;
    void clear() const;

private:
    QString m_path;
};

} // namespace suisui
