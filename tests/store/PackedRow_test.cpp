// Rows of texts in one block of memory.
#include "store/PackedRow.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Seed.h"

using namespace std::string_view_literals;

namespace suisui::test {

namespace {

std::vector<std::string> textsOf(const PackedRow& row)
{
    std::vector<std::string> texts;
    for (int column = 0; column < row.columns(); ++column)
        texts.emplace_back(row.text(column));
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(PackedRow, holdsItsTexts_withAnyByteInThem)
{
    const std::array texts{"4901001000017"sv, ""sv, "鉛筆 HB"sv, "a\0b"sv};
    const PackedRow row(texts);
    EXPECT_EQ(textsOf(row), (Texts{"4901001000017", "", "鉛筆 HB", std::string("a\0b", 3)}));
}

TEST(PackedRow, isEmptyTextsAtFirst)
{
    EXPECT_EQ(PackedRow().columns(), 0);
    EXPECT_EQ(textsOf(PackedRow(3)), (Texts{"", "", ""}));
}

TEST(PackedRow, columnsThatItDoesNotHave_areEmpty)
{
    const PackedRow row(std::array{"a"sv, "b"sv});
    EXPECT_EQ(row.text(-1), "");
    EXPECT_EQ(row.text(2), "");
    EXPECT_EQ(PackedRow().text(0), "");
}

TEST(PackedRow, aTextMayBeReplacedByAPieceOfItsOwnRow)
{
    PackedRow row(std::array{"abcdef"sv, "x"sv, "tail"sv});
    row.setText(1, row.text(0).substr(2, 3));
    EXPECT_EQ(textsOf(row), (Texts{"abcdef", "cde", "tail"}));
    row.setText(0, row.text(2));
    EXPECT_EQ(textsOf(row), (Texts{"tail", "cde", "tail"}));
    row.setText(2, row.text(2).substr(1));
    EXPECT_EQ(textsOf(row), (Texts{"tail", "cde", "ail"}));
}

TEST(PackedRow, copiesAreTheirOwn)
{
    PackedRow row(std::array{"a"sv, "b"sv});
    PackedRow copy = row;
    EXPECT_TRUE(copy == row);
    copy.setText(0, "changed");
    EXPECT_EQ(row.text(0), "a");
    EXPECT_FALSE(copy == row);
    const PackedRow& itself = row;
    row = itself;
    EXPECT_EQ(textsOf(row), (Texts{"a", "b"}));
    row = PackedRow();
    EXPECT_EQ(row.columns(), 0);
    EXPECT_TRUE(row == PackedRow());
}

TEST(PackedRow, rowsAreEqualByTheirTexts_notByTheirBytes)
{
    EXPECT_FALSE(PackedRow(std::array{"ab"sv, "c"sv}) == PackedRow(std::array{"a"sv, "bc"sv}));
    EXPECT_FALSE(PackedRow(std::array{"a"sv}) == PackedRow(std::array{"a"sv, ""sv}));
}

TEST(PackedRow, behavesLikeAListOfTexts_whateverIsWritten)
{
    const std::uint32_t seed = printedSeed();
    std::mt19937 random(seed);
    for (const int columns : {1, 17, 32, 33, 60}) {
        Texts expected(static_cast<std::size_t>(columns));
        PackedRow row(columns);
        for (int step = 0; step < 500; ++step) {
            const auto column = static_cast<int>(random() % static_cast<unsigned>(columns));
            std::string text(random() % 20, static_cast<char>('a' + random() % 26));
            row.setText(column, text);
            expected[static_cast<std::size_t>(column)] = std::move(text);
            ASSERT_EQ(textsOf(row), expected) << "seed " << seed << ", step " << step;
        }
    }
}

} // namespace suisui::test
