#include "frame/shell/TitleBar.h"

#include <array>

#include <QFrame>
#include <QLabel>
#include <QPainter>

namespace suisui {

namespace {

enum class Drawing { BoxIn, BoxOut, Shelf, ListIn, ListOut };

struct Look
{
    QColor color;
    Drawing drawing;
};

// Receipts blue, shipments brown, stock green; the lists have the colour of their side, paler.
const std::array looks{
    Look{QColor(38, 92, 148), Drawing::BoxIn},    Look{QColor(150, 84, 28), Drawing::BoxOut},
    Look{QColor(42, 112, 66), Drawing::Shelf},    Look{QColor(78, 118, 160), Drawing::ListIn},
    Look{QColor(166, 116, 72), Drawing::ListOut},
};

constexpr int pictureSize = 28;

void drawArrow(QPainter& painter, bool down)
{
    painter.save();
    if (!down) {
        painter.translate(pictureSize, 22);
        painter.rotate(180);
    }
    painter.drawPolygon(QPolygonF({{12, 2}, {16, 2}, {16, 9}, {20, 9}, {14, 16}, {8, 9}, {12, 9}}));
    painter.restore();
}

void drawBox(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{4, 13}, {4, 25}, {24, 25}, {24, 13}}));
}

void drawLines(QPainter& painter)
{
    for (const int y : {6, 12, 18, 24})
        painter.drawLine(4, y, 18, y);
}

QPixmap picture(Drawing drawing, qreal ratio)
{
    QPixmap pixmap(QSize(pictureSize, pictureSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(Qt::white);
    switch (drawing) {
    case Drawing::BoxIn:
    case Drawing::BoxOut:
        painter.setPen(Qt::NoPen);
        drawArrow(painter, drawing == Drawing::BoxIn);
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(Qt::NoBrush);
        drawBox(painter);
        break;
    case Drawing::Shelf:
        for (const int y : {8, 17, 26})
            painter.drawLine(3, y, 25, y);
        for (const QPoint at : {QPoint(5, 3), QPoint(15, 3), QPoint(9, 12), QPoint(18, 12), QPoint(5, 21)})
            painter.drawRect(QRect(at, QSize(5, 4)));
        break;
    case Drawing::ListIn:
    case Drawing::ListOut:
        drawLines(painter);
        painter.setPen(Qt::NoPen);
        painter.translate(13, 6);
        painter.scale(0.7, 0.7);
        drawArrow(painter, drawing == Drawing::ListIn);
        break;
    }
    return pixmap;
}

} // namespace

void paintTitleBar(Tab tab, QFrame& bar, QLabel& pictureLabel)
{
    const Look& look = looks.at(static_cast<std::size_t>(tab));
    QPalette palette = bar.palette();
    palette.setColor(QPalette::Window, look.color);
    palette.setColor(QPalette::WindowText, Qt::white);
    bar.setPalette(palette);
    bar.setAutoFillBackground(true);
    QFont font = bar.font();
    font.setBold(true);
    bar.setFont(font);
    pictureLabel.setPixmap(picture(look.drawing, pictureLabel.devicePixelRatioF()));
}

} // namespace suisui
