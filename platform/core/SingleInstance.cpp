#include "platform/core/SingleInstance.h"

#include <QLockFile>

namespace suisui {

SingleInstance::SingleInstance(const QString& baseFolder)
    : m_lock(std::make_unique<QLockFile>(baseFolder + QStringLiteral("/.suisuitag.lock")))
{
    m_lock->setStaleLockTime(0); // never stale by age: the program runs all day
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::prevInstance()
{
    if (m_lock->isLocked())
        return false; // it is this object that holds it
    return !m_lock->tryLock(0) && m_lock->error() == QLockFile::LockFailedError;
}

bool SingleInstance::holds() const
{
    return m_lock->isLocked();
}

} // namespace suisui
