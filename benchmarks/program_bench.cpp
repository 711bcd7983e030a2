// The whole program: from its start to its window, against a bare Qt window; from a scan to its row, against
// a bare serial port and bare statements; and its processor time when idle, against a bare window with a
// blinking cursor. Needs an X display.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <ctime>

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
void prepare(const test::TempShop& shop, const QString& device)
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
double toWindow(QProcess& process, const QString& program, const QString& title,
                const QStringList& arguments = {})
{
    return timed([&] {
        process.start(program, arguments);
        while (!FindWindow(title))
            QThread::usleep(300);
    });
}

void end(QProcess& process)
{
    process.kill();
    process.waitForFinished();
}

void StartToWindow(benchmark::State& state)
{
    const test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    prepare(shop, pty.device());
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        program.add(toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle));
        end(process);
        QProcess window;
        bare.add(toWindow(window, QStringLiteral(BARE_WINDOW_PROGRAM), bareTitle));
        end(window);
    }
    report(state, program, bare);
}
BENCHMARK(StartToWindow)->Iterations(9)->Unit(benchmark::kMillisecond);

/// Processor time of all threads together, to the nanosecond.
double processorSeconds(qint64 pid)
{
    clockid_t clock = 0;
    struct timespec time = {};
    if (clock_getcpuclockid(static_cast<pid_t>(pid), &clock) != 0 || clock_gettime(clock, &time) != 0)
        std::abort();
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Processor time of \a process a second, in percent.
double percentOfCore(const QProcess& process)
{
    constexpr int seconds = 10;
    const double before = processorSeconds(process.processId());
    QThread::sleep(seconds);
    return (processorSeconds(process.processId()) - before) / seconds * 100;
}

/// The program with its cursor in the code field, and a bare window with its cursor in a field, in turn: each
/// blinks as long as the other.
void IdleProgram(benchmark::State& state)
{
    const test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    prepare(shop, pty.device());
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        (void)toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle);
        QThread::sleep(2);
        program.add(percentOfCore(process));
        end(process);
        QProcess window;
        (void)toWindow(window, QStringLiteral(BARE_WINDOW_PROGRAM), bareTitle, {QStringLiteral("field")});
        QThread::sleep(2);
        bare.add(percentOfCore(window));
        end(window);
    }
    state.counters["percent_of_core"] = program.median();
    state.counters["bare_percent_of_core"] = bare.median();
    state.counters["ratio"] = program.median() / bare.median();
}
BENCHMARK(IdleProgram)->Iterations(5)->Unit(benchmark::kSecond);

/// With the dialog open whose timer reads the port.
void IdleDialog(benchmark::State& state)
{
    test::Pty pty;
    const test::TempShop shop(QDir::tempPath());
    prepare(shop, pty.device());
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        (void)toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle);
        QThread::sleep(2);
        pty.write("[U]\r\n");
        QThread::sleep(2);
        state.counters["percent_of_core"] = percentOfCore(process);
        end(process);
    }
}
BENCHMARK(IdleDialog)->Iterations(1)->Unit(benchmark::kSecond);

/// A reader, the process that reads it, and a second connection that sees the rows of its frames.
class ScanRoad
{
public:
    explicit ScanRoad(const test::TempShop& shop) : m_db(shop.databaseFile(), noPatience) {}

    [[nodiscard]] const test::Pty& pty() const { return m_pty; }
    /// Sends frames until one has become a row: from then on the port is open.
    void warmUp()
    {
        const int before = commits();
        while (commits() == before) {
            m_pty.write(frame);
            QThread::msleep(200);
        }
        QThread::msleep(1500); // lets the surplus frames be stored
    }
    /// From the last byte of a frame to the receipt that the second connection can see. It waits for a commit
    /// before it looks for the row: counting rows locks the table, and the commit would have to wait.
    [[nodiscard]] double scan()
    {
        const int before = receipts();
        const int version = commits();
        const double seconds = timed([&] {
            m_pty.write(frame);
            while (commits() == version)
                QThread::usleep(100);
        });
        if (receipts() != before + 1)
            std::abort();
        return seconds;
    }

private:
    [[nodiscard]] int receipts() { return std::stoi(BareSqlite::rows(m_count).at(0).at(0)); }
    /// A new number after each commit of others (sqlite.org/pragma.html#pragma_data_version). During a commit
    /// there is no answer, and the last number is used.
    [[nodiscard]] int commits()
    {
        const auto answer = BareSqlite::rows(m_version);
        if (!answer.empty())
            m_commits = std::stoi(answer[0][0]);
        return m_commits;
    }

    static constexpr int noPatience = 0; ///< milliseconds
    const QByteArray frame = QByteArray(code) + "\r\n";
    test::Pty m_pty;
    BareSqlite m_db;
    sqlite3_stmt* m_count = m_db.prepared("SELECT count(*) FROM InpTB");
    sqlite3_stmt* m_version = m_db.prepared("PRAGMA data_version");
    int m_commits = 0;
};

/// A scan keeps the window for the rest of its second, so the next one is sent when that is over.
void ScanToRow(benchmark::State& state)
{
    const test::TempShop shop(QDir::tempPath());
    const test::TempShop bareShop(QDir::tempPath());
    ScanRoad road(shop);
    ScanRoad bareRoad(bareShop);
    prepare(shop, road.pty().device());
    prepare(bareShop, bareRoad.pty().device());
    QProcess process;
    (void)toWindow(process, shop.base() + QStringLiteral("/suisuitag"), programTitle);
    QProcess reader;
    reader.start(QStringLiteral(BARE_READER_PROGRAM),
                 {bareRoad.pty().device(), QString::fromStdString(bareShop.databaseFile())});
    road.warmUp();
    bareRoad.warmUp();
    Samples program;
    Samples bare;
    for ([[maybe_unused]] auto turn : state) {
        program.add(road.scan());
        QThread::msleep(650);
        bare.add(bareRoad.scan());
        QThread::msleep(650);
    }
    end(process);
    end(reader);
    report(state, program, bare);
    state.counters["p99_ms"] = program.at(0.99) * 1e3;
    state.counters["baseline_p99_ms"] = bare.at(0.99) * 1e3;
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
