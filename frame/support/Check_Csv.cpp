#include "frame/support/Check_Csv.h"

#include <array>
#include <utility>

#include <QLineEdit>

#include "frame/support/Frame.h"
#include "frame/support/KeyField.h"
#include "platform/core/DoEvents.h"
#include "platform/core/FillIn.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/core/MsgBox.h"
#include "store/Stamps.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int yearLength = 4;
constexpr int monthLength = 2;

const auto dateErrorTitle = u"日付エラー"_s;

bool isDigit(int key)
{
    return key >= '0' && key <= '9';
}

bool isLetter(int key)
{
    return (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
}

bool passesNum(int key)
{
    return isDigit(key) || key == KeyCode::ctrlC || key == KeyCode::backspace || key == KeyCode::enter;
}

bool passesCode(int key)
{
    return passesNum(key) || isLetter(key) || key == '-' || key == KeyCode::ctrlV || key == KeyCode::ctrlX;
}

/// \a text by the format "00" or "0000"; what is not a number stays as it is, for the checks to refuse.
QString padded(const QString& text, int width)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= 0 ? u"%1"_s.arg(number, width, 10, QChar(u'0')) : text;
}

void pad(const DateBoxes& date)
{
    date.year->setText(padded(date.year->text(), yearLength));
    date.month->setText(padded(date.month->text(), monthLength));
    date.day->setText(padded(date.day->text(), monthLength));
}

QString withSlashes(const DateBoxes& date)
{
    return date.year->text() + u'/' + date.month->text() + u'/' + date.day->text();
}

bool outside(const QString& text, QLatin1StringView lowest, QLatin1StringView highest)
{
    return text < lowest || text > highest; // compared as text
}

} // namespace

int NumKeyCheck(int& keyAscii)
{
    if (!passesNum(keyAscii))
        keyAscii = 0;
    return keyAscii;
}

int CodeKeyCheck(int& keyAscii)
{
    if (!passesCode(keyAscii))
        keyAscii = 0;
    return keyAscii;
}

int SearchKeyCheck(int& keyAscii)
{
    if (!passesCode(keyAscii) && keyAscii != '*' && keyAscii != '?')
        keyAscii = 0;
    return keyAscii;
}

void limitLength(const QLineEdit& field, int limit, bool enterPasses, int& keyAscii)
{
    const bool full = field.text().size() >= limit && !field.hasSelectedText();
    if (full && keyAscii != KeyCode::backspace && !(enterPasses && keyAscii == KeyCode::enter))
        keyAscii = 0;
}

void limitKeys(KeyField& field, KeyFilter filter, int limit, std::function<void()> onEnter)
{
    field.setKeyPressHandler([&field, filter, limit, enter = std::move(onEnter)](int& key) {
        filter(key);
        if (key == KeyCode::enter)
            enter();
        else
            limitLength(field, limit, false, key);
    });
}

void DateBoxes::setDate(QStringView stored) const
{
    year->setText(stored.left(yearLength).toString());
    month->setText(stored.mid(yearLength, monthLength).toString());
    day->setText(stored.right(monthLength).toString());
}

QString DateBoxes::stored() const
{
    return padded(year->text(), yearLength) + padded(month->text(), monthLength)
           + padded(day->text(), monthLength);
}

bool refuseDate(const QString& text, QLineEdit* field, const std::function<void()>& enableForm,
                MsgBox& msgBox)
{
    msgBox.show({dateErrorTitle, text, BoxIcon::Stop});
    enableForm();
    field->setFocus();
    DoEvents();
    return false;
}

QString laterThan(const QString& from, const QString& to)
{
    return fillIn(u"「開始年月日」 が 「終了年月日」 より未来日です。　　　\r\n\r\n　{from}   >   "
                  u"{to}\r\n\r\n\r\n　　　 正しい 「日付」 を入力して下さい。",
                  {{u"from", from}, {u"to", to}});
}

bool DateCheck(const DateBoxes& date, BusyState& form, MsgBox& msgBox)
{
    return DateCheck(
        date, [&form] { form.setFormEnabled(true); }, msgBox); // brings the pointer back as well
}

bool DateCheck(const DateBoxes& date, const std::function<void()>& enableForm, MsgBox& msgBox)
{
    if (date.year->text().isEmpty())
        return refuseDate(u"「年」 を入力して下さい。　　　"_s, date.year, enableForm, msgBox);
    if (date.month->text().isEmpty())
        return refuseDate(u"「月」 を入力して下さい。　　　"_s, date.month, enableForm, msgBox);
    if (date.day->text().isEmpty())
        return refuseDate(u"「日」 を入力して下さい。　　　"_s, date.day, enableForm, msgBox);
    pad(date);
    if (outside(date.month->text(), "01"_L1, "12"_L1))
        return refuseDate(u"「月」 が 正しく入力されていません。　　　"_s, date.month, enableForm, msgBox);
    if (outside(date.day->text(), "01"_L1, "31"_L1))
        return refuseDate(u"「日」 が 正しく入力されていません。　　　"_s, date.day, enableForm, msgBox);
    if (isCalendarDay(date.year->text().toInt(), date.month->text().toInt(), date.day->text().toInt()))
        return true;
    return refuseDate(
        fillIn(u"存在しない 「日付」 です。　( {yyyy}/{mm}/{dd} )　　　\r\n\r\n正しい 「日付」 "
               u"を入力して下さい。",
               {{u"yyyy", date.year->text()}, {u"mm", date.month->text()}, {u"dd", date.day->text()}}),
        date.day, enableForm, msgBox);
}

bool PeriodCheck(const PeriodBoxes& period, BusyState& form, MsgBox& msgBox)
{
    if (!DateCheck(period.from, form, msgBox) || !DateCheck(period.to, form, msgBox))
        return false;
    pad(period.from);
    pad(period.to);
    const QString from = withSlashes(period.from);
    const QString to = withSlashes(period.to);
    if (from <= to)
        return true;
    return refuseDate(
        laterThan(from, to), period.from.year, [&form] { form.setFormEnabled(true); }, msgBox);
}

void wirePeriod(const PeriodBoxes& period, QWidget* last)
{
    const std::array boxes{period.from.year, period.from.month, period.from.day,
                           period.to.year,   period.to.month,   period.to.day};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        auto* box = qobject_cast<KeyField*>(boxes[i]);
        QWidget* next = i + 1 < boxes.size() ? boxes[i + 1] : last;
        const int limit = i % 3 == 0 ? yearLength : monthLength;
        limitKeys(*box, NumKeyCheck, limit, [next] { next->setFocus(); });
    }
}

} // namespace suisui
