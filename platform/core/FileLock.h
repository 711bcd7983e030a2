// A lock on a file that says which program is at work, where its window cannot be looked for. It is flock's:
// it belongs to a program for as long as that lives and goes with it, however it ends; what it has started
// may keep it. The file itself stays and means nothing.
#pragma once

#include <QString>

namespace suisui {

/// True when a living program holds the lock on \a path. A file that is missing is not locked.
[[nodiscard]] bool isLocked(const QString& path);

/// A lock held by this object, and by every program that is started while it lives.
class InheritedLock
{
public:
    /// Takes the lock on \a path and makes the file if need be. Holds nothing when that cannot be done, or
    /// somebody else has the lock.
    explicit InheritedLock(const QString& path);
    ~InheritedLock();
    InheritedLock(const InheritedLock&) = delete;
    InheritedLock& operator=(const InheritedLock&) = delete;

    [[nodiscard]] bool held() const { return m_file >= 0; }

private:
    int m_file = -1;
};

} // namespace suisui
