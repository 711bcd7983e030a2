// The slip: hands the shown list, the customer and the person to the slip program, and starts it.
#include <QComboBox>

#include "lists/ListHeadings.h"
#include "lists/MovementListPage.h"
#include "lists/SlipFile.h"
#include "platform/core/FillIn.h"
#include "platform/core/RunTimeError.h"
#include "platform/core/Shell.h"
#include "platform/widgets/EnterButton.h"
#include "frame/support/Busy.h"
#include "frame/support/KeyField.h"
#include "store/AppDB.h"
#include "store/SlipIni.h"
#include "store/Where.h"
#include "ui_MovementListPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// Postal code, both lines of the address, telephone.
constexpr std::array slipDetails{KokyakuCol::YubinNo, KokyakuCol::Jyusyo1, KokyakuCol::Jyusyo2,
                                 KokyakuCol::Tel};
static_assert(slipDetails.size() == SlipIni::customerDetails);

} // namespace

void MovementListPage::setSlipPlace(SlipIni& ini, const QString& exeFolder)
{
    m_slipIni = &ini;
    m_exeFolder = exeFolder;
}

void MovementListPage::rememberSlip(const ListFilter& filter)
{
    m_slipPartner = filter.partner.value_or(std::string());
    m_slipPerson = filter.staff ? m_ui->cmbXLTantou->currentText() : m_services.frame.tantouName();
}

void MovementListPage::cmdPrintRptExe_Click()
{
    if (grid()->MaxRows() == 0) {
        slipBox(
            u"印刷する情報がありません。\r\n\r\n対象の情報を 検索（表示）した後に　　\r\n再度、印刷して下さい。"_s);
        return;
    }
    if (m_slipPartner.empty()) {
        slipBox(
            fillIn(u"「 {h} 」 が 指定されていません。\r\n\r\n　「伝票」 印刷 の場合は、 \"（すべて）\" "
                   u"ではなく\r\n　特定の 「 {h} 」 を 指定して下さい。\r\n\r\n　特定の 「 {h} 」 を "
                   u"指定して、検索（表示）した後に　　　\r\n　再度、印刷して下さい。",
                   {{u"h", QString::fromStdString(heading(m_side, m_services.ini, m_side.cells.partner))}}));
        m_ui->cmbXLSaki->setFocus();
        return;
    }
    const Busy busy(m_services.frame);
    printSlip();
}

/// A slip that could not be handed over whole is not printed: the program would print parts of an older one.
void MovementListPage::printSlip()
{
    const QString file = m_exeFolder + u"/FileCsv.csv"_s;
    const QString program = m_exeFolder + u"/PrintRpt.exe"_s;
    if (!writeSlipFile(file, slipText(m_side, m_services.ini, *grid())) || !handOverSlip()) {
        slipBox(fillIn(u"伝票の情報を 保存できませんでした。　　　\r\n\r\n　{file}", {{u"file", file}}));
        return;
    }
    try {
        Shell(program, m_exeFolder);
    } catch (const RunTimeError&) {
        slipBox(fillIn(u"伝票の印刷プログラムを 起動できませんでした。　　　\r\n\r\n　{program}",
                       {{u"program", program}}));
    }
}

bool MovementListPage::handOverSlip()
{
    m_slipIni->setCustomerCode(QString::fromStdString(m_slipPartner));
    KokyakuRec& customer = m_services.db.KokyakuSlip();
    const int count = customer.Select(whereCode(m_slipPartner));
    const auto text = [&customer](KokyakuCol column) { return QString::fromUtf8(customer.get(1, column)); };
    if (count > 0) {
        m_slipIni->setCustomerName(text(KokyakuCol::Name));
        for (int detail = 0; detail < SlipIni::customerDetails; ++detail)
            m_slipIni->setCustomerDetail(detail, text(slipDetails.at(static_cast<std::size_t>(detail))));
    }
    customer.Clear();
    return m_slipIni->setPersonName(m_slipPerson) && count >= 0;
}

void MovementListPage::slipBox(const QString& text)
{
    m_services.msgBox.show({u" 「伝票」 印刷"_s, text, BoxIcon::Stop});
}

} // namespace suisui
