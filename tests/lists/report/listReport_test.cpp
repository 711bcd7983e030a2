// The three list reports, read back from the PDF that they make.
#include <algorithm>

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/HeldBytes.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

struct ListReportTest : ::testing::Test
{
    ReportDesk desk;
};

/// Where a cell of row \a n of the page is, in points.
QRectF cellBox(const ReportTemplate& report, const RowElement& element, int n)
{
    constexpr double points = 20; // twips to the point
    return {element.box.left.value() / points, (element.box.top + report.pitch * n).value() / points,
            element.box.width.value() / points, element.box.height.value() / points};
}

QString unspaced(QString text)
{
    return text.remove(u' ').remove(u'　');
}

} // namespace

TEST(PageCount, isRoundedUp)
{
    EXPECT_EQ(pageCount(rptList_Stock, 1), 1);
    EXPECT_EQ(pageCount(rptList_Stock, 25), 1);
    EXPECT_EQ(pageCount(rptList_Stock, 26), 2);
    for (const ReportTemplate* report : {&rptList_In, &rptList_Out}) {
        EXPECT_EQ(pageCount(*report, 10), 1);
        EXPECT_EQ(pageCount(*report, 11), 2);
        EXPECT_EQ(pageCount(*report, 100000), 10000);
    }
}

TEST(PageFields, areCorrectedSilently)
{
    struct Case
    {
        const char16_t* first;
        const char16_t* last;
        PageRange range;
    };
    const Case cases[] = {
        {u"2", u"3", {2, 3}},        {u"1", u"5", {1, 5}},   {u"5", u"5", {5, 5}},
        {u"4", u"2", {4, 5}}, // the first page is after the last one: the last is reset
        {u"6", u"2", {1, 2}},        {u"0", u"0", {1, 5}},   {u"", u"", {1, 5}},
        {u"abc", u"３", {1, 5}},     {u"-1", u"-1", {1, 5}}, {u"2", u"6", {2, 5}},
        {u"2", u"x", {2, 5}},        {u" 2 ", u"4", {2, 4}}, {u"99999999999999999999", u"1e300", {1, 5}},
        {u"1'; DROP", u"4", {1, 4}},
    };
    for (const Case& one : cases)
        EXPECT_EQ(pageRange(QStringView(one.first).toString(), QStringView(one.last).toString(), 5),
                  one.range)
            << QStringView(one.first).toUtf8().toStdString() << " to "
            << QStringView(one.last).toUtf8().toStdString();
}

TEST_F(ListReportTest, everyCellIsOnItsPage_inItsBox)
{
    for (const ReportTemplate* report : reports) {
        SCOPED_TRACE(QStringView(report->name).toUtf8().toStdString());
        const int rows = report->rowsPerPage * 3 - 4;
        const auto grid = filledGrid(*report, rows);
        ASSERT_EQ(desk.print(*report, *grid, sampleHead()), ReportStatus::Printed);
        ASSERT_EQ(pdfPages(desk.setup->file), 3);
        const auto words = pdfWords(desk.setup->file);
        for (int row = 1; row <= rows; ++row)
            for (const RowElement& element : report->cells) {
                const int page = (row - 1) / report->rowsPerPage + 1;
                const QRectF box = cellBox(*report, element, (row - 1) % report->rowsPerPage);
                EXPECT_EQ(unspaced(textIn(words, page, box)), unspaced(grid->qtext(element.column, row)))
                    << "row " << row << " column " << element.column;
            }
    }
}

TEST_F(ListReportTest, figuresEndAtTheRightOfTheirColumn)
{
    for (const ReportTemplate* report : reports) {
        const auto grid = filledGrid(*report, report->rowsPerPage);
        ASSERT_EQ(desk.print(*report, *grid), ReportStatus::Printed);
        const auto words = pdfWords(desk.setup->file);
        int figures = 0;
        for (const RowElement& element : report->cells) {
            if (element.alignment != FormAlign::Right)
                continue;
            for (int n = 0; n < report->rowsPerPage; ++n) {
                const QRectF box = cellBox(*report, element, n);
                for (const PdfWord& word : words)
                    if (box.contains(word.box.center())) {
                        EXPECT_NEAR(word.box.right(), box.right(), 0.15) << word.text.toStdString();
                        ++figures;
                    }
            }
        }
        EXPECT_GE(figures, 4 * report->rowsPerPage);
    }
}

