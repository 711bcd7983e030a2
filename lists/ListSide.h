// How the receipt list and the shipment list differ: grid, columns, headings, conditions, names of the
// controls. Everything else about the two lists is the same.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include <QString>

#include "frame/support/Frame.h"
#include "store/PackedRow.h"
#include "store/SqlText.h"
#include "platform/widgets/vaSpread.h"
#include "store/Side.h"

namespace suisui {

class AppIni;

/// Columns of a list's grid; noCell where a side has none.
struct ListCells
{
    int date;
    int name;
    int partner;
    int price;
    int quantity;
    int discount;
    int amount;
    int code;
    int staff;
    std::array<int, 2> returned;
    int unit;
    int remark;
    int index; ///< the row's number in the row set; hidden
};

/// Columns of the summed selection.
struct SumColumns
{
    int code;
    int name;
    int price;
    int unit;
    int quantity;
    int discount;
    int amount;
    std::array<int, 2> returned; ///< noColumn where the side has none
};

/// The row set that a list is filled from, whatever its class.
struct ListBuffer
{
    /// Number of rows, or a negative number when the selection failed.
    int (*select)(AppDB& db, const SqlText& where, std::string_view order);
    const PackedRow& (*row)(AppDB& db, int row);
    /// The row has left its table since it was read.
    bool (*gone)(AppDB& db, int row);
    void (*clear)(AppDB& db);
    const char16_t* waitTag;
    std::string_view order;
};

struct ListSide
{
    Side side;
    char16_t letter; ///< in the names of the controls: N receipts, S shipments
    Tab tab;
    int termIndex;
    QString (AppIni::*heading)(int) const;
    std::span<const SpreadColumn> columns;
    ListCells cells;
    SumColumns sumColumns;
    ListBuffer detail;
    ListBuffer summed;
    std::string_view partnerColumn;
    bool printsSlips;
    const char16_t* gridName;
    const char16_t* listFrameName;
    const char16_t* whereFrameCaption;
    const char16_t* listFrameCaption;
};

[[nodiscard]] const ListSide& listSide(Side side);

} // namespace suisui
