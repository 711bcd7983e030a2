#include "store/Dialect.h"

#include <string>

#include <sqlite3.h>

#include "platform/core/RunTimeError.h"
#include "store/FoldedCode.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

/// Bytes of the UTF-8 character that starts at \a at; a stray byte counts as one.
std::size_t characterLength(std::string_view text, std::size_t at)
{
    std::size_t length = 1;
    while (at + length < text.size() && (static_cast<unsigned char>(text[at + length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

std::string_view argument(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

double numberArgument(sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT ? sqlite3_value_double(value)
                                                          : numberOf(argument(value));
}

void resultText(sqlite3_context* context, const std::string& text)
{
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// Runs \a body; a text that is not a number becomes an error of the statement.
template <typename Body> void guarded(sqlite3_context* context, Body body)
{
    try {
        body();
    } catch (const RunTimeError& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

void sqlLike(sqlite3_context* context, int, sqlite3_value** arguments)
{
    // "text Like pattern" arrives as like(pattern, text).
    sqlite3_result_int(context, like(argument(arguments[1]), argument(arguments[0])) ? 1 : 0);
}

void sqlCDbl(sqlite3_context* context, int, sqlite3_value** arguments)
{
    guarded(context, [&] { sqlite3_result_double(context, numberArgument(arguments[0])); });
}

void sqlCStr(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_TEXT)
        sqlite3_result_value(context, arguments[0]);
    else
        guarded(context, [&] { resultText(context, CStr(numberArgument(arguments[0]))); });
}

void sqlPlus(sqlite3_context* context, int, sqlite3_value** arguments)
{
    guarded(context, [&] {
        sqlite3_result_double(context, plus(numberArgument(arguments[0]), numberArgument(arguments[1])));
    });
}

void sqlTimes(sqlite3_context* context, int, sqlite3_value** arguments)
{
    guarded(context, [&] {
        sqlite3_result_double(context, times(numberArgument(arguments[0]), numberArgument(arguments[1])));
    });
}

void sqlSumOfStep(sqlite3_context* context, int, sqlite3_value** arguments)
{
    auto* const sum =
        static_cast<double*>(sqlite3_aggregate_context(context, sizeof(double))); // zero at first
    if (sum == nullptr)
        return sqlite3_result_error_nomem(context);
    guarded(context, [&] { *sum = plus(*sum, numberArgument(arguments[0])); });
}

void sqlSumOf(sqlite3_context* context)
{
    const auto* const sum = static_cast<const double*>(sqlite3_aggregate_context(context, 0));
    sqlite3_result_double(context, sum == nullptr ? 0 : *sum); // null: there was no row
}

void sqlFormat(sqlite3_context* context, int, sqlite3_value** arguments)
{
    guarded(context,
            [&] { resultText(context, Format(numberArgument(arguments[0]), argument(arguments[1]))); });
}

} // namespace

bool like(std::string_view text, std::string_view pattern)
{
    constexpr auto none = std::string_view::npos;
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t starPattern = none; // after the last "*"
    std::size_t starText = 0;       // how far that "*" reaches
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = ++p;
            starText = t;
        } else if (p < pattern.size() && pattern[p] == '?') {
            t += characterLength(text, t);
            ++p;
        } else if (p < pattern.size() && foldedLetter(pattern[p]) == foldedLetter(text[t])) {
            ++t;
            ++p;
        } else if (starPattern != none) {
            starText += characterLength(text, starText);
            t = starText;
            p = starPattern;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

int registerDialect(sqlite3* db)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const struct
    {
        const char* name;
        int arguments;
        void (*function)(sqlite3_context*, int, sqlite3_value**);
    } functions[] = {{"like", 2, sqlLike},     {"CDbl", 1, sqlCDbl}, {"CStr", 1, sqlCStr},
                     {"Format", 2, sqlFormat}, {"Plus", 2, sqlPlus}, {"Times", 2, sqlTimes}};
    for (const auto& each : functions) {
        const int code = sqlite3_create_function_v2(db, each.name, each.arguments, flags, nullptr,
                                                    each.function, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK)
            return code;
    }
    return sqlite3_create_function_v2(db, "SumOf", 1, flags, nullptr, nullptr, sqlSumOfStep, sqlSumOf,
                                      nullptr);
}

} // namespace suisui
