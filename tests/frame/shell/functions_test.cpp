// Every function code of the printed sheet on every tab, looked at on the window; and every place of the
// table that is empty, shown to do nothing.
#include <map>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

#include "barcode/FunctionCodes.h"
#include "barcode/ScanDispatch.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// The table: what the code does on each of the five tabs, given as the state of the window that must follow.
/// Empty: nothing.
struct Expected
{
    char16_t code;
    std::array<const char*, 5> effects;
};

constexpr Expected table[] = {
    {u'A', {"", "", "optZNormal on", "lblNLSyouhin all", "lblSLSyouhin all"}},
    {u'B', {"", "", "optZDetail on", "cmbNLSaki all", "cmbSLSaki all"}},
    {u'C', {"", "", "chkStock_Low on", "cmbNLTantou all", "cmbSLTantou all"}},
    {u'D', {"", "", "chkStock_Zero on", "chkNLSum flipped", "chkSLSum flipped"}},
    {u'E', {"cmdNKensaku", "cmdSKensaku", "cmdZKensaku", "cmdNLKensaku", "cmdSLKensaku"}},
    {u'F', {"", "", "cmdRptZList", "cmdRptNList", "cmdRptSList"}},
    {u'G', {"", "", "", "", "cmdPrintRptExe"}},
    {u'H', {}},
    {u'I', {"cmdNKousin", "cmdSKousin"}},
    {u'J', {"cmdNDelete", "cmdSDelete"}},
    {u'K', {}},
    {u'L', {"optNPrint1 on", "optSPrint1 on"}},
    {u'M', {"optNPrintS on", "optSPrintS on"}},
    {u'N', {"cmdNPrint", "cmdSPrint"}},
    {u'O', {"cmdMaster", "cmdMaster", "cmdMaster", "cmdMaster", "cmdMaster"}},
    {u'P', {}},
    {u'Q', {"cmdRirekiOut", "cmdRirekiOut", "cmdRirekiOut", "cmdRirekiOut", "cmdRirekiOut"}},
    {u'R', {}},
    {u'S', {"cmdRirekiIn", "cmdRirekiIn", "cmdRirekiIn", "cmdRirekiIn", "cmdRirekiIn"}},
    {u'T', {}},
    {u'U', {"CmdEnd", "CmdEnd", "CmdEnd", "CmdEnd", "CmdEnd"}},
    {u'V', {}},
    {u'W', {}},
    {u'X', {}},
    {u'Y', {}},
    {u'Z', {}},
};

class FunctionsTest : public ::testing::TestWithParam<int>, protected MainWindowDesk
{
protected:
    FunctionsTest()
    {
        fillShop();
        open();
        // Only that the buttons are pressed; what they do is tested elsewhere.
        for (QPushButton* button : window->findChildren<QPushButton*>()) {
            QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
            QObject::connect(button, &QPushButton::clicked, window.get(),
                             [this, button] { pressed += button->objectName() + u' '; });
        }
        window->showTab(static_cast<Tab>(GetParam()));
        QCoreApplication::processEvents();
        disturb();
    }

    /// Puts everything that a code may set away from what the code sets it to.
    void disturb()
    {
        for (const QString& name : {u"cmbNLSaki"_s, u"cmbSLSaki"_s, u"cmbNLTantou"_s, u"cmbSLTantou"_s})
            control<QComboBox>(name).setCurrentIndex(0);
        for (const QString& name : {u"lblNLSyouhin"_s, u"lblSLSyouhin"_s})
            control<QLabel>(name).setText(u"鉛筆"_s);
        for (const QString& name : {u"chkStock_Low"_s, u"chkStock_Zero"_s})
            control<QCheckBox>(name).setChecked(false);
        for (const QString& name : {u"optNPrint1"_s, u"optNPrintS"_s, u"optSPrint1"_s, u"optSPrintS"_s,
                                    u"optZNormal"_s, u"optZDetail"_s}) {
            auto& option = control<QAbstractButton>(name);
            option.setAutoExclusive(false); // so that none need be on
            option.setChecked(false);
        }
        page(currentTab()).grid()->setFocus();
    }
    [[nodiscard]] Tab currentTab() const { return window->currentTab(); }
    [[nodiscard]] Page& page(Tab tab) const { return window->page(tab); }

    /// All that the operator could see change.
    std::map<QString, QString> look()
    {
        std::map<QString, QString> seen;
        for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
            if (button->isCheckable() && !button->objectName().isEmpty())
                seen[button->objectName()] = button->isChecked() ? u"on"_s : u"off"_s;
        for (QComboBox* list : window->findChildren<QComboBox*>())
            seen[list->objectName()] = list->currentText();
        for (QLabel* label : window->findChildren<QLabel*>())
            seen[label->objectName()] = label->text();
        for (QLineEdit* field : window->findChildren<QLineEdit*>())
            if (!field->objectName().isEmpty() && !field->objectName().startsWith(u"qt_"))
                seen[field->objectName()] = field->text();
        seen[u"tab"_s] = QString::number(static_cast<int>(currentTab()));
        seen[u"focus"_s] =
            QApplication::focusWidget() == nullptr ? u"none"_s : QApplication::focusWidget()->objectName();
        seen[u"pressed"_s] = pressed;
        return seen;
    }

