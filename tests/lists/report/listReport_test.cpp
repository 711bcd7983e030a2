// The three list reports, read back from the PDF that they make.
#include <gtest/gtest.h>

#include "lists/report/ReportForm.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

struct ListReportTest : ::testing::Test
{
    ReportDesk desk;
};

/// Where a cell of row \a n of the page stands, in points.
QRectF cellBox(const ReportTemplate& report, const RowElement& element, int n)
{
    constexpr double points = 20; // twips to the point
    return {element.box.left / points, (element.box.top + n * report.pitch) / points,
            element.box.width / points, element.box.height / points};
}

QString unspaced(QString text)
{
    return text.remove(u' ').remove(u'　');
}

const ReportTemplate* const reports[] = {&rptList_Stock, &rptList_In, &rptList_Out};

ReportHead sampleHead()
{
    return {.texts = {{u"LbDate", u"2026/11/21  08:05  現在"_s},
                      {u"LbSYear", u"2026"_s},
                      {u"LbSMonth", u"11"_s},
                      {u"LbSDate", u"01"_s},
                      {u"LbEYear", u"2026"_s},
                      {u"LbEMonth", u"11"_s},
                      {u"LbEDate", u"21"_s},
                      {u"LbNyuka", u"株式会社 山田商店"_s},
                      {u"LbSyouhin", u"（すべて）"_s},
                      {u"LbTantou", u"（すべて）"_s}}};
}

} // namespace

TEST_F(ListReportTest, look)
{
    for (const ReportTemplate* report : reports) {
        desk.setup->file = u"/tmp/x8/"_s + QStringView(report->name).toString() + u".pdf"_s;
        const auto grid = filledGrid(*report, report->rowsPerPage * 2 - 3);
        EXPECT_EQ(desk.print(*report, *grid, sampleHead()), ReportStatus::Printed);
    }
}

TEST_F(ListReportTest, everyCellStandsOnItsPageInItsBox)
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

} // namespace suisui::test
