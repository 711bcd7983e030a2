#include "platform/widgets/PaintedBarPrt.h"

#include <algorithm>
#include <cmath>

#include <QList>
#include <QPainter>

#include "platform/core/Code128.h"
#include "platform/widgets/AppFont.h"
#include "platform/widgets/DotText.h"

namespace suisui {

PaintedBarPrt::PaintedBarPrt() = default;
PaintedBarPrt::~PaintedBarPrt() = default;

void PaintedBarPrt::printBar(const QString& text)
{
    drawBar(text, Qt::black);
}

/// One call for all bars of a symbol: the page then holds one path for it, and costs little in time and
/// bytes.
void PaintedBarPrt::drawBar(const QString& text, const QColor& color)
{
    QPainter* to = painter();
    const auto modules = encodeCode128(text.toStdString());
    if (to == nullptr || !modules || barHeight() < 1)
        return;
    const Dots dots = barPitchDots(barPitch(), dotsPerInchX());
    QList<QRect> bars;
    bars.reserve(static_cast<qsizetype>(modules->bars.size()));
    for (const BarSpan& bar : modules->bars)
        bars.append(QRect(pen().x() + bar.start * dots, pen().y(), bar.width * dots, barHeight()));
    m_lastBar = QRect(pen(), QSize(modules->width * dots, barHeight()));
    to->setPen(Qt::NoPen);
    to->setBrush(color);
    to->drawRects(bars);
}

void PaintedBarPrt::printText(const QString& text)
{
    QPainter* to = painter();
    if (to == nullptr || text.isEmpty())
        return;
    const Dots dots = millimetreDots(labelTextHeight, dotsPerInchY());
    if (!m_text || m_textDots != dots) {
        m_text = std::make_unique<DotText>(fontFamily(), dots, false);
        m_textDots = dots;
    }
    const QRect box(pen(), QSize(static_cast<int>(std::ceil(m_text->width(text))), dots));
    if (box.intersects(m_lastBar)) {
        to->fillRect(box, Qt::white);
        m_lastBar = {};
    }
    to->setPen(Qt::black);
    m_text->draw(*to, pen().x(), pen().y(), text);
}

} // namespace suisui
