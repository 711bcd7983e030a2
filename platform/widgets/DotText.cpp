#include "platform/widgets/DotText.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>

namespace suisui {

namespace {

/// Characters that are drawn alone; the others (signs that sit on the one before, scripts that join) need the
/// layout of the library.
bool standsAlone(char32_t character)
{
    return !QChar::isMark(character) && QChar::joiningType(character) == QChar::Joining_None
           && QChar::direction(character) != QChar::DirR && QChar::direction(character) != QChar::DirAL;
}

} // namespace

DotText::DotText(const QString& family, double pixelSize, bool bold) : m_font(family), m_pixelSize(pixelSize)
{
    m_font.setStyleHint(QFont::Monospace);
    m_font.setPixelSize(qMax(1, qRound(pixelSize)));
    m_font.setBold(bold);
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_raw = QRawFont::fromFont(m_font);
    m_raw.setPixelSize(qMax(1.0, pixelSize));
}

const DotText::Glyph& DotText::glyph(char32_t character) const
{
    if (const auto known = m_glyphs.constFind(character); known != m_glyphs.constEnd())
        return *known;
    Glyph made;
    const QList<quint32> indexes = m_raw.glyphIndexesForString(QString::fromUcs4(&character, 1));
    if (indexes.size() == 1 && standsAlone(character)) {
        made.index = indexes.front();
        made.advance = m_raw.advancesForGlyphIndexes(indexes).front().x();
    }
    return *m_glyphs.insert(character, made);
}

DotText::Run DotText::run(const QString& text, double cell) const
{
    Run made;
    made.glyphs.reserve(text.size());
    made.places.reserve(text.size());
    for (const uint character : text.toUcs4()) {
        const Glyph& shape = glyph(character);
        made.whole = made.whole && shape.index != 0;
        made.glyphs.push_back(shape.index);
        made.places.emplace_back(made.width, 0);
        made.width += cell > 0 ? cell : shape.advance;
    }
    return made;
}

void DotText::drawRun(QPainter& painter, double x, double y, const Run& run) const
{
    QGlyphRun glyphs;
    glyphs.setRawFont(m_raw);
    glyphs.setGlyphIndexes(run.glyphs);
    glyphs.setPositions(run.places);
    painter.drawGlyphRun({x, y + m_raw.ascent()}, glyphs);
}

void DotText::draw(QPainter& painter, double x, double y, const QString& text, double stretch) const
{
    if (text.isEmpty())
        return;
    const Run made = run(text, 0);
    if (made.whole && stretch == 1) {
        drawRun(painter, x, y, made); // no change of state, which costs a page time and bytes
        return;
    }
    painter.save();
    painter.translate(x, y);
    painter.scale(stretch, 1);
    if (made.whole) {
        drawRun(painter, 0, 0, made);
    } else {
        painter.setFont(m_font);
        painter.drawText(QPointF(0, m_raw.ascent()), text);
    }
    painter.restore();
}

void DotText::drawSpaced(QPainter& painter, double x, double y, double cell, const QString& text) const
{
    Run made = run(text, cell);
    for (QPointF& place : made.places)
        place.rx() = qRound(x + place.x());
    if (made.whole) {
        drawRun(painter, 0, y, made);
        return;
    }
    painter.setFont(m_font);
    qsizetype done = 0;
    for (const uint character : text.toUcs4()) {
        const char32_t one = character;
        painter.drawText(QPointF(made.places.at(done++).x(), y + m_raw.ascent()), QString::fromUcs4(&one, 1));
    }
}

double DotText::width(const QString& text) const
{
    const Run made = run(text, 0);
    return made.whole ? made.width : QFontMetricsF(m_font).horizontalAdvance(text);
}

} // namespace suisui
