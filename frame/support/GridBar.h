// The bar that marks the current row of a grid: cyan while the grid has the focus, grey while it has not.
#pragma once

#include <functional>

#include <QApplication>
#include <QObject>

#include "platform/widgets/FocusColor.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

inline const QColor barWithoutFocus(192, 192, 192);

/// Colour of the bar while no control at all has the focus.
enum class BarWithNoFocus { Cyan, Grey };

class GridBar : public QObject
{
public:
    /// Follows the cursor and the focus of \a grid. \a rest gives the colour of a row that the bar leaves;
    /// without it, white.
    explicit GridBar(vaSpread& grid, std::function<QColor(int row)> rest = {},
                     BarWithNoFocus noFocus = BarWithNoFocus::Cyan)
        : QObject(&grid), m_grid(grid), m_rest(std::move(rest)), m_noFocus(noFocus)
    {
        connect(&grid, &vaSpread::LeaveCell, this, [this](int, int row, int newCol, int newRow) {
            if (newCol > 0)
                move(row, newRow);
        });
        connect(&grid, &vaSpread::GotFocus, this, [this] { paint(m_grid.ActiveRow(), focusColor); });
        connect(&grid, &vaSpread::LostFocus, this, [this] { paint(m_grid.ActiveRow(), barWithoutFocus); });
    }

    /// Takes the bar off \a oldRow (0: none) and puts it on \a newRow.
    void move(int oldRow, int newRow)
    {
        if (oldRow > 0)
            paint(oldRow, m_rest ? m_rest(oldRow) : QColor(Qt::white));
        paint(newRow, barColor());
    }

private:
    [[nodiscard]] QColor barColor() const
    {
        const QWidget* active = QApplication::focusWidget();
        const bool onGrid = active == nullptr ? m_noFocus == BarWithNoFocus::Cyan
                                              : active == &m_grid || m_grid.isAncestorOf(active);
        return onGrid ? focusColor : barWithoutFocus;
    }

    void paint(int row, const QColor& color)
    {
        if (row > 0 && row <= m_grid.MaxRows())
            m_grid.setRowBackColor(row, color);
    }

    vaSpread& m_grid;
    std::function<QColor(int)> m_rest;
    BarWithNoFocus m_noFocus;
};

} // namespace suisui
