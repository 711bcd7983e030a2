#include "platform/widgets/Printer.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "platform/core/Length.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int usualResolution = 600;
constexpr double pointsPerInch = 72;

/// The platform's dialog without what nothing would come of. Which pages are printed is asked in the
/// program's own dialogs; a range from here would go to the print server beside the document and cut through
/// the copies in it, and a PDF file would not heed it at all. The reverse order reaches neither. No option of
/// the dialog turns these off.
class HonestDialog final : public QPrintDialog
{
public:
    using QPrintDialog::QPrintDialog;

    void setVisible(bool visible) override
    {
        QPrintDialog::setVisible(visible); // shows the box for the range each time
        for (const auto& name : {u"gbPrintRange"_s, u"reverse"_s})
            if (auto* idle = findChild<QWidget*>(name))
                idle->hide();
    }
};

/// What the last request to the print server came to; true when nothing is known. The library of Qt that
/// sends the job keeps the answer to itself, so the client library, which is loaded then, is asked.
bool printServerTookIt()
{
    constexpr int firstFailure = 0x0400; // ipp_status_t: below are the successes
    using LastError = int (*)();
    const auto lastError = reinterpret_cast<LastError>(QLibrary::resolve(u"cups"_s, 2, "cupsLastError"));
    return lastError == nullptr || lastError() < firstFailure;
}

/// A whole PDF ends with this mark.
bool isWholePdf(const QString& name)
{
    constexpr qint64 tail = 32;
    QFile file(name);
    return file.open(QIODevice::ReadOnly) && !file.isSequential()
           && file.seek(std::max<qint64>(0, file.size() - tail)) && file.read(tail).contains("%%EOF");
}

std::unique_ptr<QPrinter> newPrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setResolution(usualResolution);
    printer->setPageSize(QPageSize(QPageSize::A4));
    printer->setFullPage(true);
    return printer;
}

std::unique_ptr<QPrinter> copyOf(const QPrinter& from)
{
    auto to = newPrinter();
    to->setOutputFormat(from.outputFormat());
    if (from.outputFormat() == QPrinter::NativeFormat)
        to->setPrinterName(from.printerName());
    else
        to->setOutputFileName(from.outputFileName());
    to->setResolution(from.resolution());
    to->setPageLayout(from.pageLayout());
    to->setDuplex(from.duplex());
    to->setPaperSource(from.paperSource());
    to->setColorMode(from.colorMode());
    return to;
}

/// What cannot be printed at the left and at the top of a page, in points. The library reports the margins of
/// the sheet as it is fed, upright. A landscape page goes onto it turned to the left or to the right, as the
/// queue has it, and nothing says which: its left edge comes to the bottom of the sheet or to its top, and
/// its top to the left or to the right. So the wider margin of the two is kept.
QPointF cornerMargins(QPageLayout layout)
{
    layout.setUnits(QPageLayout::Point);
    const QMarginsF sheet = layout.minimumMargins();
    return layout.orientation() == QPageLayout::Landscape
               ? QPointF(std::max(sheet.top(), sheet.bottom()), std::max(sheet.left(), sheet.right()))
               : QPointF(sheet.left(), sheet.top());
}

/// \a name as the name of a file that is not there yet.
QString freeFile(const QDir& folder, QString name)
{
    name.replace(u'/', u'_');
    QString file = folder.filePath(name + u".pdf"_s);
    for (int n = 2; QFileInfo::exists(file); ++n)
        file = folder.filePath(u"%1 (%2).pdf"_s.arg(name).arg(n));
    return file;
}

} // namespace

int workingResolution(const QList<int>& supported)
{
    if (supported.isEmpty() || supported.contains(usualResolution))
        return usualResolution;
    return *std::max_element(supported.begin(), supported.end());
}

Printer::Printer(Dialog dialog) : m_dialog(std::move(dialog)) {}

Printer::~Printer()
{
    Abort();
}

/// Made when it is first needed: asking the print server for its default takes a while.
QPrinter& Printer::device() const
{
    if (!m_printer)
        m_printer = newPrinter();
    return *m_printer;
}

