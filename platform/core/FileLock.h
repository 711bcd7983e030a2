// A lock on a file that says which program is at work, where its window cannot be looked for. It is flock's
// (flock(2)): it belongs to a program for as long as that lives and goes with it, however that ends, by a
// kill or a power cut as well. The file itself stays and means nothing.
#pragma once

#include <QString>

namespace suisui {

/// True when a living program holds the lock on \a path. A file that is missing is not locked.
[[nodiscard]] bool isLocked(const QString& path);

/// Who keeps the lock.
enum class LockKeeper {
    ThisProgram,     ///< nobody but the object
    StartedPrograms, ///< the object, and every program that is started while it lives
};

class FileLock
{
public:
    /// Takes the lock on \a path and makes the file, readable for its owner alone, if need be. Holds nothing
    /// when that cannot be done, the file system has no locks, or somebody else has the lock.
    FileLock(const QString& path, LockKeeper keeper);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    [[nodiscard]] bool held() const { return m_file >= 0; }
    /// Whether somebody else had the lock.
    [[nodiscard]] bool heldByAnother() const { return m_heldByAnother; }

private:
    int m_file = -1;
    bool m_heldByAnother = false;
};

} // namespace suisui
