// What the main window takes from the master data and the settings before it is shown.
#include "frame/shell/frmMain.h"

#include <array>

#include <QComboBox>
#include <QLabel>

#include "frame/support/PageTools.h"
#include "frame/support/frm_ShortWait.h"
#include "lists/MovementListPage.h"
#include "movement/MovementPage.h"
#include "platform/core/Clock.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Stamps.h"
#include "ui_frmMain.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// What distinguishes the sides when their partners are read.
struct PartnerWords
{
    KokyakuRec& (AppDB::*table)();
    const char* select;
    const char16_t* title;
    const char16_t* text;
};

constexpr std::array<PartnerWords, 2> partnerWords{{
    {&AppDB::KokyakuNyu, "Where NyuKyk = '1' ORDER BY Code", u"入荷先の未登録エラー",
     u"入荷先の顧客情報が登録されていません。　　　"},
    {&AppDB::KokyakuSyu, "Where SyuKyk = '1' ORDER BY Code", u"出荷先の未登録エラー",
     u"出荷先の顧客情報が登録されていません。　　　"},
}};
const QString partnersNeeded =
    u"\r\n\r\n　　最低でも１件は 登録して下さい。\r\n\r\n　　【 すいすいＴＡＧ 】　　を終了して\r\n　　【 基本情報 登録 】を起動します。"_s;

} // namespace

void frmMain::load()
{
    if (!loadPartners(Side::Receipt) || !loadPartners(Side::Shipment) || !loadStaff() || !loadGoods())
        return;
    m_around.db.MasterTbl().Clear();
    DateBoxInit();
    if (m_around.ini.InpHeading(1).isEmpty())
        return; // a shop without wording of its own: everything stays as designed
    loadCaptions();
}

void frmMain::masterDataMissing(const QString& title, const QString& text)
{
    m_masterMissing = true;
    m_around.shortWait.unload();
    m_around.msgBox.show({title, text, BoxIcon::Stop});
}

bool frmMain::loadPartners(Side side)
{
    const auto at = indexOf(side);
    const PartnerWords& words = partnerWords[at];
    KokyakuRec& partners = (m_around.db.*words.table)();
    const int count = partners.Select(words.select);
    if (count < 1) {
        masterDataMissing(QString::fromUtf16(words.title), QString::fromUtf16(words.text) + partnersNeeded);
        return false;
    }
    ChoiceList choices;
    for (int row = 1; row <= count; ++row)
        choices.push_back({std::string(partners.get(row, KokyakuCol::Code)),
                           QString::fromUtf8(partners.get(row, KokyakuCol::Name))});
    partners.Clear();
    m_entry[at]->setPartners(choices);
    m_lists[at]->setPartners(choices);
    return true;
}

bool frmMain::loadStaff()
{
    TantouRec& staff = m_around.db.TantouTbl();
    const int count = staff.Select("ORDER BY Code");
    if (count < 1) {
        masterDataMissing(
            u"担当者の未登録エラー"_s,
            u"担当者が登録されていません。　　　\r\n\r\n　　最低でも１件は 登録して下さい。\r\n\r\n　　【 すいすいＴＡＧ 】　　を終了して\r\n　　【 基本情報 登録 】を起動します。　　　"_s);
        return false;
    }
    m_staff.clear();
    for (int row = 1; row <= count; ++row)
        m_staff.push_back({std::string(staff.get(row, TantouCol::Code)),
                           QString::fromUtf8(staff.get(row, TantouCol::Name))});
    staff.Clear();
    fillCombo(*m_ui->cmbTantou, m_staff, false);
    for (MovementListPage* list : m_lists)
        list->setStaff(m_staff);
    return true;
}

/// A shop without goods may go on: every code is then unregistered.
bool frmMain::loadGoods()
{
    if (m_around.db.MasterTbl().Select("ORDER BY Code") > 0)
        return true;
    m_around.shortWait.unload();
    const BoxAnswer answer = m_around.msgBox.show(
        {u"商品の未登録"_s,
         u"商品が登録されていません。\r\n\r\n　　最低でも１件は 登録しないと\r\n　　入出荷できません。\r\n\r\n　　【 すいすいＴＡＧ 】　　を終了して\r\n　　【 基本情報 登録 】を起動しますか？　　　　"_s,
         BoxIcon::Exclamation, BoxButtons::YesNo});
    if (answer == BoxAnswer::Yes) {
        m_masterMissing = true;
        return false;
    }
    m_around.shortWait.load();
    return true;
}

void frmMain::DateBoxInit()
{
    const std::string today = dateOf(m_around.clock.now());
    const QString spoken = QString::fromStdString(spokenDate(today));
    for (Page* page : m_pages) {
        page->setDefaultDates(m_around.lastDate, QString::fromStdString(today));
        page->setToday(spoken);
    }
}

/// The settings' words, tab by tab. Each tab is selected on the way, so that those not in front have had
/// their first search before the window is seen.
void frmMain::loadCaptions()
{
    const AppIni& ini = m_around.ini;
    const std::array titles{m_ui->lblTitle_0, m_ui->lblTitle_1, m_ui->lblTitle_2, m_ui->lblTitle_3,
                            m_ui->lblTitle_4};
    for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab)
        titles[static_cast<std::size_t>(tab)]->setText(ini.TabTitle(tab));
    for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab) {
        const QString work = entryPage(static_cast<Tab>(tab)) != nullptr ? u"登録"_s : u"一覧"_s;
        m_ui->SSTab->setCurrentIndex(tab);
        m_ui->SSTab->setTabText(tab, u" %1 %2 "_s.arg(ini.Term(tab), work));
        m_pages[static_cast<std::size_t>(tab)]->setCaptions(ini);
    }
}

} // namespace suisui
