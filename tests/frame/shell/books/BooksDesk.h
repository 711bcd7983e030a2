// An operator who works at the main window in random order, and does the same to a model of the books.
#pragma once

#include <deque>
#include <optional>
#include <random>

#include "tests/frame/shell/books/BooksModel.h"
#include "tests/support/MainWindowDesk.h"
#include "tests/support/Seed.h"

namespace suisui::test {

/// Columns of the entry grids as on the screen, from 1; 0: not there.
struct Cells
{
    int name, price, quantity, discount, total, unit;
    std::array<int, 2> returned;
    int date, time, remark, postedReturned, postedQuantity, index;
};
inline constexpr Cells cellsOf[] = {{2, 3, 4, 5, 6, 10, {11, 0}, 12, 13, 14, 15, 16, 17},
                                    {2, 3, 4, 5, 6, 10, {11, 12}, 13, 14, 15, 0, 16, 17}};

struct BooksDesk : MainWindowDesk
{
    BooksDesk();

    /// Does one thing on the window and on the model; tells what it was.
    std::string step();
    /// Questions get \a given in order, everything else its OK.
    void answer(const std::deque<BoxAnswer>& given);

    BooksModel model;
    std::optional<AppDB> watcher; ///< a second connection

private:
    void addGoods(const std::string& code, const ModelGoods& is);

    [[nodiscard]] std::size_t below(std::size_t n) { return static_cast<std::size_t>(m_random() % n); }
    [[nodiscard]] std::string anyDay() { return std::to_string(10 + below(15)); }
    [[nodiscard]] MovementPage& entry();
    [[nodiscard]] vaSpread& sheet() { return *entry().grid(); }

    void scan();
    void correct();
    void correctFigure(int column, int row, long long& place, long long value);
    void correctWords(int column, int row, std::string& place, const std::string& value,
                      const std::string& typed);
    void type(int column, int row, const std::string& text);
    void update();
    void erase();
    void search();
    void setPeriod(const std::string& from, const std::string& to) const;
    void changeTab();

    /// The answer that the guard of unsaved corrections will get; the model has what comes of it.
    [[nodiscard]] bool guardLetsGo();

    std::mt19937 m_random{printedSeed()};
    std::deque<BoxAnswer> m_questions;
};

} // namespace suisui::test
