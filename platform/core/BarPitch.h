// Thickness steps of the bars, 1 to 20: the width of a module in millimetres. A step is a 300th of an inch,
// so every step is a whole number of dots on 300 and on 600 dots per inch, and a sheet looks the same on
// both.
#pragma once

#include <array>

namespace suisui {

inline constexpr int barPitchSteps = 20;
inline constexpr std::array<double, barPitchSteps> barPitchMillimetres{
    0.08467, 0.16933, 0.25400, 0.33867, 0.42333, 0.50800, 0.59267, 0.67733, 0.76200, 0.84667,
    0.93133, 1.01600, 1.10067, 1.18533, 1.27000, 1.35467, 1.43933, 1.52400, 1.60867, 1.69333};

} // namespace suisui
