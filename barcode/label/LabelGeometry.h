// Where a label stands on its page: millimetres that the operator gives become dots of the printer at the
// last moment, with the rounding that the sheets were measured by. Dots count from where the printer begins
// to print.
#pragma once

#include <cstdint>

#include <QPoint>

namespace suisui {

struct Millimetres
{
    double x = 0;
    double y = 0;
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
[[nodiscard]] std::int32_t nearestDot(double dots);

/// \a millimetres in dots.
[[nodiscard]] std::int32_t lengthInDots(double millimetres, std::int32_t perInch);

/// A place on the paper.
[[nodiscard]] QPoint placeInDots(const Millimetres& place, const PrinterDots& dots);

/// A place \a offset away from \a corner, to the right and down; negative is to the left and up.
[[nodiscard]] QPoint offsetFrom(QPoint corner, const Millimetres& offset, const PrinterDots& dots);

/// The grid of labels on a page. Positions count from 0 in reading order.
struct LabelGrid
{
    std::int64_t columns = 1;
    std::int64_t rows = 1;
    Millimetres start; ///< of the first label
    double width = 0;  ///< from one label to the next
    double height = 0;

    [[nodiscard]] std::int64_t capacity() const { return columns * rows; }
    [[nodiscard]] Millimetres placeOf(std::int64_t position) const;
};

} // namespace suisui
