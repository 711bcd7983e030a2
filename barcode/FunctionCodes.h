// What the function codes of a printed sheet do on the main window: for each code and tab, the action and its
// control. The dispatcher itself handles the codes that change tabs ("0" to "4"). A code without an entry for
// the tab does nothing.
#pragma once

#include <cstdint>

#include <QStringView>

namespace suisui {

inline constexpr int onEveryTab = -1;

enum class FunctionAction : std::uint8_t {
    Press,    ///< presses the button, like a click of the mouse
    Choose,   ///< chooses the radio button
    Tick,     ///< ticks the check box, which stays ticked when the code comes again
    Flip,     ///< ticks or clears the check box
    AllGoods, ///< sets the caption for the goods to all of them
    AllOfList ///< sets the combo box to its entry for all
};

struct FunctionCode
{
    char16_t code;
    FunctionAction action;
    int tab;
    QStringView control; ///< object name
};

inline constexpr FunctionCode functionCodes[] = {
    {u'A', FunctionAction::Choose, 2, u"optZNormal"},
    {u'A', FunctionAction::AllGoods, 3, u"lblNLSyouhin"},
    {u'A', FunctionAction::AllGoods, 4, u"lblSLSyouhin"},
    {u'B', FunctionAction::Choose, 2, u"optZDetail"},
    {u'B', FunctionAction::AllOfList, 3, u"cmbNLSaki"},
    {u'B', FunctionAction::AllOfList, 4, u"cmbSLSaki"},
    {u'C', FunctionAction::Tick, 2, u"chkStock_Low"},
    {u'C', FunctionAction::AllOfList, 3, u"cmbNLTantou"},
    {u'C', FunctionAction::AllOfList, 4, u"cmbSLTantou"},
    {u'D', FunctionAction::Tick, 2, u"chkStock_Zero"},
    {u'D', FunctionAction::Flip, 3, u"chkNLSum"},
    {u'D', FunctionAction::Flip, 4, u"chkSLSum"},
    {u'E', FunctionAction::Press, 0, u"cmdNKensaku"},
    {u'E', FunctionAction::Press, 1, u"cmdSKensaku"},
    {u'E', FunctionAction::Press, 2, u"cmdZKensaku"},
    {u'E', FunctionAction::Press, 3, u"cmdNLKensaku"},
    {u'E', FunctionAction::Press, 4, u"cmdSLKensaku"},
    {u'F', FunctionAction::Press, 2, u"cmdRptZList"},
    {u'F', FunctionAction::Press, 3, u"cmdRptNList"},
    {u'F', FunctionAction::Press, 4, u"cmdRptSList"},
    {u'G', FunctionAction::Press, 4, u"cmdPrintRptExe"},
    {u'I', FunctionAction::Press, 0, u"cmdNKousin"},
    {u'I', FunctionAction::Press, 1, u"cmdSKousin"},
    {u'J', FunctionAction::Press, 0, u"cmdNDelete"},
    {u'J', FunctionAction::Press, 1, u"cmdSDelete"},
    {u'L', FunctionAction::Choose, 0, u"optNPrint1"},
    {u'L', FunctionAction::Choose, 1, u"optSPrint1"},
    {u'M', FunctionAction::Choose, 0, u"optNPrintS"},
    {u'M', FunctionAction::Choose, 1, u"optSPrintS"},
    {u'N', FunctionAction::Press, 0, u"cmdNPrint"},
    {u'N', FunctionAction::Press, 1, u"cmdSPrint"},
    {u'O', FunctionAction::Press, onEveryTab, u"cmdMaster"},
    {u'Q', FunctionAction::Press, onEveryTab, u"cmdRirekiOut"},
    {u'S', FunctionAction::Press, onEveryTab, u"cmdRirekiIn"},
    {u'U', FunctionAction::Press, onEveryTab, u"CmdEnd"},
};

/// The entry of \a function for tab \a tab; null when it does nothing there.
[[nodiscard]] constexpr const FunctionCode* functionOn(QStringView function, int tab)
{
    for (const FunctionCode& entry : functionCodes)
        if (function.size() == 1 && function[0] == QChar(entry.code)
            && (entry.tab == onEveryTab || entry.tab == tab))
            return &entry;
    return nullptr;
}

} // namespace suisui
