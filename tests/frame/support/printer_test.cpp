// The chosen printer and the arithmetic of a form on its paper. The dots expected here were worked out by
// hand.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "frame/support/Printer_Properties.h"
#include "platform/widgets/AppFont.h"
#include "tests/support/PdfPrinter.h"
#include "tests/support/PdfText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

struct PrinterTest : ::testing::Test
{
    QTemporaryDir folder;
    std::shared_ptr<PdfSetup> setup = std::make_shared<PdfSetup>();
    Printer printer{pdfDialog(setup)};
    Printer_Properties properties{printer};

    PrinterTest() { setup->file = folder.filePath(u"out.pdf"_s); }

    void select(int dpi, const QMarginsF& margins = {})
    {
        setup->dpi = dpi;
        setup->margins = margins;
        printer.setOrientation(PaperOrientation::Landscape);
        ASSERT_FALSE(properties.PrinterSelect(nullptr));
    }

    /// Draws one page with \a draw and gives it back as a picture of a pixel for each dot.
    template <typename Draw> QImage drawn(Draw draw)
    {
        printer.StartDoc();
        EXPECT_EQ(printer.StartPage(), 0);
        draw();
        EXPECT_EQ(printer.EndDoc(), 0);
        return pdfPicture(setup->file, 1, setup->dpi, true);
    }
};

FormLabel label(const QString& caption, FormAlign alignment)
{
    return {.left = 1,
            .top = 2,
            .width = 1.5,
            .height = 0.25,
            .caption = caption,
            .alignment = alignment,
            .font = {.name = fontFamily(), .size = 9}};
}

/// The box around all pixels of \a picture darker than \a limit.
QRect inked(const QImage& picture, int limit = 128)
{
    QRect box;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, y)) < limit)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace

TEST_F(PrinterTest, aCancelledDialogLeavesThePrinterAndTheValuesAsTheyWere)
{
    select(600, {12, 24, 12, 24});
    setup->cancelled = true;
    setup->dpi = 300;
    setup->margins = {};
    setup->file = folder.filePath(u"other.pdf"_s);
    setup->copies = 7;
    EXPECT_TRUE(properties.PrinterSelect(nullptr));
    EXPECT_EQ(properties.PrtDpiX(), 600);
    EXPECT_EQ(properties.PrtOffsetX(), 100);
    EXPECT_EQ(printer.geometry().dpiX, 600);
    EXPECT_EQ(printer.fileName(), folder.filePath(u"out.pdf"_s));
    EXPECT_EQ(printer.copies(), 1);
    EXPECT_EQ(printer.orientation(), PaperOrientation::Landscape);
}

TEST_F(PrinterTest, theValuesAreThoseOfTheChosenPrinterAndPaper)
{
    select(600, {12, 24, 36, 48});
    EXPECT_EQ(properties.PrtDpiX(), 600);
    EXPECT_EQ(properties.PrtDpiY(), 600);
    EXPECT_EQ(properties.PrtOffsetX(), 100); // 12 / 72 inch
    EXPECT_EQ(properties.PrtOffsetY(), 200);
    EXPECT_EQ(printer.geometry().width, 7017);
    EXPECT_EQ(printer.geometry().height, 4958);
    select(300, {12, 24, 36, 48});
    EXPECT_EQ(properties.PrtOffsetX(), 50);
    EXPECT_EQ(properties.PrtOffsetY(), 100);
}

TEST_F(PrinterTest, aPageLaidCrosswiseTakesTheMarginsOfTheSheetTurnedToTheLeft)
{
    // The sheet as it is fed: 12 points on the left, 24 at the top, 36 on the right, 48 at the bottom.
    Printer laser([](QPrinter& chosen, QWidget*) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        QPageLayout layout = chosen.pageLayout();
        layout.setMinimumMargins({12, 24, 36, 48});
        return chosen.setPageLayout(layout);
    });
    ASSERT_TRUE(laser.choose(nullptr));
    EXPECT_EQ(laser.geometry().offsetX, 100);
    EXPECT_EQ(laser.geometry().offsetY, 200);
    laser.setOrientation(PaperOrientation::Landscape);
    EXPECT_EQ(laser.geometry().offsetX, 400);
    EXPECT_EQ(laser.geometry().offsetY, 100);
}

