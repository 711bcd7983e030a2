#include "barcode/label/SheetPicture.h"

#include <algorithm>

#include <QPainter>
#include <QRadioButton>

#include "barcode/label/LabelPages.h"
#include "barcode/label/LabelSheets.h"
#include "barcode/label/PagePicture.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr Millimetres widthOfSingleColumn = 110_mm; ///< for a sheet of one column, which gives no width
constexpr double shareOfWidth = 0.25;               ///< of the label, where the ring is over its bars
constexpr int buttonSize = 18;

Millimetres lengthIn(const char16_t* text)
{
    return Millimetres(numberIn(QString::fromUtf16(text)).value_or(0));
}

/// A radio button that is a ring, so that the bars under it are still seen.
class PositionButton final : public QRadioButton
{
public:
    using QRadioButton::QRadioButton;

    [[nodiscard]] QSize sizeHint() const override { return {buttonSize, buttonSize}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& at) const override { return rect().contains(at); }

    void paintEvent(QPaintEvent*) override
    {
        constexpr qreal line = 2;
        constexpr qreal halo = 5; // white, or the ring would be lost among black bars
        constexpr qreal inset = 3.5;
        const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        const QColor ink = isEnabled() ? QColor(0, 90, 200) : palette().color(QPalette::Mid);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, halo));
        painter.drawEllipse(ring);
        painter.setPen(QPen(ink, line));
        if (isChecked())
            painter.setBrush(ink);
        painter.drawEllipse(ring);
    }
};

} // namespace

SheetPicture::SheetPicture(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetPicture::setSheet(const LabelSheet& sheet, const QString& name)
{
    const Millimetres width = lengthIn(sheet.width);
    const Millimetres barHeight = lengthIn(sheet.barHeight);
    const LabelGrid grid{.columns = sheet.columns,
                         .rows = sheet.rows,
                         .start = {lengthIn(sheet.startX), lengthIn(sheet.startY)},
                         .width = width > 0_mm ? width : widthOfSingleColumn,
                         .height = lengthIn(sheet.height)};
    for (int position = 0; position < grid.capacity(); ++position) {
        auto* button = new PositionButton(this);
        button->setObjectName(name + QString::number(position));
        button->setToolTip(u"%1"_s.arg(position + 1));
        button->setAccessibleName(u"%1 番目のラベルから"_s.arg(position + 1));
        button->adjustSize();
        const MillimetrePoint label = grid.placeOf(position);
        m_buttons.push_back(button);
        m_places.push_back({label.x + grid.width * shareOfWidth, label.y + barHeight / 2});
    }
}

void SheetPicture::setPage(const QImage& page, const MillimetrePoint& corner)
{
    m_page = page;
    m_corner = corner;
    update();
}

QRect SheetPicture::paper() const
{
    const double scale = std::min(width() / paperWidth.value(), height() / paperHeight.value());
    QRect sheet(0, 0, static_cast<int>((paperWidth * scale).value()),
                static_cast<int>((paperHeight * scale).value()));
    sheet.moveCenter(rect().center());
    return sheet;
}

QPoint SheetPicture::pixelOf(const MillimetrePoint& place) const
{
    const QRect sheet = paper();
    return sheet.topLeft()
           + QPoint(static_cast<int>(place.x.value() * sheet.width() / paperWidth.value()),
                    static_cast<int>(place.y.value() * sheet.height() / paperHeight.value()));
}

void SheetPicture::paintEvent(QPaintEvent*)
{
    constexpr int pointRadius = 3;
    QPainter painter(this);
    const QRect sheet = paper();
    painter.fillRect(sheet, Qt::white);
    if (!m_page.isNull())
        painter.drawImage(sheet, m_page);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(sheet.adjusted(0, 0, -1, -1));
    painter.setClipRect(sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 90, 200));
    painter.drawEllipse(pixelOf(m_corner), pointRadius, pointRadius);
}

void SheetPicture::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        QRadioButton& button = *m_buttons[i];
        const QSize size = button.sizeHint();
        button.setGeometry(QRect(pixelOf(m_places[i]) - QPoint(size.width() / 2, size.height() / 2), size));
    }
    Q_EMIT resized();
}

} // namespace suisui
