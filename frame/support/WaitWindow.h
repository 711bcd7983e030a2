// What the two wait windows have in common: on top of everything, taking no focus, with the hourglass, and an
// end mark that Timer1 looks at.
#pragma once

#include <optional>

#include <QTimer>
#include <QWidget>

#include "platform/widgets/Hourglass.h"

namespace suisui {

class WaitWindow : public QWidget
{
    Q_OBJECT

public:
    ~WaitWindow() override;

    /// The work is done: the window closes itself at its next tick.
    void setEndMark() { m_endMark = true; }
    /// Closes the window at once, if it is showing.
    void unload();

protected:
    WaitWindow();
    /// Shows the window with the end mark cleared.
    void open();
    /// A tick without the end mark.
    virtual void tick() {}
    /// The window has closed.
    virtual void closed() {}
    /// Only the work's end closes the window; a window manager does not.
    void closeEvent(QCloseEvent* event) override;

private:
    QTimer m_timer1;
    bool m_endMark = false;
    std::optional<PointerShape> m_pointer; ///< the hourglass, while the window is there
};

} // namespace suisui
