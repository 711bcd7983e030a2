#include "barcode/label/LabelPrint.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "barcode/label/LabelRows.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"
#include "tests/support/RecordingBarPrt.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::string_view_literals;

namespace suisui::test {

namespace {

constexpr int quantityColumn = 3;
constexpr int markColumn = 4;

const LabelGrid sheetOfTwelve{.columns = 2, .rows = 6, .start = {25.4, 25.4}, .width = 88.9, .height = 38.1};

struct Row
{
    std::string code;
    std::string quantity;
    bool mark = true;
};

class LabelPrint : public ::testing::Test
{
protected:
    LabelPrint()
    {
        static constexpr std::array columns{SpreadColumn{.heading = "code"}, SpreadColumn{.heading = "name"},
                                            SpreadColumn{.heading = "quantity", .type = CellType::Number},
                                            SpreadColumn{.heading = "mark", .type = CellType::CheckBox}};
        grid.setColumns(columns);
        job.grid = sheetOfTwelve;
        job.barHeight = 12;
        ini.setIniFolder(QString());
    }

    void fill(const std::vector<Row>& rows)
    {
        grid.setMaxRows(static_cast<int>(rows.size()));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const int row = static_cast<int>(i) + 1;
            grid.SetText(1, row, rows[i].code);
            grid.SetText(2, row, "name of " + rows[i].code);
            grid.SetText(quantityColumn, row, rows[i].quantity);
            grid.SetText(markColumn, row, rows[i].mark ? "1"sv : "0"sv);
        }
        job.startRow = 1;
        job.endRow = grid.MaxRows();
    }

    LabelRows rows(int quantity = quantityColumn) { return {grid, markColumn, quantity}; }

    /// Prints the pages that the count gives, or those that were asked for.
    void print(std::optional<LabelPageRange> pages = {})
    {
        LabelRows source = rows();
        const auto labels = labelsWanted(source, job.startRow, job.endRow, true, job.eachRow);
        counted = pagesNeeded(labels, job.grid.capacity(), job.startLabel);
        job.pages = pages.value_or(LabelPageRange{1, counted});
        LabelPrintOut(job, source, ini, paper);
    }

    /// Position on the sheet, from 0, of a bar at \a dot.
    [[nodiscard]] int positionOf(QPoint dot) const
    {
        for (int position = 0; position < job.grid.capacity(); ++position)
            if (placeInDots(job.grid.placeOf(position), {600, 600, 0, 0}) == dot)
                return position;
        return -1;
    }
    /// "code@position" of each bar of page \a page, from 0.
    [[nodiscard]] std::vector<std::string> labelsOfPage(std::size_t page) const
    {
        std::vector<std::string> labels;
        for (const auto& bar : paper.pages.at(page).bars)
            labels.push_back(bar.text.toStdString() + "@" + std::to_string(positionOf(bar.at)));
        return labels;
    }
    [[nodiscard]] std::string marks() const
    {
        std::string all;
        for (int row = 1; row <= grid.MaxRows(); ++row)
            all += grid.text(markColumn, row) == "1" ? '1' : '0';
        return all;
    }

    vaSpread grid;
    AppIni ini;
    RecordingBarPrt paper;
    LabelJob job;
    std::int32_t counted = 0;
};

using Labels = std::vector<std::string>;

} // namespace

TEST_F(LabelPrint, threeLabelsFromTheFifthPlace_standInRowsTwoAndThree)
{
    fill({{"A", "3"}});
    job.startLabel = 5;
    print();
    ASSERT_EQ(paper.pages.size(), 1U);
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@4", "A@5", "A@6"}));
}

TEST_F(LabelPrint, aQuantityOfFifteenOnASheetOfTwelve_goesOnAtTheHeadOfTheNextPage)
{
    fill({{"A", "15"}});
    print();
    ASSERT_EQ(paper.pages.size(), 2U);
    EXPECT_EQ(paper.pages[0].bars.size(), 12U);
    EXPECT_EQ(labelsOfPage(1), (Labels{"A@0", "A@1", "A@2"}));
}

TEST_F(LabelPrint, aPrintFromTheSecondPage_opensOnlyThatOne_withItsLabelsWhereTheWholeJobHasThem)
{
    fill({{"A", "15"}});
    print(LabelPageRange{2, 2});
    EXPECT_EQ(paper.calls, (std::vector<std::string>{"start page", "end page"}));
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "A@1", "A@2"}));
}

