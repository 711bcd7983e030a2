// Text on paper at places that are counted in dots: all of it at once, or each character in a cell of its
// own. Looks its glyphs up once, so that a page full of figures costs little.
#pragma once

#include <QFont>
#include <QHash>
#include <QRawFont>
#include <QString>

class QPainter;

namespace suisui {

class DotText
{
public:
    /// \a pixelSize is the height of a character in dots.
    DotText(const QString& family, double pixelSize, bool bold);

    /// \a text with its top left corner at (\a x, \a y). \a stretch below 1 draws it narrower.
    void draw(QPainter& painter, double x, double y, const QString& text, double stretch = 1) const;
    /// The characters of \a text one by one, each \a cell dots after the one before, at whole dots.
    void drawSpaced(QPainter& painter, double x, double y, double cell, const QString& text) const;
    /// How wide draw() makes \a text.
    [[nodiscard]] double width(const QString& text) const;

    /// Height of a character in dots.
    [[nodiscard]] double height() const { return m_pixelSize; }

private:
    struct Glyph
    {
        quint32 index = 0; ///< 0: the font has none
        double advance = 0;
    };
    struct Run
    {
        QList<quint32> glyphs;
        QList<QPointF> places;
        double width = 0;
        bool whole = true; ///< every character has a glyph in this font
    };
    [[nodiscard]] const Glyph& glyph(char32_t character) const;
    [[nodiscard]] Run run(const QString& text, double cell) const;
    void drawRun(QPainter& painter, double x, double y, const Run& run) const;

    QFont m_font;
    QRawFont m_raw;
    double m_pixelSize;
    mutable QHash<char32_t, Glyph> m_glyphs;
};

} // namespace suisui
