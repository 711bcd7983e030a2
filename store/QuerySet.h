// Rows of a selection that are not rows of a single table: goods with their stock, movements summed by goods.
// A buffer of rows indexed from 1 like that of a table, but read only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/PackedRow.h"
#include "store/SqlText.h"

namespace suisui {

class AppDB;

struct QueryDef
{
    std::string_view select;       ///< "SELECT ... FROM ...", up to the condition; first column 0
    std::string_view groupBy;      ///< between condition and order; may be empty
    std::string_view defaultOrder; ///< used when the caller gives none; may be empty
    int columns;
    bool keepRowsFlag = false; ///< Select with mode "1" adds only while the keep-rows flag is set
};

// Columns in order, as indexes for the row sets.
enum class ZaikoViewCol { Code, Name, NyuPrice, ZaikoSuu, KuriSuu, SyuPrice, Unit, Stock, Columns };
/// Code is last: only those who read the movements of many goods at once need it.
enum class NyuViewCol { NyuPrice, NyuSuu, Unit, NyuNebiki, Henkyaku, Code, Columns };
enum class SyuViewCol { SyuPrice, SyuSuu, Unit, SyuNebiki, Code, Columns };
enum class NyuSumCol { Code, Name, NyuPrice, Unit, Amount, NyuNebiki, Henkyaku, NyuSuu, Columns };
enum class SyuSumCol { Code, Name, SyuPrice, Unit, SyuNebiki, RHenkyaku, FHenkyaku, Amount, SyuSuu, Columns };

extern const QueryDef zaikoViewQuery;
extern const QueryDef nyuViewQuery;
extern const QueryDef syuViewQuery;
extern const QueryDef nyuSumQuery;
extern const QueryDef syuSumQuery;

class QuerySet
{
public:
    QuerySet(AppDB& db, const QueryDef& query) : m_db(db), m_query(query) {}
    QuerySet(const QuerySet&) = delete;
    QuerySet& operator=(const QuerySet&) = delete;

    /// Text of a column, counted from 0. Throws RunTimeError::SubscriptOutOfRange outside the buffer.
    [[nodiscard]] std::string_view get(int row, int column) const { return packed(row).text(column); }
    /// A whole row, which whoever shows it can keep.
    [[nodiscard]] const PackedRow& packed(int row) const;

    /// While set, Select with mode "1" adds to the buffer. Only for the selections that have the flag.
    void setKeepRows(bool keep) { m_keepRows = keep; }
    [[nodiscard]] int Count() const { return static_cast<int>(m_rows.size()); }
    void Clear() { m_rows.clear(); }
    /// Fills the buffer with what matches \a where ("WHERE ...", with any "ORDER BY ..." in it or in
    /// \a order). Returns Count, or a negative number when the selection failed; the buffer is then empty
    /// (mode "1": as it was).
    int Select(const SqlText& where, std::string_view order, std::string_view mode);
    int Select(const SqlText& where, std::string_view mode) { return Select(where, {}, mode); }

private:
    AppDB& m_db;
    const QueryDef& m_query;
    std::vector<PackedRow> m_rows;
    bool m_keepRows = false;
};

/// A query row set whose columns are named by \a Column.
template <typename Column> class QueryRec : public QuerySet
{
public:
    using QuerySet::get;
    using QuerySet::QuerySet;
    [[nodiscard]] std::string_view get(int row, Column column) const
    {
        return QuerySet::get(row, static_cast<int>(column));
    }
};

using ZaikoViewRec = QueryRec<ZaikoViewCol>;
using NyuViewRec = QueryRec<NyuViewCol>;
using SyuViewRec = QueryRec<SyuViewCol>;
using NyuSumRec = QueryRec<NyuSumCol>;
using SyuSumRec = QueryRec<SyuSumCol>;

} // namespace suisui
