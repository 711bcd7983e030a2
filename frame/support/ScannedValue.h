// What a scanned value is, told by its first and last character.
#pragma once

#include <functional>

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

/// Classifies \a value. Lengths count UTF-16 units. Throws RunTimeError::InvalidCall for a value of exactly
/// one "#" or "@", whose inner text has a length below zero.
[[nodiscard]] ScannedValue classify(const QString& value);

/// BarCodeChk of a dialog: "P" presses OK, "T" presses the other button, key codes are typed, and everything
/// else is dropped.
void dialogBarCodeChk(const QString& value, const std::function<void()>& pressOk,
                      const std::function<void()>& pressEnd,
                      const std::function<void(const QString&)>& sendKeys);

} // namespace suisui