TEST_F(PrinterTest, theDialogMayLeaveItsMarginsInMillimetres)
{
    Printer metric([](QPrinter& chosen, QWidget*) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        QPageLayout layout = chosen.pageLayout();
        layout.setUnits(QPageLayout::Millimeter);
        layout.setMinimumMargins({25.4, 12.7, 0, 0});
        return chosen.setPageLayout(layout);
    });
    ASSERT_TRUE(metric.choose(nullptr));
    EXPECT_EQ(metric.geometry().offsetX, 600);
    EXPECT_EQ(metric.geometry().offsetY, 300);
}

TEST_F(PrinterTest, aPrinterWithoutDuplexSelectsNormally)
{
    Printer simplex([](QPrinter& chosen, QWidget*) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        chosen.setDuplex(QPrinter::DuplexLongSide); // a PDF has none and keeps quiet about it
        return true;
    });
    EXPECT_TRUE(simplex.choose(nullptr));
    EXPECT_TRUE(simplex.choose(nullptr));
    EXPECT_EQ(simplex.geometry().dpiX, 600);
}

TEST_F(PrinterTest, paperOfAnotherSizeIsTakenAsChosen)
{
    setup->paper = QPageSize(QPageSize::B5);
    select(600);
    EXPECT_EQ(printer.geometry().width, 5908);
    EXPECT_EQ(printer.geometry().height, 4158);
}

TEST_F(PrinterTest, aLineHalfAnInchInPullsTheOffsetToItself)
{
    select(600, {12, 12, 0, 0});
    properties.moveToCorner(0.5, 0.25);
    EXPECT_EQ(properties.PrtOffsetX(), 300);
    EXPECT_EQ(properties.PrtOffsetY(), 150);
}

TEST_F(PrinterTest, aLineNearerTheEdgeThanTheMarginGivesANegativeOffset)
{
    select(600, {12, 24, 0, 0});
    properties.moveToCorner(0.1, 0.2);
    EXPECT_EQ(properties.PrtOffsetX(), 60 - 100);
    EXPECT_EQ(properties.PrtOffsetY(), 120 - 200);
}

TEST_F(PrinterTest, aLineExactlyAtTheMarginStaysWhereItIs)
{
    select(600, {12, 12, 0, 0});
    properties.moveToCorner(1.0 / 6, 1.0 / 6);
    EXPECT_EQ(properties.PrtOffsetX(), 100);
    EXPECT_EQ(properties.PrtOffsetY(), 100);
}

TEST_F(PrinterTest, anotherSelectionForgetsTheMovedOffset)
{
    select(600, {12, 24, 0, 0});
    properties.moveToCorner(0.5, 0.5);
    select(600, {12, 24, 0, 0});
    EXPECT_EQ(properties.PrtOffsetX(), 100);
    EXPECT_EQ(properties.PrtOffsetY(), 200);
}

TEST_F(PrinterTest, linesLieAtTheirDots)
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

TEST_F(PrinterTest, boxesLieAtTheirDots)
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

TEST_F(PrinterTest, textsArePlacedByCountingTheirCharacters)
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

TEST_F(PrinterTest, lineAndBoxComeOutAtTheirDots)
{
    select(600);
    const QImage line = drawn([this] { properties.PrintLine({.x1 = 0.5, .y1 = 1, .x2 = 1.5, .y2 = 1}); });
    EXPECT_EQ(inked(line), QRect(300, 600, 600, 2));
    const FormLabel band{.left = 1, .top = 2, .width = 3, .height = 0.5, .backColor = Qt::darkGray};
    EXPECT_EQ(inked(drawn([&] { properties.PrintBack(band); }), 200), QRect(600, 1200, 1800, 300));
}

TEST_F(PrinterTest, theMarginBringsThePrintersCornerInsideThePaper)
{
    select(600, {12, 24, 0, 0});
    const FormLine across{.x1 = 0.5, .y1 = 1, .x2 = 1.5, .y2 = 1};
    EXPECT_EQ(inked(drawn([&] { properties.PrintLine(across); })),
              QRect(300, 600, 600, 2)); // true to the paper
    properties.moveToCorner(0.5, 1);
    EXPECT_EQ(inked(drawn([&] { properties.PrintLine(across); })),
              QRect(100, 200, 600, 2)); // where it begins
}

