// The chosen printer: its values, its documents, and what goes wrong with them.
#include <QDir>
#include <QFileInfo>

#include "tests/lists/report/PrinterDesk.h"

namespace suisui::test {

TEST_F(PrinterTest, aCancelledDialog_leavesPrinterAndValuesAsTheyWere)
{
    select(600, {12, 24, 12, 24});
    setup->cancelled = true;
    setup->dpi = 300;
    setup->margins = {};
    setup->file = folder.filePath(u"other.pdf"_s);
    setup->copies = 7;
    EXPECT_EQ(properties.PrinterSelect(nullptr), PrinterChoice::Cancelled);
    EXPECT_EQ(properties.PrtDpiX(), 600);
    EXPECT_EQ(properties.PrtOffsetX(), 100);
    EXPECT_EQ(printer.geometry().dpiX, 600);
    EXPECT_EQ(printer.fileName(), folder.filePath(u"out.pdf"_s));
    EXPECT_EQ(printer.copies(), 1);
    EXPECT_EQ(printer.orientation(), PaperOrientation::Landscape);
}

TEST_F(PrinterTest, theValues_areThoseOfTheChosenPrinterAndPaper)
{
    select(600, {12, 24, 12, 24});
    EXPECT_EQ(properties.PrtDpiX(), 600);
    EXPECT_EQ(properties.PrtDpiY(), 600);
    EXPECT_EQ(properties.PrtOffsetX(), 100); // 12 / 72 inch
    EXPECT_EQ(properties.PrtOffsetY(), 200);
    EXPECT_EQ(printer.geometry().width, 7016);  // 297 mm
    EXPECT_EQ(printer.geometry().height, 4961); // 210 mm
    select(300, {12, 24, 12, 24});
    EXPECT_EQ(properties.PrtOffsetX(), 50);
    EXPECT_EQ(properties.PrtOffsetY(), 100);
}

TEST_F(PrinterTest, aLandscapePage_keepsTheMargins_turnedEitherWay)
{
    // The sheet as it is fed: 12 points on the left, 24 at the top, 36 on the right, 48 at the bottom.
    Printer laser([](QPrinter& chosen, QWidget*) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        QPageLayout layout = chosen.pageLayout();
        layout.setMinimumMargins({12, 24, 36, 48});
        return chosen.setPageLayout(layout);
    });
    ASSERT_EQ(laser.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(laser.geometry().offsetX, 100);
    EXPECT_EQ(laser.geometry().offsetY, 200);
    laser.setOrientation(PaperOrientation::Landscape);
    EXPECT_EQ(laser.geometry().offsetX, 400); // the wider one of top and bottom
    EXPECT_EQ(laser.geometry().offsetY, 300); // of left and right
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
    ASSERT_EQ(metric.choose(nullptr), PrinterChoice::GoOn);
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
    EXPECT_EQ(simplex.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(simplex.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(simplex.geometry().dpiX, 600);
}

TEST_F(PrinterTest, paperOfAnotherSizeIsTakenAsChosen)
{
    setup->paper = QPageSize(QPageSize::B5);
    select(600);
    EXPECT_EQ(printer.geometry().width, 5906);  // 250 mm
    EXPECT_EQ(printer.geometry().height, 4157); // 176 mm
}

TEST_F(PrinterTest, aLineHalfAnInchInPullsTheOffsetToItself)
{
    select(600, {12, 12, 0, 0});
    properties.moveToCorner(0.5, 0.25);
    EXPECT_EQ(properties.PrtOffsetX(), 300);
    EXPECT_EQ(properties.PrtOffsetY(), 150);
}

TEST_F(PrinterTest, aLineNearerTheEdgeThanTheMargin_givesANegativeOffset)
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

TEST_F(PrinterTest, aDocumentHasThePagesThatWereStarted)
{
    select(300);
    setup->file = folder.filePath(u"three.pdf"_s);
    ASSERT_EQ(properties.PrinterSelect(nullptr), PrinterChoice::GoOn);
    printer.StartDoc();
    for (int page = 0; page < 3; ++page)
        ASSERT_EQ(printer.StartPage(), PrintStatus::Good);
    EXPECT_EQ(printer.EndDoc(), PrintStatus::Good);
    EXPECT_EQ(pdfPages(setup->file), 3);
}

TEST_F(PrinterTest, aDocumentWithoutAPageMakesNoFile)
{
    select(300);
    printer.StartDoc();
    EXPECT_EQ(printer.EndDoc(), PrintStatus::Good);
    EXPECT_FALSE(QFileInfo::exists(setup->file));
}

TEST_F(PrinterTest, aFileThatCannotBeWrittenIsReported)
{
    setup->file = folder.filePath(u"not/there/out.pdf"_s);
    select(300);
    printer.StartDoc();
    EXPECT_NE(printer.StartPage(), PrintStatus::Good);
    EXPECT_EQ(printer.EndDoc(), PrintStatus::Good); // nothing was begun
}

TEST_F(PrinterTest, aDiskThatIsFullIsReported)
{
    setup->file = u"/dev/full"_s;
    select(300);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), PrintStatus::Good);
    for (int n = 0; n < 100; ++n)
        properties.PrintLabel(label(u"12,345"_s, FormAlign::Right), true);
    EXPECT_NE(printer.EndDoc(), PrintStatus::Good);
}

TEST_F(PrinterTest, copiesAreTheCallersToMake)
{
    setup->copies = 3;
    select(300);
    EXPECT_EQ(printer.copies(), 3);
    printer.StartDoc();
    ASSERT_EQ(printer.StartPage(), PrintStatus::Good);
    ASSERT_EQ(printer.EndDoc(), PrintStatus::Good);
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
        ASSERT_EQ(asking.choose(nullptr), PrinterChoice::GoOn);
        asking.StartDoc();
        ASSERT_EQ(asking.StartPage(), PrintStatus::Good);
        ASSERT_EQ(asking.EndDoc(), PrintStatus::Good);
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
