// The books of a shop as somebody would keep them by hand: movements, the grids that show them, and the stock
// that they add up to. Knows nothing of the program's own arithmetic.
#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace suisui::test {

/// What a movement says, on the screen or in its table.
struct Words
{
    std::string name;
    std::string unit;
    std::string remark;
    std::string date; // eight digits
    std::string time; // six digits
    long long price = 0;
    long long quantity = 0;
    long long discount = 0;
    std::array<long long, 2> returned{};
};

struct BookedMovement
{
    std::string stamp; // of its booking: its identity
    std::string code;
    Words stored;
    Words shown;
    bool touched = false; ///< corrected since it was read or written
};

struct ModelGoods
{
    long long nyuSuu;
    long long syuSuu;
    std::vector<std::pair<std::string, long long>> parts; ///< of one unit
};

struct ModelSide
{
    std::vector<BookedMovement> table; // oldest booking first
    std::vector<std::string> grid;     // stamps, top row first
    bool dirty = false;
    bool fresh = true; ///< the tab need not be searched again when it is next shown
    std::string from = "20260401";
    std::string to = "20260401";

    [[nodiscard]] BookedMovement& of(const std::string& stamp);
    /// The movement in row \a row of the grid, from 1.
    [[nodiscard]] BookedMovement& inRow(int row) { return of(grid.at(static_cast<std::size_t>(row - 1))); }
};

struct BooksModel
{
    /// Goods \a code are booked at the side that is shown; \a stamp is the moment, fourteen digits.
    void book(const std::string& code, const std::string& stamp);
    /// A cell of row \a row has another content.
    void corrected(int row);
    /// All corrections of \a side are stored and posted.
    void update(std::size_t side);
    /// Unsaved corrections are given up; the rows must be read again.
    void giveUp();
    /// The movement in row \a row is taken back.
    void erase(int row);
    /// The period of \a side is searched; corrections not saved are gone.
    void search(std::size_t side);
    /// The other side is shown.
    void changeTab();

    [[nodiscard]] ModelSide& now() { return sides.at(at); }
    /// What all stored movements add up to, for each code.
    [[nodiscard]] std::map<std::string, long long> sums() const;

    std::map<std::string, ModelGoods> goods;
    std::map<std::string, long long> stock;
    std::array<ModelSide, 2> sides; ///< receipts, shipments
    std::size_t at = 0;             ///< the side that is shown
    bool shipmentsShown = false;    ///< the first sight of the shipments searches them

private:
    void post(const std::string& code, long long quantity);
    void postNet(std::size_t side, const std::string& code, long long quantity);
};

} // namespace suisui::test
