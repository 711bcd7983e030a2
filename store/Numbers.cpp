#include "store/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/core/RunTimeError.h"

namespace suisui {

namespace {

constexpr int significantDigits = 15; // what a double carries of any decimal text

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The exponent of a number, with "e" for its letter; empty when \a text is not one.
std::string plainExponent(std::string_view text)
{
    if (std::string_view("EeDd").find(text[0]) == std::string_view::npos)
        return {};
    const bool isSigned = text.size() > 1 && (text[1] == '+' || text[1] == '-');
    const std::string_view digits = text.substr(isSigned ? 2 : 1);
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return {};
    return 'e' + std::string(text.substr(1));
}

/// \a text without grouping commas and with "e" for the exponent; empty when it is not a number.
std::string plainForm(std::string_view text)
{
    std::string plain;
    bool digits = false;
    bool point = false;
    std::size_t i = 0;
    if (text[0] == '+' || text[0] == '-') {
        if (text[0] == '-')
            plain += '-';
        ++i;
    }
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (isDigit(c)) {
            plain += c;
            digits = true;
        } else if (c == '.' && !point) {
            plain += c;
            point = true;
        } else if (c == ',' && digits && !point) {
            continue;
        } else {
            break;
        }
    }
    if (!digits)
        return {};
    if (i == text.size())
        return plain;
    const std::string exponent = plainExponent(text.substr(i));
    return exponent.empty() ? exponent : plain + exponent;
}

/// The number, if \a text consists of so few digits that every step is exact; otherwise none.
std::optional<double> fewDigits(std::string_view text)
{
    if (text.empty() || text.size() > std::size_t{significantDigits})
        return std::nullopt;
    std::int64_t whole = 0;
    for (const char c : text) {
        if (!isDigit(c))
            return std::nullopt;
        whole = whole * 10 + (c - '0');
    }
    return static_cast<double>(whole);
}

/// The number in \a text; infinite beyond the range of a double, none for a text that is not a number.
std::optional<double> read(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    // The usual cases first: plain digits, as the tables hold them, and other plain numbers.
    if (const auto few = fewDigits(text))
        return few;
    double value = 0;
    const auto quick =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (quick.ec == std::errc() && quick.ptr == text.data() + text.size() && std::isfinite(value))
        return value;
    const std::string plain = plainForm(text);
    if (plain.empty())
        return std::nullopt;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const auto exponent = plain.find('e');
        if (exponent != std::string::npos && plain.at(exponent + 1) == '-')
            return 0;
        return std::numeric_limits<double>::infinity();
    }
    return value;
}

double parse(std::string_view text)
{
    const std::optional<double> value = read(text);
    if (!value)
        throw RunTimeError(RunTimeError::TypeMismatch, "not a number: " + std::string(text.substr(0, 40)));
    if (std::isinf(*value))
        throw RunTimeError(RunTimeError::Overflow, "number too large");
    return *value;
}

template <typename Integer> Integer toInteger(double number)
{
    const double rounded = std::nearbyint(number); // halves to the even neighbour
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw RunTimeError(RunTimeError::Overflow, "outside the range of an integer");
    return static_cast<Integer>(rounded);
}

/// Whether \a number is whole with at most 15 digits, each of which is then exact.
bool isPlainWhole(double number)
{
    return std::abs(number) < 1e15 && std::trunc(number) == number;
}

std::string wholeText(double number)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<std::int64_t>(number));
    return {text.data(), end.ptr};
}

/// The 15 significant digits of a number, its sign aside: digits[0] is the first that is not zero.
struct Decimal
{
    std::array<char, significantDigits> digits{};
    int whole = 0; ///< how many of them are before the point; negative: zeros between point and digits
};

/// \a number must be positive and finite.
Decimal decimalOf(double number)
{
    std::array<char, 32> text{}; // "d.dddddddddddddde-308"
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, significantDigits - 1);
    Decimal decimal;
    decimal.digits[0] = text[0];
    std::copy_n(text.begin() + 2, significantDigits - 1, decimal.digits.begin() + 1);
    const char* exponent = text.data() + significantDigits + 2; // after the "e"
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end.ptr, decimal.whole);
    ++decimal.whole;
    return decimal;
}

/// How many of the 15 digits of \a number are after the point, without trailing zeros.
int placesOf(double number)
{
    if (isPlainWhole(number))
        return 0;
    const Decimal decimal = decimalOf(std::abs(number));
    int used = significantDigits;
    while (decimal.digits[static_cast<std::size_t>(used - 1)] == '0')
        --used;
    return std::max(0, used - decimal.whole);
}

