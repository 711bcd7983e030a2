// Thickness steps of the bars, 1 to 20: the width of a module in millimetres. A step is a 300th of an inch,
// so every step is a whole number of dots on 300 and on 600 dots per inch, and a sheet looks the same on
// both.
#pragma once

#include <array>

#include "platform/core/Length.h"

namespace suisui {

inline constexpr int barPitchSteps = 20;
inline constexpr std::array<Millimetres, barPitchSteps> barPitchMillimetres{
    0.08467_mm, 0.16933_mm, 0.25400_mm, 0.33867_mm, 0.42333_mm, 0.50800_mm, 0.59267_mm,
    0.67733_mm, 0.76200_mm, 0.84667_mm, 0.93133_mm, 1.01600_mm, 1.10067_mm, 1.18533_mm,
    1.27000_mm, 1.35467_mm, 1.43933_mm, 1.52400_mm, 1.60867_mm, 1.69333_mm};

} // namespace suisui
