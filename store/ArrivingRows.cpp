// Arriving rows as the engine reads them: a virtual table that exists while one statement runs
// (sqlite.org/vtab.html, eponymous-only virtual tables).
#include "store/ArrivingRows.h"

#include <new>
#include <string>

#include <sqlite3.h>

#include "store/Sqlite.h"

namespace suisui {

namespace {

constexpr const char* tableName = "arriving";

struct Table : sqlite3_vtab
{
    ArrivingRows* rows = nullptr;
};

ArrivingRows& rowsOf(sqlite3_vtab_cursor* cursor)
{
    return *static_cast<Table*>(cursor->pVtab)->rows;
}

int connectTable(sqlite3* db, void* rows, int, const char* const*, sqlite3_vtab** table, char**)
{
    auto* made = new (std::nothrow) Table();
    if (made == nullptr)
        return SQLITE_NOMEM;
    made->rows = static_cast<ArrivingRows*>(rows);
    std::string layout = "CREATE TABLE arriving (c0";
    for (int column = 1; column < made->rows->columns(); ++column)
        layout += ",c" + std::to_string(column);
    layout += ')';
    *table = made;
    return sqlite3_declare_vtab(db, layout.c_str());
}

int disconnectTable(sqlite3_vtab* table)
{
    delete static_cast<Table*>(table);
    return SQLITE_OK;
}

/// There is only one way to read the rows: from the current one to the end.
int bestIndex(sqlite3_vtab*, sqlite3_index_info*)
{
    return SQLITE_OK;
}

int openCursorOf(sqlite3_vtab*, sqlite3_vtab_cursor** cursor)
{
    *cursor = new (std::nothrow) sqlite3_vtab_cursor();
    return *cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int closeCursor(sqlite3_vtab_cursor* cursor)
{
    delete cursor;
    return SQLITE_OK;
}

int filter(sqlite3_vtab_cursor*, int, const char*, int, sqlite3_value**)
{
    return SQLITE_OK;
}

int next(sqlite3_vtab_cursor* cursor)
{
    return rowsOf(cursor).advance() ? SQLITE_OK : SQLITE_ERROR;
}

int atEnd(sqlite3_vtab_cursor* cursor)
{
    return rowsOf(cursor).atEnd() ? 1 : 0;
}

int column(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int index)
{
    const std::string_view text = rowsOf(cursor).text(index);
    // The pointer of an empty view may be null, which would store a Null.
    sqlite3_result_text64(context, text.empty() ? "" : text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    return SQLITE_OK;
}

int rowId(sqlite3_vtab_cursor*, sqlite3_int64* id)
{
    *id = 0;
    return SQLITE_OK;
}

sqlite3_module moduleOfRows()
{
    sqlite3_module module = {};
    module.xConnect = connectTable;
    module.xBestIndex = bestIndex;
    module.xDisconnect = disconnectTable;
    module.xOpen = openCursorOf;
    module.xClose = closeCursor;
    module.xFilter = filter;
    module.xNext = next;
    module.xEof = atEnd;
    module.xColumn = column;
    module.xRowid = rowId;
    return module;
}

} // namespace

int Sqlite::insertArriving(std::string_view insert, ArrivingRows& rows)
{
    if (m_db == nullptr)
        return execute(insert); // reports that no database is open
    static const sqlite3_module module = moduleOfRows();
    int code = sqlite3_create_module_v2(m_db, tableName, &module, &rows, nullptr);
    if (code == SQLITE_OK)
        code = execute(std::string(insert) + " SELECT * FROM " + tableName);
    const std::string error = code == SQLITE_OK ? std::string() : errorText();
    sqlite3_create_module_v2(m_db, tableName, nullptr, nullptr, nullptr); // also clears the last error
    m_ownError = error;
    return code;
}

} // namespace suisui
