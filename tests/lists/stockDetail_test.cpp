// How a stock figure came about, line by line, and compared with independently computed figures of random
// shops.
#include <cmath>
#include <map>
#include <random>

#include "movement/MovementPage.h"
#include "booking/ComponentChange.h"
#include "tests/lists/StockDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor red(255, 0, 0);

class StockDetailTest : public ::testing::Test, protected StockDesk
{
protected:
    void show(const QString& code)
    {
        zero().setChecked(true);
        detail().setChecked(true);
        search(code);
    }
};

} // namespace

TEST_F(StockDetailTest, goodsThatNeverMoved_showAllSixLines)
{
    goods("A", "鉛筆", "7", "0", "10", "50", "80", "本");
    show(u"A"_s);
    ASSERT_EQ(grid().MaxRows(), 7);
    EXPECT_EQ(row(1), "A|鉛筆|7|50|80|||本|0");
    EXPECT_EQ(row(2), "|　① 入荷|0|50||0|0|本|");
    EXPECT_EQ(row(3), "|　② 履歴繰越|10|50|||500|本|");
    EXPECT_EQ(row(4), "|　合計 （ ①＋② ）|10|||0|500|本|");
    EXPECT_EQ(row(5), "|　③ 出荷|0||80|0|0|本|");
    EXPECT_EQ(row(6), "|　④ 部品消費|3|50|||150|本|"); // carried less stock
    EXPECT_EQ(row(7), "|　合計 （ ③＋④ ）|3|||0|150|本|");
}

TEST_F(StockDetailTest, movementsAreGroupedByPriceAndUnit_withTheirSums)
{
    goods("A", "鉛筆", "8", "0", "5", "50", "80", "本");
    receipt("A", "0000010", "0000060", "本", "0000100", "0000002");
    receipt("A", "0000003", "0000050");
    receipt("A", "0000004", "0000050", "箱");
    receipt("A", "0000001", "0000060", "本");
    receipt("B", "0000099", "0000050");
    shipment("A", "0000006", "0000080", "本", "0000020", "0000006"); // returns stay out of the stock
    shipment("A", "0000002", "0000090", "本");
    show(u"A"_s);
    ASSERT_EQ(grid().MaxRows(), 1 + 3 + 2 + 2 + 2);
    EXPECT_EQ(row(2), "|　① 入荷|3|50||0|150|個|");
    EXPECT_EQ(row(3), "|　① 入荷|4|50||0|200|箱|");
    EXPECT_EQ(row(4), "|　① 入荷|9|60||100|440|本|"); // (8 + 1) * 60 - 100
    EXPECT_EQ(row(5), "|　② 履歴繰越|5|50|||250|本|");
    EXPECT_EQ(row(6), "|　合計 （ ①＋② ）|21|||100|1,040|本|");
    EXPECT_EQ(row(7), "|　③ 出荷|6||80|20|460|本|");
    EXPECT_EQ(row(8), "|　③ 出荷|2||90|0|180|本|");
    EXPECT_EQ(row(9), "|　④ 部品消費|5|50|||250|本|"); // 21 - 8 - 8
    EXPECT_EQ(row(10), "|　合計 （ ③＋④ ）|13|||20|890|本|");
}

TEST_F(StockDetailTest, tenths_leaveNoTail_thatIsRedOrRoundsTheWrongWay)
{
    goods("A", "量り売り", "0", "0", "0.3", "50");
    for (int i = 0; i < 3; ++i)
        shipment("A", "0.1", "0000080");
    goods("B", "量り売り", "999999.8", "0", "1000000.3", "1");
    show(u"A"_s);
    EXPECT_EQ(row(6), "|　④ 部品消費|0|50|||0|個|"); // 0.3 less three times 0.1
    EXPECT_FALSE(grid().cellForeColor(StockCells::quantity, 6) == red);
    EXPECT_FALSE(grid().cellForeColor(StockCells::amount, 6) == red);
    show(u"B"_s);
    EXPECT_EQ(row(6), "|　④ 部品消費|1|1|||1|個|"); // 0.5, away from zero
}

TEST_F(StockDetailTest, aSetThatWasChanged_isExplainedByWhatWasCarriedForward)
{
    goods("SET", "詰合せ", "5");
    goods("PART", "りんご", "85", "0", "100");
    shop.add(hseihinTable, {"SET", "", "PART", "3"});
    receipt("SET", "0000005", "0000050");
    const auto nowTwo = [this] {
        db.Execute("UPDATE HSeihinTB SET Suuryou = '2'");
        return db.LastStatus() == DbStatus::Good;
    };
    ASSERT_TRUE(changeComponents(db, "20260401120000", nowTwo));
    db.Commit();
    show(u"PART"_s);
    EXPECT_EQ(row(1), "PART|りんご|85|50|80|||個|0");
    EXPECT_EQ(row(3), "|　② 履歴繰越|95|50|||4,750|個|");
    EXPECT_EQ(row(6), "|　④ 部品消費|10|50|||500|個|"); // what five sets take of it now
}

