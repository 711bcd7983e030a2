// The stock tab with a few goods of every kind: low, none, negative, without a stock row.
#pragma once

#include "tests/lists/StockDesk.h"

namespace suisui::test {

class StockTest : public ::testing::Test, protected StockDesk
{
protected:
    void fillShop()
    {
        goods("B2", "消しゴム", "3", "10");
        goods("a1", "鉛筆", "1200", "5", "0", "1500", "2480", "本");
        goods("C3", "糊", "0", "2");
        goods("D4", "定規", "-7", "0");
        goods("E5", "倉庫にない", ""); // in the master only
    }

    /// Headings before a search, and after one in the order of the codes.
    static constexpr auto plain = "コード|名称|在庫数|入荷単価|出荷単価|値引き|合計|単位|最低在庫";
    static constexpr auto searched = "コード▲ |名称▽ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽";
    inline static const QColor yellow{255, 255, 0};
};

} // namespace suisui::test