TEST_F(PrinterTest, figuresComeOutInColumns)
{
    select(600);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), 0);
    FormLabel figure = label(u"1,234"_s, FormAlign::Right);
    properties.PrintLabel(figure, true);
    figure.top += 0.5;
    figure.caption = u"8"_s;
    properties.PrintLabel(figure, true);
    ASSERT_EQ(printer.EndDoc(), 0);
    const auto words = pdfWords(setup->file);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[0].text, u"1,234"_s);
    EXPECT_NEAR(words[0].box.right(), 2.5 * 72, 0.13); // a dot
    EXPECT_NEAR(words[0].box.left(), 2.5 * 72 - 5 * 4.5, 0.13);
    EXPECT_NEAR(words[1].box.right(), 2.5 * 72, 0.13);
    EXPECT_NEAR(words[1].box.left(), 2.5 * 72 - 4.5, 0.13);
}

TEST_F(PrinterTest, hiddenAndEmptyElementsDrawNothing)
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

TEST_F(PrinterTest, aTextThatIsNotTransparentCoversWhatIsUnderIt)
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

TEST_F(PrinterTest, aTextWiderThanItsBoxIsDrawnNarrower)
{
    select(600);
    const QString name = u"とても長い名前の商品で箱には収まらないもの"_s; // 21 x 75 dots in 900
    const QRect ink = inked(drawn([&] { properties.PrintLabel(label(name, FormAlign::Left), true); }));
    EXPECT_GE(ink.left(), 600);
    EXPECT_LE(ink.right(), 1500);
    EXPECT_GT(ink.right(), 1400);
    EXPECT_EQ(textIn(pdfWords(setup->file), 1, QRectF(72, 144, 108, 18)), name);
}

TEST_F(PrinterTest, charactersTheFontLacksStandInTheirPlaceAllTheSame)
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

TEST_F(PrinterTest, aDocumentHasThePagesThatWereStarted)
{
    select(300);
    setup->file = folder.filePath(u"three.pdf"_s);
    ASSERT_FALSE(properties.PrinterSelect(nullptr));
    printer.StartDoc();
    for (int page = 0; page < 3; ++page)
        ASSERT_EQ(printer.StartPage(), 0);
    EXPECT_EQ(printer.EndDoc(), 0);
    EXPECT_EQ(pdfPages(setup->file), 3);
}

TEST_F(PrinterTest, aDocumentWithoutAPageMakesNoFile)
{
    select(300);
    printer.StartDoc();
    EXPECT_EQ(printer.EndDoc(), 0);
    EXPECT_FALSE(QFileInfo::exists(setup->file));
}

TEST_F(PrinterTest, aFileThatCannotBeWrittenIsReported)
{
    setup->file = folder.filePath(u"not/there/out.pdf"_s);
    select(300);
    printer.StartDoc();
    EXPECT_NE(printer.StartPage(), 0);
    EXPECT_EQ(printer.EndDoc(), 0); // nothing was begun
}

TEST_F(PrinterTest, aDiskThatIsFullIsReported)
{
    setup->file = u"/dev/full"_s;
    select(300);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), 0);
    for (int n = 0; n < 100; ++n)
        properties.PrintLabel(label(u"12,345"_s, FormAlign::Right), true);
    EXPECT_NE(printer.EndDoc(), 0);
}

TEST_F(PrinterTest, copiesAreTheCallersToMake)
{
    setup->copies = 3;
    select(300);
    EXPECT_EQ(printer.copies(), 3);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), 0);
    ASSERT_EQ(printer.EndDoc(), 0);
    EXPECT_EQ(pdfPages(setup->file), 1);
}

TEST_F(PrinterTest, theProposedFileOverwritesNothing)
{
    QStringList proposed;
    Printer asking([&](QPrinter& chosen, QWidget*) {
        proposed << QFileInfo(chosen.outputFileName()).fileName();
        chosen.setOutputFileName(folder.filePath(QFileInfo(chosen.outputFileName()).fileName()));
        return true;
    });
    asking.setDocumentName(u"在庫/一覧"_s);
    for (int n = 0; n < 3; ++n) {
        ASSERT_TRUE(asking.choose(nullptr));
        asking.StartDoc();
        ASSERT_EQ(asking.StartPage(), 0);
        ASSERT_EQ(asking.EndDoc(), 0);
    }
    EXPECT_EQ(proposed, QStringList({u"在庫_一覧.pdf"_s, u"在庫_一覧 (2).pdf"_s, u"在庫_一覧 (3).pdf"_s}));
}

TEST(Resolution, is600WhereThePrinterCanOrDoesNotSay)
{
    EXPECT_EQ(workingResolution({}), 600);
    EXPECT_EQ(workingResolution({300, 600, 1200}), 600);
    EXPECT_EQ(workingResolution({203}), 203);
    EXPECT_EQ(workingResolution({360, 720}), 720);
}

} // namespace suisui::test
