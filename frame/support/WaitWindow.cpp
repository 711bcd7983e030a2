#include "frame/support/WaitWindow.h"

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QScreen>
#include <QWindow>

namespace suisui {

namespace {

constexpr int tickMs = 300;

/// Under Wayland a window of its own would take the focus, so that keys typed during the work would be lost,
/// and would not stay in front. A tool tip of the main window does neither. At the start there is no main
/// window yet, and no key to lose.
void standOverMain(QWidget& wait)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && qobject_cast<const QMainWindow*>(window) != nullptr;
    });
    if (main == windows.end())
        return;
    wait.setWindowFlags(Qt::ToolTip | Qt::WindowDoesNotAcceptFocus);
    wait.winId(); // makes the window, which knows nothing of the other yet
    wait.windowHandle()->setTransientParent((*main)->windowHandle());
}

} // namespace

WaitWindow::WaitWindow()
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint
                           | Qt::WindowDoesNotAcceptFocus)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_timer1.setInterval(tickMs);
    connect(&m_timer1, &QTimer::timeout, this, [this] {
        if (m_endMark)
            unload();
        else
            tick();
    });
}

WaitWindow::~WaitWindow() = default;

void WaitWindow::open()
{
    m_endMark = false;
    if (!m_pointer)
        m_pointer.emplace(hourglass());
    if (QGuiApplication::platformName().startsWith(u"wayland"))
        standOverMain(*this);
    adjustSize();
    const QWidget* main = QApplication::activeWindow();
    const QRect around =
        main != nullptr ? main->frameGeometry() : QGuiApplication::primaryScreen()->availableGeometry();
    move(around.center() - rect().center());
    show();
    m_timer1.start();
}

void WaitWindow::unload()
{
    m_timer1.stop();
    if (!m_pointer)
        return;
    m_pointer.reset();
    hide();
    closed();
}

void WaitWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_pointer);
}

} // namespace suisui
