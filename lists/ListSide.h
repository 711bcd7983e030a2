// What tells the receipt list from the shipment list: grid, columns, headings, names of the controls.
#pragma once

#include <span>

#include <QString>

#include "frame/support/Frame.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

class AppIni;

struct ListSide
{
    Side side;
    char16_t letter; ///< stands in the names of the controls: N receipts, S shipments
    Tab tab;
    int termIndex;
    QString (AppIni::*heading)(int) const;
    std::span<const SpreadColumn> columns;
    const char16_t* gridName;
    const char16_t* listFrameName;
    const char16_t* whereFrameCaption;
    const char16_t* listFrameCaption;
};

[[nodiscard]] const ListSide& listSide(Side side);

} // namespace suisui
