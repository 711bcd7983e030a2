#include "tests/support/TempShop.h"

#include <stdexcept>

#include <sqlite3.h>

namespace suisui::test {

std::vector<std::string> queryFile(const std::string& file, const std::string& sql)
{
    std::vector<std::string> rows;
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK
        || sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        std::abort();
    int status = sqlite3_step(statement);
    for (; status == SQLITE_ROW; status = sqlite3_step(statement)) {
        std::string row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            if (column > 0)
                row += '|';
            row += text == nullptr ? "" : text;
        }
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    if (status != SQLITE_DONE)
        throw std::runtime_error("no rows from " + sql);
    return rows;
}

void TempShop::execute(const std::string& sql) const
{
    AppDB other(databaseFolder());
    if (other.Open("trnvik.mdb") != DbStatus::Good)
        throw std::runtime_error("no database in " + databaseFolder());
    other.Execute(sql);
    if (other.LastStatus() != DbStatus::Good)
        throw std::runtime_error("not done: " + sql);
    other.Commit();
}

} // namespace suisui::test
