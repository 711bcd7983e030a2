// The stock list: 25 goods on a page.
#include "lists/report/ReportTemplate.h"

namespace suisui {

namespace {

using enum FormAlign;

constexpr RowElement cells[] = {
    {u"LbCode", 1, {554, 2115, 1500, 255}},
    {u"LbGoods", 2, {2100, 2115, 4815, 195}},
    {u"LbMinStock", 9, {6960, 2115, 1005, 255}, Right},
    {u"LbStock", 3, {8010, 2115, 1665, 255}, Right},
    {u"LbUnit", 8, {9720, 2115, 735, 255}, Centre},
    {u"LbInPrice", 4, {10500, 2115, 1005, 255}, Right},
    {u"LbOutPrice", 5, {11550, 2115, 1005, 255}, Right},
    {u"LbDiscount", 6, {12600, 2115, 1665, 255}, Right},
    {u"LbSum", 7, {14310, 2115, 1665, 255}, Right},
};

constexpr FixedText head[] = {
    {u"Label4", u"すいすいＴＡＧ", {300, 1380, 3000, 255}},
    {u"Label1", u"在庫 明細一覧", {300, 690, 15795, 420}, Centre, 20, true},
    {u"LbDate", u"", {13980, 690, 2115, 255}},
    {u"LbPage", u"", {14640, 1380, 375, 255}, Centre},
    {u"Label2", u"／", {15015, 1380, 180, 255}},
    {u"LbSPage", u"", {15195, 1380, 375, 255}, Centre},
    {u"Label3", u"ページ", {15555, 1380, 540, 255}},
};

constexpr FixedText titles[] = {
    {u"lbltltsub", u"コード", {300, 1770, 1777, 255}, Centre, 9, true},
    {u"lbltltsub", u"商品名", {2077, 1770, 4860, 255}, Centre, 9, true},
    {u"lbltltsub", u"最低在庫数", {6937, 1770, 1050, 255}, Centre, 9, true},
    {u"lbltltsub", u"在庫数", {7987, 1770, 1710, 255}, Centre, 9, true},
    {u"lbltltsub", u"単位", {9697, 1770, 780, 255}, Centre, 9, true},
    {u"lbltltsub", u"入荷単価", {10477, 1770, 1050, 255}, Centre, 9, true},
    {u"lbltltsub", u"出荷単価", {11527, 1770, 1050, 255}, Centre, 9, true},
    {u"lbltltsub", u"値引き", {12577, 1770, 1710, 255}, Centre, 9, true, true},
    {u"lbltltsub", u"（合計）", {14287, 1770, 1808, 255}, Centre, 9, true, true},
};

// The frame is outside the bands, which reach from 300 to 16095. Vertical lines separate the titles only; the
// figures below line up without them.
constexpr FixedLine lines[] = {
    {{283, 1680, 283, 11057}, 2},     {{283, 480, 16112, 480}, 3},
    {{16095, 1680, 16095, 11057}, 2}, {{283, 1663, 16112, 1663}, 2},
    {{300, 2023, 16095, 2023}, 2},    {{283, 11040, 16112, 11040}, 2},
    {{2077, 1680, 2077, 2023}},       {{6937, 1680, 6937, 2023}},
    {{7987, 1680, 7987, 2023}},       {{9697, 1680, 9697, 2023}},
    {{10477, 1680, 10477, 2023}},     {{11527, 1680, 11527, 2023}},
    {{12577, 1680, 12577, 2023}},     {{14287, 1680, 14287, 2023}, 1, true},
};

} // namespace

constinit const ReportTemplate rptList_Stock{
    .name = u"rptList_Stock",
    .title = u"在庫商品 一覧",
    .listName = u"「 在庫 明細一覧 」",
    .tab = Tab::Stock,
    .termIndex = 2,
    .drawingError = u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。",
    .rowsPerPage = 25,
    .pitch = 360_tw,
    .cells = cells,
    .rowLine = {{300, 2400, 16095, 2400}},
    .rowBand = {300, 2040, 15795, 345},
    .rowsPerBand = 2,
    .titleBand = {300, 1680, 15795, 343},
    .lines = lines,
    .texts = {head, titles},
};

} // namespace suisui
