#include "history/Sentinel.h"

#include "store/AppDB.h"

namespace suisui {

SentinelRow findSentinel(AppDB& db)
{
    const int count =
        db.RirekiTbl().Select("Where DateFrom = 'Trn' And DateTo = 'Vik'   And FileSize = '00000000' AND "
                              "FileUpdate = '00000000000000'");
    if (count < 0)
        return SentinelRow::Unreadable;
    return count == 0 ? SentinelRow::Missing : SentinelRow::Found;
}

DbStatus addSentinel(AppDB& db, const std::string& extension)
{
    RirekiRec& rows = db.RirekiTbl();
    rows.Clear();
    rows.NewRows(1);
    rows.set(1, RirekiCol::DateFrom, "Trn");
    rows.set(1, RirekiCol::DateTo, "Vik");
    rows.set(1, RirekiCol::KakuTyo, extension);
    rows.set(1, RirekiCol::FileSize, "00000000");
    rows.set(1, RirekiCol::FileUpdate, "00000000000000");
    return rows.InsertRow(1);
}

std::string sentinelExtension(AppDB& db)
{
    return std::string(db.RirekiTbl().get(1, RirekiCol::KakuTyo));
}

} // namespace suisui
