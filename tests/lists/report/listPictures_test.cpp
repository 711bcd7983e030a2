// Printed pages against pictures of them.
#include <cstdlib>

#include <gtest/gtest.h>

#include <QFileInfo>

#include "tests/lists/report/ReportDesk.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

struct ListPicturesTest : ::testing::Test
{
    ReportDesk desk;
};

/// How much two pictures differ: the mean difference of their pixels after scaling them to a third, so that a
/// slightly different font does not count but a moved text does. 255 for pictures of different size.
double difference(const QImage& a, const QImage& b)
{
    if (a.isNull() || a.size() != b.size())
        return 255;
    const auto soften = [](const QImage& picture) {
        return picture.scaled(picture.size() / 3, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const QImage first = soften(a);
    const QImage second = soften(b);
    double sum = 0;
    for (int y = 0; y < first.height(); ++y)
        for (int x = 0; x < first.width(); ++x)
            sum += std::abs(first.constScanLine(y)[x] - second.constScanLine(y)[x]);
    return sum / (static_cast<double>(first.width()) * first.height());
}

constexpr double tolerance = 0.35;
constexpr int pictureDpi = 96;

} // namespace

// The pictures were checked by eye before they were stored. After a deliberate change of a form delete them,
// run this test, which stores what it prints and fails, and check them again.
TEST_F(ListPicturesTest, pagesLookLikeTheStoredPictures)
{
    for (const ReportTemplate* report : reports) {
        const auto grid = filledGrid(*report, report->rowsPerPage * 2 - 3);
        ASSERT_EQ(desk.print(*report, *grid, sampleHead(), {2, 2}), ReportStatus::Printed);
        const QImage page = pdfPicture(desk.setup->file, 1, pictureDpi);
        const QString stored =
            QStringLiteral(SUISUI_REFERENCE "/") + QStringView(report->name).toString() + u".png"_s;
        if (!QFileInfo::exists(stored)) {
            EXPECT_TRUE(page.save(stored));
            ADD_FAILURE() << "stored " << stored.toStdString() << ": look at it";
            continue;
        }
        EXPECT_LT(difference(page, QImage(stored)), tolerance) << report->name.size();
    }
}

TEST_F(ListPicturesTest, aPictureWithOneColumnMoved_isNotTakenForTheStoredOne)
{
    std::vector<RowElement> cells(rptList_Stock.cells.begin(), rptList_Stock.cells.end());
    for (RowElement& each : cells)
        if (each.name == u"LbStock")
            each.box.left = each.box.left - 120_tw; // two millimetres, nearly
    ReportTemplate moved = rptList_Stock;
    moved.cells = cells;
    const auto grid = filledGrid(moved, 47);
    ASSERT_EQ(desk.print(moved, *grid, sampleHead(), {2, 2}), ReportStatus::Printed);
    const QImage stored(QStringLiteral(SUISUI_REFERENCE "/rptList_Stock.png"));
    EXPECT_GT(difference(pdfPicture(desk.setup->file, 1, pictureDpi), stored), tolerance);
}

} // namespace suisui::test
