// A long day at the main window: two thousand mixed operations with a stepped clock. Memory and the number of
// open files must not grow, and the database must be sound at the end.
#include <random>

#include <QAbstractButton>
#include <QDir>

#include <malloc.h>

#include "benchmarks/BareSqlite.h"
#include "benchmarks/Measure.h"
#include "frame/shell/Application.h"
#include "tests/support/MainWindowDesk.h"

namespace suisui::bench {

namespace {

constexpr int warmUp = 200;
constexpr int operations = 2000;
constexpr int mostRows = 60; ///< when there are more, movements are deleted, so that the day does not grow

double heldMegabytes()
{
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1048576;
}

double openFiles()
{
    return static_cast<double>(QDir(QStringLiteral("/proc/self/fd")).count());
}

class Day : public test::MainWindowDesk
{
public:
    Day()
    {
        fillShop();
        shop.add(masterTable, {"B", "消しゴム", "", "3", "30", "2", "60", "個", "10"});
        shop.add(hseihinTable, {"B", "", "4901001000017", "2"});
        open();
        box.onShow = [this](const Box& shown) { answer(shown); };
        // It is noon: an entry tab shows the movements of a day, and new ones replace those that are deleted.
        for (const Tab tab : {Tab::Receipt, Tab::Shipment}) {
            window->showTab(tab);
            for (int row = 0; row < mostRows; ++row)
                window->GoodsCodeSet(QStringLiteral("B"));
        }
    }

    void step()
    {
        box.shown.clear();
        switch (m_random() % 10) {
        case 0:
        case 1:
        case 2:
            window->GoodsCodeSet(m_random() % 2 == 0 ? QStringLiteral("4901001000017") : QStringLiteral("B"));
            break;
        case 3:
        case 4:
            correct();
            break;
        case 5:
            press(entryTab() ? "cmd%1Kousin" : nullptr);
            break;
        case 6:
            press(entryTab() ? "cmd%1Kensaku" : nullptr);
            break;
        case 7:
            window->showTab(static_cast<Tab>(m_random() % 5));
            break;
        case 8:
            look();
            break;
        default:
            break;
        }
        while (entryTab() && grid(window->currentTab()).MaxRows() > mostRows) {
            grid(window->currentTab()).SetActiveCell(4, 1);
            press("cmd%1Delete");
        }
        QCoreApplication::processEvents();
    }

private:
    [[nodiscard]] bool entryTab() const
    {
        return window->currentTab() == Tab::Receipt || window->currentTab() == Tab::Shipment;
    }
    void press(const char* name)
    {
        if (name != nullptr)
            control<QAbstractButton>(
                QString::fromLatin1(name).arg(QChar(window->currentTab() == Tab::Receipt ? u'N' : u'S')))
                .click();
    }
    void correct()
    {
        if (!entryTab() || grid(window->currentTab()).MaxRows() == 0)
            return;
        vaSpread& sheet = grid(window->currentTab());
        const int row = static_cast<int>(m_random() % static_cast<unsigned>(sheet.MaxRows())) + 1;
        sheet.SetText(4, row, std::string_view(std::to_string(m_random() % 40)));
        Q_EMIT sheet.Change(4, row);
    }
    /// Searches the stock and the lists in all their views.
    void look()
    {
        window->showTab(Tab::Stock);
        window->GoodsCodeSet(QStringLiteral("*"));
        window->MainBarEtc(m_random() % 2 == 0 ? QStringLiteral("B") : QStringLiteral("A"));
        window->showTab(m_random() % 2 == 0 ? Tab::ReceiptList : Tab::ShipmentList);
        window->MainBarEtc(QStringLiteral("D"));
        window->MainBarEtc(QStringLiteral("E"));
        window->showTab(m_random() % 2 == 0 ? Tab::Receipt : Tab::Shipment);
    }
    void answer(const Box& shown)
    {
        box.answers = {shown.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Yes};
    }

    std::mt19937 m_random{4901};
};

void MixedDay(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        Day day;
        for (int i = 0; i < warmUp; ++i)
            day.step();
        const double memory = heldMegabytes();
        const double files = openFiles();
        double most = memory;
        for (int i = warmUp; i < operations; ++i) {
            day.step();
            if (i % 100 == 0)
                most = std::max(most, heldMegabytes());
        }
        state.counters["memory_growth"] = most / memory - 1;
        state.counters["files_more"] = openFiles() - files;
        BareSqlite db(day.shop.databaseFile());
        state.counters["whole"] =
            BareSqlite::rows(db.prepared("PRAGMA integrity_check")).at(0).at(0) == "ok" ? 1 : 0;
    }
}
BENCHMARK(MixedDay)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    suisui::Application app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
