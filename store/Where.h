// Texts of conditions: quoting, the condition for a code, and whether an order is included.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

/// \a text in single quotes, with quotes in it doubled, so that it cannot change the meaning of a condition.
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

/// "WHERE Code='{code}'".
[[nodiscard]] inline std::string whereCode(std::string_view code)
{
    return "WHERE Code=" + inQuotes(code);
}

/// Whether a scanned or typed text can be a code at all. No registered code has a quote or a control
/// character.
[[nodiscard]] inline bool canBeCode(std::string_view text)
{
    for (const char c : text)
        if (c == '\'' || static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            return false;
    return !text.empty();
}

/// Whether the text of a condition includes an order.
[[nodiscard]] inline bool holdsOrder(std::string_view where)
{
    std::string upper;
    for (const char c : where)
        upper += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper.find("ORDER BY") != std::string::npos;
}

} // namespace suisui
