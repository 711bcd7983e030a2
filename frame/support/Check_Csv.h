// The shared rules of keyboard entry: which keys a field lets through, how long it may grow, and
// whether three boxes hold a date.
#pragma once

#include <functional>

#include <QString>

class QLineEdit;
class QWidget;

namespace suisui {

class BusyState;
class KeyField;
class MsgBox;

// Key filters. Each sets the key to 0 when it is refused, and returns it.
int NumKeyCheck(int& keyAscii);    ///< digits; Ctrl-C, Backspace, Enter
int CodeKeyCheck(int& keyAscii);   ///< digits, letters, "-"; Ctrl-C, Backspace, Enter, Ctrl-V, Ctrl-X
int SearchKeyCheck(int& keyAscii); ///< as CodeKeyCheck, and "*" "?"

using KeyFilter = int (*)(int&);

/// Characters that a field for a goods code takes.
inline constexpr int goodsCodeLength = 13;

/// Drops \a keyAscii when \a field has reached \a limit characters, nothing in it is selected and the key
/// is not Backspace (nor Enter, where \a enterPasses).
void limitLength(const QLineEdit& field, int limit, bool enterPasses, int& keyAscii);

/// Gives \a field its keys: those that \a filter lets through, up to \a limit characters; Enter does \a
/// onEnter.
void limitKeys(KeyField& field, KeyFilter filter, int limit, std::function<void()> onEnter);

/// Three boxes that hold one date.
struct DateBoxes
{
    QLineEdit* year = nullptr;
    QLineEdit* month = nullptr;
    QLineEdit* day = nullptr;

    /// Fills the boxes from "YYYYMMDD".
    void setDate(QStringView stored) const;
    /// "YYYYMMDD" by the formats "0000", "00", "00".
    [[nodiscard]] QString stored() const;
};

/// Year, month and day of both ends of a period.
struct PeriodBoxes
{
    DateBoxes from;
    DateBoxes to;
};

/// True if the boxes hold a date; they are zero-padded then. Otherwise a box has said so, \a form
/// is enabled and the focus is on the box concerned.
[[nodiscard]] bool DateCheck(const DateBoxes& date, BusyState& form, MsgBox& msgBox);
/// The same on a dialog, which \a enableForm enables.
[[nodiscard]] bool DateCheck(const DateBoxes& date, const std::function<void()>& enableForm, MsgBox& msgBox);

/// Tells the operator of \a text under the title of all date errors, enables the form and puts the focus on
/// \a field. Always false.
bool refuseDate(const QString& text, QLineEdit* field, const std::function<void()>& enableForm,
                MsgBox& msgBox);
/// The message that \a from is later than \a to, both "YYYY/MM/DD".
[[nodiscard]] QString laterThan(const QString& from, const QString& to);

/// True if both dates are good and in order.
[[nodiscard]] bool PeriodCheck(const PeriodBoxes& period, BusyState& form, MsgBox& msgBox);

/// Gives the six boxes of \a period their key filter, lengths, input-method setting and Enter chain; Enter
/// in the last box goes to \a last.
void wirePeriod(const PeriodBoxes& period, QWidget* last);

} // namespace suisui
