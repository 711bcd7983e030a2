// Comma-separated values as RFC 4180 has them: quoted fields, doubled quotes, CR LF or LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Texts.h"

namespace suisui {

/// Reads records one after the other.
class CsvReader
{
public:
    explicit CsvReader(std::string_view text) : m_text(text) {}

    /// The next record; none at the end or after a fault (see error()).
    [[nodiscard]] std::optional<std::vector<std::string>> next();
    /// Line, counted from 1, on which the last record began.
    [[nodiscard]] int line() const { return m_recordLine; }
    /// What is wrong with the text, with line and column; empty when nothing is.
    [[nodiscard]] const Message& error() const { return m_error; }

private:
    [[nodiscard]] std::optional<std::string> quotedField();
    struct Place
    {
        int line;
        std::size_t column; ///< in bytes, from 1
    };
    [[nodiscard]] Place here() const { return {m_line, m_at - m_lineStart + 1}; }
    void fault(const Place& place, const Phrase& what);

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_lineStart = 0;
    int m_line = 1;
    int m_recordLine = 1;
    Message m_error;
};

/// One record with its CR LF; fields are quoted where they need it.
[[nodiscard]] std::string csvRecord(const std::vector<std::string_view>& fields);

} // namespace suisui
