#include "lists/ListHeadings.h"

#include "store/AppIni.h"

namespace suisui {

namespace {

// The column sorted by, and those that could be. The marks of figures follow the word without a blank.
constexpr std::string_view up = "▲ ";
constexpr std::string_view down = "▽ ";
constexpr std::string_view closeUp = "▲";
constexpr std::string_view closeDown = "▽";

class HeadingRow
{
public:
    HeadingRow(const ListSide& side, const AppIni& ini, vaSpread& grid)
        : m_side(side), m_ini(ini), m_grid(grid)
    {
    }

    void word(int col, std::string_view mark = {})
    {
        if (col != noCell)
            m_grid.SetText(col, 0, heading(m_side, m_ini, col) + std::string(mark));
    }
    void nothing(int col) { m_grid.SetText(col, 0, nothingHere); }
    void words()
    {
        for (int col = 1; col <= m_grid.MaxCols(); ++col)
            word(col);
    }

private:
    const ListSide& m_side;
    const AppIni& m_ini;
    vaSpread& m_grid;
};

std::array<int, 5> sortedTexts(const ListCells& cells)
{
    return {cells.date, cells.name, cells.partner, cells.code, cells.staff};
}

std::array<int, 4> sortedFigures(const ListCells& cells)
{
    return {cells.quantity, cells.amount, cells.returned[0], cells.returned[1]};
}

} // namespace

std::string heading(const ListSide& side, const AppIni& ini, int col)
{
    return (ini.*side.heading)(col).toStdString();
}

void writePlainHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid)
{
    HeadingRow(side, ini, grid).words();
}

void writeSearchHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view)
{
    const ListCells& cells = side.cells;
    HeadingRow row(side, ini, grid);
    if (view == ListView::Detail) {
        for (const int col : sortedTexts(cells))
            row.word(col, col == cells.date ? up : down);
        for (const int col : sortedFigures(cells))
            row.word(col);
        row.word(cells.remark);
        return;
    }
    row.nothing(cells.date);
    row.word(cells.name, up);
    row.word(cells.partner);
    row.word(cells.staff);
    for (const int col : sortedFigures(cells))
        row.word(col, closeDown);
    row.word(cells.code, down);
    row.nothing(cells.remark);
}

void writeSortHeadings(const ListSide& side, const AppIni& ini, vaSpread& grid, ListView view, int col)
{
    const ListCells& cells = side.cells;
    HeadingRow row(side, ini, grid);
    row.words();
    if (view == ListView::Detail) {
        for (const int each : sortedTexts(cells))
            row.word(each, each == col ? up : down);
        return;
    }
    row.nothing(cells.date);
    row.word(cells.name, cells.name == col ? up : down);
    for (const int each : sortedFigures(cells))
        row.word(each, each == col ? closeUp : closeDown);
    row.word(cells.code, cells.code == col ? closeUp : closeDown);
    row.nothing(cells.remark);
}

std::string groupLabel(const ListSide& side, const AppIni& ini, int groupCol)
{
    if (groupCol == side.cells.name || groupCol == side.cells.code)
        return "　　（商品 計）";
    return "　　（" + heading(side, ini, groupCol) + " 計）";
}

} // namespace suisui
