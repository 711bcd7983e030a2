#include "platform/core/OwnOnly.h"

#include <csignal>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr mode_t others = S_IRWXG | S_IRWXO;
constexpr const char* foldersOfData[] = {"DB", "db", "Ini", "backup", "exe"};
constexpr const char* programs[] = {"suisuitag", "tagdb"};

/// Takes the rights of others off \a path. False when it is not ours to decide.
bool close(const fs::path& path, mode_t kind)
{
    struct stat is
    {
    };
    // A link to a data folder is still the shop's folder; a linked file may be anybody's.
    const bool known = (kind == S_IFDIR ? ::stat(path.c_str(), &is) : ::lstat(path.c_str(), &is)) == 0;
    if (!known || (is.st_mode & S_IFMT) != kind || is.st_uid != ::geteuid())
        return false;
    return (is.st_mode & others) == 0 || ::chmod(path.c_str(), is.st_mode & ~others & 07777) == 0;
}

bool holdsPrograms(const fs::path& base)
{
    std::error_code code;
    for (const char* program : programs)
        if (fs::exists(base / program, code))
            return true;
    return false;
}

} // namespace

void beginProgram()
{
    ::umask(others);
    (void)std::signal(SIGXFSZ, SIG_IGN);
}

void makeOwnOnly(const std::string& base)
{
    std::error_code code;
    if (!fs::is_directory(fs::path(base) / "DB", code))
        return;
    if (!holdsPrograms(base))
        (void)close(base, S_IFDIR);
    for (const char* name : foldersOfData) {
        const fs::path folder = fs::path(base) / name;
        if (!close(folder, S_IFDIR))
            continue;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, code))
            (void)close(entry.path(), S_IFREG);
    }
}

} // namespace suisui
