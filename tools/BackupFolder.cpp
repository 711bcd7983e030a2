#include "tools/BackupFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <tuple>

#include <QCryptographicHash>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/core/Files.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;
using namespace Qt::Literals::StringLiterals;

constexpr const char* copyAside = "copy.part";
constexpr const char* noteAside = "proof.part";
constexpr std::string_view asideEnding = ".part";
constexpr const char* noteEnding = ".proof";
constexpr const char* replacedMark = "-replaced";

/// Name of a copy: its moment, its number among those of the same second, its mark.
const std::regex& copyName()
{
    static const std::regex shape(R"(trnvik-(\d{8}-\d{6})(?:-(\d{1,4}))?(-replaced)?\.mdb)");
    return shape;
}

/// Fingerprint of a file's bytes; empty when it cannot be read.
std::string fingerprint(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return {};
    return hash.result().toHex().toStdString();
}

bool writeNote(const std::string& path, const std::string& print, const CopyProof& proof)
{
    std::ofstream note(path, std::ios::trunc);
    note << "sha256 " << print << "\nfigures " << proof.figures << "\nproblems " << proof.problems << '\n';
    note.close();
    return note.good() && syncToDisk(path);
}

/// Whether \a path is the note of a copy that never got its name or has been removed.
bool isLoneNote(const std::string& path)
{
    const fs::path copy = fs::path(path).replace_extension();
    std::error_code code;
    return path.ends_with(noteEnding) && std::regex_match(copy.filename().string(), copyName())
           && !fs::exists(copy, code);
}

} // namespace

BackupFolder::BackupFolder(const std::string& folder) : m_folder(fs::absolute(folder).string()) {}

BackupFolder::~BackupFolder()
{
    if (m_lock >= 0)
        ::close(m_lock); // which releases the lock
}

bool BackupFolder::take(Fault& fault)
{
    std::error_code code;
    fs::create_directories(m_folder, code);
    m_lock = ::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_lock < 0) {
        fault = {{phrases::about, {m_folder, systemReason(errno)}}, troubleOf(errno)};
        return false;
    }
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
        fault = {{phrases::atWorkThere, {m_folder}}};
        return false;
    }
    if (::access(m_folder.c_str(), W_OK) != 0) {
        fault = {{phrases::cannotWrite, {m_folder, systemReason(errno)}}, troubleOf(errno)};
        return false;
    }
    std::vector<fs::path> left;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_folder, code)) {
        const std::string path = entry.path().string();
        if (path.ends_with(asideEnding) || isLoneNote(path))
            left.push_back(entry.path());
    }
    for (const fs::path& path : left)
        if (!removeFile(path.string())) {
            fault = {{phrases::leftOver, {path.string()}}, troubleOf(errno)};
            return false;
        }
    return true;
}

std::string BackupFolder::aside() const
{
    return pathOf(copyAside);
}

std::string BackupFolder::freeName(const QDateTime& when, Kind kind) const
{
    const std::string stamp = when.toString(u"yyyyMMdd-HHmmss"_s).toStdString();
    const std::string mark = kind == Kind::Replaced ? replacedMark : "";
    const auto named = [&](const std::string& number) {
        std::string name = "trnvik-" + stamp;
        name += number;
        name += mark;
        name += ".mdb";
        return name;
    };
    // Never the number of a copy that was removed: the newest of a second would pass for its oldest.
    int number = 0;
    for (const Copy& copy : copies())
        if (copy.stamp == stamp && copy.kind == kind)
            number = std::max(number, copy.number);
    return named(number == 0 ? std::string() : "-" + std::to_string(number + 1));
}

std::string BackupFolder::giveName(const std::string& name, Fault& fault)
{
    errno = 0;
    if (renameToNew(aside(), pathOf(name)) && syncToDisk(m_folder))
        return name;
    fault = {{phrases::notWritten, {pathOf(name)}}, troubleOf(errno)};
    return {};
}

std::string BackupFolder::keep(const QDateTime& when, Kind kind, const CopyProof& proof, Fault& fault)
{
    const std::string name = freeName(when, kind);
    const std::string note = pathOf(name + noteEnding);
    const std::string print = fingerprint(aside());
    if (print.empty() || !writeNote(pathOf(noteAside), print, proof)
        || !renameToNew(pathOf(noteAside), note)) {
        fault = {{phrases::notWritten, {note}}, troubleOf(errno)};
        return {};
    }
    std::string kept = giveName(name, fault);
    if (kept.empty())
        (void)removeFile(note);
    return kept;
}

std::string BackupFolder::keepUnread(const QDateTime& when, Fault& fault)
{
    return giveName(freeName(when, Kind::Replaced), fault);
}

std::vector<BackupFolder::Copy> BackupFolder::copies() const
{
    std::vector<Copy> found;
    std::error_code code;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_folder, code)) {
        const std::string name = entry.path().filename().string();
        std::smatch parts;
        if (std::regex_match(name, parts, copyName()))
            found.push_back({.name = name,
                             .stamp = parts[1],
                             .number = parts[2].matched ? std::stoi(parts[2]) : 1,
                             .kind = parts[3].matched ? Kind::Replaced : Kind::Regular});
    }
    std::ranges::sort(found, [](const Copy& a, const Copy& b) {
        return std::tie(a.stamp, a.number, a.name) < std::tie(b.stamp, b.number, b.name);
    });
    return found;
}

CopyProof BackupFolder::proofOf(const std::string& path)
{
    CopyProof proof;
    std::ifstream note(path + noteEnding);
    std::map<std::string, std::string> entries;
    for (std::string key, value; note >> key >> value;)
        entries[key] = value;
    const auto number = [&entries](const char* key) { return std::atoi(entries[key].c_str()); };
    if (entries["sha256"].empty())
        return proof;
    proof.figures = number("figures");
    proof.problems = number("problems");
    if (entries["sha256"] != fingerprint(path))
        proof.verdict = CopyProof::Changed;
    else
        proof.verdict = proof.problems == 0 ? CopyProof::Verified : CopyProof::BooksDoNotHold;
    return proof;
}

std::vector<std::string> BackupFolder::rotate(int count, const std::string& newest)
{
    std::vector<std::string> names;
    for (const Copy& copy : copies())
        names.push_back(copy.name);
    // After the computer's date was set back, the newest copy is not the last by name.
    if (const auto own = std::ranges::find(names, newest); own != names.end())
        std::rotate(own, own + 1, names.end());
    const auto verified = std::find_if(names.rbegin(), names.rend(), [this](const std::string& name) {
        return proofOf(pathOf(name)).verdict == CopyProof::Verified;
    });
    const std::string lastVerified = verified == names.rend() ? std::string() : *verified;
    auto tooMany = std::ssize(names) - count;
    std::vector<std::string> gone;
    for (const std::string& name : names) {
        if (tooMany <= 0 || name == newest)
            break;
        // The copy before its note, so that no copy is ever without one; a note alone means nothing.
        if (name == lastVerified || !removeFile(pathOf(name)))
            continue;
        (void)removeFile(pathOf(name + noteEnding));
        gone.push_back(name);
        --tooMany;
    }
    return gone;
}

} // namespace suisui
