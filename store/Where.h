// Conditions that name one code.
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

/// Whether a scanned or typed text can be a code at all. One that holds a quote is never registered.
[[nodiscard]] inline bool canBeCode(std::string_view text)
{
    return !text.empty() && text.find('\'') == std::string_view::npos;
}

} // namespace suisui
