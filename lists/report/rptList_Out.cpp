// The shipment list: ten shipments on a page, three print lines each.
#include "lists/report/movementHead.h"

namespace suisui {

namespace {

using enum FormAlign;

constexpr RowElement cells[] = {
    {u"LbDate", 1, {1274, 2460, 1005, 255}},
    {u"LbCode", 8, {2670, 2460, 1755, 255}},
    {u"LbGoods", 2, {4500, 2460, 4815, 255}},
    {u"LbStore", 3, {9480, 2460, 5685, 255}},
    {u"LbCharge", 9, {1260, 2760, 5595, 255}},
    {u"LbMemo", 13, {7230, 2760, 9165, 255}},
    {u"LbPrice", 4, {1274, 3000, 1170, 255}, Right},
    {u"LbNum", 5, {2520, 3000, 1665, 255}, Right},
    {u"LbUnit", 12, {4500, 3000, 735, 255}, Centre},
    {u"LbDiscount", 6, {5310, 3000, 1665, 255}, Right},
    {u"LbSum", 7, {7290, 3000, 1665, 255}, Right},
    {u"LbRHenkyaku", 10, {9150, 3000, 1665, 255}, Right},
    {u"LbFHenkyaku", 11, {11010, 3000, 1665, 255}, Right},
};

constexpr FixedText titles[] = {
    {u"Label1", u"出荷 明細一覧", {1110, 540, 14880, 420}, Centre, 20, true},
    {u"lblselect_t", u"出荷先 ：", {1110, 1275, 870, 255}},
    {u"lbltltsub", u"出荷日", {1274, 1620, 1005, 255}, Left, 9, true, true},
    {u"lbltltsub", u"コード", {2670, 1620, 1755, 255}, Left, 9, true},
    {u"lbltltsub", u"商品名", {4500, 1620, 4815, 255}, Left, 9, true},
    {u"lbltltsub", u"出荷先", {9480, 1620, 5685, 255}, Left, 9, true},
    {u"lbltltsub", u"担当者", {1260, 1900, 5595, 255}, Left, 9, true},
    {u"lbltltsub", u"備考", {7230, 1900, 8760, 255}, Left, 9, true, true},
    {u"lbltltsub", u"出荷単価", {1274, 2140, 1170, 255}, Right, 9, true},
    {u"lbltltsub", u"数量", {2520, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"単位", {4500, 2140, 735, 255}, Centre, 9, true},
    {u"lbltltsub", u"値引き", {5310, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"（合計）", {7290, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"良品返品", {9150, 2140, 1665, 255}, Right, 9, true},
    {u"lbltltsub", u"不良返品", {11010, 2140, 1665, 255}, Right, 9, true},
};

} // namespace

constinit const ReportTemplate rptList_Out{
    .name = u"rptList_Out",
    .title = u"出荷商品 一覧",
    .listName = u"「 出荷 明細一覧 」",
    .tab = Tab::ShipmentList,
    .termIndex = 4,
    .drawingError = u"印刷中にエラーが発生しました。",
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
