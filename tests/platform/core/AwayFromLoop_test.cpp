#include "platform/core/AwayFromLoop.h"

#include <gtest/gtest.h>

#include <semaphore>
#include <stdexcept>
#include <thread>

#include <QCoreApplication>
#include <QTimer>

namespace suisui::test {

TEST(AwayFromLoop, worksBesideTheLoop_whichGoesOn)
{
    std::binary_semaphore goOn(0);
    QTimer tick;
    int ticks = 0;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        if (++ticks == 3)
            goOn.release();
    });
    tick.start(1);
    const std::thread::id here = std::this_thread::get_id();
    bool elsewhere = false;
    awayFromLoop([&] {
        elsewhere = std::this_thread::get_id() != here;
        goOn.acquire(); // comes from the loop, or never
    });
    EXPECT_TRUE(elsewhere);
    EXPECT_GE(ticks, 3);
}

TEST(AwayFromLoop, isDoneWhenItReturns)
{
    for (int turn = 0; turn < 200; ++turn) {
        int done = 0;
        awayFromLoop([&done] { done = 1; });
        ASSERT_EQ(done, 1);
    }
}

TEST(AwayFromLoop, exceptionOfTheWork_arrivesAtTheCaller)
{
    EXPECT_THROW(awayFromLoop([] { throw std::runtime_error("disk"); }), std::runtime_error);
}

TEST(AwayFromLoop, applicationThatShallQuit_stillWaitsForTheWork)
{
    bool done = false;
    std::binary_semaphore quitCame(0);
    QTimer::singleShot(0, [&] {
        QCoreApplication::quit();
        quitCame.release();
    });
    awayFromLoop([&] {
        quitCame.acquire();
        std::this_thread::yield();
        done = true;
    });
    EXPECT_TRUE(done);
}

TEST(InLoop, runsWhereTheWindowsLive)
{
    const std::thread::id here = std::this_thread::get_id();
    std::thread::id ranOn;
    inLoop([&] { ranOn = std::this_thread::get_id(); });
    EXPECT_EQ(ranOn, here);
    ranOn = {};
    awayFromLoop([&] { inLoop([&] { ranOn = std::this_thread::get_id(); }); });
    EXPECT_EQ(ranOn, here);
}

} // namespace suisui::test
