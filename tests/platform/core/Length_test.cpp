// Lengths of different units do not mix: what must not compile is asked of the compiler.
#include <functional>
#include <type_traits>

#include <gtest/gtest.h>

#include "platform/core/Length.h"

namespace suisui::test {

namespace {

template <typename A, typename B> constexpr bool mix()
{
    return std::is_convertible_v<
               A,
               B> || std::is_constructible_v<B, A> || std::is_assignable_v<B&, A> || std::is_invocable_v<std::plus<>, A, B> || std::is_invocable_v<std::minus<>, A, B> || std::is_invocable_v<std::less<>, A, B>;
}

static_assert(!mix<Millimetres, Twips>() && !mix<Twips, Millimetres>());
static_assert(!mix<Millimetres, Dots>() && !mix<Twips, Dots>());
static_assert(
    !std::is_convertible_v<
        int, Twips> && !std::is_convertible_v<double, Millimetres> && !std::is_convertible_v<int, Dots>);

} // namespace

TEST(Length, twipsAreTheTwentiethPartOfAPoint)
{
    EXPECT_EQ(inches(1440_tw), 1);
    EXPECT_EQ(inches(Twips(-45)), -0.03125);
    EXPECT_EQ(100_tw + 20_tw, 120_tw);
    EXPECT_EQ(100_tw - 120_tw, Twips(-20));
    EXPECT_EQ(360_tw * 25, 9000_tw);
    EXPECT_LT(44_tw, 45_tw);
    EXPECT_EQ(Twips().value(), 0);
}

} // namespace suisui::test
