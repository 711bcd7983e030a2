// Rows and sums of both lists, text by text, without a window.
#include <gtest/gtest.h>

#include "lists/ListFilter.h"
#include "lists/ListRows.h"
#include "lists/ListSide.h"
#include "lists/ListSubtotals.h"
#include "store/AppDB.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

PackedRow rowOf(const std::vector<std::string>& texts)
{
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    return PackedRow(views);
}

std::string joined(const std::vector<std::string>& texts)
{
    std::string line;
    for (const std::string& text : texts)
        line += (line.empty() && &text == &texts.front() ? "" : "|") + text;
    return line;
}

/// The cells of a list row that \a make fills.
template <typename Make> std::string cellsOf(Side side, Make make)
{
    std::vector<std::string> texts(listSide(side).columns.size());
    make(texts);
    return joined(texts);
}

const PackedRow receipt = rowOf({"A1", "鉛筆", "", "0000010", "0000050", "101", "東商店", "20260401",
                                 "090000", "本", "0000100", "0000002", "01", "山田", "急ぎ", "s", "s"});
const PackedRow shipment = rowOf({"A1",       "鉛筆",   "",   "0000010", "0000050", "201",     "西商店",
                                  "20260402", "090000", "本", "0000100", "0000001", "0000002", "01",
                                  "山田",     "急ぎ",   "",   "",        "s",       "s"});

} // namespace

TEST(ListFigures, aMovementRow_hasEachTextInItsCell)
{
    const auto line = [](Side side, const PackedRow& movement) {
        return cellsOf(side, [&](std::vector<std::string>& texts) {
            makeMovementRow(listSide(side), movement, 7, texts);
        });
    };
    EXPECT_EQ(line(Side::Receipt, receipt), "2026/04/01|鉛筆|東商店|50|10|100|300|A1|山田|2|本|急ぎ|7");
    EXPECT_EQ(line(Side::Shipment, shipment), "2026/04/02|鉛筆|西商店|50|10|100|250|A1|山田|1|2|本|急ぎ|7");
}

TEST(ListFigures, areThoseOfTheMovement)
{
    EXPECT_EQ(movementFigures(movementTable(Side::Receipt).columns, receipt),
              (ListFigures{10, 100, 300, 2, 0}));
    EXPECT_EQ(movementFigures(movementTable(Side::Shipment).columns, shipment),
              (ListFigures{10, 100, 250, 1, 2}));
    PackedRow half = receipt;
    half.setText(static_cast<int>(InpCol::NyuSuu), "2.5");
    half.setText(static_cast<int>(InpCol::NyuPrice), "3");
    half.setText(static_cast<int>(InpCol::NyuNebiki), "");
    half.setText(static_cast<int>(InpCol::Henkyaku), "");
    EXPECT_EQ(movementFigures(movementTable(Side::Receipt).columns, half), (ListFigures{2.5, 0, 8, 0, 0}))
        << "the amount as it is shown";
}

TEST(ListFigures, areShownWhole)
{
    const std::pair<double, double> numbers[] = {{0, 0},
                                                 {7, 7},
                                                 {2.4, 2},
                                                 {2.5, 3},
                                                 {-2.5, -3},
                                                 {-0.4, 0},
                                                 {0.49, 0},
                                                 {-7, -7},
                                                 {1e15, 1e15},
                                                 {1234567890123456, 1234567890123460},
                                                 {999999999999999, 999999999999999}};
    for (const auto& [number, shown] : numbers)
        EXPECT_EQ(displayed(number), shown) << number;
}

TEST(ListFigures, aSummedRow_hasEachTextInItsCell_andNoFigureThatIsTooLong)
{
    const SummedWords words{.partner = "（すべて）", .staff = "皆"};
    PackedRow received = rowOf({"A1", "鉛筆", "0000050", "本", "325", "100", "2", "10.5"});
    const auto line = [&words](Side side, const PackedRow& sum) {
        return cellsOf(side, [&](std::vector<std::string>& texts) {
            makeSummedRow(listSide(side), words, sum, 12, texts);
        });
    };
    EXPECT_EQ(line(Side::Receipt, received), "|鉛筆|（すべて）|50|11|100|325|A1|皆|2|本||12");
    EXPECT_EQ(line(Side::Shipment, rowOf({"A1", "鉛筆", "1500", "本", "5", "1", "2", "-630", "1100"})),
              "|鉛筆|（すべて）|1,500|1,100|5|-630|A1|皆|1|2|本||12");
    for (const NyuSumCol column :
         {NyuSumCol::Amount, NyuSumCol::NyuNebiki, NyuSumCol::Henkyaku, NyuSumCol::NyuSuu})
        received.setText(static_cast<int>(column), "99999999999998");
    const std::string longest = "99,999,999,999,998";
    EXPECT_EQ(line(Side::Receipt, received), "|鉛筆|（すべて）|50|" + longest + "|" + longest + "|" + longest
                                                 + "|A1|皆|" + longest + "|本||12");
    for (const NyuSumCol column :
         {NyuSumCol::Amount, NyuSumCol::NyuNebiki, NyuSumCol::Henkyaku, NyuSumCol::NyuSuu})
        received.setText(static_cast<int>(column), "99999999999999");
    EXPECT_EQ(line(Side::Receipt, received), "|鉛筆|（すべて）|50||||A1|皆||本||12");
}

