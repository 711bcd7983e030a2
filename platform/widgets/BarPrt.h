// The printing object of the labels: a pen that is set to a dot and leaves bars or a text there, page by
// page, on a printer that it lets the operator choose. Dots are those of the chosen printer and count from
// where it begins to print. The symbology is Code 128.
#pragma once

#include <cstdint>

#include <QPoint>
#include <QString>

#include "platform/core/BarPitch.h"
#include "platform/core/Length.h"
#include "platform/widgets/PrintStatus.h"

class QWidget;

namespace suisui {

/// A measure that is drawn: the nearest number of dots, at least one.
[[nodiscard]] Dots millimetreDots(Millimetres length, std::int32_t perInch);
/// Dots of a module at \a step on a printer of \a perInch dots per inch: whole, at least one. A step outside
/// 1 to 20 counts as the nearest.
[[nodiscard]] Dots barPitchDots(int step, std::int32_t perInch);

class BarPrt
{
public:
    virtual ~BarPrt() = default;

    void setPen(QPoint dot) { m_pen = dot; }
    [[nodiscard]] QPoint pen() const { return m_pen; }
    /// Bars that are not higher than 0 are not there.
    void setBarHeight(Dots height) { m_barHeight = height; }
    [[nodiscard]] Dots barHeight() const { return m_barHeight; }
    /// A step of barPitchMillimetres.
    void setBarPitch(int step) { m_barPitch = step; }
    [[nodiscard]] int barPitch() const { return m_barPitch; }

    virtual void setOrientation(PaperOrientation orientation) = 0;
    [[nodiscard]] virtual PaperOrientation orientation() const = 0;
    /// Copies asked for in the printer dialog.
    [[nodiscard]] virtual std::int32_t copies() const = 0;
    [[nodiscard]] virtual std::int32_t dotsPerInchX() const = 0;
    [[nodiscard]] virtual std::int32_t dotsPerInchY() const = 0;
    /// Margin that the printer cannot print.
    [[nodiscard]] virtual std::int32_t physicalOffsetX() const = 0;
    [[nodiscard]] virtual std::int32_t physicalOffsetY() const = 0;

    /// Shows the printer dialog over \a form.
    [[nodiscard]] virtual PrinterChoice choosePrinter(QWidget* form) = 0;
    virtual void startDocument() = 0;
    virtual void endDocument() = 0;
    virtual void startPage() = 0;
    /// Without an open page nothing happens.
    virtual void endPage() = 0;

    /// The bars of \a text with their top left corner at the pen. A text that Code 128 cannot carry has none.
    virtual void printBar(const QString& text) = 0;
    /// \a text with its top left corner at the pen.
    virtual void printText(const QString& text) = 0;

private:
    QPoint m_pen;
    Dots m_barHeight;
    int m_barPitch = 1;
};

} // namespace suisui
