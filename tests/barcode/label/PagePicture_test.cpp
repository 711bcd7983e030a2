// The picture of a page before it is printed, and its warnings.
#include "barcode/label/PagePicture.h"

#include <QLabel>

#include <gtest/gtest.h>

#include "barcode/label/SheetPicture.h"
#include "tests/barcode/label/LabelDesk.h"
#include "tests/support/BarReader.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Rows = std::vector<LabelledRow>;

const QSize a4At300(2480, 3508);

struct Preview
{
    explicit Preview(const std::vector<LabelledRow>& rows) : desk(rows)
    {
        job.grid = {.columns = 4, .rows = 11, .start = {10_mm, 13_mm}, .width = 48.1_mm, .height = 25.5_mm};
        job.barHeight = 11_mm;
        job.endRow = static_cast<std::int64_t>(rows.size());
    }

    [[nodiscard]] PagePicture draw(int page = 1, int step = 3, QSize size = {420, 594})
    {
        const LabelRows source(desk.grid, labelMarkColumn, labelQuantityColumn);
        return drawPage(job, source.trial(), desk.ini, step, page, size);
    }

    LabelDialogDesk desk;
    LabelJob job;
};

bool hasColor(const QImage& image, const std::function<bool(QRgb)>& wanted)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (wanted(image.pixel(x, y)))
                return true;
    return false;
}

bool isRed(QRgb pixel)
{
    return qRed(pixel) > 180 && qGreen(pixel) < 120 && qBlue(pixel) < 120;
}

} // namespace

TEST(PagePicture, isReadByAReader_andLeavesTheMarksOfTheGrid)
{
    Preview preview(Rows{{"4901234567894", "1"}, {"4901777018888", "2"}});
    const PagePicture page = preview.draw(1, 3, a4At300);
    EXPECT_EQ(readBarCodes(page.image), "4901234567894 4901777018888");
    EXPECT_EQ(page.worst, BarFit::Good);
    EXPECT_TRUE(page.codes.isEmpty());
    EXPECT_EQ(preview.desk.marks(), "11");
}

TEST(PagePicture, showsThePageThatIsAskedFor)
{
    Preview preview(Rows{{"4901234567894", "44"}, {"4901777018888", "2"}});
    EXPECT_EQ(readBarCodes(preview.draw(2, 3, a4At300).image), "4901777018888");
}

TEST(PagePicture, aCodeThatIsWiderThanItsLabel_isRed)
{
    Preview preview(Rows{{"4901234567894", "1"}, {"ABCDEFGHIJKLMNOP", "1"}});
    const PagePicture page = preview.draw();
    EXPECT_EQ(page.worst, BarFit::TooWide);
    EXPECT_EQ(page.codes, QStringList{u"ABCDEFGHIJKLMNOP"_s});
    EXPECT_TRUE(hasColor(page.image, isRed));
    EXPECT_EQ(preview.draw(1, 2).worst, BarFit::Good) << "thinner bars fit";
}

TEST(PagePicture, aQuietZoneThatCannotBeKept_isWarnedOf)
{
    Preview preview(Rows{{"4901234567894"}});
    preview.job.grid.width = 32_mm; // bars of 31.2 mm
    EXPECT_EQ(preview.draw().worst, BarFit::NoQuietZone);
    preview.job.grid.width = 34_mm;
    EXPECT_EQ(preview.draw().worst, BarFit::Good);
    preview.job.grid.start.x = 2_mm; // ten modules are 2.54 mm
    EXPECT_EQ(preview.draw().worst, BarFit::NoQuietZone);
}

TEST(PagePicture, bars_beyondThePaper_withoutHeight_orTooHigh_areRed)
{
    Preview preview(Rows{{"4901234567894"}});
    preview.job.grid.start.x = 190_mm;
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide);
    preview.job.grid.start.x = -5_mm;
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide);
    preview.job.grid.start.x = 10_mm;
    preview.job.barHeight = 26_mm;
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide);
    preview.job.barHeight = -1_mm;
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide);
    preview.job.barHeight = 11_mm;
    preview.job.grid.start = {Millimetres(1e300), Millimetres(1e300)};
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide);
}

