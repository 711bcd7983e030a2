// Rows from one database to another.
#include "store/AppDB.h"

#include <cstring>
#include <vector>

namespace suisui {

namespace {

std::string insertInto(const TableDef& table)
{
    std::string names;
    std::string marks;
    for (const std::string_view column : table.columns) {
        names += names.empty() ? "" : ",";
        names += column;
        marks += marks.empty() ? "?" : ",?";
    }
    return "INSERT INTO " + std::string(table.name) + " (" + names + ") VALUES (" + marks + ")";
}

/// Whether the text could stand between single quotes as it is.
bool canBeQuoted(std::string_view text)
{
    return text.empty()
           || (std::memchr(text.data(), '\'', text.size()) == nullptr
               && std::memchr(text.data(), '\0', text.size()) == nullptr);
}

} // namespace

int AppDB::copyRows(AppDB& source, const TableDef& table, std::int64_t& added)
{
    added = 0;
    const auto giveUp = [&](int status) {
        Rollback();
        source.CloseRecordset();
        return status;
    };
    ShowErrors(false);
    Recordset& rows = source.recordset();
    const std::string insert = insertInto(table);
    std::vector<std::string_view> values(table.columns.size());
    if (!rows.atEof() && rows.columns() != table.columnCount())
        return giveUp(failOwn("the rows have not the columns of " + std::string(table.name)));
    if (const int status = beginWrite(); status != 0)
        return giveUp(status);
    for (; !rows.atEof(); rows.MoveNext()) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = rows.text(static_cast<int>(i));
            if (!canBeQuoted(values[i]))
                return giveUp(failOwn("a quote in " + std::string(table.columns[i])));
        }
        const int code = m_engine.executeBound(insert, values);
        if (code == 0)
            ++added;
        else if (m_engine.errorKind(code) != EngineError::DuplicateKey)
            return giveUp(fail(code));
    }
    if (const int status = rows.status(); status != 0) {
        source.failRead(status);
        return giveUp(status);
    }
    source.CloseRecordset();
    ShowErrors(true);
    return succeed();
}

} // namespace suisui
