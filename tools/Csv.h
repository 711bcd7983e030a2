// Comma-separated values as RFC 4180 has them: quoted fields, doubled quotes, CR LF or LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace suisui {

/// Where something stands in a text; both counted from 1, the column in characters.
struct CsvPlace
{
    int line = 1;
    int column = 1;
};

/// "line 3, column 12"
[[nodiscard]] std::string textOf(const CsvPlace& place);

struct CsvField
{
    std::string text;
    CsvPlace place;
};

/// Reads records one after the other. Blank lines are passed over.
class CsvReader
{
public:
    explicit CsvReader(std::string_view text) : m_text(text) {}

    /// Next record; nothing at the end or at a fault (see error()).
    [[nodiscard]] std::optional<std::vector<CsvField>> next();
    /// What is wrong with the text, with line and column; empty when nothing is.
    [[nodiscard]] const std::string& error() const { return m_error; }

private:
    [[nodiscard]] bool atLineEnd() const;
    void passLineEnd();
    [[nodiscard]] std::optional<std::string> field();
    [[nodiscard]] std::optional<std::string> quotedField();
    [[nodiscard]] CsvPlace place() const;
    void fault(const CsvPlace& where, const std::string& what);

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_lineStart = 0;
    int m_line = 1;
    std::string m_error;
};

/// One record with its CR LF; fields are quoted where they need it.
[[nodiscard]] std::string csvRecord(const std::vector<std::string_view>& fields);

} // namespace suisui
