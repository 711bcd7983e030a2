// Labels on sheets of 44 into a PDF, bars and both texts, against libzint's encoding of the same codes and
// one rectangle for each of their bars on the same pages. Also the size of a page.
#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <zint.h>

#include "barcode/label/LabelPrint.h"
#include "barcode/label/LabelRows.h"
#include "barcode/label/PagePicture.h"
#include "benchmarks/Measure.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"
#include "tests/support/PdfPrinter.h"

namespace suisui::bench {

namespace {

constexpr int pages = 50;
constexpr int labels = pages * 44;
constexpr int markColumn = 3;
constexpr int step = 3;

LabelJob sheetsOf44()
{
    LabelJob job;
    job.grid = {.columns = 4, .rows = 11, .start = {10_mm, 13_mm}, .width = 48.1_mm, .height = 25.5_mm};
    job.barHeight = 11_mm;
    job.name = {true, {0_mm, -3.5_mm}};
    job.code = {true, {0_mm, 11_mm}};
    job.endRow = labels;
    job.pages = {1, pages};
    return job;
}

struct LabelShop
{
    LabelShop()
    {
        static constexpr std::array columns{SpreadColumn{.heading = "code"}, SpreadColumn{.heading = "name"},
                                            SpreadColumn{.heading = "mark", .type = CellType::CheckBox}};
        grid.setColumns(columns);
        grid.setMaxRows(labels);
        for (int row = 1; row <= labels; ++row) {
            grid.SetText(1, row, std::to_string(4901234500000 + row));
            grid.SetText(2, row, QStringLiteral("鉛筆 ＨＢ　１２本入り %1").arg(row));
        }
        ini.setIniFolder(folder.path());
        setup->file = folder.filePath(QStringLiteral("labels.pdf"));
    }

    void mark()
    {
        for (int row = 1; row <= labels; ++row)
            grid.SetText(markColumn, row, std::string_view("1"));
    }

    void print()
    {
        LabelRows rows(grid, markColumn, 0);
        PrinterBarPrt barPrt(printer, [] { std::abort(); });
        BarPrt& paper = barPrt;
        if (paper.choosePrinter(nullptr) != PrinterChoice::GoOn)
            std::abort();
        paper.setBarPitch(step);
        paper.startDocument();
        LabelPrintOut(sheetsOf44(), rows, ini, paper);
        paper.endDocument();
    }

    /// The same bars by nothing but the library and a painter.
    void printBare()
    {
        if (printer.choose(nullptr) == PrinterChoice::Cancelled)
            std::abort();
        const LabelJob job = sheetsOf44();
        printer.StartDoc();
        for (int row = 1; row <= labels; ++row) {
            const int position = (row - 1) % 44;
            if (position == 0 && printer.StartPage() != PrintStatus::Good)
                std::abort();
            bareBars(printer.painter(), grid.text(1, row),
                     placeInDots(job.grid.placeOf(position), {600, 600, 0, 0}));
        }
        if (printer.EndDoc() != PrintStatus::Good)
            std::abort();
    }

    [[nodiscard]] double bytesOfPage() const
    {
        return static_cast<double>(QFileInfo(setup->file).size()) / pages;
    }

    QTemporaryDir folder;
    std::shared_ptr<test::PdfSetup> setup = std::make_shared<test::PdfSetup>();
    Printer printer{test::pdfDialog(setup)};
    vaSpread grid;
    AppIni ini;

private:
    static void bareBars(QPainter& painter, std::string_view code, QPoint at)
    {
        constexpr int module = 6;
        constexpr int height = 260;
        zint_symbol* symbol = ZBarcode_Create();
        symbol->symbology = BARCODE_CODE128;
        symbol->show_hrt = 0;
        ZBarcode_Encode(symbol, reinterpret_cast<const unsigned char*>(code.data()),
                        static_cast<int>(code.size()));
        const auto black = [symbol](int i) {
            return ((symbol->encoded_data[0][i >> 3] >> (i & 7)) & 1) != 0;
        };
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        for (int i = 0; i < symbol->width;) {
            const int start = i;
            while (i < symbol->width && black(i) == black(start))
                ++i;
            if (black(start))
                painter.drawRect(at.x() + start * module, at.y(), (i - start) * module, height);
        }
        ZBarcode_Delete(symbol);
    }
};

void LabelsIntoPdf(benchmark::State& state)
{
    LabelShop shop;
    Samples program;
    Samples baseline;
    double bytes = 0;
    for (auto _ : state) {
        shop.mark();
        program.add(timed([&] { shop.print(); }));
        bytes = shop.bytesOfPage();
        baseline.add(timed([&] { shop.printBare(); }));
    }
    report(state, program, baseline);
    state.counters["labels_per_s"] = labels / program.median();
    state.counters["bytes_per_page"] = bytes;
    state.counters["bare_bytes_per_page"] = shop.bytesOfPage();
}

/// The picture in the dialog, which is drawn after every key: a sheet of 44 at its size on the screen.
void PageOnTheScreen(benchmark::State& state)
{
    LabelShop shop;
    shop.mark();
    const LabelRows rows(shop.grid, markColumn, 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(drawPage(sheetsOf44(), rows.trial(), shop.ini, step, 1, {420, 594}));
}

/// Counting pages and drawing after a key, for a grid as long as a shop's table with all rows marked.
void KeyInALongGrid(benchmark::State& state)
{
    constexpr int rowsOfAShop = 100000;
    vaSpread grid;
    static constexpr std::array columns{SpreadColumn{.heading = "code"}, SpreadColumn{.heading = "name"},
                                        SpreadColumn{.heading = "mark", .type = CellType::CheckBox}};
    grid.setColumns(columns);
    grid.setMaxRows(rowsOfAShop);
    for (int row = 1; row <= rowsOfAShop; ++row) {
        grid.SetText(1, row, std::to_string(4901234500000 + row));
        grid.SetText(markColumn, row, std::string_view("1"));
    }
    const LabelRows rows(grid, markColumn, 0);
    AppIni ini;
    for (auto _ : state) {
        benchmark::DoNotOptimize(labelsWanted(rows, 1, rows.count(), true, 1));
        benchmark::DoNotOptimize(drawPage(sheetsOf44(), rows.trial(), ini, step, 1, {420, 594}));
    }
}

BENCHMARK(KeyInALongGrid)->Unit(benchmark::kMillisecond);
BENCHMARK(LabelsIntoPdf)->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PageOnTheScreen)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace suisui::bench

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