TEST(PagePicture, aCodeInJapanese_isCrossedOut)
{
    Preview preview(Rows{{"鉛筆", "1"}, {"A1", "1"}});
    const PagePicture page = preview.draw();
    EXPECT_EQ(page.worst, BarFit::NotCarried);
    EXPECT_EQ(page.codes, QStringList{u"鉛筆"_s});
    EXPECT_TRUE(hasColor(page.image, isRed));
}

TEST(PagePicture, namesTheCodesThatAreWorstOff)
{
    Preview preview(Rows{{"ABCDEFGHIJKLMNOP", "1"}, {"鉛筆", "2"}, {"A1", "1"}, {"消しゴム", "1"}});
    EXPECT_EQ(preview.draw().codes, (QStringList{u"鉛筆"_s, u"消しゴム"_s}));
}

TEST(PagePicture, functionCodesThatRunIntoTheLabels_areRed)
{
    Preview preview(Rows{{"4901234567894", "12"}});
    preview.job.grid = {.columns = 2, .rows = 6, .start = {30_mm, 30_mm}, .width = 88_mm, .height = 42_mm};
    preview.job.screenCodes = {true, {5_mm, 208_mm}};
    EXPECT_EQ(preview.draw().worst, BarFit::TooWide) << "the last row of labels is there";
    preview.job.grid.rows = 5;
    EXPECT_EQ(preview.draw().worst, BarFit::Good);
    EXPECT_EQ(preview.draw(1, 5).worst, BarFit::NoQuietZone) << "the codes are too close for thick bars";
}

TEST(PagePicture, aQuantityThatIsNotANumber_isReported_andThePictureStays)
{
    Preview preview(Rows{{"A1", "1"}, {"B1", "many"}});
    const PagePicture page = preview.draw();
    EXPECT_TRUE(page.badNumber);
    EXPECT_FALSE(page.image.isNull());
}

TEST(PagePicture, theDialog_warnsInWords_andTakesTheWarningBack)
{
    LabelDialogDesk desk(Rows{{"ABCDEFGHIJKLMNOP", "1"}, {"鉛筆", "1"}});
    desk.open();
    const auto* warning = desk.find<QLabel>("lblWarning");
    EXPECT_TRUE(eventually([&] { return warning->text() == u"バーコードにできない文字です。\n鉛筆"_s; }));
    desk.grid.SetText(labelCodeColumn, 2, std::string_view("B"));
    desk.sheet(3);
    EXPECT_TRUE(eventually([&] { return warning->text().contains(u"収まりません"_s); }));
    EXPECT_TRUE(warning->text().endsWith(u"ABCDEFGHIJKLMNOP"_s));
    desk.choice("cmbBarPich")->setCurrentIndex(0);
    EXPECT_TRUE(eventually([&] { return warning->text().isEmpty(); }));
}

TEST(PagePicture, theDialog_leafsThroughThePages)
{
    LabelDialogDesk desk(Rows{{"A", "30"}});
    desk.open();
    const auto* shown = desk.find<QLabel>("lblShown");
    ASSERT_TRUE(eventually([&] { return shown->text() == u"1 / 3 ページ"_s; }));
    EXPECT_FALSE(desk.button("cmdBack")->isEnabled());
    desk.button("cmdNext")->click();
    desk.button("cmdNext")->click();
    EXPECT_EQ(shown->text(), u"3 / 3 ページ"_s);
    EXPECT_FALSE(desk.button("cmdNext")->isEnabled());
    desk.button("cmdBack")->click();
    EXPECT_EQ(shown->text(), u"2 / 3 ページ"_s);
}

} // namespace suisui::test
