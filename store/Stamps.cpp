#include "store/Stamps.h"

#include <QDate>

namespace suisui {

namespace {

/// Up to \a count characters beginning with number \a from, counted from 1.
std::string_view part(std::string_view text, std::size_t from, std::size_t count)
{
    return from > text.size() ? std::string_view() : text.substr(from - 1, count);
}

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view each : parts)
        text += each;
    return text;
}

} // namespace

std::string stampOf(const QDateTime& moment)
{
    return moment.toString(QStringLiteral("yyyyMMddHHmmss")).toStdString();
}

std::string dateOf(const QDateTime& moment)
{
    return moment.toString(QStringLiteral("yyyyMMdd")).toStdString();
}

std::string screenDate(std::string_view stored)
{
    return joined({part(stored, 1, 4), "/", part(stored, 5, 2), "/", part(stored, 7, 2)});
}

std::string screenTime(std::string_view stored)
{
    return joined({part(stored, 1, 2), ":", part(stored, 3, 2), ":", part(stored, 5, 2)});
}

std::string storedDate(std::string_view screen)
{
    return joined({part(screen, 1, 4), part(screen, 6, 2), part(screen, 9, 2)});
}

std::string storedTime(std::string_view screen)
{
    return joined({part(screen, 1, 2), part(screen, 4, 2), part(screen, 7, 2)});
}

std::string spokenDate(std::string_view stored)
{
    return joined({part(stored, 1, 4), "年", part(stored, 5, 2), "月", part(stored, 7, 2), "日"});
}

bool isCalendarDay(int year, int month, int day)
{
    return year >= 100 && year <= 9999 && QDate::isValid(year, month, day);
}

} // namespace suisui
