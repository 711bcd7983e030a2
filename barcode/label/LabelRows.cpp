#include "barcode/label/LabelRows.h"

#include "barcode/label/LabelPages.h"
#include "platform/widgets/vaSpread.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

constexpr int codeColumn = 1;
constexpr int nameColumn = 2;
constexpr std::string_view markOn = "1";
constexpr std::string_view markOff = "0";

} // namespace

LabelRows LabelRows::trial() const
{
    LabelRows rows(m_grid, m_checkColumn, m_quantityColumn);
    std::vector<bool> marks(static_cast<std::size_t>(count()) + 1);
    for (std::int64_t row = 1; row <= count(); ++row)
        marks[static_cast<std::size_t>(row)] = marked(row);
    rows.m_ownMarks = std::move(marks);
    return rows;
}

std::int64_t LabelRows::count() const
{
    return m_grid.MaxRows();
}

bool LabelRows::marked(std::int64_t row) const
{
    if (!inside(row))
        return false;
    if (m_ownMarks)
        return (*m_ownMarks)[static_cast<std::size_t>(row)];
    return m_grid.text(m_checkColumn, static_cast<int>(row)) == markOn;
}

void LabelRows::setMark(std::int64_t row, bool mark)
{
    if (!inside(row) || marked(row) == mark)
        return;
    if (m_ownMarks)
        (*m_ownMarks)[static_cast<std::size_t>(row)] = mark;
    else
        m_grid.SetText(m_checkColumn, static_cast<int>(row), mark ? markOn : markOff);
}

QString LabelRows::code(std::int64_t row) const
{
    return inside(row) ? m_grid.qtext(codeColumn, static_cast<int>(row)) : QString();
}

QString LabelRows::name(std::int64_t row) const
{
    return inside(row) ? m_grid.qtext(nameColumn, static_cast<int>(row)) : QString();
}

bool LabelRows::hasCode(std::int64_t row) const
{
    return inside(row)
           && m_grid.text(codeColumn, static_cast<int>(row)).find_first_not_of(' ') != std::string_view::npos;
}

std::string_view LabelRows::quantity(std::int64_t row) const
{
    return m_grid.text(m_quantityColumn, static_cast<int>(row));
}

std::int64_t LabelRows::labels(std::int64_t row, std::int64_t eachRow) const
{
    if (!hasCode(row))
        return 0;
    return m_quantityColumn == noCell ? eachRow : labelsOf(numberOf(quantity(row)));
}

std::int64_t LabelRows::labelsCounted(std::int64_t row, std::int64_t eachRow) const
{
    if (!hasCode(row))
        return 0;
    return m_quantityColumn == noCell ? eachRow : labelsOf(toFigure(quantity(row)).value_or(0));
}

} // namespace suisui
