#include "platform/core/Code128.h"

#include <string>

#include <gtest/gtest.h>

namespace suisui::test {

TEST(Code128, digitsArePackedInPairs)
{
    ASSERT_TRUE(encodeCode128("4901234567894"));
    EXPECT_EQ(encodeCode128("4901234567894")->width, 123);
    EXPECT_EQ(encodeCode128("[0]")->width, 68);
}

TEST(Code128, barsBeginAtTheFirstModule_endAtTheLast_andNeverTouch)
{
    const auto symbol = encodeCode128("Ab-1234567");
    ASSERT_TRUE(symbol);
    EXPECT_EQ(symbol->bars.front().start, 0);
    EXPECT_EQ(symbol->bars.back().start + symbol->bars.back().width, symbol->width);
    for (std::size_t i = 1; i < symbol->bars.size(); ++i)
        EXPECT_GT(symbol->bars[i].start, symbol->bars[i - 1].start + symbol->bars[i - 1].width);
    for (const BarSpan& bar : symbol->bars)
        EXPECT_TRUE(bar.width >= 1 && bar.width <= 4);
}

TEST(Code128, whatItCannotCarry_hasNoBars)
{
    EXPECT_FALSE(encodeCode128(""));
    EXPECT_FALSE(encodeCode128("鉛筆"));
    EXPECT_FALSE(encodeCode128("A\xE9"));
    EXPECT_FALSE(encodeCode128(std::string_view("A\0B", 3)));
    EXPECT_FALSE(encodeCode128(std::string(500, 'X')));
}

TEST(Code128, everyPrintableCharacter_isCarried)
{
    for (char c = ' '; c < '\x7F'; ++c)
        EXPECT_TRUE(encodeCode128(std::string(16, c))) << c;
}

} // namespace suisui::test
