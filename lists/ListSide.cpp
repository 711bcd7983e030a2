#include "lists/ListSide.h"

#include <array>

#include "store/AppIni.h"

namespace suisui {

namespace {

constexpr SpreadColumn text(std::string_view heading, int width)
{
    return {.heading = heading, .width = width};
}

constexpr SpreadColumn figure(std::string_view heading, int width)
{
    return {.heading = heading, .type = CellType::Figure, .width = width};
}

constexpr SpreadColumn indexColumn{.heading = "", .hidden = true};

constexpr std::array receiptColumns{
    text("入荷日", 100),  text("商品名", 220), text("入荷先", 170), figure("単価", 90),  figure("数量", 80),
    figure("値引き", 80), figure("合計", 110), text("コード", 112), text("担当者", 110), figure("返却数", 80),
    text("単位", 56),     text("備考", 180),   indexColumn,
};

constexpr std::array shipmentColumns{
    text("出荷日", 100),    text("商品名", 220),
    text("出荷先", 170),    figure("単価", 90),
    figure("数量", 80),     figure("値引き", 80),
    figure("合計", 110),    text("コード", 112),
    text("担当者", 110),    figure("良品返品", 80),
    figure("不良返品", 80), text("単位", 56),
    text("備考", 180),      indexColumn,
};

static_assert(receiptColumns.size() == 13 && shipmentColumns.size() == 14);

const std::array sides{
    ListSide{.side = Side::Receipt,
             .letter = u'N',
             .tab = Tab::ReceiptList,
             .termIndex = 3,
             .heading = &AppIni::ReceiptListHeading,
             .columns = receiptColumns,
             .gridName = u"Sprd_InHyou",
             .listFrameName = u"fraInpList",
             .whereFrameCaption = u" 【 入荷 】 明細 表示条件 ",
             .listFrameCaption = u" 【 入荷 】 明細 "},
    ListSide{.side = Side::Shipment,
             .letter = u'S',
             .tab = Tab::ShipmentList,
             .termIndex = 4,
             .heading = &AppIni::ShipmentListHeading,
             .columns = shipmentColumns,
             .gridName = u"Sprd_OutHyou",
             .listFrameName = u"fraOutList",
             .whereFrameCaption = u" 【 出荷 】 明細 表示条件 ",
             .listFrameCaption = u" 【 出荷 】 明細 "},
};

} // namespace

const ListSide& listSide(Side side)
{
    return sides.at(static_cast<std::size_t>(side));
}

} // namespace suisui
