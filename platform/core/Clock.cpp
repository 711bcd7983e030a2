#include "platform/core/Clock.h"

#include <QElapsedTimer>
#include <QTimer>

#include "platform/core/DoEvents.h"

namespace suisui {

QDateTime SystemClock::now() const { return QDateTime::currentDateTime(); }

std::chrono::milliseconds SystemClock::steady() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
}

void SystemClock::letPass(std::chrono::milliseconds span)
{
    bool passed = false;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&passed] { passed = true; });
    timer.start(span);
    while (!passed)
        DoEventsOrWait();
}

} // namespace suisui
