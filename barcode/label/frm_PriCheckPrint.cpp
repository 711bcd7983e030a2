// The OK button of the label dialog: refuses what is wrong, then prints.
#include "barcode/label/LabelChecks.h"
#include "barcode/label/LabelPrint.h"
#include "barcode/label/LabelSettings.h"
#include "barcode/label/frm_PriCheck.h"
#include "platform/widgets/BarPrt.h"
#include "platform/widgets/Hourglass.h"
#include "platform/widgets/ReDrawOff.h"
#include "platform/core/MsgBox.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

/// Shows the box of \a refusal, puts the focus on its field and corrects the rows.
void frm_PriCheck::refuse(const LabelRefusal& refusal)
{
    m_around.msgBox.show({refusal.title, refusal.text, BoxIcon::Stop});
    const auto focus = [&] {
        if (refusal.field)
            controlOf(*refusal.field)->setFocus();
    };
    const bool focusFirst = !refusal.rows || refusal.rows->afterFocus;
    if (focusFirst)
        focus();
    if (refusal.rows) {
        take(LabelField::firstRow, refusal.rows->first);
        take(LabelField::lastRow, refusal.rows->last);
    }
    if (!focusFirst)
        focus();
}

void frm_PriCheck::CmdOK_Click()
{
    if (m_printing)
        return;
    if (const auto refusal = refusalOf(m_setup))
        return refuse(*refusal);
    m_printing = true;
    m_gate.setEnabled(false);
    m_scan->stop();
    m_around.barPrt.setOrientation(PaperOrientation::Portrait);
    const bool goOn = m_around.barPrt.choosePrinter(this) == PrinterChoice::GoOn;
    if (goOn) { // no hourglass before: the operator was choosing the printer
        const PointerShape working(hourglass());
        print();
    }
    m_gate.setEnabled(true);
    m_printing = false;
    if (goOn) {
        m_printed = true;
        accept();
        return;
    }
    m_scan->start();
}

void frm_PriCheck::print()
{
    LabelJob wanted = m_setup.job();
    ReDrawOff noRedraw(*m_source.grid, ReDrawOff::ThenOn); // printing clears the marks row by row
    if (m_setup.ticked(LabelField::rowRange))
        for (std::int64_t row = wanted.startRow; row <= wanted.endRow; ++row)
            m_rows.setMark(row, true);
    m_around.barPrt.startDocument();
    wanted.pages = m_setup.pages();
    take(LabelField::firstPage, QString::number(wanted.pages.first));
    take(LabelField::lastPage, QString::number(wanted.pages.last));
    LabelPrintOut(wanted, m_rows, m_around.ini, m_around.barPrt);
    m_around.barPrt.endDocument();
    noRedraw.end();
    storeLabelSettings(m_setup, m_around.ini, m_source.mode);
}

} // namespace suisui
