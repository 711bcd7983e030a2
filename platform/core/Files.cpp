#include "platform/core/Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace suisui {

namespace {

constexpr struct
{
    int code;
    RunTimeError::Number number;
} numbers[] = {
    {ENOMEM, RunTimeError::OutOfMemory},       {EIO, RunTimeError::DeviceNotReady},
    {ENXIO, RunTimeError::DeviceNotReady},     {ENODEV, RunTimeError::DeviceNotReady},
    {ENOMEDIUM, RunTimeError::DeviceNotReady}, {ESTALE, RunTimeError::DeviceNotReady},
    {ETIMEDOUT, RunTimeError::DeviceNotReady}, {ENOTCONN, RunTimeError::DeviceNotReady},
    {EHOSTDOWN, RunTimeError::DeviceNotReady}, {EHOSTUNREACH, RunTimeError::DeviceNotReady},
    {EREMOTEIO, RunTimeError::DeviceNotReady}, {EEXIST, RunTimeError::FileAlreadyExists},
    {ENOSPC, RunTimeError::DiskFull},          {EDQUOT, RunTimeError::DiskFull},
    {EFBIG, RunTimeError::DiskFull}, // a quota on the size of a file
    {EACCES, RunTimeError::PermissionDenied},  {EPERM, RunTimeError::PermissionDenied},
    {EROFS, RunTimeError::PathAccessError},    {EISDIR, RunTimeError::PathAccessError},
    {ENOENT, RunTimeError::PathNotFound},      {ENOTDIR, RunTimeError::PathNotFound},
};

/// An open file, closed with the object.
class Handle
{
public:
    Handle(const std::string& path, int flags) : m_handle(::open(path.c_str(), flags | O_CLOEXEC, 0664)) {}
    ~Handle() { (void)close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] bool isOpen() const { return m_handle >= 0; }
    [[nodiscard]] int get() const { return m_handle; }
    /// A network file system may report only now that there was no room.
    [[nodiscard]] bool close()
    {
        const bool good = m_handle < 0 || ::close(m_handle) == 0;
        m_handle = -1;
        return good;
    }

private:
    int m_handle;
};

[[noreturn]] void fail(int code, const std::string& path)
{
    throw RunTimeError(runTimeNumber(code), path + ": " + std::strerror(code));
}

bool writeAll(int handle, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(handle, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

bool copyBytes(const Handle& source, const Handle& target)
{
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t count = ::read(source.get(), block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        if (!writeAll(target.get(), block.data(), static_cast<std::size_t>(count)))
            return false;
    }
}

} // namespace

RunTimeError::Number runTimeNumber(int code)
{
    for (const auto& entry : numbers)
        if (entry.code == code)
            return entry.number;
    return RunTimeError::InternalError;
}

void copyFile(const std::string& from, const std::string& to)
{
    const Handle source(from, O_RDONLY);
    if (!source.isOpen()) {
        if (errno == ENOENT)
            throw RunTimeError(RunTimeError::FileNotFound, from);
        fail(errno, from);
    }
    Handle target(to, O_CREAT | O_EXCL | O_WRONLY);
    if (!target.isOpen())
        fail(errno, to);
    if (!copyBytes(source, target) || !target.close()) {
        const int code = errno;
        ::unlink(to.c_str());
        fail(code, to);
    }
}

bool makeEmptyFile(const std::string& path)
{
    return Handle(path, O_CREAT | O_EXCL | O_WRONLY).isOpen();
}

bool syncToDisk(const std::string& path)
{
    const Handle handle(path, O_RDONLY);
    return handle.isOpen() && (::fsync(handle.get()) == 0 || errno == EINVAL || errno == ENOTSUP);
}

bool renameToNew(const std::string& from, const std::string& to)
{
    bool moved = ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
    if (!moved && (errno == EINVAL || errno == ENOSYS)) // a file system that cannot promise it by itself
        moved = ::access(to.c_str(), F_OK) != 0 && ::rename(from.c_str(), to.c_str()) == 0;
    return moved;
}

bool storeAs(const std::string& aside, const std::string& path)
{
    return syncToDisk(aside) && renameToNew(aside, path) && syncToDisk(folderOf(path));
}

bool removeFile(const std::string& path)
{
    if (::unlink(path.c_str()) != 0)
        return errno == ENOENT;
    return syncToDisk(folderOf(path));
}

std::string folderOf(const std::string& path)
{
    const std::filesystem::path whole(path);
    return whole.has_parent_path() ? whole.parent_path().string() : ".";
}

} // namespace suisui
