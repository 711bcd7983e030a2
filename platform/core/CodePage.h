// Code page 932, the Japanese code page of the shop's older files and of readers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suisui {

/// \a bytes as UTF-8; each byte that is not text becomes U+FFFD.
[[nodiscard]] std::string fromCp932(std::string_view bytes);

/// \a utf8 in code page 932; nothing when a character has no place in it.
[[nodiscard]] std::optional<std::string> toCp932(std::string_view utf8);

/// \a utf8 in code page 932, with \a instead for each character that has no place in it.
[[nodiscard]] std::string toCp932(std::string_view utf8, char instead);

} // namespace suisui
