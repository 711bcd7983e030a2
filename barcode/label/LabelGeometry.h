// Where a label is on its page. The operator's millimetres become dots of the printer at the last moment,
// with the rounding that the sheets were measured with. Dots count from the corner of the printable area.
#pragma once

#include <cstdint>

#include <QPoint>

#include "platform/core/Length.h"

namespace suisui {

/// A place, or the distance from one place to another.
struct MillimetrePoint
{
    Millimetres x;
    Millimetres y;
};

/// Resolution of a printer, and the margin in dots that it cannot print.
struct PrinterDots
{
    std::int32_t perInchX = 0;
    std::int32_t perInchY = 0;
    std::int32_t offsetX = 0;
    std::int32_t offsetY = 0;
};

/// \a dots rounded to the nearest whole number, halves to the even one, and kept within bounds that are far
/// beyond any paper.
[[nodiscard]] Dots nearestDot(double dots);

/// \a length on a printer of \a perInch dots per inch.
[[nodiscard]] Dots lengthInDots(Millimetres length, std::int32_t perInch);

/// \a place on the paper, in dots.
[[nodiscard]] QPoint placeInDots(const MillimetrePoint& place, const PrinterDots& dots);

/// The place that is \a offset to the right of and below \a corner; negative is to the left and above.
[[nodiscard]] QPoint offsetFrom(QPoint corner, const MillimetrePoint& offset, const PrinterDots& dots);

/// The grid of labels on a page. Positions count from 0 in reading order.
struct LabelGrid
{
    std::int64_t columns = 1;
    std::int64_t rows = 1;
    MillimetrePoint start; ///< of the first label
    Millimetres width;     ///< from one label to the next one on its right one on its right
    Millimetres height;    ///< from one label to the next one below

    [[nodiscard]] std::int64_t capacity() const { return columns * rows; }
    [[nodiscard]] MillimetrePoint placeOf(std::int64_t position) const;
};

} // namespace suisui
