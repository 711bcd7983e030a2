// The receipt list and the shipment list: ten movements on a page, three print lines each. Both are the same
// form with the words and columns of their side.
#include "lists/report/ReportTemplate.h"

namespace suisui {

namespace {

using enum FormAlign;

constexpr Twips textHeight = 255_tw;

/// A print line of a movement: the place of its titles, and of its texts in the first row.
struct PrintLine
{
    Twips titleTop;
    Twips textTop;
};
constexpr PrintLine first{1620_tw, 2460_tw};
constexpr PrintLine second{1900_tw, 2760_tw};
constexpr PrintLine third{2140_tw, 3000_tw};

/// A column of the grid, and its title above it.
struct Column
{
    std::u16string_view name;
    std::u16string_view title;
    int column;
    PrintLine line;
    Twips left;
    Twips width;
    FormAlign alignment = Left;
    bool optional = false;
    Twips titleWidth = {}; ///< 0: that of the texts
};

constexpr std::array receiptColumns{
    Column{u"LbDate", u"入荷日", 1, first, 1260_tw, 1005_tw, Left, true},
    Column{u"LbCode", u"コード", 8, first, 2670_tw, 1755_tw},
    Column{u"LbGoods", u"商品名", 2, first, 4500_tw, 4815_tw},
    Column{u"LbStore", u"入荷先", 3, first, 9480_tw, 5685_tw},
    Column{u"LbCharge", u"担当者", 9, second, 1260_tw, 5595_tw},
    Column{u"LbMemo", u"備考", 12, second, 7230_tw, 9165_tw, Left, true, 8760_tw},
    Column{u"LbPrice", u"入荷単価", 4, third, 1530_tw, 930_tw, Right},
    Column{u"LbNum", u"数量", 5, third, 2460_tw, 1665_tw, Right},
    Column{u"LbHenkyaku", u"返却数", 10, third, 4320_tw, 1665_tw, Right},
    Column{u"LbUnit", u"単位", 11, third, 6420_tw, 735_tw, Centre},
    Column{u"LbDiscount", u"値引き", 6, third, 7230_tw, 1665_tw, Right},
    Column{u"LbSum", u"（合計）", 7, third, 9090_tw, 1665_tw, Right},
};

constexpr std::array shipmentColumns{
    Column{u"LbDate", u"出荷日", 1, first, 1274_tw, 1005_tw, Left, true},
    Column{u"LbCode", u"コード", 8, first, 2670_tw, 1755_tw},
    Column{u"LbGoods", u"商品名", 2, first, 4500_tw, 4815_tw},
    Column{u"LbStore", u"出荷先", 3, first, 9480_tw, 5685_tw},
    Column{u"LbCharge", u"担当者", 9, second, 1260_tw, 5595_tw},
    Column{u"LbMemo", u"備考", 13, second, 7230_tw, 9165_tw, Left, true, 8760_tw},
    Column{u"LbPrice", u"出荷単価", 4, third, 1274_tw, 1170_tw, Right},
    Column{u"LbNum", u"数量", 5, third, 2520_tw, 1665_tw, Right},
    Column{u"LbUnit", u"単位", 12, third, 4500_tw, 735_tw, Centre},
    Column{u"LbDiscount", u"値引き", 6, third, 5310_tw, 1665_tw, Right},
    Column{u"LbSum", u"（合計）", 7, third, 7290_tw, 1665_tw, Right},
    Column{u"LbRHenkyaku", u"良品返品", 10, third, 9150_tw, 1665_tw, Right},
    Column{u"LbFHenkyaku", u"不良返品", 11, third, 11010_tw, 1665_tw, Right},
};

template <std::size_t count> struct Sheet
{
    std::array<RowElement, count> cells;
    std::array<FixedText, 2 + count> titles; ///< of the page and its partner, then those of the columns
};

template <std::size_t count>
constexpr Sheet<count> sheetOf(std::u16string_view heading, std::u16string_view partner,
                               const std::array<Column, count>& columns)
{
    Sheet<count> sheet{.cells = {},
                       .titles = {{{u"Label1", heading, {1110, 540, 14880, 420}, Centre, 20, true},
                                   {u"lblselect_t", partner, {1110, 1275, 870, 255}}}}};
    for (std::size_t i = 0; i < count; ++i) {
        const Column& at = columns[i];
        const Twips titleWidth = at.titleWidth > 0_tw ? at.titleWidth : at.width;
        const TwipBox titleBox{at.left, at.line.titleTop, titleWidth, textHeight};
        sheet.cells[i] = {at.name, at.column, {at.left, at.line.textTop, at.width, textHeight}, at.alignment};
        sheet.titles[2 + i] = {u"lbltltsub", at.title, titleBox, at.alignment, 9, true, at.optional};
    }
    return sheet;
}

constexpr auto receipts = sheetOf(u"入荷 明細一覧", u"入荷先 ：", receiptColumns);
constexpr auto shipments = sheetOf(u"出荷 明細一覧", u"出荷先 ：", shipmentColumns);

constexpr FixedText head[] = {
    {u"Label4", u"すいすいＴＡＧ", {1110, 600, 3000, 255}},
    {u"LbSYear", u"", {1110, 1020, 420, 255}, Right, 10},
    {u"lbldayfromto", u"年", {1540, 1020, 200, 255}, Left, 10},
    {u"LbSMonth", u"", {1740, 1020, 220, 255}, Right, 10},
    {u"lbldayfromto", u"月", {1970, 1020, 200, 255}, Left, 10},
    {u"LbSDate", u"", {2170, 1020, 220, 255}, Right, 10},
    {u"lbldayfromto", u"日", {2400, 1020, 200, 255}, Left, 10},
    {u"lbldayfromto", u"～", {2700, 1020, 200, 255}, Left, 10},
    {u"LbEYear", u"", {2970, 1020, 420, 255}, Right, 10},
    {u"lbldayfromto", u"年", {3400, 1020, 200, 255}, Left, 10},
    {u"LbEMonth", u"", {3600, 1020, 220, 255}, Right, 10},
    {u"lbldayfromto", u"月", {3830, 1020, 200, 255}, Left, 10},
    {u"LbEDate", u"", {4030, 1020, 220, 255}, Right, 10},
    {u"lbldayfromto", u"日", {4260, 1020, 200, 255}, Left, 10},
    {u"LbNyuka", u"", {1980, 1275, 4000, 255}},
    {u"lblselect_t", u"商品名 ：", {6120, 1275, 870, 255}},
    {u"LbSyouhin", u"", {6990, 1275, 4500, 255}},
    {u"lblselect_t", u"担当者 ：", {11640, 1275, 870, 255}},
    {u"LbTantou", u"", {12510, 1275, 3480, 255}},
    {u"LbPage", u"", {14535, 1020, 375, 255}, Centre},
    {u"Label2", u"／", {14910, 1020, 180, 255}},
    {u"LbSPage", u"", {15090, 1020, 375, 255}, Centre},
    {u"Label3", u"ページ", {15450, 1020, 540, 255}},
};

// The frame is outside the bands, which reach from 1110 to 15990.
constexpr FixedLine lines[] = {
    {{1093, 1560, 1093, 11117}, 2}, {{1093, 420, 16007, 420}, 3},   {{15990, 1560, 15990, 11117}, 2},
    {{1093, 1543, 16007, 1543}, 2}, {{1110, 2383, 15990, 2383}, 2}, {{1093, 11100, 16007, 11100}, 2},
};

struct FormSide
{
    std::u16string_view name;
    std::u16string_view title;
    std::u16string_view listName;
    Tab tab;
    int termIndex;
    std::u16string_view drawingError;
    std::span<const RowElement> cells;
    std::span<const FixedText> titles;
};

constexpr ReportTemplate formOf(const FormSide& side)
{
    return {.name = side.name,
            .title = side.title,
            .listName = side.listName,
            .tab = side.tab,
            .termIndex = side.termIndex,
            .drawingError = side.drawingError,
            .rowsPerPage = 10,
            .pitch = 870_tw,
            .cells = side.cells,
            .rowLine = {{1110, 3270, 15990, 3270}},
            .rowBand = {1110, 2400, 14880, 300},
            .rowsPerBand = 1,
            .titleBand = {1110, 1560, 14880, 823},
            .lines = lines,
            .texts = {head, side.titles}};
}

} // namespace

constinit const ReportTemplate rptList_In = formOf({
    .name = u"rptList_In",
    .title = u"入荷商品 一覧",
    .listName = u"「 入荷 明細一覧 」",
    .tab = Tab::ReceiptList,
    .termIndex = 3,
    .drawingError = u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。",
    .cells = receipts.cells,
    .titles = receipts.titles,
});

constinit const ReportTemplate rptList_Out = formOf({
    .name = u"rptList_Out",
    .title = u"出荷商品 一覧",
    .listName = u"「 出荷 明細一覧 」",
    .tab = Tab::ShipmentList,
    .termIndex = 4,
    .drawingError = u"印刷中にエラーが発生しました。",
    .cells = shipments.cells,
    .titles = shipments.titles,
});

} // namespace suisui
