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

namespace suisui {

namespace {

namespace fs = std::filesystem;
using namespace Qt::Literals::StringLiterals;

constexpr const char* copyAside = "copy.part";
constexpr const char* noteAside = "proof.part";
constexpr std::string_view asideEnding = ".part";
constexpr const char* noteEnding = ".proof";
constexpr const char* replacedMark = "-replaced";

/// The names of copies: the moment, the number among those of one second, the mark.
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

/// Whether \a path is the note of a copy that never got its name, or has gone already.
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
        ::close(m_lock); // and with it goes the lock
}

bool BackupFolder::take(std::string& why)
{
    std::error_code code;
    fs::create_directories(m_folder, code);
    m_lock = ::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_lock < 0) {
        why = m_folder + ": " + std::strerror(errno);
        return false;
    }
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
        why = m_folder + ": another backup or restore is at work there";
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
            why = path.string() + " is left from a run that was cut short and cannot be removed";
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
    const std::string stem = u"trnvik-"_s.toStdString() + when.toString(u"yyyyMMdd-HHmmss"_s).toStdString();
    const std::string mark = kind == Kind::Replaced ? replacedMark : "";
    const auto named = [&](const std::string& number) {
        std::string name = stem;
        name += number;
        name += mark;
        name += ".mdb";
        return name;
    };
    std::string name = named({});
    for (int number = 2; fs::exists(pathOf(name)) || fs::exists(pathOf(name + noteEnding)); ++number)
        name = named("-" + std::to_string(number));
    return name;
}

std::string BackupFolder::giveName(const std::string& name, std::string& why)
{
    if (renameToNew(aside(), pathOf(name)) && syncToDisk(m_folder))
        return name;
    why = pathOf(name) + " cannot be written";
    return {};
}

std::string BackupFolder::keep(const QDateTime& when, Kind kind, const CopyProof& proof, std::string& why)
{
    const std::string name = freeName(when, kind);
    const std::string note = pathOf(name + noteEnding);
    const std::string print = fingerprint(aside());
    if (print.empty() || !writeNote(pathOf(noteAside), print, proof)
        || !renameToNew(pathOf(noteAside), note)) {
        why = note + " cannot be written";
        return {};
    }
    std::string kept = giveName(name, why);
    if (kept.empty())
        (void)removeFile(note);
    return kept;
}

std::string BackupFolder::keepUnread(const QDateTime& when, std::string& why)
{
    return giveName(freeName(when, Kind::Replaced), why);
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
        proof.verdict = proof.problems == 0 ? CopyProof::Proved : CopyProof::BooksDoNotHold;
    return proof;
}

std::vector<std::string> BackupFolder::rotate(int count, const std::string& newest)
{
    enum Group { Good, Doubtful, Kept };
    std::map<Group, std::vector<std::string>> groups;
    for (const Copy& copy : copies()) {
        const bool proved = proofOf(pathOf(copy.name)).verdict == CopyProof::Proved;
        groups[copy.kind == Kind::Replaced ? Kept : (proved ? Good : Doubtful)].push_back(copy.name);
    }
    std::vector<std::string> gone;
    for (auto& [group, names] : groups) {
        // Where the computer's date was set back, the newest copy is not the last by name.
        if (const auto own = std::ranges::find(names, newest); own != names.end())
            std::rotate(own, own + 1, names.end());
        for (std::size_t i = 0; i + static_cast<std::size_t>(count) < names.size(); ++i) {
            // The copy before its note, so that none is ever without one; a note alone means nothing.
            if (!removeFile(pathOf(names[i])))
                continue;
            (void)removeFile(pathOf(names[i] + noteEnding));
            gone.push_back(names[i]);
        }
    }
    return gone;
}

} // namespace suisui
