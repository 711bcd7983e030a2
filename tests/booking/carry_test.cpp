// The carried stock, against a running sum worked out by hand, row after row.
#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "booking/CarryForward.h"
#include "store/Numbers.h"
#include "tests/support/BooksDesk.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

const std::string now = "20260401090000";

DbStatus carried(BooksDesk& desk, const std::string& stamp = now)
{
    const DbStatus status = carryForward(desk.db, stamp, [] {});
    if (status == DbStatus::Good)
        desk.db.Commit();
    else
        desk.db.Rollback();
    return status;
}

using Lines = std::vector<std::string>;

/// \a count thousandths as a plain text; whole arithmetic, so there is nothing to lose on the way.
std::string inThousandths(long long count)
{
    std::string digits = std::to_string(std::abs(count));
    digits.insert(0, 4 - std::min<std::size_t>(digits.size(), 4), '0');
    digits.insert(digits.size() - 3, 1, '.');
    digits.erase(std::min(digits.find_last_not_of('0') + 1, digits.size()));
    if (digits.back() == '.')
        digits.pop_back();
    return count < 0 ? "-" + digits : digits;
}

} // namespace

TEST(CarryForward, isWhatTheMovementsLeaveOver)
{
    BooksDesk desk;
    desk.stock("A", "10", "999");
    desk.receipt("A", "0000012", "20260301", "20260301090000");
    desk.receipt("A", "-000002", "20260302", "20260302090000");
    desk.shipment("A", "0000004", "20260303", "20260303090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.rows("ZaikoTB"), Lines{"A|10|4|20260101000000|" + now});
}

TEST(CarryForward, codeWithoutMovements_carriesItsWholeStock_asAPlainNumber)
{
    BooksDesk desk;
    desk.stock("A", "0000012", "5");
    desk.stock("B", "-3", "0");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"A|12", "B|-3"}));
    EXPECT_EQ(desk.stockColumn("ZaikoSuu"), (Lines{"A|0000012", "B|-3"})) << "the stock itself never moves";
}

TEST(CarryForward, receiptsOfAProduct_giveBackItsComponents_shipmentsDoNot)
{
    BooksDesk desk;
    desk.stock("SET", "3", "0");
    desk.stock("PART", "100", "0");
    desk.component("SET", "PART", "2.5");
    desk.component("SET", "MISSING", "1");
    desk.receipt("SET", "0000004", "20260301", "20260301090000");
    desk.shipment("SET", "0000001", "20260302", "20260302090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"PART|110", "SET|0"}));
}

TEST(CarryForward, tenthsAddUp_withoutATail)
{
    BooksDesk desk;
    desk.stock("PART", "-0.3", "0");
    desk.stock("BIG", "1000000.1", "0");
    desk.component("SET", "PART", "0.1");
    for (int i = 0; i < 3; ++i)
        desk.receipt("SET", "0000001", "20260301", std::to_string(20260301090000 + i));
    desk.receipt("BIG", "1000000", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"BIG|0.1", "PART|0"}));
}

TEST(CarryForward, returnedQuantitiesHaveNoPartInIt)
{
    BooksDesk desk;
    desk.stock("A", "10", "0");
    desk.receipt("A", "0000012", "20260301", "20260301090000", "", "0000002");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), Lines{"A|-2"});
}

TEST(CarryForward, everyStepIsReported_receiptsShipmentsComponentsAndTheRest)
{
    BooksDesk desk;
    desk.stock("A", "10", "0");
    int steps = 0;
    ASSERT_EQ(carryForward(desk.db, now, [&steps] { ++steps; }), DbStatus::Good);
    EXPECT_EQ(steps, 4);
    desk.db.Rollback();
    desk.shop->execute(
        "CREATE TRIGGER full BEFORE UPDATE OF KuriSuu ON ZaikoTB BEGIN SELECT RAISE(ABORT,'full'); END");
    EXPECT_NE(carryForward(desk.db, now, [&steps] { ++steps; }), DbStatus::Good);
    EXPECT_EQ(steps, 4 + 3) << "the last one is not done";
}

TEST(CarryForward, codesMeetWithoutRegardToLetterCase)
{
    BooksDesk desk;
    desk.stock("abc", "10", "0");
    desk.component("Set", "ABC", "1");
    desk.receipt("ABC", "0000001", "20260301", "20260301090000");
    desk.receipt("SET", "0000002", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), Lines{"abc|11"});
}

