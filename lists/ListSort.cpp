#include "lists/ListSort.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "lists/ListHeadings.h"
#include "lists/ListSubtotals.h"
#include "store/Stamps.h"

namespace suisui {

namespace {

/// Sort keys of the detail view, all ascending: columns, 0 for none. The first is the clicked one.
constexpr std::array<std::array<int, 4>, 5> detailKeys{{
    {1, 2, 8, 0},
    {2, 8, 1, 0},
    {3, 2, 8, 1},
    {8, 1, 0, 0},
    {9, 2, 8, 1},
}};

using Keys = std::vector<vaSpread::SortKey>;

Keys keysOfDetail(int col)
{
    Keys keys;
    for (const auto& row : detailKeys)
        if (row.front() == col)
            for (const int key : row)
                if (key != 0)
                    keys.push_back({key, true});
    return keys;
}

/// Figures in descending order, texts in ascending order.
Keys keysOfSums(const ListCells& cells, int col)
{
    const std::array sorted{cells.name,   cells.code,        cells.quantity,
                            cells.amount, cells.returned[0], cells.returned[1]};
    if (col == noCell || std::find(sorted.begin(), sorted.end(), col) == sorted.end())
        return {};
    const bool rising = col == cells.name || col == cells.code;
    return {{col, rising}, {cells.name, true}, {cells.code, true}};
}

Keys keysOf(const ListSide& side, ListView view, int col)
{
    return view == ListView::Detail ? keysOfDetail(col) : keysOfSums(side.cells, col);
}

bool isScreenDate(std::string_view text)
{
    const auto number = [text](std::size_t at, std::size_t length) {
        int value = -1;
        const char* end = text.data() + at + length;
        const auto result = std::from_chars(text.data() + at, end, value);
        return result.ec == std::errc() && result.ptr == end ? value : -1;
    };
    return text.size() == 10 && text[4] == '/' && text[7] == '/'
           && isCalendarDay(number(0, 4), number(5, 2), number(8, 2));
}

} // namespace

ListView shownView(const vaSpread& grid, const ListCells& cells)
{
    return grid.text(cells.date, 0) == nothingHere ? ListView::Summed : ListView::Detail;
}

bool sortsBy(const ListSide& side, ListView view, int col)
{
    return !keysOf(side, view, col).empty();
}

void sortList(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col)
{
    const ListCells& cells = side.cells;
    if (view == ListView::Detail)
        removeSumRows(grid, cells);
    grid.Sort(keysOf(side, view, col));
    if (view == ListView::Detail)
        insertSubtotals(grid, cells, col, groupLabel(side, ini, col));
    writeSortHeadings(side, ini, grid, view, col);
}

RowFinder::RowFinder(const vaSpread& grid, const ListCells& cells)
    : m_cells(cells), m_code(grid.text(cells.code, grid.ActiveRow())),
      m_date(grid.text(cells.date, grid.ActiveRow()))
{
    if (!isScreenDate(m_date))
        m_date.clear();
}

int RowFinder::find(const vaSpread& grid) const
{
    for (int row = 1; row <= grid.MaxRows(); ++row)
        if (grid.text(m_cells.code, row) == m_code
            && (m_date.empty() || grid.text(m_cells.date, row) == m_date))
            return row;
    return 0;
}

} // namespace suisui
