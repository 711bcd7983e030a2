// Texts of a label.
#pragma once

#include <QString>

namespace suisui {

inline constexpr int labelTextLength = 15;

/// The first 15 UTF-16 units of \a text; a surrogate pair is not cut in half.
[[nodiscard]] inline QString cutForLabel(const QString& text)
{
    QString cut = text.left(labelTextLength);
    if (cut.size() < text.size() && cut.back().isHighSurrogate())
        cut.chop(1);
    return cut;
}

} // namespace suisui
