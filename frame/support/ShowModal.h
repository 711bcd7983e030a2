// Showing a dialog until it is answered.
#pragma once

#include <QDialog>
#include <QGuiApplication>

namespace suisui {

/// Runs \a dialog and gives the keys back to the window that it belongs to. A box may have closed just before
/// the dialog does; window managers then lose track of whose turn it is, and without one nobody keeps it.
/// The busy window below it may show the hourglass; the dialog asks the operator and must not show it.
inline void showModal(QDialog& dialog)
{
    const bool busy = QGuiApplication::overrideCursor() != nullptr;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    dialog.exec();
    if (busy)
        QGuiApplication::restoreOverrideCursor();
    if (QWidget* owner = dialog.parentWidget())
        owner->window()->activateWindow();
}

} // namespace suisui
