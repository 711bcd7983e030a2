#include "tools/OldTexts.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "store/Numbers.h"
#include "store/Stamps.h"

namespace suisui {

namespace {

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<double> number(std::string_view text)
{
    // Only digits, a sign and a point: reading anything else as a number would be a guess.
    if (text.find_first_not_of("0123456789.-") != std::string_view::npos)
        return std::nullopt;
    return toNumber(text);
}

/// A whole number of seven digits or more, with a sign in front if it is negative.
std::optional<std::string> movementNumber(std::string_view text)
{
    const std::string_view digits = trimmed(text);
    if (digits.empty())
        return "0000000";
    const std::optional<double> value = number(digits);
    if (!value || *value != std::round(*value) || std::abs(*value) > 1e15)
        return std::nullopt;
    std::string whole = std::to_string(static_cast<long long>(std::abs(*value)));
    // More zeros than usual are kept: they are no reason to change a text.
    const std::size_t length = std::max<std::size_t>(
        7, digits.find('.') == std::string_view::npos ? digits.size() - (digits.front() == '-' ? 1 : 0) : 0);
    if (whole.size() < length)
        whole.insert(0, length - whole.size(), '0');
    return (*value < 0 ? "-" : "") + whole;
}

std::optional<std::string> stockNumber(std::string_view text)
{
    const std::string_view digits = trimmed(text);
    if (digits.empty())
        return "0";
    return number(digits) ? std::optional<std::string>(digits) : std::nullopt;
}

/// A number that may be missing, as in master data.
std::optional<std::string> maybeNumber(std::string_view text)
{
    const std::string_view digits = trimmed(text);
    return digits.empty() || number(digits) ? std::optional<std::string>(digits) : std::nullopt;
}

/// The digits of \a text without separators; none when there are not \a length of them, or other characters.
std::optional<std::string> digitsOf(std::string_view text, std::size_t length)
{
    std::string digits;
    for (const char c : trimmed(text)) {
        if (c >= '0' && c <= '9')
            digits += c;
        else if (c != '/' && c != ':' && c != ' ')
            return std::nullopt;
    }
    return digits.size() == length ? std::optional(digits) : std::nullopt;
}

int numberAt(std::string_view digits, std::size_t at, std::size_t length)
{
    int value = 0;
    for (const char c : digits.substr(at, length))
        value = value * 10 + (c - '0');
    return value;
}

bool isDay(std::string_view digits)
{
    return isCalendarDay(numberAt(digits, 0, 4), numberAt(digits, 4, 2), numberAt(digits, 6, 2));
}

bool isTimeOfDay(std::string_view digits)
{
    return numberAt(digits, 0, 2) < 24 && numberAt(digits, 2, 2) < 60 && numberAt(digits, 4, 2) < 60;
}

std::optional<std::string> date(std::string_view text)
{
    const auto digits = digitsOf(text, 8);
    return digits && isDay(*digits) ? digits : std::nullopt;
}

std::optional<std::string> timeOfDay(std::string_view text)
{
    const auto digits = digitsOf(text, 6);
    return digits && isTimeOfDay(*digits) ? digits : std::nullopt;
}

std::optional<std::string> timeStamp(std::string_view text)
{
    const auto digits = digitsOf(text, 14);
    return digits && isDay(*digits) && isTimeOfDay(std::string_view(*digits).substr(8)) ? digits
                                                                                        : std::nullopt;
}

/// Any text but an empty one: a row without a code can be neither found nor chosen.
std::optional<std::string> code(std::string_view text)
{
    return trimmed(text).empty() ? std::nullopt : std::optional<std::string>(text);
}

struct Form
{
    std::string_view column;
    std::optional<std::string> (*stored)(std::string_view);
    std::string_view meaning;
};

constexpr Form movementForms[] = {
    {"Code", code, "code"},
    {"NyuSuu", movementNumber, "whole number"},
    {"NyuPrice", movementNumber, "whole number"},
    {"NyuNebiki", movementNumber, "whole number"},
    {"Henkyaku", movementNumber, "whole number"},
    {"SyuSuu", movementNumber, "whole number"},
    {"SyuPrice", movementNumber, "whole number"},
    {"SyuNebiki", movementNumber, "whole number"},
    {"RHenkyaku", movementNumber, "whole number"},
    {"FHenkyaku", movementNumber, "whole number"},
    {"NyuDate", date, "date"},
    {"SyuDate", date, "date"},
    {"NyuTime", timeOfDay, "time"},
    {"SyuTime", timeOfDay, "time"},
    {"InpDate", timeStamp, "time stamp"},
    {"UpdDate", timeStamp, "time stamp"},
};
constexpr Form stockForms[] = {
    {"Code", code, "code"},
    {"ZaikoSuu", stockNumber, "number"},
    {"KuriSuu", stockNumber, "number"},
    {"InpDate", timeStamp, "time stamp"},
    {"UpdDate", timeStamp, "time stamp"},
};
constexpr Form masterForms[] = {
    {"Code", code, "code"},
    {"NyuSuu", maybeNumber, "number"},
    {"NyuPrice", maybeNumber, "number"},
    {"SyuSuu", maybeNumber, "number"},
    {"SyuPrice", maybeNumber, "number"},
    {"Stock", maybeNumber, "number"},
};
constexpr Form componentForms[] = {
    {"Code", code, "code"}, {"HSeihinCD", code, "code"}, {"Suuryou", maybeNumber, "number"}};
constexpr Form codeForms[] = {{"Code", code, "code"}};

constexpr struct
{
    std::string_view table;
    std::span<const Form> forms;
} tables[] = {
    {"InpTB", movementForms},      {"OutTB", movementForms}, {"ZaikoTB", stockForms}, {"Master", masterForms},
    {"HSeihinTB", componentForms}, {"KokyakuTB", codeForms}, {"TantouTB", codeForms},
};

const Form* formOf(std::string_view table, std::string_view column)
{
    for (const auto& entry : tables)
        if (entry.table == table)
            for (const Form& form : entry.forms)
                if (form.column == column)
                    return &form;
    return nullptr;
}

} // namespace

std::optional<std::string> asStored(std::string_view table, std::string_view column, std::string_view text)
{
    const Form* form = formOf(table, column);
    return form == nullptr ? std::optional<std::string>(text) : form->stored(text);
}

std::string_view meaningOf(std::string_view table, std::string_view column)
{
    const Form* form = formOf(table, column);
    return form == nullptr ? std::string_view() : form->meaning;
}

} // namespace suisui
