// The dialog before a list report: its texts, its page fields, the choice of the printer, its messages.
#include "lists/frmPriCheck_List.h"

#include <deque>

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "store/AppIni.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/Eventually.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/PdfText.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"

namespace suisui::test {

namespace {

const QString printingError = u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。"_s;

struct DialogTest : ::testing::Test
{
    ReportDesk desk;
    AppIni ini;
    TestClock clock{QDateTime(QDate(2026, 11, 21), QTime(8, 5))};
    ScriptedMsgBox box;
    std::deque<QString> scans;
    ListPrinting printing{ini, clock, box, desk.printer, desk.folder.path(), [this] { return nextScan(); }};
    ReportHead head;
    std::unique_ptr<vaSpread> grid;
    std::unique_ptr<frmPriCheck_List> dialog;

    QString nextScan()
    {
        if (scans.empty())
            return {};
        QString line = scans.front();
        scans.pop_front();
        return line;
    }
    void open(const ReportTemplate& report, int rows)
    {
        grid = filledGrid(report, rows);
        dialog = std::make_unique<frmPriCheck_List>(
            report, *grid, [this] { return head; }, printing, nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(eventually([this] { return dialog->isActiveWindow(); }));
    }
    [[nodiscard]] QLineEdit& page(int index) const
    {
        return *dialog->findChild<QLineEdit*>(u"txtPage_%1"_s.arg(index));
    }
    [[nodiscard]] QPushButton& button(const QString& name) const
    {
        return *dialog->findChild<QPushButton*>(name);
    }
    [[nodiscard]] QString label(const QString& name) const
    {
        return dialog->findChild<QLabel*>(name)->text();
    }
    void writeOffset(const QByteArray& value) const
    {
        ASSERT_TRUE(QDir(desk.folder.path()).mkpath(u"Ini"_s));
        QFile file(desk.folder.filePath(u"Ini/TrnPrint.ini"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[FileName]\r\nOffSetIchran=" + value + "\r\n");
    }
};

} // namespace

TEST_F(DialogTest, saysWhichListItPrints)
{
    struct Case
    {
        const ReportTemplate& report;
        QString syori;
        QString list;
    };
    const Case cases[] = {
        {rptList_Stock, u"【 在庫 一覧  】"_s,
         u"一覧表示されている情報を\r\n「 在庫 明細一覧 」\r\nに 印刷します"_s},
        {rptList_In, u"【 入荷 一覧  】"_s,
         u"一覧表示されている情報を\r\n「 入荷 明細一覧 」\r\nに 印刷します"_s},
        {rptList_Out, u"【 出荷 一覧  】"_s,
         u"一覧表示されている情報を\r\n「 出荷 明細一覧 」\r\nに 印刷します"_s},
    };
    for (const Case& one : cases) {
        open(one.report, 1);
        EXPECT_EQ(dialog->windowTitle(), u" 一覧印刷"_s);
        EXPECT_EQ(label(u"lblSyori"_s), one.syori);
        EXPECT_EQ(label(u"lblListName"_s), one.list);
        EXPECT_EQ(dialog->findChild<QGroupBox*>(u"fraPage"_s)->title(), u" ページ指定 "_s);
        EXPECT_EQ(dialog->findChild<QGroupBox*>(u"fraPrinter"_s)->title(), u" プリンタの設定 "_s);
        EXPECT_EQ(label(u"lblHint_0"_s), u"「Ａ４ 横」 で"_s);
        EXPECT_EQ(label(u"lblHint_1"_s), u"設定して下さい。"_s);
        EXPECT_EQ(label(u"lblPaperSize"_s), u"用紙サイズ"_s);
        EXPECT_EQ(label(u"lblPaper"_s), u"Ａ４"_s);
        EXPECT_EQ(label(u"lblTurn"_s), u"印刷の向き"_s);
        EXPECT_EQ(page(0).toolTip(), u"印刷開始ページ"_s);
        EXPECT_EQ(page(1).toolTip(), u"印刷最終ページ"_s);
        EXPECT_EQ(button(u"CmdOK"_s).text(), u"印刷"_s);
        EXPECT_EQ(button(u"CmdEnd"_s).text(), u"戻る"_s);
    }
}

TEST_F(DialogTest, aGridWithoutRows_isReported_andOpensNothing)
{
    for (const ReportTemplate* report : {&rptList_Stock, &rptList_In, &rptList_Out}) {
        const auto empty = filledGrid(*report, 0);
        printList(
            *report, *empty, [] { return ReportHead{}; }, printing, nullptr);
        expectOneBox(
            box,
            {.title = u"一覧印刷"_s,
             .text =
                 u"印刷する情報がありません。\r\n\r\n対象の情報を 検索（表示）した後に　　\r\n再度、印刷して下さい。"_s,
             .icon = BoxIcon::Stop});
        box.shown.clear();
    }
    EXPECT_EQ(desk.setup->timesAsked, 0);
}

TEST_F(DialogTest, opensWithAllPages)
{
    open(rptList_Stock, 51);
    EXPECT_EQ(page(0).text(), u"1"_s);
    EXPECT_EQ(page(1).text(), u"3"_s);
    open(rptList_In, 51);
    EXPECT_EQ(page(1).text(), u"6"_s);
}

TEST_F(DialogTest, pageFieldsTakeDigits_andEnterMovesOnToTheButton)
{
    open(rptList_In, 100);
    EXPECT_TRUE(page(0).hasFocus());
    QTest::keyClicks(&page(0), u"-x3."_s);
    EXPECT_EQ(page(0).text(), u"3"_s); // what was there is selected and typed over
    QTest::keyClick(&page(0), Qt::Key_Return);
    EXPECT_TRUE(page(1).hasFocus());
    QTest::keyClicks(&page(1), u"5"_s);
    QTest::keyClick(&page(1), Qt::Key_Return);
    EXPECT_TRUE(button(u"CmdOK"_s).hasFocus());
    EXPECT_EQ(desk.setup->timesAsked, 0);
    QTest::keyClick(&button(u"CmdOK"_s), Qt::Key_Return);
    EXPECT_EQ(desk.setup->timesAsked, 1);
    EXPECT_EQ(pdfPages(desk.setup->file), 3);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DialogTest, pageFields_areCorrectedSilently)
{
    open(rptList_Stock, 100); // four pages
    desk.setup->cancelled = true;
    page(0).setText(u"3"_s);
    page(1).setText(u"2"_s);
    dialog->CmdOK_Click();
    EXPECT_EQ(page(0).text(), u"3"_s);
    EXPECT_EQ(page(1).text(), u"4"_s);
    page(0).setText(u"たくさん"_s);
    page(1).setText(QString());
    dialog->CmdOK_Click();
    EXPECT_EQ(page(0).text(), u"1"_s);
    EXPECT_EQ(page(1).text(), u"4"_s);
    EXPECT_TRUE(box.shown.empty());
}

TEST_F(DialogTest, aCancelledPrinter_leavesTheDialogOpen_andPrintsNothing)
{
    open(rptList_Out, 20);
    desk.setup->cancelled = true;
    button(u"CmdOK"_s).click();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(QFileInfo::exists(desk.setup->file));
    EXPECT_EQ(desk.printer.orientation(), PaperOrientation::Landscape);
    desk.setup->cancelled = false;
    scans = {u"[P]"_s}; // the reader is read again
    EXPECT_TRUE(eventually([this] { return !dialog->isVisible(); }));
    EXPECT_EQ(pdfPages(desk.setup->file), 2);
}

TEST_F(DialogTest, theReaderIsNotRead_whileThePrinterIsChosen)
{
    scans = {u"[T]"_s};
    Printer printer([this](QPrinter& chosen, QWidget*) {
        chosen.setOutputFormat(QPrinter::PdfFormat);
        chosen.setOutputFileName(desk.setup->file);
        letTheTimersTick();
        EXPECT_EQ(scans.size(), 1U);
        dialog->CmdOK_Click(); // a second press does nothing
        dialog->reject();      // and it does not close meanwhile
        EXPECT_TRUE(dialog->isVisible());
        return true;
    });
    const ListPrinting waiting{ini, clock, box, printer, desk.folder.path(), [this] { return nextScan(); }};
    grid = filledGrid(rptList_Stock, 5);
    dialog = std::make_unique<frmPriCheck_List>(
        rptList_Stock, *grid, [] { return ReportHead{}; }, waiting, nullptr);
    dialog->show();
    dialog->CmdOK_Click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(pdfPages(desk.setup->file), 1);
}

TEST_F(DialogTest, theReaderPressesTheButtons)
{
    open(rptList_In, 5);
    scans = {u"4901001000017"_s, u"[T]"_s}; // a goods code means nothing here
    EXPECT_TRUE(eventually([this] { return !dialog->isVisible(); }));
    EXPECT_EQ(desk.setup->timesAsked, 0);
}

TEST_F(DialogTest, theButtonBackClosesWithoutPrinting)
{
    open(rptList_In, 5);
    button(u"CmdEnd"_s).click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(desk.setup->timesAsked, 0);
}

TEST_F(DialogTest, theStockList_carriesThePrintTime_theOthersTheHeadOfTheirTab)
{
    open(rptList_Stock, 5);
    clock.setNow(QDateTime(QDate(2026, 3, 4), QTime(17, 6)));
    dialog->CmdOK_Click();
    EXPECT_EQ(textIn(pdfWords(desk.setup->file), 1, QRectF(690, 34, 120, 13)), u"2026/03/0417:06現在"_s);

    open(rptList_Out, 5);
    head.texts[u"LbSyouhin"] = u"4901*"_s; // changed after the search, but it is what is printed
    dialog->CmdOK_Click();
    EXPECT_EQ(textIn(pdfWords(desk.setup->file), 1, QRectF(349, 63.8, 225, 12.7)), u"4901*"_s);
}

TEST_F(DialogTest, theWordZeroMovesTheListToTheCorner)
{
    struct Case
    {
        QByteArray value;
        double left; ///< points
    };
    // The left line is 1093 twips from the edge; any other word than the right one moves nothing.
    const Case cases[] = {{"ZERO", 0}, {"zero", 1093 / 20.0}, {"ZER", 1093 / 20.0}, {"", 1093 / 20.0}};
    const auto leftmost = [this] {
        const QImage picture = pdfPicture(desk.setup->file, 1, 72);
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, 300)) < 160)
                return x;
        return -1;
    };
    for (const Case& one : cases) {
        writeOffset(one.value);
        open(rptList_In, 10);
        dialog->CmdOK_Click();
        EXPECT_NEAR(leftmost(), one.left, 1) << one.value.toStdString();
    }
    ASSERT_TRUE(QFile::remove(desk.folder.filePath(u"Ini/TrnPrint.ini"_s)));
    open(rptList_In, 10);
    dialog->CmdOK_Click();
    EXPECT_NEAR(leftmost(), 1093 / 20.0, 1);
}

TEST_F(DialogTest, aFailure_isReported_andTheDialogCloses)
{
    struct Case
    {
        const ReportTemplate& report;
        QString text;
    };
    const Case cases[] = {
        {rptList_Stock, printingError},
        {rptList_In, printingError},
        {rptList_Out, u"印刷中にエラーが発生しました。"_s}, // without the blank, as it has always been
    };
    desk.setup->file = u"/no/such/folder/list.pdf"_s;
    for (const Case& one : cases) {
        open(one.report, 30);
        dialog->CmdOK_Click();
        expectOneBox(box, {.title = u" 印刷エラー"_s, .text = one.text, .icon = BoxIcon::Stop});
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        box.shown.clear();
    }
    desk.setup->file = u"/dev/full"_s; // noticed when the document is closed
    open(rptList_Out, 1);
    dialog->CmdOK_Click();
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].text, printingError);
}

TEST_F(DialogTest, takesNoInputWhileItPrints_andIsUsableAfterwards)
{
    open(rptList_Stock, 200);
    const auto typesWhilePrinting = [this] {
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        QTest::keyClick(&page(0), Qt::Key_9);
        QTest::mouseClick(&button(u"CmdEnd"_s), Qt::LeftButton);
        EXPECT_EQ(page(0).text(), u"1"_s);
        EXPECT_TRUE(dialog->isVisible());
        return head;
    };
    dialog = std::make_unique<frmPriCheck_List>(rptList_Stock, *grid, typesWhilePrinting, printing, nullptr);
    dialog->show();
    dialog->CmdOK_Click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(pdfPages(desk.setup->file), 8);
}

} // namespace suisui::test
