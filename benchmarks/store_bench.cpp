// What one scan asks of the store, against the same statements prepared once on bare SQLite.
#include "benchmarks/BareSqlite.h"
#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "movement/ZaikoPost.h"
#include "platform/widgets/MsgBox.h"
#include "store/Where.h"

namespace suisui::bench {

namespace {

class NoBox final : public MsgBox
{
public:
    BoxAnswer show(const Box&) override { return BoxAnswer::Ok; }
};

std::string stampOfScan(int number)
{
    std::string digits = std::to_string(number);
    return "30000101" + std::string(6 - digits.size(), '0') + digits;
}

constexpr std::string_view columnsOfRow[] = {
    code,      "見本の商品 5kg",   "",         "0000001",    "0001850",
    "101",     "東西食品株式会社", "30000101", "090000",     "袋",
    "0000000", "0000000",          "01",       "山田　太郎", ""};

class ProgramScan
{
public:
    explicit ProgramScan(const test::TempShop& shop) : m_db(shop.databaseFolder())
    {
        if (m_db.Open("trnvik.mdb") != 0)
            std::abort();
    }

    void run(int number)
    {
        const std::string stamp = stampOfScan(number);
        const std::string where = whereCode(code);
        if (m_db.MasterTbl().Select(where) != 1 || m_db.HSeihinTbl().Select(where) != 0)
            std::abort();
        std::string name(m_db.MasterTbl().get(1, MasterCol::Name));
        if (ZaikoPost(m_db, m_box, code, "1", name, stamp) != PostResult::Posted)
            std::abort();
        m_db.MasterTbl().Clear();
        InpRec& rows = m_db.InpTbl();
        rows.NewRows(1);
        const int row = rows.Count();
        for (int column = 0; column < 15; ++column)
            rows.RowSet::set(row, column, columnsOfRow[column]);
        rows.set(row, InpCol::InpDate, stamp);
        rows.set(row, InpCol::UpdDate, stamp);
        if (rows.InsertRow(row) != 0)
            std::abort();
        m_db.Commit();
    }

private:
    AppDB m_db;
    NoBox m_box;
};

/// The same look-ups, update, insert and commit by hand.
class BareScan
{
public:
    explicit BareScan(const test::TempShop& shop) : m_db(shop.databaseFile()) {}

    void run(int number)
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
        std::vector<std::string> row(std::begin(columnsOfRow), std::end(columnsOfRow));
        row.push_back(stamp);
        row.push_back(stamp);
        BareSqlite::bind(m_insert, row);
        BareSqlite::step(m_insert);
        BareSqlite::step(m_commit);
    }

private:
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

void ScanStoreWork(benchmark::State& state)
{
    const test::TempShop programShop(QDir::tempPath());
    const test::TempShop bareShop(QDir::tempPath());
    fill(programShop, static_cast<int>(state.range(0)));
    fill(bareShop, static_cast<int>(state.range(0)));
    ProgramScan program(programShop);
    BareScan bare(bareShop);
    Samples programTimes;
    Samples bareTimes;
    int number = 0;
    for ([[maybe_unused]] auto turn : state) {
        ++number;
        programTimes.add(timed([&] { program.run(number); }));
        bareTimes.add(timed([&] { bare.run(number); }));
    }
    report(state, programTimes, bareTimes);
}
BENCHMARK(ScanStoreWork)->Arg(0)->Arg(25000)->Arg(250000)->Iterations(400)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

BENCHMARK_MAIN();
