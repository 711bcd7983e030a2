// A thousand pages of the stock list and of the receipt list to PDF, against a bare painter that draws the
// same number of the same strings on the same number of pages and nothing else. Memory is measured after
// every hundred pages.
#include <QApplication>
#include <QPainter>
#include <QPrinter>

#include <malloc.h>

#include "benchmarks/Measure.h"
#include "lists/report/ListReport.h"
#include "platform/widgets/AppFont.h"
#include "tests/lists/report/ReportDesk.h"

namespace suisui::bench {

namespace {

constexpr int pages = 1000;

double heldMegabytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1048576;
}

/// The texts of a page: those of its rows as in the grid, and the fixed ones.
QStringList textsOf(const ReportTemplate& report, const vaSpread& grid)
{
    QStringList texts;
    for (int row = 1; row <= report.rowsPerPage; ++row)
        for (const RowElement& element : report.cells)
            if (const QString text = grid.qtext(element.column, row); !text.isEmpty())
                texts << text;
    for (const std::span<const FixedText> fixed : report.texts)
        for (const FixedText& text : fixed)
            texts << (text.text.empty() ? QStringLiteral("1234") : QStringView(text.text).toString());
    return texts;
}

double barePainter(const QStringList& texts, const QString& file)
{
    return timed([&] {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setResolution(600);
        printer.setPageOrientation(QPageLayout::Landscape);
        printer.setFullPage(true);
        QPainter painter(&printer);
        QFont font(fontFamily());
        font.setPixelSize(75);
        painter.setFont(font);
        for (int page = 0; page < pages; ++page) {
            if (page > 0)
                printer.newPage();
            for (int i = 0; i < texts.size(); ++i)
                painter.drawText(QPoint(200 + i % 8 * 800, 300 + i / 8 * 100), texts.at(i));
        }
    });
}

void ReportPages(benchmark::State& state, const ReportTemplate& report)
{
    test::ReportDesk desk;
    const auto grid = test::filledGrid(report, pages * report.rowsPerPage);
    const QStringList texts = textsOf(report, *grid);
    Samples program;
    Samples bare;
    double early = 0;
    double grown = 0;
    const auto look = [&](int done, int) {
        if (done == 100)
            early = heldMegabytes();
        if (done == pages)
            grown = heldMegabytes() - early;
    };
    for ([[maybe_unused]] auto turn : state) {
        if (!desk.select())
            std::abort();
        program.add(timed([&] {
            const auto status = ListReport(report, *grid).print(desk.paper, {}, {1, pages}, pages, look);
            if (status != ReportStatus::Printed)
                std::abort();
        }));
        bare.add(barePainter(texts, desk.folder.filePath(QStringLiteral("bare.pdf"))));
    }
    bench::report(state, program, bare);
    state.counters["pages_per_s"] = pages / program.median();
    state.counters["grown_MB"] = grown;
}
BENCHMARK_CAPTURE(ReportPages, stock, rptList_Stock)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReportPages, receipts, rptList_In)->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
