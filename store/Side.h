// Receipts and shipments are mirrors of each other. This is how they differ in the data: table, columns, the
// direction of the stock.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "store/PackedRow.h"
#include "store/Schema.h"
#include "store/SqlText.h"

namespace suisui {

class AppDB;
class RowSet;

enum class Side { Receipt, Shipment };

/// The index of \a side in an array with one element for each side.
[[nodiscard]] constexpr std::size_t indexOf(Side side)
{
    return static_cast<std::size_t>(side);
}

inline constexpr int noColumn = -1;

/// Columns of a movement table under the names that both sides share; indexes into the table's columns.
struct MovementColumns
{
    int code;
    int name;
    int quantity;
    int price;
    int partnerCode;
    int partnerName;
    int date;
    int time;
    int unit;
    int discount;
    std::array<int, 2> returned; ///< a receipt has one, the second is noColumn
    int staffCode;
    int staffName;
    int remark;
    int inpDate;
    int updDate;
};

struct MovementTable
{
    const TableDef& table;
    MovementColumns columns;
    MasterCol defaultQuantity; ///< quantity of one scan
    MasterCol defaultPrice;
    int stockSign;             ///< +1: the movement raises the stock of its goods
    bool movesComponents;      ///< components go the other way, by Suuryou for each unit
    bool returnsMoveStock;     ///< returned quantities reduce the stock effect
    RowSet& (*rows)(AppDB&);   ///< rows of the entry tab
    RowSet& (*master)(AppDB&); ///< goods look-up of the entry tab
};

[[nodiscard]] const MovementTable& movementTable(Side side);

/// The movements of the days \a from to \a to, both included, as YYYYMMDD.
[[nodiscard]] SqlText whereDated(const MovementTable& movements, std::string_view from, std::string_view to);

/// (quantity minus returned) times price, minus discount, of \a row, in double precision. Throws
/// RunTimeError::TypeMismatch when a column does not hold a number.
[[nodiscard]] double rowTotal(const MovementColumns& columns, const PackedRow& row);

} // namespace suisui
