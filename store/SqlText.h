// A statement, or a part of one, and the texts that are bound to its question marks. What was typed, scanned
// or read from a table goes in as a bound text only, so it never changes what a statement means, and one
// prepared statement serves all codes and dates:
//
//     rows.Select("WHERE NyuDate >= " + bound(from) + " AND Code = " + bound(code) + " ORDER BY NyuTime");
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace suisui {

class SqlText
{
public:
    SqlText() = default;
    // A text without a question mark is a statement as it is.
    SqlText(const char* text) : m_text(text) {}
    SqlText(std::string_view text) : m_text(text) {}
    SqlText(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& text() const { return m_text; }
    /// In the order of the question marks.
    [[nodiscard]] const std::vector<std::string>& values() const { return m_values; }

    SqlText& operator+=(const SqlText& more)
    {
        m_text += more.m_text;
        m_values.insert(m_values.end(), more.m_values.begin(), more.m_values.end());
        return *this;
    }
    friend SqlText operator+(SqlText left, const SqlText& right) { return std::move(left += right); }
    friend SqlText bound(std::string_view value);

private:
    std::string m_text;
    std::vector<std::string> m_values;
};

/// A question mark with \a value bound to it.
[[nodiscard]] inline SqlText bound(std::string_view value)
{
    SqlText mark("?");
    mark.m_values.emplace_back(value);
    return mark;
}

} // namespace suisui
