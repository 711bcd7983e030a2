// Numbers, dates and patterns as texts.
#include <cmath>
#include <cstring>
#include <functional>
#include <random>

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "store/Dialect.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "store/Where.h"
#include "tests/support/Seed.h"

namespace suisui::test {

namespace {

RunTimeError::Number errorOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return RunTimeError::InvalidCall;
}

} // namespace

TEST(Numbers, formatRoundsHalvesAwayFromZero_andKeepsTheSign)
{
    const struct
    {
        double number;
        std::string_view mask;
        std::string_view text;
    } cases[] = {
        {0, maskMovement, "0000000"},
        {12, maskMovement, "0000012"},
        {-3, maskMovement, "-0000003"},
        {0.5, maskMovement, "0000001"},
        {1.5, maskMovement, "0000002"},
        {2.5, maskMovement, "0000003"},
        {-2.5, maskMovement, "-0000003"},
        {0.49999, maskMovement, "0000000"},
        {-0.4, maskMovement, "0000000"},
        {12345678, maskMovement, "12345678"},
        {0.49999999999999994, maskMovement, "0000001"},
        {2.4999999999999996, maskMovement, "0000003"},
        {9.5, maskMovement, "0000010"},
        {999999.5, maskMovement, "1000000"},
        {0, maskA, "0"},
        {999, maskA, "999"},
        {1000, maskA, "1,000"},
        {-1000, maskA, "-1,000"},
        {1234567890, maskB, "1,234,567,890"},
        {99999999999999, maskStock, "99,999,999,999,999"},
        {12345678901234567890.0, maskA, "12,345,678,901,234,600,000"},
        {0.05, maskPrice, "0"},
        {1e-300, maskA, "0"},
        {100, maskSmall, "100"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Format(each.number, each.mask), each.text) << each.number;
    EXPECT_EQ(errorOf([] { (void)Format(INFINITY, maskA); }), RunTimeError::Overflow);
}

TEST(Conditions, aCode_isAnyText_withoutQuotesOrControlCharacters)
{
    for (const std::string_view good : {"1", "4901001000017", "SET-01", " ", "品", "%", "\""})
        EXPECT_TRUE(canBeCode(good)) << good;
    for (const std::string_view bad : {"", "'", "1'2", "\t", "1\n", "\x7F", "1\x1F"})
        EXPECT_FALSE(canBeCode(bad)) << bad;
}

TEST(Numbers, textToDouble_readsWhatIsANumber_andRefusesTheRest)
{
    const struct
    {
        std::string_view text;
        double number;
    } good[] = {{"0", 0},        {"12", 12},      {"0000012", 12},  {"-0000003", -3},
                {" 7 ", 7},      {"+5", 5},       {"1.5", 1.5},     {".5", 0.5},
                {"5.", 5},       {"1,234", 1234}, {"1E3", 1000},    {"1E+5", 100000},
                {"1e-3", 0.001}, {"1D2", 100},    {"-1.5e2", -150}, {"1e-999", 0}};
    for (const auto& each : good) {
        EXPECT_EQ(CDbl(each.text), each.number) << each.text;
        EXPECT_EQ(toNumber(each.text), each.number) << each.text;
    }
    for (const std::string_view bad : {"", " ", "abc", "1x", "--1", "1 2", "e5", "1e", "1e+", ".", "-", "inf",
                                       "nan", "0x10", "１２", "1.2.3", ",1", "'"}) {
        EXPECT_EQ(errorOf([bad] { (void)CDbl(bad); }), RunTimeError::TypeMismatch) << bad;
        EXPECT_EQ(toNumber(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(errorOf([] { (void)CDbl("1e999"); }), RunTimeError::Overflow);
    EXPECT_EQ(toNumber("1e999"), std::nullopt);
    EXPECT_EQ(numberOf(""), 0);
    EXPECT_EQ(numberOf("  "), 0);
    EXPECT_EQ(errorOf([] { (void)numberOf("x"); }), RunTimeError::TypeMismatch);
    EXPECT_EQ(toFigure(" "), 0);
    EXPECT_EQ(toFigure(" 12 "), 12);
    EXPECT_EQ(toFigure("x"), std::nullopt);
}

TEST(Numbers, numberToText_isPlain_andReadsBackAsTheSameText)
{
    EXPECT_EQ(CStr(0), "0");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(125), "125");
    EXPECT_EQ(CStr(-3), "-3");
    EXPECT_EQ(CStr(0.1), "0.1");
    EXPECT_EQ(CStr(99999999999999), "99999999999999");
    EXPECT_EQ(CStr(1e15), "1000000000000000");
    EXPECT_EQ(errorOf([] { (void)CStr(INFINITY); }), RunTimeError::Overflow);
    std::mt19937_64 random(printedSeed());
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        if (!std::isfinite(number) || std::abs(number) > 1e308)
            continue;
        const std::string text = CStr(number);
        ASSERT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        ASSERT_EQ(CStr(CDbl(text)), text);
        ASSERT_NEAR(CDbl(text) / number, 1, std::abs(number) < 1e-300 ? 0.5 : 6e-15) << text;
    }
}

TEST(Numbers, numberToText_hasFifteenDigits)
{
    const struct
    {
        double number;
        std::string_view text;
    } cases[] = {
        {0.1 + 0.2, "0.3"},
        {0.3 - 0.1, "0.2"},
        {-1.0 / 3, "-0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {123456789.123456789, "123456789.123457"},
        {123456789012345678.0, "123456789012346000"},
        {99999999999999.5, "99999999999999.5"},
        {1e15 - 0.125, "1000000000000000"},
        {0.000123456, "0.000123456"},
        {1e-7, "0.0000001"},
        {12345.678, "12345.678"},
        {-0.05, "-0.05"},
        {1e20, "100000000000000000000"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(CStr(each.number), each.text);
}

TEST(Numbers, sumsAndProducts_areThoseOfPaper)
{
    const struct
    {
        double a, b;
        std::string sum, product;
    } cases[] = {
        {0.1, 0.2, "0.3", "0.02"},
        {0.3, -0.3, "0", "-0.09"},
        {0.3, -0.1, "0.2", "-0.03"},
        {1000000.1, -1000000, "0.1", "-1000000100000"},
        {99999999999999, 0.125, "99999999999999.1", "12499999999999.9"},
        {99999999999999, 1, "100000000000000", "99999999999999"},
        {-2.5, 2.5, "0", "-6.25"},
        {1.1, 1.1, "2.2", "1.21"},
        {0, 0.1, "0.1", "0"},
        {1e300, -1, "1" + std::string(300, '0'), "-1" + std::string(300, '0')},
        {0.001, 0.0005, "0.0015", "0.0000005"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(CStr(plus(each.a, each.b)), each.sum) << each.a << " " << each.b;
        EXPECT_EQ(CStr(plus(each.b, each.a)), each.sum);
        EXPECT_EQ(CStr(times(each.a, each.b)), each.product) << each.a << " " << each.b;
    }
    EXPECT_FALSE(std::signbit(plus(-0.3, 0.3)));
    EXPECT_EQ(errorOf([] { (void)CStr(times(1e300, 1e300)); }), RunTimeError::Overflow);
}

namespace {

/// \a thousandths of one as a text without zeros at its end.
std::string decimal(std::int64_t thousandths)
{
    std::string digits = std::to_string(std::abs(thousandths));
    if (digits.size() < 4)
        digits.insert(0, 4 - digits.size(), '0');
    digits.insert(digits.size() - 3, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
        digits.pop_back();
    return thousandths < 0 ? "-" + digits : digits;
}

} // namespace

TEST(Numbers, thousandsOfPostingsOfThousandths_neverShowATail)
{
    std::mt19937_64 random(printedSeed());
    const std::int64_t sizes[] = {10, 1000, 1000000, 1000000000, 100000000000};
    for (const std::int64_t size : sizes) {
        std::int64_t exact = 0;
        std::string stock = "0";
        double unwritten = 0; // a sum that is not stored in between
        for (int i = 0; i < 5000; ++i) {
            std::int64_t delta =
                static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(2 * size)) - size;
            if (i % 50 == 49)
                delta = -exact; // down to 0, where only a tail would be left
            exact += delta;
            stock = CStr(plus(CDbl(stock), CDbl(decimal(delta))));
            unwritten = plus(unwritten, CDbl(decimal(delta)));
            ASSERT_EQ(stock, decimal(exact)) << i;
            ASSERT_EQ(CStr(unwritten), stock) << i;
            const auto count = static_cast<std::int64_t>(random() % 2000) - 1000;
            const auto each = static_cast<std::int64_t>(random() % 100000);
            ASSERT_EQ(CStr(times(static_cast<double>(count), CDbl(decimal(each)))), decimal(count * each));
        }
    }
}

TEST(Numbers, integersRoundHalvesToEven_andOverflow)
{
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(CInt(-32768.4), -32768);
    EXPECT_EQ(errorOf([] { (void)CLng(2147483647.5); }), RunTimeError::Overflow);
    EXPECT_EQ(errorOf([] { (void)CInt(32767.5); }), RunTimeError::Overflow);
    EXPECT_EQ(errorOf([] { (void)CLng(NAN); }), RunTimeError::Overflow);
    EXPECT_EQ(multiply(-30000, 70000), -2100000000);
    EXPECT_EQ(errorOf([] { (void)multiply(65536, 32768); }), RunTimeError::Overflow);
}

TEST(Stamps, datesAndTimesAreTakenByPosition)
{
    const QDateTime moment(QDate(2026, 4, 1), QTime(9, 5, 7));
    EXPECT_EQ(stampOf(moment), "20260401090507");
    EXPECT_EQ(dateOf(moment), "20260401");
    EXPECT_EQ(screenDate("20260401"), "2026/04/01");
    EXPECT_EQ(screenTime("090507"), "09:05:07");
    EXPECT_EQ(storedDate("2026/04/01"), "20260401");
    EXPECT_EQ(storedTime("09:05:07"), "090507");
    EXPECT_EQ(spokenDate("20260401"), "2026年04月01日");
    EXPECT_EQ(screenDate(""), "//");
    EXPECT_EQ(storedDate("2026"), "2026");
}

TEST(Stamps, calendarKnowsLeapDays)
{
    EXPECT_TRUE(isCalendarDay(2024, 2, 29));
    EXPECT_FALSE(isCalendarDay(2026, 2, 29));
    EXPECT_FALSE(isCalendarDay(2026, 4, 31));
    EXPECT_TRUE(isCalendarDay(100, 1, 1));
    EXPECT_FALSE(isCalendarDay(5, 1, 1));
}

TEST(Like, starAndQuestionMark_andNothingElse)
{
    const struct
    {
        std::string_view text;
        std::string_view pattern;
        bool matches;
    } cases[] = {
        {"", "", true},        {"", "*", true},          {"abc", "*", true},     {"ABC", "a?c", true},
        {"abc", "a", false},   {"abc", "a*c", true},     {"abbc", "a?c", false}, {"a%c", "a%c", true},
        {"abc", "a%c", false}, {"a_c", "a?c", true},     {"商品", "??", true},   {"商品", "?", false},
        {"[x]", "[x]", true},  {"aXbXc", "*x*x*", true}, {"abc", "*d", false},   {"abcabc", "*abc", true},
    };
    for (const auto& each : cases)
        EXPECT_EQ(like(each.text, each.pattern), each.matches) << each.text << " " << each.pattern;
    EXPECT_FALSE(like(std::string(5000, 'a'), std::string("*a*a*a*a*a*a*a*a*b"))); // ends
}

} // namespace suisui::test
