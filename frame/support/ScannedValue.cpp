#include "frame/support/ScannedValue.h"

#include "platform/core/RunTimeError.h"

namespace suisui {

namespace {

constexpr qsizetype longestCode = 16;

struct Enclosed
{
    char16_t first;
    char16_t last;
    ScanKind kind;
};

constexpr Enclosed enclosures[] = {
    {u'{', u'}', ScanKind::Keys},
    {u'[', u']', ScanKind::Function},
    {u'#', u'#', ScanKind::Partner},
    {u'@', u'@', ScanKind::Staff},
};

} // namespace

ScannedValue classify(const QString& value)
{
    if (value.isEmpty())
        return {};
    for (const Enclosed& enclosure : enclosures) {
        if (value.front() != enclosure.first)
            continue;
        if (value.back() != enclosure.last)
            return {ScanKind::Dropped, value};
        if (enclosure.kind == ScanKind::Keys)
            return {ScanKind::Keys, value};
        if (value.size() < 2)
            throw RunTimeError(RunTimeError::InvalidCall, "inner text of a one-character code");
        return {enclosure.kind, value.sliced(1, value.size() - 2)};
    }
    return {value.size() <= longestCode ? ScanKind::Goods : ScanKind::Dropped, value};
}

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
