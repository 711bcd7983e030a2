// List reports on a network printer as shops have it, through the print server and its filters: what arrives
// is measured.
#include <algorithm>

#include <gtest/gtest.h>

#include <QFile>
#include <QTransform>

#include "lists/frmPriCheck_List.h"
#include "store/AppIni.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/IppPrinter.h"
#include "tests/support/PdfText.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"

namespace suisui::test {

namespace {

constexpr double dotsPerTwip = IppPrinter::dpi / 1440.0;
constexpr double dotsPerPoint = IppPrinter::dpi / 72.0;
constexpr int rows = 30; ///< three pages
constexpr int pages = 3;

/// Where the ink of a page begins, in dots from the corner of the page as it is read.
QPoint inkOf(const QImage& page)
{
    const auto inRow = [&page](int y) {
        for (int x = 0; x < page.width(); ++x)
            if (qGray(page.pixel(x, y)) < 128)
                return x;
        return page.width();
    };
    QPoint corner(page.width(), page.height());
    for (int y = page.height() - 1; y >= 0; --y) {
        const int x = inRow(y);
        corner.setX(std::min(corner.x(), x));
        if (x < page.width())
            corner.setY(y);
    }
    return corner;
}

struct IppPrinterTest : ::testing::TestWithParam<QPageSize::PageSizeId>
{
    // One printer for all tests: the client library asks for the address of the print server once.
    static void SetUpTestSuite() { office = std::make_unique<IppPrinter>(); }
    static void TearDownTestSuite() { office.reset(); }
    static inline std::unique_ptr<IppPrinter> office;
    static inline int jobs = 0;

    void SetUp() override { ASSERT_EQ(office->missing().toStdString(), ""); }

    int copies = 1;
    QTemporaryDir folder;
    AppIni ini;
    TestClock clock{QDateTime(QDate(2026, 11, 21), QTime(8, 5))};
    ScriptedMsgBox box;
    Printer printer{[this](QPrinter& chosen, QWidget*) {
        chosen.setPrinterName(QString::fromUtf8(IppPrinter::name));
        chosen.setPageSize(QPageSize(GetParam()));
        chosen.setCopyCount(copies);
        return true;
    }};
    ListPrinting printing{ini, clock, box, printer, folder.path(), [] { return QString(); }};

    /// Prints as the dialog of the list does; returns the document that arrives.
    [[nodiscard]] QString print(const vaSpread& grid)
    {
        frmPriCheck_List dialog(
            rptList_In, grid, [] { return ReportHead(); }, printing, nullptr);
        dialog.show();
        dialog.CmdOK_Click();
        EXPECT_TRUE(box.shown.empty());
        return office->job(++jobs);
    }
    /// A page upright. The filters have turned it to the right on the sheet.
    [[nodiscard]] static QImage upright(const QString& file, int page)
    {
        return pdfPicture(file, page, IppPrinter::dpi, Edges::Exact).transformed(QTransform().rotate(-90));
    }
};

} // namespace

TEST_P(IppPrinterTest, aListArrivesAtThePlacesOfItsForm)
{
    const QString file = print(*filledGrid(rptList_In, rows));
    ASSERT_FALSE(file.isEmpty());
    ASSERT_EQ(pdfPages(file), pages);
    const QSize paper = QPageSize(GetParam()).sizePixels(IppPrinter::dpi).transposed();
    const QImage page = upright(file, 1);
    EXPECT_NEAR(page.width(), paper.width(), 2);
    EXPECT_NEAR(page.height(), paper.height(), 2);
    EXPECT_NEAR(inkOf(page).x(), rptList_In.lines[0].at.x1.value() * dotsPerTwip, 2);
    EXPECT_NEAR(inkOf(page).y(), rptList_In.lines[1].at.y1.value() * dotsPerTwip, 2);
}

TEST_P(IppPrinterTest, theWordZero_movesTheListToWhereThePrinterBegins)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Ini"_s));
    QFile settings(folder.filePath(u"Ini/TrnPrint.ini"_s));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[FileName]\r\nOffSetIchran=ZERO\r\n");
    settings.close();
    const QString file = print(*filledGrid(rptList_In, rows));
    ASSERT_FALSE(file.isEmpty());
    const QPoint ink = inkOf(upright(file, 1));
    // The left edge of the page comes to the head of the sheet.
    EXPECT_NEAR(ink.x(), IppPrinter::margins.top() * dotsPerPoint, 2);
    // Its upper line is nearer to the edge of the form than the right margin of the sheet is wide, so the
    // margin is kept twice.
    EXPECT_NEAR(ink.y(), 2 * IppPrinter::margins.right() * dotsPerPoint, 2);
}

TEST_P(IppPrinterTest, twoCopies_areTwiceThePages_andThePrinterMakesNoMore)
{
    copies = 2;
    const QString file = print(*filledGrid(rptList_In, rows));
    ASSERT_FALSE(file.isEmpty());
    EXPECT_EQ(pdfPages(file), 2 * pages);
    const QString asked = office->asked(jobs, u"IPP_COPIES"_s);
    EXPECT_TRUE(asked.isEmpty() || asked == u"1"_s) << asked.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Papers, IppPrinterTest, ::testing::Values(QPageSize::A4, QPageSize::Letter));

} // namespace suisui::test
