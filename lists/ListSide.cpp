#include "lists/ListSide.h"

#include <array>

#include "frame/support/GridColumns.h"
#include "store/AppDB.h"
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
    text("入荷日", 92),  text("商品名", 220),  text("入荷先", 170), figure("単価", 94),
    figure("数量", 94),  figure("値引き", 94), figure("合計", 124), text("コード", codeWidth),
    text("担当者", 100), figure("返却数", 80), text("単位", 56),    text("備考", 180),
    indexColumn,
};

constexpr std::array shipmentColumns{
    text("出荷日", 92),     text("商品名", 220),
    text("出荷先", 170),    figure("単価", 94),
    figure("数量", 94),     figure("値引き", 94),
    figure("合計", 124),    text("コード", codeWidth),
    text("担当者", 100),    figure("良品返品", 80),
    figure("不良返品", 80), text("単位", 56),
    text("備考", 180),      indexColumn,
};

static_assert(receiptColumns.size() == 13 && shipmentColumns.size() == 14);

template <typename Column> constexpr int at(Column column)
{
    return static_cast<int>(column);
}

template <auto Rows> constexpr ListBuffer movements(const char16_t* waitTag, std::string_view order)
{
    return {.select = [](AppDB& db, const SqlText& where,
                         std::string_view by) { return (db.*Rows)().Select(where + by, {}); },
            .row = [](AppDB& db, int row) -> const PackedRow& { return (db.*Rows)().packed(row); },
            .gone = [](AppDB& db, int row) { return (db.*Rows)().RowState(row) == "D"; },
            .clear = [](AppDB& db) { (db.*Rows)().Clear(); },
            .waitTag = waitTag,
            .order = order};
}

template <auto Rows> constexpr ListBuffer sums(const char16_t* waitTag)
{
    return {.select = [](AppDB& db, const SqlText& where,
                         std::string_view by) { return (db.*Rows)().Select(where, by, {}); },
            .row = [](AppDB& db, int row) -> const PackedRow& { return (db.*Rows)().packed(row); },
            .gone = [](AppDB&, int) { return false; },
            .clear = [](AppDB& db) { (db.*Rows)().Clear(); },
            .waitTag = waitTag,
            .order = " ORDER BY Name, Code"};
}

const std::array sides{
    ListSide{.side = Side::Receipt,
             .letter = u'N',
             .tab = Tab::ReceiptList,
             .termIndex = 3,
             .heading = &AppIni::ReceiptListHeading,
             .columns = receiptColumns,
             .cells = {.date = 1,
                       .name = 2,
                       .partner = 3,
                       .price = 4,
                       .quantity = 5,
                       .discount = 6,
                       .amount = 7,
                       .code = 8,
                       .staff = 9,
                       .returned = {10, noCell},
                       .unit = 11,
                       .remark = 12,
                       .index = 13},
             .sumColumns = {.code = at(NyuSumCol::Code),
                            .name = at(NyuSumCol::Name),
                            .price = at(NyuSumCol::NyuPrice),
                            .unit = at(NyuSumCol::Unit),
                            .quantity = at(NyuSumCol::NyuSuu),
                            .discount = at(NyuSumCol::NyuNebiki),
                            .amount = at(NyuSumCol::Amount),
                            .returned = {at(NyuSumCol::Henkyaku), noColumn}},
             .detail = movements<&AppDB::InpList>(u"入荷一覧明細", " ORDER BY NyuDate, Name, Code"),
             .summed = sums<&AppDB::NyuSumTbl>(u"入荷一覧集計"),
             .partnerColumn = "Nyusakicd",
             .printsSlips = false,
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
             .cells = {.date = 1,
                       .name = 2,
                       .partner = 3,
                       .price = 4,
                       .quantity = 5,
                       .discount = 6,
                       .amount = 7,
                       .code = 8,
                       .staff = 9,
                       .returned = {10, 11},
                       .unit = 12,
                       .remark = 13,
                       .index = 14},
             .sumColumns = {.code = at(SyuSumCol::Code),
                            .name = at(SyuSumCol::Name),
                            .price = at(SyuSumCol::SyuPrice),
                            .unit = at(SyuSumCol::Unit),
                            .quantity = at(SyuSumCol::SyuSuu),
                            .discount = at(SyuSumCol::SyuNebiki),
                            .amount = at(SyuSumCol::Amount),
                            .returned = {at(SyuSumCol::RHenkyaku), at(SyuSumCol::FHenkyaku)}},
             .detail = movements<&AppDB::OutList>(u"出荷一覧明細", " ORDER BY SyuDate, Name, Code"),
             .summed = sums<&AppDB::SyuSumTbl>(u"出荷一覧集計"),
             .partnerColumn = "Syusakicd",
             .printsSlips = true,
             .gridName = u"Sprd_OutHyou",
             .listFrameName = u"fraOutList",
             .whereFrameCaption = u" 【 出荷 】 明細 表示条件 ",
             .listFrameCaption = u" 【 出荷 】 明細 "},
};

} // namespace

const ListSide& listSide(Side side)
{
    return sides.at(indexOf(side));
}

} // namespace suisui
