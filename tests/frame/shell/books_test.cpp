// Whole days at the main window in random order: booking, correcting, updating, deleting, searching, changing
// tabs, with every answer to every question, on both sides. After each step grid, buffer, table and stock are
// compared with a small model of rows and stock that knows nothing of the program's own arithmetic.
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "tests/support/MainWindowDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

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

    friend bool operator==(const Words&, const Words&) = default;
};

struct Movement
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
    std::vector<std::pair<std::string, long long>> parts;
};

struct ModelSide
{
    std::vector<Movement> table;   // oldest booking first
    std::vector<std::string> grid; // stamps, top row first
    bool dirty = false;
    bool fresh = true; ///< the tab need not be searched again when it is next shown
    std::string from = "20260401";
    std::string to = "20260401";

    Movement& of(const std::string& stamp)
    {
        return *std::find_if(table.begin(), table.end(),
                             [&stamp](const Movement& each) { return each.stamp == stamp; });
    }
};

/// Columns of the entry grids, from 1, as they stand on the screen; 0: not there.
struct Cells
{
    int name, price, quantity, discount, total, unit;
    std::array<int, 2> returned;
    int date, time, remark, postedReturned, postedQuantity, index;
};
constexpr Cells cellsOf[] = {{2, 3, 4, 5, 6, 10, {11, 0}, 12, 13, 14, 15, 16, 17},
                             {2, 3, 4, 5, 6, 10, {11, 12}, 13, 14, 15, 0, 16, 17}};

std::string seven(long long number)
{
    const std::string digits = std::to_string(number < 0 ? -number : number);
    return (number < 0 ? "-" : "") + std::string(digits.size() < 7 ? 7 - digits.size() : 0, '0') + digits;
}

std::string grouped(long long number)
{
    std::string digits = std::to_string(number < 0 ? -number : number);
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), ",");
    return (number < 0 ? "-" : "") + digits;
}

class BooksTest : public ::testing::Test, protected MainWindowDesk
{
protected:
    void start()
    {
        furnish();
        addGoods("A", 1, 1, {});
        addGoods("B", 12, 3, {});
        addGoods("P", 2, 1, {{"A", 1}, {"B", 3}});
        addGoods("Q", 1, 2, {{"P", 2}, {"GONE", 4}}); // GONE is in no table
        open();
        shipmentsFresh = false;
        ASSERT_EQ(watcher.emplace(shop.databaseFolder()).Open("trnvik.mdb"), 0);
    }
    void addGoods(const std::string& code, long long nyuSuu, long long syuSuu,
                  const std::vector<std::pair<std::string, long long>>& parts)
    {
        shop.add(masterTable, {code, "品 " + code, "", std::to_string(nyuSuu), "100", std::to_string(syuSuu),
                               "150", "個", "0"});
        for (const auto& [part, perUnit] : parts)
            shop.add(hseihinTable, {code, "", part, std::to_string(perUnit)});
        goods[code] = {nyuSuu, syuSuu, parts};
    }

    [[nodiscard]] std::size_t below(std::size_t n) { return static_cast<std::size_t>(random() % n); }
    [[nodiscard]] ModelSide& now() { return sides.at(at); }
    [[nodiscard]] MovementPage& entry()
    {
        return static_cast<MovementPage&>(window->page(static_cast<Tab>(at)));
    }
    [[nodiscard]] vaSpread& sheet() { return *entry().grid(); }

    void post(const std::string& code, long long quantity)
    {
        if (quantity != 0 && (stock.contains(code) || goods.contains(code)))
            stock[code] += quantity;
    }
    /// Moves the stock by what \a quantity more of the movement's net figure means.
    void postNet(std::size_t side, const std::string& code, long long quantity)
    {
        if (side == 1)
            return post(code, -quantity);
        post(code, quantity);
        for (const auto& [part, perUnit] : goods[code].parts)
            post(part, -perUnit * quantity);
    }
    static long long net(std::size_t side, const Words& words)
    {
        return side == 0 ? words.quantity - words.returned[0] : words.quantity;
    }

    // ---- steps, each done on the window and on the model

    void scan()
    {
        const auto chosen = std::next(goods.begin(), static_cast<std::ptrdiff_t>(below(goods.size())));
        const std::string& code = chosen->first;
        const std::string stamp = clock.now().toString(u"yyyyMMddHHmmss"_s).toStdString();
        window->GoodsCodeSet(QString::fromStdString(code));
        Movement made{stamp, code, {}, {}};
        made.stored = {.name = "品 " + code,
                       .unit = "個",
                       .remark = "",
                       .date = stamp.substr(0, 8),
                       .time = stamp.substr(8),
                       .price = at == 0 ? 100 : 150,
                       .quantity = at == 0 ? chosen->second.nyuSuu : chosen->second.syuSuu};
        made.shown = made.stored;
        postNet(at, code, made.stored.quantity);
        now().table.push_back(made);
        now().grid.insert(now().grid.begin(), stamp);
    }

