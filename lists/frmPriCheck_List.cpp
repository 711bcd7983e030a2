#include "lists/frmPriCheck_List.h"

#include <QGuiApplication>
#include <QScopeGuard>

#include "frame/support/Check_Csv.h"
#include "frame/support/FocusPaint.h"
#include "frame/support/KeyField.h"
#include "platform/core/Clock.h"
#include "platform/core/DoEvents.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/Hourglass.h"
#include "platform/core/MsgBox.h"
#include "platform/widgets/SendKeys.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"
#include "store/TrnPrint.h"
#include "ui_frmPriCheck_List.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int scanInterval = 1;
constexpr int longestPageNumber = 6;
constexpr int eventInterval = 100; ///< milliseconds after which pending events run while printing

QString textOf(std::u16string_view text)
{
    return QStringView(text).toString();
}

} // namespace

frmPriCheck_List::frmPriCheck_List(const ReportTemplate& report, const vaSpread& grid, HeadNow head,
                                   const ListPrinting& printing, QWidget* parent)
    : QDialog(parent), m_report(report), m_grid(grid), m_head(std::move(head)), m_printing(printing),
      m_paper(printing.printer), m_pages(pageCount(report, grid.MaxRows())),
      m_ui(std::make_unique<Ui::frmPriCheck_List>()), m_gate(this)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_ui->lblSyori->setText(u"【 %1 一覧  】"_s.arg(m_printing.ini.Term(report.termIndex)));
    m_ui->lblListName->setText(
        u"一覧表示されている情報を\r\n%1\r\nに 印刷します"_s.arg(textOf(report.listName)));
    m_ui->txtPage_0->setText(u"1"_s);
    m_ui->txtPage_1->setText(QString::number(m_pages));
    wirePages();
    wireButtons();
}

frmPriCheck_List::~frmPriCheck_List() = default;

/// Digits only; Enter goes from the first page to the last, and on to the button.
void frmPriCheck_List::wirePages()
{
    const auto wire = [](KeyField& field, QWidget& next) {
        limitKeys(field, NumKeyCheck, longestPageNumber, [&next] { next.setFocus(); });
    };
    wire(*m_ui->txtPage_0, *m_ui->txtPage_1);
    wire(*m_ui->txtPage_1, *m_ui->CmdOK);
}

void frmPriCheck_List::wireButtons()
{
    m_focusPaint = std::make_unique<FocusPaint>(this, palette().color(QPalette::Button));
    connect(m_ui->CmdOK, &QPushButton::clicked, this, &frmPriCheck_List::CmdOK_Click);
    connect(m_ui->CmdEnd, &QPushButton::clicked, this, &frmPriCheck_List::reject);
    m_scan = new DialogScan(*this, scanInterval, m_printing.readLine, *m_ui->CmdOK, *m_ui->CmdEnd, &SendKeys);
    m_ui->txtPage_0->setFocus();
}

void frmPriCheck_List::CmdOK_Click()
{
    if (m_busy)
        return;
    m_busy = true;
    m_scan->stop();
    const PageRange range = correctedPages();
    if (choosePrinter() == PrinterChoice::Cancelled) {
        m_busy = false;
        m_scan->start();
        activateWindow();
        return;
    }
    printPages(range);
    m_busy = false;
    accept();
}

void frmPriCheck_List::reject()
{
    if (!m_busy)
        QDialog::reject();
}

/// The pages to print. The fields are corrected to show them.
PageRange frmPriCheck_List::correctedPages()
{
    const PageRange range = pageRange(m_ui->txtPage_0->text(), m_ui->txtPage_1->text(), m_pages);
    m_ui->txtPage_0->setText(QString::number(range.first));
    m_ui->txtPage_1->setText(QString::number(range.last));
    return range;
}

PrinterChoice frmPriCheck_List::choosePrinter()
{
    Printer& printer = m_printing.printer;
    printer.setOrientation(PaperOrientation::Landscape);
    printer.setDocumentName(textOf(m_report.title) + m_printing.clock.now().toString(u" yyyy-MM-dd"_s));
    return m_paper.PrinterSelect(this);
}

void frmPriCheck_List::printPages(PageRange range)
{
    ReportStatus status = ReportStatus::Failed;
    {
        m_gate.setEnabled(false);
        const auto enable = qScopeGuard([this] { m_gate.setEnabled(true); });
        const PointerShape working(hourglass());
        if (OffSetIchran(m_printing.baseFolder) == u"ZERO")
            m_paper.moveToCorner(inches(m_report.lines[0].at.x1), inches(m_report.lines[1].at.y1));
        m_sinceEvents.start();
        status = ListReport(m_report, m_grid).print(m_paper, headNow(), range, m_pages, [this](int, int) {
            letEventsRun();
        });
    }
    tell(status);
}

ReportHead frmPriCheck_List::headNow() const
{
    ReportHead head = m_head();
    head.texts[u"LbDate"] = m_printing.clock.now().toString(u"yyyy/MM/dd  HH:mm"_s) + u"  現在"_s;
    return head;
}

/// Often enough for the window to repaint, no more.
void frmPriCheck_List::letEventsRun()
{
    if (m_sinceEvents.elapsed() < eventInterval)
        return;
    DoEvents();
    m_sinceEvents.restart();
}

void frmPriCheck_List::tell(ReportStatus status)
{
    if (status == ReportStatus::Printed)
        return;
    const QString text = status == ReportStatus::DrawingFailed
                             ? textOf(m_report.drawingError)
                             : u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。"_s;
    m_printing.msgBox.show({.title = u" 印刷エラー"_s, .text = text});
}

} // namespace suisui
