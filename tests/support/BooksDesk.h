// A shop's books on a desk without a screen: movements, stock and components come in, and all rows can be
// read.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/AppDB.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

struct BooksDesk
{
    BooksDesk() : BooksDesk(std::make_unique<TempShop>()) {}
    /// \a ownShop may be on a disk.
    explicit BooksDesk(std::unique_ptr<TempShop> ownShop)
        : shop(std::move(ownShop)),
          db(shop->databaseFolder(), [this](const std::string& text) { storeSaid.push_back(text); })
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
    }

    void receipt(const std::string& code, const std::string& quantity, const std::string& date,
                 const std::string& stamp, const std::string& remark = {},
                 const std::string& returned = "0000000")
    {
        shop->add(inpTable, {code, "品名", "ヒン", quantity, "0000100", "101", "東商店", date, "090000", "個",
                             "0000000", returned, "01", "山田", remark, stamp, stamp});
    }
    void shipment(const std::string& code, const std::string& quantity, const std::string& date,
                  const std::string& stamp, const std::string& remark = {})
    {
        shop->add(outTable, {code,   "品名",   "ヒン",     quantity,  "0000150", "201",     "西商店",
                             date,   "100000", "個",       "0000000", "0000000", "0000000", "01",
                             "山田", remark,   "20260101", "120000",  stamp,     stamp});
    }
    void stock(const std::string& code, const std::string& figure, const std::string& carried)
    {
        shop->add(zaikoTable, {code, figure, carried, "20260101000000", "20260101000000"});
    }
    void component(const std::string& product, const std::string& part, const std::string& quantity)
    {
        shop->add(hseihinTable, {product, "", part, quantity});
    }

    /// All rows of a table in an order of their own, whatever order they came in.
    [[nodiscard]] std::vector<std::string> rows(const std::string& table) const
    {
        return shop->query("SELECT * FROM " + table + " ORDER BY 1, 2, 3, 4, 5");
    }
    [[nodiscard]] std::vector<std::string> movements() const
    {
        std::vector<std::string> all = shop->query("SELECT * FROM InpTB ORDER BY InpDate, Code");
        const std::vector<std::string> out = shop->query("SELECT * FROM OutTB ORDER BY InpDate, Code");
        all.insert(all.end(), out.begin(), out.end());
        return all;
    }
    /// Code and figure of a column of the stock.
    [[nodiscard]] std::vector<std::string> stockColumn(const std::string& column) const
    {
        return shop->query("SELECT Code, " + column + " FROM ZaikoTB ORDER BY Code");
    }

    std::unique_ptr<TempShop> shop;
    std::vector<std::string> storeSaid; ///< the boxes that the store itself would show
    AppDB db;
};

} // namespace suisui::test
