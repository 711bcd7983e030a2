// The picture of a sheet: its page as it will be printed, with a ring over the bars of every label; the
// filled ring is the first label.
#pragma once

#include <vector>

#include <QImage>
#include <QWidget>

#include "barcode/label/LabelGeometry.h"

class QRadioButton;

namespace suisui {

struct LabelSheet;

class SheetPicture : public QWidget
{
    Q_OBJECT

public:
    explicit SheetPicture(QWidget* parent = nullptr);

    /// Makes the buttons of \a sheet, named \a name and their place from 0.
    void setSheet(const LabelSheet& sheet, const QString& name);
    [[nodiscard]] const std::vector<QRadioButton*>& buttons() const { return m_buttons; }

    /// The page to show; \a corner is where the bars of the first label begin.
    void setPage(const QImage& page, const MillimetrePoint& corner);
    /// Pixels that a page has here.
    [[nodiscard]] QSize pageSize() const { return paper().size(); }

Q_SIGNALS:
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QRect paper() const;
    [[nodiscard]] QPoint pixelOf(const MillimetrePoint& place) const;

    QImage m_page;
    MillimetrePoint m_corner;
    std::vector<QRadioButton*> m_buttons;
    std::vector<MillimetrePoint> m_places; ///< of the middles of the buttons
};

} // namespace suisui
