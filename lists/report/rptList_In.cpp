// The receipt list: ten receipts on a page, three print lines each.
#include "lists/report/movementHead.h"

namespace suisui {

namespace {

using enum FormAlign;

constexpr RowElement cells[] = {
    {u"LbDate", 1, {1260, 2460, 1005, 255}},
    {u"LbCode", 8, {2670, 2460, 1755, 255}},
    {u"LbGoods", 2, {4500, 2460, 4815, 255}},
    {u"LbStore", 3, {9480, 2460, 5685, 255}},
    {u"LbCharge", 9, {1260, 2760, 5595, 255}},
    {u"LbMemo", 12, {7230, 2760, 9165, 255}},
    {u"LbPrice", 4, {1530, 3000, 930, 255}, Right},
    {u"LbNum", 5, {2460, 3000, 1665, 255}, Right},
    {u"LbHenkyaku", 10, {4320, 3000, 1665, 255}, Right},
    {u"LbUnit", 11, {6420, 3000, 735, 255}, Centre},
    {u"LbDiscount", 6, {7230, 3000, 1665, 255}, Right},
    {u"LbSum", 7, {9090, 3000, 1665, 255}, Right},
};

constexpr FixedText titles[] = {
    {u"Label1", u"入荷 明細一覧", {1110, 540, 14880, 420}, Centre, 20, true},
    {u"lblselect_t", u"入荷先 ：", {1110, 1275, 870, 255}},
    {u"lbltltsub", u"入荷日", {1260, 1620, 1005, 255}, Left, 9, true, true},
    {u"lbltltsub", u"コード", {2670, 1620, 1755, 255}, Left, 9, true},
    {u"lbltltsub", u"商品名", {4500, 1620, 4815, 255}, Left, 9, true},
    {u"lbltltsub", u"入荷先", {9480, 1620, 5685, 255}, Left, 9, true},
    {u"lbltltsub", u"担当者", {1260, 1900, 5595, 255}, Left, 9, true},
    {u"lbltltsub", u"備考", {7230, 1900, 8760, 255}, Left, 9, true, true},
    {u"lbltltsub", u"入荷単価", {1530, 2140, 930, 255}, Right, 9, true},
    {u"lbltltsub", u"数量", {2460, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"返却数", {4320, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"単位", {6420, 2140, 735, 255}, Centre, 9, true},
    {u"lbltltsub", u"値引き", {7230, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"（合計）", {9090, 2140, 1665, 255}, Right, 9, true},
};

} // namespace

constinit const ReportTemplate rptList_In{
    .name = u"rptList_In",
    .title = u"入荷商品 一覧",
    .listName = u"「 入荷 明細一覧 」",
    .tab = Tab::ReceiptList,
    .termIndex = 3,
    .drawingError = u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。",
    .rowsPerPage = movementRows,
    .pitch = movementPitch,
    .cells = cells,
    .LnIn = movementLnIn,
    .LbYerrow = movementBand,
    .rowsPerBand = 1,
    .titleBand = movementTitleBand,
    .lines = movementLines,
    .texts = {movementHead, titles},
};

} // namespace suisui
