#include "frame/support/WaitWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>

namespace suisui {

namespace {

constexpr int tickMs = 300;

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

WaitWindow::~WaitWindow()
{
    if (m_loaded)
        QGuiApplication::restoreOverrideCursor();
}

void WaitWindow::open()
{
    m_endMark = false;
    if (!m_loaded)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_loaded = true;
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
    if (!m_loaded)
        return;
    m_loaded = false;
    QGuiApplication::restoreOverrideCursor();
    hide();
    closed();
}

void WaitWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_loaded);
}

} // namespace suisui
