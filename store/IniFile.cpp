#include "store/IniFile.h"

#include <algorithm>

#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "platform/core/CodePage.h"
#include "platform/core/Files.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// \a text without the blanks around it; full-width blanks are part of a text.
QStringView stripped(QStringView text)
{
    const auto blank = [](QChar c) { return c == u' ' || c == u'\t' || c == u'\r'; };
    while (!text.isEmpty() && blank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && blank(text.back()))
        text.chop(1);
    return text;
}

QString unquoted(QStringView value)
{
    if (value.size() >= 2 && value.front() == u'"' && value.back() == u'"')
        value = value.sliced(1, value.size() - 2);
    return value.toString();
}

QString quotedIfNeeded(const QString& value)
{
    const bool looksQuoted = value.size() >= 2 && value.front() == u'"' && value.back() == u'"';
    return looksQuoted || stripped(value) != value ? u'"' + value + u'"' : value;
}

/// Decodes a file by the encoding of most of its Japanese lines, so that one damaged character does not
/// garble the rest. Bytes that are not text become U+FFFD.
QString decoded(QByteArray bytes)
{
    bytes.replace('\0', QByteArray()); // a power cut may leave blocks of zeros
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    if (bytes.isValidUtf8())
        return QString::fromUtf8(bytes);
    int good = 0;
    int bad = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        if (!line.isValidUtf8())
            ++bad;
        else if (std::any_of(line.begin(), line.end(), [](char c) { return (c & 0x80) != 0; }))
            ++good;
    }
    return good >= bad ? QString::fromUtf8(bytes) : QString::fromStdString(fromCp932(bytes.toStdString()));
}

bool same(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

bool IniFile::load(const QString& path)
{
    m_path = path;
    m_lines.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return !QFileInfo(path).isSymLink() && !file.exists();
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return false;
    parse(decoded(bytes));
    return true;
}

void IniFile::parse(QStringView text)
{
    m_lines.clear();
    QString section;
    for (const QStringView each : text.tokenize(u'\n')) {
        QStringView line = each;
        if (line.endsWith(u'\r'))
            line.chop(1);
        const QStringView content = stripped(line);
        const bool heading = content.startsWith(u'[');
        // Lines under a damaged heading belong to no section, least of all to the previous one.
        if (heading)
            section =
                stripped(content.sliced(1, std::max<qsizetype>(content.indexOf(u']'), 1) - 1)).toString();
        Line parsed{line.toString(), section, {}, {}};
        const qsizetype equals = content.indexOf(u'=');
        if (!heading && !content.startsWith(u';') && equals > 0
            && !content.contains(QChar::ReplacementCharacter)) {
            parsed.key = stripped(content.first(equals)).toString();
            parsed.value = unquoted(stripped(content.sliced(equals + 1)));
        }
        m_lines.push_back(std::move(parsed));
    }
    while (!m_lines.empty() && m_lines.back().text.isEmpty())
        m_lines.pop_back();
}

std::optional<QString> IniFile::value(QStringView section, QStringView key) const
{
    for (const Line& line : m_lines)
        if (!line.key.isEmpty() && same(line.section, section) && same(line.key, key))
            return line.value;
    return std::nullopt;
}

bool IniFile::setValue(const QString& section, const QString& key, const QString& value)
{
    return setValues(section, {{key, value}});
}

bool IniFile::setValues(const QString& section, const std::vector<std::pair<QString, QString>>& values)
{
    if (m_path.isEmpty())
        return false;
    IniFile now; // the master-data program may have written since this was read
    if (!now.load(m_path))
        return false; // a file that cannot be read must not be replaced by one value
    for (const auto& [key, value] : values)
        now.put(section, key, value);
    if (!save(now.m_lines))
        return false;
    m_lines = std::move(now.m_lines);
    return true;
}

void IniFile::put(const QString& section, const QString& key, const QString& value)
{
    QString oneLine = value;
    oneLine.remove(u'\n').remove(u'\r').remove(QChar(u'\0'));
    const Line line{key + u'=' + quotedIfNeeded(oneLine), section, key, oneLine};
    const auto at = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& each) {
        return same(each.section, section) && same(each.key, key);
    });
    if (at != m_lines.end()) {
        *at = line;
        return;
    }
    const auto last = std::find_if(m_lines.rbegin(), m_lines.rend(), [&](const Line& each) {
        return same(each.section, section) && !each.text.isEmpty();
    });
    if (last != m_lines.rend()) {
        m_lines.insert(last.base(), line);
        return;
    }
    m_lines.push_back({u'[' + section + u']', section, {}, {}});
    m_lines.push_back(line);
}

bool IniFile::save(const std::vector<Line>& lines) const
{
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (const Line& line : lines)
        file.write((line.text + u"\r\n"_s).toUtf8());
    // The class does not report when the disk has not taken the data, so this is checked here.
    if (!file.flush() || ::fsync(file.handle()) != 0)
        file.cancelWriting();
    if (!file.commit())
        return false;
    // A rename is on the disk only when its folder has been flushed.
    (void)syncToDisk(QFile::encodeName(QFileInfo(m_path).absolutePath()).toStdString());
    return true;
}

} // namespace suisui
