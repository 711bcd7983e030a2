#include "barcode/label/PagePicture.h"

#include <algorithm>
#include <vector>

#include <QPainter>

#include "barcode/label/LabelPrint.h"
#include "platform/core/Code128.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/PaintedBarPrt.h"

namespace suisui {

namespace {

constexpr std::int32_t dotsPerInch = 600;
constexpr PrinterDots dots{dotsPerInch, dotsPerInch, 0, 0};

const QColor noQuietColor(224, 120, 0);
const QColor tooWideColor(220, 0, 0);

QColor colorOf(BarFit fit)
{
    if (fit == BarFit::Good)
        return Qt::black;
    return fit == BarFit::NoQuietZone ? noQuietColor : tooWideColor;
}

/// A printer whose paper is a picture.
class PicturePaper final : public PaintedBarPrt
{
public:
    PicturePaper(const LabelJob& job, QSize size) : m_job(job)
    {
        const QPoint paper = placeInDots({paperWidth, paperHeight}, dots);
        m_paper = QRect(0, 0, paper.x(), paper.y());
        result.image = QImage(size.expandedTo({1, 1}), QImage::Format_RGB32);
        result.image.fill(Qt::white);
        m_painter.begin(&result.image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.scale(static_cast<double>(result.image.width()) / m_paper.width(),
                        static_cast<double>(result.image.height()) / m_paper.height());
    }

    void setOrientation(PaperOrientation) override {}
    [[nodiscard]] PaperOrientation orientation() const override { return PaperOrientation::Portrait; }
    [[nodiscard]] std::int32_t copies() const override { return 1; }
    [[nodiscard]] std::int32_t dotsPerInchX() const override { return dotsPerInch; }
    [[nodiscard]] std::int32_t dotsPerInchY() const override { return dotsPerInch; }
    [[nodiscard]] std::int32_t physicalOffsetX() const override { return 0; }
    [[nodiscard]] std::int32_t physicalOffsetY() const override { return 0; }
    [[nodiscard]] PrinterChoice choosePrinter(QWidget*) override { return PrinterChoice::GoOn; }
    void startDocument() override {}
    void endDocument() override {}
    void startPage() override {}
    void endPage() override { m_painter.end(); }

    void printBar(const QString& text) override
    {
        const auto modules = encodeCode128(text.toStdString());
        const BarFit fit = modules ? fitOf(modules->width) : BarFit::NotCarried;
        note(text, fit);
        if (fit == BarFit::NotCarried)
            drawCross();
        else
            drawBar(text, colorOf(fit));
    }

    PagePicture result;

protected:
    [[nodiscard]] QPainter* painter() override { return m_painter.isActive() ? &m_painter : nullptr; }

private:
    /// Keeps the codes that fit worst.
    void note(const QString& text, BarFit fit)
    {
        if (fit > result.worst) {
            result.worst = fit;
            result.codes.clear();
        }
        if (fit == result.worst && fit != BarFit::Good && !result.codes.contains(text))
            result.codes += text;
    }

    [[nodiscard]] BarFit fitOf(int moduleCount)
    {
        const std::int32_t module = barPitchDots(barPitch(), dotsPerInch);
        const QRect bars(pen(), QSize(moduleCount * module, std::max<std::int32_t>(barHeight(), 0)));
        const int quiet = quietModules * module;
        if (!m_paper.contains(bars) || barHeight() < 1)
            return BarFit::TooWide;
        const BarFit besides = besideOthers(bars, quiet);
        const bool edge = bars.left() < quiet || m_paper.right() - bars.right() < quiet;
        return std::max(besides, edge ? BarFit::NoQuietZone : BarFit::Good);
    }

    /// A label has its own room, whether it has a neighbour on this page or not; other bars must keep clear
    /// of everything drawn before.
    [[nodiscard]] BarFit besideOthers(const QRect& bars, int quiet)
    {
        const bool label = isLabel();
        BarFit fit = BarFit::Good;
        if (label) {
            const int room = lengthInDots(m_job.grid.width, dotsPerInch);
            const bool crowded = m_job.grid.columns > 1 && bars.width() + quiet > room;
            const bool covered =
                m_job.grid.rows > 1 && bars.height() > lengthInDots(m_job.grid.height, dotsPerInch);
            fit = covered || (crowded && bars.width() > room) ? BarFit::TooWide
                  : crowded                                   ? BarFit::NoQuietZone
                                                              : BarFit::Good;
        } else {
            for (const QRect& other : m_placed)
                if (other.adjusted(-quiet, 0, quiet, 0).intersects(bars))
                    fit = std::max(fit, other.intersects(bars) ? BarFit::TooWide : BarFit::NoQuietZone);
        }
        m_placed.push_back(bars);
        return fit;
    }

    /// The engine draws the labels first, in the order of their positions; bars elsewhere are not labels.
    [[nodiscard]] bool isLabel()
    {
        for (std::int64_t position = m_nextPosition; position < m_job.grid.capacity(); ++position) {
            if (placeInDots(m_job.grid.placeOf(position), dots) != pen())
                continue;
            m_nextPosition = position + 1;
            return true;
        }
        m_nextPosition = m_job.grid.capacity();
        return false;
    }

    /// In place of bars that cannot be encoded.
    void drawCross()
    {
        constexpr double lineWidth = 12;
        const QRect box(pen(),
                        QSize(lengthInDots(30_mm, dotsPerInch), std::max<std::int32_t>(barHeight(), 1)));
        m_painter.setPen(QPen(tooWideColor, lineWidth));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawRect(box);
        m_painter.drawLine(box.topLeft(), box.bottomRight());
        m_painter.drawLine(box.bottomLeft(), box.topRight());
    }

    const LabelJob& m_job;
    QRect m_paper;
    QPainter m_painter;
    std::vector<QRect> m_placed;
    std::int64_t m_nextPosition = 0;
};

} // namespace

PagePicture drawPage(LabelJob job, const LabelRows& rows, const AppIni& words, int barPitch,
                     std::int32_t page, QSize size)
{
    job.pages = {page, page};
    PicturePaper paper(job, size);
    paper.setBarPitch(barPitch);
    LabelRows trial = rows;
    try {
        LabelPrintOut(job, trial, words, paper);
    } catch (const RunTimeError&) {
        paper.endPage();
        paper.result.badNumber = true;
    }
    return std::move(paper.result);
}

} // namespace suisui
