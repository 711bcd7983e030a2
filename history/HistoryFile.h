// History files: what they are called, and how one comes into being without ever being half there.
#pragma once

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

/// The period that a file name without its extension tells by position: 8 characters from the 4th and 8 from
/// the 13th. Nothing else of the name is looked at.
[[nodiscard]] Period periodOf(const QString& name);

/// A history file that is being filled. It carries a name aside, hidden from those who choose files, until
/// all its rows are on the disk; then it gets its own. Unless it is kept, it leaves nothing behind.
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
    /// Gives it its name. False when something has that name meanwhile, or the disk refuses.
    [[nodiscard]] bool putInPlace();
    /// The rows live here now.
    void keep() { m_kept = true; }

private:
    std::string m_path;
    std::string m_aside;
    bool m_inPlace = false;
    bool m_kept = false;
};

} // namespace suisui
