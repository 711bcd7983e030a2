// Showing a widget and waiting for its first paint.
#pragma once

#include <QApplication>
#include <QWidget>

namespace suisui::bench {

inline void showPainted(QWidget& widget)
{
    widget.resize(1100, 700);
    widget.show();
    widget.repaint();
    QCoreApplication::processEvents();
}

} // namespace suisui::bench
