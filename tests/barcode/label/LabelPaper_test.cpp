// Labels on paper: the PDF is rendered at the printer's own resolution, checked dot by dot and read by a
// bar-code reader.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "barcode/label/LabelPrint.h"
#include "barcode/label/LabelRows.h"
#include "barcode/label/LabelSheets.h"
#include "platform/core/Code128.h"
#include "platform/widgets/Printer.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "store/AppIni.h"
#include "tests/barcode/label/LabelledGrid.h"
#include "tests/support/BarReader.h"
#include "tests/support/PdfPrinter.h"
#include "tests/support/PdfText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

Millimetres lengthIn(const char16_t* text)
{
    return Millimetres(numberIn(QString::fromUtf16(text)).value_or(0));
}

LabelJob jobOf(const LabelSheet& sheet)
{
    LabelJob job;
    job.grid = {.columns = sheet.columns,
                .rows = sheet.rows,
                .start = {lengthIn(sheet.startX), lengthIn(sheet.startY)},
                .width = lengthIn(sheet.width),
                .height = lengthIn(sheet.height)};
    job.barHeight = lengthIn(sheet.barHeight);
    job.name = {sheet.name.on, {lengthIn(sheet.name.x), lengthIn(sheet.name.y)}};
    job.code = {sheet.code.on, {lengthIn(sheet.code.x), lengthIn(sheet.code.y)}};
    return job;
}

std::string joined(const QStringList& texts)
{
    return texts.join(u' ').toStdString();
}

/// As many different codes as a sheet has labels.
QStringList codesFor(const LabelJob& job, const QString& pattern)
{
    QStringList codes;
    for (int i = 0; i < job.grid.capacity(); ++i)
        codes += pattern.arg(i, 3, 10, QChar(u'0'));
    return codes;
}

class LabelPaper : public ::testing::Test
{
protected:
    LabelPaper()
    {
        ini.setIniFolder(folder.path());
        setup->file = folder.filePath(u"labels.pdf"_s);
    }

    void fill(const QStringList& codes)
    {
        grid.setMaxRows(static_cast<int>(codes.size()));
        for (int row = 1; row <= grid.MaxRows(); ++row) {
            grid.SetText(labelCodeColumn, row, codes.at(row - 1));
            grid.SetText(labelNameColumn, row, u"鉛筆 ＨＢ　１２本入り"_s);
            grid.SetText(labelMarkColumn, row, std::string_view("1"));
        }
    }

    void print(LabelJob job, int step)
    {
        BarPrt& paper = barPrt;
        ASSERT_EQ(paper.choosePrinter(nullptr), PrinterChoice::GoOn);
        paper.setBarPitch(step);
        LabelRows rows(grid, labelMarkColumn, 0);
        job.startRow = 1;
        job.endRow = grid.MaxRows();
        job.pages = {1, pagesNeeded(labelsWanted(rows, 1, job.endRow, true, job.eachRow), job.grid.capacity(),
                                    job.startLabel)};
        paper.startDocument();
        LabelPrintOut(job, rows, ini, paper);
        paper.endDocument();
    }

    /// Whether the row \a at.y() of \a page has the bars of \a code from \a at on: every edge within a dot,
    /// nothing between them, and white for the quiet zone on both sides.
    [[nodiscard]] static ::testing::AssertionResult barsStandAt(const QImage& page, QPoint at,
                                                                const QString& code, int dots)
    {
        const auto modules = encodeCode128(code.toStdString());
        if (!modules)
            return ::testing::AssertionFailure() << "no symbol";
        const int quiet = quietModules * dots;
        const auto black =
            blackRuns(page, at.y(), at.x() - quiet + 1, at.x() + modules->width * dots + quiet - 1);
        if (black.size() != modules->bars.size())
            return ::testing::AssertionFailure() << code.toStdString() << ": " << black.size() << " bars";
        for (std::size_t i = 0; i < black.size(); ++i) {
            const BarSpan& bar = modules->bars[i];
            const int first = at.x() + bar.start * dots;
            if (std::abs(black[i].first - first) > 1
                || std::abs(black[i].second - (first + bar.width * dots)) > 1)
                return ::testing::AssertionFailure() << code.toStdString() << ": bar " << i << " from "
                                                     << black[i].first << ", not " << first;
        }
        return ::testing::AssertionSuccess();
    }

    /// First dot, and the one after the last, of each black run in the row \a y between \a from and \a to.
    [[nodiscard]] static std::vector<std::pair<int, int>> blackRuns(const QImage& page, int y, int from,
                                                                    int to)
    {
        constexpr int halfGrey = 128;
        std::vector<std::pair<int, int>> runs;
        for (int x = std::max(from, 0); x < std::min(to, page.width()); ++x) {
            if (y < 0 || y >= page.height() || qGray(page.pixel(x, y)) >= halfGrey)
                continue;
            if (!runs.empty() && runs.back().second == x)
                ++runs.back().second;
            else
                runs.emplace_back(x, x + 1);
        }
        return runs;
    }

