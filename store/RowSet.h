// A buffer of rows of one table, indexed from 1, that lives as long as its connection. Column writes
// change the buffer only; InsertRow, UpdateRow, DeleteRow and WriteRows change the table and are pending
// until the connection's Commit. After a Rollback the rows are in the buffer as they were before the unit of
// work: a changed row is changed again, a new one unsaved again.
//
// A row remembers the table row that it was read from and its texts. UpdateRow and DeleteRow refuse a row
// that somebody else has changed or deleted since.
//
// A count is negative when the selection failed.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/DbStatus.h"
#include "store/PackedRow.h"
#include "store/Schema.h"
#include "store/SqlText.h"

namespace suisui {

class AppDB;

class RowSet
{
public:
    RowSet(AppDB& db, const TableDef& table);
    ~RowSet();
    RowSet(const RowSet&) = delete;
    RowSet& operator=(const RowSet&) = delete;

    [[nodiscard]] const TableDef& table() const { return m_table; }

    /// Text of a column, counted from 0. Throws RunTimeError::SubscriptOutOfRange outside the buffer.
    /// The view lives until the row is next written.
    [[nodiscard]] std::string_view get(int row, int column) const;
    /// A whole row, which whoever shows it can keep: later writes to the buffer do not change it.
    [[nodiscard]] const PackedRow& packed(int row) const { return rowAt(row).texts; }
    /// Changes the buffer; a clean row becomes "U".
    void set(int row, int column, std::string_view value);

    /// While set, Select with mode "1" adds to the buffer. Only for the tables that have the flag.
    void setKeepRows(bool keep) { m_keepRows = keep; }

    /// "" as stored, "U" changed in the buffer, "N" new and not yet inserted, "D" gone from the table.
    [[nodiscard]] std::string_view RowState(int row) const;
    [[nodiscard]] int Count() const { return static_cast<int>(m_rows.size()); }
    /// Fills the buffer with the rows that match \a where ("WHERE ... ORDER BY ...", or empty). Mode "1"
    /// adds to the rows, "" replaces them. Returns Count, or a negative number when the selection failed;
    /// the buffer is then empty (mode "1": as it was).
    int Select(const SqlText& where, std::string_view mode = {});
    /// Rows of the table that match; the buffer is not touched.
    [[nodiscard]] int CountRows(const SqlText& where);
    /// Adds \a n empty rows at the end.
    DbStatus NewRows(int n);
    [[nodiscard]] DbStatus InsertRow(int row);
    /// On success the row leaves the buffer and those after it move up by one.
    [[nodiscard]] DbStatus DeleteRow(int row);
    [[nodiscard]] DbStatus UpdateRow(int row);
    /// Updates the changed rows that came from the table and inserts the new ones.
    [[nodiscard]] DbStatus WriteRows();
    /// Called right before DeleteRow; nothing needs preparing here.
    DbStatus PrepareDelete(int row);
    void Clear();

private:
    friend class AppDB;

    struct Row
    {
        PackedRow texts;
        std::unique_ptr<PackedRow> stored; ///< as the table has it, while that differs from texts
        std::int64_t rowId = 0;            ///< 0: not in the table
        char state = ' ';                  ///< ' ', 'U', 'N', 'D'
    };
    struct Undo;

    void unitCommitted();
    void unitRolledBack();
    Row& rowAt(int row);
    [[nodiscard]] const Row& rowAt(int row) const;
    void remember(int row);
    DbStatus refuseRow(Row& row);

    AppDB& m_db;
    const TableDef& m_table;
    std::vector<Row> m_rows;
    std::vector<Undo> m_undo; ///< what to take back if the unit of work is rolled back
    bool m_keepRows = false;
};

/// A row set whose columns are named by \a Column.
template <typename Column> class TableRec : public RowSet
{
public:
    using RowSet::get;
    using RowSet::RowSet;
    using RowSet::set;
    [[nodiscard]] std::string_view get(int row, Column column) const
    {
        return RowSet::get(row, static_cast<int>(column));
    }
    void set(int row, Column column, std::string_view value)
    {
        RowSet::set(row, static_cast<int>(column), value);
    }
};

using InpRec = TableRec<InpCol>;
using OutRec = TableRec<OutCol>;
using ZaikoRec = TableRec<ZaikoCol>;
using MasterRec = TableRec<MasterCol>;
using HSeihinRec = TableRec<HSeihinCol>;
using KokyakuRec = TableRec<KokyakuCol>;
using TantouRec = TableRec<TantouCol>;
using RirekiRec = TableRec<RirekiCol>;

} // namespace suisui
