#include "tools/Csv.h"

#include <algorithm>

namespace suisui {

std::string textOf(const CsvPlace& place)
{
    return "line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
}

CsvPlace CsvReader::place() const
{
    const std::string_view before = m_text.substr(m_lineStart, m_at - m_lineStart);
    const auto characters = std::count_if(before.begin(), before.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; // UTF-8: not inside a character
    });
    return {m_line, static_cast<int>(characters) + 1};
}

void CsvReader::fault(const CsvPlace& where, const std::string& what)
{
    m_error = textOf(where) + ": " + what;
}

bool CsvReader::atLineEnd() const
{
    const std::string_view rest = m_text.substr(m_at);
    return rest.starts_with('\n') || rest.starts_with("\r\n");
}

void CsvReader::passLineEnd()
{
    m_at = m_text.find('\n', m_at) + 1;
    m_lineStart = m_at;
    ++m_line;
}

std::optional<std::string> CsvReader::quotedField()
{
    const CsvPlace begin = place();
    std::string text;
    ++m_at;
    while (m_at < m_text.size()) {
        const char c = m_text[m_at++];
        if (c == '"') {
            if (m_at >= m_text.size() || m_text[m_at] != '"')
                return text;
            ++m_at;
        } else if (c == '\n') {
            ++m_line;
            m_lineStart = m_at;
        }
        text += c;
    }
    fault(begin, "a quoted field has no end");
    return std::nullopt;
}

std::optional<std::string> CsvReader::field()
{
    if (m_at < m_text.size() && m_text[m_at] == '"')
        return quotedField();
    const std::size_t end = std::min(m_text.find_first_of(",\r\n\"", m_at), m_text.size());
    std::string text(m_text.substr(m_at, end - m_at));
    m_at = end;
    return text;
}

std::optional<std::vector<CsvField>> CsvReader::next()
{
    while (m_error.empty() && m_at < m_text.size() && atLineEnd())
        passLineEnd();
    if (!m_error.empty() || m_at >= m_text.size())
        return std::nullopt;
    std::vector<CsvField> fields;
    while (true) {
        const CsvPlace begin = place();
        auto text = field();
        if (!text)
            return std::nullopt;
        fields.push_back({std::move(*text), begin});
        if (m_at >= m_text.size())
            return fields;
        if (atLineEnd()) {
            passLineEnd();
            return fields;
        }
        if (m_text[m_at] != ',') {
            fault(place(), "a field ends with something else than a comma or the end of the line");
            return std::nullopt;
        }
        ++m_at;
    }
}

std::string csvRecord(const std::vector<std::string_view>& fields)
{
    std::string record;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            record += ',';
        // An empty only field would be a blank line.
        const bool quoted = fields[i].find_first_of(",\"\r\n") != std::string_view::npos
                            || (fields.size() == 1 && fields[i].empty());
        if (!quoted) {
            record += fields[i];
            continue;
        }
        record += '"';
        for (const char c : fields[i]) {
            record += c;
            if (c == '"')
                record += c;
        }
        record += '"';
    }
    return record += "\r\n";
}

} // namespace suisui