void Printer::setOrientation(PaperOrientation orientation)
{
    device().setPageOrientation(orientation == PaperOrientation::Landscape ? QPageLayout::Landscape
                                                                           : QPageLayout::Portrait);
}

PaperOrientation Printer::orientation() const
{
    return device().pageLayout().orientation() == QPageLayout::Landscape ? PaperOrientation::Landscape
                                                                         : PaperOrientation::Portrait;
}

PrinterChoice Printer::choose(QWidget* parent)
{
    auto candidate = copyOf(device());
    candidate->setDocName(m_documentName); // the dialog names a file after it when the operator turns to PDF
    proposeFile(*candidate);
    if (!m_dialog(*candidate, parent))
        return PrinterChoice::Cancelled;
    m_copies = std::max(1, candidate->copyCount());
    candidate->setCopyCount(1);
    candidate->setFullPage(true);
    if (candidate->outputFormat() == QPrinter::NativeFormat)
        candidate->setResolution(
            workingResolution(QPrinterInfo::printerInfo(candidate->printerName()).supportedResolutions()));
    m_printer = std::move(candidate);
    return PrinterChoice::GoOn;
}

/// The dialog writes to a PDF file when no printer is there or the operator wants one: beside the last one,
/// under a name that overwrites nothing.
void Printer::proposeFile(QPrinter& printer) const
{
    if (printer.outputFormat() == QPrinter::NativeFormat)
        return;
    const QString last = printer.outputFileName();
    QDir folder(last.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : QFileInfo(last).absolutePath());
    if (!folder.exists())
        folder = QDir::home();
    printer.setOutputFileName(freeFile(folder, m_documentName.isEmpty() ? u"print"_s : m_documentName));
}

PrinterGeometry Printer::geometry() const
{
    const QPageLayout layout = device().pageLayout();
    const QPointF margins = cornerMargins(layout);
    // The library's own dots of a paper come from rounded points, which differ from release to release.
    const QSizeF paper = layout.fullRect(QPageLayout::Millimeter).size();
    const double dpiX = device().logicalDpiX();
    const double dpiY = device().logicalDpiY();
    return {.dpiX = dpiX,
            .dpiY = dpiY,
            .offsetX = static_cast<double>(qRound(margins.x() * dpiX / pointsPerInch)),
            .offsetY = static_cast<double>(qRound(margins.y() * dpiY / pointsPerInch)),
            .width = static_cast<double>(qRound(paper.width() * dpiX / millimetresPerInch)),
            .height = static_cast<double>(qRound(paper.height() * dpiY / millimetresPerInch))};
}

QString Printer::deviceName() const
{
    return device().outputFormat() == QPrinter::NativeFormat ? device().printerName() : QString();
}

QString Printer::fileName() const
{
    return device().outputFileName();
}

bool Printer::present() const
{
    return deviceName().isEmpty() || !QPrinterInfo::printerInfo(deviceName()).isNull();
}

void Printer::StartDoc()
{
    Abort();
    device().setDocName(m_documentName);
    device().setCreator(u"suisuitag"_s);
    m_pages = 0;
}

PrintStatus Printer::StartPage()
{
    const bool open = m_pages == 0 ? present() && m_painter.begin(&device()) : device().newPage();
    if (!open || device().printerState() == QPrinter::Error)
        return PrintStatus::Failed;
    if (m_pages++ == 0) {
        const PrinterGeometry dots = geometry();
        m_painter.translate(dots.offsetX, dots.offsetY);
    }
    return PrintStatus::Good;
}

PrintStatus Printer::EndDoc()
{
    if (!m_painter.isActive())
        return PrintStatus::Good;
    const bool ended = m_painter.end();
    return ended && arrivedWhole() ? PrintStatus::Good : PrintStatus::Failed;
}

bool Printer::arrivedWhole() const
{
    if (device().printerState() == QPrinter::Error)
        return false;
    return fileName().isEmpty() ? printServerTookIt() : isWholePdf(fileName());
}

void Printer::Abort()
{
    if (m_painter.isActive())
        m_painter.end();
}

bool Printer::platformDialog(QPrinter& printer, QWidget* parent)
{
    HonestDialog dialog(&printer, parent);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace suisui
