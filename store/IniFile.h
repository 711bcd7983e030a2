// A plain initialisation file: sections, keys, values, comments. Read tolerantly (UTF-8, else code page 932;
// a damaged line is skipped), written in UTF-8 and atomically: a power cut leaves the old file or the new
// one.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include <QString>

namespace suisui {

class IniFile
{
public:
    /// Reads \a path. A file that is missing or cannot be read is empty; false only for the latter.
    bool load(const QString& path);
    /// Takes \a text as the content, without a file.
    void parse(QStringView text);

    /// The value of \a key in \a section, names without regard to case; none when it is not there. Blanks
    /// around a value are dropped unless it is in double quotes; full-width blanks stay.
    [[nodiscard]] std::optional<QString> value(QStringView section, QStringView key) const;

    /// Sets a value and replaces the file. False when it could not be written; file and object are then
    /// unchanged. What another program has written meanwhile is kept, and so are comments and the order.
    bool setValue(const QString& section, const QString& key, const QString& value);
    /// Several values of one section in one replacement of the file.
    bool setValues(const QString& section, const std::vector<std::pair<QString, QString>>& values);

private:
    struct Line
    {
        QString text;    ///< as in the file
        QString section; ///< the section that the line belongs to
        QString key;     ///< empty: a comment, a heading or a damaged line
        QString value;
    };

    void put(const QString& section, const QString& key, const QString& value);
    [[nodiscard]] bool save(const std::vector<Line>& lines) const;

    QString m_path;
    std::vector<Line> m_lines;
};

} // namespace suisui
