// The whole program: from its start to its window, against a bare Qt window; from a scan to its row; and what
// it takes of a processor while nobody does anything. Needs an X display.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <unistd.h>

#include "benchmarks/BareSqlite.h"
#include "benchmarks/BenchShop.h"
#include "benchmarks/Measure.h"
#include "platform/core/FindWindow.h"
#include "tests/support/Pty.h"

namespace suisui::bench {

namespace {

const QString programTitle =
    QStringLiteral(" すいすいＴＡＧ　　【 入出荷在庫管理 】　　Tarnvik Works Co.,Ltd.");
const QString bareTitle = QStringLiteral("bare window");

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        std::abort();
}

/// A program folder with 25,000 receipts and a reader on \a device.
void furnish(const test::TempShop& shop, const QString& device)
{
    fill(shop, 25000);
    shop.add(kokyakuTable, {"101", "東西食品株式会社", "", "", "", "", "", "", "", "", "", "", "", "1", "1"});
    shop.add(tantouTable, {"01", "山田　太郎"});
    write(shop.base() + QStringLiteral("/Ini/AppEnv.ini"),
          QStringLiteral("[Reader]\nCommKind=1\nCommPortNo=9\nCommBaud=9600\nCommParity=N\nCommDataBit=8\n"
                         "CommStopBit=1\n[Ports]\n9=%1\n")
              .arg(device));
    if (!QFile::copy(QStringLiteral(SUISUITAG_PROGRAM), shop.base() + QStringLiteral("/suisuitag")))
        std::abort();
}

/// Seconds from the start of \a program to its window.
double toWindow(QProcess& process, const QString& program, const QString& title)
{
    return timed([&] {
        process.start(program);
        while (!FindWindow(title))
            QThread::usleep(300);
    });
}

void StartToWindow(benchmark::State& state)
{
    const test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    furnish(shop, pty.device());
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        program.add(toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle));
        process.kill();
        process.waitForFinished();
        QProcess window;
        bare.add(toWindow(window, QStringLiteral(BARE_WINDOW_PROGRAM), bareTitle));
        window.kill();
        window.waitForFinished();
    }
    report(state, program, bare);
}
BENCHMARK(StartToWindow)->Iterations(9)->Unit(benchmark::kMillisecond);

double processorSeconds(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        std::abort();
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.sliced(line.lastIndexOf(')') + 2).split(' ');
    return static_cast<double>(fields[11].toLongLong() + fields[12].toLongLong())
           / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// With the dialog open whose timer reads the port, or without.
void IdleProgram(benchmark::State& state)
{
    constexpr int seconds = 20;
    test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    furnish(shop, pty.device());
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        (void)toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle);
        QThread::sleep(2);
        if (state.range(0) != 0) {
            pty.write("[U]\r\n");
            QThread::sleep(2);
        }
        const double before = processorSeconds(process.processId());
        QThread::sleep(seconds);
        state.counters["percent_of_core"] = (processorSeconds(process.processId()) - before) / seconds * 100;
        process.kill();
        process.waitForFinished();
    }
}
BENCHMARK(IdleProgram)->ArgName("dialog")->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kSecond);

/// From the last byte of a frame to the receipt that a second connection can see. A scan keeps the window for
/// the rest of its second, so the next one is sent when that is over.
void ScanToRow(benchmark::State& state)
{
    test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    furnish(shop, pty.device());
    QProcess process;
    (void)toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle);
    QThread::sleep(2);
    BareSqlite db(shop.databaseFile());
    sqlite3_stmt* count = db.prepared("SELECT count(*) FROM InpTB");
    const auto receipts = [&] { return std::stoi(BareSqlite::rows(count).at(0).at(0)); };
    Samples times;
    for ([[maybe_unused]] auto turn : state) {
        const int before = receipts();
        const double seconds = timed([&] {
            pty.write(QByteArray(code) + "\r\n");
            while (receipts() == before)
                QThread::usleep(100);
        });
        times.add(seconds);
        QThread::msleep(1300);
    }
    process.kill();
    process.waitForFinished();
    state.counters["median_ms"] = times.median() * 1e3;
    state.counters["p99_ms"] = times.at(0.99) * 1e3;
}
BENCHMARK(ScanToRow)->Iterations(40)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
