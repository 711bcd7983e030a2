#include "lists/ListFilter.h"

#include "frame/support/PageTools.h"

namespace suisui {

namespace {

/// 'text', with quotes in it doubled: codes of the master data may hold anything.
std::string quoted(std::string_view text)
{
    std::string result = "'";
    for (const char c : text) {
        result += c;
        if (c == '\'')
            result += c;
    }
    return result += '\'';
}

std::string goodsCondition(const ListFilter& filter)
{
    if (filter.goodsCaption.contains(u'*') || filter.goodsCaption.contains(u'?'))
        return " AND Code Like " + quoted(filter.chosenCode);
    if (filter.goodsCaption == allChoices)
        return " AND Code Like '*'";
    return " AND Code = " + quoted(filter.chosenCode);
}

} // namespace

std::string whereText(const ListSide& side, const ListFilter& filter)
{
    const std::string date(side.dateColumn);
    std::string where = "WHERE " + date + " >= " + quoted(filter.from);
    where += "  AND " + date + " <= " + quoted(filter.to);
    where += goodsCondition(filter);
    if (filter.partner)
        where += " AND " + std::string(side.partnerColumn) + " = " + quoted(*filter.partner);
    if (filter.staff)
        where += " AND TanCD = " + quoted(*filter.staff);
    return where;
}

} // namespace suisui
