// Copying rows from one database to another, and filling a new file with them.
#include "store/AppDB.h"

#include <vector>

#include "store/ArrivingRows.h"

namespace suisui {

namespace {

std::string insertInto(const TableDef& table)
{
    std::string names;
    for (const std::string_view column : table.columns) {
        names += names.empty() ? "" : ",";
        names += column;
    }
    // A key that is there already is skipped; nothing else can be wrong with a row of texts.
    return "INSERT OR IGNORE INTO " + std::string(table.name) + " (" + names + ")";
}

/// Whether the text could be put between single quotes as it is.
bool canBeQuoted(std::string_view text)
{
    bool can = true;
    for (const char c : text)
        can &= c != '\'' && c != '\0';
    return can;
}

/// The rows of a cursor, beginning with the current one.
class RowsOfCursor final : public ArrivingRows
{
public:
    explicit RowsOfCursor(Recordset& rows) : m_rows(rows), m_texts(static_cast<std::size_t>(rows.columns()))
    {
        take();
    }

    [[nodiscard]] int columns() const override { return static_cast<int>(m_texts.size()); }
    [[nodiscard]] bool atEnd() const override { return m_rows.atEof(); }
    [[nodiscard]] bool advance() override
    {
        m_rows.MoveNext();
        take();
        return !m_refused && m_rows.status() == DbStatus::Good;
    }
    [[nodiscard]] std::string_view text(int column) const override
    {
        return m_texts[static_cast<std::size_t>(column)];
    }
    /// Whether the current row, or one before, holds a quote or a NUL.
    [[nodiscard]] bool refused() const { return m_refused; }

private:
    void take()
    {
        if (m_rows.atEof())
            return;
        for (std::size_t i = 0; i < m_texts.size(); ++i) {
            m_texts[i] = m_rows.text(static_cast<int>(i));
            m_refused |= !canBeQuoted(m_texts[i]);
        }
    }

    Recordset& m_rows;
    std::vector<std::string_view> m_texts;
    bool m_refused = false;
};

} // namespace

DbStatus AppDB::copyRows(AppDB& source, const TableDef& table, std::int64_t& added)
{
    added = 0;
    ShowErrors(false);
    const DbStatus status = copyCursor(source, table, added);
    source.CloseRecordset();
    if (status != DbStatus::Good)
        Rollback();
    else
        ShowErrors(true);
    return status;
}

DbStatus AppDB::copyCursor(AppDB& source, const TableDef& table, std::int64_t& added)
{
    Recordset& rows = source.recordset();
    if (!rows.atEof() && rows.columns() != table.columnCount())
        return failOwn("the rows have not the columns of " + std::string(table.name));
    if (const DbStatus status = beginWrite(); status != DbStatus::Good)
        return status;
    int code = 0;
    bool refused = false;
    if (!rows.atEof()) {
        RowsOfCursor arriving(rows);
        if (!arriving.refused())
            code = m_engine.insertArriving(insertInto(table), arriving);
        refused = arriving.refused();
        added = code == 0 && !refused ? m_engine.changes() : 0;
    }
    if (refused)
        return failOwn("a quote in a row of " + std::string(table.name));
    if (rows.status() != DbStatus::Good) {
        source.failRead(rows.m_engineCode);
        return failOwn("a row of " + std::string(table.name) + " cannot be read");
    }
    return code == 0 ? succeed() : fail(code);
}

DbStatus AppDB::OpenForFilling(std::string_view file)
{
    if (const DbStatus status = Open(file); status != DbStatus::Good)
        return status;
    // One flush at the end in place of one at each step.
    int code = m_engine.execute("PRAGMA journal_mode=MEMORY");
    if (code == 0)
        code = m_engine.execute("PRAGMA synchronous=OFF");
    // Indexes that only serve searching are made when all rows are there; the unique ones are checked
    // meanwhile.
    for (const TableDef* table : allTables())
        for (std::size_t i = 0; code == 0 && i < table->indexes.size(); ++i)
            if (!table->indexes[i].unique)
                code = m_engine.execute("DROP INDEX " + indexName(*table, i));
    return code == 0 ? succeed() : fail(code);
}

DbStatus AppDB::FinishFilling(std::uint32_t mark)
{
    if (const DbStatus status = beginWrite(); status != DbStatus::Good)
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
