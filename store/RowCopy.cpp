// Rows from one database to another, and files that are filled with them.
#include "store/AppDB.h"

#include <cstring>
#include <vector>

namespace suisui {

namespace {

// So many rows go into one statement, which spreads what each statement costs.
constexpr std::size_t rowsTogether = 32;

std::string insertInto(const TableDef& table, std::size_t rows)
{
    std::string names;
    std::string marks;
    for (const std::string_view column : table.columns) {
        names += names.empty() ? "" : ",";
        names += column;
        marks += marks.empty() ? "(?" : ",?";
    }
    marks += ')';
    std::string all = marks;
    for (std::size_t i = 1; i < rows; ++i)
        all += "," + marks;
    // A key that is there already is passed over; nothing else can be wrong with a row of texts.
    return "INSERT OR IGNORE INTO " + std::string(table.name) + " (" + names + ") VALUES " + all;
}

/// Whether the text could stand between single quotes as it is.
bool canBeQuoted(std::string_view text)
{
    return text.empty()
           || (std::memchr(text.data(), '\'', text.size()) == nullptr
               && std::memchr(text.data(), '\0', text.size()) == nullptr);
}

/// Rows on their way: their texts behind each other, since a cursor's own live only until its next step.
class Batch
{
public:
    explicit Batch(const TableDef& table)
        : m_columns(table.columns.size()), m_values(m_columns * rowsTogether),
          m_insertOne(insertInto(table, 1)), m_insertMany(insertInto(table, rowsTogether))
    {
        m_ends.reserve(m_values.size());
    }

    /// False when the row holds what no INSERT text could carry.
    [[nodiscard]] bool add(const Recordset& row)
    {
        for (std::size_t i = 0; i < m_columns; ++i) {
            const std::string_view text = row.text(static_cast<int>(i));
            if (!canBeQuoted(text))
                return false;
            m_bytes += text;
            m_ends.push_back(m_bytes.size());
        }
        return true;
    }
    [[nodiscard]] bool full() const { return m_ends.size() == m_values.size(); }

    /// Adds the rows to the table and empties the batch. An engine code; \a added grows by what was new.
    [[nodiscard]] int store(Sqlite& engine, std::int64_t& added)
    {
        std::size_t start = 0;
        for (std::size_t i = 0; i < m_ends.size(); ++i) {
            m_values[i] = std::string_view(m_bytes).substr(start, m_ends[i] - start);
            start = m_ends[i];
        }
        const std::span<const std::string_view> values(m_values);
        const std::size_t together = full() ? m_values.size() : m_columns;
        int code = 0;
        for (std::size_t at = 0; code == 0 && at < m_ends.size(); at += together) {
            code = engine.executeBound(full() ? m_insertMany : m_insertOne, values.subspan(at, together));
            added += code == 0 ? engine.changes() : 0;
        }
        m_bytes.clear();
        m_ends.clear();
        return code;
    }

private:
    std::size_t m_columns;
    std::string m_bytes;
    std::vector<std::size_t> m_ends;
    std::vector<std::string_view> m_values;
    std::string m_insertOne;
    std::string m_insertMany;
};

} // namespace

int AppDB::copyRows(AppDB& source, const TableDef& table, std::int64_t& added)
{
    added = 0;
    ShowErrors(false);
    const int status = copyCursor(source, table, added);
    source.CloseRecordset();
    if (status != 0)
        Rollback();
    else
        ShowErrors(true);
    return status;
}

int AppDB::copyCursor(AppDB& source, const TableDef& table, std::int64_t& added)
{
    Recordset& rows = source.recordset();
    if (!rows.atEof() && rows.columns() != table.columnCount())
        return failOwn("the rows have not the columns of " + std::string(table.name));
    if (const int status = beginWrite(); status != 0)
        return status;
    Batch batch(table);
    for (; !rows.atEof(); rows.MoveNext()) {
        if (!batch.add(rows))
            return failOwn("a quote in a row of " + std::string(table.name));
        if (!batch.full())
            continue;
        if (const int code = batch.store(m_engine, added); code != 0)
            return fail(code);
    }
    if (const int status = rows.status(); status != 0) {
        source.failRead(status);
        return failOwn("a row of " + std::string(table.name) + " cannot be read");
    }
    if (const int code = batch.store(m_engine, added); code != 0)
        return fail(code);
    return succeed();
}

int AppDB::OpenForFilling(std::string_view file)
{
    if (const int status = Open(file); status != 0)
        return status;
    // One flush at the end in place of one at each step.
    int code = m_engine.execute("PRAGMA journal_mode=MEMORY");
    if (code == 0)
        code = m_engine.execute("PRAGMA synchronous=OFF");
    // What only serves searching is made when all rows are there; the keys stand guard from the first on.
    for (const TableDef* table : allTables())
        for (std::size_t i = 0; code == 0 && i < table->indexes.size(); ++i)
            if (!table->indexes[i].unique)
                code = m_engine.execute("DROP INDEX " + indexName(*table, i));
    return code == 0 ? succeed() : fail(code);
}

int AppDB::FinishFilling(std::uint32_t mark)
{
    if (const int status = beginWrite(); status != 0)
        return status;
    for (const TableDef* table : allTables())
        for (std::size_t i = 0; i < table->indexes.size(); ++i)
            if (!table->indexes[i].unique)
                if (const int code = m_engine.execute(createStatements(*table)[i + 1]); code != 0)
                    return fail(code);
    if (mark != 0)
        if (const int code = m_engine.setHeaderNumber(mark); code != 0)
            return fail(code);
    Commit();
    return LastStatus();
}

} // namespace suisui
