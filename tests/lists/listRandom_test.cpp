// Lists of random movements against an independent computation: after a search, and after every allowed sort
// in random order. Quantities are quarters, so that plain arithmetic is exact.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

#include "tests/lists/ListDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// The figures that a sum is made of: after a search those of the table, after a sort those of the cells.
enum class AddedUp { AsStored, AsDisplayed };

/// A movement as numbers.
struct Figures
{
    double quantity;
    double price;
    double discount;
    double returned1;
    double returned2;

    [[nodiscard]] double amount(Side side) const
    {
        return (quantity - returned1 - (side == Side::Shipment ? returned2 : 0)) * price - discount;
    }
};

/// Half away from zero, as a cell shows it.
double shown(double number)
{
    return std::round(number);
}

double cellNumber(const ListDesk& desk, int col, int row)
{
    return desk.grid().qtext(col, row).remove(u',').toDouble();
}

std::string stored(double number)
{
    QString text = QString::number(number, 'f', 2);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    return text.toStdString();
}

struct Sums
{
    double quantity = 0;
    double discount = 0;
    double amount = 0;
    double returned1 = 0;
    double returned2 = 0;

    void add(const Sums& other)
    {
        quantity += other.quantity;
        discount += other.discount;
        amount += other.amount;
        returned1 += other.returned1;
        returned2 += other.returned2;
    }
};

class RandomLists : public testing::TestWithParam<Side>
{
protected:
    ListDesk desk{GetParam()};
    std::mt19937 random;
    std::vector<Movement> movements;
    std::vector<Figures> figures; ///< by movement; the remark of a movement is its index here

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    void makeMovements(int count)
    {
        const std::vector<std::string> names{"りんご", "みかん", "apple", "APPLE", "ﾊﾞﾅﾅ"};
        for (int i = 0; i < count; ++i) {
            const int item = below(5);
            const Figures f{.quantity = (below(400) - 100) * 0.25,
                            .price = below(3000) * 1.0,
                            .discount = (below(200) - 20) * 0.25,
                            .returned1 = below(20) * 0.25,
                            .returned2 = below(12) * 0.25};
            figures.push_back(f);
            movements.push_back({.date = "202604" + std::to_string(10 + below(12)),
                                 .code = std::to_string(100 + item),
                                 .name = names[static_cast<std::size_t>(item)],
                                 .quantity = stored(f.quantity),
                                 .price = stored(f.price),
                                 .discount = stored(f.discount),
                                 .returned1 = stored(f.returned1),
                                 .returned2 = stored(f.returned2),
                                 .partner = std::to_string(101 + below(3)),
                                 .staff = below(2) == 0 ? "01" : "02",
                                 .unit = below(3) == 0 ? "" : (below(2) == 0 ? "個" : "箱"),
                                 .remark = std::to_string(i)});
        }
        desk.store(movements);
    }

    [[nodiscard]] const Figures& figuresOf(int row) const
    {
        return figures.at(std::stoul(desk.cell(desk.cells.remark, row)));
    }
    [[nodiscard]] Sums sumsAt(int row) const
    {
        const ListCells& cells = desk.cells;
        const auto number = [&](int col) { return col == noCell ? 0 : cellNumber(desk, col, row); };
        return {number(cells.quantity), number(cells.discount), number(cells.amount),
                number(cells.returned[0]), number(cells.returned[1])};
    }
    static void expectShown(const Sums& cells, const Sums& sums, bool shipment, int row)
    {
        EXPECT_EQ(cells.quantity, shown(sums.quantity)) << row;
        EXPECT_EQ(cells.discount, shown(sums.discount)) << row;
        EXPECT_EQ(cells.amount, shown(sums.amount)) << row;
        EXPECT_EQ(cells.returned1, shown(sums.returned1)) << row;
        if (shipment) {
            EXPECT_EQ(cells.returned2, shown(sums.returned2)) << row;
        }
    }

    /// Checks the list: every movement once and in order, a subtotal wherever the text of \a groupCol changes
    /// and nowhere else, and the sums.
    void checkDetail(int groupCol, const std::vector<int>& keys, AddedUp added, std::size_t expectedRows)
    {
        const int rows = desk.grid().MaxRows();
        std::set<std::string> seen;
        Sums group;
        Sums total;
        std::string last;
        bool first = true;
        for (int row = 1; row < rows; ++row) {
            if (desk.cell(desk.cells.date, row) == "　　小計") {
                ASSERT_FALSE(first) << "an empty subtotal in row " << row;
                expectShown(sumsAt(row), group, desk.isShipment(), row);
                total.add(group);
                group = {};
                first = true;
                if (row + 1 < rows) {
                    EXPECT_NE(desk.cell(groupCol, row + 1), desk.cell(groupCol, row - 1)) << row;
                }
                continue;
            }
            const Figures& f = figuresOf(row);
            EXPECT_TRUE(seen.insert(desk.cell(desk.cells.remark, row)).second);
            EXPECT_EQ(cellNumber(desk, desk.cells.amount, row), shown(f.amount(desk.side)));
            if (!first) {
                EXPECT_EQ(desk.cell(groupCol, row), last) << "no subtotal between groups, row " << row;
                expectOrder(keys, row - 1, row);
            }
            group.add(
                added == AddedUp::AsDisplayed
                    ? Sums{shown(f.quantity), shown(f.discount), shown(f.amount(desk.side)),
                           shown(f.returned1), shown(f.returned2)}
                    : Sums{f.quantity, f.discount, shown(f.amount(desk.side)), f.returned1, f.returned2});
            last = desk.cell(groupCol, row);
            first = false;
        }
        EXPECT_TRUE(first) << "the last group is closed";
        EXPECT_EQ(desk.cell(desk.cells.date, rows), "　　合計");
        expectShown(sumsAt(rows), total, desk.isShipment(), rows);
        EXPECT_EQ(seen.size(), expectedRows);
    }

