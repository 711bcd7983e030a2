#include "booking/CarryForward.h"

#include "booking/StockEffect.h"
#include "store/AppDB.h"
#include "store/SqlText.h"

namespace suisui {

DbStatus carryForward(AppDB& db, const std::string& stamp, const std::function<void()>& stepDone)
{
    const SqlText now = bound(stamp);
    const std::vector<std::string> sums = movedByStockRow(Returns::LeftOut);
    // One write for each stock row, however many kinds of movements it has.
    SqlText statement = "UPDATE ZaikoTB SET KuriSuu = CStr(Plus(iif(UpdDate = " + now
                        + ", KuriSuu, ZaikoSuu), -Movements.Moved)), UpdDate = " + now
                        + " FROM (SELECT Item, SumOf(Moved) AS Moved FROM (";
    for (std::size_t i = 0; i < sums.size(); ++i) {
        statement += i > 0 ? " UNION ALL " : "";
        statement += sums[i];
    }
    statement += ") GROUP BY Item) AS Movements WHERE Movements.Item = ZaikoTB.rowid";
    db.Execute(statement);
    if (db.LastStatus() != DbStatus::Good)
        return db.LastStatus();
    for (std::size_t i = 0; i < sums.size(); ++i)
        stepDone();
    db.Execute("UPDATE ZaikoTB SET KuriSuu = CStr(CDbl(ZaikoSuu)), UpdDate = " + now + " WHERE UpdDate <> "
               + now);
    if (db.LastStatus() == DbStatus::Good)
        stepDone();
    return db.LastStatus();
}

} // namespace suisui
