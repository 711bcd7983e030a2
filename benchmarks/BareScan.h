// A scan's look-ups, update, insert and commit by hand on bare SQLite.
#pragma once

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/BareSqlite.h"

namespace suisui::bench {

/// A stamp that no other movement has.
inline std::string stampOfScan(int number)
{
    std::string digits = std::to_string(number);
    return "30000101" + std::string(6 - digits.size(), '0') + digits;
}

/// What follows the code in the row of a receipt, up to its two stamps.
inline constexpr std::string_view restOfRow[] = {
    "見本の商品 5kg", "",   "0000001", "0001850", "101", "東西食品株式会社", "30000101",
    "090000",         "袋", "0000000", "0000000", "01",  "山田　太郎",       ""};

class BareScan
{
public:
    explicit BareScan(const std::string& file) : m_durable(asDurable(file)), m_db(file)
    {
        m_db.run(m_durable);
    }

    void run(const std::string& code, int number)
    {
        const std::string stamp = stampOfScan(number);
        (void)BareSqlite::first(m_master, code);
        (void)BareSqlite::first(m_parts, code);
        const std::vector<std::string> stock = BareSqlite::first(m_stock, code);
        (void)BareSqlite::first(m_master, code);
        BareSqlite::step(m_begin);
        const std::string figure = std::to_string(std::stol(stock.at(2)) + 1);
        BareSqlite::bind(m_update, {stock[1], figure, stock[3], stock[4], stamp, stock[1], stock[2], stock[3],
                                    stock[4], stock[5]});
        sqlite3_bind_int64(m_update, 11, std::stoll(stock[0]));
        BareSqlite::step(m_update);
        std::vector<std::string> row{code};
        row.insert(row.end(), std::begin(restOfRow), std::end(restOfRow));
        row.push_back(stamp);
        row.push_back(stamp);
        BareSqlite::bind(m_insert, row);
        BareSqlite::step(m_insert);
        BareSqlite::step(m_commit);
    }

private:
    std::vector<std::string> m_durable; // read before this connection exists
    BareSqlite m_db;
    sqlite3_stmt* m_master = m_db.prepared("SELECT * FROM Master WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* m_parts = m_db.prepared("SELECT * FROM HSeihinTB WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* m_stock = m_db.prepared("SELECT rowid,* FROM ZaikoTB WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* m_begin = m_db.prepared("BEGIN IMMEDIATE");
    sqlite3_stmt* m_update =
        m_db.prepared("UPDATE ZaikoTB SET Code=?,ZaikoSuu=?,KuriSuu=?,InpDate=?,UpdDate=? WHERE "
                      "Code=? COLLATE BINARY AND ZaikoSuu=? COLLATE BINARY AND KuriSuu=? COLLATE BINARY AND "
                      "InpDate=? COLLATE BINARY AND UpdDate=? COLLATE BINARY AND rowid=?");
    sqlite3_stmt* m_insert = m_db.prepared("INSERT INTO InpTB VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    sqlite3_stmt* m_commit = m_db.prepared("COMMIT");
};

} // namespace suisui::bench
