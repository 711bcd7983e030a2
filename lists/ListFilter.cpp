#include "lists/ListFilter.h"

#include "frame/support/PageTools.h"
#include "store/Side.h"

namespace suisui {

namespace {

SqlText goodsCondition(const ListFilter& filter)
{
    if (filter.goodsCaption.contains(u'*') || filter.goodsCaption.contains(u'?'))
        return " AND Code Like " + bound(filter.chosenCode);
    if (filter.goodsCaption == allChoices)
        return " AND Code Like '*'";
    return " AND Code = " + bound(filter.chosenCode);
}

} // namespace

SqlText whereText(const ListSide& side, const ListFilter& filter)
{
    SqlText where = whereDated(movementTable(side.side), filter.from, filter.to);
    where += goodsCondition(filter);
    if (filter.partner)
        where += " AND " + std::string(side.partnerColumn) + " = " + bound(*filter.partner);
    if (filter.staff)
        where += " AND TanCD = " + bound(*filter.staff);
    return where;
}

} // namespace suisui
