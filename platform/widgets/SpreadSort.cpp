#include "platform/widgets/SpreadSort.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <optional>

#include "store/FoldedCode.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

/// Figures as the grids show them: whole, grouped by commas. Nothing for all other texts.
std::optional<double> groupedFigure(std::string_view text)
{
    constexpr int exactDigits = 15; // so many a double holds to the last
    const bool minus = text.starts_with('-');
    std::int64_t value = 0;
    int digits = 0;
    for (const char c : text.substr(minus ? 1 : 0)) {
        if (c >= '0' && c <= '9') {
            value = value * 10 + (c - '0');
            ++digits;
        } else if (c != ',') {
            return std::nullopt;
        }
        if (digits > exactDigits)
            return std::nullopt;
    }
    if (digits == 0)
        return std::nullopt;
    return static_cast<double>(minus ? -value : value);
}

double sortValue(std::string_view text)
{
    if (const std::optional<double> figure = groupedFigure(text))
        return *figure;
    return toNumber(text).value_or(-std::numeric_limits<double>::infinity());
}

} // namespace

void SortColumn::fill() const
{
    m_filled = true;
    if (m_asNumbers) {
        m_figures.reserve(m_rows);
        for (std::size_t row = 0; row < m_rows; ++row)
            m_figures.push_back(sortValue(m_read(row)));
        return;
    }
    m_begins.reserve(m_rows + 1);
    for (std::size_t row = 0; row < m_rows; ++row) {
        m_texts.append(m_read(row));
        m_begins.push_back(m_texts.size());
    }
    std::transform(m_texts.begin(), m_texts.end(), m_texts.begin(), foldedLetter);
    std::string_view common = m_rows == 0 ? std::string_view() : folded(0);
    for (std::size_t row = 1; row < m_rows && !common.empty(); ++row) {
        const std::string_view text = folded(row);
        const auto end = std::mismatch(common.begin(), common.end(), text.begin(), text.end()).first;
        common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
    }
    m_common = common.size();
}

int SortColumn::compare(std::size_t a, std::size_t b) const
{
    if (!m_filled)
        fill();
    int order = 0;
    if (m_asNumbers)
        order = m_figures[a] < m_figures[b] ? -1 : (m_figures[b] < m_figures[a] ? 1 : 0);
    else
        order = folded(a).compare(folded(b));
    return m_ascending ? order : -order;
}

std::uint64_t SortColumn::lead(std::size_t row) const
{
    if (!m_filled)
        fill();
    std::uint64_t value = 0;
    if (m_asNumbers) {
        // The bits of a double sort as the double does once the sign has been turned round.
        const auto bits = std::bit_cast<std::uint64_t>(m_figures[row] + 0.0);
        constexpr std::uint64_t sign = std::uint64_t{1} << 63;
        value = (bits & sign) != 0 ? ~bits : bits | sign;
    } else {
        const std::string_view text = folded(row).substr(m_common);
        for (std::size_t i = 0; i < sizeof value; ++i)
            value = value << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    }
    return m_ascending ? value : ~value;
}

std::vector<std::size_t> sortedRows(std::size_t rows, const std::vector<SortColumn>& keys)
{
    struct Place
    {
        std::uint64_t lead;
        std::size_t row;
    };
    std::vector<Place> places(rows);
    for (std::size_t row = 0; row < rows; ++row)
        places[row] = {keys.empty() ? 0 : keys.front().lead(row), row};
    std::stable_sort(places.begin(), places.end(), [&keys](const Place& a, const Place& b) {
        if (a.lead != b.lead)
            return a.lead < b.lead;
        for (const SortColumn& key : keys)
            if (const int byKey = key.compare(a.row, b.row); byKey != 0)
                return byKey < 0;
        return false;
    });
    std::vector<std::size_t> order;
    order.reserve(rows);
    for (const Place& place : places)
        order.push_back(place.row);
    return order;
}

} // namespace suisui
