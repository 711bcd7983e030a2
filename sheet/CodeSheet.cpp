#include "sheet/CodeSheet.h"

#include <algorithm>

#include <QPainter>

#include "platform/core/Code128.h"
#include "platform/widgets/AppFont.h"
#include "platform/widgets/DotText.h"
#include "platform/widgets/Printer.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "sheet/ShopCodes.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

// The page, in millimetres.
constexpr double leftEdge = 14;
constexpr double topEdge = 12;
constexpr double firstLine = 28;
constexpr double lastLine = 285;
constexpr double columnPitch = 94;
constexpr double columnWidth = 88;
constexpr int columns = 2;
constexpr double headingHeight = 10;
constexpr double entryHeight = 15.5;

// One entry.
constexpr double barHeight = 9.5;
constexpr double shortestBars = 34; ///< so that the names of most fit on one line
constexpr double textGap = 4;
constexpr double codeBelowName = 5.2;
constexpr int barStep = 3; ///< a quarter of a millimetre, which all kinds of readers can read

constexpr double titleSize = 5;
constexpr double headingSize = 4.2;
constexpr double nameSize = 3.4;
constexpr double codeSize = 2.8;

/// The open document, and the place of the next entry on it.
class SheetPen
{
public:
    explicit SheetPen(Printer& printer) : m_printer(printer), m_bars(printer, [this] { m_failed = true; })
    {
        m_bars.startDocument();
        m_bars.setBarPitch(barStep);
        m_bars.setBarHeight(dots(barHeight));
    }

    void begin(const QString& heading)
    {
        endRow();
        // A heading is never alone at the foot of a page.
        if (m_outcome.pages == 0 || m_y + headingHeight + entryHeight > lastLine)
            newPage();
        text(headingSize, true, leftEdge, m_y + 1.5, columnPitch, heading);
        m_y += headingHeight;
    }

    void put(const ScanCode& code)
    {
        if (m_column == columns)
            endRow();
        if (m_y + entryHeight > lastLine)
            newPage();
        const double x = leftEdge + m_column * columnPitch;
        const double beside = x + textGap + std::max(shortestBars, bars(code.scan, x));
        const double width = x + columnWidth - beside;
        text(nameSize, false, beside, m_y + 0.5, width, code.name);
        text(codeSize, false, beside, m_y + codeBelowName, width, code.scan);
        ++m_column;
    }

    [[nodiscard]] SheetOutcome end()
    {
        m_bars.endDocument();
        m_outcome.status = m_failed || m_outcome.pages == 0 ? PrintStatus::Failed : PrintStatus::Good;
        return m_outcome;
    }

private:
    [[nodiscard]] Dots dots(double millimetres) const
    {
        return millimetreDots(Millimetres(millimetres), m_bars.dotsPerInchX());
    }

    void endRow()
    {
        if (m_column > 0)
            m_y += entryHeight;
        m_column = 0;
    }

    void newPage()
    {
        m_bars.startPage();
        ++m_outcome.pages;
        m_y = firstLine;
        m_column = 0;
        text(titleSize, true, leftEdge, topEdge, columnPitch, u"読み取り用コード表"_s);
        text(codeSize, false, leftEdge, topEdge + 7.5, 2 * columnPitch,
             u"印刷は倍率 100 % で。画面に出したまま読み取ることもできます。"_s);
        text(codeSize, false, leftEdge + columnPitch + columnWidth - 10, topEdge + 1, 10,
             u"%1 ページ"_s.arg(m_outcome.pages));
    }

    /// Width of the bars of \a scan in millimetres.
    double bars(const QString& scan, double x)
    {
        const auto modules = encodeCode128(scan.toStdString());
        if (!modules) {
            ++m_outcome.bare;
            text(codeSize, false, x, m_y + 3, shortestBars, u"（バーコードにできません）"_s);
            return 0;
        }
        ++m_outcome.codes;
        m_bars.setPen({dots(x), dots(m_y)});
        m_bars.printBar(scan);
        return modules->width * barPitchMillimetres.at(barStep - 1).value();
    }

    /// Draws \a words in characters of \a size, narrower if they would exceed \a width.
    void text(double size, bool bold, double x, double y, double width, const QString& words)
    {
        if (m_failed || !m_printer.painter().isActive())
            return;
        const DotText letters(fontFamily(), dots(size), bold);
        const double needed = letters.width(words);
        m_printer.painter().setPen(Qt::black);
        letters.draw(m_printer.painter(), dots(x), dots(y), words,
                     needed > dots(width) ? dots(width) / needed : 1);
    }

    Printer& m_printer;
    PrinterBarPrt m_bars;
    SheetOutcome m_outcome;
    double m_y = 0;
    int m_column = 0;
    bool m_failed = false;
};

} // namespace

SheetOutcome writeCodeSheet(const std::vector<CodeGroup>& groups, const QString& file)
{
    Printer printer([&file](QPrinter& device, QWidget*) {
        device.setOutputFormat(QPrinter::PdfFormat);
        device.setOutputFileName(file);
        return true;
    });
    printer.setDocumentName(u"読み取り用コード表"_s);
    if (printer.choose(nullptr) == PrinterChoice::Cancelled)
        return {.status = PrintStatus::Failed};
    SheetPen pen(printer);
    for (const CodeGroup& group : groups) {
        if (group.codes.empty())
            continue;
        pen.begin(group.heading);
        for (const ScanCode& code : group.codes)
            pen.put(code);
    }
    return pen.end();
}

} // namespace suisui
