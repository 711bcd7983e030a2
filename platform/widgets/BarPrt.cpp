#include "platform/widgets/BarPrt.h"

#include <algorithm>
#include <cmath>

namespace suisui {

namespace {

constexpr double millimetresPerInch = 25.4;

} // namespace

std::int32_t millimetreDots(double millimetres, std::int32_t perInch)
{
    return std::max(1, static_cast<std::int32_t>(std::lround(millimetres * perInch / millimetresPerInch)));
}

std::int32_t barPitchDots(int step, std::int32_t perInch)
{
    const auto index = static_cast<std::size_t>(std::clamp(step, 1, barPitchSteps) - 1);
    return millimetreDots(barPitchMillimetres.at(index), perInch);
}

} // namespace suisui
