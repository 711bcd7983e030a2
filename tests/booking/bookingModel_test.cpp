// Ten thousand movements in random order, booked, corrected and deleted on both sides without a screen,
// against a small model of rows and stock that knows nothing of the program's own arithmetic. Stock is
// compared after each movement; rows, boxes and the books themselves every fifty movements.
#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/BookingDesk.h"
#include "tests/support/BooksHold.h"
#include "tests/support/HeldFile.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// The books hold to the last digit only where every quantity is whole.
enum class Quantities { Whole, Fractions };

struct ModelGoods
{
    double received = 0;                               ///< at one scan
    double shipped = 0;                                ///< at one scan
    std::vector<std::pair<std::string, double>> parts; ///< and quantity in one unit
};

struct ModelRow
{
    std::string code;
    double quantity = 0;
    double returned = 0;
};

/// What the books must be, kept with plain arithmetic.
struct Model
{
    std::map<std::string, ModelGoods> goods;
    std::map<std::string, double> stock; ///< codes that have a row
    std::vector<ModelRow> receipts;      ///< newest first
    std::vector<ModelRow> shipments;
    int negativeBoxes = 0;

    void move(const std::string& code, double quantity)
    {
        if (quantity == 0 || (!stock.contains(code) && !goods.contains(code)))
            return;
        stock[code] += quantity;
        if (quantity < 0 && stock[code] < -1e-9)
            ++negativeBoxes;
    }
    /// A receipt of \a quantity is more than a stock figure can hold.
    [[nodiscard]] bool wouldOverflow(const std::string& code, double quantity) const
    {
        constexpr double largest = 99999999999999.0;
        const auto found = stock.find(code);
        return quantity != 0
               && (found == stock.end() ? goods.contains(code) && quantity > largest
                                        : found->second + quantity > largest);
    }
};

/// Rounds halves to the even neighbour.
double even(double number)
{
    const double below = std::floor(number);
    const double rest = number - below;
    if (rest != 0.5)
        return std::round(number);
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

double figureOf(std::string_view text)
{
    return std::stod(std::string(text));
}

class BookingModelTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(watcher.Open("trnvik.mdb"), DbStatus::Good); }

    void addGoods(const std::string& code, double received, double shipped,
                  const std::vector<std::pair<std::string, double>>& parts = {})
    {
        desk.goods(code, CStr(received), CStr(shipped));
        for (const auto& [part, perUnit] : parts)
            desk.component(code, part, CStr(perUnit));
        model.goods[code] = {received, shipped, parts};
        codes.push_back(code);
    }

    std::size_t below(std::size_t n) { return static_cast<std::size_t>(random() % n); }
    std::vector<ModelRow>& rowsOf(Side side)
    {
        return side == Side::Receipt ? model.receipts : model.shipments;
    }

    void book(Side side) { book(side, codes[below(codes.size())]); }
    void book(Side side, const std::string& code)
    {
        ASSERT_EQ(desk.tab(side).book(code), BookResult::Stored) << code;
        const ModelGoods& goods = model.goods[code];
        if (side == Side::Receipt) {
            for (const auto& [part, perUnit] : goods.parts)
                model.move(part, -(even(perUnit) * even(goods.received)));
            model.move(code, goods.received);
        } else {
            model.move(code, -goods.shipped);
        }
        // A movement is stored in whole numbers, halves away from zero; the grid keeps what was posted.
        rowsOf(side).insert(rowsOf(side).begin(),
                            {code, side == Side::Receipt ? goods.received : goods.shipped, 0});
    }

    /// Corrects one to three rows and updates.
    void correct(Side side)
    {
        EntryTab& tab = desk.tab(side);
        std::vector<ModelRow>& rows = rowsOf(side);
        std::map<std::size_t, ModelRow> wanted; // in the order of the grid
        for (std::size_t i = 0, count = 1 + below(3); i < count; ++i) {
            const std::size_t at = below(rows.size());
            wanted[at] = {rows[at].code, static_cast<double>(below(50)), static_cast<double>(below(10))};
        }
        for (const auto& [at, row] : wanted)
            tab.type(static_cast<int>(at) + 1, row.quantity, row.returned);
        ASSERT_EQ(tab.edit.update(), EditResult::Done);
        for (const auto& [at, row] : wanted) {
            ModelRow& kept = rows[at];
            if (side == Side::Receipt) {
                const double delta = (row.quantity - row.returned) - (kept.quantity - kept.returned);
                for (const auto& [part, perUnit] : model.goods[kept.code].parts)
                    model.move(part, -perUnit * delta);
                model.move(kept.code, delta);
            } else {
                model.move(kept.code, kept.quantity - row.quantity);
            }
            kept = row;
        }
    }

    void erase(Side side)
    {
        std::vector<ModelRow>& rows = rowsOf(side);
        const std::size_t at = below(rows.size());
        ASSERT_EQ(desk.tab(side).erase(static_cast<int>(at) + 1), EditResult::Done);
        const ModelRow gone = rows[at];
        if (side == Side::Receipt) {
            const double delta = gone.returned - gone.quantity;
            model.move(gone.code, delta);
            for (const auto& [part, perUnit] : model.goods[gone.code].parts)
                model.move(part, -perUnit * delta);
        } else {
            model.move(gone.code, gone.quantity);
        }
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(at));
    }

    /// Another program changes a row that is being corrected: nothing of the update stays.
    void correctAgainstAnother(Side side)
    {
        EntryTab& tab = desk.tab(side);
        const int row = static_cast<int>(below(rowsOf(side).size())) + 1;
        const std::string stamp(
            tab.rows().get(tab.view.bufferIndex(row), movementTable(side).columns.inpDate));
        desk.shop.execute(std::string("UPDATE ") + (side == Side::Receipt ? "InpTB" : "OutTB")
                          + " SET Bikou = Bikou || 'x' WHERE InpDate='" + stamp + "'");
        // Its quantity as it is, so that the postings alone are nothing and show no box.
        tab.type(row, tab.view.shown(row).quantity, tab.view.shown(row).returned);
        ASSERT_EQ(tab.edit.update(), EditResult::ConcurrentChange);
        tab.search();
    }

    /// One random movement.
    void step(Quantities quantities)
    {
        const Side side = below(2) == 0 ? Side::Receipt : Side::Shipment;
        const std::size_t rows = rowsOf(side).size();
        const std::size_t kind = rows == 0 ? 0 : below(rows > 40 ? 9 : 6);
        if (kind < 3)
            book(side);
        else if (kind < 6)
            correct(side);
        else
            erase(side);
        if (quantities == Quantities::Whole && below(200) == 0 && !rowsOf(side).empty())
            correctAgainstAnother(side);
    }

    void compareStock()
    {
        ZaikoRec stock(watcher, zaikoTable);
        ASSERT_EQ(stock.Select({}), static_cast<int>(model.stock.size()));
        for (int row = 1; row <= stock.Count(); ++row) {
            const std::string code(stock.get(row, ZaikoCol::Code));
            ASSERT_TRUE(model.stock.contains(code)) << code;
            ASSERT_NEAR(figureOf(stock.get(row, ZaikoCol::ZaikoSuu)), model.stock[code], 1e-6) << code;
        }
    }

    void compareBoxes()
    {
        int boxes = 0;
        for (const Box& each : desk.box.shown)
            boxes += each.title == u" 在庫不足"_s ? 1 : 0;
        ASSERT_EQ(boxes, model.negativeBoxes);
        ASSERT_EQ(desk.box.shown.size(), static_cast<std::size_t>(boxes)) << "no other box";
    }

    void compareRows(Side side)
    {
        const MovementColumns& columns = movementTable(side).columns;
        RowSet rows(watcher, movementTable(side).table);
        ASSERT_EQ(rows.Select("ORDER BY InpDate"), static_cast<int>(rowsOf(side).size()));
        for (int row = 1; row <= rows.Count(); ++row) {
            const ModelRow& wanted = rowsOf(side)[static_cast<std::size_t>(rows.Count() - row)];
            ASSERT_EQ(rows.get(row, columns.code), wanted.code);
            ASSERT_EQ(figureOf(rows.get(row, columns.quantity)), std::round(wanted.quantity));
            ASSERT_EQ(figureOf(rows.get(row, columns.returned[0])), wanted.returned);
        }
    }

    void run(int movements, Quantities quantities)
    {
        for (int i = 1; i <= movements && !HasFailure(); ++i) {
            SCOPED_TRACE(i);
            step(quantities);
            compareStock();
            if (i % 50 != 0 || HasFailure())
                continue;
            compareBoxes();
            compareRows(Side::Receipt);
            compareRows(Side::Shipment);
            if (quantities == Quantities::Whole)
                expectBooksHold(watcher);
        }
        EXPECT_GT(model.negativeBoxes, 100) << "a day in which no box was answered shows little";
    }

    BookingDesk desk;
    AppDB watcher{desk.shop.databaseFolder()}; ///< a second connection
    Model model;
    std::vector<std::string> codes;
    std::mt19937 random{printedSeed()};
};

} // namespace