/// \a number written in \a format with \a precision digits and read back.
double throughText(double number, std::chars_format format, int precision)
{
    std::array<char, 400> text{}; // the smallest double has its first digit at place 324
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, format, precision);
    double value = 0;
    std::from_chars(text.data(), end.ptr, value, format);
    return value == 0 ? 0 : value; // never -0
}

/// The digits of the whole number nearest to \a number, halves away from zero, decided on its decimal text of
/// 15 significant digits: 2.4999999999999996 is a 2.5 that has lost a bit, and is read as one.
std::string wholeDigits(double number)
{
    if (isPlainWhole(number))
        return wholeText(number);
    const Decimal decimal = decimalOf(number);
    if (decimal.whole < 0)
        return "0";
    std::string digits(decimal.digits.begin(), decimal.digits.end());
    if (decimal.whole >= significantDigits)
        return digits + std::string(static_cast<std::size_t>(decimal.whole - significantDigits), '0');
    const bool up = digits[static_cast<std::size_t>(decimal.whole)] >= '5';
    digits.resize(static_cast<std::size_t>(decimal.whole));
    if (!up)
        return digits.empty() ? "0" : digits;
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9')
        digits[--i] = '0';
    if (i == 0)
        return "1" + digits;
    ++digits[i - 1];
    return digits;
}

int digitsOf(std::string_view mask, char kind)
{
    int count = 0;
    for (const char c : mask)
        count += c == kind ? 1 : 0;
    return count;
}

} // namespace

double CDbl(std::string_view text)
{
    return parse(trimmed(text));
}

std::optional<double> toNumber(std::string_view text)
{
    const std::optional<double> value = read(trimmed(text));
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<double> toFigure(std::string_view text)
{
    return trimmed(text).empty() ? std::optional(0.0) : toNumber(text);
}

double numberOf(std::string_view text)
{
    const std::string_view number = trimmed(text);
    return number.empty() ? 0 : parse(number);
}

std::string CStr(double number)
{
    if (!std::isfinite(number))
        throw RunTimeError(RunTimeError::Overflow, "number too large");
    if (isPlainWhole(number))
        return wholeText(number);
    const Decimal decimal = decimalOf(std::abs(number));
    std::string text(decimal.digits.begin(), decimal.digits.end());
    text.erase(text.find_last_not_of('0') + 1);
    const auto digits = static_cast<int>(text.size());
    if (decimal.whole <= 0)
        text.insert(0, "0." + std::string(static_cast<std::size_t>(-decimal.whole), '0'));
    else if (decimal.whole < digits)
        text.insert(static_cast<std::size_t>(decimal.whole), 1, '.');
    else
        text.append(static_cast<std::size_t>(decimal.whole - digits), '0');
    return number < 0 ? "-" + text : text;
}

double plus(double a, double b)
{
    const double sum = a + b;
    if (isPlainWhole(a) && isPlainWhole(b))
        return sum;
    if (sum == 0 || !std::isfinite(sum))
        return sum;
    // A sum has no more digits after the point than its parts: any further digit comes from a lost bit.
    const int room = significantDigits - decimalOf(std::abs(sum)).whole;
    const int places = std::min(std::max(placesOf(a), placesOf(b)), room);
    return places >= 0 ? throughText(sum, std::chars_format::fixed, places)
                       : throughText(sum, std::chars_format::scientific, significantDigits - 1);
}

double times(double a, double b)
{
    const double product = a * b;
    if (isPlainWhole(product) || !std::isfinite(product))
        return product == 0 ? 0 : product;
    return throughText(product, std::chars_format::scientific, significantDigits - 1);
}

std::int16_t CInt(double number)
{
    return toInteger<std::int16_t>(number);
}

std::int32_t CLng(double number)
{
    return toInteger<std::int32_t>(number);
}

std::int32_t multiply(std::int32_t a, std::int32_t b)
{
    std::int32_t product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        throw RunTimeError(RunTimeError::Overflow, "product outside 32 bits");
    return product;
}

std::string Format(double number, std::string_view mask)
{
    if (!std::isfinite(number))
        throw RunTimeError(RunTimeError::Overflow, "number too large");
    std::string digits = wholeDigits(std::abs(number));
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    const auto least = static_cast<std::size_t>(digitsOf(mask, '0'));
    const bool zero = digits.empty();
    if (digits.size() < least)
        digits.insert(0, least - digits.size(), '0');
    if (mask.find(',') != std::string_view::npos)
        for (std::size_t i = digits.size(); i > 3;)
            digits.insert(i -= 3, 1, ',');
    return number < 0 && !zero ? "-" + digits : digits;
}

std::string movementNumber(std::string_view text)
{
    return Format(numberOf(text), maskMovement);
}

} // namespace suisui
