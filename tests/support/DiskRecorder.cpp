#include "tests/support/DiskRecorder.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace suisui::test {

namespace {

namespace fs = std::filesystem;

std::atomic<DiskRecorder*> recorder = nullptr;

std::string folderPart(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

} // namespace

DiskTree readTree(const std::string& root)
{
    DiskTree tree;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        tree[entry.path().lexically_relative(root).string()] =
            std::string(std::istreambuf_iterator<char>(file), {});
    }
    return tree;
}

void writeTree(const std::string& root, const DiskTree& tree)
{
    std::vector<fs::path> gone;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file() && tree.count(entry.path().lexically_relative(root).string()) == 0)
            gone.push_back(entry.path());
    for (const fs::path& path : gone)
        fs::remove(path);
    for (const auto& [path, bytes] : tree)
        std::ofstream(fs::path(root) / path, std::ios::binary | std::ios::trunc) << bytes;
}

DiskRecorder::DiskRecorder(const std::string& root) : m_root(fs::canonical(root)), m_before(readTree(m_root))
{
    for (const auto& [path, bytes] : m_before)
        m_objects[path] = m_objectCount++;
    noteOpenFiles();
    recorder = this;
}

/// Files that were opened before, such as the working database.
void DiskRecorder::noteOpenFiles()
{
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the handle of this very walk
        const std::string path = fs::read_symlink(entry.path(), gone).string();
        if (watches(path))
            if (const auto file = m_objects.find(below(path)); file != m_objects.end())
                m_files[std::stoi(entry.path().filename().string())] = file->second;
    }
}

void DiskRecorder::stop()
{
    DiskRecorder* self = this;
    recorder.compare_exchange_strong(self, nullptr);
}

std::size_t DiskRecorder::count()
{
    const std::scoped_lock guard(m_lock);
    return m_ops.size();
}

bool DiskRecorder::watches(std::string_view path) const
{
    return path.substr(0, m_root.size()) == m_root
           && (path.size() == m_root.size() || path[m_root.size()] == '/');
}

void DiskRecorder::opened(int handle, const std::string& path, int flags)
{
    if ((flags & O_TMPFILE) == O_TMPFILE) {
        m_files[handle] = m_objectCount++; // without a name until it is linked
        return;
    }
    if (fs::is_directory(path)) {
        m_folders[handle] = path == m_root ? std::string() : below(path);
        return;
    }
    const std::string name = below(path);
    const auto known = m_objects.find(name);
    if (known == m_objects.end()) {
        m_objects[name] = m_objectCount;
        m_ops.push_back({DiskOp::Link, m_objectCount++, name, {}, 0, {}});
    } else if ((flags & O_TRUNC) != 0) {
        m_ops.push_back({DiskOp::Truncate, known->second, {}, {}, 0, {}});
    }
    m_files[handle] = m_objects[name];
}

void DiskRecorder::closed(int handle)
{
    m_files.erase(handle);
    m_folders.erase(handle);
}

void DiskRecorder::written(int handle, std::int64_t at, std::string_view bytes)
{
    if (const auto file = m_files.find(handle); file != m_files.end())
        m_ops.push_back({DiskOp::Write, file->second, {}, {}, at, std::string(bytes)});
}

void DiskRecorder::truncated(int handle, std::int64_t length)
{
    if (const auto file = m_files.find(handle); file != m_files.end())
        m_ops.push_back({DiskOp::Truncate, file->second, {}, {}, length, {}});
}

void DiskRecorder::synced(int handle)
{
    if (const auto file = m_files.find(handle); file != m_files.end())
        m_ops.push_back({DiskOp::SyncFile, file->second, {}, {}, 0, {}});
    else if (const auto folder = m_folders.find(handle); folder != m_folders.end())
        m_ops.push_back({DiskOp::SyncFolder, 0, folder->second, {}, 0, {}});
}

void DiskRecorder::renamed(const std::string& from, const std::string& to)
{
    if (!watches(from) || !watches(to) || folderPart(from) != folderPart(to)) {
        miss("rename between folders");
        return;
    }
    const int object = m_objects[below(from)];
    m_objects.erase(below(from));
    m_objects[below(to)] = object;
    m_ops.push_back({DiskOp::Rename, object, below(from), below(to), 0, {}});
}

void DiskRecorder::linked(const std::string& from, const std::string& to)
{
    constexpr std::string_view openFiles = "/proc/self/fd/";
    const auto file =
        from.starts_with(openFiles) ? m_files.find(std::stoi(from.substr(openFiles.size()))) : m_files.end();
    if (file == m_files.end()) {
        miss("link of a file that has a name");
        return;
    }
    m_objects[below(to)] = file->second;
    m_ops.push_back({DiskOp::Link, file->second, below(to), {}, 0, {}});
}

void DiskRecorder::unlinked(const std::string& path)
{
    const int object = m_objects[below(path)];
    m_objects.erase(below(path));
    m_ops.push_back({DiskOp::Unlink, object, below(path), {}, 0, {}});
}

void DiskRecorder::miss(const std::string& call)
{
    m_missed.insert(call);
}

