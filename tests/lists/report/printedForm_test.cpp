// A form on its paper. The dots expected here were worked out by hand.
#include <algorithm>

#include "tests/lists/report/PrinterDesk.h"

namespace suisui::test {

namespace {

struct PrintedFormTest : PrinterTest
{
};

/// The box around all pixels of \a picture darker than \a limit.
QRect inked(const QImage& picture, int limit = 128)
{
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    const auto isInk = [limit](uchar shade) { return shade < limit; };
    QRect box;
    for (int y = 0; y < grey.height(); ++y) {
        const uchar* begin = grey.constScanLine(y);
        const uchar* end = begin + grey.width();
        const uchar* first = std::find_if(begin, end, isInk);
        if (first == end)
            continue;
        const uchar* last = end;
        while (!isInk(*--last)) {
        }
        box |= QRect(QPoint(static_cast<int>(first - begin), y), QPoint(static_cast<int>(last - begin), y));
    }
    return box;
}

} // namespace

TEST_F(PrintedFormTest, linesLieAtTheirDots)
{
    struct Case
    {
        int dpi;
        QMarginsF margins;
        FormLine line;
        QRect box;
    };
    const FormLine across{.x1 = 0.5, .y1 = 1, .x2 = 10.5, .y2 = 1};
    const FormLine thick{.x1 = 0.5, .y1 = 1, .x2 = 10.5, .y2 = 1, .borderWidth = 3};
    const FormLine down{.x1 = 2, .y1 = 0.5, .x2 = 2, .y2 = 3.5, .borderWidth = 2};
    const FormLine slanting{.x1 = 2, .y1 = 0.5, .x2 = 4, .y2 = 3.5};
    const Case cases[] = {
        {600, {}, across, {300, 600, 6000, 2}},             // 600 / 254 = 2.36
        {300, {}, across, {150, 300, 3000, 1}},             // 1.18
        {72, {}, across, {36, 72, 720, 1}},                 // 0.28, and still there
        {600, {12, 24, 0, 0}, across, {200, 400, 6000, 2}}, // less 100 and 200
        {600, {}, thick, {300, 600, 6000, 12}},             // 5 x 2.36 = 11.8
        {600, {}, down, {1200, 300, 7, 1800}},              // 3 x 2.36 = 7.09
        {300, {12, 12, 0, 0}, down, {550, 100, 4, 900}},    // 3 x 1.18 = 3.54
        {600, {}, slanting, {1200, 300, 2, 1800}},          // taken for one that goes down
    };
    for (const Case& one : cases) {
        select(one.dpi, one.margins);
        EXPECT_EQ(properties.lineBox(one.line), one.box) << one.dpi;
    }
}

TEST_F(PrintedFormTest, boxesLieAtTheirDots)
{
    const FormLabel band{
        .left = 300 / 1440.0, .top = 2040 / 1440.0, .width = 15795 / 1440.0, .height = 345 / 1440.0};
    select(600);
    EXPECT_EQ(properties.backBox(band), QRect(125, 850, 6581, 144)); // 6581.25, 143.75
    select(300);
    EXPECT_EQ(properties.backBox(band), QRect(63, 425, 3291, 72)); // 62.5, 3290.6, 71.9
    select(600, {12, 24, 0, 0});
    EXPECT_EQ(properties.backBox(band), QRect(25, 650, 6581, 144));
    properties.moveToCorner(300 / 1440.0, 2040 / 1440.0);
    EXPECT_EQ(properties.backBox(band), QRect(0, 0, 6581, 144));
}

TEST_F(PrintedFormTest, textsArePlacedByCountingTheirCharacters)
{
    struct Case
    {
        QString caption;
        FormAlign alignment;
        double x;
        double cell;
        bool spaced;
    };
    // A character of 9 points is 75 dots at 600, half of it 37.5; the box goes from 600 to 1500.
    const Case cases[] = {
        {u"12,345"_s, FormAlign::Left, 600, 37.5, false},
        {u"12,345"_s, FormAlign::Right, 1500 - 6 * 37.5, 37.5, true},
        {u"12,345"_s, FormAlign::Centre, 1050 - 3 * 37.5, 37.5, true},
        {u"個"_s, FormAlign::Right, 1500 - 75, 75, true},
        {u"個数"_s, FormAlign::Centre, 1050 - 75, 75, true},
        {u"z箱"_s, FormAlign::Right, 1500 - 75, 37.5, true}, // half by its first character
        {u"{箱"_s, FormAlign::Right, 1500 - 150, 75, true},  // 123 is past the half-width codes
        {u" 1"_s, FormAlign::Right, 1500 - 75, 37.5, true},  // a blank, 32, is within them
        {u"－"_s, FormAlign::Right, 1500 - 75, 75, true},
        {u"𠮷野"_s, FormAlign::Right, 1500 - 150, 75, true}, // two characters, whatever they are made of
    };
    select(600);
    for (const Case& one : cases) {
        const TextPlace place = properties.textPlace(label(one.caption, one.alignment));
        EXPECT_DOUBLE_EQ(place.x, one.x) << one.caption.toStdString();
        EXPECT_DOUBLE_EQ(place.y, 1200);
        EXPECT_DOUBLE_EQ(place.cell, one.cell) << one.caption.toStdString();
        EXPECT_EQ(place.spaced, one.spaced);
    }
    select(300, {12, 24, 0, 0}); // 50 and 100 dots
    const TextPlace place = properties.textPlace(label(u"12,345"_s, FormAlign::Right));
    EXPECT_DOUBLE_EQ(place.x, 750 - 6 * 18.75 - 50);
    EXPECT_DOUBLE_EQ(place.y, 600 - 100);
}

TEST_F(PrintedFormTest, lineAndBoxComeOutAtTheirDots)
{
    select(600);
    const QImage line = drawn([this] { properties.PrintLine({.x1 = 0.5, .y1 = 1, .x2 = 1.5, .y2 = 1}); });
    EXPECT_EQ(inked(line), QRect(300, 600, 600, 2));
    const FormLabel band{.left = 1, .top = 2, .width = 3, .height = 0.5, .backColor = Qt::darkGray};
    EXPECT_EQ(inked(drawn([&] { properties.PrintBack(band); }), 200), QRect(600, 1200, 1800, 300));
}

TEST_F(PrintedFormTest, theMargin_bringsThePrintersCornerInsideThePaper)
{
    select(600, {12, 24, 0, 0});
    const FormLine across{.x1 = 0.5, .y1 = 1, .x2 = 1.5, .y2 = 1};
    EXPECT_EQ(inked(drawn([&] { properties.PrintLine(across); })),
              QRect(300, 600, 600, 2)); // true to the paper
    properties.moveToCorner(0.5, 1);
    EXPECT_EQ(inked(drawn([&] { properties.PrintLine(across); })),
              QRect(100, 200, 600, 2)); // where it begins
}

TEST_F(PrintedFormTest, figuresComeOutInColumns)
{
    select(600);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), PrintStatus::Good);
    FormLabel figure = label(u"1,234"_s, FormAlign::Right);
    properties.PrintLabel(figure, true);
    figure.top += 0.5;
    figure.caption = u"8"_s;
    properties.PrintLabel(figure, true);
    ASSERT_EQ(printer.EndDoc(), PrintStatus::Good);
    const auto words = pdfWords(setup->file);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[0].text, u"1,234"_s);
    EXPECT_NEAR(words[0].box.right(), 2.5 * 72, 0.13); // a dot
    EXPECT_NEAR(words[0].box.left(), 2.5 * 72 - 5 * 4.5, 0.13);
    EXPECT_NEAR(words[1].box.right(), 2.5 * 72, 0.13);
    EXPECT_NEAR(words[1].box.left(), 2.5 * 72 - 4.5, 0.13);
}

