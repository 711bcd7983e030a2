// How fast a bar-code reader types that works as a keyboard.
#pragma once

namespace suisui {

inline constexpr int readerGapMs = 25;     ///< a reader presses the next key sooner
inline constexpr int slowReaderGapMs = 60; ///< and so does one that takes its time, as over Bluetooth

} // namespace suisui
