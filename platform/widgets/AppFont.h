// The one font of the program, on the screen and on paper: a Japanese Gothic of fixed pitch. The texts of the
// boxes lay themselves out with full-width blanks and need it.
#pragma once

#include <QFont>

namespace suisui {

/// Family name of the font (platform/core/FontName.h).
[[nodiscard]] QString fontFamily();

/// Font of the screen, at a size where two half-width characters are as wide as a full-width one.
[[nodiscard]] QFont screenFont();

} // namespace suisui
