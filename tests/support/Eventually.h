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

} // namespace suisui::test
