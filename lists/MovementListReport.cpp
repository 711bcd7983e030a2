// The list on paper.
#include <QComboBox>

#include "frame/support/KeyField.h"
#include "lists/MovementListPage.h"
#include "platform/widgets/EnterButton.h"
#include "ui_MovementListPage.h"

namespace suisui {

void MovementListPage::cmdRptList_Click()
{
    if (m_listPrinting)
        printList(
            reportOf(m_side.tab), *grid(), [this] { return reportHead(); }, *m_listPrinting, window());
}

ReportHead MovementListPage::reportHead() const
{
    return {.texts = {{u"LbSYear", m_period.from.year->text()},
                      {u"LbSMonth", m_period.from.month->text()},
                      {u"LbSDate", m_period.from.day->text()},
                      {u"LbEYear", m_period.to.year->text()},
                      {u"LbEMonth", m_period.to.month->text()},
                      {u"LbEDate", m_period.to.day->text()},
                      {u"LbNyuka", m_ui->cmbXLSaki->currentText()},
                      {u"LbSyouhin", m_ui->lblXLSyouhin->text()},
                      {u"LbTantou", m_ui->cmbXLTantou->currentText()}},
            .optionalTitles = !m_ui->chkXLSum->isChecked()};
}

} // namespace suisui
