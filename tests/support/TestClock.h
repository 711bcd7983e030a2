// A clock that moves only when a test moves it, or by a small step at each look, so that waits end at once.
#pragma once

#include <functional>

#include "platform/core/Clock.h"

namespace suisui::test {

class TestClock final : public Clock
{
public:
    explicit TestClock(const QDateTime& start = QDateTime(QDate(2026, 4, 1), QTime(9, 0))) : m_now(start) {}

    [[nodiscard]] QDateTime now() const override { return m_now; }
    [[nodiscard]] std::chrono::milliseconds steady() const override { return m_steady; }
    void letPass(std::chrono::milliseconds span) override
    {
        if (onPass)
            onPass();
        m_now = m_now.addMSecs(span.count());
        m_steady += span;
    }

    /// Sets the wall clock, forwards or back; the steady clock goes on.
    void setNow(const QDateTime& moment) { m_now = moment; }

    std::function<void()> onPass; ///< runs at every letPass, before the time moves

private:
    QDateTime m_now;
    std::chrono::milliseconds m_steady{0};
};

} // namespace suisui::test
