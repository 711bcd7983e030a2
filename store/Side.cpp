#include "store/Side.h"

#include "store/AppDB.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

template <typename Column> constexpr int at(Column column)
{
    return static_cast<int>(column);
}

const std::array tables{
    MovementTable{
        .table = inpTable,
        .columns = {.code = at(InpCol::Code),
                    .name = at(InpCol::Name),
                    .quantity = at(InpCol::NyuSuu),
                    .price = at(InpCol::NyuPrice),
                    .partnerCode = at(InpCol::NyuSakiCD),
                    .partnerName = at(InpCol::NysName),
                    .date = at(InpCol::NyuDate),
                    .time = at(InpCol::NyuTime),
                    .unit = at(InpCol::Unit),
                    .discount = at(InpCol::NyuNebiki),
                    .returned = {at(InpCol::Henkyaku), noColumn},
                    .staffCode = at(InpCol::TanCD),
                    .staffName = at(InpCol::TanName),
                    .remark = at(InpCol::Bikou),
                    .inpDate = at(InpCol::InpDate),
                    .updDate = at(InpCol::UpdDate)},
        .defaultQuantity = MasterCol::NyuSuu,
        .defaultPrice = MasterCol::NyuPrice,
        .stockSign = +1,
        .movesComponents = true,
        .returnsMoveStock = true,
        .rows = [](AppDB& db) -> RowSet& { return db.InpTbl(); },
        .master = [](AppDB& db) -> RowSet& { return db.MasterTbl(); },
    },
    MovementTable{
        .table = outTable,
        .columns = {.code = at(OutCol::Code),
                    .name = at(OutCol::Name),
                    .quantity = at(OutCol::SyuSuu),
                    .price = at(OutCol::SyuPrice),
                    .partnerCode = at(OutCol::SyuSakiCD),
                    .partnerName = at(OutCol::SysName),
                    .date = at(OutCol::SyuDate),
                    .time = at(OutCol::SyuTime),
                    .unit = at(OutCol::Unit),
                    .discount = at(OutCol::SyuNebiki),
                    .returned = {at(OutCol::RHenkyaku), at(OutCol::FHenkyaku)},
                    .staffCode = at(OutCol::TanCD),
                    .staffName = at(OutCol::TanName),
                    .remark = at(OutCol::Bikou),
                    .inpDate = at(OutCol::InpDate),
                    .updDate = at(OutCol::UpdDate)},
        .defaultQuantity = MasterCol::SyuSuu,
        .defaultPrice = MasterCol::SyuPrice,
        .stockSign = -1,
        .movesComponents = false,
        .returnsMoveStock = false,
        .rows = [](AppDB& db) -> RowSet& { return db.OutTbl(); },
        .master = [](AppDB& db) -> RowSet& { return db.MasterSyu(); },
    },
};

} // namespace

const MovementTable& movementTable(Side side)
{
    return tables.at(indexOf(side));
}

SqlText whereDated(const MovementTable& movements, std::string_view from, std::string_view to)
{
    const std::string date(movements.table.columns[static_cast<std::size_t>(movements.columns.date)]);
    return "WHERE " + date + " >= " + bound(from) + "  AND " + date + " <= " + bound(to);
}

double rowTotal(const MovementColumns& columns, const PackedRow& row)
{
    double returned = 0;
    for (const int column : columns.returned)
        if (column != noColumn)
            returned += numberOf(row.text(column));
    return (numberOf(row.text(columns.quantity)) - returned) * numberOf(row.text(columns.price))
           - numberOf(row.text(columns.discount));
}

} // namespace suisui
