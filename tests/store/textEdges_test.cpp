// Numbers, dates and the words of the store's own SQL at their edges, where one more or one less shows.
#include <cmath>
#include <cstdint>

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "store/Dialect.h"
#include "store/FoldedCode.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "store/Where.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

/// What the error of \a work says.
template <typename Work> std::string wordsOf(Work work)
{
    try {
        work();
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "no error";
}

struct DialectTest : public ::testing::Test
{
    DialectTest() : db(shop.databaseFolder()) { EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good); }

    /// The text of an expression, or what its failure says.
    std::string valueOf(const std::string& expression)
    {
        if (db.OpenRecordset("SELECT " + expression + " AS Value") != DbStatus::Good)
            return db.LastErrText();
        std::string value = db.recordset().Fields("Value");
        db.CloseRecordset();
        return value;
    }

    TempShop shop;
    AppDB db;
};

} // namespace

TEST(NumberEdges, sums_haveNoMoreDigitsThanWhatWasAdded_andNoneLess)
{
    const struct
    {
        double a, b;
        std::string_view sum;
    } cases[] = {
        {0.123456789012345, 0, "0.123456789012345"},
        {0.5, 0.25, "0.75"},
        {1.05, 2, "3.05"},
        {1e14, 0.5, "100000000000000"}, // the sixteenth digit
        {1e13, 0.5, "10000000000000.5"},
        {1e15, -999999999999999.5, "0"}, // fifteen digits say the same of both
        {1e15, 1, "1000000000000000"},
        {1e16, 5e15, "15000000000000000"},
        {1e-20, 1e-20, "0.00000000000000000002"},
        {1e-20, 1, "1"},
        {-0.5, -0.5, "-1"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(CStr(plus(each.a, each.b)), each.sum) << each.a << " " << each.b;
}

TEST(NumberEdges, roundingCarriesThroughNines)
{
    const struct
    {
        double number;
        std::string_view text;
    } cases[] = {{9.5, "10"},           {99.5, "100"},      {199.5, "200"},    {8.5, "9"},       {0.5, "1"},
                 {0.05, "0"},           {1009.5, "1,010"},  {1999.4, "1,999"}, {999.5, "1,000"}, {0.94, "1"},
                 {123456.5, "123,457"}, {-999.5, "-1,000"}, {-0.5, "-1"}};
    for (const auto& each : cases)
        EXPECT_EQ(Format(each.number, maskA), each.text) << each.number;
}

TEST(NumberEdges, fifteenDigitsAreWhole_andSixteenAreNot)
{
    EXPECT_EQ(CStr(999999999999999), "999999999999999");
    EXPECT_EQ(CStr(9999999999999998), "10000000000000000");
    EXPECT_EQ(CStr(-999999999999999), "-999999999999999");
    EXPECT_EQ(CDbl("999999999999999"), 999999999999999);
    EXPECT_EQ(CDbl("1234567890123456"), 1234567890123456);
    EXPECT_EQ(CDbl("12345678901234567"), 12345678901234568);
    EXPECT_EQ(Format(999999999999999, maskB), "999,999,999,999,999");
}

TEST(NumberEdges, exponents_areDigitsWithOneSignAtMost)
{
    for (const std::string_view bad : {"1e+-5", "1e5+", "1ee5", "1e5e", "1e5.", "1e 5", "1f5", "1e", "1d-"})
        EXPECT_EQ(toNumber(bad), std::nullopt) << bad;
    EXPECT_EQ(toNumber("1d5"), 100000);
    EXPECT_EQ(toNumber("1D-2"), 0.01);
    EXPECT_EQ(toNumber("+1,2e0"), 12);
    EXPECT_EQ(toNumber("12,"), 12);
    EXPECT_EQ(toNumber("-,1"), std::nullopt);
    EXPECT_EQ(toNumber("1.5,0"), std::nullopt) << "no comma after the point";
    EXPECT_EQ(toNumber("1e-400"), 0);
    EXPECT_EQ(toNumber("-1e999"), std::nullopt);
    EXPECT_EQ(toNumber("\t7\t"), 7);
}

TEST(NumberEdges, whatIsWrong_isSaidInWords)
{
    const std::string longText(50, 'x');
    EXPECT_EQ(wordsOf([] { (void)CDbl("many"); }), "not a number: many");
    EXPECT_EQ(wordsOf([&] { (void)CDbl(longText); }), "not a number: " + longText.substr(0, 40));
    EXPECT_EQ(wordsOf([] { (void)CDbl("1e999"); }), "number too large");
    EXPECT_EQ(wordsOf([] { (void)CStr(HUGE_VAL); }), "number too large");
    EXPECT_EQ(wordsOf([] { (void)Format(-HUGE_VAL, maskA); }), "number too large");
    EXPECT_EQ(wordsOf([] { (void)CLng(1e10); }), "outside the range of an integer");
    EXPECT_EQ(wordsOf([] { (void)multiply(65536, 65536); }), "product outside 32 bits");
}

TEST(NumberEdges, integers_reachToTheirLimits)
{
    EXPECT_EQ(CLng(-2147483648.4), INT32_MIN);
    EXPECT_EQ(CLng(2147483647), INT32_MAX);
    EXPECT_EQ(CInt(32767), INT16_MAX);
    EXPECT_EQ(CInt(-32768), INT16_MIN);
    EXPECT_THROW((void)CLng(-2147483649.0), RunTimeError);
    EXPECT_THROW((void)CInt(-32769.0), RunTimeError);
    EXPECT_EQ(multiply(65536, -32768), INT32_MIN);
    EXPECT_EQ(multiply(-1, INT32_MAX), -INT32_MAX);
}

TEST(StampEdges, whatIsMissing_isLeftOut_andWhatIsMore_isCut)
{
    EXPECT_EQ(screenDate("20260"), "2026/0/");
    EXPECT_EQ(screenDate("2026040"), "2026/04/0");
    EXPECT_EQ(screenDate("20260401090507"), "2026/04/01");
    EXPECT_EQ(screenTime("0"), "0::");
    EXPECT_EQ(screenTime("090507999"), "09:05:07");
    EXPECT_EQ(storedDate("2026/04/01 09:05"), "20260401");
    EXPECT_EQ(storedDate("2026/4"), "20264");
    EXPECT_EQ(storedTime("12:34:56.789"), "123456");
    EXPECT_EQ(storedTime("12:34:5"), "12345");
    EXPECT_EQ(spokenDate("20261231235959"), "2026年12月31日");
    EXPECT_EQ(spokenDate(""), "年月日");
}

TEST(StampEdges, yearsAreOfThreeOrFourDigits)
{
    EXPECT_FALSE(isCalendarDay(99, 12, 31));
    EXPECT_TRUE(isCalendarDay(9999, 12, 31));
    EXPECT_FALSE(isCalendarDay(10000, 1, 1));
    EXPECT_FALSE(isCalendarDay(2026, 13, 1));
    EXPECT_FALSE(isCalendarDay(2026, 1, 0));
}

TEST(CodeEdges, onlyTheLettersAToZ_haveNoCase)
{
    EXPECT_EQ(foldedCode("AZaz"), "azaz");
    EXPECT_EQ(foldedCode("@[`{Ａ品"), "@[`{Ａ品");
    EXPECT_TRUE(holdsOrder("where x oRdEr By z"));
    EXPECT_TRUE(holdsOrder("ORDER BY Code"));
    EXPECT_FALSE(holdsOrder("ORDERBY"));
    EXPECT_FALSE(holdsOrder("order`by"));
    EXPECT_EQ(whereCode("A'").text(), "WHERE Code=?");
    EXPECT_EQ(whereCode("A'").values(), std::vector<std::string>{"A'"});
    EXPECT_TRUE(canBeCode("\x7E"));
    EXPECT_FALSE(canBeCode(std::string_view("a\0", 2)));
}

TEST(LikeEdges, starsGiveWayToWhatFollows)
{
    const struct
    {
        std::string_view text;
        std::string_view pattern;
        bool matches;
    } cases[] = {
        {"aab", "*ab", true},     {"ab", "ab*", true},      {"ab", "ab**", true},     {"ab", "ab?", false},
        {"a", "?*", true},        {"", "?", false},         {"", "", true},           {"a", "", false},
        {"品番品", "*品", true},  {"品番", "品?番", false}, {"品x番", "品?番", true}, {"xxab", "*ab*", true},
        {"abab", "ab", false},    {"Z", "z", true},         {"[", "{", false},        {"\x80", "?", true},
        {"品目品", "?*品", true},
    };
    for (const auto& each : cases)
        EXPECT_EQ(like(each.text, each.pattern), each.matches) << each.text << " " << each.pattern;
}

TEST(LikeEdges, aPatternEndsWhereItEnds)
{
    const std::string_view longer = "ab*?x";
    EXPECT_TRUE(like("ab", longer.substr(0, 2)));
    EXPECT_FALSE(like("abc", longer.substr(0, 2)));
    EXPECT_FALSE(like("ab*", longer.substr(0, 2)));
    EXPECT_TRUE(like("abcd", longer.substr(0, 3)));
    EXPECT_TRUE(like("abcd", longer.substr(0, 4)));
    EXPECT_FALSE(like("abx", longer));
}

TEST_F(DialectTest, functionsTakeNumbersAndTexts)
{
    const std::pair<std::string, std::string> cases[] = {
        {"CDbl('0012')", "12.0"},
        {"CDbl(7)", "7.0"},
        {"CDbl(0.1 + 0.2) = 0.1 + 0.2", "1"}, // no way through a text of fifteen digits
        {"CDbl('1,234') = 1234", "1"},
        {"CStr('0012')", "0012"},
        {"CStr(12)", "12"},
        {"CStr(0.1 + 0.2)", "0.3"},
        {"CStr(Plus(0.1, '0.2'))", "0.3"},
        {"CStr(Plus('5', -7))", "-2"},
        {"CStr(Times('3', 0.1))", "0.3"},
        {"CStr(Times(-2, '7'))", "-14"},
        {"Format('2.5', '0000000')", "0000003"},
        {"Format(1234, '#,##0')", "1,234"},
        {"CStr((SELECT SumOf(Code) FROM Master))", "0"},
        {"CStr((SELECT SumOf(n) FROM (SELECT '0.1' AS n UNION ALL SELECT 0.2 UNION ALL SELECT '5')))", "5.3"},
        {"'abc' LIKE 'A?c'", "1"},
        {"'abc' LIKE 'A?'", "0"},
        {"CDbl('many')", "not a number: many"},
        {"CStr(CDbl('x'))", "not a number: x"},
        {"CStr(Plus(1, 'x'))", "not a number: x"},
        {"CStr(Times('x', 1))", "not a number: x"},
        {"Format('x', '0')", "not a number: x"},
        {"CStr((SELECT SumOf(n) FROM (SELECT 1 AS n UNION ALL SELECT 'x')))", "not a number: x"},
    };
    for (const auto& [expression, value] : cases)
        EXPECT_EQ(valueOf(expression), value) << expression;
}

} // namespace suisui::test
