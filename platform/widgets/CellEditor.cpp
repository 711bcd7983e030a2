#include "platform/widgets/CellEditor.h"

#include <QRegularExpression>

#include "store/Stamps.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

std::optional<QString> dateText(const QString& typed)
{
    static const QRegularExpression form(
        u"^(?:(\\d{4})(\\d{2})(\\d{2})|(\\d{1,4})/(\\d{1,2})/(\\d{1,2}))$"_s);
    const QRegularExpressionMatch match = form.match(typed);
    if (!match.hasMatch())
        return std::nullopt;
    const int first = match.capturedStart(1) >= 0 ? 1 : 4;
    const int year = match.captured(first).toInt();
    const int month = match.captured(first + 1).toInt();
    const int day = match.captured(first + 2).toInt();
    if (!isCalendarDay(year, month, day))
        return std::nullopt;
    return u"%1/%2/%3"_s.arg(year, 4, 10, QChar(u'0'))
        .arg(month, 2, 10, QChar(u'0'))
        .arg(day, 2, 10, QChar(u'0'));
}

std::optional<QString> timeText(const QString& typed)
{
    static const QRegularExpression form(
        u"^(?:(\\d{2})(\\d{2})(\\d{2})|(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?)$"_s);
    const QRegularExpressionMatch match = form.match(typed);
    if (!match.hasMatch())
        return std::nullopt;
    const int first = match.capturedStart(1) >= 0 ? 1 : 4;
    const int hour = match.captured(first).toInt();
    const int minute = match.captured(first + 1).toInt();
    const int second = match.captured(first + 2).toInt();
    if (hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return u"%1:%2:%3"_s.arg(hour, 2, 10, QChar(u'0'))
        .arg(minute, 2, 10, QChar(u'0'))
        .arg(second, 2, 10, QChar(u'0'));
}

bool onlyDigitsAnd(QStringView text, char16_t also)
{
    for (const QChar c : text)
        if ((c < u'0' || c > u'9') && c != QChar(also))
            return false;
    return true;
}

constexpr qsizetype longestDate = 10;
constexpr qsizetype longestTime = 8;

} // namespace

CellValidator::CellValidator(CellType type, int digits, QObject* parent)
    : QValidator(parent), m_type(type), m_digits(digits)
{
}

QValidator::State CellValidator::validate(QString& input, int&) const
{
    switch (m_type) {
    case CellType::Number: {
        const QStringView digits = QStringView(input).sliced(input.startsWith(u'-') ? 1 : 0);
        const bool fits = m_digits == 0 || digits.size() <= m_digits;
        return fits && onlyDigitsAnd(digits, u'0') ? Acceptable : Invalid;
    }
    case CellType::Date:
        return input.size() <= longestDate && onlyDigitsAnd(input, u'/') ? Acceptable : Invalid;
    case CellType::Time:
        return input.size() <= longestTime && onlyDigitsAnd(input, u':') ? Acceptable : Invalid;
    default:
        for (QChar& c : input)
            if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
                || c == QChar::ParagraphSeparator)
                c = u' ';
        return Acceptable;
    }
}

std::optional<QString> cellText(CellType type, const QString& typed)
{
    switch (type) {
    case CellType::Date:
        return dateText(typed);
    case CellType::Time:
        return timeText(typed);
    case CellType::Number:
        return typed == u"-" ? std::nullopt : std::optional(typed);
    default:
        return typed;
    }
}

} // namespace suisui
