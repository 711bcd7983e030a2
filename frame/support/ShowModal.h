// Showing a dialog until it is answered.
#pragma once

#include <optional>

#include <QDialog>
#include <QGuiApplication>

#include "platform/widgets/Hourglass.h"

namespace suisui {

/// Runs \a dialog and gives the keys back to the window that it belongs to. A box may have closed just before
/// the dialog does; window managers then lose track of whose turn it is, and without one nobody keeps it.
/// The busy window below it may show the hourglass; the dialog asks the operator and must not show it.
inline void showModal(QDialog& dialog)
{
    std::optional<PointerShape> usual;
    if (QGuiApplication::overrideCursor() != nullptr)
        usual.emplace(Qt::ArrowCursor);
    dialog.exec();
    usual.reset();
    if (QWidget* owner = dialog.parentWidget())
        owner->window()->activateWindow();
}

} // namespace suisui
