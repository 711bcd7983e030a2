// Changing tabs, and the guard of unsaved edits that a change of tab has to pass.
#include "frame/shell/frmMain.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "barcode/FunctionCodes.h"
#include "frame/support/PageTools.h"
#include "lists/MovementListPage.h"
#include "lists/StockPage.h"
#include "movement/MovementPage.h"
#include "platform/core/DoEvents.h"
#include "platform/core/FillIn.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/SendKeys.h"
#include "store/AppIni.h"
#include "ui_frmMain.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

void chooseAll(QComboBox& list)
{
    if (const int all = list.findText(allChoices); all >= 0)
        list.setCurrentIndex(all);
}

/// What a function code does to its control, which is of the kind that the action asks for.
void carryOut(FunctionAction action, QWidget& control)
{
    switch (action) {
    case FunctionAction::Press:
        return qobject_cast<QAbstractButton*>(&control)->click();
    case FunctionAction::Choose:
        return qobject_cast<QAbstractButton*>(&control)->setChecked(true);
    case FunctionAction::Tick:
        qobject_cast<QCheckBox*>(&control)->setChecked(true);
        return StockPage::check_LostFocus(*qobject_cast<QCheckBox*>(&control));
    case FunctionAction::Flip:
        return qobject_cast<QAbstractButton*>(&control)->toggle();
    case FunctionAction::AllGoods:
        return qobject_cast<QLabel*>(&control)->setText(allChoices);
    case FunctionAction::AllOfList:
        return chooseAll(*qobject_cast<QComboBox*>(&control));
    }
}

} // namespace

void frmMain::showTab(Tab tab)
{
    if (currentTab() == tab)
        SSTab_Click(m_currentTab);
    else
        m_ui->SSTab->setCurrentIndex(static_cast<int>(tab));
}

/// A page that leaves the front hands its focus to the control next to it, which would flash up in cyan
/// before the page that comes to the front takes the focus. It is dropped instead.
bool frmMain::focusNextPrevChild(bool next)
{
    QWidget* left = focusWidget();
    if (left == nullptr || left->isVisibleTo(this))
        return QMainWindow::focusNextPrevChild(next);
    left->clearFocus();
    return true;
}

void frmMain::SSTab_Click(int previousTab)
{
    m_gate.setEnabled(false);
    setPointer(true);
    DoEvents();
    EditGuard(static_cast<Tab>(previousTab));
    DoEvents();
    const Tab tab = currentTab();
    showTitle(m_currentTab);
    firstShow(tab);
    setFormEnabled(true);
    QLineEdit& field = *page(tab).barCodeField();
    if (entryPage(tab) != nullptr && !field.isEnabled())
        field.setEnabled(true); // the guard has put the focus into the grid; it stays there
    else if (isVisible())
        field.setFocus();
}

void frmMain::showTitle(int tab)
{
    const std::array bars{m_ui->lbltlfram_0, m_ui->lbltlfram_1, m_ui->lbltlfram_2, m_ui->lbltlfram_3,
                          m_ui->lbltlfram_4};
    const std::array frames{m_ui->tabfram_0, m_ui->tabfram_1, m_ui->tabfram_2, m_ui->tabfram_3,
                            m_ui->tabfram_4};
    for (int i = 0; i < static_cast<int>(Tab::Count); ++i) {
        bars[static_cast<std::size_t>(i)]->setVisible(i == tab); // picture and text are in the bar
        frames[static_cast<std::size_t>(i)]->setEnabled(i == tab);
    }
    repaint();
}

/// Fills a tab that was not filled yet or has become stale.
void frmMain::firstShow(Tab tab)
{
    if (TabLoaded(tab))
        return;
    const bool movesTables = entryPage(tab) != nullptr;
    if (!movesTables)
        m_gate.setEnabled(true);
    page(tab).firstShow();
    if (tab != Tab::Stock) // the stock search says itself that it has filled its tab
        setTabLoaded(tab, true);
}

BoxAnswer frmMain::EditGuard(Tab tab)
{
    MovementPage* entry = entryPage(tab);
    if (entry != nullptr)
        entry->grid()->endEdit();
    if (entry == nullptr || !dirty(static_cast<Side>(tab)))
        return BoxAnswer::None;
    m_guardActive = true;
    const BoxAnswer answer = m_around.msgBox.show(
        {u"すいすいＴＡＧ"_s,
         fillIn(u"　　「 {TabTitle(tab)} 」が変更されています。\r\n\r\n　　　更新を行いますか？　　　（ 戻る "
                u"： キャンセル ）　　",
                {{u"TabTitle(tab)", m_around.ini.TabTitle(static_cast<int>(tab))}}),
         BoxIcon::Question, BoxButtons::YesNoCancel});
    switch (answer) {
    case BoxAnswer::Yes:
        entry->cmdKousin_Click();
        m_stock->grid()->setMaxRows(0);
        break;
    case BoxAnswer::No:
        setDirty(static_cast<Side>(tab), false);
        setTabLoaded(tab, false);
        break;
    default:
        backToGuardedTab(tab);
        break;
    }
    m_guardActive = false;
    return answer;
}

/// The disabled code field tells the tab change that runs for this selection, and the one that is under
/// way, not to take the focus from the grid.
void frmMain::backToGuardedTab(Tab tab)
{
    const bool tabChanges = currentTab() != tab;
    m_ui->SSTab->setCurrentIndex(static_cast<int>(tab));
    setFormEnabled(true);
    page(tab).grid()->setFocus();
    if (tabChanges)
        page(tab).barCodeField()->setEnabled(false);
    m_gate.setEnabled(false);
}

// ---- what a scanned value does

void frmMain::selectTab(int tab)
{
    if (tab < 0 || tab >= m_ui->SSTab->count())
        throw RunTimeError(RunTimeError::SubscriptOutOfRange, "no such tab");
    m_ui->SSTab->setCurrentIndex(tab);
}

void frmMain::GoodsCodeSet(const QString& code)
{
    const Tab tab = currentTab();
    page(tab).barCodeField()->setText(code);
    int key = KeyCode::enter;
    page(tab).barCode_KeyPress(key);
    if (entryPage(tab) != nullptr)
        page(tab).grid()->setFocus(); // the cursor stays on the new row
}

void frmMain::TantouCodeSet(const QString& code)
{
    MovementListPage* list = listPage(currentTab());
    QComboBox& staff = list != nullptr ? *list->staffChoice() : *m_ui->cmbTantou;
    if (chooseCode(staff, m_staff, code) && list != nullptr)
        list->searchButton()->setFocus();
}

/// The stock tab knows no partners.
void frmMain::SakiCodeSet(const QString& code)
{
    if (MovementPage* entry = entryPage(currentTab()))
        (void)entry->choosePartner(code);
    MovementListPage* list = listPage(currentTab());
    if (list != nullptr && list->choosePartner(code))
        list->searchButton()->setFocus();
}

void frmMain::sendKeys(const QString& expression)
{
    SendKeys(expression);
}

void frmMain::MainBarEtc(const QString& function)
{
    if (const FunctionCode* entry = functionOn(function, m_currentTab))
        if (auto* control = findChild<QWidget*>(entry->control.toString()))
            carryOut(entry->action, *control);
}

} // namespace suisui
