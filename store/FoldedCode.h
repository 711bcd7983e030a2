// Codes and names of columns are compared without regard to the case of a to z, as the database compares them
// (NOCASE). The case of all other letters, full-width ones among them, counts.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

[[nodiscard]] constexpr char foldedLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// \a code as the key of a look-up: codes that are equal to the database have the same key.
[[nodiscard]] inline std::string foldedCode(std::string_view code)
{
    std::string key(code);
    for (char& c : key)
        c = foldedLetter(c);
    return key;
}

} // namespace suisui
