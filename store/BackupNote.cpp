#include "store/BackupNote.h"

#include <QFile>
#include <QFileInfo>

#include "platform/core/Files.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

enum Line { When, Why, Advice, Lines };

const QString unknownReason = u"ディスクの 空き容量が足りなかった可能性があります。"_s;
const QString unknownAdvice = u"ディスクの 空き容量を確認して下さい。"_s;

} // namespace

BackupNote::BackupNote(const QString& baseFolder) : m_path(baseFolder + u"/backup-failed.txt"_s) {}

bool BackupNote::write(const FailedBackup& failure) const
{
    // Not written aside: when there is no room for the text, an empty file still says that a backup failed.
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QStringList lines{failure.when.toString(Qt::ISODate), failure.why, failure.advice};
    const QByteArray bytes = (lines.join(u'\n') + u'\n').toUtf8();
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    return written && syncToDisk(QFile::encodeName(m_path).toStdString());
}

std::optional<FailedBackup> BackupNote::read() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    const QDateTime when = QDateTime::fromString(lines.value(When), Qt::ISODate);
    if (lines.size() < Lines || !when.isValid())
        return FailedBackup{QFileInfo(file).lastModified(), unknownReason, unknownAdvice};
    return FailedBackup{when, lines[Why], lines[Advice]};
}

void BackupNote::clear() const
{
    (void)removeFile(QFile::encodeName(m_path).toStdString());
}

} // namespace suisui
