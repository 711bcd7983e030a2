// Where a label stands on its page: millimetres that the operator gives become dots of the printer at the
// last moment, with the rounding that the sheets were measured by. Dots count from where the printer begins
// to print.
#pragma once

#include <cstdint>

#include <QPoint>

#include "platform/core/Length.h"

namespace suisui {

/// A place, or the way from one to another.
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

/// To the nearest whole number, halves to the even neighbour. What lies beyond any paper stays at a bound.
[[nodiscard]] Dots nearestDot(double dots);

/// \a length on a printer of \a perInch dots per inch.
[[nodiscard]] Dots lengthInDots(Millimetres length, std::int32_t perInch);

/// A place on the paper.
[[nodiscard]] QPoint placeInDots(const MillimetrePoint& place, const PrinterDots& dots);

/// A place \a offset away from \a corner, to the right and down; negative is to the left and up.
[[nodiscard]] QPoint offsetFrom(QPoint corner, const MillimetrePoint& offset, const PrinterDots& dots);

/// The grid of labels on a page. Positions count from 0 in reading order.
struct LabelGrid
{
    std::int64_t columns = 1;
    std::int64_t rows = 1;
    MillimetrePoint start; ///< of the first label
    Millimetres width;     ///< from one label to the next
    Millimetres height;

    [[nodiscard]] std::int64_t capacity() const { return columns * rows; }
    [[nodiscard]] MillimetrePoint placeOf(std::int64_t position) const;
};

} // namespace suisui
