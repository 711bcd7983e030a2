#include "booking/BooksCheck.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "booking/StockEffect.h"
#include "store/AppDB.h"
#include "store/FoldedCode.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

/// A stock figure as it is in the table, and the part of it that was carried forward.
struct StockFigure
{
    double figure = 0;
    double carried = 0;
};

/// What the movements make of the stock of a code.
struct Moved
{
    double net = 0;   ///< with the returns of receipts taken off, as postings have it
    double gross = 0; ///< without, as the carry-forward has it
    double size = 0;  ///< sum of all quantities, whichever way they went

    void add(double netQuantity, double grossQuantity)
    {
        net = plus(net, netQuantity);
        gross = plus(gross, grossQuantity);
        size += std::abs(netQuantity) + std::abs(grossQuantity);
    }
    /// Whether they make \a stock to 15 digits, counted from the largest figure involved: a text has no more,
    /// and older versions of the program lost what is after them. Once periods were saved a movement may
    /// count either way: without returns up to the last save or load, with them since.
    [[nodiscard]] bool make(const StockFigure& stock, Returns returns) const
    {
        constexpr double lastDigit = 1e-15;
        const double quantity = plus(stock.figure, -stock.carried);
        const double other = returns == Returns::LeftOut ? gross : net;
        const double room = (size + std::abs(stock.figure) + std::abs(stock.carried)) * lastDigit;
        return quantity >= std::min(net, other) - room && quantity <= std::max(net, other) + room;
    }
};

using MovedByCode = std::map<std::string, Moved>;
/// Component and quantity in one unit, by product.
using Components = std::multimap<std::string, std::pair<std::string, double>>;

void addMovements(Side side, const RowSet& rows, const Components& components, MovedByCode& moved)
{
    const MovementTable& table = movementTable(side);
    const StockEffect asPosted(side, Returns::TakenOff);
    const StockEffect asCarried(side, Returns::LeftOut);
    for (int row = 1; row <= rows.Count(); ++row) {
        const std::string code = foldedCode(rows.get(row, table.columns.code));
        const double net = asPosted.moved(rows.packed(row));
        const double gross = asCarried.moved(rows.packed(row));
        moved[code].add(net, gross);
        if (!table.movesComponents)
            continue;
        const auto [first, last] = components.equal_range(code);
        for (auto each = first; each != last; ++each)
            moved[each->second.first].add(asPosted.movedOfComponent(net, each->second.second),
                                          asCarried.movedOfComponent(gross, each->second.second));
    }
}

/// What the movements now in the tables make of each code's stock.
MovedByCode movedStock(const BookRows& rows)
{
    Components components;
    for (int row = 1; row <= rows.components.Count(); ++row)
        components.emplace(foldedCode(rows.components.get(row, HSeihinCol::Code)),
                           std::pair(foldedCode(rows.components.get(row, HSeihinCol::HSeihinCD)),
                                     numberOf(rows.components.get(row, HSeihinCol::Suuryou))));
    MovedByCode moved;
    addMovements(Side::Receipt, rows.receipts, components, moved);
    addMovements(Side::Shipment, rows.shipments, components, moved);
    return moved;
}

std::set<std::string> knownGoods(AppDB& db)
{
    MasterRec& master = db.MasterPost();
    std::set<std::string> known;
    master.Select({});
    for (int row = 1; row <= master.Count(); ++row)
        known.insert(foldedCode(master.get(row, MasterCol::Code)));
    master.Clear();
    return known;
}

} // namespace

std::vector<BooksDifference> checkBooks(AppDB& db, const BookRows& rows)
{
    MovedByCode moved = movedStock(rows);
    const Returns returns = returnsInBooks(db).value_or(Returns::TakenOff);
    std::vector<BooksDifference> differences;
    for (int row = 1; row <= rows.stock.Count(); ++row) {
        const std::string_view code = rows.stock.get(row, ZaikoCol::Code);
        const StockFigure stock{.figure = numberOf(rows.stock.get(row, ZaikoCol::ZaikoSuu)),
                                .carried = numberOf(rows.stock.get(row, ZaikoCol::KuriSuu))};
        const Moved made = moved[foldedCode(code)];
        moved.erase(foldedCode(code));
        if (!made.make(stock, returns))
            differences.push_back({.kind = BooksDifference::Kind::StockDiffers,
                                   .code = std::string(code),
                                   .stock = stock.figure,
                                   .expected = plus(stock.carried, made.net)});
    }
    const std::set<std::string> known = knownGoods(db);
    for (const auto& [code, made] : moved)
        if (!made.make({}, Returns::TakenOff) && known.contains(code))
            differences.push_back(
                {.kind = BooksDifference::Kind::NoStockRow, .code = code, .expected = made.net});
    return differences;
}

} // namespace suisui
