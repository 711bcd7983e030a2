// The function codes of the printed sheet on the main window: code, tab, what happens, and to which control.
// Tab switches ("0" to "4") are the dispatcher's own. A code and tab without an entry mean nothing.
#pragma once

#include <cstdint>

#include <QStringView>

namespace suisui {

inline constexpr int onEveryTab = -1;

enum class FunctionAction : std::uint8_t {
    Press,    ///< the button, as a click of the mouse
    Choose,   ///< the option button
    Tick,     ///< the check box, which stays ticked when the code comes again
    Flip,     ///< the check box, the other way each time
    AllGoods, ///< the caption that says of which goods
    AllOfList ///< the choice, to its entry for all
};

struct FunctionCode
{
    char16_t code;
    int tab;
    FunctionAction action;
    QStringView control; ///< object name
};

inline constexpr FunctionCode functionCodes[] = {
    {u'A', 2, FunctionAction::Choose, u"optZNormal"},
    {u'A', 3, FunctionAction::AllGoods, u"lblNLSyouhin"},
    {u'A', 4, FunctionAction::AllGoods, u"lblSLSyouhin"},
    {u'B', 2, FunctionAction::Choose, u"optZDetail"},
    {u'B', 3, FunctionAction::AllOfList, u"cmbNLSaki"},
    {u'B', 4, FunctionAction::AllOfList, u"cmbSLSaki"},
    {u'C', 2, FunctionAction::Tick, u"chkStock_Low"},
    {u'C', 3, FunctionAction::AllOfList, u"cmbNLTantou"},
    {u'C', 4, FunctionAction::AllOfList, u"cmbSLTantou"},
    {u'D', 2, FunctionAction::Tick, u"chkStock_Zero"},
    {u'D', 3, FunctionAction::Flip, u"chkNLSum"},
    {u'D', 4, FunctionAction::Flip, u"chkSLSum"},
    {u'E', 0, FunctionAction::Press, u"cmdNKensaku"},
    {u'E', 1, FunctionAction::Press, u"cmdSKensaku"},
    {u'E', 2, FunctionAction::Press, u"cmdZKensaku"},
    {u'E', 3, FunctionAction::Press, u"cmdNLKensaku"},
    {u'E', 4, FunctionAction::Press, u"cmdSLKensaku"},
    {u'F', 2, FunctionAction::Press, u"cmdRptZList"},
    {u'F', 3, FunctionAction::Press, u"cmdRptNList"},
    {u'F', 4, FunctionAction::Press, u"cmdRptSList"},
    {u'G', 4, FunctionAction::Press, u"cmdPrintRptExe"},
    {u'I', 0, FunctionAction::Press, u"cmdNKousin"},
    {u'I', 1, FunctionAction::Press, u"cmdSKousin"},
    {u'J', 0, FunctionAction::Press, u"cmdNDelete"},
    {u'J', 1, FunctionAction::Press, u"cmdSDelete"},
    {u'L', 0, FunctionAction::Choose, u"optNPrint1"},
    {u'L', 1, FunctionAction::Choose, u"optSPrint1"},
    {u'M', 0, FunctionAction::Choose, u"optNPrintS"},
    {u'M', 1, FunctionAction::Choose, u"optSPrintS"},
    {u'N', 0, FunctionAction::Press, u"cmdNPrint"},
    {u'N', 1, FunctionAction::Press, u"cmdSPrint"},
    {u'O', onEveryTab, FunctionAction::Press, u"cmdMaster"},
    {u'Q', onEveryTab, FunctionAction::Press, u"cmdRirekiOut"},
    {u'S', onEveryTab, FunctionAction::Press, u"cmdRirekiIn"},
    {u'U', onEveryTab, FunctionAction::Press, u"CmdEnd"},
};

/// What \a function does on tab \a tab; null when it does nothing there.
[[nodiscard]] constexpr const FunctionCode* functionOn(QStringView function, int tab)
{
    for (const FunctionCode& entry : functionCodes)
        if (function.size() == 1 && function[0] == QChar(entry.code)
            && (entry.tab == onEveryTab || entry.tab == tab))
            return &entry;
    return nullptr;
}

} // namespace suisui
