#include "platform/core/DoEvents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

namespace suisui {

void DoEvents()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void DoEventsOrWait()
{
    // Objects deleted later are deleted when control is back in a loop; this loop has no exec() of its own.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void wakeEvents()
{
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->wakeUp();
}

} // namespace suisui