TEST_F(StockDetailTest, negativeFigures_areRedAndBold_theOthersPlain)
{
    goods("A", "鉛筆", "20", "0", "-3", "50");
    receipt("A", "0000002", "0000050", "個", "0000900");
    show(u"A"_s);
    const auto isRed = [this](int col, int row) {
        return grid().cellForeColor(col, row) == red && grid().cellBold(col, row);
    };
    EXPECT_FALSE(isRed(StockCells::quantity, 2));
    EXPECT_TRUE(isRed(StockCells::amount, 2)); // 100 - 900
    EXPECT_TRUE(isRed(StockCells::quantity, 3));
    EXPECT_TRUE(isRed(StockCells::amount, 3));
    EXPECT_TRUE(isRed(StockCells::quantity, 4));
    EXPECT_FALSE(isRed(StockCells::quantity, 5));
    EXPECT_TRUE(isRed(StockCells::quantity, 6)); // -1 - 20
    EXPECT_EQ(text(StockCells::quantity, 6), "-21");
}

TEST_F(StockDetailTest, amountsThatFitNoColumn_stayEmpty)
{
    goods("A", "鉛筆", "0", "0", "50000000000000", "2", "80");
    goods("B", "鉛筆", "0", "0", "99999999999999", "1", "80");
    show(u"A"_s);
    EXPECT_EQ(text(StockCells::amount, 3), "");
    EXPECT_EQ(text(StockCells::quantity, 3), "50,000,000,000,000");
    EXPECT_EQ(text(StockCells::amount, 4), "");
    EXPECT_EQ(text(StockCells::amount, 5), "0");
    show(u"B"_s);
    EXPECT_EQ(text(StockCells::amount, 3), "99,999,999,999,999");
}

TEST_F(StockDetailTest, movementsThatCannotBeRead_endTheBlockWithoutAWord)
{
    goods("A", "鉛筆", "7");
    db.Execute("DROP TABLE InpTB");
    db.Commit();
    db.ShowErrors(false);
    show(u"A"_s);
    EXPECT_EQ(grid().MaxRows(), 1);
    EXPECT_TRUE(box.shown.empty());
}

TEST_F(StockDetailTest, shortCutForManyGoods_showsWhatCodeByCodeShows)
{
    // Codes that differ in letter case or contain each other must not be mixed up.
    std::mt19937 random(printedSeed());
    const std::vector<std::string> units{"個", "KG", "kg", ""};
    for (int i = 0; i < 60; ++i) {
        const std::string code = (i % 2 == 0 ? "c" : "C") + std::to_string(i);
        goods(code, "品", std::to_string(static_cast<int>(random() % 40) - 10), "0",
              std::to_string(random() % 9), std::to_string(random() % 99), std::to_string(random() % 99));
        for (auto n = random() % 7; n > 0; --n)
            receipt(i % 3 == 0 ? "C" + std::to_string(i) : code, std::to_string(random() % 30),
                    "00000" + std::to_string(10 + random() % 3), units[random() % 4],
                    std::to_string(random() % 50), std::to_string(random() % 5));
        for (auto n = random() % 5; n > 0; --n)
            shipment(code, std::to_string(random() % 30) + (random() % 4 == 0 ? ".5" : ""),
                     "00000" + std::to_string(10 + random() % 3), units[random() % 4]);
    }
    show(u"*"_s); // all at once
    std::map<std::string, std::vector<std::string>> atOnce;
    std::string code;
    for (int number = 1; number <= grid().MaxRows(); ++number) {
        if (!text(StockCells::code, number).empty())
            code = text(StockCells::code, number);
        atOnce[code].push_back(row(number));
    }
    ASSERT_EQ(atOnce.size(), 60U);
    for (const auto& [each, rows] : atOnce) {
        search(QString());
        search(QString::fromStdString(each)); // one at a time
        ASSERT_EQ(grid().MaxRows(), static_cast<int>(rows.size())) << each;
        for (int number = 1; number <= grid().MaxRows(); ++number)
            ASSERT_EQ(row(number), rows[static_cast<std::size_t>(number - 1)]);
    }
}

