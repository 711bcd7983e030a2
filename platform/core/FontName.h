// The font of the program, on the screen and on paper, as Debian's fonts-morisawa-bizud-gothic installs it.
#pragma once

namespace suisui {

inline constexpr char16_t fontName[] = u"BIZ UDGothic";
inline constexpr int screenFontPixels = 14; ///< half-width characters are half as wide as full-width ones

} // namespace suisui
