// Everything that this process does to the files below a folder, as the kernel is asked for it: by the
// database engine, by Qt, by the program itself. The calls of the C library are taken over in
// DiskRecorder.cpp, so nothing in the program knows of it, and the flushes of folders that the engine makes
// by itself are seen as well, which a layer under the engine's own interface would not show.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace suisui::test {

/// Files by path below the root, with their bytes.
using DiskTree = std::map<std::string, std::string>;

[[nodiscard]] DiskTree readTree(const std::string& root);
/// Makes the files below \a root what \a tree says; folders stay.
void writeTree(const std::string& root, const DiskTree& tree);

struct DiskOp
{
    enum Kind { Write, Truncate, SyncFile, Link, Unlink, Rename, SyncFolder };
    Kind kind = Write;
    int object = 0;      ///< the file, whatever its name is at the time
    std::string path;    ///< name that is made, removed or given up; the folder of SyncFolder
    std::string newPath; ///< of Rename
    std::int64_t at = 0; ///< of Write, or the length of Truncate
    std::string bytes;
};

class DiskRecorder
{
public:
    /// Records from now on, until stop. One at a time.
    explicit DiskRecorder(const std::string& root);
    ~DiskRecorder() { stop(); }
    DiskRecorder(const DiskRecorder&) = delete;
    DiskRecorder& operator=(const DiskRecorder&) = delete;

    void stop();
    /// What was there at the beginning; object i of the calls is the i-th file in it.
    [[nodiscard]] const DiskTree& before() const { return m_before; }
    [[nodiscard]] const std::vector<DiskOp>& ops() const { return m_ops; }
    [[nodiscard]] std::size_t count();
    /// Calls that the recorder does not know what to make of. Must be empty.
    [[nodiscard]] const std::set<std::string>& missed() const { return m_missed; }

    // From the calls, with their results.
    [[nodiscard]] bool watches(std::string_view path) const;
    void opened(int handle, const std::string& path, int flags);
    void closed(int handle);
    void written(int handle, std::int64_t at, std::string_view bytes);
    void truncated(int handle, std::int64_t length);
    void synced(int handle);
    void renamed(const std::string& from, const std::string& to);
    /// \a from names an open file by its handle, as a file that was made without a name gets one.
    void linked(const std::string& from, const std::string& to);
    void unlinked(const std::string& path);
    void miss(const std::string& call);
    [[nodiscard]] std::mutex& lock() { return m_lock; }

private:
    void noteOpenFiles();
    [[nodiscard]] std::string below(const std::string& path) const { return path.substr(m_root.size() + 1); }

    std::string m_root;
    DiskTree m_before;
    std::vector<DiskOp> m_ops;
    std::map<std::string, int> m_objects; ///< by path below the root, as it is now
    std::map<int, int> m_files;           ///< objects by open handle
    std::map<int, std::string> m_folders; ///< folders by open handle
    std::set<std::string> m_missed;
    int m_objectCount = 0;
    std::mutex m_lock;
};

} // namespace suisui::test