TEST(ListFigures, aNegativeAmount_isOneThatIsShown)
{
    const auto shows = [](const char* amount) {
        return showsNegativeAmount(listSide(Side::Receipt).sumColumns,
                                   rowOf({"A1", "", "1", "", amount, "0", "0", "1"}));
    };
    for (const char* negative : {"-1", "-0.5", "-99999999999999"})
        EXPECT_TRUE(shows(negative)) << negative;
    for (const char* other : {"-0.4", "0", "1", "99999999999999", ""})
        EXPECT_FALSE(shows(other)) << other;
}

TEST(ListFigures, areInTheCellsOfTheirColumns)
{
    EXPECT_EQ(figureCells(listSide(Side::Receipt).cells), (std::array{5, 6, 7, 10, noCell}));
    EXPECT_EQ(figureCells(listSide(Side::Shipment).cells), (std::array{5, 6, 7, 10, 11}));
}

TEST(ListSums, closeAGroupWhenTheNextBegins)
{
    Subtotals sums("A");
    EXPECT_EQ(sums.add("A", {1, 2, 3, 4, 5}), std::nullopt);
    EXPECT_EQ(sums.add("A", {10, 20, 30, 40, 50}), std::nullopt);
    EXPECT_EQ(sums.add("B", {100, 0, -7, 0, 1}), (ListFigures{11, 22, 33, 44, 55}));
    EXPECT_EQ(sums.total(), (ListFigures{11, 22, 33, 44, 55}));
    EXPECT_EQ(sums.add("B", {1, 1, 1, 1, 1}), std::nullopt);
    EXPECT_EQ(sums.add("A", {5, 5, 5, 5, 5}), (ListFigures{101, 1, -6, 1, 2}))
        << "the same key again is another group";
    EXPECT_EQ(sums.close(), (ListFigures{5, 5, 5, 5, 5}));
    EXPECT_EQ(sums.total(), (ListFigures{117, 28, 32, 50, 62}));
    EXPECT_EQ(sums.close(), ListFigures{}) << "nothing is counted twice";
}

/// The condition with its bound texts in their places.
std::string conditionOf(const ListSide& side, const ListFilter& filter)
{
    const SqlText condition = whereText(side, filter);
    std::string read;
    auto value = condition.values().begin();
    for (const char c : condition.text())
        read += c == '?' ? "[" + *value++ + "]" : std::string(1, c);
    EXPECT_EQ(value, condition.values().end());
    return read;
}

TEST(ListConditions, areThoseOfTheFields)
{
    ListFilter filter{.from = "20260401",
                      .to = "20260430",
                      .goodsCaption = u"（すべて）"_s,
                      .chosenCode = "A'1",
                      .partner = {},
                      .staff = {}};
    const ListSide& receipts = listSide(Side::Receipt);
    const std::string days = "WHERE NyuDate >= [20260401]  AND NyuDate <= [20260430]";
    EXPECT_EQ(conditionOf(receipts, filter), days + " AND Code Like '*'");
    filter.goodsCaption = u"鉛筆"_s;
    EXPECT_EQ(conditionOf(receipts, filter), days + " AND Code = [A'1]");
    for (const QString& pattern : {u"4*"_s, u"?9"_s, u"*?"_s}) {
        filter.goodsCaption = pattern;
        EXPECT_EQ(conditionOf(receipts, filter), days + " AND Code Like [A'1]") << pattern.toStdString();
    }
    filter.partner = "101";
    EXPECT_EQ(conditionOf(receipts, filter), days + " AND Code Like [A'1] AND Nyusakicd = [101]");
    filter.staff = "";
    EXPECT_EQ(
        conditionOf(listSide(Side::Shipment), filter),
        "WHERE SyuDate >= [20260401]  AND SyuDate <= [20260430] AND Code Like [A'1] AND Syusakicd = [101] "
        "AND TanCD = []");
    filter.partner.reset();
    EXPECT_EQ(conditionOf(receipts, filter), days + " AND Code Like [A'1] AND TanCD = []");
}

} // namespace suisui::test
