#include "platform/widgets/Hourglass.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

namespace suisui {

namespace {

constexpr int side = 24;

QPixmap picture()
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.5));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF{{{5, 3}, {19, 3}, {13, 12}, {19, 21}, {5, 21}, {11, 12}}});
    painter.setBrush(QColor(32, 88, 144));
    painter.drawPolygon(QPolygonF{{{8.5, 8}, {15.5, 8}, {12, 12.5}}});
    painter.drawPolygon(QPolygonF{{{7, 20}, {17, 20}, {12, 16}}});
    return pixmap;
}

} // namespace

QCursor hourglass()
{
    if (!QGuiApplication::platformName().startsWith(u"wayland"))
        return Qt::WaitCursor;
    static const QCursor still(picture());
    return still;
}

PointerShape::PointerShape(const QCursor& shape)
{
    QGuiApplication::setOverrideCursor(shape);
}

PointerShape::~PointerShape()
{
    QGuiApplication::restoreOverrideCursor();
}

} // namespace suisui
