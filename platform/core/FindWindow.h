// Looking for another program's window by its title.
#pragma once

#include <QString>

namespace suisui {

/// True when a window of any program on this X display has exactly the title \a title (_NET_WM_NAME, else
/// WM_NAME). A minimised window and one on another desktop count; a window that its program has not shown
/// does not. False too where there is no X display.
[[nodiscard]] bool FindWindow(const QString& title);

/// True in a Wayland session. There no program sees the windows of another; an X server beside it (Xwayland)
/// shows those of X programs only. So a window may be there although FindWindow does not find it.
[[nodiscard]] bool windowsMayBeHidden();

} // namespace suisui
