// Conditions: one code, and whether an order is asked for.
#pragma once

#include <string>
#include <string_view>

#include "store/SqlText.h"

namespace suisui {

/// The rows of one code.
[[nodiscard]] inline SqlText whereCode(std::string_view code)
{
    return "WHERE Code=" + bound(code);
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
