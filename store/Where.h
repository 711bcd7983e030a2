// Conditions: texts in quotes, one code, and whether an order is asked for.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

/// \a text in single quotes. Quotes within it are doubled, so that a condition never means anything else.
[[nodiscard]] inline std::string inQuotes(std::string_view text)
{
    std::string result = "'";
    for (const char c : text) {
        result += c;
        if (c == '\'')
            result += c;
    }
    result += '\'';
    return result;
}

/// "WHERE Code='{code}'", for a code that stands in the database.
[[nodiscard]] inline std::string whereCode(std::string_view code)
{
    return "WHERE Code=" + inQuotes(code);
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
