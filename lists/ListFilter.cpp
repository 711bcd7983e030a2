#include "lists/ListFilter.h"

#include "frame/support/PageTools.h"
#include "store/Where.h"

namespace suisui {

namespace {

std::string goodsCondition(const ListFilter& filter)
{
    if (filter.goodsCaption.contains(u'*') || filter.goodsCaption.contains(u'?'))
        return " AND Code Like " + inQuotes(filter.chosenCode);
    if (filter.goodsCaption == allChoices)
        return " AND Code Like '*'";
    return " AND Code = " + inQuotes(filter.chosenCode);
}

} // namespace

std::string whereText(const ListSide& side, const ListFilter& filter)
{
    const std::string date(side.dateColumn);
    std::string where = "WHERE " + date + " >= " + inQuotes(filter.from);
    where += "  AND " + date + " <= " + inQuotes(filter.to);
    where += goodsCondition(filter);
    if (filter.partner)
        where += " AND " + std::string(side.partnerColumn) + " = " + inQuotes(*filter.partner);
    if (filter.staff)
        where += " AND TanCD = " + inQuotes(*filter.staff);
    return where;
}

} // namespace suisui
