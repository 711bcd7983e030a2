// The computer's own clock.
#include "platform/core/Clock.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QTimer>

#include "platform/core/DoEvents.h"
#include "tests/support/Eventually.h"

using namespace std::chrono_literals;

namespace suisui::test {

TEST(SystemClock, now_isTheWallClock)
{
    const SystemClock clock;
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = clock.now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
    EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
}

TEST(SystemClock, letPass_returnsWhenTheSpanIsOver_andNotBefore)
{
    SystemClock clock;
    const std::chrono::milliseconds start = clock.steady();
    clock.letPass(30ms);
    EXPECT_GE(clock.steady() - start, 29ms); // both ends are cut to whole milliseconds
}

TEST(SystemClock, letPass_letsEventsRun)
{
    SystemClock clock;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(1ms);
    clock.letPass(50ms);
    EXPECT_GE(ticks, 2);
}

TEST(SystemClock, letPass_ofNoTime_worksWhatIsPending_andReturns)
{
    for (const std::chrono::milliseconds span : {0ms, -5ms}) {
        SystemClock clock;
        bool ran = false;
        QObject context;
        QMetaObject::invokeMethod(
            &context, [&ran] { ran = true; }, Qt::QueuedConnection);
        clock.letPass(span);
        EXPECT_TRUE(ran);
    }
}

TEST(SystemClock, letPass_insideAHandler_keepsObjectsThatTheHandlerHasGivenUp)
{
    SystemClock clock;
    const QPointer<QObject> editor = new QObject; // given up below
    bool waited = false;
    bool aliveAfterWait = false;
    QMetaObject::invokeMethod(
        editor.data(),
        [&] {
            editor->deleteLater();
            clock.letPass(5ms);
            aliveAfterWait = !editor.isNull();
            waited = true;
        },
        Qt::QueuedConnection);
    ASSERT_TRUE(eventually([&] { return waited; }));
    EXPECT_TRUE(aliveAfterWait);
    wakeEvents();
    DoEventsOrWait(); // the main loop, after the handler
    EXPECT_TRUE(editor.isNull());
}

TEST(SystemClock, letPass_withinLetPass_endsEachAtItsOwnTime)
{
    SystemClock clock;
    bool innerDone = false;
    QObject context;
    QMetaObject::invokeMethod(
        &context,
        [&] {
            clock.letPass(20ms);
            innerDone = true;
        },
        Qt::QueuedConnection);
    clock.letPass(5ms);
    EXPECT_TRUE(innerDone);
}

} // namespace suisui::test
