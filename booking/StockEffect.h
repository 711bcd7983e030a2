// What the movements in the tables make of a stock figure: the only definition of it, as the figure of one
// row and as the SQL sum of all rows:
//
//     received (NyuSuu, less Henkyaku where returns are taken off)
//     less shipped (SyuSuu; the returns of a shipment never reach the stock)
//     less taken as a component of received products (that, times Suuryou)
//
// Postings, the carry-forward, changes of components, the check of the books and the detail view of the stock
// all use it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Side.h"
#include "store/SqlText.h"

namespace suisui {

/// Whether the returned quantities of a receipt count. Postings take them off. The carry-forward of saved and
/// loaded periods leaves them out, and so does everything that is computed after the first save or load.
enum class Returns { TakenOff, LeftOut };

/// What counts in the shop's books now; none when the list of saved periods cannot be read.
[[nodiscard]] std::optional<Returns> returnsInBooks(AppDB& db);

/// How the movements of one side count.
class StockEffect
{
public:
    StockEffect(Side side, Returns returns);

    /// The quantity that counts of a row with these texts, without its sign; \a returned is not read where
    /// returns do not count. Throws RunTimeError::TypeMismatch when a text that counts is not a number.
    [[nodiscard]] double counted(std::string_view quantity, std::string_view returned) const;
    /// What \a row of the side's table adds to the stock of its code; negative for what it takes away.
    [[nodiscard]] double moved(const PackedRow& row) const;
    /// What a row that adds \a moved to its product adds to a component of which each unit has \a perUnit; 0
    /// where the side does not move components.
    [[nodiscard]] double movedOfComponent(double moved, double perUnit) const;

    /// The quantity that counts, as an SQL expression over the side's table.
    [[nodiscard]] std::string countedSql() const;
    /// What all rows under an SQL selection of them add to the stock, as an expression.
    [[nodiscard]] std::string movedSql() const;
    /// As movedSql for a component, over the rows joined with HSeihinTB.
    [[nodiscard]] std::string movedOfComponentSql() const;

private:
    const MovementTable& m_side;
    int m_returned; ///< column of the returns that count, or noColumn
};

/// What a movement of its product adds to a component: it goes the other way.
[[nodiscard]] double componentEffect(double moved, double perUnit);

/// SELECT statements of Item and Moved: what each kind of movement adds to each row (rowid) of ZaikoTB that
/// it touches. Codes without a stock row are left out, so that a text in them that is not a number does no
/// harm.
[[nodiscard]] std::vector<std::string> movedByStockRow(Returns returns);

/// One SELECT of Moved: what all movements add to the stock of \a code, as a text.
[[nodiscard]] SqlText movedOfCode(std::string_view code, Returns returns);

} // namespace suisui
