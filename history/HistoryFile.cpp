#include "history/HistoryFile.h"

#include <unistd.h>

#include "platform/core/Files.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr qsizetype fromAt = 3; // characters before the first day
constexpr qsizetype toAt = 12;
constexpr qsizetype dateLength = 8;

std::string asideOf(const std::string& path)
{
    const std::size_t name = path.rfind('/') + 1; // 0 without a folder
    return path.substr(0, name) + "." + path.substr(name) + ".new";
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

FileInTheMaking::FileInTheMaking(const std::string& path) : m_path(path), m_aside(asideOf(path)) {}

FileInTheMaking::~FileInTheMaking()
{
    if (!m_kept)
        removeFile(m_inPlace ? m_path : m_aside);
}

void FileInTheMaking::copyFrom(const std::string& model)
{
    ::unlink(m_aside.c_str()); // left by a program that was killed
    copyFile(model, m_aside);
}

bool FileInTheMaking::putInPlace()
{
    m_inPlace = renameToNew(m_aside, m_path);
    return m_inPlace && syncToDisk(folderOf(m_path));
}

} // namespace suisui
