#include "lists/ListSubtotals.h"

#include <vector>

#include "platform/widgets/vaSpread.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

const QColor subtotalColor(255, 255, 0);
const QColor totalColor(128, 255, 128);
const QColor negativeColor(255, 0, 0);

void addTo(ListFigures& sums, const ListFigures& figures)
{
    for (std::size_t i = 0; i < listFigures; ++i)
        sums[i] += figures[i];
}

/// The figures of a row as its cells show them; an empty cell counts as 0.
ListFigures shownFigures(const vaSpread& grid, const std::array<int, listFigures>& cells, int row)
{
    ListFigures figures{};
    for (std::size_t i = 0; i < listFigures; ++i)
        if (cells[i] != noCell)
            figures[i] = numberOf(grid.text(cells[i], row));
    return figures;
}

} // namespace

std::optional<ListFigures> Subtotals::add(std::string_view key, const ListFigures& row)
{
    std::optional<ListFigures> closed;
    if (key != m_key) {
        closed = close();
        m_key = key;
    }
    addTo(m_group, row);
    return closed;
}

ListFigures Subtotals::close()
{
    const ListFigures closed = m_group;
    addTo(m_total, closed);
    m_group = {};
    return closed;
}

std::optional<SumRow> sumRowAt(const vaSpread& grid, const ListCells& cells, int row)
{
    const std::string_view text = grid.text(cells.date, row);
    if (text == subtotalMark)
        return SumRow::Subtotal;
    if (text == totalMark)
        return SumRow::Total;
    return std::nullopt;
}

QColor restColor(const vaSpread& grid, const ListCells& cells, int row)
{
    const std::optional<SumRow> kind = sumRowAt(grid, cells, row);
    if (!kind)
        return Qt::white;
    return *kind == SumRow::Subtotal ? subtotalColor : totalColor;
}

void markNegative(vaSpread& grid, int col, int row)
{
    grid.setCellForeColor(col, row, negativeColor);
    grid.setCellBold(col, row, true);
}

void writeSumRow(vaSpread& grid, const ListCells& cells, int row, SumRow kind, std::string_view label,
                 const ListFigures& sums)
{
    std::vector<std::string> texts(static_cast<std::size_t>(grid.MaxCols()));
    const auto put = [&texts](int cell, std::string text) {
        if (cell != noCell)
            texts[static_cast<std::size_t>(cell - 1)] = std::move(text);
    };
    const bool subtotal = kind == SumRow::Subtotal;
    put(cells.date, std::string(subtotal ? subtotalMark : totalMark));
    put(cells.name, std::string(label));
    const std::array<int, listFigures> figures = figureCells(cells);
    for (std::size_t i = 0; i < listFigures; ++i)
        put(figures[i], Format(sums[i], figures[i] == cells.amount ? maskA : maskB));
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    grid.setRowTexts(row, views);
    grid.setRowBackColor(row, subtotal ? subtotalColor : totalColor);
    if (displayed(sums[static_cast<std::size_t>(ListFigure::Amount)]) < 0)
        markNegative(grid, cells.amount, row);
}

void insertSubtotals(vaSpread& grid, const ListCells& cells, int groupCol, std::string_view label)
{
    struct Group
    {
        int before; ///< the subtotal is inserted in front of this row
        ListFigures sums;
    };
    const std::array<int, listFigures> figures = figureCells(cells);
    const int rows = grid.MaxRows();
    Subtotals subtotals(grid.text(groupCol, 1));
    std::vector<Group> groups;
    for (int row = 1; row <= rows; ++row) {
        if (const auto closed = subtotals.add(grid.text(groupCol, row), shownFigures(grid, figures, row)))
            groups.push_back({row, *closed});
        grid.setRowBackColor(row, Qt::white);
    }
    groups.push_back({rows + 1, subtotals.close()});
    groups.push_back({rows + 1, subtotals.total()});

    // All at once: one by one, each would push the rest of the list down.
    std::vector<int> places;
    places.reserve(groups.size());
    for (const Group& group : groups)
        places.push_back(group.before);
    grid.InsertRowsAt(places);
    int above = 0;
    for (const Group& group : groups) {
        const bool total = above + 1 == static_cast<int>(groups.size());
        writeSumRow(grid, cells, group.before + above, total ? SumRow::Total : SumRow::Subtotal,
                    total ? std::string_view() : label, group.sums);
        ++above;
    }
}

void removeSumRows(vaSpread& grid, const ListCells& cells)
{
    grid.DeleteRowsWhere([&grid, &cells](int row) { return sumRowAt(grid, cells, row).has_value(); });
}

} // namespace suisui
