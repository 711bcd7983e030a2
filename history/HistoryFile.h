// History files: what they are called, and how one comes into being without ever being half there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <QString>

namespace suisui {

/// First and last day of a saved period, "YYYYMMDD".
struct Period
{
    std::string from;
    std::string to;

    friend bool operator==(const Period&, const Period&) = default;
};

/// "RRK{from}-{to}.{extension}".
[[nodiscard]] QString historyFileName(const Period& period, const QString& extension);

/// The pattern of the files with \a extension, for those who look for them.
[[nodiscard]] QString historyFilePattern(const QString& extension);

/// The period in a file name without its extension, by position: 8 characters from the 4th and 8 from
/// the 13th. Nothing else of the name is looked at.
[[nodiscard]] Period periodOf(const QString& name);

/// The number that the file of a save carries within it, wherever it is copied: the moment of the save, \a
/// stamp. 0 for a text that is not a stamp.
[[nodiscard]] std::uint32_t historyMark(std::string_view stamp);

/// Hidden name under which the file \a path is filled, in the same folder.
[[nodiscard]] std::string asideOf(const std::string& path);

/// Gives the stored file \a aside its name \a path and flushes it; when something else has that name, the
/// next free one of the same period. False when the folder cannot be reached or written.
[[nodiscard]] bool giveName(const std::string& aside, const std::string& path);

/// A history file that is being filled under its hidden name. Unless it is kept, it is removed.
class FileInTheMaking
{
public:
    /// \a path is the name that it will get.
    explicit FileInTheMaking(const std::string& path);
    ~FileInTheMaking();
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }
    /// Where it is filled.
    [[nodiscard]] const std::string& aside() const { return m_aside; }
    /// Makes it of \a model. Throws RunTimeError under the number of the file system's failure.
    void copyFrom(const std::string& model);
    /// True once it is on the disk under its hidden name, and nothing has the name that it will get.
    [[nodiscard]] bool isStored() const;
    /// The rows may be here alone now.
    void keep() { m_kept = true; }

private:
    std::string m_path;
    std::string m_aside;
    bool m_kept = false;
};

} // namespace suisui
