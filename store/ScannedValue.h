// What a scanned value is, told by its first and last character. The one table of those characters stands
// here, since a master-data form has to know as well what a reader can never bring as a goods code.
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

/// The characters around a value that is no goods code.
struct Enclosure
{
    char16_t first;
    char16_t last;
    ScanKind kind;
};
[[nodiscard]] std::span<const Enclosure> enclosures();

/// The most characters of a goods code, in UTF-16 units.
inline constexpr qsizetype longestGoodsCode = 16;

/// Classifies \a value. Lengths count UTF-16 units. Throws RunTimeError::InvalidCall for a value of exactly
/// one "#" or "@", whose inner text has a length below zero.
[[nodiscard]] ScannedValue classify(const QString& value);

/// The enclosure that \a value begins like, closed or not; null for a plain text.
[[nodiscard]] const Enclosure* openedBy(const QString& value);

} // namespace suisui
