// Waiting for something that a real device, process or window does.
#pragma once

#include <chrono>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace suisui::test {

/// Lets events run until \a condition holds. False when it still does not at the deadline, which is far
/// longer than anything needs.
template <typename Condition>
[[nodiscard]] bool eventually(Condition condition, std::chrono::seconds deadline = std::chrono::seconds(30))
{
    const QDeadlineTimer end(deadline);
    QTimer lookAgain; // conditions that no event announces
    lookAgain.start(std::chrono::milliseconds(2));
    while (!condition()) {
        if (end.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Lets events run until a timer of two milliseconds, begun now, has ticked ten times: by then a dialog that
/// reads at each millisecond would have read, however busy the machine is.
inline void letTheTimersTick()
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(std::chrono::milliseconds(2));
    while (ticks < 10)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace suisui::test