    /// How many dots of the printer a module of \a step has: at least two, as readers need.
    [[nodiscard]] static int dotsFor(int step) { return step == 1 ? 600 : 300; }

    [[nodiscard]] static std::vector<int> stepsThatFit(const LabelSheet& sheet)
    {
        const LabelJob job = jobOf(sheet);
        const auto modules = encodeCode128(codesFor(job, pattern).front().toStdString());
        const Millimetres room = job.grid.columns > 1 ? job.grid.width : 205_mm;
        std::vector<int> steps;
        for (int step = 1; modules && step <= barPitchSteps; ++step)
            if ((modules->width + quietModules) * barPitchDots(step, dotsFor(step))
                <= lengthInDots(room, dotsFor(step)))
                steps.push_back(step);
        return steps;
    }

    void expectReadsBack(const LabelSheet& sheet, int step)
    {
        const LabelJob job = jobOf(sheet);
        const QStringList codes = codesFor(job, pattern);
        setup->dpi = dotsFor(step);
        fill(codes);
        print(job, step);
        EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, setup->dpi, Edges::Exact)), joined(codes))
            << "step " << step << " on " << QString::fromUtf16(sheet.title).toStdString();
    }

    void expectFunctionCodesReadBack(int step)
    {
        LabelJob job = jobOf(labelSheets[0]);
        job.grid.rows = 5;
        job.screenCodes = {true, {lengthIn(screenStrip.x), lengthIn(screenStrip.y)}};
        job.searchCodes = {true, {lengthIn(searchStrip.x), lengthIn(searchStrip.y)}};
        QStringList wanted = codesFor(job, u"490123456700%1"_s);
        for (const QChar function : u"01234ABCDE"_s)
            wanted += u'[' + QString(function) + u']';
        fill(wanted.first(10));
        print(job, step);
        EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, 600, Edges::Exact)), joined(wanted))
            << "step " << step;
    }

    inline static const QString pattern = u"4901234567%1"_s;
    int failures = 0;
    QTemporaryDir folder;
    std::shared_ptr<PdfSetup> setup = std::make_shared<PdfSetup>();
    Printer printer{pdfDialog(setup)};
    PrinterBarPrt barPrt{printer, [this] { ++failures; }};
    LabelledGrid grid;
    AppIni ini;
};

/// The same on many more papers.
class LabelPaperLong : public LabelPaper
{
};

} // namespace

TEST_F(LabelPaper, onEverySheet_everyLabelReadsBack_withItsBarsOnTheirDots)
{
    for (const LabelSheet& sheet : labelSheets) {
        const LabelJob job = jobOf(sheet);
        const QStringList codes = codesFor(job, pattern);
        fill(codes);
        const int step = QString::fromUtf16(sheet.barPitch).toInt();
        print(job, step);
        ASSERT_EQ(pdfPages(setup->file), 1);
        const QImage page = pdfPicture(setup->file, 1, 600, Edges::Exact);
        ASSERT_NEAR(page.width(), 4960, 3); // A4
        ASSERT_NEAR(page.height(), 7016, 3);
        EXPECT_EQ(readBarCodes(page), joined(codes));
        for (int i = 0; i < job.grid.capacity(); ++i) {
            const QPoint at = placeInDots(job.grid.placeOf(i), {600, 600, 0, 0});
            const int dots = barPitchDots(step, 600);
            const Millimetres clear = std::min(job.barHeight, job.code.place.y); // above the code's text
            EXPECT_TRUE(barsStandAt(page, at + QPoint(0, 2), codes.at(i), dots));
            EXPECT_TRUE(barsStandAt(page, at + QPoint(0, lengthInDots(clear, 600) - 3), codes.at(i), dots));
        }
    }
    EXPECT_EQ(failures, 0);
}

TEST_F(LabelPaper, theWidestPitchOfEverySheet_andTheNarrowest_readBack)
{
    const LabelSheet* fullest = &labelSheets[0];
    for (const LabelSheet& sheet : labelSheets) {
        const std::vector<int> steps = stepsThatFit(sheet);
        ASSERT_GE(steps.size(), 4u) << QString::fromUtf16(sheet.title).toStdString();
        expectReadsBack(sheet, steps.back());
        if (jobOf(sheet).grid.capacity() > jobOf(*fullest).grid.capacity())
            fullest = &sheet;
    }
    expectReadsBack(*fullest, stepsThatFit(*fullest).front());
}

TEST_F(LabelPaperLong, everyPitchThatFitsTheLabel_readsBack_onEverySheet)
{
    for (const LabelSheet& sheet : labelSheets)
        for (const int step : stepsThatFit(sheet))
            expectReadsBack(sheet, step);
}

