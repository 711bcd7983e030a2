#include "lists/StockDetail.h"

#include "booking/StockEffect.h"
#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "store/FoldedCode.h"
#include "store/Where.h"

namespace suisui {

namespace {

constexpr int fewGoods = 30; // up to this many it never pays to read everything

} // namespace

/// What differs between the receipts' half of a block and the shipments'.
struct StockDetail::Side
{
    QuerySet& rows;
    int price;
    int quantity;
    int unit;
    int discount;
    int returned; ///< noColumn where the view has no returns
    int code;
    StockLineKind group;
    StockEffect effect; ///< counts a movement as its posting did

    static Side receipts(AppDB& db)
    {
        using enum NyuViewCol;
        return {db.NyuViewTbl(), at(NyuPrice),      at(NyuSuu),
                at(Unit),        at(NyuNebiki),     at(Henkyaku),
                at(Code),        StockLineKind::In, StockEffect(suisui::Side::Receipt, Returns::TakenOff)};
    }
    static Side shipments(AppDB& db)
    {
        using enum SyuViewCol;
        return {db.SyuViewTbl(), at(SyuPrice),       at(SyuSuu),
                at(Unit),        at(SyuNebiki),      noColumn,
                at(Code),        StockLineKind::Out, StockEffect(suisui::Side::Shipment, Returns::TakenOff)};
    }

private:
    template <typename Column> static int at(Column column) { return static_cast<int>(column); }
};

StockDetail::StockDetail(AppDB& db, int goodsRows)
    : m_db(db), m_allAtOnce(goodsRows > fewGoods && goodsRows * 2 >= db.ZaikoTbl().CountRows({}))
{
    if (!m_allAtOnce)
        return;
    indexAll(Side::receipts(db), m_receipts);
    indexAll(Side::shipments(db), m_shipments);
}

StockDetail::~StockDetail()
{
    m_db.NyuViewTbl().Clear();
    m_db.SyuViewTbl().Clear();
}

void StockDetail::indexAll(const Side& side, Places& places)
{
    const int count = side.rows.Select({}, {});
    for (int row = 1; row <= count; ++row) {
        Range& range = places[foldedCode(side.rows.get(row, side.code))];
        if (range.count++ == 0)
            range.first = row;
    }
    if (count < 0)
        m_allAtOnce = false; // then each code is looked up by itself
}

StockDetail::Range StockDetail::movementsOf(const Side& side, Places& places, std::string_view code)
{
    if (!m_allAtOnce)
        return {1, side.rows.Select(" " + whereCode(code) + " ", {})};
    const auto found = places.find(foldedCode(code));
    return found == places.end() ? Range{} : found->second;
}

/// One line for each price and unit. Rows of the same price and unit are adjacent.
StockDetail::Totals StockDetail::addGroups(const Side& side, const Range& range, StockBlock& lines)
{
    Totals totals;
    std::string_view priceKey;
    std::string_view unitKey;
    StockLine group{.kind = side.group, .unit = {}};
    const auto close = [&](bool last) {
        group.lastGroup = last;
        group.amount = plus(times(group.price, group.quantity), -group.discount);
        lines.push_back(group);
    };
    for (int row = range.first; row < range.first + range.count; ++row) {
        const PackedRow& texts = side.rows.packed(row);
        const std::string_view price = texts.text(side.price);
        const std::string_view unit = texts.text(side.unit);
        if (row == range.first || price != priceKey || unit != unitKey) {
            if (row != range.first)
                close(false);
            priceKey = price;
            unitKey = unit;
            group = {.kind = side.group, .price = numberOf(price), .unit = std::string(unit)};
        }
        const std::string_view returned =
            side.returned == noColumn ? std::string_view() : texts.text(side.returned);
        const double net = side.effect.counted(texts.text(side.quantity), returned);
        const double discount = numberOf(texts.text(side.discount));
        group.quantity = plus(group.quantity, net);
        group.discount = plus(group.discount, discount);
        totals.quantity = plus(totals.quantity, net);
        totals.discount = plus(totals.discount, discount);
        totals.amount = plus(totals.amount, plus(times(group.price, net), -discount));
    }
    close(true);
    return totals;
}

StockBlock StockDetail::block(const ZaikoViewRec& goods, int row)
{
    StockBlock block;
    double total = 0;
    try {
        if (stockDetailIn(goods, row, block, total))
            stockDetailOut(goods, row, total, block);
    } catch (const RunTimeError&) {
        // A damaged table holds a figure that is not a number: the block ends there.
    }
    return block;
}

bool StockDetail::stockDetailIn(const ZaikoViewRec& goods, int row, StockBlock& lines, double& total)
{
    const Side side = Side::receipts(m_db);
    const Range range = movementsOf(side, m_receipts, goods.get(row, ZaikoViewCol::Code));
    if (range.count < 0)
        return false;
    const std::string unit(goods.get(row, ZaikoViewCol::Unit));
    const double price = numberOf(goods.get(row, ZaikoViewCol::NyuPrice));
    const double carried = numberOf(goods.get(row, ZaikoViewCol::KuriSuu));
    Totals totals;
    if (range.count > 0)
        totals = addGroups(side, range, lines);
    else
        lines.push_back({.kind = StockLineKind::NoIn, .price = price, .unit = unit});
    lines.push_back({.kind = StockLineKind::Carried,
                     .quantity = carried,
                     .price = price,
                     .amount = times(price, carried),
                     .unit = unit});
    total = plus(carried, totals.quantity);
    lines.push_back({.kind = StockLineKind::InTotal,
                     .quantity = total,
                     .discount = totals.discount,
                     .amount = plus(times(price, carried), totals.amount),
                     .unit = unit});
    return true;
}

void StockDetail::stockDetailOut(const ZaikoViewRec& goods, int row, double total, StockBlock& lines)
{
    const Side side = Side::shipments(m_db);
    const Range range = movementsOf(side, m_shipments, goods.get(row, ZaikoViewCol::Code));
    if (range.count < 0)
        return;
    const std::string unit(goods.get(row, ZaikoViewCol::Unit));
    const double price = numberOf(goods.get(row, ZaikoViewCol::NyuPrice));
    Totals totals;
    if (range.count > 0)
        totals = addGroups(side, range, lines);
    else
        lines.push_back({.kind = StockLineKind::NoOut,
                         .price = numberOf(goods.get(row, ZaikoViewCol::SyuPrice)),
                         .unit = unit});
    // What left the stock without a shipment has gone into other goods.
    const double left = plus(total, -totals.quantity);
    const double consumed = plus(left, -numberOf(goods.get(row, ZaikoViewCol::ZaikoSuu)));
    lines.push_back({.kind = StockLineKind::Consumed,
                     .quantity = consumed,
                     .price = price,
                     .amount = times(price, consumed),
                     .unit = unit});
    lines.push_back({.kind = StockLineKind::OutTotal,
                     .quantity = plus(totals.quantity, consumed),
                     .discount = totals.discount,
                     .amount = plus(times(price, consumed), totals.amount),
                     .unit = unit});
}

} // namespace suisui
