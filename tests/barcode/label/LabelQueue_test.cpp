// Label sheets sent to a real print server from the dialog: what arrives at the printer is read by a bar-code
// reader and measured dot by dot.
#include <utility>

#include <gtest/gtest.h>

#include "barcode/label/LabelSheets.h"
#include "platform/widgets/Printer.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "tests/barcode/label/LabelDesk.h"
#include "tests/barcode/label/PrintedLabels.h"
#include "tests/support/BarReader.h"
#include "tests/support/CupsQueue.h"
#include "tests/support/PdfText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// The queue's printer: 12 and 48 points cannot be printed.
constexpr PrinterDots queueDots{300, 300, 50, 200};

class LabelQueue : public ::testing::Test
{
protected:
    // One server for all tests: the client library asks for its address once.
    static void SetUpTestSuite() { queue = std::make_unique<CupsQueue>(); }
    static void TearDownTestSuite() { queue.reset(); }
    static inline std::unique_ptr<CupsQueue> queue;
    static inline int jobs = 0;

    void SetUp() override { ASSERT_EQ(queue->missing().toStdString(), ""); }

    void open(const std::vector<LabelledRow>& rows, int sheet)
    {
        desk.fill(rows);
        desk.dialog = std::make_unique<frm_PriCheck>(
            desk.source, frm_PriCheck::Surroundings{desk.ini, desk.box, barPrt, [] { return QString(); }},
            nullptr);
        desk.sheet(sheet);
    }

    int failures = 0;
    int copies = 1;
    bool goesAway = false; ///< after it has been chosen
    Printer printer{[this](QPrinter& chosen, QWidget*) {
        chosen.setPrinterName(QString::fromUtf8(CupsQueue::name));
        chosen.setCopyCount(copies);
        if (std::exchange(goesAway, false))
            queue->removePrinter();
        return true;
    }};
    PrinterBarPrt barPrt{printer, [this] { ++failures; }};
    LabelDialogDesk desk;
};

} // namespace

TEST_F(LabelQueue, everySheet_arrivesAsOneJob_andEveryLabelReadsBackToItsCode)
{
    for (int sheet = 0; sheet < fixedSheets; ++sheet) {
        const LabelSheet& figures = labelSheets.at(static_cast<std::size_t>(sheet));
        const auto rows = rowsFor(figures.columns * figures.rows);
        open(rows, sheet);
        desk.dialog->CmdOK_Click();
        ASSERT_TRUE(desk.dialog->printed());
        const QString file = queue->job(++jobs);
        ASSERT_FALSE(file.isEmpty());
        EXPECT_TRUE(queue->jobTicket(jobs).contains(u" バーコード 1 "_s))
            << queue->jobTicket(jobs).toStdString();
        ASSERT_EQ(pdfPages(file), 1);
        const QImage page = pdfPicture(file, 1, 300, Edges::Exact);
        EXPECT_EQ(readBarCodes(page), joined(rows)) << "sheet " << sheet;
        for (const int position : {0, figures.columns * figures.rows - 1})
            expectBarsAt(page, queueDots, figures, position, rows[static_cast<std::size_t>(position)].code);
    }
    EXPECT_EQ(failures, 0);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_F(LabelQueue, aSecondCopy_bringsTheFunctionCodesAlone)
{
    copies = 2;
    const auto rows = rowsFor(10);
    open(rows, 0);
    desk.button("chkKinou_0")->setChecked(true);
    desk.button("chkKinou_1")->setChecked(true);
    desk.dialog->CmdOK_Click();
    const QString file = queue->job(++jobs);
    ASSERT_EQ(pdfPages(file), 2); // and the printer is asked for one copy
    EXPECT_TRUE(queue->jobTicket(jobs).contains(u" バーコード 1 "_s)) << queue->jobTicket(jobs).toStdString();
    const std::string functions = "[0] [1] [2] [3] [4] [A] [B] [C] [D] [E]";
    EXPECT_EQ(readBarCodes(pdfPicture(file, 1, 300, Edges::Exact)), joined(rows) + " " + functions);
    EXPECT_EQ(readBarCodes(pdfPicture(file, 2, 300, Edges::Exact)), functions);
    EXPECT_EQ(failures, 0);
}

TEST_F(LabelQueue, aPrinterThatGoesAway_isReportedOnce_andTheNextPrintWorks)
{
    const auto rows = rowsFor(3);
    open(rows, 0);
    goesAway = true;
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(failures, 1);
    queue->addPrinter();
    open(rows, 0);
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(readBarCodes(pdfPicture(queue->job(++jobs), 1, 300, Edges::Exact)), joined(rows));
}

} // namespace suisui::test
