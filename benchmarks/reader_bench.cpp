// From a frame at the other end of the port to the dispatch of its value, through the program's main loop.
#include <QCoreApplication>

#include "barcode/Barcode.h"
#include "barcode/ScanDispatch.h"
#include "benchmarks/Measure.h"
#include "platform/core/DoEvents.h"
#include "platform/core/MSComm.h"
#include "tests/support/Pty.h"
#include "tests/support/ScriptedMsgBox.h"

namespace suisui::bench {

namespace {

class Arrival final : public ScanTarget
{
public:
    void selectTab(int) override {}
    void GoodsCodeSet(const QString&) override { arrived = std::chrono::steady_clock::now(); }
    void TantouCodeSet(const QString&) override {}
    void SakiCodeSet(const QString&) override {}
    void sendKeys(const QString&) override {}
    void MainBarEtc(const QString&) override {}

    std::chrono::steady_clock::time_point arrived;
};

void FrameToDispatch(benchmark::State& state)
{
    test::Pty pty;
    test::ScriptedMsgBox box;
    MSComm port([&pty](int) { return pty.device(); });
    const ReaderSettings settings{QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("9600"),
                                  QStringLiteral("N"), QStringLiteral("8"), QStringLiteral("1")};
    Barcode reader([&settings] { return settings; }, box, [] {});
    reader.BarCodeInit(&port);
    if (!box.shown.empty())
        std::abort();
    Arrival target;
    Samples way;
    for ([[maybe_unused]] auto turn : state) {
        target.arrived = {};
        const auto sent = std::chrono::steady_clock::now();
        pty.write("4901234567894\r\n");
        while (target.arrived == std::chrono::steady_clock::time_point()) {
            if (reader.hasLine())
                DoEvents();
            else
                DoEventsOrWait();
            MainBarCodeChk(reader.line(), target);
        }
        way.add(std::chrono::duration<double>(target.arrived - sent).count());
    }
    state.counters["median_ms"] = way.median() * 1e3;
    state.counters["p99_ms"] = way.at(0.99) * 1e3;
}
BENCHMARK(FrameToDispatch)->Iterations(500)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
