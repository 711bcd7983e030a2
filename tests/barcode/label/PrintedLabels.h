// Labels for a whole sheet, and where their bars are on the page that was printed.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <QImage>

#include "barcode/label/LabelGeometry.h"
#include "barcode/label/LabelPages.h"
#include "barcode/label/LabelSheets.h"
#include "platform/core/Code128.h"
#include "tests/barcode/label/LabelledGrid.h"

namespace suisui::test {

using namespace Qt::Literals::StringLiterals;

/// Codes that all are on one sheet of \a count labels, sorted.
inline std::vector<LabelledRow> rowsFor(int count)
{
    std::vector<LabelledRow> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        rows.push_back({u"490123456%1"_s.arg(i, 4, 10, QChar(u'0')).toStdString()});
    return rows;
}
inline std::string joined(const std::vector<LabelledRow>& rows)
{
    std::string all;
    for (const LabelledRow& row : rows)
        all += (all.empty() ? "" : " ") + row.code;
    return all;
}

inline Millimetres lengthIn(const char16_t* text)
{
    return Millimetres(numberIn(QString::fromUtf16(text)).value_or(0));
}

/// Checks the middle of the bars of the label at \a position on a printer of \a dots: first and last black
/// dot are where the millimetres of \a sheet say, within a dot.
inline void expectBarsAt(const QImage& page, const PrinterDots& dots, const LabelSheet& sheet, int position,
                         const std::string& code)
{
    const LabelGrid grid{.columns = sheet.columns,
                         .rows = sheet.rows,
                         .start = {lengthIn(sheet.startX), lengthIn(sheet.startY)},
                         .width = lengthIn(sheet.width),
                         .height = lengthIn(sheet.height)};
    const QPoint corner = placeInDots(grid.placeOf(position), dots) + QPoint(dots.offsetX, dots.offsetY);
    const int module = barPitchDots(QString::fromUtf16(sheet.barPitch).toInt(), dots.perInchX);
    const int width = encodeCode128(code)->width * module;
    const int y = corner.y() + lengthInDots(lengthIn(sheet.barHeight) / 2, dots.perInchY);
    int first = -1;
    int last = -1;
    for (int x = corner.x() - 4 * module; x < corner.x() + width + 4 * module; ++x) {
        if (qGray(page.pixel(x, y)) >= 128)
            continue;
        first = first < 0 ? x : first;
        last = x;
    }
    EXPECT_NEAR(first, corner.x(), 1) << code;
    EXPECT_NEAR(last, corner.x() + width - 1, 1) << code;
}

} // namespace suisui::test