TEST_F(LabelPrint, aNameIsCutAtFifteenCharacters_aCodeNever)
{
    fill({{"1234567890ABCDEFGHIJ", "1"}});
    grid.SetText(2, 1, u"一二三四五六七八九十一二三四五六七"_s);
    job.name = {true, {0, -5}};
    job.code = {true, {0, 13}};
    print();
    ASSERT_EQ(paper.pages.at(0).texts.size(), 2U);
    EXPECT_EQ(paper.pages[0].bars.at(0).text, u"1234567890ABCDEFGHIJ"_s);
    EXPECT_EQ(paper.pages[0].texts[0].text, u"1234567890ABCDEFGHIJ"_s);
    EXPECT_EQ(paper.pages[0].texts[1].text, u"一二三四五六七八九十一二三四五"_s);
}

TEST_F(LabelPrint, aNameOffsetOfMinusFive_isFiveMillimetresAboveTheBars)
{
    fill({{"A", "1"}});
    job.name = {true, {0, -5}};
    print();
    const QPoint bar = paper.pages.at(0).bars.at(0).at;
    const QPoint name = paper.pages[0].texts.at(0).at;
    EXPECT_EQ(name.x(), bar.x()); // half a dot rounds back
    EXPECT_EQ(name.y(), bar.y() - 118);
}

TEST_F(LabelPrint, anOrientationOtherThanPortrait_swapsTheOffsets_butNotTheResolutions)
{
    fill({{"A", "1"}});
    paper.offsetX = 10;
    paper.offsetY = 40;
    paper.dpiX = 300;
    print();
    EXPECT_EQ(paper.pages.at(0).bars.at(0).at, QPoint(290, 560));
    grid.SetText(markColumn, 1, "1"sv);
    paper.turned = 2;
    print();
    EXPECT_EQ(paper.pages.at(1).bars.at(0).at, QPoint(260, 590));
}

TEST_F(LabelPrint, twoCopies_giveASecondRunWithFunctionCodesOnly_afterOneMoreEndOfPage)
{
    fill({{"A", "13"}});
    paper.copyCount = 2;
    job.screenCodes = {true, {5, 208}};
    print();
    EXPECT_EQ(paper.calls,
              (std::vector<std::string>{"start page", "end page", "start page", "end page", "end page",
                                        "start page", "end page", "start page", "end page"}));
    ASSERT_EQ(paper.pages.size(), 4U);
    EXPECT_EQ(paper.pages[0].bars.size(), 12U + 5U);
    EXPECT_EQ(paper.pages[1].bars.size(), 1U + 5U);
    EXPECT_EQ(paper.pages[2].bars.size(), 5U);
    EXPECT_EQ(paper.pages[3].bars.size(), 5U);
}

TEST_F(LabelPrint, noCopiesAreOne)
{
    fill({{"A", "1"}});
    paper.copyCount = 0;
    print();
    EXPECT_EQ(paper.pages.size(), 1U);
}

TEST_F(LabelPrint, marksAreUsedUpByTheRowsWalked_andKeptBehindTheLastPage)
{
    fill({{"A", "6"}, {"B", "6", false}, {"C", "6"}, {"D", "6"}, {"E", "1"}});
    print(LabelPageRange{1, 1});
    EXPECT_EQ(labelsOfPage(0).size(), 12U);
    EXPECT_EQ(marks(), "00011"); // the third is the one that the walk ended on
    print();
    EXPECT_EQ(marks(), "00000");
}

TEST_F(LabelPrint, marksOfPagesWalkedWithoutOutput_areUsedUpToo)
{
    fill({{"A", "12"}, {"B", "3"}});
    print(LabelPageRange{2, 2});
    EXPECT_EQ(labelsOfPage(0), (Labels{"B@0", "B@1", "B@2"}));
    EXPECT_EQ(marks(), "00");
}

TEST_F(LabelPrint, pagesLeftWhenTheLabelsHaveRunOut_areOpenedAndHaveTheirFunctionCodes)
{
    fill({{"A", "2"}});
    job.searchCodes = {true, {-6, 228}};
    print(LabelPageRange{1, 3});
    ASSERT_EQ(paper.pages.size(), 3U);
    EXPECT_EQ(paper.pages[0].bars.size(), 2U + 5U);
    EXPECT_EQ(paper.pages[2].bars.size(), 5U);
}

