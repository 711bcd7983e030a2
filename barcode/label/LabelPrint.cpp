#include "barcode/label/LabelPrint.h"

#include <algorithm>

#include "barcode/label/FunctionStrip.h"
#include "barcode/label/LabelRows.h"
#include "barcode/label/LabelText.h"
#include "platform/widgets/BarPrt.h"
#include "store/AppIni.h"

namespace suisui {

namespace {

// Vertical places of the captions of function codes, from the top of their bars: they are above it.
constexpr Millimetres captionAlone = -5_mm;
constexpr Millimetres captionFirst = -7_mm;
constexpr Millimetres captionSecond = -3.5_mm;

class LabelPrinter
{
public:
    LabelPrinter(const LabelJob& job, LabelRows& rows, const AppIni& words, BarPrt& barPrt)
        : m_job(job), m_rows(rows), m_barPrt(barPrt), m_screenCodes(screenCodes(words)),
          m_searchCodes(searchCodes(words))
    {
        takeGeometry();
    }

    void print()
    {
        m_barPrt.setBarHeight(lengthInDots(m_job.barHeight, m_dots.perInchY));
        const std::int32_t copies = std::max(m_barPrt.copies(), 1);
        for (std::int32_t copy = 1; copy <= copies; ++copy) {
            if (copy > 1)
                m_barPrt.endPage();
            printCopy();
        }
    }

private:
    void takeGeometry()
    {
        const bool upright = m_barPrt.orientation() == PaperOrientation::Portrait;
        const std::int32_t x = m_barPrt.physicalOffsetX();
        const std::int32_t y = m_barPrt.physicalOffsetY();
        m_dots = {.perInchX = m_barPrt.dotsPerInchX(),
                  .perInchY = m_barPrt.dotsPerInchY(),
                  .offsetX = upright ? x : y,
                  .offsetY = upright ? y : x};
    }

    void printCopy()
    {
        m_row = m_job.startRow;
        m_done = 0;
        m_quantity = 1;
        m_position = m_job.startLabel - 1;
        for (m_page = 1; m_page <= m_job.pages.last; ++m_page) {
            if (onPaper())
                m_barPrt.startPage();
            fillPage();
            if (onPaper()) {
                KinouPrintOut();
                m_barPrt.endPage();
            }
            m_position = 0;
        }
        m_rows.setMark(m_row, false);
    }

    [[nodiscard]] bool onPaper() const { return m_page >= m_job.pages.first; }
    [[nodiscard]] bool pageFull() const { return m_position >= m_job.grid.capacity(); }

    /// Walks the rows until the page is full or the last row is done.
    void fillPage()
    {
        while (true) {
            // The row after the last one has no code and no labels; it ends the walk when the last row has no
            // mark.
            if (m_rows.marked(m_row) || m_row > m_rows.count()) {
                m_quantity = m_rows.labels(m_row, m_job.eachRow);
                printRow();
            }
            if (pageFull() || (m_done >= m_quantity && m_job.endRow <= m_row))
                return;
            m_rows.setMark(m_row, false);
            ++m_row;
            m_done = 0;
        }
    }

    void printRow()
    {
        const std::int64_t labels =
            std::max<std::int64_t>(std::min(m_job.grid.capacity() - m_position, m_quantity - m_done), 0);
        if (onPaper())
            for (std::int64_t i = 0; i < labels; ++i)
                printLabel(m_position + i);
        m_position += labels;
        m_done += labels;
    }

    void printLabel(std::int64_t position)
    {
        const QPoint corner = placeInDots(m_job.grid.placeOf(position), m_dots);
        const QString code = m_job.wrap + m_rows.code(m_row) + m_job.wrap;
        m_barPrt.setPen(corner);
        m_barPrt.printBar(code);
        if (m_job.code.on) {
            m_barPrt.setPen(offsetFrom(corner, m_job.code.place, m_dots));
            m_barPrt.printText(code);
        }
        if (m_job.name.on) {
            m_barPrt.setPen(offsetFrom(corner, m_job.name.place, m_dots));
            m_barPrt.printText(cutForLabel(m_rows.name(m_row)));
        }
    }

    void KinouPrintOut()
    {
        if (m_job.screenCodes.on)
            printStrip(m_job.screenCodes.place, m_screenCodes);
        if (m_job.searchCodes.on)
            printStrip(m_job.searchCodes.place, m_searchCodes);
    }

    void printStrip(const MillimetrePoint& place, const std::vector<StripBar>& bars)
    {
        const MillimetrePoint& start = m_job.grid.start;
        const QPoint corner = placeInDots({place.x + start.x, place.y + start.y}, m_dots);
        for (const StripBar& bar : bars) {
            const QPoint at = corner + QPoint(lengthInDots(bar.right, m_dots.perInchX), 0);
            m_barPrt.setPen(at);
            m_barPrt.printBar(bar.code);
            printCaption(at, bar.second.isEmpty() ? captionAlone : captionFirst, bar.first);
            printCaption(at, captionSecond, bar.second);
        }
    }

    void printCaption(QPoint bar, Millimetres below, const QString& text)
    {
        if (text.isEmpty())
            return;
        m_barPrt.setPen(bar + QPoint(0, lengthInDots(below, m_dots.perInchY)));
        m_barPrt.printText(text);
    }

    const LabelJob& m_job;
    LabelRows& m_rows;
    BarPrt& m_barPrt;
    PrinterDots m_dots;
    std::vector<StripBar> m_screenCodes;
    std::vector<StripBar> m_searchCodes;

    std::int32_t m_page = 1;
    std::int64_t m_row = 1;
    std::int64_t m_done = 0; ///< labels of the row that have been printed
    std::int64_t m_quantity = 1;
    std::int64_t m_position = 0; ///< on the page, from 0
};

} // namespace

void LabelPrintOut(const LabelJob& job, LabelRows& rows, const AppIni& words, BarPrt& barPrt)
{
    LabelPrinter(job, rows, words, barPrt).print();
}

} // namespace suisui
