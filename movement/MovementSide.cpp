#include "movement/MovementSide.h"

#include "frame/support/GridColumns.h"
#include "store/AppIni.h"

namespace suisui {

namespace {

// How many digits the operator may type: for quantities the seven of a stored movement number, for money
// more.
constexpr int quantityDigits = 7;
constexpr int moneyDigits = 9;

constexpr SpreadColumn codeColumn{.heading = "コード", .type = CellType::Locked, .width = codeWidth};
constexpr SpreadColumn nameColumn{.heading = "名称", .type = CellType::Text, .width = 200};
constexpr SpreadColumn priceColumn{
    .heading = "単価", .type = CellType::Number, .width = 94, .digits = moneyDigits};
constexpr SpreadColumn quantityColumn{
    .heading = "数量", .type = CellType::Number, .width = 80, .digits = quantityDigits};
constexpr SpreadColumn discountColumn{
    .heading = "値引き", .type = CellType::Number, .width = 94, .digits = moneyDigits};
constexpr SpreadColumn totalColumn{.heading = "合計", .type = CellType::Figure, .width = 116};
constexpr SpreadColumn printColumn{.heading = "印刷", .type = CellType::CheckBox, .width = 44};
constexpr SpreadColumn staffColumn{.heading = "担当者", .type = CellType::Locked, .width = 100};
constexpr SpreadColumn unitColumn{.heading = "単位", .type = CellType::Text, .width = 52};
constexpr SpreadColumn dateColumn{.heading = "日付", .type = CellType::Date, .width = 92};
constexpr SpreadColumn timeColumn{.heading = "時間", .type = CellType::Time, .width = 76};
constexpr SpreadColumn remarkColumn{.heading = "備考", .type = CellType::Text, .width = 180};
constexpr SpreadColumn postedQuantityColumn{.heading = "裏数量", .type = CellType::Number, .hidden = true};
constexpr SpreadColumn indexColumn{.heading = "", .type = CellType::Locked, .hidden = true};

constexpr SpreadColumn partnerColumn(std::string_view heading)
{
    return {.heading = heading, .type = CellType::Locked, .width = 170};
}

constexpr SpreadColumn returnedColumn(std::string_view heading)
{
    return {.heading = heading, .type = CellType::Number, .width = 86, .digits = quantityDigits};
}

constexpr std::array receiptColumns{
    codeColumn,
    nameColumn,
    priceColumn,
    quantityColumn,
    discountColumn,
    totalColumn,
    partnerColumn("入荷先"),
    printColumn,
    staffColumn,
    unitColumn,
    returnedColumn("返品"),
    dateColumn,
    timeColumn,
    remarkColumn,
    SpreadColumn{.heading = "裏返却数", .type = CellType::Number, .hidden = true},
    postedQuantityColumn,
    indexColumn,
};

constexpr std::array shipmentColumns{
    codeColumn,
    nameColumn,
    priceColumn,
    quantityColumn,
    discountColumn,
    totalColumn,
    partnerColumn("出荷先"),
    printColumn,
    staffColumn,
    unitColumn,
    returnedColumn("良品返品"),
    returnedColumn("不良品返品"),
    dateColumn,
    timeColumn,
    remarkColumn,
    postedQuantityColumn,
    indexColumn,
};

static_assert(receiptColumns.size() == 17 && shipmentColumns.size() == 17);

const std::array sides{
    MovementSide{
        .side = Side::Receipt,
        .letter = u'N',
        .tab = Tab::Receipt,
        .listTab = Tab::ReceiptList,
        .termIndex = 0,
        .labelMode = LabelMode::Receipts,
        .heading = &AppIni::InpHeading,
        .columns = receiptColumns,
        .cells = {.code = 1,
                  .name = 2,
                  .price = 3,
                  .quantity = 4,
                  .discount = 5,
                  .total = 6,
                  .partner = 7,
                  .print = 8,
                  .staff = 9,
                  .unit = 10,
                  .returned = {11, noCell},
                  .date = 12,
                  .time = 13,
                  .remark = 14,
                  .postedReturned = 15,
                  .postedQuantity = 16,
                  .index = 17},
        .gridName = u"Sprd_Inp",
        .dataFrameName = u"fraInpData",
        .dataFrameCaption = u" 【 入荷 】 情報 ",
        .partnerFrameCaption = u" 入荷先 ",
        .partnerTip = u" 登録する 「入荷先」 を 選択して下さい ",
        .codeTip = u" 登録する 商品の 「コード」 を入力して下さい ",
        .waitTag = u"入荷検索",
        .insertErrorText =
            u"「 入荷テーブル 」\r\n　　新規追加 (INSERT) "
            u"エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。",
        .deleteQuestion =
            u"「 {term} 」を削除します。　　　　\r\n\r\n　　 （ 入荷の取消 ）\r\n\r\n　　 よろしいですか？",
    },
    MovementSide{
        .side = Side::Shipment,
        .letter = u'S',
        .tab = Tab::Shipment,
        .listTab = Tab::ShipmentList,
        .termIndex = 1,
        .labelMode = LabelMode::Shipments,
        .heading = &AppIni::OutHeading,
        .columns = shipmentColumns,
        .cells = {.code = 1,
                  .name = 2,
                  .price = 3,
                  .quantity = 4,
                  .discount = 5,
                  .total = 6,
                  .partner = 7,
                  .print = 8,
                  .staff = 9,
                  .unit = 10,
                  .returned = {11, 12},
                  .date = 13,
                  .time = 14,
                  .remark = 15,
                  .postedReturned = noCell,
                  .postedQuantity = 16,
                  .index = 17},
        .gridName = u"Sprd_Out",
        .dataFrameName = u"fraOutData",
        .dataFrameCaption = u" 【 出荷 】 情報 ",
        .partnerFrameCaption = u" 出荷先 ",
        .partnerTip = u" 登録する 「出荷先」 を 選択して下さい ",
        .codeTip = u" 登録する 商品の 「コード」 を入力して下さい ",
        .waitTag = u"出荷検索",
        .insertErrorText =
            u"「 出荷テーブル 」\r\n　　新規追加 (INSERT) "
            u"エラー　　　　　\r\n\r\n　新規に登録できませんでした。\r\n　再度、入力して下さい。",
        .deleteQuestion =
            u"「 {term} 」を削除します。　　　　\r\n\r\n　　 （ 出荷の取消 ）\r\n\r\n　　 よろしいですか？",
    },
};

} // namespace

const MovementSide& movementSide(Side side)
{
    return sides.at(indexOf(side));
}

} // namespace suisui
