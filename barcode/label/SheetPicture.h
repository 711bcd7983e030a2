// The picture of a sheet in the label dialog: its page as it will be printed, with a ring on every label by
// which the operator chooses the first one, whose ring is filled.
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

    /// Makes the buttons of \a sheet; their object names are \a name and the position from 0.
    void setSheet(const LabelSheet& sheet, const QString& name);
    [[nodiscard]] const std::vector<QRadioButton*>& buttons() const { return m_buttons; }

    /// The page to show; \a corner is where the bars of the first label begin.
    void setPage(const QImage& page, const MillimetrePoint& corner);
    /// The size of the page on the screen.
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
    std::vector<MillimetrePoint> m_places; ///< centres of the buttons
};

} // namespace suisui
