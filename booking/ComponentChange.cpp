#include "booking/ComponentChange.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "booking/StockEffect.h"
#include "store/AppDB.h"
#include "store/FoldedCode.h"
#include "store/Numbers.h"
#include "store/Where.h"

namespace suisui {

namespace {

/// A part of a product and its quantity as in the table. The letter case of codes makes no difference.
struct Component
{
    std::string product;
    std::string part;
    std::string quantity;

    friend bool operator<(const Component& a, const Component& b)
    {
        return std::tie(a.product, a.part, a.quantity) < std::tie(b.product, b.part, b.quantity);
    }
};
using Components = std::multiset<Component>;

std::optional<Components> allComponents(AppDB& db)
{
    HSeihinRec rows(db, hseihinTable);
    if (rows.Select({}) < 0)
        return std::nullopt;
    Components components;
    for (int row = 1; row <= rows.Count(); ++row)
        components.insert({foldedCode(rows.get(row, HSeihinCol::Code)),
                           foldedCode(rows.get(row, HSeihinCol::HSeihinCD)),
                           std::string(rows.get(row, HSeihinCol::Suuryou))});
    return components;
}

/// The parts in which the two differ.
std::set<std::string> changedParts(const Components& before, const Components& after)
{
    std::vector<Component> different;
    std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                  std::back_inserter(different));
    std::set<std::string> parts;
    for (const Component& each : different)
        parts.insert(each.part);
    return parts;
}

/// What the movements in the tables make of the stock of one part after the other.
class PartStock
{
public:
    PartStock(AppDB& db, std::string_view stamp) : m_db(db), m_stamp(stamp), m_stock(db, zaikoTable) {}

    [[nodiscard]] bool open()
    {
        const std::optional<Returns> returns = returnsInBooks(m_db);
        const int stockRows = m_stock.CountRows({});
        m_returns = returns.value_or(Returns::TakenOff);
        // An empty table belongs to a shop that is still being filled, so its rows are to come.
        m_makesRows = stockRows > 0;
        return returns.has_value() && stockRows >= 0;
    }

    /// False when a table cannot be read or written, or holds a quantity that is not a number.
    [[nodiscard]] bool carry(const std::string& part)
    {
        const std::optional<double> moved = movedBy(part);
        if (!moved || m_stock.Select(whereCode(part)) < 0)
            return false;
        if (m_stock.Count() == 0)
            return *moved == 0 || !m_makesRows || addRow(part, CStr(-*moved));
        const std::optional<double> stock = toFigure(m_stock.get(1, ZaikoCol::ZaikoSuu));
        const std::optional<double> carried = toFigure(m_stock.get(1, ZaikoCol::KuriSuu));
        if (!stock || !carried)
            return false;
        const double left = plus(*stock, -*moved);
        if (left == *carried)
            return true;
        if (!std::isfinite(left)) // too large for any text
            return false;
        m_stock.set(1, ZaikoCol::KuriSuu, CStr(left));
        m_stock.set(1, ZaikoCol::UpdDate, m_stamp);
        return m_stock.UpdateRow(1) == DbStatus::Good;
    }

private:
    /// What the movements add to the stock of \a part; none when that cannot be read.
    [[nodiscard]] std::optional<double> movedBy(const std::string& part)
    {
        std::optional<double> moved;
        if (m_db.OpenRecordset(movedOfCode(part, m_returns)) == DbStatus::Good && !m_db.recordset().atEof())
            moved = toFigure(m_db.recordset().Fields("Moved"));
        m_db.CloseRecordset();
        return moved;
    }

    /// Adds the row of a part that never moved by itself and that receipts of its product now take. A part
    /// that is not in the goods table is skipped, as postings skip it.
    [[nodiscard]] bool addRow(const std::string& part, const std::string& carried)
    {
        MasterRec goods(m_db, masterTable);
        const int known = goods.Select(whereCode(part));
        if (known <= 0)
            return known == 0;
        m_stock.NewRows(1);
        m_stock.set(1, ZaikoCol::Code, goods.get(1, MasterCol::Code));
        m_stock.set(1, ZaikoCol::ZaikoSuu, "0");
        m_stock.set(1, ZaikoCol::KuriSuu, carried);
        m_stock.set(1, ZaikoCol::InpDate, m_stamp);
        m_stock.set(1, ZaikoCol::UpdDate, m_stamp);
        return m_stock.InsertRow(1) == DbStatus::Good;
    }

    AppDB& m_db;
    std::string m_stamp;
    ZaikoRec m_stock;
    Returns m_returns = Returns::TakenOff;
    bool m_makesRows = false;
};

} // namespace

bool changeComponents(AppDB& db, std::string_view stamp, const std::function<bool()>& change)
{
    const std::optional<Components> before = allComponents(db);
    if (!before || !change())
        return false;
    const std::optional<Components> after = allComponents(db);
    PartStock stock(db, stamp);
    if (!after || !stock.open())
        return false;
    const std::set<std::string> parts = changedParts(*before, *after);
    return std::ranges::all_of(parts, [&stock](const std::string& part) { return stock.carry(part); });
}

} // namespace suisui
