// The keys that a KeyPress routine asks for, by the character codes that it gets.
#pragma once

namespace suisui {

struct KeyCode
{
    static constexpr int ctrlC = 3;
    static constexpr int backspace = 8;
    static constexpr int enter = 13;
    static constexpr int ctrlV = 22;
    static constexpr int ctrlX = 24;
};

} // namespace suisui
