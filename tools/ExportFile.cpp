#include "tools/ExportFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

#include <unistd.h>

#include "platform/core/Files.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

/// The first bytes of the files of a database: the engine's own, its journals, and those of older programs.
constexpr std::string_view beginnings[] = {
    "SQLite format 3\0"sv, "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7"sv, "\x37\x7F\x06\x82"sv,
    "\x37\x7F\x06\x83"sv,  "\0\1\0\0Standard Jet DB"sv,          "\0\1\0\0Standard ACE DB"sv,
    "sha256 "sv, // the note of a copy
};
/// Endings of names that the engine takes for a part of a database, and those of databases and their notes.
constexpr std::string_view endings[] = {"-journal", "-wal", "-shm", ".mdb", ".mdb.proof"};
constexpr const char* foldersOfShop[] = {"DB", "db", "Ini", "backup"};

/// The file that \a path leads to in the end, even when it is a link to a file that does not exist yet.
fs::path whereItLeads(fs::path path)
{
    constexpr int mostLinks = 40;
    std::error_code code;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, code); ++i) {
        const fs::path to = fs::read_symlink(path, code);
        path = to.is_absolute() ? to : path.parent_path() / to;
    }
    return fs::weakly_canonical(fs::absolute(path, code), code);
}

bool isInFolderOfShop(const fs::path& file, const std::string& base)
{
    std::error_code code;
    return std::ranges::any_of(foldersOfShop, [&](const char* name) {
        const fs::path folder = fs::weakly_canonical(fs::absolute(fs::path(base) / name, code), code);
        return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first == folder.end();
    });
}

bool belongsToDatabase(const fs::path& file)
{
    const std::string name = file.filename().string();
    if (std::ranges::any_of(endings, [&](std::string_view ending) { return name.ends_with(ending); }))
        return true;
    std::array<char, 32> block{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(block.data(), block.size());
    const std::string_view start(block.data(), static_cast<std::size_t>(stream.gcount()));
    return std::ranges::any_of(beginnings,
                               [&](std::string_view beginning) { return start.starts_with(beginning); });
}

Message failed(const fs::path& file, int code)
{
    return {phrases::cannotWrite, {file.string(), systemReason(code)}};
}

/// Writes into a device or a pipe, which cannot be replaced by a renamed file.
Message pour(const fs::path& file, const std::string& text)
{
    std::ofstream stream(file, std::ios::binary);
    stream << text << std::flush;
    return stream.good() ? Message() : failed(file, errno);
}

/// Writes \a text to a new file beside \a file and flushes it; returns its name. Empty, with the reason in
/// errno, when that fails.
std::string writtenAside(const fs::path& file, const std::string& text)
{
    std::string aside = (file.parent_path() / ("." + file.filename().string() + ".XXXXXX")).string();
    const int handle = ::mkostemp(aside.data(), 0); // readable by its owner alone
    if (handle < 0)
        return {};
    ::close(handle);
    std::ofstream stream(aside, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (stream.good() && syncToDisk(aside))
        return aside;
    const int code = errno;
    (void)removeFile(aside);
    errno = code;
    return {};
}

} // namespace

Message writeExport(const std::string& base, const ExportOrder& order, const std::string& text)
{
    const fs::path file = whereItLeads(order.file);
    std::error_code code;
    const bool isThere = fs::exists(file, code);
    if (isInFolderOfShop(file, base))
        return {phrases::folderOfShop, {order.file}};
    if (isThere && fs::is_directory(file, code))
        return failed(order.file, EISDIR);
    if (isThere && !fs::is_regular_file(file, code))
        return pour(order.file, text);
    if (belongsToDatabase(file))
        return {phrases::neverReplaced, {order.file}};
    if (isThere && !order.replaceOther)
        return {phrases::fileIsThere, {order.file}};
    const std::string aside = writtenAside(file, text);
    if (aside.empty())
        return failed(order.file, errno);
    const bool placed =
        order.replaceOther ? ::rename(aside.c_str(), file.c_str()) == 0 : renameToNew(aside, file.string());
    const int reason = errno;
    if (!placed) {
        (void)removeFile(aside);
        return reason == EEXIST ? Message(phrases::fileIsThere, {order.file}) : failed(order.file, reason);
    }
    return syncToDisk(file.parent_path().string()) ? Message() : failed(order.file, errno);
}

} // namespace suisui
