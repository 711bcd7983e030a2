// A list report sent to a real print server, and printers that disappear.
#include <gtest/gtest.h>

#include "tests/lists/report/ReportDesk.h"
#include "tests/support/CupsQueue.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

struct PrintQueueTest : ::testing::Test
{
    // One server for all tests: the client library asks for its address once.
    static void SetUpTestSuite() { queue = std::make_unique<CupsQueue>(); }
    static void TearDownTestSuite() { queue.reset(); }
    static inline std::unique_ptr<CupsQueue> queue;
    static inline int jobs = 0;

    int copies = 1;
    Printer printer{[this](QPrinter& chosen, QWidget*) {
        chosen.setPrinterName(QString::fromUtf8(CupsQueue::name));
        chosen.setCopyCount(copies);
        return true;
    }};
    Printer_Properties paper{printer};

    void SetUp() override
    {
        ASSERT_TRUE(queue->missing().isEmpty()) << "no print server: " << queue->missing().toStdString();
    }
    [[nodiscard]] bool select()
    {
        printer.setOrientation(PaperOrientation::Landscape);
        printer.setDocumentName(u"在庫商品 一覧"_s);
        return paper.PrinterSelect(nullptr) == PrinterChoice::GoOn;
    }
};

} // namespace

TEST_F(PrintQueueTest, aListArrivesAtThePrinterAsOneJob)
{
    copies = 2;
    ASSERT_TRUE(select());
    EXPECT_EQ(printer.deviceName(), QString::fromUtf8(CupsQueue::name));
    EXPECT_EQ(paper.PrtDpiX(), 300);
    EXPECT_EQ(paper.PrtOffsetX(), 200); // 48 points at the head of the sheet, which is more than at its foot
    EXPECT_EQ(paper.PrtOffsetY(), 150); // 36 points at its right
    const auto grid = filledGrid(rptList_Stock, 30);
    ASSERT_EQ(ListReport(rptList_Stock, *grid).print(paper, {}, {1, 2}, 2), ReportStatus::Printed);
    const QString file = queue->job(++jobs);
    ASSERT_FALSE(file.isEmpty());
    EXPECT_EQ(pdfPages(file), 4); // both copies, made by the program
    const QStringList ticket = queue->jobTicket(jobs).split(u' ');
    EXPECT_TRUE(queue->jobTicket(jobs).contains(u" 在庫商品 一覧 1 "_s))
        << queue->jobTicket(jobs).toStdString();
    const auto words = pdfWords(file);
    const TwipBox& code = elementOf(rptList_Stock, u"LbCode").box;
    const QRectF box(code.left.value() / 20.0, (code.top + 360_tw * 4).value() / 20.0,
                     code.width.value() / 20.0, code.height.value() / 20.0);
    EXPECT_EQ(textIn(words, 1, box.translated(0, 0)), grid->qtext(StockCells::code, 5));
    EXPECT_EQ(textIn(words, 4, box), grid->qtext(StockCells::code, 30));
}

TEST_F(PrintQueueTest, thePrinterStaysChosen)
{
    ASSERT_TRUE(select());
    Printer next([](QPrinter& chosen, QWidget*) { return chosen.isValid(); });
    EXPECT_EQ(next.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(next.deviceName(), QString::fromUtf8(CupsQueue::name)); // the only one there is
    EXPECT_EQ(next.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(next.deviceName(), QString::fromUtf8(CupsQueue::name));
}

TEST_F(PrintQueueTest, aPrinterThatIsGoneBeforeTheFirstPage_isReported)
{
    ASSERT_TRUE(select());
    const auto grid = filledGrid(rptList_In, 30);
    queue->removePrinter();
    EXPECT_EQ(ListReport(rptList_In, *grid).print(paper, {}, {1, 3}, 3), ReportStatus::DrawingFailed);
    queue->addPrinter();
}

TEST_F(PrintQueueTest, aPrinterThatGoesAwayWhilePrinting_isReported)
{
    ASSERT_TRUE(select());
    const auto grid = filledGrid(rptList_In, 30);
    const auto removing = [](int done, int) {
        if (done == 2)
            queue->removePrinter();
    };
    EXPECT_EQ(ListReport(rptList_In, *grid).print(paper, {}, {1, 3}, 3, removing), ReportStatus::Failed);
    queue->addPrinter();
    EXPECT_EQ(ListReport(rptList_In, *grid).print(paper, {}, {1, 3}, 3), ReportStatus::Printed); // and usable
    EXPECT_EQ(pdfPages(queue->job(++jobs)), 3);
}

} // namespace suisui::test
