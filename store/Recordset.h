// A forward cursor over the rows of a SELECT.
#pragma once

#include <string>
#include <string_view>

#include "store/Sqlite.h"

namespace suisui {

class Recordset
{
public:
    /// EOF: no row is current.
    [[nodiscard]] bool atEof() const { return m_eof; }
    /// Text of a column of the current row by its name, whatever its letter case; Null reads as empty.
    /// Throws RunTimeError::SubscriptOutOfRange for a name that the rows do not have, InvalidCall at EOF.
    [[nodiscard]] std::string Fields(std::string_view name) const;
    void MoveNext();

private:
    friend class AppDB;
    void start(Sqlite::Cursor cursor);
    void close();

    Sqlite::Cursor m_cursor;
    bool m_eof = true;
};

} // namespace suisui
