// Labels on a network printer as shops have it, through the print server and its filters: what arrives is
// read by a bar-code reader and measured.
#include <gtest/gtest.h>

#include "platform/widgets/Printer.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "tests/barcode/label/LabelDesk.h"
#include "tests/barcode/label/PrintedLabels.h"
#include "tests/support/BarReader.h"
#include "tests/support/IppPrinter.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

/// The printer cannot print 12 points at the left and 48 at the top.
constexpr PrinterDots officeDots{IppPrinter::dpi, IppPrinter::dpi, 50, 200};

struct LabelIpp : ::testing::TestWithParam<QPageSize::PageSizeId>
{
    // One printer for all tests: the client library asks for the address of the print server once.
    static void SetUpTestSuite() { office = std::make_unique<IppPrinter>(); }
    static void TearDownTestSuite() { office.reset(); }
    static inline std::unique_ptr<IppPrinter> office;
    static inline int jobs = 0;

    void SetUp() override { ASSERT_EQ(office->missing().toStdString(), ""); }

    int copies = 1;
    bool functionCodes = false;
    int failures = 0;
    Printer printer{[this](QPrinter& chosen, QWidget*) {
        chosen.setPrinterName(QString::fromUtf8(IppPrinter::name));
        chosen.setPageSize(QPageSize(GetParam()));
        chosen.setCopyCount(copies);
        return true;
    }};
    PrinterBarPrt barPrt{printer, [this] { ++failures; }};
    LabelDialogDesk desk;

    /// Prints \a rows on \a sheet; returns the document that arrives.
    [[nodiscard]] QString print(const std::vector<LabelledRow>& rows, int sheet)
    {
        desk.fill(rows);
        desk.dialog = std::make_unique<frm_PriCheck>(
            desk.source, frm_PriCheck::Surroundings{desk.ini, desk.box, barPrt, [] { return QString(); }},
            nullptr);
        desk.sheet(sheet);
        for (const char* box : {"chkKinou_0", "chkKinou_1"})
            desk.button(box)->setChecked(functionCodes);
        desk.dialog->CmdOK_Click();
        EXPECT_TRUE(desk.dialog->printed());
        EXPECT_EQ(failures, 0);
        return office->job(++jobs);
    }
};

} // namespace

TEST_P(LabelIpp, everyLabel_arrivesAtItsMillimetres_andReadsBackToItsCode)
{
    const auto rows = rowsFor(12); // whole rows that fit the shorter paper too
    const QString file = print(rows, 0);
    ASSERT_FALSE(file.isEmpty());
    ASSERT_EQ(pdfPages(file), 1);
    const QImage page = pdfPicture(file, 1, IppPrinter::dpi, Edges::Exact);
    const QSize paper = QPageSize(GetParam()).sizePixels(IppPrinter::dpi);
    EXPECT_NEAR(page.width(), paper.width(), 2);
    EXPECT_NEAR(page.height(), paper.height(), 2);
    EXPECT_EQ(readBarCodes(page), joined(rows));
    for (const int position : {0, 11})
        expectBarsAt(page, officeDots, labelSheets.at(0), position,
                     rows[static_cast<std::size_t>(position)].code);
}

TEST_P(LabelIpp, aSecondCopy_isFunctionCodesAlone_andThePrinterMakesNone)
{
    copies = 2;
    functionCodes = true;
    const auto rows = rowsFor(10);
    const QString file = print(rows, 0);
    ASSERT_FALSE(file.isEmpty());
    ASSERT_EQ(pdfPages(file), 2);
    const std::string functions = "[0] [1] [2] [3] [4] [A] [B] [C] [D] [E]";
    EXPECT_EQ(readBarCodes(pdfPicture(file, 1, IppPrinter::dpi, Edges::Exact)),
              joined(rows) + " " + functions);
    EXPECT_EQ(readBarCodes(pdfPicture(file, 2, IppPrinter::dpi, Edges::Exact)), functions);
    const QString asked = office->asked(jobs, u"IPP_COPIES"_s);
    EXPECT_TRUE(asked.isEmpty() || asked == u"1"_s) << asked.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Papers, LabelIpp, ::testing::Values(QPageSize::A4, QPageSize::Letter));

} // namespace suisui::test
