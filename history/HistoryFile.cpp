#include "history/HistoryFile.h"

#include <unistd.h>

#include <QDateTime>

#include "platform/core/Files.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr qsizetype fromAt = 3; // characters before the first day
constexpr qsizetype toAt = 12;
constexpr qsizetype dateLength = 8;
constexpr qsizetype extensionAt = toAt + dateLength;
constexpr int namesToTry = 9;
constexpr qint64 secondsOfADay = 86400;

/// \a path as the \a turn-th name to try: "RRK20260101-20260131(2).hst".
std::string nameToTry(const std::string& path, int turn)
{
    const std::size_t at = path.rfind('/') + 1 + static_cast<std::size_t>(extensionAt);
    if (turn == 1 || at > path.size())
        return path;
    return path.substr(0, at) + "(" + std::to_string(turn) + ")" + path.substr(at);
}

} // namespace

QString historyFileName(const Period& period, const QString& extension)
{
    return u"RRK%1-%2.%3"_s.arg(QString::fromStdString(period.from), QString::fromStdString(period.to),
                                extension);
}

QString historyFilePattern(const QString& extension)
{
    return u"RRK*."_s + extension;
}

Period periodOf(const QString& name)
{
    return {name.mid(fromAt, dateLength).toStdString(), name.mid(toAt, dateLength).toStdString()};
}

std::uint32_t historyMark(std::string_view stamp)
{
    const QString text = QString::fromUtf8(stamp.data(), static_cast<qsizetype>(stamp.size()));
    const QDate day = QDate::fromString(text.left(dateLength), u"yyyyMMdd"_s);
    const QTime time = QTime::fromString(text.mid(dateLength), u"HHmmss"_s);
    if (!day.isValid() || !time.isValid())
        return 0;
    // The figures of the stamp, wherever the shop is.
    return static_cast<std::uint32_t>(QDate(2000, 1, 1).daysTo(day) * secondsOfADay
                                      + QTime(0, 0).secsTo(time));
}

std::string asideOf(const std::string& path)
{
    const std::size_t name = path.rfind('/') + 1; // 0 without a folder
    return path.substr(0, name) + "." + path.substr(name) + ".new";
}

bool giveName(const std::string& aside, const std::string& path)
{
    for (int turn = 1; turn <= namesToTry; ++turn)
        if (renameToNew(aside, nameToTry(path, turn)))
            return syncToDisk(folderOf(path));
    return false;
}

FileInTheMaking::FileInTheMaking(const std::string& path) : m_path(path), m_aside(asideOf(path)) {}

FileInTheMaking::~FileInTheMaking()
{
    if (!m_kept)
        removeFile(m_aside);
}

void FileInTheMaking::copyFrom(const std::string& model)
{
    ::unlink(m_aside.c_str()); // left by a program that was killed
    copyFile(model, m_aside);
}

bool FileInTheMaking::isStored() const
{
    return syncToDisk(m_aside) && syncToDisk(folderOf(m_path)) && ::access(m_path.c_str(), F_OK) != 0;
}

} // namespace suisui
