#include "tools/Csv.h"

#include "tools/Phrases.h"

namespace suisui {

void CsvReader::fault(const Place& place, const Phrase& what)
{
    m_error = {phrases::atPlace, {std::to_string(place.line), std::to_string(place.column), what}};
}

std::optional<std::string> CsvReader::quotedField()
{
    std::string field;
    const Place open = here(); // the place to report when the field runs on to the end of the file
    ++m_at;
    while (m_at < m_text.size()) {
        const char c = m_text[m_at];
        if (c == '"') {
            if (m_at + 1 >= m_text.size() || m_text[m_at + 1] != '"') {
                ++m_at;
                return field;
            }
            ++m_at;
        } else if (c == '\n') {
            ++m_line;
            m_lineStart = m_at + 1;
        }
        field += c;
        ++m_at;
    }
    fault(open, phrases::quoteWithoutEnd);
    return std::nullopt;
}

std::optional<std::vector<std::string>> CsvReader::next()
{
    if (m_at >= m_text.size() || !m_error.empty())
        return std::nullopt;
    m_recordLine = m_line;
    std::vector<std::string> fields;
    while (true) {
        if (m_at < m_text.size() && m_text[m_at] == '"') {
            auto field = quotedField();
            if (!field)
                return std::nullopt;
            fields.push_back(std::move(*field));
        } else {
            const std::size_t end = std::min(m_text.find_first_of(",\r\n\"", m_at), m_text.size());
            fields.emplace_back(m_text.substr(m_at, end - m_at));
            m_at = end;
        }
        if (m_at >= m_text.size())
            return fields;
        if (m_text[m_at] == ',') {
            ++m_at;
            continue;
        }
        if (m_text[m_at] == '\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == '\n')
            ++m_at;
        if (m_text[m_at] != '\n') {
            fault(here(), m_text[m_at] == '\r' ? phrases::oldMacLines : phrases::textAfterQuote);
            return std::nullopt;
        }
        ++m_at;
        ++m_line;
        m_lineStart = m_at;
        return fields;
    }
}

std::string csvRecord(const std::vector<std::string_view>& fields)
{
    std::string record;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            record += ',';
        if (fields[i].find_first_of(",\"\r\n") == std::string_view::npos) {
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
