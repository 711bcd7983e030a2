#include "platform/widgets/SpreadSort.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "store/Numbers.h"

namespace suisui {

namespace {

char fold(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

double sortValue(std::string_view text)
{
    try {
        return CDbl(text);
    } catch (const std::exception&) {
        return -std::numeric_limits<double>::infinity();
    }
}

} // namespace

void SortColumn::add(std::string_view text)
{
    if (m_asNumbers) {
        m_figures.push_back(sortValue(text));
        return;
    }
    for (const char c : text)
        m_texts += fold(c);
    m_begins.push_back(m_texts.size());
}

int SortColumn::compare(std::size_t a, std::size_t b) const
{
    int order = 0;
    if (m_asNumbers)
        order = m_figures[a] < m_figures[b] ? -1 : (m_figures[b] < m_figures[a] ? 1 : 0);
    else
        order = folded(a).compare(folded(b));
    return m_ascending ? order : -order;
}

std::vector<std::size_t> sortedRows(std::size_t rows, const std::vector<SortColumn>& keys)
{
    std::vector<std::size_t> order(rows);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&keys](std::size_t a, std::size_t b) {
        for (const SortColumn& key : keys)
            if (const int byKey = key.compare(a, b); byKey != 0)
                return byKey < 0;
        return false;
    });
    return order;
}

} // namespace suisui