TEST_F(ListReportTest, aFullPageIsOnePageAndOneRowMoreIsTwo)
{
    for (const ReportTemplate* report : reports)
        for (const int more : {0, 1}) {
            const auto grid = filledGrid(*report, report->rowsPerPage + more);
            ASSERT_EQ(desk.print(*report, *grid), ReportStatus::Printed);
            EXPECT_EQ(pdfPages(desk.setup->file), 1 + more);
        }
}

TEST_F(ListReportTest, aSubtotalRowPrintsInTheBlockOfAMovement)
{
    for (const ReportTemplate* report : {&rptList_In, &rptList_Out}) {
        const auto grid = filledGrid(*report, 3);
        for (int column = 1; column <= grid->MaxCols(); ++column)
            grid->SetText(column, 3, QString());
        grid->SetText(elementOf(*report, u"LbDate").column, 3, u"　　小計"_s);
        grid->SetText(elementOf(*report, u"LbGoods").column, 3, u"　　（入荷日 計）"_s);
        grid->SetText(elementOf(*report, u"LbSum").column, 3, u"-1,234"_s);
        ASSERT_EQ(desk.print(*report, *grid), ReportStatus::Printed);
        const auto words = pdfWords(desk.setup->file);
        EXPECT_EQ(textIn(words, 1, cellBox(*report, elementOf(*report, u"LbDate"), 2)), u"小計"_s);
        EXPECT_EQ(unspaced(textIn(words, 1, cellBox(*report, elementOf(*report, u"LbGoods"), 2))),
                  u"（入荷日計）"_s);
        EXPECT_EQ(textIn(words, 1, cellBox(*report, elementOf(*report, u"LbSum"), 2)), u"-1,234"_s);
    }
}

TEST_F(ListReportTest, aUnitOfSevenCharacters_andARemarkOfEighty_stayInTheirPlaces)
{
    constexpr double points = 20; // twips to the point
    for (const ReportTemplate* report : reports) {
        SCOPED_TRACE(QStringView(report->name).toUtf8().toStdString());
        const auto grid = filledGrid(*report, 2);
        const QString unit = u"十二個入大箱セット"_s.first(7);
        const RowElement& unitCell = elementOf(*report, u"LbUnit");
        grid->SetText(unitCell.column, 1, unit);
        const QString remark = u"備考は八十文字まで書けるので枠の中で終わる。"_s.repeated(4).first(80);
        if (report != &rptList_Stock) // which has no remarks
            grid->SetText(elementOf(*report, u"LbMemo").column, 1, remark);
        ASSERT_EQ(desk.print(*report, *grid), ReportStatus::Printed);
        const auto words = pdfWords(desk.setup->file);
        EXPECT_EQ(textIn(words, 1, cellBox(*report, unitCell, 0)), unit);
        double right = 0;
        for (const PdfWord& word : words)
            right = std::max(right, word.box.right());
        EXPECT_LE(right, (report->titleBand.left + report->titleBand.width).value() / points + 0.3);
        for (const PdfWord& word : words)
            if (word.text == unit) {
                EXPECT_GE(word.box.left(), cellBox(*report, unitCell, 0).left() - 0.15);
                EXPECT_LE(word.box.right(), cellBox(*report, unitCell, 0).right() + 0.15);
            }
    }
}

