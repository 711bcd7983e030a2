// What ends with its scope: the busy state of the window, the pointer, a grid that is not painted.
#include <stdexcept>

#include <QGuiApplication>
#include <gtest/gtest.h>

#include "frame/support/Busy.h"
#include "frame/support/FormDisabled.h"
#include "platform/widgets/Hourglass.h"
#include "platform/widgets/ReDrawOff.h"
#include "tests/support/TestFrame.h"

namespace suisui::test {

TEST(Busy, endsWithItsScope_orBefore_butOnce)
{
    struct : TestFrame
    {
        void BusyOff() override
        {
            ++ends;
            TestFrame::BusyOff();
        }
        int ends = 0;
    } frame;
    {
        const Busy busy(frame);
        EXPECT_FALSE(frame.enabled);
        EXPECT_EQ(frame.ends, 0);
    }
    EXPECT_TRUE(frame.enabled);
    {
        Busy busy(frame);
        busy.end();
        EXPECT_TRUE(frame.enabled);
    }
    EXPECT_EQ(frame.ends, 2);
}

TEST(Busy, staysWhenAnErrorPasses_sinceNoEventMayRunBeforeItsReport)
{
    TestFrame frame;
    const auto fail = [&frame] {
        const Busy busy(frame);
        throw std::runtime_error("a damaged figure");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_FALSE(frame.enabled);
}

TEST(FormDisabled, endsWithItsScope_butNotForAnError)
{
    TestFrame frame;
    {
        const FormDisabled disabled(frame);
        EXPECT_FALSE(frame.enabled);
    }
    EXPECT_TRUE(frame.enabled);
    const auto fail = [&frame] {
        const FormDisabled disabled(frame);
        throw std::runtime_error("a damaged figure");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_FALSE(frame.enabled);
}

TEST(PointerShape, givesTheFormerPointerBack)
{
    {
        const PointerShape working(Qt::WaitCursor);
        {
            const PointerShape asking(Qt::ArrowCursor);
            EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        }
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(ReDrawOff, leavesTheGridAsItWas_onInAnyCase_orOff)
{
    vaSpread grid;
    {
        const ReDrawOff outer(grid);
        {
            const ReDrawOff inner(grid);
        }
        EXPECT_FALSE(grid.ReDraw());
        {
            const ReDrawOff inner(grid, ReDrawOff::ThenOn);
        }
        EXPECT_TRUE(grid.ReDraw());
    }
    EXPECT_TRUE(grid.ReDraw());
    {
        ReDrawOff noRedraw(grid);
        noRedraw.end();
        EXPECT_TRUE(grid.ReDraw());
    }
    {
        ReDrawOff noRedraw(grid);
        noRedraw.stay();
    }
    EXPECT_FALSE(grid.ReDraw());
}

} // namespace suisui::test
