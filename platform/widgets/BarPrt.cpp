#include "platform/widgets/BarPrt.h"

#include <algorithm>
#include <cmath>

namespace suisui {

Dots millimetreDots(Millimetres length, std::int32_t perInch)
{
    return Dots(
        std::max(1, static_cast<std::int32_t>(std::lround(length.value() * perInch / millimetresPerInch))));
}

Dots barPitchDots(int step, std::int32_t perInch)
{
    const auto index = static_cast<std::size_t>(std::clamp(step, 1, barPitchSteps) - 1);
    return millimetreDots(barPitchMillimetres.at(index), perInch);
}

} // namespace suisui
