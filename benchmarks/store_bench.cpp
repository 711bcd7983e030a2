// The store's work for one scan, against the same statements prepared once on bare SQLite.
#include "benchmarks/BareScan.h"
#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "booking/ZaikoPost.h"
#include "platform/core/MsgBox.h"
#include "store/Where.h"

namespace suisui::bench {

namespace {

class NoBox final : public MsgBox
{
public:
    BoxAnswer show(const Box&) override { return BoxAnswer::Ok; }
};

class ProgramScan
{
public:
    explicit ProgramScan(const test::TempShop& shop) : m_db(shop.databaseFolder())
    {
        if (m_db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
    }

    void run(int number)
    {
        const std::string stamp = stampOfScan(number);
        const SqlText where = whereCode(code);
        if (m_db.MasterTbl().Select(where) != 1 || m_db.HSeihinTbl().Select(where) != 0)
            std::abort();
        std::string name(m_db.MasterTbl().get(1, MasterCol::Name));
        if (ZaikoPost(m_db, m_box, code, "1", name, stamp) != PostResult::Posted)
            std::abort();
        m_db.MasterTbl().Clear();
        InpRec& rows = m_db.InpTbl();
        rows.NewRows(1);
        const int row = rows.Count();
        rows.set(row, InpCol::Code, code);
        for (std::size_t i = 0; i < std::size(restOfRow); ++i)
            rows.RowSet::set(row, static_cast<int>(i) + 1, restOfRow[i]);
        rows.set(row, InpCol::InpDate, stamp);
        rows.set(row, InpCol::UpdDate, stamp);
        if (rows.InsertRow(row) != DbStatus::Good)
            std::abort();
        m_db.Commit();
    }

private:
    AppDB m_db;
    NoBox m_box;
};

void ScanStoreWork(benchmark::State& state)
{
    const test::TempShop programShop(QDir::tempPath());
    const test::TempShop bareShop(QDir::tempPath());
    fill(programShop, static_cast<int>(state.range(0)));
    fill(bareShop, static_cast<int>(state.range(0)));
    ProgramScan program(programShop);
    BareScan bare(bareShop.databaseFile());
    Samples programTimes;
    Samples bareTimes;
    int number = 0;
    for ([[maybe_unused]] auto turn : state) {
        ++number;
        programTimes.add(timed([&] { program.run(number); }));
        bareTimes.add(timed([&] { bare.run(code, number); }));
    }
    report(state, programTimes, bareTimes);
}
BENCHMARK(ScanStoreWork)->Arg(0)->Arg(25000)->Arg(250000)->Iterations(400)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

BENCHMARK_MAIN();
