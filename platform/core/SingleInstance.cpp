// Not QLockFile: it also refuses while the file exists and says nothing of its owner, which is what a kill or
// a power cut between making the file and writing it leaves. Nobody could start the program again.
#include "platform/core/SingleInstance.h"

namespace suisui {

SingleInstance::SingleInstance(const QString& baseFolder)
    : m_path(baseFolder + QStringLiteral("/.suisuitag.lock"))
{
}

bool SingleInstance::prevInstance()
{
    if (holds())
        return false; // it is this object that holds it
    m_lock.emplace(m_path, LockKeeper::ThisProgram);
    return m_lock->heldByAnother();
}

} // namespace suisui
