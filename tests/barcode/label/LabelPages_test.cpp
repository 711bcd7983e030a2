#include "barcode/label/LabelPages.h"

#include <limits>

#include <gtest/gtest.h>

#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Counts the pages by putting label after label on them.
std::int32_t pagesByHand(std::int64_t labels, std::int64_t capacity, std::int64_t start)
{
    std::int32_t pages = 0;
    std::int64_t place = capacity; // as if a page had just been filled
    for (std::int64_t i = 0; i < labels; ++i) {
        if (place == capacity) {
            place = pages == 0 ? start - 1 : 0;
            ++pages;
        }
        ++place;
    }
    return pages;
}

} // namespace

TEST(LabelPages, twelveLabelsFillASheetOfTwelve_oneMoreBeginsASecond)
{
    EXPECT_EQ(pagesNeeded(12, 12, 1), 1);
    EXPECT_EQ(pagesNeeded(13, 12, 1), 2);
    EXPECT_EQ(pagesNeeded(12, 12, 2), 2);
    EXPECT_EQ(pagesNeeded(5, 12, 8), 1);
}

TEST(LabelPages, noLabelsNeedNoPage)
{
    EXPECT_EQ(pagesNeeded(0, 12, 1), 0);
    EXPECT_EQ(pagesNeeded(0, 12, 7), 0);
    EXPECT_EQ(pagesNeeded(10, 0, 1), 0);
}

TEST(LabelPages, upToFivePages_everyCountIsThatOfPlacingOneByOne)
{
    for (std::int64_t capacity = 1; capacity <= 44; ++capacity)
        for (std::int64_t start = 1; start <= capacity; ++start)
            for (std::int64_t labels = 0; labels <= 5 * capacity; ++labels)
                ASSERT_EQ(pagesNeeded(labels, capacity, start), pagesByHand(labels, capacity, start))
                    << labels << " labels on sheets of " << capacity << " from " << start;
}

TEST(LabelPages, randomJobs_areWhatPlacingThemOneByOneGives)
{
    std::mt19937 random(printedSeed());
    for (int i = 0; i < 5000; ++i) {
        const auto capacity = static_cast<std::int64_t>(1 + random() % 99);
        const auto start = static_cast<std::int64_t>(1 + random() % static_cast<unsigned>(capacity));
        const auto labels = static_cast<std::int64_t>(random() % 3000);
        ASSERT_EQ(pagesNeeded(labels, capacity, start), pagesByHand(labels, capacity, start))
            << labels << " labels on sheets of " << capacity << " from " << start;
    }
}

TEST(LabelPages, moreLabelsThanAllPaper_stayANumber)
{
    EXPECT_EQ(pagesNeeded(labelsOf(1e300), 1, 1), std::numeric_limits<std::int32_t>::max());
    EXPECT_GT(labelsOf(1e300), 0);
    EXPECT_LT(labelsOf(-1e300), 0);
}

TEST(LabelPages, aQuantityRoundsToTheEvenNeighbour)
{
    EXPECT_EQ(labelsOf(2.5), 2);
    EXPECT_EQ(labelsOf(3.5), 4);
    EXPECT_EQ(labelsOf(2.51), 3);
    EXPECT_EQ(labelsOf(-3), -3);
}

TEST(LabelPages, pageRange_takesWhatIsWrongAsFirstOrLast)
{
    struct Case
    {
        const char16_t* first;
        const char16_t* last;
        std::int32_t total;
        std::int32_t wantedFirst;
        std::int32_t wantedLast;
    };
    for (const Case& each : {Case{u"1", u"5", 5, 1, 5}, Case{u"2", u"3", 5, 2, 3}, Case{u"x", u"", 5, 1, 5},
                             Case{u"6", u"3", 5, 1, 3}, Case{u"0", u"2", 5, 1, 2}, Case{u"2", u"9", 5, 2, 5},
                             Case{u"3", u"2", 5, 3, 5}, Case{u"-4", u"-1", 5, 1, 5},
                             Case{u"1e99", u"1e99", 7, 1, 7}, Case{u"1", u"0", 1, 1, 1}}) {
        const LabelPageRange range =
            labelPageRange(QString::fromUtf16(each.first), QString::fromUtf16(each.last), each.total);
        EXPECT_EQ(range.first, each.wantedFirst) << QString::fromUtf16(each.first).toStdString();
        EXPECT_EQ(range.last, each.wantedLast) << QString::fromUtf16(each.last).toStdString();
    }
}

TEST(LabelPages, numericText)
{
    for (const QString& text : {u"1"_s, u"-5.00"_s, u"0.5"_s, u" 3 "_s, u"00.00"_s, u"1,000"_s})
        EXPECT_TRUE(numberIn(text)) << text.toStdString();
    for (const QString& text : {u""_s, u"-"_s, u"."_s, u"1.2.3"_s, u"x"_s, u"1-2"_s, u"--1"_s})
        EXPECT_FALSE(numberIn(text)) << text.toStdString();
    EXPECT_EQ(numberIn(u" 3 "_s), 3);
}

} // namespace suisui::test
