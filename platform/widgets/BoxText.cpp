#include "platform/widgets/BoxText.h"

#include <algorithm>

#include <QPainter>
#include <QTextLayout>

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// \a line cut into parts that are \a room pixels wide at most.
QStringList wrapped(const QString& line, const QFont& font, int room)
{
    if (QFontMetrics(font).horizontalAdvance(line) <= room)
        return {line};
    QStringList parts;
    QTextLayout layout(line, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
        part.setLineWidth(room);
        parts << line.mid(part.textStart(), part.textLength());
    }
    layout.endLayout();
    return parts;
}

} // namespace

BoxText::BoxText(const QString& text, int room, QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    ensurePolished();
    QString plain = text;
    for (const QString& line : plain.replace(u"\r\n"_s, u"\n"_s).split(u'\n'))
        m_lines << wrapped(line, font(), room);
}

int BoxText::lineStep() const
{
    constexpr double leading = 0.3; // of the height of a character
    return fontMetrics().height() + qRound(fontMetrics().height() * leading);
}

QSize BoxText::sizeHint() const
{
    int width = 0;
    for (const QString& line : m_lines)
        width = std::max(width, fontMetrics().horizontalAdvance(line));
    return {width, lineStep() * static_cast<int>(m_lines.size())};
}

void BoxText::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    int base = (lineStep() - fontMetrics().height()) / 2 + fontMetrics().ascent();
    for (const QString& line : m_lines) {
        painter.drawText(0, base, line);
        base += lineStep();
    }
}

} // namespace suisui
