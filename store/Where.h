// Conditions: one code, and whether an order is asked for.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

/// "WHERE Code='{code}'". Quotes in a code that stands in the database are doubled, so that the condition
/// never means anything else.
[[nodiscard]] inline std::string whereCode(std::string_view code)
{
    std::string where = "WHERE Code='";
    for (const char c : code) {
        where += c;
        if (c == '\'')
            where += c;
    }
    where += '\'';
    return where;
}

/// Whether a scanned or typed text can be a code at all. One that holds a quote or a control character is
/// never registered.
[[nodiscard]] inline bool canBeCode(std::string_view text)
{
    for (const char c : text)
        if (c == '\'' || static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            return false;
    return !text.empty();
}

/// Whether the text of a condition brings its order with it.
[[nodiscard]] inline bool holdsOrder(std::string_view where)
{
    std::string upper;
    for (const char c : where)
        upper += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper.find("ORDER BY") != std::string::npos;
}

} // namespace suisui
