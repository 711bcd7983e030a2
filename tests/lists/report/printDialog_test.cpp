// The platform's print dialog, as the operator sees it: it asks for a printer and its settings, but not for
// pages, which the program's own dialogs have asked for.
#include <functional>

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>

#include "tests/lists/report/ReportDesk.h"
#include "tests/support/CupsQueue.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

struct PrintDialog : ::testing::Test
{
    // One server for all tests: the client library asks for its address once.
    static void SetUpTestSuite() { queue = std::make_unique<CupsQueue>(); }
    static void TearDownTestSuite() { queue.reset(); }
    static inline std::unique_ptr<CupsQueue> queue;
    static inline int jobs = 0;

    void SetUp() override
    {
        ASSERT_TRUE(queue->missing().isEmpty()) << "no print server: " << queue->missing().toStdString();
    }

    QTemporaryDir folder;
    std::function<void(QPrintDialog&)> work; ///< what the operator does in the opened dialog
    bool shown = false;
    QStringList choices; ///< what the opened dialog offers next to the number of copies

    Printer printer{[this](QPrinter& chosen, QWidget* parent) {
        chosen.setPrinterName(QString::fromUtf8(CupsQueue::name));
        return asked(chosen, parent);
    }};
    Printer filePrinter{[this](QPrinter& chosen, QWidget* parent) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        chosen.setOutputFileName(folder.filePath(u"list.pdf"_s));
        return asked(chosen, parent);
    }};

    bool asked(QPrinter& chosen, QWidget* parent)
    {
        QTimer looking;
        QObject::connect(&looking, &QTimer::timeout, &looking, [this, &looking] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            looking.stop();
            look(*dialog);
        });
        looking.start(2);
        return Printer::platformDialog(chosen, parent);
    }

    /// Expands the dialog, records what it offers, runs work and prints.
    void look(QPrintDialog& dialog)
    {
        auto& buttons = *dialog.findChild<QDialogButtonBox*>();
        for (QAbstractButton* button : buttons.buttons())
            if (buttons.buttonRole(button) == QDialogButtonBox::ResetRole) {
                Q_EMIT button->pressed();
                Q_EMIT button->released();
            }
        auto* copies = dialog.findChild<QSpinBox*>(u"copies"_s);
        shown = copies != nullptr && copies->isVisible();
        for (const QAbstractSpinBox* box : dialog.findChildren<QAbstractSpinBox*>())
            if (box->isVisible() && box != copies)
                choices << box->objectName();
        // The buttons next to the copies; the other page has those for colour and sides.
        if (const auto* tabs = dialog.findChild<QTabWidget*>(u"tabs"_s))
            for (const QAbstractButton* button : tabs->widget(0)->findChildren<QAbstractButton*>())
                if (button->isVisible())
                    choices << button->objectName();
        if (work)
            work(dialog);
        buttons.button(QDialogButtonBox::Ok)->click();
    }
};

} // namespace

TEST_F(PrintDialog, ofAFileAsksForNoPagesAndNoOrder)
{
    ASSERT_EQ(filePrinter.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_TRUE(shown);
    EXPECT_EQ(choices.join(u' ').toStdString(), "");
}

TEST_F(PrintDialog, ofAPrinterAsksForNoPagesAndNoOrder)
{
    ASSERT_EQ(printer.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_TRUE(shown);
    EXPECT_EQ(choices.join(u' ').toStdString(), "");
}

TEST_F(PrintDialog, opensWithoutThemEachTime)
{
    for (int time = 0; time < 2; ++time) {
        ASSERT_EQ(printer.choose(nullptr), PrinterChoice::GoOn);
        EXPECT_EQ(choices.join(u' ').toStdString(), "") << time;
    }
}

TEST_F(PrintDialog, leavesPagesToTheProgram_andCopiesToTheOperator)
{
    work = [](QPrintDialog& dialog) { dialog.findChild<QSpinBox*>(u"copies"_s)->setValue(2); };
    Printer_Properties paper(printer);
    printer.setOrientation(PaperOrientation::Landscape);
    ASSERT_EQ(paper.PrinterSelect(nullptr), PrinterChoice::GoOn);
    const auto grid = filledGrid(rptList_In, 30);
    ASSERT_EQ(ListReport(rptList_In, *grid).print(paper, {}, {2, 3}, 3), ReportStatus::Printed);
    ++jobs;
    EXPECT_EQ(pdfPages(queue->job(jobs)), 4); // the second page and the third, twice
    EXPECT_FALSE(queue->jobTicket(jobs).contains(u"page-ranges"_s)) << queue->jobTicket(jobs).toStdString();
}

TEST_F(PrintDialog, getsTheNameOfTheDocument)
{
    QString name;
    work = [&name](QPrintDialog& dialog) { name = dialog.printer()->docName(); };
    printer.setDocumentName(u"在庫商品 一覧"_s);
    ASSERT_EQ(printer.choose(nullptr), PrinterChoice::GoOn);
    EXPECT_EQ(name, u"在庫商品 一覧"_s);
}

TEST_F(PrintDialog, takesAPrinterWithoutDuplex_thatIsAskedForBothSides)
{
    work = [](QPrintDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QRadioButton*>(u"duplexLong"_s)->isEnabled());
        dialog.printer()->setDuplex(QPrinter::DuplexLongSide);
    };
    Printer_Properties paper(printer);
    printer.setOrientation(PaperOrientation::Landscape);
    ASSERT_EQ(paper.PrinterSelect(nullptr), PrinterChoice::GoOn);
    const auto grid = filledGrid(rptList_Stock, 26);
    ASSERT_EQ(ListReport(rptList_Stock, *grid).print(paper, {}, {1, 2}, 2), ReportStatus::Printed);
    ++jobs;
    EXPECT_EQ(pdfPages(queue->job(jobs)), 2);
    EXPECT_TRUE(queue->jobTicket(jobs).contains(u"sides=one-sided"_s))
        << queue->jobTicket(jobs).toStdString();
}

} // namespace suisui::test