    /// The window as it must look after \a effect.
    std::map<QString, QString> after(std::map<QString, QString> before, const QString& effect)
    {
        const QStringList words = effect.split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty())
            return before;
        if (words.size() == 1) {
            before[u"pressed"_s] += words[0] + u' ';
        } else if (words[1] == u"on") {
            before[words[0]] = u"on"_s;
            if (words[0].startsWith(u"chk"))
                before[u"focus"_s] = u"cmdZKensaku"_s;
            if (words[0] == u"chkStock_Low")
                before[u"chkStock_Zero"_s] = u"on"_s;
        } else if (words[1] == u"flipped") {
            before[words[0]] = before[words[0]] == u"on" ? u"off"_s : u"on"_s;
        } else {
            before[words[0]] = u"（すべて）"_s;
        }
        return before;
    }

    QString pressed;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Tabs, FunctionsTest, ::testing::Range(0, 5));

TEST_P(FunctionsTest, eachCodeDoesWhatTheTableSays_andNothingElse)
{
    const auto tab = static_cast<std::size_t>(GetParam());
    for (const Expected& row : table) {
        disturb();
        pressed.clear();
        const QString effect = QString::fromLatin1(row.effects[tab] == nullptr ? "" : row.effects[tab]);
        const auto wanted = after(look(), effect);
        MainBarCodeChk(u"[%1]"_s.arg(QChar(row.code)), *window);
        const auto seen = look();
        for (const auto& [name, state] : wanted)
            EXPECT_EQ(seen.at(name), state)
                << name.toStdString() << " after " << static_cast<char>(row.code) << " on tab " << tab;
    }
}

TEST_P(FunctionsTest, whatIsNotAFunction_doesNothing)
{
    for (const QString& none : {u"[a]"_s, u"[e]"_s, u"[EE]"_s, u"[E ]"_s, u"[ E]"_s, u"[5]"_s, u"[Ｅ]"_s,
                                u"[]"_s, u"[["_s, u"[E"_s, u"[終]"_s, u"[9]"_s}) {
        const auto before = look();
        MainBarCodeChk(none, *window);
        EXPECT_EQ(look(), before) << none.toStdString();
    }
}

TEST_P(FunctionsTest, twiceTheSameCode_flipsTheSumsBack_notTheStockBoxes)
{
    for (const QString& code : {u"[C]"_s, u"[D]"_s}) {
        disturb();
        const auto before = look();
        MainBarCodeChk(code, *window);
        const auto once = look();
        MainBarCodeChk(code, *window);
        if (GetParam() == 2 || (code == u"[C]" && GetParam() > 2))
            EXPECT_EQ(look(), once);
        else
            EXPECT_EQ(look(), before);
    }
}

TEST_P(FunctionsTest, tabSwitch_worksFromEveryTab_andOnTheTabItselfChangesNothing)
{
    for (const int to : {4, 1, 3, 0, 2}) {
        MainBarCodeChk(u"[%1]"_s.arg(to), *window);
        EXPECT_EQ(static_cast<int>(currentTab()), to);
        disturb();
        const auto before = look();
        MainBarCodeChk(u"[%1]"_s.arg(to), *window);
        EXPECT_EQ(look(), before);
    }
}

TEST_P(FunctionsTest, valuesThatOnlyLookLikeTabs_areRunTimeErrors)
{
    for (const QString& value : {u"[10]"_s, u"[2X]"_s, u"[33]"_s, u"#"_s, u"@"_s})
        EXPECT_THROW(MainBarCodeChk(value, *window), RunTimeError) << value.toStdString();
}

TEST_P(FunctionsTest, longAndUnclosedValues_areDropped)
{
    const auto before = look();
    for (const QString& value : {u"12345678901234567"_s, u"[A"_s, u"{TAB"_s, u"#101"_s, u"@01"_s, u"{FOO}"_s,
                                 u"{}"_s, u"{ENTER 2000}"_s, u"{\"code\":\"4901\",\"lot\":[1,2]}"_s})
        MainBarCodeChk(value, *window);
    EXPECT_EQ(look(), before);
}

TEST_P(FunctionsTest, staffAndPartnerCodes_chooseOnTheListsOfTheTab)
{
    const auto before = look();
    MainBarCodeChk(u"@02@"_s, *window);
    auto wanted = before;
    const bool list = GetParam() >= 3;
    const QString side = GetParam() % 2 == 1 ? u"N"_s : u"S"_s; // of the list tabs
    wanted[list ? u"cmb%1LTantou"_s.arg(side) : u"cmbTantou"_s] = u"佐藤"_s;
    if (list)
        wanted[u"focus"_s] = u"cmd%1LKensaku"_s.arg(side);
    EXPECT_EQ(look(), wanted);
    MainBarCodeChk(u"@99@"_s, *window);
    MainBarCodeChk(u"#999#"_s, *window);
    EXPECT_EQ(look(), wanted) << "codes that nobody has";
    MainBarCodeChk(GetParam() == 1 || GetParam() == 4 ? u"#201#"_s : u"#102#"_s, *window);
    if (GetParam() == 0)
        wanted[u"cmbNSaki"_s] = u"西商店"_s;
    else if (GetParam() == 1)
        wanted[u"cmbSSaki"_s] = u"南商店"_s;
    else if (list)
        wanted[u"cmb%1LSaki"_s.arg(side)] = GetParam() == 3 ? u"西商店"_s : u"南商店"_s;
    EXPECT_EQ(look(), wanted);
}

} // namespace suisui::test
