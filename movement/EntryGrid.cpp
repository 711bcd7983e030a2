#include "movement/EntryGrid.h"

#include <algorithm>

#include "platform/widgets/ReDrawOff.h"
#include "store/Numbers.h"
#include "store/RowSet.h"
#include "store/Stamps.h"

namespace suisui {

namespace {

/// Cells that show a text of a movement as it is.
constexpr struct
{
    int MovementCells::*cell;
    std::string MovementTexts::*text;
} textCells[] = {
    {&MovementCells::code, &MovementTexts::code},
    {&MovementCells::name, &MovementTexts::name},
    {&MovementCells::price, &MovementTexts::price},
    {&MovementCells::quantity, &MovementTexts::quantity},
    {&MovementCells::discount, &MovementTexts::discount},
    {&MovementCells::partner, &MovementTexts::partnerName},
    {&MovementCells::staff, &MovementTexts::staffName},
    {&MovementCells::unit, &MovementTexts::unit},
    {&MovementCells::date, &MovementTexts::date},
    {&MovementCells::time, &MovementTexts::time},
    {&MovementCells::remark, &MovementTexts::remark},
};

std::vector<EditedCell> editedCells(const MovementCells& cells, const MovementColumns& columns)
{
    using enum CellForm;
    std::vector<EditedCell> edited{
        {cells.name, columns.name, Text},           {cells.price, columns.price, Number},
        {cells.quantity, columns.quantity, Number}, {cells.discount, columns.discount, Number},
        {cells.unit, columns.unit, Text},           {cells.date, columns.date, Date},
        {cells.time, columns.time, Time},           {cells.remark, columns.remark, Text}};
    for (std::size_t i = 0; i < cells.returned.size(); ++i)
        if (cells.returned[i] != noCell)
            edited.push_back({cells.returned[i], columns.returned[i], Number});
    return edited;
}

} // namespace

EntryGrid::EntryGrid(vaSpread& sheet, const MovementSide& side)
    : m_sheet(sheet), m_side(side), m_table(movementTable(side.side)),
      m_edited(editedCells(side.cells, m_table.columns))
{
    sheet.setColumns(side.columns);
    sheet.setRowMaker([this](const PackedRow& stored, int index, std::span<std::string> texts) {
        makeRow(stored, index, texts);
    });
    m_bar = new GridBar(sheet);
}

int EntryGrid::bufferIndex(int row) const
{
    if (const int number = m_sheet.pendingNumber(row); number != 0)
        return number; // the texts of the row have not been made yet, and are not needed for this
    return static_cast<int>(numberOf(m_sheet.text(m_side.cells.index, row)));
}

std::string EntryGrid::code(int row) const
{
    return std::string(m_sheet.text(m_side.cells.code, row));
}

Figures EntryGrid::shown(int row) const
{
    const MovementCells& cells = m_side.cells;
    return {.quantity = numberOf(m_sheet.text(cells.quantity, row)),
            .returned = m_table.returnsMoveStock ? numberOf(m_sheet.text(cells.returned[0], row)) : 0};
}

Figures EntryGrid::posted(int row) const
{
    const MovementCells& cells = m_side.cells;
    return {.quantity = numberOf(m_sheet.text(cells.postedQuantity, row)),
            .returned =
                cells.postedReturned == noCell ? 0 : numberOf(m_sheet.text(cells.postedReturned, row))};
}

void EntryGrid::setPosted(int row, const Figures& figures)
{
    const MovementCells& cells = m_side.cells;
    m_sheet.SetText(cells.postedQuantity, row, CStr(figures.quantity));
    if (cells.postedReturned != noCell)
        m_sheet.SetText(cells.postedReturned, row, CStr(figures.returned));
}

void EntryGrid::putBack(int row, const Figures& posted, const std::string& total)
{
    const MovementCells& cells = m_side.cells;
    m_sheet.SetText(cells.quantity, row, CStr(posted.quantity));
    if (cells.postedReturned != noCell)
        m_sheet.SetText(cells.returned[0], row, CStr(posted.returned));
    m_sheet.SetText(cells.total, row, total);
    m_sheet.SetActiveCell(cells.quantity, row);
    m_sheet.setFocus();
}

bool EntryGrid::take(int column, int row, Correction& edit)
{
    const auto cell = std::ranges::find(m_edited, column, &EditedCell::cell);
    if (cell == m_edited.end())
        return false;
    const bool number = cell->form == CellForm::Number;
    if (number && m_sheet.text(column, row).empty())
        m_sheet.SetText(column, row, std::string_view("0"));
    const int index = bufferIndex(row);
    if (!edit.take(index, cell->column, cell->form, m_sheet.text(column, row)))
        return false;
    if (number)
        m_sheet.SetText(m_side.cells.total, row, edit.total(index));
    return true;
}

/// The cells of a stored row. The label mark is not stored and stays empty.
void EntryGrid::makeRow(const PackedRow& stored, int index, std::span<std::string> texts) const
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    const auto put = [&texts](int cell, std::string_view text) {
        if (cell != noCell)
            texts[static_cast<std::size_t>(cell - 1)] = text;
    };
    put(cells.code, stored.text(columns.code));
    put(cells.name, stored.text(columns.name));
    put(cells.price, stored.text(columns.price));
    put(cells.quantity, stored.text(columns.quantity));
    put(cells.discount, stored.text(columns.discount));
    put(cells.total, Format(rowTotal(columns, stored), maskA));
    put(cells.partner, stored.text(columns.partnerName));
    put(cells.staff, stored.text(columns.staffName));
    put(cells.unit, stored.text(columns.unit));
    for (std::size_t r = 0; r < cells.returned.size(); ++r)
        put(cells.returned[r], stored.text(columns.returned[r]));
    put(cells.date, screenDate(stored.text(columns.date)));
    put(cells.time, screenTime(stored.text(columns.time)));
    put(cells.remark, stored.text(columns.remark));
    put(cells.postedReturned, stored.text(columns.returned[0]));
    put(cells.postedQuantity, stored.text(columns.quantity));
    put(cells.index, std::to_string(index));
}

