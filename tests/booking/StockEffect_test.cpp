// One descriptor, two languages: the SQL sums and the figures of single rows are the same.
#include "booking/StockEffect.h"

#include <map>
#include <random>

#include <gtest/gtest.h>

#include "booking/BooksCheck.h"
#include "store/FoldedCode.h"
#include "store/Numbers.h"
#include "tests/support/BooksDesk.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

constexpr Returns bothCounts[] = {Returns::TakenOff, Returns::LeftOut};

struct Part
{
    std::string product;
    std::string part;
    double perUnit;
};

/// What the rows of a table and of its parts add to each code, row by row.
void addRows(const RowSet& rows, Side side, Returns returns, const std::vector<Part>& parts,
             std::map<std::string, double>& moved)
{
    const StockEffect effect(side, returns);
    for (int row = 1; row <= rows.Count(); ++row) {
        const std::string code = foldedCode(rows.get(row, movementTable(side).columns.code));
        const double of = effect.moved(rows.packed(row));
        moved[code] = plus(moved[code], of);
        for (const Part& each : parts)
            if (each.product == code)
                moved[each.part] = plus(moved[each.part], effect.movedOfComponent(of, each.perUnit));
    }
}

/// What one SELECT of movedOfCode says.
std::string movedText(AppDB& db, const std::string& code, Returns returns)
{
    EXPECT_EQ(db.OpenRecordset(movedOfCode(code, returns)), DbStatus::Good);
    std::string text = db.recordset().Fields("Moved");
    db.CloseRecordset();
    return text;
}

/// The sums of movedByStockRow, by code.
std::map<std::string, double> movedByStatements(AppDB& db, Returns returns)
{
    std::map<std::string, double> moved;
    for (const std::string& select : movedByStockRow(returns)) {
        EXPECT_EQ(db.OpenRecordset("SELECT ZaikoTB.Code AS Code, CStr(Sums.Moved) AS Moved FROM (" + select
                                   + ") AS Sums INNER JOIN ZaikoTB ON ZaikoTB.rowid = Sums.Item"),
                  DbStatus::Good);
        for (; !db.recordset().atEof(); db.recordset().MoveNext()) {
            double& sum = moved[foldedCode(db.recordset().Fields("Code"))];
            sum = plus(sum, CDbl(db.recordset().Fields("Moved")));
        }
        db.CloseRecordset();
    }
    return moved;
}

PackedRow rowOf(Side side, std::string_view quantity, std::string_view returned)
{
    const MovementTable& table = movementTable(side);
    PackedRow row(table.table.columnCount());
    row.setText(table.columns.quantity, quantity);
    for (const int column : table.columns.returned)
        if (column != noColumn)
            row.setText(column, returned);
    return row;
}

} // namespace

TEST(StockEffect, receiptCountsLessItsReturns_asPosted_andWholeAsCarried)
{
    const PackedRow row = rowOf(Side::Receipt, "0000012", "0000002");
    EXPECT_EQ(StockEffect(Side::Receipt, Returns::TakenOff).moved(row), 10);
    EXPECT_EQ(StockEffect(Side::Receipt, Returns::LeftOut).moved(row), 12);
}

TEST(StockEffect, shipmentTakesItsQuantity_andItsReturnsNeverCount)
{
    const PackedRow row = rowOf(Side::Shipment, "0000012", "0000002");
    for (const Returns returns : bothCounts)
        EXPECT_EQ(StockEffect(Side::Shipment, returns).moved(row), -12);
}

TEST(StockEffect, componentsGoDownWithAReceipt_andStayAtAShipment)
{
    EXPECT_EQ(StockEffect(Side::Receipt, Returns::TakenOff).movedOfComponent(10, 0.3), -3);
    EXPECT_EQ(StockEffect(Side::Shipment, Returns::TakenOff).movedOfComponent(-10, 0.3), 0);
}

TEST(StockEffect, returnsThatDoNotCount_mayBeAnyText)
{
    EXPECT_EQ(StockEffect(Side::Receipt, Returns::LeftOut).moved(rowOf(Side::Receipt, "7", "many")), 7);
    EXPECT_EQ(StockEffect(Side::Shipment, Returns::TakenOff).moved(rowOf(Side::Shipment, "7", "many")), -7);
    EXPECT_ANY_THROW(
        (void)StockEffect(Side::Receipt, Returns::TakenOff).moved(rowOf(Side::Receipt, "7", "many")));
}

TEST(StockEffect, returnsAreLeftOut_fromTheFirstSavedPeriodOn)
{
    BooksDesk desk;
    EXPECT_EQ(returnsInBooks(desk.db), Returns::TakenOff);
    desk.shop->add(rirekiTable, {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    EXPECT_EQ(returnsInBooks(desk.db), Returns::LeftOut);
    desk.db.CloseFile();
    EXPECT_EQ(returnsInBooks(desk.db), std::nullopt);
}

TEST(StockEffect, ofRandomRows_isTheSameInSql)
{
    std::mt19937 random(printedSeed());
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto figure = [&below] { return CStr((below(4000) - 1000) / 100.0); };
    for (int turn = 0; turn < 6; ++turn) {
        BooksDesk desk;
        std::vector<Part> parts;
        for (int i = 0; i < 10; ++i)
            desk.stock((i % 2 == 0 ? "g" : "G") + std::to_string(i), "0", "0");
        for (int i = 0; i < 8; ++i) {
            parts.push_back(
                {"g" + std::to_string(below(4)), "g" + std::to_string(4 + below(8)), (1 + below(50)) / 10.0});
            desk.component(parts.back().product, parts.back().part, CStr(parts.back().perUnit));
        }
        for (int i = 0; i < 60; ++i) {
            const std::string code = "G" + std::to_string(below(12));
            const std::string stamp = std::to_string(20260301000000 + i);
            if (below(2) == 0)
                desk.receipt(code, figure(), "20260301", stamp, "", figure());
            else
                desk.shipment(code, figure(), "20260301", stamp);
        }
        desk.db.Execute("UPDATE OutTB SET RHenkyaku = '0000003', FHenkyaku = '0000005'");
        desk.db.InpTbl().Select({});
        desk.db.OutTbl().Select({});
        for (const Returns returns : bothCounts) {
            std::map<std::string, double> moved;
            addRows(desk.db.InpTbl(), Side::Receipt, returns, parts, moved);
            addRows(desk.db.OutTbl(), Side::Shipment, returns, parts, moved);
            const std::map<std::string, double> bySql = movedByStatements(desk.db, returns);
            for (int i = 0; i < 12; ++i) {
                const std::string code = "g" + std::to_string(i);
                EXPECT_EQ(movedText(desk.db, code, returns), CStr(moved[code])) << code;
                const auto found = bySql.find(code);
                if (i < 10)
                    EXPECT_EQ(CStr(found == bySql.end() ? 0 : found->second), CStr(moved[code])) << code;
                else
                    EXPECT_EQ(found, bySql.end()) << code << " has no stock row";
            }
        }
    }
}

} // namespace suisui::test
