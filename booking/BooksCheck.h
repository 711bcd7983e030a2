// Whether the books hold together: for every code the stock figure is what its movements make of it.
#pragma once

#include <string>
#include <vector>

#include "store/RowSet.h"

namespace suisui {

/// The tables that make up the books, with all their rows.
struct BookRows
{
    const InpRec& receipts;
    const OutRec& shipments;
    const HSeihinRec& components;
    const ZaikoRec& stock;
};

struct BooksDifference
{
    enum class Kind {
        StockDiffers, ///< the stock figure is not what the movements make of it
        NoStockRow,   ///< goods that have moved have no stock row
    };

    Kind kind;
    std::string code;    ///< as the stock row has it; letter case folded where there is none
    double stock = 0;    ///< ZaikoSuu
    double expected = 0; ///< what the carry-forward and the movements make
};

/// The codes for which the books of \a rows do not hold; empty when all is well.
///
/// For a code c: ZaikoSuu = KuriSuu + received - shipped - consumed, as booking/StockEffect.h counts them.
/// Receipts count less their returns, as postings have it. The carry-forward that goes with saving and
/// loading periods leaves returns out, so from the first one on either is right. Goods that are not in the
/// goods table are not checked, since postings skip them.
///
/// Throws RunTimeError::TypeMismatch when a figure is not a number.
[[nodiscard]] std::vector<BooksDifference> checkBooks(AppDB& db, const BookRows& rows);

} // namespace suisui