TEST_F(LabelPrint, aMarkedRowWithoutACode_printsNothing_andTakesNoPlace)
{
    fill({{"A", "1"}, {"  ", "4"}, {"", "4"}, {"B", "1"}});
    print();
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "B@1"}));
}

TEST_F(LabelPrint, theLastRowWithoutAMark_endsTheWalk)
{
    fill({{"A", "3"}, {"B", "1", false}});
    print(LabelPageRange{1, 2});
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "A@1", "A@2"}));
    EXPECT_TRUE(labelsOfPage(1).empty());
}

TEST_F(LabelPrint, anEmptyQuantityIsNone_aNegativeOneToo)
{
    fill({{"A", ""}, {"B", "-3"}, {"C", "1"}, {"D", "0"}});
    print(LabelPageRange{1, 1});
    EXPECT_EQ(labelsOfPage(0), (Labels{"C@0"}));
}

TEST_F(LabelPrint, aQuantityThatIsNoNumber_isPassedOverByTheCount_andStopsThePrint)
{
    fill({{"A", "2"}, {"B", "many"}});
    LabelRows source = rows();
    EXPECT_EQ(labelsWanted(source, 1, 2, true, 1), 2);
    job.pages = {1, 1};
    EXPECT_THROW(LabelPrintOut(job, source, ini, paper), RunTimeError);
}

TEST_F(LabelPrint, withoutAQuantityColumn_everyRowGetsTheSameNumber)
{
    fill({{"A", "9"}, {"B", "9"}});
    job.eachRow = 2;
    LabelRows source = rows(0);
    job.pages = {1, 1};
    LabelPrintOut(job, source, ini, paper);
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "A@1", "B@2", "B@3"}));
}

TEST_F(LabelPrint, textsAreDrawnInTheOrderBarsCodeName)
{
    fill({{"A", "1"}});
    job.wrap = u"*"_s;
    job.code = {true, {0, 13}};
    job.name = {true, {0, -5}};
    print();
    EXPECT_EQ(paper.pages.at(0).bars.at(0).text, u"*A*"_s);
    EXPECT_EQ(paper.pages[0].texts.at(0).text, u"*A*"_s);
    EXPECT_EQ(paper.pages[0].texts.at(1).text, u"name of A"_s);
    EXPECT_EQ(paper.barHeight(), 284);
}

TEST_F(LabelPrint, aHugeQuantityWithThePagesThatWereAskedFor_isWalkedOnlySoFar)
{
    fill({{"A", "99999999999"}, {"B", "1"}});
    print(LabelPageRange{9998, 9999});
    EXPECT_EQ(paper.pages.size(), 2U);
    EXPECT_EQ(marks(), "01");
}

TEST_F(LabelPrint, aTrial_leavesTheMarksOfTheGrid)
{
    fill({{"A", "3"}, {"B", "1", false}});
    LabelRows trial = rows().trial();
    trial.setMark(2, true);
    job.pages = {1, 1};
    LabelPrintOut(job, trial, ini, paper);
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "A@1", "A@2", "B@3"}));
    EXPECT_EQ(marks(), "10");
}

TEST_F(LabelPrint, theScreenCodes_standAtTheirMillimetres_withTheWordsOfTheShop)
{
    fill({{"A", "1"}});
    job.screenCodes = {true, {5, 208}};
    print();
    const auto& page = paper.pages.at(0);
    ASSERT_EQ(page.bars.size(), 6U);
    const QPoint corner = placeInDots({30.4, 233.4}, {600, 600, 0, 0});
    const std::array codes{u"[0]"_s, u"[1]"_s, u"[2]"_s, u"[3]"_s, u"[4]"_s};
    const std::array words{u"入荷 登録"_s, u"出荷 登録"_s, u"在庫 一覧"_s, u"入荷 一覧"_s, u"出荷 一覧"_s};
    const std::array millimetres{0, 38, 76, 105, 134};
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const QPoint wanted = corner + QPoint(lengthInDots(millimetres[i], 600), 0);
        EXPECT_EQ(page.bars[i + 1].text, codes[i]);
        EXPECT_EQ(page.bars[i + 1].at, wanted);
        EXPECT_EQ(page.texts.at(i).text, words[i]);
        EXPECT_EQ(page.texts[i].at, wanted + QPoint(0, -118));
    }
}

