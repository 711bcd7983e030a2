// The keys that a KeyPress routine asks for, by the character codes that it gets.
#pragma once

class QKeyEvent;

namespace suisui {

struct KeyCode
{
    static constexpr int ctrlC = 3;
    static constexpr int backspace = 8;
    static constexpr int enter = 13;
    static constexpr int ctrlV = 22;
    static constexpr int ctrlX = 24;
};

/// The character code that a KeyPress routine sees for \a event, 0 for a key without one.
[[nodiscard]] int keyAsciiOf(const QKeyEvent& event);

} // namespace suisui