TEST_F(StockDetailTest, randomBooks_reckonedApart)
{
    std::mt19937 random(printedSeed());
    for (int round = 0; round < 40; ++round) {
        const std::string code = "R" + std::to_string(round);
        struct Group
        {
            double quantity = 0;
            double discount = 0;
        };
        std::map<std::pair<std::string, std::string>, Group> in;
        std::map<std::pair<std::string, std::string>, Group> out;
        const double carried = static_cast<double>(random() % 100) / 2 - 10;
        const double stock = static_cast<double>(random() % 400) / 4 - 40;
        const int price = static_cast<int>(random() % 500);
        goods(code, "品", QString::number(stock).toStdString(), "0", QString::number(carried).toStdString(),
              std::to_string(price), "7");
        for (auto n = random() % 9; n > 0; --n) {
            const int quantity = static_cast<int>(random() % 60) - 5;
            const int returned = static_cast<int>(random() % 4);
            const int discount = static_cast<int>(random() % 300);
            const std::string each = "000" + std::to_string(100 + random() % 3);
            const std::string unit = random() % 2 == 0 ? "個" : "箱";
            receipt(code, std::to_string(quantity), each, unit, std::to_string(discount),
                    std::to_string(returned));
            in[{each, unit}].quantity += quantity - returned;
            in[{each, unit}].discount += discount;
        }
        for (auto n = random() % 9; n > 0; --n) {
            const int quantity = static_cast<int>(random() % 60) - 5;
            const std::string each = "000" + std::to_string(100 + random() % 3);
            shipment(code, std::to_string(quantity), each, "個", "3", "2");
            out[{each, "個"}].quantity += quantity;
            out[{each, "個"}].discount += 3;
        }
        search(QString());
        show(QString::fromStdString(code));

        const auto number = [this](int col, int row) {
            return grid().qtext(col, row).remove(u',').toDouble();
        };
        int at = 2;
        double received = 0;
        double paid = 0;
        for (const auto& [key, group] : in) {
            SCOPED_TRACE(code + " row " + std::to_string(at));
            ASSERT_EQ(text(StockCells::name, at), "　① 入荷");
            ASSERT_EQ(text(StockCells::unit, at), key.second);
            ASSERT_EQ(number(StockCells::receiptPrice, at), std::stod(key.first));
            ASSERT_EQ(number(StockCells::quantity, at), group.quantity);
            ASSERT_EQ(number(StockCells::discount, at), group.discount);
            ASSERT_EQ(number(StockCells::amount, at), std::stod(key.first) * group.quantity - group.discount);
            received += group.quantity;
            paid += number(StockCells::amount, at++);
        }
        at += in.empty() ? 1 : 0;
        ASSERT_NEAR(number(StockCells::quantity, at), carried, 0.5);
        ASSERT_NEAR(number(StockCells::quantity, at + 1), carried + received, 0.5);
        ASSERT_NEAR(number(StockCells::amount, at + 1), carried * price + paid, 0.5);
        at += 2;
        double shipped = 0;
        for (const auto& [key, group] : out) {
            ASSERT_EQ(text(StockCells::name, at), "　③ 出荷");
            ASSERT_EQ(number(StockCells::shipmentPrice, at), std::stod(key.first));
            ASSERT_EQ(number(StockCells::quantity, at), group.quantity);
            shipped += group.quantity;
            ++at;
        }
        at += out.empty() ? 1 : 0;
        const double consumed = carried + received - shipped - stock;
        ASSERT_NEAR(number(StockCells::quantity, at), consumed, 0.5);
        ASSERT_NEAR(number(StockCells::quantity, at + 1), shipped + consumed, 0.5);
        ASSERT_EQ(grid().MaxRows(), at + 1);
    }
}

TEST_F(StockDetailTest, withoutComponents_nothingIsConsumed_whateverWasBooked)
{
    for (const char* code : {"A", "B", "C"})
        shop.add(masterTable, {code, "品", "", "5", "50", "2", "80", "個", "0"});
    std::vector<std::unique_ptr<MovementPage>> entries;
    for (const Side side : {Side::Receipt, Side::Shipment}) {
        entries.push_back(std::make_unique<MovementPage>(side, services()));
        entries.back()->setPartners({{"101", u"東商店"_s}});
    }
    std::mt19937 random(printedSeed());
    frame.guardActive = true;
    for (int i = 0; i < 300; ++i) {
        const Side side = random() % 2 == 0 ? Side::Receipt : Side::Shipment;
        const MovementCells& cells = movementSide(side).cells;
        MovementPage& entry = *entries[indexOf(side)];
        vaSpread& sheet = *entry.grid();
        if (sheet.MaxRows() < 3 || random() % 3 == 0) {
            entry.barCodeField()->setText(QString(QChar(u'A' + static_cast<char16_t>(random() % 3))));
            int key = 13;
            entry.barCode_KeyPress(key);
            continue;
        }
        const int row = static_cast<int>(random() % static_cast<unsigned>(sheet.MaxRows())) + 1;
        for (const int column : {cells.price, cells.quantity, cells.discount, cells.returned[0]}) {
            sheet.SetText(column, row, std::string_view(std::to_string(random() % 40)));
            entry.cellChange(column, row);
        }
        if (random() % 2 == 0) {
            entry.cmdKousin_Click();
        } else if (random() % 2 == 0) {
            sheet.SetActiveCell(cells.quantity, row);
            box.answers = {BoxAnswer::Yes};
            entry.cmdDelete_Click();
            box.answers.clear();
        }
    }
    show(u"*"_s);
    int seen = 0;
    for (int number = 1; number <= grid().MaxRows(); ++number)
        if (text(StockCells::name, number) == "　④ 部品消費") {
            EXPECT_EQ(text(StockCells::quantity, number), "0");
            EXPECT_EQ(text(StockCells::amount, number), "0");
            ++seen;
        }
    EXPECT_EQ(seen, 3);
}

} // namespace suisui::test
