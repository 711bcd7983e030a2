// Saving a period and loading it back, against bare SQLite that attaches the history file and moves the rows
// with INSERT..SELECT and DELETE; and the carry-forward, against one grouped query joined in. Also the
// longest time that events have to wait during a save. On a disk, with the wait window, as in a shop.
#include <filesystem>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>

#include <sqlite3.h>

#include "benchmarks/BareSqlite.h"
#include "benchmarks/Measure.h"
#include "frame/support/frm_Wait.h"
#include "booking/CarryForward.h"
#include "tests/support/HistoryDesk.h"

namespace suisui::bench {

namespace {

constexpr int goods = 5000;
const Period period{"20000101", "20251231"};
constexpr int perDay = 40;
const std::string stamp = "20260401090000";

/// The wait window as the program shows it.
class WaitingFrame final : public test::TestFrame
{
public:
    void showWait(const QString& tag, int maximum) override { m_wait.load(tag, maximum); }
    void setWaitProgress(int value) override { m_wait.setProgress(value); }
    void unloadWait() override { m_wait.unload(); }

private:
    frm_Wait m_wait;
};

/// \a rows movements of 5,000 goods up to the end of 2025 in the order of their time, every second one a
/// shipment, and a tenth as many of later days, which stay when the others are saved.
void fill(AppDB& db, int rows)
{
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<"
                                + std::to_string(rows + rows / 10) + ") ";
    const std::string code = "printf('49%011d', i*7919%" + std::to_string(goods) + ")";
    const std::string when = "strftime('%Y%m%d',julianday('2025-12-31')+(i-" + std::to_string(rows) + ")/"
                             + std::to_string(perDay) + "),printf('%06d',i%86400)";
    const std::string stamps = "printf('%014d',i),printf('%014d',i)";
    const std::string statements[] = {
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(goods)
            + ") INSERT INTO ZaikoTB SELECT printf('49%011d', "
              "i-1),'100','0','20000101000000','20000101000000' FROM n",
        "INSERT INTO HSeihinTB SELECT Code,'',printf('49%011d',rowid),'2','','','' FROM ZaikoTB WHERE "
        "rowid%50=0",
        numbers + "INSERT INTO InpTB SELECT " + code
            + ",'見本の商品 5kg','ミホン','0000001','0001850','101','東西食品株式会社'," + when
            + ",'袋','0000000','0000000','01','山田　太郎','備考の欄です'," + stamps + " FROM n WHERE i%2=0",
        numbers + "INSERT INTO OutTB SELECT " + code
            + ",'見本の商品 5kg','ミホン','0000001','0002480','201','南北商店'," + when
            + ",'袋','0000000','0000000','0000000','01','山田　太郎','備考の欄です','',''," + stamps
            + " FROM n WHERE i%2=1"};
    for (const std::string& statement : statements) {
        db.Execute(statement);
        if (db.LastStatus() != DbStatus::Good)
            std::abort();
    }
    db.Commit();
}

/// A second, bare connection, which flushes like the program's.
class Bare
{
public:
    Bare(const std::string& file, const std::vector<std::string>& durable)
    {
        if (sqlite3_open(file.c_str(), &m_db) != SQLITE_OK)
            std::abort();
        for (const std::string& statement : durable)
            run(statement);
    }
    ~Bare() { sqlite3_close(m_db); }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    void run(const std::string& sql)
    {
        if (sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            std::abort();
    }

private:
    sqlite3* m_db = nullptr;
};

/// The moves on bare SQLite: every row of \a from goes to \a to.
void moveBare(const std::vector<std::string>& durable, const std::string& working, const std::string& file,
              const char* from, const char* to)
{
    Bare bare(working, durable);
    bare.run("ATTACH '" + file + "' AS history");
    bare.run("BEGIN IMMEDIATE");
    for (const char* const table : {"InpTB", "OutTB"}) {
        const std::string source = std::string(from) + "." + table;
        const std::string inPeriod =
            " WHERE " + std::string(table == std::string("InpTB") ? "NyuDate" : "SyuDate") + "<='20251231'";
        bare.run("INSERT INTO " + std::string(to) + "." + table + " SELECT * FROM " + source + inPeriod);
        if (std::string(from) == "main") // the history file is deleted as a whole
            bare.run("DELETE FROM " + source + inPeriod);
    }
    bare.run("COMMIT");
}

/// Measures the longest time between two rounds of events during its life.
class EventGap
{
public:
    EventGap()
    {
        m_tick.setInterval(1);
        QObject::connect(&m_tick, &QTimer::timeout, [this] {
            m_longest = std::max(m_longest, m_since.nsecsElapsed());
            m_since.restart();
        });
        m_tick.start();
        m_since.start();
    }
    [[nodiscard]] double longestMs()
    {
        m_longest = std::max(m_longest, m_since.nsecsElapsed());
        return static_cast<double>(m_longest) / 1e6;
    }

private:
    QTimer m_tick;
    QElapsedTimer m_since;
    qint64 m_longest = 0;
};

struct Desk
{
    explicit Desk(int rows) : desk(std::make_unique<test::TempShop>(QDir::tempPath()))
    {
        fill(desk.db, rows);
    }

