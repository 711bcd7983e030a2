#include "barcode/label/LabelGeometry.h"

#include <algorithm>
#include <cmath>

namespace suisui {

namespace {

constexpr double roundingShare = 0.5;   // on top of the rounding; meant, the sheets were measured with it
constexpr double farthestDot = 1 << 28; // beyond any paper, and sums of a few still fit 32 bits

} // namespace

Dots nearestDot(double dots)
{
    return Dots(static_cast<std::int32_t>(std::nearbyint(std::clamp(dots, -farthestDot, farthestDot))));
}

Dots lengthInDots(Millimetres length, std::int32_t perInch)
{
    return nearestDot(perInch * length.value() / millimetresPerInch + roundingShare);
}

QPoint placeInDots(const MillimetrePoint& place, const PrinterDots& dots)
{
    return {nearestDot(place.x.value() * dots.perInchX / millimetresPerInch - dots.offsetX + roundingShare),
            nearestDot(place.y.value() * dots.perInchY / millimetresPerInch - dots.offsetY + roundingShare)};
}

QPoint offsetFrom(QPoint corner, const MillimetrePoint& offset, const PrinterDots& dots)
{
    return {nearestDot(dots.perInchX * offset.x.value() / millimetresPerInch + roundingShare + corner.x()),
            nearestDot(dots.perInchY * offset.y.value() / millimetresPerInch + roundingShare + corner.y())};
}

MillimetrePoint LabelGrid::placeOf(std::int64_t position) const
{
    const std::int64_t column = position % columns;
    const std::int64_t row = (position - column) / columns;
    return {width * static_cast<double>(column) + start.x, height * static_cast<double>(row) + start.y};
}

} // namespace suisui
