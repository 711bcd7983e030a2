// The headings of a grid. They are of one line each, so one of them tells how high all are; the usual header
// lays out every caption of every grid for that, which a start with five grids feels.
#pragma once

#include <QHeaderView>

namespace suisui {

class SpreadHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit SpreadHeader(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
};

} // namespace suisui
