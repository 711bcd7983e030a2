// The headings of a grid. Each has one line, so the height of one is that of all; the usual header
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
