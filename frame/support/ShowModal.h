// Showing a dialog until it is answered.
#pragma once

#include <QDialog>

namespace suisui {

/// Runs \a dialog and gives the keys back to the window that it belongs to. A box may have closed just before
/// the dialog does; window managers then lose track of whose turn it is, and without one nobody keeps it.
inline void showModal(QDialog& dialog)
{
    dialog.exec();
    if (QWidget* owner = dialog.parentWidget())
        owner->window()->activateWindow();
}

} // namespace suisui
