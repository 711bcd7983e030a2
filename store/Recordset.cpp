#include "store/Recordset.h"

#include "platform/core/RunTimeError.h"
#include "store/FoldedCode.h"

namespace suisui {

namespace {

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (foldedLetter(a[i]) != foldedLetter(b[i]))
            return false;
    return true;
}

} // namespace

std::string Recordset::Fields(std::string_view name) const
{
    if (m_eof)
        throw RunTimeError(RunTimeError::InvalidCall, "no current row");
    for (int column = 0; column < m_cursor.columnCount(); ++column)
        if (sameName(m_cursor.columnName(column), name))
            return std::string(m_cursor.text(column));
    throw RunTimeError(RunTimeError::SubscriptOutOfRange, "no column " + std::string(name));
}

void Recordset::MoveNext()
{
    if (m_eof)
        throw RunTimeError(RunTimeError::InvalidCall, "no current row");
    step();
}

int Recordset::start(Sqlite::Cursor cursor)
{
    m_cursor = std::move(cursor);
    step();
    return m_engineCode;
}

void Recordset::step()
{
    const int code = m_cursor.next();
    m_eof = code != 0;
    m_engineCode = code == Sqlite::Cursor::endOfRows ? 0 : code;
}

void Recordset::close()
{
    m_cursor.close();
    m_eof = true;
    m_engineCode = 0;
}

} // namespace suisui