TEST_F(PrintedFormTest, hiddenAndEmptyElementsDrawNothing)
{
    select(300);
    const QImage page = drawn([this] {
        properties.PrintLine({.x1 = 1, .y1 = 1, .x2 = 2, .y2 = 1, .visible = false});
        FormLabel hidden = label(u"見えない"_s, FormAlign::Left);
        hidden.visible = false;
        hidden.backColor = Qt::black;
        properties.PrintBack(hidden);
        properties.PrintLabel(hidden, false);
        for (const FormAlign alignment : {FormAlign::Left, FormAlign::Right, FormAlign::Centre})
            properties.PrintLabel(label(QString(), alignment), true);
    });
    EXPECT_TRUE(inked(page).isNull());
}

TEST_F(PrintedFormTest, aTextThatIsNotTransparent_coversWhatIsUnderIt)
{
    select(300);
    FormLabel over = label(u"　　　"_s, FormAlign::Left);
    const QImage page = drawn([&] {
        FormLabel under = over;
        under.backColor = Qt::black;
        properties.PrintBack(under);
        properties.PrintLabel(over, false);
    });
    EXPECT_EQ(qGray(page.pixel(300 + 10, 600 + 10)), 255);
    EXPECT_EQ(qGray(page.pixel(300 + 10, 600 + 60)), 0);
    EXPECT_EQ(qGray(page.pixel(300 + 200, 600 + 10)), 0);
}

TEST_F(PrintedFormTest, aTextWiderThanItsBoxIsDrawnNarrower)
{
    select(600);
    const QString name = u"とても長い名前の商品で箱には収まらないもの"_s; // 21 x 75 dots in 900
    const QRect ink = inked(drawn([&] { properties.PrintLabel(label(name, FormAlign::Left), true); }));
    EXPECT_GE(ink.left(), 600);
    EXPECT_LE(ink.right(), 1500);
    EXPECT_GT(ink.right(), 1400);
    EXPECT_EQ(textIn(pdfWords(setup->file), 1, QRectF(72, 144, 108, 18)), name);
}

TEST_F(PrintedFormTest, charactersThatTheFontLacks_areInTheirPlaceAllTheSame)
{
    select(300);
    const QRect ink = inked(drawn([this] {
        properties.PrintLabel(label(u"ｶﾞ\u304B\u3099\u05D0"_s, FormAlign::Left), true);
        FormLabel figure = label(u"1\U0001F4E6"_s, FormAlign::Right);
        figure.top = 3;
        properties.PrintLabel(figure, true);
    }));
    EXPECT_GE(ink.left(), 300);
    EXPECT_LE(ink.right(), 770); // a picture of another font is as wide as it likes
}

TEST_F(PrintedFormTest, aCentredTextThatIsTooLong_isDrawnNarrowerToo)
{
    select(600);
    for (const QString& unit :
         {u"とても長い名前の単位ですから"_s, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"_s}) {
        const QRect ink = inked(drawn([&] { properties.PrintLabel(label(unit, FormAlign::Centre), true); }));
        EXPECT_GE(ink.left(), 600) << unit.toStdString();
        EXPECT_LE(ink.right(), 1500) << unit.toStdString();
        EXPECT_GT(ink.width(), 800) << unit.toStdString();
    }
    // Long when its characters are counted, and yet narrow: it stays as wide as it is, in the middle.
    const QRect ink =
        inked(drawn([this] { properties.PrintLabel(label(u"箱abcdefghijklm"_s, FormAlign::Centre), true); }));
    EXPECT_NEAR(ink.center().x(), 1050, 10);
    EXPECT_NEAR(ink.width(), 75 + 13 * 37.5, 20);
}

} // namespace suisui::test
