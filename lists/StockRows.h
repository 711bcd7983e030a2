// The rows of the stock grid: a goods row, and the lines of its block below it. The texts of both are made
// when they are first needed.
#pragma once

#include <QColor>

#include "lists/StockDetail.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

class AppIni;

/// Columns of the stock grid, from 1.
struct StockCells
{
    static constexpr int code = 1;
    static constexpr int name = 2;
    static constexpr int quantity = 3;
    static constexpr int receiptPrice = 4;
    static constexpr int shipmentPrice = 5;
    static constexpr int discount = 6;
    static constexpr int amount = 7;
    static constexpr int unit = 8;
    static constexpr int lowest = 9;
    static constexpr int index = 10; ///< hidden: row of the row set
};

inline const QColor goodsRowWithBlock(255, 255, 0);

class StockRows
{
public:
    /// Defines the columns of \a grid and how its rows are made.
    StockRows(vaSpread& grid, const AppIni& ini);

    /// Fills grid row \a row from row \a index of \a goods. The figure is coloured when the stock is low.
    void putGoods(int row, const ZaikoViewRec& goods, int index);
    /// Fills the rows from \a row on, which must exist, with the lines of \a block.
    void putBlock(int row, const StockBlock& block);

private:
    void makeLine(const StockLine& line, std::span<std::string> texts) const;
    [[nodiscard]] std::string lineName(StockLineKind kind) const;

    vaSpread& m_grid;
    const AppIni& m_ini;
};

} // namespace suisui
