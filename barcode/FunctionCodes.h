// The function codes of the printed sheet, as far as the main window has what they act on: code, tab, and the
// button that is pressed.
#pragma once

#include <QStringView>

namespace suisui {

inline constexpr int onEveryTab = -1;

struct FunctionCode
{
    char16_t code;
    int tab;
    QStringView button; ///< object name
};

inline constexpr FunctionCode functionCodes[] = {
    {u'E', 0, u"cmdNKensaku"},
    {u'E', 1, u"cmdSKensaku"},
    {u'I', 0, u"cmdNKousin"},
    {u'I', 1, u"cmdSKousin"},
    {u'J', 0, u"cmdNDelete"},
    {u'J', 1, u"cmdSDelete"},
    {u'Q', onEveryTab, u"cmdRirekiOut"},
    {u'S', onEveryTab, u"cmdRirekiIn"},
    {u'O', onEveryTab, u"cmdMaster"},
    {u'U', onEveryTab, u"CmdEnd"},
};

/// Name of the button that \a function presses on tab \a tab; empty when it presses none there.
[[nodiscard]] constexpr QStringView buttonOf(QStringView function, int tab)
{
    for (const FunctionCode& entry : functionCodes)
        if (function.size() == 1 && function[0] == QChar(entry.code)
            && (entry.tab == onEveryTab || entry.tab == tab))
            return entry.button;
    return {};
}

} // namespace suisui