TEST_F(ListReportTest, aStockDetail_printsItsBlockRowsLikeMainRows)
{
    const auto grid = filledGrid(rptList_Stock, 5 * 7); // five goods, each with a block of six rows
    for (int row = 1; row <= grid->MaxRows(); ++row)
        if (row % 7 != 1) {
            grid->SetText(StockCells::code, row, QString());
            grid->SetText(StockCells::name, row, u"　② 履歴繰越 %1"_s.arg(row));
            grid->SetText(StockCells::amount, row, u"1,000"_s);
        }
    ASSERT_EQ(desk.print(rptList_Stock, *grid), ReportStatus::Printed);
    EXPECT_EQ(pdfPages(desk.setup->file), 2);
    const auto words = pdfWords(desk.setup->file);
    EXPECT_EQ(unspaced(textIn(words, 2, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbGoods"), 9))),
              u"②履歴繰越35"_s);
    EXPECT_EQ(textIn(words, 2, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbSum"), 9)), u"1,000"_s);
}

TEST_F(ListReportTest, twoCopiesAreOneDocumentThatBeginsAgain)
{
    desk.setup->copies = 2;
    const auto grid = filledGrid(rptList_In, 45);
    ASSERT_EQ(desk.print(rptList_In, *grid, {}, {2, 4}), ReportStatus::Printed);
    ASSERT_EQ(pdfPages(desk.setup->file), 6);
    const auto words = pdfWords(desk.setup->file);
    for (int page = 1; page <= 6; ++page) {
        const int printed = 2 + (page - 1) % 3;
        EXPECT_EQ(unspaced(textIn(words, page, cellBox(rptList_In, elementOf(rptList_In, u"LbCode"), 0))),
                  grid->qtext(listSide(Side::Receipt).cells.code, (printed - 1) * 10 + 1));
        EXPECT_EQ(textIn(words, page, QRectF(726, 51, 19, 13)), QString::number(printed));
        EXPECT_EQ(textIn(words, page, QRectF(754, 51, 19, 13)), u"5"_s);
    }
}

TEST_F(ListReportTest, titlesOfColumnsThatTheViewLeavesEmpty_doNotPrint)
{
    struct Case
    {
        const ReportTemplate* report;
        QStringList optional;
        QStringList always;
    };
    const Case cases[] = {
        {&rptList_Stock,
         {u"値引き"_s, u"（合計）"_s},
         {u"コード"_s, u"在庫数"_s, u"最低在庫数"_s, u"単位"_s}},
        {&rptList_In, {u"入荷日"_s, u"備考"_s}, {u"コード"_s, u"返却数"_s, u"入荷単価"_s, u"値引き"_s}},
        {&rptList_Out, {u"出荷日"_s, u"備考"_s}, {u"コード"_s, u"良品返品"_s, u"不良返品"_s, u"（合計）"_s}},
    };
    const auto printed = [this](const ReportTemplate& report, bool all) {
        const auto grid = filledGrid(report, 0);
        EXPECT_EQ(desk.print(report, *grid, {.texts = {}, .optionalTitles = all}, {1, 1}),
                  ReportStatus::Printed);
        QStringList texts;
        for (const PdfWord& word : pdfWords(desk.setup->file))
            texts << word.text;
        return texts.join(u' ');
    };
    for (const Case& one : cases) {
        const QString with = printed(*one.report, true);
        const QString without = printed(*one.report, false);
        for (const QString& title : one.optional) {
            EXPECT_TRUE(with.contains(title)) << title.toStdString();
            EXPECT_FALSE(without.contains(title)) << title.toStdString();
        }
        for (const QString& title : one.always)
            EXPECT_TRUE(without.contains(title)) << title.toStdString();
    }
}

TEST_F(ListReportTest, theHeadShowsFilterTimeAndPages)
{
    const auto stock = filledGrid(rptList_Stock, 26);
    ASSERT_EQ(desk.print(rptList_Stock, *stock, sampleHead(), {2, 2}), ReportStatus::Printed);
    const auto stockWords = pdfWords(desk.setup->file);
    EXPECT_EQ(unspaced(textIn(stockWords, 1, QRectF(300, 34, 250, 22))), u"在庫明細一覧"_s);
    EXPECT_EQ(unspaced(textIn(stockWords, 1, QRectF(690, 34, 120, 13))), u"2026/11/2108:05現在"_s);
    EXPECT_EQ(unspaced(textIn(stockWords, 1, QRectF(690, 68, 120, 13))), u"2／2ページ"_s);
    for (const auto& [report, title] :
         {std::pair(&rptList_In, u"入荷"_s), std::pair(&rptList_Out, u"出荷"_s)}) {
        const auto grid = filledGrid(*report, report->rowsPerPage + 1);
        ASSERT_EQ(desk.print(*report, *grid, sampleHead(), {2, 2}), ReportStatus::Printed);
        const auto words = pdfWords(desk.setup->file);
        EXPECT_EQ(unspaced(textIn(words, 1, QRectF(300, 27, 300, 22))), title + u"明細一覧"_s);
        EXPECT_EQ(unspaced(textIn(words, 1, QRectF(54, 51, 180, 13))), u"2026年11月01日～2026年11月21日"_s);
        EXPECT_EQ(unspaced(textIn(words, 1, QRectF(54, 63.8, 245, 12.7))), title + u"先：株式会社山田商店"_s);
        EXPECT_EQ(unspaced(textIn(words, 1, QRectF(305, 63.8, 260, 12.7))), u"商品名：（すべて）"_s);
        EXPECT_EQ(unspaced(textIn(words, 1, QRectF(580, 63.8, 220, 12.7))), u"担当者：（すべて）"_s);
    }
}

TEST_F(ListReportTest, rowsThatAreNotThere_haveNeitherLineNorBand)
{
    desk.setup->dpi = 300;
    const auto grid = filledGrid(rptList_Stock, 4);
    ASSERT_EQ(desk.print(rptList_Stock, *grid), ReportStatus::Printed);
    const QImage page = pdfPicture(desk.setup->file, 1, 300, Edges::Exact);
    const auto shade = [&page](int twipX, int twipY) {
        return qGray(page.pixel(twipX * 300 / 1440, twipY * 300 / 1440 + 1));
    };
    EXPECT_NEAR(shade(320, 2200), 244, 5); // band of row 1
    EXPECT_EQ(shade(320, 2200 + 360), 255);
    EXPECT_NEAR(shade(320, 2200 + 2 * 360), 244, 5);
    EXPECT_EQ(shade(320, 2200 + 4 * 360), 255); // row 5 would have one
    EXPECT_EQ(shade(320, 2398 + 3 * 360), 0);   // line under row 4
    EXPECT_EQ(shade(320, 2398 + 4 * 360), 255);
}

TEST_F(ListReportTest, theCornerOfThePaperTakesTheFrame)
{
    desk.setup->dpi = 600;
    desk.setup->margins = {12, 12, 12, 12};
    ASSERT_TRUE(desk.select());
    desk.paper.moveToCorner(inches(rptList_In.lines[0].at.x1), inches(rptList_In.lines[1].at.y1));
    EXPECT_NEAR(desk.paper.PrtOffsetX(), 1093 / 2.4, 1e-9); // dots, past the margin of 100
    EXPECT_NEAR(desk.paper.PrtOffsetY(), 420 / 2.4, 1e-9);
    const auto grid = filledGrid(rptList_In, 10);
    ASSERT_EQ(ListReport(rptList_In, *grid).print(desk.paper, {}, {1, 1}, 1), ReportStatus::Printed);
    const QImage page = pdfPicture(desk.setup->file, 1, 600, Edges::Exact);
    EXPECT_EQ(qGray(page.pixel(101, 110)), 0); // the line at the top begins at the margin
    EXPECT_EQ(qGray(page.pixel(97, 110)), 255);
    EXPECT_EQ(qGray(page.pixel(101, 96)), 255);
}

TEST_F(ListReportTest, aFileThatCannotBeWritten_isReported_andThePrinterStaysUsable)
{
    const auto grid = filledGrid(rptList_Out, 30);
    const QString good = desk.setup->file;
    desk.setup->file = u"/no/such/folder/list.pdf"_s;
    EXPECT_EQ(desk.print(rptList_Out, *grid), ReportStatus::DrawingFailed);
    desk.setup->file = good;
    EXPECT_EQ(desk.print(rptList_Out, *grid), ReportStatus::Printed);
    EXPECT_EQ(pdfPages(good), 3);
}

TEST_F(ListReportTest, aDiskThatFillsUpWhilePrinting_isReported)
{
    desk.setup->file = u"/dev/full"_s;
    const auto grid = filledGrid(rptList_Stock, 2500);
    EXPECT_EQ(desk.print(rptList_Stock, *grid), ReportStatus::DrawingFailed); // seen at a page on the way
    const auto small = filledGrid(rptList_Stock, 5);
    EXPECT_EQ(desk.print(rptList_Stock, *small), ReportStatus::Failed); // seen at the end
}

TEST_F(ListReportTest, anErrorOnTheWayClosesTheDocument)
{
    const auto grid = filledGrid(rptList_In, 30);
    ASSERT_TRUE(desk.select());
    const auto breaks = [](int done, int) {
        if (done == 2)
            throw RunTimeError(RunTimeError::Overflow, "broken");
    };
    EXPECT_EQ(ListReport(rptList_In, *grid).print(desk.paper, {}, {1, 3}, 3, breaks),
              ReportStatus::DrawingFailed);
    EXPECT_FALSE(desk.printer.painter().isActive());
}

TEST_F(ListReportTest, aGridThatHasShrunkMeanwhile_printsWhatIsLeft)
{
    const auto grid = filledGrid(rptList_Stock, 60);
    ASSERT_TRUE(desk.select());
    grid->setMaxRows(26);
    EXPECT_EQ(ListReport(rptList_Stock, *grid).print(desk.paper, {}, {1, 3}, 3), ReportStatus::Printed);
    const auto words = pdfWords(desk.setup->file);
    EXPECT_EQ(textIn(words, 2, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbCode"), 0)),
              grid->qtext(StockCells::code, 26));
    EXPECT_EQ(textIn(words, 2, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbCode"), 1)), QString());
    EXPECT_EQ(textIn(words, 3, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbCode"), 0)), QString());
}

TEST_F(ListReportTest, paperOfAnotherSizeIsPrintedOnAllTheSame)
{
    desk.setup->paper = QPageSize(QPageSize::A5);
    const auto grid = filledGrid(rptList_Out, 10);
    EXPECT_EQ(desk.print(rptList_Out, *grid), ReportStatus::Printed);
    EXPECT_EQ(pdfPages(desk.setup->file), 1);
}

TEST_F(ListReportTest, textsOfAnyKindAndLengthStayInTheirBox)
{
    const auto grid = filledGrid(rptList_Stock, 3);
    grid->SetText(StockCells::name, 1, QString(60, u'長'));
    grid->SetText(StockCells::name, 2, QString(u"%1 \n \t 100% <b>太字</b>"_s));
    grid->SetText(StockCells::quantity, 3, u"-9,999,999,999,999"_s);
    ASSERT_EQ(desk.print(rptList_Stock, *grid), ReportStatus::Printed);
    const auto words = pdfWords(desk.setup->file);
    const QRectF goods = cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbGoods"), 1);
    EXPECT_EQ(unspaced(textIn(words, 1, goods)), u"%1100%<b>太字</b>"_s);
    EXPECT_EQ(textIn(words, 1, cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbStock"), 2)),
              u"-9,999,999,999,999"_s);
    int cut = 0;
    for (const PdfWord& word : words)
        if (word.text.startsWith(u'長')) {
            EXPECT_LE(word.box.right(),
                      cellBox(rptList_Stock, elementOf(rptList_Stock, u"LbMinStock"), 0).left());
            ++cut;
        }
    EXPECT_GE(cut, 1);
}

TEST_F(ListReportTest, memoryDoesNotGrowWithThePages)
{
    const auto grid = filledGrid(rptList_In, 5000);
    ASSERT_TRUE(desk.select());
    std::size_t early = 0;
    std::size_t late = 0;
    const auto look = [&](int done, int) {
        if (done == 100)
            early = heldBytes();
        if (done == 500)
            late = heldBytes();
    };
    ASSERT_EQ(ListReport(rptList_In, *grid).print(desk.paper, {}, {1, 500}, 500, look),
              ReportStatus::Printed);
    ASSERT_GT(early, 0U);
    ASSERT_GT(late, 0U);
    EXPECT_LT(late, early + 512 * 1024);
}

} // namespace suisui::test