    void type(int column, int row, const std::string& text, bool changes)
    {
        sheet().SetText(column, row, std::string_view(text));
        Q_EMIT sheet().Change(column, row);
        if (changes) {
            now().dirty = true;
            now().of(now().grid[static_cast<std::size_t>(row - 1)]).touched = true;
        }
    }

    void correct()
    {
        if (now().grid.empty())
            return;
        const int row = static_cast<int>(below(now().grid.size())) + 1;
        Words& shown = now().of(now().grid[static_cast<std::size_t>(row - 1)]).shown;
        const Cells& cells = cellsOf[at];
        const auto figure = [&](int column, long long& place, long long value) {
            place = value;
            // The cell and the buffer are compared as texts, so any figure of fewer than seven digits counts.
            type(column, row, below(10) == 0 && value == 0 ? "" : std::to_string(value), true);
        };
        const auto words = [&](int column, std::string& place, const std::string& value,
                               const std::string& typed) {
            const bool changes = place != value;
            place = value;
            type(column, row, typed, changes);
        };
        switch (below(9)) {
        case 0:
            return figure(cells.price, shown.price, static_cast<long long>(below(5000)));
        case 1:
        case 2:
            return figure(cells.quantity, shown.quantity, static_cast<long long>(below(60)) - 5);
        case 3:
            return figure(cells.discount, shown.discount, static_cast<long long>(below(300)));
        case 4:
            return figure(cells.returned[0], shown.returned[0], static_cast<long long>(below(9)));
        case 5:
            if (at == 1)
                return figure(cells.returned[1], shown.returned[1], static_cast<long long>(below(9)));
            return words(cells.name, shown.name, "改名", "改名");
        case 6: {
            const std::string remark = below(2) == 0 ? "it's 備考" : "";
            return words(cells.remark, shown.remark, remark, remark);
        }
        case 7: {
            const std::string day = std::to_string(10 + below(15));
            return words(cells.date, shown.date, "202604" + day, "2026/04/" + day);
        }
        default: {
            const std::string minute = std::to_string(10 + below(50));
            return words(cells.time, shown.time, "12" + minute + "00", "12:" + minute + ":00");
        }
        }
    }

    /// The model's part of an update that goes through.
    void updated(std::size_t side)
    {
        for (const std::string& stamp : sides[side].grid) {
            Movement& each = sides[side].of(stamp);
            if (!each.touched)
                continue;
            postNet(side, each.code, net(side, each.shown) - net(side, each.stored));
            each.stored = each.shown;
            each.touched = false;
        }
        sides[side].dirty = false;
    }

    void update()
    {
        const bool yes = below(4) != 0;
        answer({yes ? BoxAnswer::Yes : BoxAnswer::No});
        entry().cmdKousin_Click();
        if (now().dirty && yes)
            updated(at);
    }

    void erase()
    {
        if (now().grid.empty())
            return;
        const std::size_t row = below(now().grid.size());
        sheet().SetActiveCell(4, static_cast<int>(row) + 1);
        const bool yes = below(5) != 0;
        answer({yes ? BoxAnswer::Yes : BoxAnswer::No});
        entry().cmdDelete_Click();
        if (!yes)
            return;
        const std::string stamp = now().grid[row];
        const Movement removed = now().of(stamp);
        postNet(at, removed.code, -net(at, removed.stored));
        now().grid.erase(now().grid.begin() + static_cast<std::ptrdiff_t>(row));
        std::erase_if(now().table, [&stamp](const Movement& each) { return each.stamp == stamp; });
    }

    /// What a search of the period brings into the grid; corrections not saved are gone.
    void searched(std::size_t side)
    {
        ModelSide& model = sides[side];
        std::vector<const Movement*> found;
        for (Movement& each : model.table) {
            each.shown = each.stored;
            each.touched = false;
            if (each.stored.date >= model.from && each.stored.date <= model.to)
                found.push_back(&each);
        }
        std::stable_sort(found.begin(), found.end(), [](const Movement* a, const Movement* b) {
            return a->stored.date + a->stored.time < b->stored.date + b->stored.time;
        });
        model.fresh = true;
        model.grid.clear();
        for (auto each = found.rbegin(); each != found.rend(); ++each)
            model.grid.push_back((*each)->stamp);
    }

