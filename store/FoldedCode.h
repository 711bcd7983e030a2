// Codes and names of columns are compared without regard to the letter case of a to z, as the database
// compares them (NOCASE). All other characters, full-width letters among them, are themselves.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

[[nodiscard]] constexpr char foldedLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// \a code as the key of a look-up: two codes that the database takes for the same have the same key.
[[nodiscard]] inline std::string foldedCode(std::string_view code)
{
    std::string key(code);
    for (char& c : key)
        c = foldedLetter(c);
    return key;
}

} // namespace suisui
