#include "barcode/label/LabelGeometry.h"

#include <algorithm>
#include <cmath>

namespace suisui {

namespace {

constexpr double millimetresPerInch = 25.4;
constexpr double roundingShare = 0.5;
constexpr double farthestDot = 1 << 28; // beyond any paper, and sums of a few still fit 32 bits

} // namespace

std::int32_t nearestDot(double dots)
{
    return static_cast<std::int32_t>(std::nearbyint(std::clamp(dots, -farthestDot, farthestDot)));
}

std::int32_t lengthInDots(double millimetres, std::int32_t perInch)
{
    return nearestDot(perInch * millimetres / millimetresPerInch + roundingShare);
}

QPoint placeInDots(const Millimetres& place, const PrinterDots& dots)
{
    return {nearestDot(place.x * dots.perInchX / millimetresPerInch - dots.offsetX + roundingShare),
            nearestDot(place.y * dots.perInchY / millimetresPerInch - dots.offsetY + roundingShare)};
}

QPoint offsetFrom(QPoint corner, const Millimetres& offset, const PrinterDots& dots)
{
    return {nearestDot(dots.perInchX * offset.x / millimetresPerInch + roundingShare + corner.x()),
            nearestDot(dots.perInchY * offset.y / millimetresPerInch + roundingShare + corner.y())};
}

Millimetres LabelGrid::placeOf(std::int64_t position) const
{
    const std::int64_t column = position % columns;
    const std::int64_t row = (position - column) / columns;
    return {width * static_cast<double>(column) + start.x, height * static_cast<double>(row) + start.y};
}

} // namespace suisui
