#include "lists/report/Printer_Properties.h"

#include <algorithm>

#include <QPainter>

#include "platform/widgets/DotText.h"

namespace suisui {

namespace {

constexpr double pointsPerInch = 72;
constexpr double lineStepsPerInch = 254;

// A text is half-width when its first character has one of these codes.
constexpr char16_t firstHalfWidth = 32;
constexpr char16_t lastHalfWidth = 122;

/// Thickness of a line in dots, at least one.
double thickness(int borderWidth, double dpi)
{
    return std::max(1.0, (2 * borderWidth - 1) * dpi / lineStepsPerInch);
}

QRect boxOf(double x, double y, double width, double height)
{
    return {qRound(x), qRound(y), qRound(width), qRound(height)};
}

} // namespace

Printer_Properties::Printer_Properties(Printer& printer) : m_printer(printer) {}

Printer_Properties::~Printer_Properties() = default;

PrinterChoice Printer_Properties::PrinterSelect(QWidget* form)
{
    const PrinterChoice choice = m_printer.choose(form);
    if (choice == PrinterChoice::GoOn)
        takeGeometry();
    return choice;
}

void Printer_Properties::takeGeometry()
{
    const PrinterGeometry dots = m_printer.geometry();
    m_dpiX = dots.dpiX;
    m_dpiY = dots.dpiY;
    m_offsetX = dots.offsetX;
    m_offsetY = dots.offsetY;
    m_texts.clear();
}

void Printer_Properties::moveToCorner(double x1, double y1)
{
    const auto moved = [](double place, double margin) { return place >= margin ? place : place - margin; };
    m_offsetX = moved(x1 * m_dpiX, m_offsetX);
    m_offsetY = moved(y1 * m_dpiY, m_offsetY);
}

QRect Printer_Properties::lineBox(const FormLine& line) const
{
    const double x = dotX(line.x1);
    const double y = dotY(line.y1);
    if (line.y1 == line.y2)
        return boxOf(x, y, (line.x2 - line.x1) * m_dpiX, thickness(line.borderWidth, m_dpiY));
    return boxOf(x, y, thickness(line.borderWidth, m_dpiX), (line.y2 - line.y1) * m_dpiY);
}

QRect Printer_Properties::backBox(const FormLabel& label) const
{
    return boxOf(dotX(label.left), dotY(label.top), label.width * m_dpiX, label.height * m_dpiY);
}

bool Printer_Properties::isHalfWidth(const QString& text)
{
    return !text.isEmpty() && text.front().unicode() >= firstHalfWidth
           && text.front().unicode() <= lastHalfWidth;
}

TextPlace Printer_Properties::textPlace(const FormLabel& label) const
{
    const double full = label.font.size / pointsPerInch * m_dpiX;
    TextPlace place{.x = dotX(label.left),
                    .y = dotY(label.top),
                    .cell = isHalfWidth(label.caption) ? full / 2 : full,
                    .spaced = label.alignment != FormAlign::Left};
    const double total = place.width(label.caption.toUcs4().size());
    if (label.alignment == FormAlign::Right)
        place.x = (label.left + label.width) * m_dpiX - total - m_offsetX;
    else if (label.alignment == FormAlign::Centre)
        place.x = (label.left + label.width / 2) * m_dpiX - total / 2 - m_offsetX;
    return place;
}

const DotText& Printer_Properties::textFor(const FormFont& font) const
{
    auto& text = m_texts[font];
    if (!text)
        text = std::make_unique<DotText>(font.name, font.size / pointsPerInch * m_dpiY, font.bold);
    return *text;
}

void Printer_Properties::PrintLine(const FormLine& line) const
{
    if (line.visible)
        m_printer.painter().fillRect(lineBox(line), Qt::black);
}

void Printer_Properties::PrintBack(const FormLabel& label) const
{
    if (label.visible)
        m_printer.painter().fillRect(backBox(label), label.backColor);
}

void Printer_Properties::PrintLabel(const FormLabel& label, bool transparent) const
{
    if (!label.visible || label.caption.isEmpty())
        return;
    const DotText& text = textFor(label.font);
    const TextPlace place = textPlace(label);
    QPainter& painter = m_printer.painter();
    const double width =
        place.spaced ? place.width(label.caption.toUcs4().size()) : text.width(label.caption);
    if (!transparent)
        painter.fillRect(boxOf(place.x, place.y, width, text.height()), label.backColor);
    painter.setPen(label.foreColor);
    const double room = label.width * m_dpiX;
    if (place.spaced && (label.alignment != FormAlign::Centre || width <= room)) {
        text.drawSpaced(painter, place.x, place.y, place.cell, label.caption);
        return;
    }
    // A text that is too long is drawn narrower. A centred one then fills its box, so it is placed by the box
    // and not by counting characters.
    const double drawn = text.width(label.caption);
    const double stretch = drawn > room && room > 0 ? room / drawn : 1;
    const double x = place.spaced ? dotX(label.left) + (room - drawn * stretch) / 2 : place.x;
    text.draw(painter, x, place.y, label.caption, stretch);
}

} // namespace suisui
