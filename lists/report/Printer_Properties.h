// Choosing the printer, and putting a form that is laid out in inches on its paper: lines, coloured boxes and
// texts, each at whole dots. Figures line up with any font, because a right-aligned or centred text is placed
// by counting its characters and not by measuring them.
//
// A place in dots is the place on the form, in inches, times the dots per inch, less the print offset. The
// offset is at first the margin that the printer cannot print; moveToCorner() changes it.
#pragma once

#include <map>
#include <memory>
#include <tuple>

#include <QColor>
#include <QRect>
#include <QString>

#include "platform/widgets/Printer.h"

class QPainter;

namespace suisui {

class DotText;

/// A line of a form, from (x1, y1) to (x2, y2) in inches.
struct FormLine
{
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    int borderWidth = 1; ///< 1 is 1/254 inch thick, each step adds 2/254
    bool visible = true;
};

enum class FormAlign { Left = 0, Right = 1, Centre = 2 };

struct FormFont
{
    QString name = {};
    double size = 9; ///< points
    bool bold = false;

    bool operator<(const FormFont& other) const
    {
        return std::tie(name, size, bold) < std::tie(other.name, other.size, other.bold);
    }
};

/// A label of a form, in inches: a coloured box, a text, or both.
struct FormLabel
{
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    QString caption = {};
    FormAlign alignment = FormAlign::Left;
    FormFont font = {};
    QColor foreColor = Qt::black;
    QColor backColor = Qt::white;
    bool visible = true;
};

/// Where a text is, in dots.
struct TextPlace
{
    double x = 0;        ///< of the first character
    double y = 0;        ///< of the top
    double cell = 0;     ///< width allowed for one character
    bool spaced = false; ///< each character has its own cell
    double width(qsizetype characters) const { return cell * static_cast<double>(characters); }
};

class Printer_Properties
{
public:
    /// \a printer is the program's printer; it lives longer than this object.
    explicit Printer_Properties(Printer& printer);
    ~Printer_Properties();
    Printer_Properties(const Printer_Properties&) = delete;
    Printer_Properties& operator=(const Printer_Properties&) = delete;

    /// Lets the operator choose; the caller has set the orientation. Cancelled leaves printer and values
    /// as they were.
    [[nodiscard]] PrinterChoice PrinterSelect(QWidget* form);

    // Set by PrinterSelect.
    [[nodiscard]] double PrtOffsetX() const { return m_offsetX; }
    [[nodiscard]] double PrtOffsetY() const { return m_offsetY; }
    [[nodiscard]] double PrtDpiX() const { return m_dpiX; }
    [[nodiscard]] double PrtDpiY() const { return m_dpiY; }

    /// Moves the form so that a line at (\a x1, \a y1) inches is printed where the printable area begins: the
    /// offset becomes the line's place in dots. Where that is less than the margin, the offset becomes the
    /// place less the margin; that is meant.
    void moveToCorner(double x1, double y1);

    // Where things are drawn, in dots.
    [[nodiscard]] QRect lineBox(const FormLine& line) const;
    [[nodiscard]] QRect backBox(const FormLabel& label) const;
    [[nodiscard]] TextPlace textPlace(const FormLabel& label) const;

    /// Draw on the page that the printer has open. Hidden elements and empty texts draw nothing.
    void PrintLine(const FormLine& line) const;
    /// The box of the label in its back colour.
    void PrintBack(const FormLabel& label) const;
    /// The text of the label, with the back colour behind it unless \a transparent. A left-aligned or centred
    /// text that is wider than its box is drawn narrower, so that it stays in the box.
    void PrintLabel(const FormLabel& label, bool transparent) const;

    /// Whether all characters of \a text get half-width cells: its first one has a code from 32 to 122.
    [[nodiscard]] static bool isHalfWidth(const QString& text);

    [[nodiscard]] Printer& printer() const { return m_printer; }

private:
    void takeGeometry();
    [[nodiscard]] double dotX(double inches) const { return inches * m_dpiX - m_offsetX; }
    [[nodiscard]] double dotY(double inches) const { return inches * m_dpiY - m_offsetY; }
    [[nodiscard]] const DotText& textFor(const FormFont& font) const;

    Printer& m_printer;
    double m_offsetX = 0;
    double m_offsetY = 0;
    double m_dpiX = 0;
    double m_dpiY = 0;
    mutable std::map<FormFont, std::unique_ptr<DotText>> m_texts;
};

} // namespace suisui
