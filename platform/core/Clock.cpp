#include "platform/core/Clock.h"

#include <QCoreApplication>
#include <QTimer>

#include "platform/core/DoEvents.h"

namespace suisui {

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}

std::chrono::milliseconds SystemClock::steady() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
}

void SystemClock::letPass(std::chrono::milliseconds span)
{
    if (span <= std::chrono::milliseconds::zero()) {
        DoEvents();
        return;
    }
    bool passed = false;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&passed] { passed = true; });
    timer.start(span);
    // Not DoEventsOrWait: this runs inside handlers, whose objects must outlive the wait even when they have
    // been given up for deletion.
    while (!passed)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace suisui
