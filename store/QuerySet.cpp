#include "store/QuerySet.h"

#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/Where.h"

namespace suisui {

const QueryDef zaikoViewQuery{.select =
                                  "SELECT 0, ZaikoTB.Code, Master.Name, Master.NyuPrice, ZaikoTB.ZaikoSuu, "
                                  "ZaikoTB.KuriSuu, Master.SyuPrice, Master.Unit, Master.Stock "
                                  "FROM ZaikoTB INNER JOIN Master ON Master.Code = ZaikoTB.Code ",
                              .groupBy = "",
                              .defaultOrder = "",
                              .columns = static_cast<int>(ZaikoViewCol::Columns),
                              .keepRowsFlag = true};

// Rows of one code with the same price and unit are adjacent, compared to the letter, since the reader finds
// its groups by comparing texts.
const QueryDef nyuViewQuery{
    .select = "SELECT 0, NyuPrice, NyuSuu, Unit, NyuNebiki, Henkyaku, Code FROM InpTB ",
    .groupBy = "",
    .defaultOrder = " ORDER BY Code, NyuPrice COLLATE BINARY, Unit COLLATE BINARY, rowid",
    .columns = static_cast<int>(NyuViewCol::Columns)};

// The quantity is what left the stock: what customers return never comes back to it.
const QueryDef syuViewQuery{.select = "SELECT 0, SyuPrice, SyuSuu, Unit, SyuNebiki, Code FROM OutTB ",
                            .groupBy = "",
                            .defaultOrder =
                                " ORDER BY Code, SyuPrice COLLATE BINARY, Unit COLLATE BINARY, rowid",
                            .columns = static_cast<int>(SyuViewCol::Columns)};

// One row for each goods item, price and unit, whatever the item was called at the time.
const QueryDef nyuSumQuery{
    .select = "SELECT 0, Code, MAX(Name) COLLATE NOCASE AS Name, NyuPrice, Unit, "
              "CStr(SUM((CDbl(NyuSuu) - CDbl(Henkyaku)) * CDbl(NyuPrice) - CDbl(NyuNebiki))), "
              "CStr(SUM(CDbl(NyuNebiki))), CStr(SUM(CDbl(Henkyaku))), CStr(SUM(CDbl(NyuSuu))) FROM InpTB ",
    .groupBy = " GROUP BY Code, NyuPrice, Unit",
    .defaultOrder = "",
    .columns = static_cast<int>(NyuSumCol::Columns)};

const QueryDef syuSumQuery{
    .select = "SELECT 0, Code, MAX(Name) COLLATE NOCASE AS Name, SyuPrice, Unit, CStr(SUM(CDbl(SyuNebiki))), "
              "CStr(SUM(CDbl(RHenkyaku))), CStr(SUM(CDbl(FHenkyaku))), "
              "CStr(SUM((CDbl(SyuSuu) - (CDbl(RHenkyaku) + CDbl(FHenkyaku))) * CDbl(SyuPrice) "
              "- CDbl(SyuNebiki))), CStr(SUM(CDbl(SyuSuu))) FROM OutTB ",
    .groupBy = " GROUP BY Code, SyuPrice, Unit",
    .defaultOrder = "",
    .columns = static_cast<int>(SyuSumCol::Columns)};

const PackedRow& QuerySet::packed(int row) const
{
    if (row < 1 || row > Count())
        throw RunTimeError(RunTimeError::SubscriptOutOfRange,
                           "row " + std::to_string(row) + " of a selection");
    return m_rows[static_cast<std::size_t>(row - 1)];
}

int QuerySet::Select(const SqlText& where, std::string_view order, std::string_view mode)
{
    const bool add = mode == "1" && (!m_query.keepRowsFlag || m_keepRows);
    if (!add)
        Clear();
    const std::size_t before = m_rows.size();
    SqlText sql(m_query.select);
    sql += where;
    sql += m_query.groupBy;
    if (!order.empty())
        sql += order;
    else if (!holdsOrder(where.text()))
        sql += m_query.defaultOrder;
    const int code = m_db.m_engine.select(
        sql, [this](std::int64_t, std::span<const std::string_view> texts) { m_rows.emplace_back(texts); });
    if (code != 0) {
        m_rows.resize(before);
        m_db.failRead(code);
        return selectionFailed;
    }
    return Count();
}

} // namespace suisui
