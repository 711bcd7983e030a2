// SQLite by hand, with the least code possible, as the baseline of the program. A connection that writes
// copies journal mode and flushing from a connection of the program, so that both wait for the disk equally
// often.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <sqlite3.h>

#include "store/AppDB.h"

namespace suisui::bench {

/// The statements that make a connection as durable as the program's own to the database \a file.
inline std::vector<std::string> asDurable(const std::string& file)
{
    AppDB db(file.substr(0, file.rfind('/')));
    if (db.Open(file) != DbStatus::Good)
        std::abort();
    std::vector<std::string> statements;
    for (const std::string name : {"journal_mode", "synchronous"}) {
        if (db.OpenRecordset("SELECT * FROM pragma_" + name) != DbStatus::Good || db.recordset().atEof())
            std::abort();
        statements.push_back("PRAGMA " + name + "=" + std::string(db.recordset().text(0)));
        db.CloseRecordset();
    }
    return statements;
}

class BareSqlite
{
public:
    /// \a patience, in milliseconds, while the program writes.
    explicit BareSqlite(const std::string& file, int patience = 2000)
    {
        if (sqlite3_open_v2(file.c_str(), &m_db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
            std::abort();
        sqlite3_busy_timeout(m_db, patience);
    }
    ~BareSqlite()
    {
        for (sqlite3_stmt* statement : m_statements)
            sqlite3_finalize(statement);
        sqlite3_close(m_db);
    }
    BareSqlite(const BareSqlite&) = delete;
    BareSqlite& operator=(const BareSqlite&) = delete;

    /// For a connection that writes: see asDurable().
    void run(const std::vector<std::string>& statements)
    {
        for (const std::string& statement : statements)
            if (sqlite3_exec(m_db, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                std::abort();
    }

    /// The statement lives as long as the connection.
    sqlite3_stmt* prepared(const char* sql)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr) != SQLITE_OK)
            std::abort();
        m_statements.push_back(statement);
        return statement;
    }
    static void bind(sqlite3_stmt* statement, const std::vector<std::string>& values)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            sqlite3_bind_text(statement, static_cast<int>(i) + 1, values[i].data(),
                              static_cast<int>(values[i].size()), SQLITE_TRANSIENT);
    }
    static void step(sqlite3_stmt* statement)
    {
        if (sqlite3_step(statement) != SQLITE_DONE)
            std::abort();
        sqlite3_reset(statement);
    }
    /// Rows of a SELECT, texts in column order.
    static std::vector<std::vector<std::string>> rows(sqlite3_stmt* statement)
    {
        std::vector<std::vector<std::string>> found;
        const int columns = sqlite3_column_count(statement);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            std::vector<std::string> row;
            row.reserve(static_cast<std::size_t>(columns));
            for (int i = 0; i < columns; ++i)
                row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
            found.push_back(std::move(row));
        }
        sqlite3_reset(statement);
        return found;
    }
    /// First row of a SELECT with one parameter; empty when there is none.
    static std::vector<std::string> first(sqlite3_stmt* statement, std::string_view parameter)
    {
        sqlite3_bind_text(statement, 1, parameter.data(), static_cast<int>(parameter.size()), SQLITE_STATIC);
        auto found = rows(statement);
        return found.empty() ? std::vector<std::string>() : std::move(found.front());
    }

private:
    sqlite3* m_db = nullptr;
    std::vector<sqlite3_stmt*> m_statements;
};

} // namespace suisui::bench