TEST_F(LabelPrint, theSearchCodes_haveOneOrTwoLinesOverThem)
{
    fill({{"A", "1"}});
    job.searchCodes = {true, {-6, 228}};
    print();
    const auto& page = paper.pages.at(0);
    ASSERT_EQ(page.bars.size(), 6U);
    ASSERT_EQ(page.texts.size(), 8U);
    const QPoint corner = placeInDots({19.4, 253.4}, {600, 600, 0, 0});
    EXPECT_EQ(page.bars[1].at, corner);
    EXPECT_EQ(page.bars[5].text, u"[E]"_s);
    EXPECT_EQ(page.bars[5].at.x(), corner.x() + lengthInDots(136, 600));
    EXPECT_EQ(page.texts[0].text, u"商品名 （すべて）"_s);
    EXPECT_EQ(page.texts[0].at.y(), corner.y() + lengthInDots(-5, 600));
    EXPECT_EQ(page.texts[1].text, u"入荷先 （すべて）"_s);
    EXPECT_EQ(page.texts[1].at.y(), corner.y() + lengthInDots(-7, 600));
    EXPECT_EQ(page.texts[2].text, u"出荷先 （すべて）"_s);
    EXPECT_EQ(page.texts[2].at.y(), corner.y() + lengthInDots(-3.5, 600));
    EXPECT_EQ(page.texts[3].text, u"担当者 （すべて）"_s);
    EXPECT_EQ(page.texts[4].text, u"最低在庫数未満のみ表示"_s);
    EXPECT_EQ(page.texts[5].text, u"商品で集計して表示"_s);
    EXPECT_EQ(page.texts[6].text, u"在庫数０も表示"_s);
    EXPECT_EQ(page.texts[7].text, u"検索"_s);
}

/// Places the labels of marked rows one after another, without knowing how the engine walks.
TEST_F(LabelPrint, randomJobs_haveEveryLabelInItsPlace_onExactlyTheCountedPages)
{
    std::mt19937 random(printedSeed());
    const auto upTo = [&](unsigned n) { return static_cast<int>(random() % n); };
    for (int round = 0; round < 4000; ++round) {
        job.grid.columns = 1 + upTo(4);
        job.grid.rows = 1 + upTo(11);
        const auto capacity = static_cast<unsigned>(job.grid.capacity());
        job.startLabel = 1 + upTo(capacity);
        std::vector<Row> given(static_cast<std::size_t>(1 + upTo(6)));
        std::vector<Labels> wanted;
        auto position = static_cast<unsigned>(job.startLabel) - 1;
        for (std::size_t i = 0; i < given.size(); ++i) {
            const int quantity = upTo(4) == 0 ? upTo(60) : upTo(4);
            given[i] = {upTo(5) == 0 ? "" : "C" + std::to_string(i),
                        upTo(6) == 0 ? "" : std::to_string(quantity), upTo(3) != 0};
            if (!given[i].mark || given[i].code.empty() || given[i].quantity.empty())
                continue;
            for (int label = 0; label < quantity; ++label) {
                if (wanted.empty() || position == capacity) {
                    position = wanted.empty() ? position : 0;
                    wanted.emplace_back();
                }
                wanted.back().push_back(given[i].code + "@" + std::to_string(position++));
            }
        }
        fill(given);
        paper.pages.clear();
        print();
        ASSERT_EQ(static_cast<std::size_t>(counted), wanted.size()) << "round " << round;
        ASSERT_EQ(paper.pages.size(), wanted.size()) << "round " << round;
        for (std::size_t page = 0; page < wanted.size(); ++page)
            ASSERT_EQ(labelsOfPage(page), wanted[page]) << "round " << round;
        // What was printed is used up; a row without labels behind the last full page was not walked.
        for (std::size_t i = 0; i < given.size() && !wanted.empty(); ++i) {
            const bool printed =
                given[i].mark && !given[i].code.empty() && std::atoi(given[i].quantity.c_str()) > 0;
            if (printed) {
                ASSERT_EQ(marks()[i], '0') << "round " << round;
            }
        }
    }
}

} // namespace suisui::test
