#include "store/RowSet.h"

#include <map>

#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/Where.h"

namespace suisui {

namespace {

/// The fixed statements of a table, composed once.
struct Statements
{
    std::string select; ///< up to the condition
    std::string count;
    std::string insert;
    std::string update;
    std::string remove;
    std::string exists;
};

std::string joinedColumns(const TableDef& table, std::string_view before, std::string_view after,
                          std::string_view between)
{
    std::string text;
    for (const std::string_view column : table.columns) {
        if (!text.empty())
            text += between;
        text += before;
        text += column;
        text += after;
    }
    return text;
}

Statements composed(const TableDef& table)
{
    const std::string name(table.name);
    std::string marks;
    for (int i = 0; i < table.columnCount(); ++i)
        marks += i == 0 ? "?" : ",?";
    // A row counts as unchanged only while every text is the same to the last bit.
    const std::string asRead = joinedColumns(table, "", "=? COLLATE BINARY", " AND ") + " AND rowid=?";
    return {
        .select = "SELECT rowid," + joinedColumns(table, "", "", ",") + " FROM " + name + " ",
        .count = "SELECT COUNT(*) FROM " + name + " ",
        .insert =
            "INSERT INTO " + name + " (" + joinedColumns(table, "", "", ",") + ") VALUES (" + marks + ")",
        .update = "UPDATE " + name + " SET " + joinedColumns(table, "", "=?", ",") + " WHERE " + asRead,
        .remove = "DELETE FROM " + name + " WHERE " + asRead,
        .exists = "SELECT COUNT(*) FROM " + name + " WHERE rowid=?",
    };
}

const Statements& statementsOf(const TableDef& table)
{
    static const std::map<std::string_view, Statements> all = [] {
        std::map<std::string_view, Statements> made;
        for (const TableDef* each : allTables())
            made.emplace(each->name, composed(*each));
        return made;
    }();
    return all.at(table.name);
}

void append(std::vector<std::string_view>& values, const PackedRow& row)
{
    for (int column = 0; column < row.columns(); ++column)
        values.push_back(row.text(column));
}

} // namespace

/// One change of the buffer that the rollback of a unit of work undoes.
struct RowSet::Undo
{
    enum Kind { Restore, Reinsert } kind;
    int row;    ///< counted from 1, at the time of the change
    Row before; ///< row id, stored texts and state before; for Reinsert the whole row
};

RowSet::RowSet(AppDB& db, const TableDef& table) : m_db(db), m_table(table)
{
    m_db.enter(this);
}

RowSet::~RowSet()
{
    m_db.leave(this);
}

RowSet::Row& RowSet::rowAt(int row)
{
    if (row < 1 || row > Count())
        throw RunTimeError(RunTimeError::SubscriptOutOfRange,
                           "row " + std::to_string(row) + " of " + std::string(m_table.name));
    return m_rows[static_cast<std::size_t>(row - 1)];
}

const RowSet::Row& RowSet::rowAt(int row) const
{
    return const_cast<RowSet*>(this)->rowAt(row);
}

std::string_view RowSet::get(int row, int column) const
{
    return rowAt(row).texts.text(column);
}

void RowSet::set(int row, int column, std::string_view value)
{
    Row& target = rowAt(row);
    if (column < 0 || column >= m_table.columnCount())
        throw RunTimeError(RunTimeError::SubscriptOutOfRange, "column of " + std::string(m_table.name));
    if (target.rowId != 0 && !target.stored)
        target.stored = std::make_unique<PackedRow>(target.texts);
    target.texts.setText(column, value);
    if (target.state == ' ')
        target.state = 'U';
}

std::string_view RowSet::RowState(int row) const
{
    const char& state = rowAt(row).state;
    return state == ' ' ? std::string_view() : std::string_view(&state, 1);
}

int RowSet::Select(const SqlText& where, std::string_view mode)
{
    const bool add = mode == "1" && (!m_table.keepRowsFlag || m_keepRows);
    if (!add)
        Clear();
    const std::size_t before = m_rows.size();
    SqlText sql(statementsOf(m_table).select);
    sql += where;
    if (!holdsOrder(where.text()))
        sql += " ORDER BY rowid"; // the order of the table
    const int code =
        m_db.m_engine.select(sql, [this](std::int64_t rowId, std::span<const std::string_view> texts) {
            Row row;
            row.texts = PackedRow(texts);
            row.rowId = rowId;
            m_rows.push_back(std::move(row));
        });
    if (code != 0) {
        m_rows.resize(before);
        m_db.failRead(code);
        return selectionFailed;
    }
    return Count();
}

int RowSet::CountRows(const SqlText& where)
{
    std::int64_t count = 0;
    const int code = m_db.m_engine.selectNumber(statementsOf(m_table).count + where, count);
    if (code != 0) {
        m_db.failRead(code);
        return selectionFailed;
    }
    return static_cast<int>(count);
}

DbStatus RowSet::NewRows(int n)
{
    if (n < 0)
        return DbStatus::Failed;
    for (int i = 0; i < n; ++i) {
        Row row;
        row.texts = PackedRow(m_table.columnCount());
        row.state = 'N';
        m_rows.push_back(std::move(row));
    }
    return DbStatus::Good;
}

/// Remembers the row as it is now, in case the unit of work is rolled back.
void RowSet::remember(int row)
{
    const Row& now = rowAt(row);
    Undo undo{Undo::Restore, row, {}};
    undo.before.rowId = now.rowId;
    undo.before.state = now.state;
    if (now.stored)
        undo.before.stored = std::make_unique<PackedRow>(*now.stored);
    else if (now.rowId != 0)
        undo.before.stored = std::make_unique<PackedRow>(now.texts);
    m_undo.push_back(std::move(undo));
}

DbStatus RowSet::InsertRow(int row)
{
    Row& target = rowAt(row);
    if (const DbStatus status = m_db.beginWrite(); status != DbStatus::Good)
        return status;
    std::vector<std::string_view> values;
    append(values, target.texts);
    const int code = m_db.m_engine.executeBound(statementsOf(m_table).insert, values);
    if (code != 0)
        return m_db.fail(code);
    remember(row);
    target.rowId = m_db.m_engine.lastRowId();
    target.stored.reset();
    target.state = ' ';
    return m_db.succeed();
}

DbStatus RowSet::UpdateRow(int row)
{
    Row& target = rowAt(row);
    if (target.rowId == 0)
        return m_db.refuse();
    if (const DbStatus status = m_db.beginWrite(); status != DbStatus::Good)
        return status;
    std::vector<std::string_view> values;
    append(values, target.texts);
    append(values, target.stored ? *target.stored : target.texts);
    const int code = m_db.m_engine.executeBound(statementsOf(m_table).update, values, target.rowId);
    if (code != 0)
        return m_db.fail(code);
    if (m_db.m_engine.changes() == 0)
        return refuseRow(target);
    remember(row);
    target.stored.reset();
    target.state = ' ';
    return m_db.succeed();
}

DbStatus RowSet::DeleteRow(int row)
{
    Row& target = rowAt(row);
    if (target.rowId == 0)
        return m_db.refuse();
    if (const DbStatus status = m_db.beginWrite(); status != DbStatus::Good)
        return status;
    std::vector<std::string_view> values;
    append(values, target.stored ? *target.stored : target.texts);
    const int code = m_db.m_engine.executeBound(statementsOf(m_table).remove, values, target.rowId);
    if (code != 0)
        return m_db.fail(code);
    if (m_db.m_engine.changes() == 0)
        return refuseRow(target);
    m_undo.push_back({Undo::Reinsert, row, std::move(target)});
    m_rows.erase(m_rows.begin() + (row - 1));
    return m_db.succeed();
}

/// A row that is gone from its table is marked; one that is there was changed by somebody else.
DbStatus RowSet::refuseRow(Row& row)
{
    std::int64_t found = 0;
    if (m_db.m_engine.selectNumberBound(statementsOf(m_table).exists, row.rowId, found) == 0 && found == 0)
        row.state = 'D';
    return m_db.refuse();
}

DbStatus RowSet::WriteRows()
{
    for (int row = 1; row <= Count(); ++row) {
        const char state = rowAt(row).state;
        DbStatus status = DbStatus::Good;
        if (state == 'U')
            status = UpdateRow(row);
        else if (state == 'N')
            status = InsertRow(row);
        if (status != DbStatus::Good)
            return status;
    }
    return DbStatus::Good;
}

DbStatus RowSet::PrepareDelete(int row)
{
    (void)rowAt(row);
    return DbStatus::Good;
}

void RowSet::Clear()
{
    m_rows.clear();
    m_undo.clear(); // its rows are gone
}

void RowSet::unitCommitted()
{
    m_undo.clear();
}

void RowSet::unitRolledBack()
{
    for (auto undo = m_undo.rbegin(); undo != m_undo.rend(); ++undo) {
        if (undo->kind == Undo::Reinsert) {
            m_rows.insert(m_rows.begin() + (undo->row - 1), std::move(undo->before));
            continue;
        }
        Row& row = rowAt(undo->row);
        row.rowId = undo->before.rowId;
        row.stored = std::move(undo->before.stored);
        row.state = undo->before.state;
    }
    m_undo.clear();
}

} // namespace suisui
