// The movement lists: from the search to the first paint against a bare select into vectors of strings and
// their first paint in a plain view (and, beside it, that of a view without rows); a sort by a heading, with
// its subtotals, against a stable sort of the same keys; the slip file.
#include <QApplication>
#include <QCheckBox>
#include <QFileInfo>
#include <QStyleFactory>

#include <sqlite3.h>

#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Painted.h"
#include "lists/MovementListPage.h"
#include "lists/SlipFile.h"
#include "store/AppIni.h"
#include "store/FoldedCode.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::bench {

namespace {

/// Shipments of a shop: 2,000 goods, 60 customers, five persons, forty a day.
void fillShipments(const test::TempShop& shop, int rows)
{
    AppDB db(shop.databaseFolder());
    if (db.Open("trnvik.mdb") != DbStatus::Good)
        std::abort();
    db.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(rows)
               + ") INSERT INTO OutTB SELECT printf('49%011d',i*7919%2000),'見本の商品 '||(i*7919%2000),'',"
                 "printf('%07d',i*31%25+1),printf('%07d',100+i*7919%2000*3),printf('%03d',i*17%60),"
                 "'得意先 '||(i*17%60)||' 商店',strftime('%Y%m%d',julianday('2000-01-01')+i/40),"
                 "printf('%06d',i%86400),'袋','0000000','0000000','0000000','0'||(i%5),'担当 '||(i%5),"
                 "'備考の欄です','','',printf('%014d',i),printf('%014d',i) FROM n WHERE i<="
               + std::to_string(rows));
    if (db.LastStatus() != DbStatus::Good)
        std::abort();
    db.Commit();
}

Rows bareSelect(const test::TempShop& shop, const char* sql)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_open_v2(shop.databaseFile().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK
        || sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK)
        std::abort();
    const int columns = sqlite3_column_count(statement);
    Rows rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::vector<std::string> row;
        row.reserve(static_cast<std::size_t>(columns));
        for (int i = 0; i < columns; ++i)
            row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
}

/// A shipment list over a shop, with all days in its period.
struct List
{
    explicit List(const test::TempShop& shop) : db(shop.databaseFolder())
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
        box.answers = {BoxAnswer::Yes};
        page.setPartners({{"000", QStringLiteral("得意先")}});
        page.setStaff({{"00", QStringLiteral("担当")}});
        page.setDefaultDates(QStringLiteral("20000101"), QStringLiteral("99991231"));
    }

    AppDB db;
    AppIni ini;
    test::TestClock clock;
    test::ScriptedMsgBox box;
    test::TestFrame frame;
    MovementListPage page{Side::Shipment, Services{db, ini, clock, box, frame}};
};

void fillAgainst(benchmark::State& state, bool summed, const char* sql)
{
    const test::TempShop shop(QDir::tempPath());
    fillShipments(shop, static_cast<int>(state.range(0)));
    Samples program;
    Samples bare;
    Samples blank;
    for ([[maybe_unused]] auto turn : state) {
        {
            List list(shop);
            list.page.findChild<QCheckBox*>(QStringLiteral("chkSLSum"))->setChecked(summed);
            program.add(timed([&] {
                list.page.cmdKensaku_Click();
                showPainted(list.page);
            }));
            if (list.page.grid()->MaxRows() < 1000)
                std::abort();
        }
        bare.add(timed([&] {
            const Rows rows = bareSelect(shop, sql);
            RowsModel model(rows);
            QTableView view;
            view.setModel(&model);
            showPainted(view);
        }));
        blank.add(timed([&] {
            const Rows rows = bareSelect(shop, sql);
            QTableView view;
            showPainted(view);
        }));
    }
    report(state, program, bare);
    state.counters["ratio_to_blank_view"] = program.median() / blank.median();
}

void DetailFill(benchmark::State& state)
{
    fillAgainst(state, false,
                "SELECT * FROM OutTB WHERE SyuDate >= '20000101' AND SyuDate <= '99991231' "
                "ORDER BY SyuDate, Name, Code");
}
BENCHMARK(DetailFill)->Arg(25000)->Arg(100000)->Iterations(7)->Unit(benchmark::kMillisecond);

void SummedFill(benchmark::State& state)
{
    fillAgainst(state, true,
                "SELECT Code, MAX(Name) AS Name, SyuPrice, Unit, SUM(CAST(SyuNebiki AS REAL)),"
                " SUM(CAST(RHenkyaku AS REAL)), SUM(CAST(FHenkyaku AS REAL)),"
                " SUM((CAST(SyuSuu AS REAL) - (CAST(RHenkyaku AS REAL) + CAST(FHenkyaku AS REAL)))"
                " * CAST(SyuPrice AS REAL) - CAST(SyuNebiki AS REAL)), SUM(CAST(SyuSuu AS REAL)) FROM OutTB"
                " WHERE SyuDate >= '20000101' AND SyuDate <= '99991231' GROUP BY Code, SyuPrice, Unit"
                " ORDER BY Name, Code");
}
BENCHMARK(SummedFill)->Arg(25000)->Arg(100000)->Iterations(7)->Unit(benchmark::kMillisecond);

bool before(const std::string& a, const std::string& b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return foldedLetter(x) < foldedLetter(y); });
}

using SortKeys = std::array<std::string, 4>;

bool keysBefore(const SortKeys& a, const SortKeys& b)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (before(a[i], b[i]))
            return true;
        if (before(b[i], a[i]))
            return false;
    }
    return false;
}

/// A click on the heading of the customer, on the list as the search left it and once more on the list as the
/// sort by goods left it.
void HeadingSort(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fillShipments(shop, static_cast<int>(state.range(0)));
    Samples program;
    Samples bare;
    Samples again;
    for ([[maybe_unused]] auto turn : state) {
        List list(shop);
        list.page.cmdKensaku_Click();
        vaSpread& grid = *list.page.grid();
        showPainted(list.page);
        program.add(timed([&] { Q_EMIT grid.HeadingClick(3); }));
        Q_EMIT grid.HeadingClick(8);
        again.add(timed([&] { Q_EMIT grid.HeadingClick(3); }));

        List other(shop);
        other.page.cmdKensaku_Click();
        std::vector<SortKeys> keys;
        for (int row = 1; row <= other.page.grid()->MaxRows(); ++row) {
            const auto text = [&other, row](int col) {
                return std::string(other.page.grid()->text(col, row));
            };
            if (!text(8).empty())
                keys.push_back({text(3), text(2), text(8), text(1)});
        }
        bare.add(timed([&] { std::stable_sort(keys.begin(), keys.end(), keysBefore); }));
    }
    report(state, program, bare);
    state.counters["second_sort_ratio"] = again.median() / bare.median();
}
BENCHMARK(HeadingSort)->Arg(25000)->Arg(100000)->Iterations(5)->Unit(benchmark::kMillisecond);

void SlipWrite(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    fillShipments(shop, static_cast<int>(state.range(0)));
    List list(shop);
    list.page.cmdKensaku_Click();
    const QString path = shop.base() + QStringLiteral("/FileCsv.csv");
    Samples program;
    for ([[maybe_unused]] auto turn : state)
        program.add(timed([&] {
            if (!writeSlipFile(path, slipText(listSide(Side::Shipment), list.ini, *list.page.grid())))
                std::abort();
        }));
    const auto megabytes = static_cast<double>(QFileInfo(path).size()) / 1e6;
    state.counters["program_ms"] = program.median() * 1e3;
    state.counters["MB_per_s"] = megabytes / program.median();
}
BENCHMARK(SlipWrite)->Arg(25000)->Iterations(7)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
