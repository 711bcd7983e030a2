// Boxes compared to the letter.
#pragma once

#include <source_location>

#include <gtest/gtest.h>

#include "tests/support/ScriptedMsgBox.h"

namespace suisui::test {

/// \a shown and \a wanted are the same box in all that it says and offers.
inline void expectBox(const Box& shown, const Box& wanted,
                      const std::source_location& where = std::source_location::current())
{
    const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "box");
    EXPECT_EQ(shown.title, wanted.title);
    EXPECT_EQ(shown.text, wanted.text);
    EXPECT_EQ(shown.icon, wanted.icon);
    EXPECT_EQ(shown.buttons, wanted.buttons);
    EXPECT_EQ(shown.defaultButton, wanted.defaultButton);
}

/// \a wanted is the one box that was shown.
inline void expectOneBox(const ScriptedMsgBox& box, const Box& wanted,
                         const std::source_location& where = std::source_location::current())
{
    const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "one box");
    ASSERT_EQ(box.shown.size(), 1U);
    expectBox(box.shown.front(), wanted, where);
}

} // namespace suisui::test
