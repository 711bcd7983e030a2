#include "barcode/label/LabelGeometry.h"

#include <cmath>

#include <gtest/gtest.h>

#include "barcode/label/LabelPages.h"
#include "barcode/label/LabelSheets.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr PrinterDots at600{600, 600, 0, 0};

Millimetres lengthIn(const char16_t* text)
{
    return Millimetres(numberIn(QString::fromUtf16(text)).value_or(0));
}

double toMillimetres(double dots, std::int32_t perInch)
{
    return dots * 25.4 / perInch;
}

} // namespace

TEST(LabelGeometry, halvesRoundToTheEvenNeighbour_afterTheAddedHalf)
{
    EXPECT_EQ(nearestDot(2.5), 2);
    EXPECT_EQ(nearestDot(3.5), 4);
    EXPECT_EQ(nearestDot(-2.5), -2);
    EXPECT_EQ(lengthInDots(25.4_mm, 600), 600);  // 600.5
    EXPECT_EQ(lengthInDots(25.4_mm, 601), 602);  // 601.5
    EXPECT_EQ(lengthInDots(12.00_mm, 600), 284); // 283.46 and a half
    EXPECT_EQ(lengthInDots(-5.00_mm, 600), -118);
}

TEST(LabelGeometry, positionsRunAcrossAndThenDown)
{
    const LabelGrid grid{.columns = 2, .rows = 6, .start = {30_mm, 30_mm}, .width = 88_mm, .height = 42_mm};
    EXPECT_EQ(grid.capacity(), 12);
    EXPECT_EQ(grid.placeOf(0).x, Millimetres(30));
    EXPECT_EQ(grid.placeOf(4).x, Millimetres(30));
    EXPECT_EQ(grid.placeOf(4).y, Millimetres(30 + 2 * 42));
    EXPECT_EQ(grid.placeOf(5).x, Millimetres(118));
    EXPECT_EQ(grid.placeOf(6).y, Millimetres(30 + 3 * 42));
}

TEST(LabelGeometry, theMarginThatCannotBePrinted_isTakenOff)
{
    const MillimetrePoint corner{25.4_mm, 50.8_mm};
    EXPECT_EQ(placeInDots(corner, at600), QPoint(600, 1200));
    EXPECT_EQ(placeInDots(corner, {600, 600, 100, 50}), QPoint(500, 1150));
    EXPECT_EQ(placeInDots({0_mm, 0_mm}, {600, 600, 101, 50}),
              QPoint(-100, -50)); // -100.5, -49.5: even neighbours
}

TEST(LabelGeometry, everyPlaceOfEverySheet_isWithinADotOfItsMillimetres)
{
    for (const LabelSheet& sheet : labelSheets) {
        const LabelGrid grid{.columns = sheet.columns,
                             .rows = sheet.rows,
                             .start = {lengthIn(sheet.startX), lengthIn(sheet.startY)},
                             .width = lengthIn(sheet.width),
                             .height = lengthIn(sheet.height)};
        for (const std::int32_t dpi : {203, 300, 360, 600, 1200})
            for (std::int64_t position = 0; position < grid.capacity(); ++position) {
                const MillimetrePoint place = grid.placeOf(position);
                const QPoint dot = placeInDots(place, {dpi, dpi, 0, 0});
                const double dotWidth = toMillimetres(1, dpi);
                EXPECT_LE(std::abs(toMillimetres(dot.x(), dpi) - place.x.value()), dotWidth);
                EXPECT_LE(std::abs(toMillimetres(dot.y(), dpi) - place.y.value()), dotWidth);
            }
    }
}

TEST(LabelGeometry, offsetsCountFromTheCornerOfTheBars)
{
    const QPoint corner(1000, 1000);
    EXPECT_EQ(offsetFrom(corner, {0_mm, -25.4_mm}, at600), QPoint(1000, 400));
    EXPECT_EQ(offsetFrom(corner, {25.4_mm, 0_mm}, {601, 600, 0, 0}),
              QPoint(1602, 1000)); // 601.5: even neighbour
}

TEST(LabelGeometry, measuresBeyondAllPaper_stayNumbers)
{
    EXPECT_GT(lengthInDots(Millimetres(1e300), 600), 0);
    EXPECT_LT(lengthInDots(Millimetres(-1e300), 600), 0);
    const QPoint far = placeInDots({Millimetres(1e300), Millimetres(1e300)}, at600);
    EXPECT_GT(offsetFrom(far, {Millimetres(1e300), Millimetres(1e300)}, at600).x(), 0);
}

TEST(LabelGeometry, randomPlaces_areWithinADotWhateverThePrinter)
{
    std::mt19937 random(printedSeed());
    std::uniform_real_distribution<double> millimetres(-300, 300);
    for (int i = 0; i < 20000; ++i) {
        const PrinterDots dots{static_cast<std::int32_t>(100 + random() % 1200),
                               static_cast<std::int32_t>(100 + random() % 1200),
                               static_cast<std::int32_t>(random() % 200),
                               static_cast<std::int32_t>(random() % 200)};
        const MillimetrePoint place{Millimetres(millimetres(random)), Millimetres(millimetres(random))};
        const QPoint dot = placeInDots(place, dots);
        const double wantedX = place.x.value() / 25.4 * dots.perInchX - dots.offsetX;
        const double wantedY = place.y.value() / 25.4 * dots.perInchY - dots.offsetY;
        ASSERT_LE(std::abs(dot.x() - wantedX), 1 + 1e-6);
        ASSERT_LE(std::abs(dot.y() - wantedY), 1 + 1e-6);
    }
}

} // namespace suisui::test