    test::HistoryDesk desk;
    WaitingFrame frame;
};

void require(bool good)
{
    if (!good)
        std::abort();
}

void SaveAndLoad(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    Desk shop(rows);
    RirekiDB history(Services{shop.desk.db, shop.desk.ini, shop.desk.clock, shop.desk.box, shop.frame},
                     shop.desk.prompts, shop.desk.emptyDatabase());
    history.setHistoryExt(QStringLiteral("hst"));
    const QString name = historyFileName(period, QStringLiteral("hst"));
    const QString path = shop.desk.folder() + u'/' + name;
    // The same books for the bare moves, untouched by the program.
    const std::string bareFile = shop.desk.shop->databaseFolder() + "/bare.mdb";
    const std::string bareHistory = (shop.desk.folder() + QStringLiteral("/bare.hst")).toStdString();
    std::filesystem::copy_file(shop.desk.shop->databaseFile(), bareFile);
    const std::vector<std::string> durable = asDurable(bareFile);

    Samples save;
    Samples load;
    Samples bareSave;
    Samples bareLoad;
    double gap = 0;
    for ([[maybe_unused]] auto turn : state) {
        shop.desk.prompts.periods = {period};
        shop.desk.prompts.places = {{shop.desk.folder(), {}, name},
                                    {shop.desk.folder(), path, name.left(name.lastIndexOf(u'.'))}};
        save.add(timed([&] { require(history.save() == RirekiDB::Done); }));
        bareSave.add(timed([&] {
            std::filesystem::copy_file(shop.desk.emptyDatabase(), bareHistory);
            moveBare(durable, bareFile, bareHistory, "main", "history");
        }));
        shop.desk.clock.letPass(std::chrono::seconds(1));
        load.add(timed([&] { require(history.load() == RirekiDB::Done); }));
        bareLoad.add(timed([&] {
            moveBare(durable, bareFile, bareHistory, "history", "main");
            std::filesystem::remove(bareHistory);
        }));
        shop.desk.clock.letPass(std::chrono::seconds(1));
        // Once more while watching the events, which takes time itself.
        shop.desk.prompts.periods = {period};
        shop.desk.prompts.places = {{shop.desk.folder(), {}, name},
                                    {shop.desk.folder(), path, name.left(name.lastIndexOf(u'.'))}};
        EventGap watch;
        require(history.save() == RirekiDB::Done);
        shop.desk.clock.letPass(std::chrono::seconds(1));
        require(history.load() == RirekiDB::Done);
        shop.desk.clock.letPass(std::chrono::seconds(1));
        gap = std::max(gap, watch.longestMs());
    }
    require(shop.desk.box.shown.empty());
    state.counters["save_ms"] = save.median() * 1e3;
    state.counters["save_ratio"] = save.median() / bareSave.median();
    state.counters["load_ms"] = load.median() * 1e3;
    state.counters["load_ratio"] = load.median() / bareLoad.median();
    state.counters["event_gap_ms"] = gap;
}
BENCHMARK(SaveAndLoad)->Arg(25000)->Arg(100000)->Iterations(5)->Unit(benchmark::kMillisecond);

void CarryForward(benchmark::State& state)
{
    Desk shop(static_cast<int>(state.range(0)));
    const std::string working = shop.desk.shop->databaseFile();
    const std::vector<std::string> durable = asDurable(working);
    Samples program;
    Samples baseline;
    for ([[maybe_unused]] auto turn : state) {
        program.add(timed([&] {
            require(carryForward(shop.desk.db, stamp, [] {}) == DbStatus::Good);
            shop.desk.db.Commit();
        }));
        shop.desk.db.Execute("UPDATE ZaikoTB SET UpdDate=''");
        shop.desk.db.Commit();
        Bare bare(working, durable);
        baseline.add(timed([&] {
            bare.run(
                "UPDATE ZaikoTB SET KuriSuu=ZaikoSuu+m.n, UpdDate='x' FROM (SELECT Code, SUM(q) n FROM ("
                "SELECT Code, -CAST(NyuSuu AS REAL) q FROM InpTB UNION ALL "
                "SELECT Code, CAST(SyuSuu AS REAL) FROM OutTB UNION ALL "
                "SELECT h.HSeihinCD, CAST(i.NyuSuu AS REAL)*CAST(h.Suuryou AS REAL) FROM HSeihinTB h JOIN "
                "InpTB i ON i.Code=h.Code) GROUP BY Code) m WHERE m.Code=ZaikoTB.Code");
        }));
    }
    report(state, program, baseline);
}
BENCHMARK(CarryForward)->Arg(100000)->Iterations(9)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