void EntryGrid::load(const RowSet& rows, const std::function<void(int row)>& shown)
{
    const int count = rows.Count();
    const ReDrawOff noRedraw(m_sheet, ReDrawOff::ThenOn); // a booking that failed has left it off
    m_sheet.setMaxRows(0);                                // rows of the last search keep no colours
    m_sheet.setMaxRows(count);
    int row = 0;
    for (int i = count; i >= 1; --i) {
        if (rows.RowState(i) == "D")
            continue;
        m_sheet.setRowSource(++row, rows.packed(i), i);
        shown(row);
    }
    m_sheet.setMaxRows(row);
}

void EntryGrid::insertTop(const MovementTexts& movement, const std::string& total, int index)
{
    const MovementCells& cells = m_side.cells;
    const std::string indexText = std::to_string(index);
    std::vector<std::string_view> texts(static_cast<std::size_t>(m_sheet.MaxCols()));
    const auto put = [&texts](int cell, std::string_view text) {
        if (cell != noCell)
            texts.at(static_cast<std::size_t>(cell - 1)) = text;
    };
    for (const auto& each : textCells)
        put(cells.*each.cell, movement.*each.text);
    for (std::size_t r = 0; r < cells.returned.size(); ++r)
        put(cells.returned[r], movement.returned[r]);
    put(cells.total, total);
    put(cells.print, "1");
    put(cells.postedReturned, movement.returned[0]);
    put(cells.postedQuantity, movement.quantity);
    put(cells.index, indexText);
    m_sheet.InsertRows(1);
    m_sheet.setRowTexts(1, texts);
}

MovementTexts EntryGrid::top() const
{
    const MovementCells& cells = m_side.cells;
    MovementTexts texts;
    for (const auto& each : textCells)
        texts.*each.text = m_sheet.text(cells.*each.cell, 1);
    for (std::size_t r = 0; r < cells.returned.size(); ++r)
        if (cells.returned[r] != noCell)
            texts.returned[r] = m_sheet.text(cells.returned[r], 1);
    return texts;
}

void EntryGrid::takeOut(int row, int index, const Correction& edit)
{
    const ReDrawOff noRedraw(m_sheet);
    m_sheet.DeleteRows(row);
    for (int r = 1; edit.inStep(r) && r <= m_sheet.MaxRows(); ++r) {
        const int other = bufferIndex(r);
        if (other <= index)
            continue;
        if (m_sheet.pendingNumber(r) != 0)
            m_sheet.renumberPending(r, other - 1);
        else
            m_sheet.SetText(m_side.cells.index, r, std::to_string(other - 1));
    }
    const int next = std::min(row, m_sheet.MaxRows());
    if (next > 0)
        m_sheet.SetActiveCell(m_side.cells.quantity, next);
    m_bar->move(0, next);
}

void EntryGrid::cursorToQuantity()
{
    m_sheet.SetActiveCell(m_side.cells.price, 1);
    m_sheet.SetActiveCell(m_side.cells.quantity, 1);
}

} // namespace suisui
