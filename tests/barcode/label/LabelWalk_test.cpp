// The walk over the rows: whose labels are printed, how many, and what becomes of the marks.
#include <cstdlib>

#include "platform/core/RunTimeError.h"
#include "tests/barcode/label/LabelPrintTest.h"
#include "tests/support/Seed.h"

namespace suisui::test {

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

TEST_F(LabelPrint, marksAreUsedUpByTheRowsWalked_andKeptAfterTheLastPage)
{
    fill({{"A", "6"}, {"B", "6", false}, {"C", "6"}, {"D", "6"}, {"E", "1"}});
    print(LabelPageRange{1, 1});
    EXPECT_EQ(labelsOfPage(0).size(), 12U);
    EXPECT_EQ(marks(), "00011"); // the walk ended on the third row
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

TEST_F(LabelPrint, anEmptyQuantity_orANegativeOne_isNone)
{
    fill({{"A", ""}, {"B", "-3"}, {"C", "1"}, {"D", "0"}});
    print(LabelPageRange{1, 1});
    EXPECT_EQ(labelsOfPage(0), (Labels{"C@0"}));
}

TEST_F(LabelPrint, aQuantityThatIsNotANumber_isNotCounted_andStopsThePrint)
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

TEST_F(LabelPrint, aHugeQuantity_isWalkedOnlyAsFarAsThePagesAskedFor)
{
    fill({{"A", "99999999999"}, {"B", "1"}});
    print(LabelPageRange{9998, 9999});
    EXPECT_EQ(paper.pages.size(), 2U);
    EXPECT_EQ(marks(), "01");
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
        std::vector<LabelledRow> given(static_cast<std::size_t>(1 + upTo(6)));
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
        // The marks of printed rows are used up; a row without labels after the last full page was not
        // walked.
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
