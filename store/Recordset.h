// A forward cursor over the rows of a SELECT.
#pragma once

#include <string>
#include <string_view>

#include "store/Sqlite.h"

namespace suisui {

class Recordset
{
public:
    /// EOF: no row is current. At the end of the rows, or because one could not be read: see status.
    [[nodiscard]] bool atEof() const { return m_eof; }
    /// Text of a column of the current row by its name, whatever its letter case; Null reads as empty.
    /// Throws RunTimeError::SubscriptOutOfRange for a name that the rows do not have, InvalidCall at EOF.
    [[nodiscard]] std::string Fields(std::string_view name) const;
    void MoveNext();
    /// Number of columns, and the text of one by its place, counted from 0; the view lives until MoveNext.
    [[nodiscard]] int columns() const { return m_cursor.columnCount(); }
    [[nodiscard]] std::string_view text(int column) const { return m_cursor.text(column); }
    /// Good while every row so far could be read.
    [[nodiscard]] DbStatus status() const { return Sqlite::statusOf(m_engineCode); }

private:
    friend class AppDB;
    [[nodiscard]] int start(Sqlite::Cursor cursor);
    void step();
    void close();

    Sqlite::Cursor m_cursor;
    int m_engineCode = 0; ///< of the last step; 0 at the end of the rows, too
    bool m_eof = true;
};

} // namespace suisui
