// Filling the entry grid from the table to the first paint, against a bare select into vectors of strings
// plus the first paint of an empty view; beside it a QTableWidget filled by items.
#include <QApplication>
#include <QStyleFactory>
#include <QTableWidget>

#include <malloc.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "movement/MovementPage.h"
#include "store/AppIni.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::bench {

namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows bareSelect(const test::TempShop& shop)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_open_v2(shop.databaseFile().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK
        || sqlite3_prepare_v2(db, "SELECT * FROM InpTB ORDER BY NyuDate, NyuTime", -1, &statement, nullptr)
               != SQLITE_OK)
        std::abort();
    Rows rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::vector<std::string> row;
        row.reserve(17);
        for (int i = 0; i < 17; ++i)
            row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
}

/// Shows \a widget and waits until it has been painted.
void showPainted(QWidget& widget)
{
    widget.resize(1100, 700);
    widget.show();
    widget.repaint();
    QCoreApplication::processEvents();
}

double heldMegabytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1048576;
}

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
            AppDB db(shop.databaseFolder());
            if (db.Open("trnvik.mdb") != 0)
                std::abort();
            AppIni ini;
            test::TestClock clock;
            test::ScriptedMsgBox box;
            box.answers = {BoxAnswer::Yes};
            test::TestFrame frame;
            const double before = heldMegabytes();
            MovementPage page(Side::Receipt, {db, ini, clock, box, frame});
            page.setDefaultDates(QStringLiteral("20000101"), QStringLiteral("99991231"));
            program.add(timed([&] {
                page.cmdKensaku_Click();
                showPainted(page);
            }));
            held = heldMegabytes() - before;
            if (page.grid()->MaxRows() != state.range(0))
                std::abort();
        }
        Rows rows;
        bare.add(timed([&] {
            rows = bareSelect(shop);
            QTableView view;
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
BENCHMARK(GridFill)->Arg(25000)->Arg(100000)->Iterations(7)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
