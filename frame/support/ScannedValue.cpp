#include "frame/support/ScannedValue.h"

namespace suisui {

void dialogBarCodeChk(const QString& value, const std::function<void()>& pressOk,
                      const std::function<void()>& pressEnd,
                      const std::function<void(const QString&)>& sendKeys)
{
    // Partners, staff and goods mean nothing to a dialog, so nothing about them can be wrong here.
    if (value.isEmpty() || (value.front() != u'{' && value.front() != u'['))
        return;
    const ScannedValue scanned = classify(value);
    if (scanned.kind == ScanKind::Keys)
        sendKeys(scanned.text);
    else if (scanned.kind == ScanKind::Function && scanned.text == u'P')
        pressOk();
    else if (scanned.kind == ScanKind::Function && scanned.text == u'T')
        pressEnd();
}

} // namespace suisui
