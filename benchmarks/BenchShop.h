// Databases of a given size for the benchmarks.
#pragma once

#include <string>

#include "tests/support/TempShop.h"

namespace suisui::bench {

inline constexpr const char* code = "4901234567894";

/// Fills \a shop with one goods item and \a rows receipts of it, ten a day from the year 2000 on.
inline void fill(const test::TempShop& shop, int rows)
{
    shop.add(masterTable,
             {code, "見本の商品 5kg", "ミホンノショウヒン", "1", "1850", "1", "2480", "袋", "10"});
    shop.add(zaikoTable, {code, "0", "0", "20000101000000", "20000101000000"});
    AppDB db(shop.databaseFolder());
    if (db.Open("trnvik.mdb") != DbStatus::Good)
        std::abort();
    db.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(rows)
        + ") INSERT INTO InpTB SELECT '" + code
        + "','見本の商品 5kg','','0000001','0001850','101','東西食品株式会社',"
          "strftime('%Y%m%d',julianday('2000-01-01')+i/10),printf('%06d',i%86400),'袋','0000000','0000000',"
          "'01','山田　太郎','備考の欄です',printf('%014d',i),printf('%014d',i) FROM n WHERE i<="
        + std::to_string(rows));
    if (db.LastStatus() != DbStatus::Good)
        std::abort();
    db.Commit();
}

} // namespace suisui::bench
