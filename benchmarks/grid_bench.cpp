// Filling the entry grid from the table to the first paint, against a bare select into vectors of strings
// plus the first paint of a plain view over them, and for comparison a QTableWidget filled by items. Also the
// cost of corrections: one cell, and a thousand rows written in one unit of work.
#include <QApplication>
#include <QStyleFactory>
#include <QTableWidget>

#include <malloc.h>
#include <sys/resource.h>

#include "benchmarks/BareSqlite.h"
#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Painted.h"
#include "frame/support/frm_Wait.h"
#include "movement/MovementPage.h"
#include "platform/core/DoEvents.h"
#include "store/AppIni.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::bench {

namespace {

Rows bareSelect(const test::TempShop& shop)
{
    BareSqlite db(shop.databaseFile());
    return BareSqlite::rows(db.prepared("SELECT * FROM InpTB ORDER BY NyuDate, NyuTime"));
}

double heldMegabytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1048576;
}

/// A page over \a shop whose period holds every row.
struct Desk
{
    Desk(const test::TempShop& shop, Frame& frame)
        : db(shop.databaseFolder()), page(Side::Receipt, {db, ini, clock, box, frame})
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
        box.answers = {BoxAnswer::Yes};
        page.setDefaultDates(QStringLiteral("20000101"), QStringLiteral("99991231"));
    }

    AppDB db;
    AppIni ini;
    test::TestClock clock;
    test::ScriptedMsgBox box;
    MovementPage page;
};

void GridFill(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fill(shop, static_cast<int>(state.range(0)));
    Samples program;
    Samples bare;
    Samples items;
    double held = 0;
    for ([[maybe_unused]] auto turn : state) {
        {
            test::TestFrame frame;
            const double before = heldMegabytes();
            Desk desk(shop, frame);
            program.add(timed([&] {
                desk.page.cmdKensaku_Click();
                showPainted(desk.page);
            }));
            held = heldMegabytes() - before;
            if (desk.page.grid()->MaxRows() != state.range(0))
                std::abort();
        }
        Rows rows;
        bare.add(timed([&] {
            rows = bareSelect(shop);
            RowsModel model(rows);
            QTableView view;
            view.setModel(&model);
            showPainted(view);
        }));
        items.add(timed([&] {
            QTableWidget widget(static_cast<int>(rows.size()), 17);
            for (std::size_t r = 0; r < rows.size(); ++r)
                for (std::size_t c = 0; c < rows[r].size(); ++c)
                    widget.setItem(static_cast<int>(r), static_cast<int>(c),
                                   new QTableWidgetItem(QString::fromStdString(rows[r][c])));
            showPainted(widget);
        }));
    }
    report(state, program, bare);
    state.counters["to_QTableWidget"] = program.median() / items.median();
    state.counters["held_MB"] = held;
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB_all"] = static_cast<double>(usage.ru_maxrss) / 1024;
}
BENCHMARK(GridFill)->Arg(1000)->Arg(25000)->Arg(100000)->Iterations(7)->Unit(benchmark::kMillisecond);

/// What the wait window adds to long work: opening it to its first paint, and closing it.
void WaitWindow(benchmark::State& state)
{
    frm_Wait wait;
    QWidget plain(nullptr, wait.windowFlags());
    plain.setAttribute(Qt::WA_ShowWithoutActivating);
    plain.resize(wait.sizeHint());
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        program.add(timed([&] {
            untilPainted(wait, [&] { wait.load(QString(), 1000); });
            wait.unload();
            DoEvents();
        }));
        bare.add(timed([&] {
            untilPainted(plain, [&] { plain.show(); });
            plain.close();
            DoEvents();
        }));
    }
    report(state, program, bare);
}
BENCHMARK(WaitWindow)->Iterations(41)->Unit(benchmark::kMillisecond);