TEST_F(BookingModelTest, wholeQuantities_holdTheBooks)
{
    addGoods("A", 1, 1);
    addGoods("B", 12, 3);
    addGoods("C", 6, 2);
    addGoods("P", 2, 1, {{"A", 1}, {"B", 3}});
    addGoods("Q", 1, 1, {{"C", 2}, {"P", 1}, {"GONE", 4}}); // GONE has left the master
    addGoods("Z", 0, 0, {{"A", 5}});
    run(7000, Quantities::Whole);
}

TEST_F(BookingModelTest, fractions_moveStockAsTheRulesSay)
{
    addGoods("A", 1.5, 0.5);
    addGoods("B", 2.5, 1.25);
    addGoods("P", 3.5, 1, {{"A", 0.5}, {"B", 1.5}, {"GONE", 1}});
    run(5000, Quantities::Fractions);
}

TEST_F(BookingModelTest, overflowsAndFailingWrites_leaveNothingOfTheirMovement)
{
    addGoods("A", 1, 1);
    addGoods("P", 1, 1, {{"A", 2}});
    addGoods("X", 3, 1, {{"A", 1}});
    desk.stock("X", "99999999999990");
    model.stock["X"] = 99999999999990.0;
    int refusals = 0;
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const std::string& code = codes[below(codes.size())];
        if (i % 30 == 29) {
            const HeldFile held(desk.shop);
            ASSERT_NE(desk.receipts.book(code), BookResult::Stored);
            ++refusals;
        } else if (model.wouldOverflow(code, model.goods[code].received)) {
            desk.box.shown.clear();
            ASSERT_EQ(desk.receipts.book(code), BookResult::Refused);
            ASSERT_EQ(desk.box.shown.back().title, u"桁あふれエラー"_s);
            ++refusals;
        } else {
            book(below(3) == 0 ? Side::Shipment : Side::Receipt, code);
        }
        compareStock();
        compareRows(Side::Receipt);
        compareRows(Side::Shipment);
        expectBooksHold(watcher);
    }
    EXPECT_GT(refusals, 10);
    EXPECT_EQ(desk.receipts.view.rows.size(), model.receipts.size());
}

} // namespace suisui::test
