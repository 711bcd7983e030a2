#include "platform/core/FileLock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>

namespace suisui {

namespace {

constexpr mode_t ownersOnly = 0600;

} // namespace

bool isLocked(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool locked = ::flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(file);
    return locked;
}

FileLock::FileLock(const QString& path, LockKeeper keeper)
    : m_file(::open(QFile::encodeName(path).constData(),
                    O_RDWR | O_CREAT | (keeper == LockKeeper::ThisProgram ? O_CLOEXEC : 0), ownersOnly))
{
    if (m_file < 0 || ::flock(m_file, LOCK_EX | LOCK_NB) == 0)
        return;
    m_heldByAnother = errno == EWOULDBLOCK;
    ::close(m_file);
    m_file = -1;
}

FileLock::~FileLock()
{
    // The file stays: whoever removed it could take it from a program that has just opened it.
    if (m_file >= 0)
        ::close(m_file);
}

} // namespace suisui
