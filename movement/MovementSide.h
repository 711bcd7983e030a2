// How receipts and shipments differ on the screen: grid, cells, words, and which tabs a movement makes stale.
// How they differ in the data is in store/Side.h. Everything else is written once, for both.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include <QString>

#include "frame/support/Frame.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"
#include "store/Side.h"

namespace suisui {

/// Columns of the entry grid, from 1.
struct MovementCells
{
    int code;
    int name;
    int price;
    int quantity;
    int discount;
    int total;
    int partner;
    int print; ///< mark for the label print; not stored
    int staff;
    int unit;
    std::array<int, 2> returned; ///< a receipt has one, the second is noCell
    int date;
    int time;
    int remark;
    int postedReturned; ///< hidden: as last posted to stock; noCell where returns do not move stock
    int postedQuantity; ///< hidden: as last posted to stock
    int index;          ///< hidden: row of the buffer, always the last column
};

struct MovementSide
{
    Side side;
    char16_t letter; ///< in the names of the controls: N receipts, S shipments
    Tab tab;
    Tab listTab;   ///< stale after a movement, as is the stock tab
    int termIndex; ///< Term of the settings
    LabelMode labelMode;
    QString (AppIni::*heading)(int) const;
    std::span<const SpreadColumn> columns;
    MovementCells cells;

    // Names and texts of the page.
    const char16_t* gridName;
    const char16_t* dataFrameName;
    const char16_t* dataFrameCaption;
    const char16_t* partnerFrameCaption;
    const char16_t* partnerTip;
    const char16_t* codeTip;

    const char16_t* waitTag;
    const char16_t* insertErrorText;
    const char16_t* deleteQuestion;
};

[[nodiscard]] const MovementSide& movementSide(Side side);

} // namespace suisui
