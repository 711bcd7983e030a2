// The lock is the kernel's, on the open file (flock(2)): it ends with the process, however that ends.
// QLockFile also refuses while the file exists and says nothing of its owner, which is what a kill or a power
// cut between making the file and writing it leaves: nobody could start the program again.
#include "platform/core/SingleInstance.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>

namespace suisui {

SingleInstance::SingleInstance(const QString& baseFolder)
    : m_path(baseFolder + QStringLiteral("/.suisuitag.lock"))
{
}

SingleInstance::~SingleInstance()
{
    // The file stays: whoever removed it could take it from a copy that has just opened it.
    if (m_file >= 0)
        ::close(m_file);
}

bool SingleInstance::prevInstance()
{
    if (holds())
        return false; // it is this object that holds it
    const int file = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        m_file = file;
        return false;
    }
    const bool heldByAnother = errno == EWOULDBLOCK;
    ::close(file);
    return heldByAnother;
}

} // namespace suisui
