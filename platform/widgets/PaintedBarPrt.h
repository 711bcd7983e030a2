// Bars and texts of the labels, drawn by a painter, whatever it paints on: a printer, a PDF, a picture on the
// screen. Each bar is a rectangle of whole dots.
#pragma once

#include <memory>

#include <QColor>
#include <QRect>

#include "platform/widgets/BarPrt.h"

class QPainter;

namespace suisui {

class DotText;

/// Height of the texts beside the bars.
inline constexpr Millimetres labelTextHeight = 2.8_mm;

class PaintedBarPrt : public BarPrt
{
public:
    PaintedBarPrt();
    ~PaintedBarPrt() override;

    void printBar(const QString& text) override;
    void printText(const QString& text) override;

protected:
    /// The painter of the open page, in dots; null without a page.
    [[nodiscard]] virtual QPainter* painter() = 0;
    void drawBar(const QString& text, const QColor& color);

private:
    std::unique_ptr<DotText> m_text;
    Dots m_textDots;
    QRect m_lastBar; ///< a text on these bars gets a white background, so that it can be read
};

} // namespace suisui
