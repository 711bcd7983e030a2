// Code page 932, the Japanese code page of the shop's older files and of readers.
//
// By iconv and not by QStringDecoder: Qt leaves this code page to ICU, which has no bytes for 〜, −, ‖, —, ¬,
// ¢ and £, exchanges the control characters 1A, 1C and 7F, and drops a first byte without its second one
// instead of showing that something was there.
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
