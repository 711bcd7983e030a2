// Whole days at the main window in random order: booking, correcting, updating, deleting, searching, changing
// tabs, with every answer to every question, on both sides. After each step grid, buffer, table and stock are
// compared with a small model of rows and stock that knows nothing of the program's own arithmetic.
#include <gtest/gtest.h>

#include "tests/frame/shell/books/BooksDesk.h"
#include "tests/frame/shell/books/compareBooks.h"

namespace suisui::test {

class BooksTest : public ::testing::Test
{
protected:
    BooksDesk desk;
};

TEST_F(BooksTest, rowsBufferTableAndStockAgree_whateverTheOperatorDoes)
{
    std::map<std::string, int> done;
    for (int i = 0; i < 5500 && !HasFatalFailure(); ++i) {
        desk.answer({});
        const std::string what = desk.step();
        ++done[what];
        SCOPED_TRACE(std::to_string(i) + " " + what + " on side " + std::to_string(desk.model.at));
        compareBooks(desk);
        desk.box.shown.clear();
    }
    EXPECT_EQ(done.size(), 6U);
}

} // namespace suisui::test
