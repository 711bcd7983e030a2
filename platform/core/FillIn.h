// Putting values into the places of a message text.
#pragma once

#include <initializer_list>
#include <utility>

#include <QString>

namespace suisui {

/// \a text with every "{name}" replaced by its value. One pass: a value that happens to hold "{name}" stays
/// as it is.
[[nodiscard]] inline QString fillIn(QStringView text,
                                    std::initializer_list<std::pair<QStringView, QString>> values)
{
    QString result;
    result.reserve(text.size() + 64);
    while (!text.isEmpty()) {
        const qsizetype open = text.indexOf(u'{');
        if (open < 0)
            break;
        result += text.left(open);
        text = text.sliced(open);
        bool replaced = false;
        for (const auto& [name, value] : values) {
            if (text.sliced(1).startsWith(name) && text.sliced(1 + name.size()).startsWith(u'}')) {
                result += value;
                text = text.sliced(name.size() + 2);
                replaced = true;
                break;
            }
        }
        if (!replaced) {
            result += u'{';
            text = text.sliced(1);
        }
    }
    return result += text;
}

} // namespace suisui
