// The stock tab: all goods to the first paint, the detail of all goods, and sorting by a heading, each
// against the simplest way to do the same.
#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTableView>

#include "benchmarks/BareSqlite.h"
#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Painted.h"
#include "lists/StockPage.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::bench {

namespace {

/// \a goods goods items with stock, and \a movements receipts and shipments spread over them.
void fillStock(const test::TempShop& shop, int goods, int movements)
{
    AppDB db(shop.databaseFolder());
    if (db.Open("trnvik.mdb") != DbStatus::Good)
        std::abort();
    const auto numbers = [](int count) {
        return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(count)
               + ") INSERT INTO ";
    };
    const std::string of = std::to_string(goods);
    db.Execute(numbers(goods) + "Master SELECT printf('49%011d',i),'見本の商品 '||(i*7919%" + of
               + "),'','1','1850','1','2480','袋','10','s','s' FROM n");
    db.Execute(numbers(goods)
               + "ZaikoTB SELECT printf('49%011d',i),CAST(i*31%997-20 AS TEXT),'3','s','s' FROM n");
    if (movements > 0) {
        const std::string code = "printf('49%011d',i*7919%" + of + "+1)";
        db.Execute(
            numbers(movements / 2) + "InpTB SELECT " + code
            + ",'品','',printf('%07d',i%50),printf('%07d',100+i%3),'101','東西食品','20260401','100000',"
              "'袋','0000000','0000001','01','山田','',printf('%014d',i),'' FROM n");
        db.Execute(
            numbers(movements / 2) + "OutTB SELECT " + code
            + ",'品','',printf('%07d',i%40),printf('%07d',200+i%3),'101','東西食品','20260401','100000',"
              "'袋','0000000','0000001','0000000','01','山田','','','',printf('%014d',i),'' FROM n");
    }
    if (db.LastStatus() != DbStatus::Good)
        std::abort();
    db.Commit();
}

struct Desk
{
    explicit Desk(const test::TempShop& shop) : db(shop.databaseFolder())
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
        frame.tab = Tab::Stock;
        page.setCaptions(ini);
    }
    void searchAll()
    {
        page.barCodeField()->setText(QStringLiteral("*"));
        box.answers = {BoxAnswer::Yes};
        int key = 13;
        page.barCode_KeyPress(key);
    }

    AppDB db;
    AppIni ini;
    test::TestClock clock;
    test::ScriptedMsgBox box;
    test::TestFrame frame;
    StockPage page{Services{db, ini, clock, box, frame}};
};

void PatternSearch(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fillStock(shop, static_cast<int>(state.range(0)), 0);
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        {
            Desk desk(shop);
            program.add(timed([&] {
                desk.searchAll();
                showPainted(desk.page);
            }));
        }
        bare.add(timed([&] {
            BareSqlite db(shop.databaseFile());
            const Rows rows = BareSqlite::rows(db.prepared(
                "SELECT Z.Code, Name, NyuPrice, ZaikoSuu, KuriSuu, SyuPrice, Unit, Stock FROM ZaikoTB Z "
                "JOIN Master M ON M.Code = Z.Code WHERE ZaikoSuu <> '0' ORDER BY Z.Code"));
            RowsModel model(rows);
            QTableView view;
            view.setModel(&model);
            showPainted(view);
        }));
    }
    report(state, program, bare);
}
BENCHMARK(PatternSearch)->Arg(5000)->Arg(20000)->Iterations(9)->Unit(benchmark::kMillisecond);

void DetailView(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fillStock(shop, 5000, 100000);
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        Desk desk(shop);
        desk.searchAll();
        showPainted(desk.page);
        desk.box.answers = {BoxAnswer::Yes};
        program.add(timed([&] {
            desk.page.findChild<QRadioButton*>(QStringLiteral("optZDetail"))->setChecked(true);
            desk.page.repaint();
        }));
        if (desk.page.grid()->MaxRows() < 5000 * 7)
            std::abort();
        bare.add(timed([&] {
            BareSqlite db(shop.databaseFile());
            const Rows rows = BareSqlite::rows(db.prepared(
                "SELECT Code, 1, Price, Unit, SUM(Q), SUM(D), SUM(Q * CAST(Price AS REAL) - D) FROM "
                "(SELECT Code, NyuPrice AS Price, Unit, CAST(NyuSuu AS REAL) - CAST(Henkyaku AS REAL) AS Q, "
                "CAST(NyuNebiki AS REAL) AS D FROM InpTB) GROUP BY Code, Price, Unit UNION ALL "
                "SELECT Code, 2, Price, Unit, SUM(Q), SUM(D), SUM(Q * CAST(Price AS REAL) - D) FROM "
                "(SELECT Code, SyuPrice AS Price, Unit, CAST(SyuSuu AS REAL) AS Q, CAST(SyuNebiki AS REAL) "
                "AS D "
                "FROM OutTB) GROUP BY Code, Price, Unit ORDER BY 1, 2, 3, 4"));
            benchmark::DoNotOptimize(rows.size());
        }));
    }
    report(state, program, bare);
}
BENCHMARK(DetailView)->Iterations(9)->Unit(benchmark::kMillisecond);

void HeadingSort(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fillStock(shop, 20000, 0);
    Samples first;
    Samples program;
    Samples bare;
    int col = 3;
    for ([[maybe_unused]] auto turn : state) {
        Desk desk(shop);
        desk.searchAll();
        showPainted(desk.page);
        first.add(timed([&] { Q_EMIT desk.page.grid()->HeadingClick(2); })); // which also makes the rows
        col = col == 3 ? 2 : 3;
        struct Key
        {
            double figure;
            std::string code;
            std::string name;
        };
        std::vector<Key> keys;
        for (int row = 1; row <= desk.page.grid()->MaxRows(); ++row)
            keys.push_back({numberOf(desk.page.grid()->text(3, row)),
                            std::string(desk.page.grid()->text(1, row)),
                            std::string(desk.page.grid()->text(2, row))});
        program.add(timed([&] { Q_EMIT desk.page.grid()->HeadingClick(col); }));
        bare.add(timed([&] {
            std::stable_sort(keys.begin(), keys.end(), [col](const Key& a, const Key& b) {
                if (col == 3)
                    return a.figure != b.figure ? a.figure > b.figure : a.code < b.code;
                return a.name != b.name ? a.name < b.name : a.code < b.code;
            });
        }));
    }
    report(state, program, bare);
    state.counters["first_sort_ms"] = first.median() * 1e3;
}
BENCHMARK(HeadingSort)->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