    /// The guard of unsaved corrections answers as told; false: the step is called off.
    bool guarded(BoxAnswer given)
    {
        if (!now().dirty)
            return true;
        if (given == BoxAnswer::Yes)
            updated(at);
        else if (given == BoxAnswer::No)
            now().dirty = now().fresh = false;
        return given != BoxAnswer::Cancel;
    }
    BoxAnswer anyGuardAnswer()
    {
        constexpr BoxAnswer all[] = {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel};
        const BoxAnswer given = all[below(3)];
        answer({given});
        return given;
    }

    void search()
    {
        ModelSide& model = now();
        const std::string day = std::to_string(10 + below(15));
        const std::string from = below(2) == 0 ? "20260401" : "202604" + day;
        const std::string to = below(3) == 0 ? "20260401" : "20260430";
        setPeriod(from, std::max(from, to));
        const BoxAnswer given = anyGuardAnswer();
        const bool goesOn = guarded(given);
        entry().cmdKensaku_Click();
        if (goesOn) {
            model.from = from;
            model.to = std::max(from, to);
            searched(at);
        } else {
            setPeriod(model.from, model.to);
        }
    }
    void setPeriod(const std::string& from, const std::string& to)
    {
        const QString letter = at == 0 ? u"N"_s : u"S"_s;
        const auto set = [&](const QString& end, const std::string& day) {
            const QString text = QString::fromStdString(day);
            control<QLineEdit>(u"txt%1yyyy_%2"_s.arg(letter, end)).setText(text.left(4));
            control<QLineEdit>(u"txt%1mm_%2"_s.arg(letter, end)).setText(text.mid(4, 2));
            control<QLineEdit>(u"txt%1dd_%2"_s.arg(letter, end)).setText(text.mid(6, 2));
        };
        set(u"F"_s, from);
        set(u"T"_s, to);
    }

    void changeTab()
    {
        const BoxAnswer given = anyGuardAnswer();
        const bool goesOn = guarded(given);
        window->showTab(static_cast<Tab>(1 - at));
        if (!goesOn)
            return;
        at = 1 - at;
        if (at == 1 && !shipmentsFresh) {
            shipmentsFresh = true;
            now().fresh = false;
        }
        if (!now().fresh)
            searched(at);
        now().fresh = true;
    }

    /// Questions get \a given in order, everything else its OK.
    void answer(const std::deque<BoxAnswer>& given)
    {
        questions = given;
        box.answers.clear();
        box.onShow = [this](const Box& shown) {
            if (shown.buttons == BoxButtons::Ok) {
                box.answers.push_front(BoxAnswer::Ok);
            } else {
                ASSERT_FALSE(questions.empty()) << shown.text.toStdString();
                box.answers.push_front(questions.front());
                questions.pop_front();
            }
        };
    }

    std::string step()
    {
        switch (below(now().table.size() > 40 ? 14 : 11)) {
        case 0:
        case 1:
        case 2:
            return scan(), "scan";
        case 3:
        case 4:
        case 5:
        case 6:
            return correct(), "correction";
        case 7:
        case 8:
            return update(), "update";
        case 9:
            return search(), "search";
        case 10:
            return changeTab(), "change of tab";
        default:
            return erase(), "delete";
        }
    }

    // ---- comparing

    void compareGrid(std::size_t side)
    {
        const Cells& cells = cellsOf[side];
        vaSpread& shown = *window->page(static_cast<Tab>(side)).grid();
        RowSet& buffer = movementTable(static_cast<Side>(side)).rows(db);
        const MovementColumns& columns = movementTable(static_cast<Side>(side)).columns;
        ASSERT_EQ(shown.MaxRows(), static_cast<int>(sides[side].grid.size()));
        for (int row = 1; row <= shown.MaxRows(); ++row) {
            const Movement& each = sides[side].of(sides[side].grid[static_cast<std::size_t>(row - 1)]);
            const Words& words = each.shown;
            const auto text = [&](int column) { return std::string(shown.text(column, row)); };
            ASSERT_EQ(text(1), each.code);
            ASSERT_EQ(text(cells.name), words.name);
            ASSERT_EQ(text(cells.price), std::to_string(words.price));
            ASSERT_EQ(text(cells.quantity), std::to_string(words.quantity));
            ASSERT_EQ(text(cells.discount), std::to_string(words.discount));
            ASSERT_EQ(text(cells.returned[0]), std::to_string(words.returned[0]));
            ASSERT_EQ(text(cells.total),
                      grouped((words.quantity - words.returned[0] - words.returned[1]) * words.price
                              - words.discount));
            ASSERT_EQ(text(cells.date),
                      words.date.substr(0, 4) + "/" + words.date.substr(4, 2) + "/" + words.date.substr(6));
            ASSERT_EQ(text(cells.time),
                      words.time.substr(0, 2) + ":" + words.time.substr(2, 2) + ":" + words.time.substr(4));
            ASSERT_EQ(text(cells.remark), words.remark);
            ASSERT_EQ(text(cells.postedQuantity), std::to_string(each.stored.quantity));
            if (cells.postedReturned != 0) {
                ASSERT_EQ(text(cells.postedReturned), std::to_string(each.stored.returned[0]));
            }
            const int index = std::stoi(text(cells.index));
            ASSERT_EQ(buffer.get(index, columns.inpDate), each.stamp);
            ASSERT_EQ(buffer.get(index, columns.quantity), seven(words.quantity));
            ASSERT_EQ(buffer.get(index, columns.remark), words.remark);
            ASSERT_EQ(buffer.RowState(index), each.touched ? "U" : "");
        }
    }