TEST(CarryForward, rowPostedInTheSameSecond_goesOnFromWhatItCarried)
{
    BooksDesk desk;
    desk.shop->add(zaikoTable, {"A", "10", "3", "20260101000000", now});
    desk.shop->add(zaikoTable, {"B", "10", "0000003", "20260101000000", now});
    desk.receipt("A", "0000001", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), (Lines{"A|2", "B|0000003"}));
}

TEST(CarryForward, rowStampedLaterThanNow_isCarriedFromItsStock)
{
    BooksDesk desk;
    // A clock that was set back: the row was posted "tomorrow".
    desk.shop->add(zaikoTable, {"A", "10", "3", "20260101000000", "20260402080000"});
    desk.shop->add(zaikoTable, {"B", "0000007", "3", "20260101000000", "20260402080000"});
    desk.receipt("A", "0000001", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    EXPECT_EQ(desk.rows("ZaikoTB"),
              (Lines{"A|10|9|20260101000000|" + now, "B|0000007|7|20260101000000|" + now}));
}

TEST(CarryForward, runAgain_givesTheSame)
{
    BooksDesk desk;
    desk.stock("A", "10.5", "0");
    desk.receipt("A", "0000012", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good);
    const Lines once = desk.stockColumn("KuriSuu");
    ASSERT_EQ(carried(desk, "20260401090001"), DbStatus::Good);
    EXPECT_EQ(desk.stockColumn("KuriSuu"), once);
    EXPECT_EQ(desk.stockColumn("UpdDate"), Lines{"A|20260401090001"});
}

TEST(CarryForward, quantityThatIsNotANumber_fails_andChangesNothing)
{
    BooksDesk desk;
    desk.stock("A", "10", "3");
    desk.receipt("NOSTOCK", "many", "20260301", "20260301090000");
    ASSERT_EQ(carried(desk), DbStatus::Good) << "no stock row asks for that quantity";
    desk.receipt("A", "many", "20260301", "20260301090001");
    const Lines before = desk.rows("ZaikoTB");
    EXPECT_NE(carried(desk, "20260401090001"), DbStatus::Good);
    EXPECT_EQ(desk.rows("ZaikoTB"), before);
}

TEST(CarryForward, ofRandomBooks_isTheRunningSumOfEveryRow)
{
    std::mt19937 random(printedSeed());
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int turn = 0; turn < 20; ++turn) {
        BooksDesk desk;
        std::map<std::string, long long> expected; // in thousandths
        for (int i = 0; i < 12; ++i) {
            const std::string code = "G" + std::to_string(i);
            expected[code] = below(200000) - 50000;
            desk.stock(code, inThousandths(expected[code]), CStr(below(100)));
        }
        std::vector<std::tuple<std::string, std::string, std::string>> parts;
        for (int i = 0; i < 6; ++i) {
            parts.emplace_back("G" + std::to_string(below(4)), "G" + std::to_string(4 + below(10)),
                               CStr(below(30) / 10.0));
            desk.component(std::get<0>(parts.back()), std::get<1>(parts.back()), std::get<2>(parts.back()));
        }
        for (int i = 0; i < 60; ++i) {
            const std::string code = "G" + std::to_string(below(14));
            const std::string quantity = movementNumber(CStr(below(100) - 20));
            const std::string stamp = std::to_string(20260301000000 + i);
            if (below(2) == 0) {
                desk.receipt(code, quantity, "20260301", stamp);
                expected[code] -= std::lround(CDbl(quantity)) * 1000;
                for (const auto& [product, part, each] : parts)
                    if (product == code)
                        expected[part] += std::lround(CDbl(quantity)) * std::lround(CDbl(each) * 1000);
            } else {
                desk.shipment(code, quantity, "20260301", stamp);
                expected[code] += std::lround(CDbl(quantity)) * 1000;
            }
        }
        ASSERT_EQ(carried(desk), DbStatus::Good);
        desk.db.ZaikoTbl().Select({});
        ASSERT_EQ(desk.db.ZaikoTbl().Count(), 12);
        for (int row = 1; row <= 12; ++row) {
            const std::string code(desk.db.ZaikoTbl().get(row, ZaikoCol::Code));
            EXPECT_EQ(desk.db.ZaikoTbl().get(row, ZaikoCol::KuriSuu), inThousandths(expected[code])) << code;
            EXPECT_EQ(desk.db.ZaikoTbl().get(row, ZaikoCol::UpdDate), now);
        }
    }
}

} // namespace suisui::test
