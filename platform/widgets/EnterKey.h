// Which keys count as Enter.
#pragma once

#include <QKeyEvent>

namespace suisui {

/// Return, the keypad's Enter, and what readers that type send in their place: a line feed.
[[nodiscard]] inline bool isEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter
           || event.text() == QLatin1StringView("\r") || event.text() == QLatin1StringView("\n");
}

} // namespace suisui