namespace {

/// What a call does when somebody watches: the call itself and the note of it are one step.
template <typename Call, typename Note> auto recorded(Call call, Note note)
{
    DiskRecorder* active = recorder;
    if (active == nullptr)
        return call();
    const std::scoped_lock guard(active->lock());
    const auto result = call();
    const int error = errno;
    if (result >= 0)
        note(*active, result);
    errno = error;
    return result;
}

int openRecorded(int folder, const char* path, int flags, mode_t mode)
{
    return recorded([&] { return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode)); },
                    [&](DiskRecorder& active, int handle) {
                        if (active.watches(path))
                            active.opened(handle, path, flags);
                    });
}

ssize_t writeRecorded(int handle, const void* bytes, std::size_t count)
{
    return recorded([&] { return static_cast<ssize_t>(::syscall(SYS_write, handle, bytes, count)); },
                    [&](DiskRecorder& active, ssize_t done) {
                        const auto end = static_cast<std::int64_t>(::lseek(handle, 0, SEEK_CUR));
                        active.written(handle, end - done,
                                       {static_cast<const char*>(bytes), static_cast<std::size_t>(done)});
                    });
}

ssize_t writeAtRecorded(int handle, const void* bytes, std::size_t count, off_t at)
{
    return recorded(
        [&] { return static_cast<ssize_t>(::syscall(SYS_pwrite64, handle, bytes, count, at)); },
        [&](DiskRecorder& active, ssize_t done) {
            active.written(handle, at, {static_cast<const char*>(bytes), static_cast<std::size_t>(done)});
        });
}

int truncateRecorded(int handle, off_t length)
{
    return recorded([&] { return static_cast<int>(::syscall(SYS_ftruncate, handle, length)); },
                    [&](DiskRecorder& active, int) { active.truncated(handle, length); });
}

int syncRecorded(long call, int handle)
{
    return recorded([&] { return static_cast<int>(::syscall(call, handle)); },
                    [&](DiskRecorder& active, int) { active.synced(handle); });
}

int unlinkRecorded(int folder, const char* path, int flags)
{
    return recorded([&] { return static_cast<int>(::syscall(SYS_unlinkat, folder, path, flags)); },
                    [&](DiskRecorder& active, int) {
                        if (active.watches(path))
                            active.unlinked(path);
                    });
}

int renameRecorded(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags)
{
    return recorded(
        [&] { return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags)); },
        [&](DiskRecorder& active, int) {
            if (active.watches(from) || active.watches(to))
                active.renamed(from, to);
        });
}

int linkRecorded(int fromFolder, const char* from, int toFolder, const char* to, int flags)
{
    return recorded(
        [&] { return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags)); },
        [&](DiskRecorder& active, int) {
            if (active.watches(to))
                active.linked(from, to);
        });
}

/// The mode of an open, which is only there when a file may be made.
mode_t modeOf(int flags, va_list& arguments)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(arguments, mode_t) : 0;
}

} // namespace

} // namespace suisui::test

// The calls of the C library that change files, in place of its own: a program's symbols come before a
// library's. NOLINTBEGIN(cert-dcl50-cpp, cppcoreguidelines-pro-type-vararg)
using namespace suisui::test;

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openRecorded(AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openRecorded(AT_FDCWD, path, flags, mode);
}

int close(int handle)
{
    DiskRecorder* active = recorder;
    if (active != nullptr) {
        const std::scoped_lock guard(active->lock());
        active->closed(handle);
    }
    return static_cast<int>(::syscall(SYS_close, handle));
}

ssize_t write(int handle, const void* bytes, size_t count)
{
    return writeRecorded(handle, bytes, count);
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t at)
{
    return writeAtRecorded(handle, bytes, count, at);
}

ssize_t pwrite64(int handle, const void* bytes, size_t count, off64_t at)
{
    return writeAtRecorded(handle, bytes, count, at);
}

int ftruncate(int handle, off_t length) noexcept
{
    return truncateRecorded(handle, length);
}

int ftruncate64(int handle, off64_t length) noexcept
{
    return truncateRecorded(handle, length);
}

int fsync(int handle)
{
    return syncRecorded(SYS_fsync, handle);
}

int fdatasync(int handle)
{
    return syncRecorded(SYS_fdatasync, handle);
}

int unlink(const char* path) noexcept
{
    return unlinkRecorded(AT_FDCWD, path, 0);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    return unlinkRecorded(folder, path, flags);
}

int remove(const char* path) noexcept
{
    const int removed = unlinkRecorded(AT_FDCWD, path, 0);
    return removed != 0 && errno == EISDIR ? unlinkRecorded(AT_FDCWD, path, AT_REMOVEDIR) : removed;
}

int rename(const char* from, const char* to) noexcept
{
    return renameRecorded(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    return renameRecorded(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept
{
    return linkRecorded(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return linkRecorded(fromFolder, from, toFolder, to, flags);
}

} // extern "C"
// NOLINTEND(cert-dcl50-cpp, cppcoreguidelines-pro-type-vararg)
