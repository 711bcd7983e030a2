#include "store/ScannedValue.h"

#include <algorithm>

#include "platform/core/RunTimeError.h"

namespace suisui {

std::span<const Enclosure> enclosures()
{
    static constexpr Enclosure all[] = {
        {u'{', u'}', ScanKind::Keys},
        {u'[', u']', ScanKind::Function},
        {u'#', u'#', ScanKind::Partner},
        {u'@', u'@', ScanKind::Staff},
    };
    return all;
}

const Enclosure* openedBy(const QString& value)
{
    const std::span<const Enclosure> all = enclosures();
    const auto found = std::ranges::find_if(
        all, [&value](const Enclosure& each) { return !value.isEmpty() && value.front() == each.first; });
    return found == all.end() ? nullptr : &*found;
}

ScannedValue classify(const QString& value)
{
    if (value.isEmpty())
        return {};
    const Enclosure* const enclosure = openedBy(value);
    if (enclosure == nullptr)
        return {value.size() <= longestGoodsCode ? ScanKind::Goods : ScanKind::Dropped, value};
    if (value.back() != enclosure->last)
        return {ScanKind::Dropped, value};
    if (enclosure->kind == ScanKind::Keys)
        return {ScanKind::Keys, value};
    if (value.size() < 2)
        throw RunTimeError(RunTimeError::InvalidCall, "inner text of a one-character code");
    return {enclosure->kind, value.sliced(1, value.size() - 2)};
}

} // namespace suisui
