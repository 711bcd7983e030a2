// How a stock figure came about: receipts by price and unit, what was carried forward from history, shipments
// by price and unit, and what other goods have consumed. The figures of the blocks below the goods rows of
// the stock tab.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/PackedRow.h"
#include "store/QuerySet.h"

namespace suisui {

class AppDB;

/// What a row of a block is, in the order of a block.
enum class StockLineKind : char { In, NoIn, Carried, InTotal, Out, NoOut, Consumed, OutTotal };

struct StockLine
{
    StockLineKind kind;
    bool lastGroup = false; ///< of In and Out rows
    double quantity = 0;
    double price = 0;
    double discount = 0;
    double amount = 0;
    std::string unit;
};

/// The block of one goods item. When its movements cannot be read, the block ends there.
using StockBlock = std::vector<StockLine>;

/// Reads movements and makes blocks of them. For many goods all movements are read at once, which gives the
/// same figures as reading them code by code.
class StockDetail
{
public:
    /// \a goodsRows: how many blocks will be asked for.
    StockDetail(AppDB& db, int goodsRows);
    ~StockDetail();
    StockDetail(const StockDetail&) = delete;
    StockDetail& operator=(const StockDetail&) = delete;

    /// The block below row \a row of \a goods.
    [[nodiscard]] StockBlock block(const ZaikoViewRec& goods, int row);

private:
    struct Side;
    /// The rows of one code in a row set. A negative count: they could not be read.
    struct Range
    {
        int first = 1;
        int count = 0;
    };
    struct Totals
    {
        double quantity = 0;
        double discount = 0;
        double amount = 0;
    };
    using Places = std::unordered_map<std::string, Range>;

    [[nodiscard]] Range movementsOf(const Side& side, Places& places, std::string_view code);
    void indexAll(const Side& side, Places& places);
    [[nodiscard]] static Totals addGroups(const Side& side, const Range& range, StockBlock& lines);
    /// StockDetailIn: the rows from the receipts to their total, whose quantity goes to \a total. False when
    /// the receipts cannot be read.
    [[nodiscard]] bool stockDetailIn(const ZaikoViewRec& goods, int row, StockBlock& lines, double& total);
    /// StockDetailOut: the rows from the shipments to their total.
    void stockDetailOut(const ZaikoViewRec& goods, int row, double total, StockBlock& lines);

    AppDB& m_db;
    bool m_allAtOnce;
    Places m_receipts;
    Places m_shipments;
};

} // namespace suisui
