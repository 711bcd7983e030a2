// Typing a key expression into whatever has the focus.
#pragma once

#include <QString>

namespace suisui {

/// Types \a expression: plain characters as they are, "{ENTER}", "{TAB}", "{F5}", "{LEFT 3}" and the
/// other key names in braces (case-blind, with an optional repeat count), "+" "^" "%" before a key or a
/// "(group)" for Shift, Ctrl, Alt, "~" for Enter, "{+}" and the like for the signs themselves. Keys are
/// posted and run when events next run; each goes to the widget that has the focus at that moment.
/// Of an expression that has no meaning nothing is typed. It may be a symbol that was never meant for this
/// program, so nothing is reported. The same holds for one of more than 10,000 keys.
void SendKeys(const QString& expression);

} // namespace suisui
