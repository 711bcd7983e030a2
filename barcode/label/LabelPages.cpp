#include "barcode/label/LabelPages.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "store/Numbers.h"

namespace suisui {

namespace {

constexpr double mostLabels = 1e12;

} // namespace

std::optional<double> numberIn(const QString& text)
{
    return toNumber(text.toStdString());
}

std::int64_t labelsOf(double quantity)
{
    return static_cast<std::int64_t>(std::nearbyint(std::clamp(quantity, -mostLabels, mostLabels)));
}

std::int32_t pagesNeeded(std::int64_t labels, std::int64_t capacity, std::int64_t start)
{
    if (labels == 0 || capacity < 1)
        return 0;
    const std::int64_t firstPage = std::abs(capacity + 1 - start) % capacity;
    const std::int64_t behind = labels - firstPage;
    const std::int64_t lastPage = behind > 0 ? behind % capacity : 0;
    std::int64_t pages = (lastPage != 0 ? 1 : 0) + (start != 1 ? 1 : 0);
    if (behind > 0)
        pages += std::abs(behind - lastPage) / capacity;
    return static_cast<std::int32_t>(std::min<std::int64_t>(pages, std::numeric_limits<std::int32_t>::max()));
}

std::int64_t labelsWanted(const CountedRows& rows, std::int64_t first, std::int64_t last, bool markedOnly,
                          std::int64_t eachRow)
{
    std::int64_t labels = 0;
    for (std::int64_t row = first; row <= last; ++row)
        if (!markedOnly || rows.marked(row))
            labels += rows.labelsCounted(row, eachRow);
    return labels;
}

LabelPageRange labelPageRange(const QString& first, const QString& last, std::int32_t total)
{
    const double pages = total;
    double from = std::nearbyint(numberIn(first).value_or(1));
    double to = std::nearbyint(numberIn(last).value_or(pages));
    if (from > pages || from < 1)
        from = 1;
    if (to > pages || to < 1 || to < from)
        to = pages;
    return {static_cast<std::int32_t>(from), static_cast<std::int32_t>(to)};
}

} // namespace suisui
