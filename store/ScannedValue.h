// What a scanned value is, which its first and last character decide. This is the only table of those
// characters, since a form of master data too has to know what a reader can never send as a goods code.
#pragma once

#include <span>

#include <QString>

namespace suisui {

enum class ScanKind {
    Nothing,  ///< empty: nothing was scanned
    Keys,     ///< {...}: keystrokes, braces included
    Function, ///< [...]: the inner text is a function of the program
    Partner,  ///< #...#: the inner text is a partner's code
    Staff,    ///< @...@: the inner text is a staff code
    Goods,    ///< any other text of 1 to 16 characters
    Dropped,  ///< an opening character without its closing one, or a text too long
};

struct ScannedValue
{
    ScanKind kind = ScanKind::Nothing;
    QString text; ///< inner text of Function, Partner and Staff; otherwise the whole value
};

/// The characters around a value that is not a goods code.
struct Enclosure
{
    char16_t first;
    char16_t last;
    ScanKind kind;
};
[[nodiscard]] std::span<const Enclosure> enclosures();

/// The longest goods code that can be scanned, in UTF-16 units.
inline constexpr qsizetype longestGoodsCode = 16;

/// Classifies \a value. Lengths count UTF-16 units. Throws RunTimeError::InvalidCall for a single "#" or "@",
/// whose inner text would have a negative length.
[[nodiscard]] ScannedValue classify(const QString& value);

/// The enclosure that \a value begins with, closed or not; null for a plain text.
[[nodiscard]] const Enclosure* openedBy(const QString& value);

} // namespace suisui
