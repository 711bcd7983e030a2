#include "barcode/label/FunctionStrip.h"

#include "barcode/label/LabelText.h"
#include "store/AppIni.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

struct ScreenBar
{
    Millimetres right;
    const char16_t* work;
};
constexpr ScreenBar screenBars[] = {
    {0_mm, u" 登録"}, {38_mm, u" 登録"}, {76_mm, u" 一覧"}, {105_mm, u" 一覧"}, {134_mm, u" 一覧"}};

// Columns of the lists whose headings are the shop's words for goods, partner and staff.
constexpr int goodsColumn = 2;
constexpr int partnerColumn = 3;
constexpr int staffColumn = 9;

} // namespace

std::vector<StripBar> screenCodes(const AppIni& words)
{
    std::vector<StripBar> bars;
    int tab = 0;
    for (const ScreenBar& bar : screenBars) {
        bars.push_back(
            {u"[%1]"_s.arg(tab), bar.right, cutForLabel(words.Term(tab) + QString::fromUtf16(bar.work)), {}});
        ++tab;
    }
    return bars;
}

std::vector<StripBar> searchCodes(const AppIni& words)
{
    const QString all = u" （すべて）"_s;
    return {
        {u"[A]"_s, 0_mm, cutForLabel(words.ReceiptListHeading(goodsColumn) + all), {}},
        {u"[B]"_s, 27_mm, words.ReceiptListHeading(partnerColumn) + all,
         words.ShipmentListHeading(partnerColumn) + all},
        {u"[C]"_s, 54_mm, words.ReceiptListHeading(staffColumn) + all, u"最低在庫数未満のみ表示"_s},
        {u"[D]"_s, 100_mm, u"商品で集計して表示"_s, u"在庫数０も表示"_s},
        {u"[E]"_s, 136_mm, u"検索"_s, {}},
    };
}

} // namespace suisui
