// Compares the window, its buffers and the tables with the model of the books. Every difference is a fatal
// failure of the running test.
#pragma once

#include "tests/frame/shell/books/BooksDesk.h"

namespace suisui::test {

void compareBooks(BooksDesk& desk);

} // namespace suisui::test
