#include "booking/CarryForward.h"

#include <array>
#include <string_view>

#include "store/AppDB.h"
#include "store/Where.h"

namespace suisui {

namespace {

// What the movements take from a stock row or give to it, summed by stock row. Codes without one are left
// out, so that a text in them that is no number does no harm. The movements are read in the order of their
// table, which is quicker than one code after the other.
constexpr std::array<std::string_view, 3> sums{
    // received
    "SELECT ZaikoTB.rowid AS Item, -SumOf(InpTB.NyuSuu) AS Moved FROM InpTB NOT INDEXED "
    "CROSS JOIN ZaikoTB ON ZaikoTB.Code = InpTB.Code GROUP BY ZaikoTB.rowid",
    // shipped
    "SELECT ZaikoTB.rowid AS Item, SumOf(OutTB.SyuSuu) AS Moved FROM OutTB NOT INDEXED "
    "CROSS JOIN ZaikoTB ON ZaikoTB.Code = OutTB.Code GROUP BY ZaikoTB.rowid",
    // taken as a component
    "SELECT ZaikoTB.rowid AS Item, SumOf(Times(InpTB.NyuSuu, HSeihinTB.Suuryou)) AS Moved "
    "FROM HSeihinTB INNER JOIN InpTB ON InpTB.Code = HSeihinTB.Code "
    "INNER JOIN ZaikoTB ON ZaikoTB.Code = HSeihinTB.HSeihinCD GROUP BY ZaikoTB.rowid",
};

} // namespace

int carryForward(AppDB& db, const std::string& stamp, const std::function<void()>& stepDone)
{
    const std::string now = inQuotes(stamp);
    // One write for each stock row, however many kinds of movements it has.
    std::string statement = "UPDATE ZaikoTB SET KuriSuu = CStr(Plus(iif(UpdDate = " + now
                            + ", KuriSuu, ZaikoSuu), Movements.Moved)), UpdDate = " + now
                            + " FROM (SELECT Item, SumOf(Moved) AS Moved FROM (";
    for (std::size_t i = 0; i < sums.size(); ++i) {
        statement += i > 0 ? " UNION ALL " : "";
        statement += sums[i];
    }
    statement += ") GROUP BY Item) AS Movements WHERE Movements.Item = ZaikoTB.rowid";
    db.Execute(statement);
    if (db.LastStatus() != 0)
        return db.LastStatus();
    for (std::size_t i = 0; i < sums.size(); ++i)
        stepDone();
    db.Execute("UPDATE ZaikoTB SET KuriSuu = CStr(CDbl(ZaikoSuu)), UpdDate = " + now + " WHERE UpdDate <> "
               + now);
    if (db.LastStatus() == 0)
        stepDone();
    return db.LastStatus();
}

} // namespace suisui
