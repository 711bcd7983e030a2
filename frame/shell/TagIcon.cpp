#include "frame/shell/TagIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace suisui {

namespace {

constexpr int grid = 128; ///< of the drawing, the same as that of the icon of the desktop menu

const QColor edge(31, 95, 139);
const QColor paper(255, 253, 245);
const QColor bar(29, 39, 48);
const QColor mark(200, 54, 43);

QPen pen(const QColor& color, int width)
{
    return {color, static_cast<qreal>(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void drawTag(QPainter& painter)
{
    QPainterPath string(QPointF(24, 44));
    string.quadTo({10, 18}, {40, 10});
    painter.setPen(pen(QColor(138, 90, 43), 5));
    painter.drawPath(string);
    painter.setPen(pen(edge, 6));
    painter.setBrush(paper);
    painter.drawPolygon(QPolygonF({{34, 22}, {120, 22}, {120, 106}, {34, 106}, {8, 76}, {8, 52}}));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPoint(27, 64), 7, 7);
    constexpr struct
    {
        int left;
        int width;
    } bars[] = {{46, 6}, {56, 3}, {63, 9}, {76, 3}, {83, 6}, {93, 3}, {100, 9}};
    for (const auto& each : bars)
        painter.fillRect(each.left, 36, each.width, 42, bar);
    painter.drawLine(46, 92, 76, 92);
    painter.setPen(pen(mark, 6));
    painter.drawPolyline(QPolygonF({{88, 92}, {94, 98}, {106, 85}}));
}

} // namespace

QIcon tagIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(static_cast<qreal>(size) / grid, static_cast<qreal>(size) / grid);
        drawTag(painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace suisui