    void compareTable(std::size_t side)
    {
        const MovementColumns& columns = movementTable(static_cast<Side>(side)).columns;
        RowSet& rows = movementTable(static_cast<Side>(side)).rows(*watcher);
        ASSERT_EQ(rows.Select("ORDER BY InpDate"), static_cast<int>(sides[side].table.size()));
        for (int row = 1; row <= rows.Count(); ++row) {
            const Movement& each = sides[side].table[static_cast<std::size_t>(row - 1)];
            const Words& words = each.stored;
            const auto text = [&](int column) { return rows.get(row, column); };
            ASSERT_EQ(text(columns.inpDate), each.stamp);
            ASSERT_EQ(text(columns.code), each.code);
            ASSERT_EQ(text(columns.name), words.name);
            ASSERT_EQ(text(columns.price), seven(words.price));
            ASSERT_EQ(text(columns.quantity), seven(words.quantity));
            ASSERT_EQ(text(columns.discount), seven(words.discount));
            ASSERT_EQ(text(columns.returned[0]), seven(words.returned[0]));
            if (columns.returned[1] != noColumn) {
                ASSERT_EQ(text(columns.returned[1]), seven(words.returned[1]));
            }
            ASSERT_EQ(text(columns.date), words.date);
            ASSERT_EQ(text(columns.time), words.time);
            ASSERT_EQ(text(columns.unit), words.unit);
            ASSERT_EQ(text(columns.remark), words.remark);
        }
    }

    /// Every figure is what the model says, and what the movements in the tables add up to.
    void compareStock()
    {
        std::map<std::string, long long> expected;
        for (std::size_t side : {std::size_t{0}, std::size_t{1}})
            for (const Movement& each : sides[side].table) {
                const long long quantity = net(side, each.stored);
                expected[each.code] += side == 0 ? quantity : -quantity;
                if (side == 0)
                    for (const auto& [part, perUnit] : goods[each.code].parts)
                        expected[part] -= quantity * perUnit;
            }
        ZaikoRec& rows = watcher->ZaikoTbl();
        ASSERT_EQ(rows.Select({}), static_cast<int>(stock.size()));
        for (int row = 1; row <= rows.Count(); ++row) {
            const std::string code(rows.get(row, ZaikoCol::Code));
            ASSERT_EQ(rows.get(row, ZaikoCol::ZaikoSuu), std::to_string(stock[code])) << code;
            ASSERT_EQ(stock[code], expected[code]) << code;
        }
    }

    void compare()
    {
        ASSERT_EQ(window->currentTab(), static_cast<Tab>(at));
        for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
            ASSERT_EQ(window->dirty(static_cast<Side>(side)), sides[side].dirty);
            if (side == at)
                compareGrid(side);
            compareTable(side);
        }
        compareStock();
    }

    std::mt19937 random{printedSeed()};
    std::optional<AppDB> watcher; // a second connection
    std::map<std::string, ModelGoods> goods;
    std::map<std::string, long long> stock;
    std::array<ModelSide, 2> sides;
    std::size_t at = 0;
    bool shipmentsFresh = false;
    std::deque<BoxAnswer> questions;
};

} // namespace

TEST_F(BooksTest, rowsBufferTableAndStockAgree_whateverTheOperatorDoes)
{
    start();
    std::map<std::string, int> done;
    for (int i = 0; i < 5500 && !HasFatalFailure(); ++i) {
        answer({});
        const std::string what = step();
        ++done[what];
        SCOPED_TRACE(std::to_string(i) + " " + what + " on side " + std::to_string(at));
        compare();
        box.shown.clear();
    }
    EXPECT_EQ(done.size(), 6U);
}

} // namespace suisui::test
