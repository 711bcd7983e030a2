// Letting events run, and sleeping only when there are none.
#include "platform/core/DoEvents.h"

#include <thread>

#include <gtest/gtest.h>

#include <QPointer>
#include <QTimer>

using namespace std::chrono_literals;

namespace suisui::test {

namespace {

/// Ends a sleep that nothing else ends, so that a test fails instead of hanging.
class Rescue
{
public:
    Rescue()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { m_needed = true; });
        m_timer.start(30s);
    }
    [[nodiscard]] bool needed() const { return m_needed; }

private:
    QTimer m_timer;
    bool m_needed = false;
};

} // namespace

TEST(DoEvents, worksAllThatIsPending_andReturns)
{
    QObject context;
    int ran = 0;
    for (int i = 0; i < 100; ++i)
        QMetaObject::invokeMethod(
            &context, [&ran] { ++ran; }, Qt::QueuedConnection);
    DoEvents();
    EXPECT_EQ(ran, 100);
    DoEvents(); // nothing is pending: it must not wait
    EXPECT_EQ(ran, 100);
}

TEST(DoEventsOrWait, doesNotSleepOverWhatIsPending)
{
    const Rescue rescue;
    QObject context;
    bool ran = false;
    QMetaObject::invokeMethod(
        &context, [&ran] { ran = true; }, Qt::QueuedConnection);
    while (!ran && !rescue.needed())
        DoEventsOrWait();
    EXPECT_TRUE(ran);
}

TEST(DoEventsOrWait, isEndedByWakeEvents_alsoByOneThatCameBefore)
{
    const Rescue rescue;
    DoEvents();
    wakeEvents();
    DoEventsOrWait();
    EXPECT_FALSE(rescue.needed());
}

TEST(DoEventsOrWait, isEndedByATimer_andByAnEventOfAnotherThread)
{
    const Rescue rescue;
    bool fired = false;
    QTimer::singleShot(5ms, [&fired] { fired = true; });
    while (!fired && !rescue.needed())
        DoEventsOrWait();
    EXPECT_TRUE(fired);

    QObject context;
    bool came = false;
    std::thread other([&] {
        QMetaObject::invokeMethod(
            &context, [&came] { came = true; }, Qt::QueuedConnection);
    });
    while (!came && !rescue.needed())
        DoEventsOrWait();
    other.join();
    EXPECT_TRUE(came);
}

TEST(DoEventsOrWait, deletesWhatTheMainLoopHasGivenUp)
{
    const QPointer<QObject> dialog = new QObject; // deleted by the call below
    dialog->deleteLater();
    wakeEvents();
    DoEventsOrWait();
    EXPECT_TRUE(dialog.isNull());
}

} // namespace suisui::test
