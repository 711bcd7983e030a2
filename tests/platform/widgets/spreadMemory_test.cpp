// What filling the grid costs in memory: a block a row and nothing else.
#include <array>
#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/widgets/vaSpread.h"

namespace {

std::atomic<long> allocations{0};

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* block = std::malloc(size == 0 ? 1 : size))
        return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace suisui::test {

TEST(SpreadMemory, aRowOfTexts_isOneBlock)
{
    constexpr int rows = 100000;
    constexpr std::size_t cols = 17;
    const std::vector<SpreadColumn> columns(cols, {.heading = "数", .type = CellType::Number});
    std::array<std::string_view, cols> texts;
    texts.fill("0000012");
    vaSpread grid;
    grid.setColumns(columns);
    grid.setReDraw(false);
    grid.setMaxRows(rows);
    const long before = allocations;
    for (int row = 1; row <= rows; ++row)
        grid.setRowTexts(row, texts);
    EXPECT_LE(allocations - before, rows);
    EXPECT_EQ(grid.text(17, rows), "12");
    const long filled = allocations;
    grid.setReDraw(true);
    EXPECT_LT(allocations - filled, 1000); // no text is made before it is looked at
}

} // namespace suisui::test
