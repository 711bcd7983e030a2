// Dates and times as texts: stored "YYYYMMDD", "HHMMSS" and the stamp "YYYYMMDDHHMMSS", on screen
// "YYYY/MM/DD" and "HH:MM:SS". Parts are taken by position, whatever the characters are.
#pragma once

#include <string>
#include <string_view>

#include <QDateTime>

namespace suisui {

[[nodiscard]] std::string stampOf(const QDateTime& moment);    ///< "YYYYMMDDHHMMSS"
[[nodiscard]] std::string dateOf(const QDateTime& moment);     ///< "YYYYMMDD"
[[nodiscard]] std::string screenDate(std::string_view stored); ///< "YYYYMMDD" as "YYYY/MM/DD"
[[nodiscard]] std::string screenTime(std::string_view stored); ///< "HHMMSS" as "HH:MM:SS"
/// Characters 1 to 4, 6 and 7, 9 and 10 of "YYYY/MM/DD".
[[nodiscard]] std::string storedDate(std::string_view screen);
/// Characters 1 and 2, 4 and 5, 7 and 8 of "HH:MM:SS".
[[nodiscard]] std::string storedTime(std::string_view screen);
/// "YYYYMMDD" as "{YYYY}年{MM}月{DD}日".
[[nodiscard]] std::string spokenDate(std::string_view stored);

/// Whether year/month/day is a day of the calendar. Years from 100 to 9999.
[[nodiscard]] bool isCalendarDay(int year, int month, int day);

} // namespace suisui