    /// What the rows of a search are in the order of.
    [[nodiscard]] std::vector<int> byDay() const
    {
        return {desk.cells.date, desk.cells.name, desk.cells.code};
    }

    void expectOrder(const std::vector<int>& keys, int above, int below)
    {
        for (const int key : keys) {
            const int order =
                desk.grid().qtext(key, above).compare(desk.grid().qtext(key, below), Qt::CaseInsensitive);
            EXPECT_LE(order, 0) << "column " << key << ", row " << below;
            if (order != 0)
                return;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Sides, RandomLists, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

} // namespace

TEST_P(RandomLists, subtotalsAndTotals_areRight_afterSearchAndEverySort)
{
    random.seed(printedSeed());
    makeMovements(400);
    desk.search();
    const ListCells& cells = desk.cells;
    checkDetail(cells.date, byDay(), AddedUp::AsStored, 400);
    const std::vector<std::pair<int, std::vector<int>>> sorts{
        {cells.date, byDay()},
        {cells.name, {cells.name, cells.code, cells.date}},
        {cells.partner, {cells.partner, cells.name, cells.code, cells.date}},
        {cells.code, {cells.code, cells.date}},
        {cells.staff, {cells.staff, cells.name, cells.code, cells.date}}};
    for (int turn = 0; turn < 25 && !HasFailure(); ++turn) {
        const auto& [col, keys] = sorts[static_cast<std::size_t>(below(5))];
        SCOPED_TRACE("turn " + std::to_string(turn) + ", column " + std::to_string(col));
        desk.clickHeading(col);
        checkDetail(col, keys, AddedUp::AsDisplayed, 400);
        if (turn % 7 == 6) {
            desk.search();
            checkDetail(desk.cells.date, byDay(), AddedUp::AsStored, 400);
        }
    }
}

TEST_P(RandomLists, everySearch_agreesWithAPlainSelection)
{
    random.seed(printedSeed());
    makeMovements(300);
    int found = 0;
    for (int turn = 0; turn < 20 && !HasFailure(); ++turn) {
        const int from = 10 + below(12);
        const int to = from + below(22 - from);
        const int partner = below(3);
        const int staff = below(3);
        desk.period(u"202604%1"_s.arg(from), u"202604%1"_s.arg(to));
        desk.enter(below(2) == 0 ? u"10?"_s : u"*3"_s);
        const bool onlyThree = desk.goodsCaption() == u"*3"_s;
        desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(partner);
        desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(staff);
        std::size_t expected = 0;
        double amount = 0;
        for (std::size_t i = 0; i < movements.size(); ++i) {
            const Movement& m = movements[i];
            const int day = std::stoi(m.date.substr(6));
            if (day < from || day > to || (onlyThree && !m.code.ends_with('3'))
                || (partner < 2 && m.partner != std::to_string(101 + partner))
                || (staff < 2 && m.staff != "0" + std::to_string(1 + staff)))
                continue;
            ++expected;
            amount += shown(figures[i].amount(desk.side));
        }
        desk.search();
        if (expected == 0) {
            EXPECT_EQ(desk.grid().MaxRows(), 0);
            continue;
        }
        checkDetail(desk.cells.date, byDay(), AddedUp::AsStored, expected);
        EXPECT_EQ(cellNumber(desk, desk.cells.amount, desk.grid().MaxRows()), amount);
        ++found;
    }
    EXPECT_GT(found, 0);
}

TEST_P(RandomLists, sumsByGoods_areRight_andStayWholeThroughEverySort)
{
    random.seed(printedSeed());
    makeMovements(500);
    std::map<std::string, Sums> expected; // by code, price and unit
    std::map<std::string, Sums> seen;
    for (std::size_t i = 0; i < movements.size(); ++i) {
        const Figures& f = figures[i];
        expected[movements[i].code + "|" + std::to_string(static_cast<int>(f.price)) + "|"
                 + movements[i].unit]
            .add({f.quantity, f.discount, f.amount(desk.side), f.returned1, f.returned2});
    }
    desk.sumBox().setChecked(true);
    desk.search();
    for (int turn = 0; turn < 12 && !HasFailure(); ++turn) {
        ASSERT_EQ(desk.grid().MaxRows(), static_cast<int>(expected.size()));
        for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
            const auto found =
                expected.find(desk.cell(desk.cells.code, row) + "|"
                              + std::to_string(static_cast<int>(cellNumber(desk, desk.cells.price, row)))
                              + "|" + desk.cell(desk.cells.unit, row));
            ASSERT_NE(found, expected.end()) << row;
            expectShown(sumsAt(row), found->second, desk.isShipment(), row);
            EXPECT_EQ(desk.grid().cellBold(desk.cells.amount, row),
                      cellNumber(desk, desk.cells.amount, row) < 0);
        }
        const ListCells& cells = desk.cells;
        std::vector<int> sorts{cells.name, cells.quantity, cells.amount, cells.code, cells.returned[0]};
        if (cells.returned[1] != noCell)
            sorts.push_back(cells.returned[1]);
        const int col = sorts[static_cast<std::size_t>(below(static_cast<int>(sorts.size())))];
        desk.clickHeading(col);
        for (int row = 2; row <= desk.grid().MaxRows() && col != cells.name && col != cells.code; ++row)
            EXPECT_GE(cellNumber(desk, col, row - 1), cellNumber(desk, col, row)) << "column " << col;
    }
}

} // namespace suisui::test
