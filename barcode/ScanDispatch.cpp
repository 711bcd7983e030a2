#include "barcode/ScanDispatch.h"

#include "store/Numbers.h"
#include "store/ScannedValue.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

void MainBarCodeChk(const QString& value, ScanTarget& target)
{
    const ScannedValue scanned = classify(value);
    switch (scanned.kind) {
    case ScanKind::Nothing:
    case ScanKind::Dropped:
        break;
    case ScanKind::Keys:
        target.sendKeys(scanned.text);
        break;
    case ScanKind::Function:
        if (scanned.text >= "0"_L1 && scanned.text <= "4"_L1) // compared as text
            target.selectTab(CInt(CDbl(scanned.text.toStdString())));
        else
            target.MainBarEtc(scanned.text);
        break;
    case ScanKind::Partner:
        target.SakiCodeSet(scanned.text);
        break;
    case ScanKind::Staff:
        target.TantouCodeSet(scanned.text);
        break;
    case ScanKind::Goods:
        target.GoodsCodeSet(scanned.text);
        break;
    }
}

} // namespace suisui