TEST_F(LabelPaper, theFunctionCodes_readBack_beneathTenLabels)
{
    expectFunctionCodesReadBack(3);
}

TEST_F(LabelPaperLong, theFunctionCodes_readBack_inANarrowerAndAWiderPitch)
{
    expectFunctionCodesReadBack(2);
    expectFunctionCodesReadBack(4);
}

TEST_F(LabelPaper, aCodeOfSixteenCharactersOfEveryKind_readsBack)
{
    setup->dpi = 300;
    const LabelJob job = jobOf(labelSheets[0]);
    QStringList codes{u"ABCdef-123456789"_s, u"#101#"_s, u"@A01@"_s, u"{ENTER}"_s, u"a b*c?d(e)f/g.h$"_s};
    codes.sort();
    fill(codes);
    print(job, 3);
    EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, 300, Edges::Exact)), joined(codes));
}

TEST_F(LabelPaper, onAPrinterWithAMargin_theBarsAreAtTheSameMillimetres)
{
    setup->margins = {18, 24, 18, 18};
    LabelJob job = jobOf(labelSheets[0]);
    const QStringList codes = codesFor(job, u"490123456700%1"_s);
    fill(codes);
    job.eachRow = 2; // two pages, the second of rows 7 to 12
    print(job, 3);
    const QImage page = pdfPicture(setup->file, 2, 600, Edges::Exact);
    for (int i = 0; i < job.grid.capacity(); ++i) {
        const QPoint corner = placeInDots(job.grid.placeOf(i), {600, 600, 150, 200}) + QPoint(150, 200);
        EXPECT_TRUE(barsStandAt(page, corner + QPoint(0, 20), codes.at(6 + i / 2), 6));
    }
}

TEST_F(LabelPaper, aMarginWiderThanTheStart_leavesTheBarsAtTheirMillimetres)
{
    setup->margins = {72, 72, 72, 72}; // an inch, the labels begin 10 mm from the corner
    const LabelJob job = jobOf(labelSheets[3]);
    fill({u"A1"_s});
    print(job, 3);
    const QImage page = pdfPicture(setup->file, 1, 600, Edges::Exact);
    const QPoint corner = placeInDots(job.grid.placeOf(0), {600, 600, 600, 600}) + QPoint(600, 600);
    EXPECT_TRUE(barsStandAt(page, corner + QPoint(0, 20), u"A1"_s, 6));
    EXPECT_EQ(failures, 0);
}

TEST_F(LabelPaper, aCodeThatTheSymbologyCannotCarry_hasNoBars_theOthersDo)
{
    setup->dpi = 300;
    fill({u"鉛筆01"_s, u"A1"_s, u"ﾊﾞｰ"_s, QString(200, u'X'), u"A2"_s});
    print(jobOf(labelSheets[0]), 3);
    EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, 300, Edges::Exact)),
              joined((QStringList{u"A1"_s, u"A2"_s})));
    EXPECT_EQ(failures, 0);
}

TEST_F(LabelPaper, labelsBeyondThePaper_andBarsWithoutHeight_areNotThere)
{
    setup->dpi = 300;
    LabelJob job = jobOf(labelSheets[0]);
    job.grid.width = 999999_mm;
    job.grid.height = 999999_mm;
    fill({u"A1"_s, u"A2"_s, u"A3"_s});
    print(job, 3);
    EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, 300, Edges::Exact)), joined((QStringList{u"A1"_s})));
    job.barHeight = -12_mm;
    fill({u"A1"_s});
    print(job, 3);
    EXPECT_EQ(readBarCodes(pdfPicture(setup->file, 1, 300, Edges::Exact)), joined(QStringList()));
    EXPECT_EQ(failures, 0);
}

TEST_F(LabelPaper, aFileThatCannotBeWritten_isReportedOnce)
{
    setup->file = folder.filePath(u"no such folder/labels.pdf"_s);
    fill({u"A1"_s, u"A2"_s});
    LabelJob job = jobOf(labelSheets[0]);
    job.grid.rows = 1;
    job.grid.columns = 1;
    print(job, 3);
    EXPECT_EQ(failures, 1);
}

TEST_F(LabelPaper, aStep_isAsWideOnThreeHundredDots_asOnSixHundred)
{
    for (int step = 1; step <= barPitchSteps; ++step) {
        EXPECT_EQ(barPitchDots(step, 300), step);
        EXPECT_EQ(barPitchDots(step, 600), 2 * step);
        EXPECT_NEAR(barPitchMillimetres.at(static_cast<std::size_t>(step) - 1).value(), step * 25.4 / 300,
                    1e-5);
    }
    EXPECT_EQ(barPitchDots(1, 72), 1);
    EXPECT_EQ(barPitchDots(0, 600), 2);
    EXPECT_EQ(barPitchDots(99, 600), 40);
}

} // namespace suisui::test
