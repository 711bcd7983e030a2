#include "booking/StockEffect.h"

#include "store/AppDB.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

constexpr Side bothSides[] = {Side::Receipt, Side::Shipment};

/// "InpTB.Code": \a column of \a table in a statement that joins it with others.
std::string columnOf(const TableDef& table, int column)
{
    return std::string(table.name) + '.' + std::string(table.columns[static_cast<std::size_t>(column)]);
}

std::string codeOf(const MovementTable& side)
{
    return columnOf(side.table, side.columns.code);
}

/// Components with the movements of their products.
std::string fromComponents(const MovementTable& side)
{
    return " FROM HSeihinTB INNER JOIN " + std::string(side.table.name) + " ON " + codeOf(side)
           + " = HSeihinTB.Code";
}

} // namespace

std::optional<Returns> returnsInBooks(AppDB& db)
{
    // The row that the first saved period leaves in the table for ever.
    const int saved = db.RirekiTbl().CountRows("WHERE DateFrom='Trn'");
    if (saved < 0)
        return std::nullopt;
    return saved > 0 ? Returns::LeftOut : Returns::TakenOff;
}

StockEffect::StockEffect(Side side, Returns returns)
    : m_side(movementTable(side)),
      m_returned(m_side.returnsMoveStock && returns == Returns::TakenOff ? m_side.columns.returned[0]
                                                                         : noColumn)
{
}

double StockEffect::counted(std::string_view quantity, std::string_view returned) const
{
    const double whole = numberOf(quantity);
    return m_returned == noColumn ? whole : plus(whole, -numberOf(returned));
}

double StockEffect::moved(const PackedRow& row) const
{
    const std::string_view returned = m_returned == noColumn ? std::string_view() : row.text(m_returned);
    return counted(row.text(m_side.columns.quantity), returned) * m_side.stockSign;
}

double StockEffect::movedOfComponent(double moved, double perUnit) const
{
    return m_side.movesComponents ? componentEffect(moved, perUnit) : 0;
}

std::string StockEffect::countedSql() const
{
    std::string quantity = columnOf(m_side.table, m_side.columns.quantity);
    if (m_returned == noColumn)
        return quantity;
    return "Plus(" + quantity + ", -CDbl(" + columnOf(m_side.table, m_returned) + "))";
}

std::string StockEffect::movedSql() const
{
    return (m_side.stockSign > 0 ? "SumOf(" : "-SumOf(") + countedSql() + ')';
}

std::string StockEffect::movedOfComponentSql() const
{
    return (m_side.stockSign > 0 ? "-SumOf(Times(" : "SumOf(Times(") + countedSql() + ", HSeihinTB.Suuryou))";
}

double componentEffect(double moved, double perUnit)
{
    return -times(perUnit, moved);
}

std::vector<std::string> movedByStockRow(Returns returns)
{
    const auto select = [](const std::string& moved) {
        return "SELECT ZaikoTB.rowid AS Item, " + moved + " AS Moved";
    };
    const std::string grouped = " GROUP BY ZaikoTB.rowid";
    std::vector<std::string> goods;
    std::vector<std::string> components;
    for (const Side side : bothSides) {
        const MovementTable& table = movementTable(side);
        const StockEffect effect(side, returns);
        // Reading the movements in the order of their table is quicker than code by code.
        goods.push_back(select(effect.movedSql()) + " FROM " + std::string(table.table.name)
                        + " NOT INDEXED CROSS JOIN ZaikoTB ON ZaikoTB.Code = " + codeOf(table) + grouped);
        if (table.movesComponents)
            components.push_back(select(effect.movedOfComponentSql()) + fromComponents(table)
                                 + " INNER JOIN ZaikoTB ON ZaikoTB.Code = HSeihinTB.HSeihinCD" + grouped);
    }
    goods.insert(goods.end(), components.begin(), components.end());
    return goods;
}

SqlText movedOfCode(std::string_view code, Returns returns)
{
    SqlText sum;
    const auto add = [&sum](const SqlText& moved) {
        sum = sum.text().empty() ? "(SELECT " + moved + ")" : "Plus(" + sum + ", (SELECT " + moved + "))";
    };
    for (const Side side : bothSides) {
        const MovementTable& table = movementTable(side);
        add(StockEffect(side, returns).movedSql() + " FROM " + std::string(table.table.name) + " WHERE "
            + codeOf(table) + " = " + bound(code));
    }
    for (const Side side : bothSides) {
        const MovementTable& table = movementTable(side);
        if (table.movesComponents)
            add(StockEffect(side, returns).movedOfComponentSql() + fromComponents(table)
                + " WHERE HSeihinTB.HSeihinCD = " + bound(code));
    }
    return "SELECT CStr(" + sum + ") AS Moved";
}

} // namespace suisui