/// Changes the quantity of every row and writes all in one unit of work.
void UpdateRows(benchmark::State& state)
{
    const test::TempShop programShop(QDir::tempPath());
    const test::TempShop bareShop(QDir::tempPath());
    fill(programShop, static_cast<int>(state.range(0)));
    fill(bareShop, static_cast<int>(state.range(0)));
    test::TestFrame frame;
    Desk desk(programShop, frame);
    desk.page.cmdKensaku_Click();
    frame.guardActive = true;
    const std::vector<std::string> durable = asDurable(bareShop.databaseFile());
    BareSqlite db(bareShop.databaseFile());
    db.run(durable);
    sqlite3_stmt* all = db.prepared("SELECT rowid,* FROM InpTB ORDER BY NyuDate DESC, NyuTime DESC");
    sqlite3_stmt* parts = db.prepared("SELECT * FROM HSeihinTB WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* stock = db.prepared("SELECT rowid,* FROM ZaikoTB WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* master = db.prepared("SELECT * FROM Master WHERE Code=? ORDER BY rowid");
    sqlite3_stmt* begin = db.prepared("BEGIN IMMEDIATE");
    sqlite3_stmt* post =
        db.prepared("UPDATE ZaikoTB SET Code=?,ZaikoSuu=?,KuriSuu=?,InpDate=?,UpdDate=? "
                    "WHERE rowid=? AND ZaikoSuu=? COLLATE BINARY AND UpdDate=? COLLATE BINARY");
    std::string sql = "UPDATE InpTB SET ";
    std::string asRead;
    for (const std::string_view column : inpTable.columns) {
        sql += std::string(asRead.empty() ? "" : ",") + std::string(column) + "=?";
        asRead += std::string(column) + "=? COLLATE BINARY AND ";
    }
    sql += " WHERE " + asRead + "rowid=?";
    sqlite3_stmt* write = db.prepared(sql.c_str());
    sqlite3_stmt* commit = db.prepared("COMMIT");
    Samples program;
    Samples bare;
    int turns = 0;
    for ([[maybe_unused]] auto turn : state) {
        const std::string quantity = std::to_string(10 + ++turns);
        for (int row = 1; row <= desk.page.grid()->MaxRows(); ++row) {
            desk.page.grid()->SetText(4, row, std::string_view(quantity));
            desk.page.cellChange(4, row);
        }
        program.add(timed([&] { desk.page.cmdKousin_Click(); }));
        if (frame.dirty(Side::Receipt))
            std::abort();

        const auto rows = BareSqlite::rows(all);
        const std::string stamp = "300001010000" + quantity;
        bare.add(timed([&] {
            BareSqlite::step(begin);
            for (const std::vector<std::string>& row : rows) {
                (void)BareSqlite::first(parts, row[1]);
                const std::vector<std::string> kept = BareSqlite::first(stock, row[1]);
                (void)BareSqlite::first(master, row[1]);
                BareSqlite::bind(post, {kept[1], std::to_string(std::stol(kept[2]) + 1), kept[3], kept[4],
                                        stamp, kept[0], kept[2], kept[5]});
                BareSqlite::step(post);
                std::vector<std::string> values(row.begin() + 1, row.end());
                values[3] = "00000" + quantity;
                values.insert(values.end(), row.begin() + 1, row.end());
                values.push_back(row[0]);
                BareSqlite::bind(write, values);
                BareSqlite::step(write);
            }
            BareSqlite::step(commit);
        }));
    }
    report(state, program, bare);
}
BENCHMARK(UpdateRows)->Arg(1000)->Iterations(9)->Unit(benchmark::kMillisecond);

/// One changed cell in a long grid.
void CellChange(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fill(shop, static_cast<int>(state.range(0)));
    test::TestFrame frame;
    Desk desk(shop, frame);
    desk.page.cmdKensaku_Click();
    showPainted(desk.page);
    Samples times;
    int row = 0;
    for ([[maybe_unused]] auto turn : state) {
        row = row % desk.page.grid()->MaxRows() + 1;
        desk.page.grid()->SetText(4, row, std::string_view("9"));
        times.add(timed([&] { desk.page.cellChange(4, row); }));
    }
    state.counters["median_us"] = times.median() * 1e6;
    state.counters["p99_us"] = times.at(0.99) * 1e6;
}
BENCHMARK(CellChange)->Arg(1000)->Arg(100000)->Iterations(1000)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
