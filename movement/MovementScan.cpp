// Booking a code: from the Enter that ends it to the committed row on top of the grid.
#include "movement/MovementPage.h"

#include <QComboBox>

#include "booking/Booking.h"
#include "frame/support/Busy.h"
#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "movement/EntryGrid.h"
#include "movement/MovementBoxes.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/ReDrawOff.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_MovementPage.h"

namespace suisui {

void MovementPage::barCode_KeyPress(int& keyAscii)
{
    Busy busy(m_services.frame);
    CodeKeyCheck(keyAscii);
    limitLength(*m_ui->txtXBarCode, goodsCodeLength, true, keyAscii);
    const QString text = m_ui->txtXBarCode->text();
    if (keyAscii != KeyCode::enter || text.isEmpty() || book(text))
        return;
    busy.end();
    m_ui->txtXBarCode->setFocus();
}

/// False when there are no goods of that code.
bool MovementPage::book(const QString& code)
{
    grid()->endEdit(); // a scan by the serial reader may find the operator in a cell
    Booking booking(m_side.side, books());
    if (!booking.lookUp(code.toStdString())) {
        m_services.msgBox.show(unregisteredBox(m_services.ini.MasterTerm(0), code));
        return false;
    }
    if (!booking.post())
        return true;
    m_edit->beforeNewRow();
    const int barRow = grid()->ActiveRow();
    ReDrawOff noRedraw(*grid(), ReDrawOff::ThenOn); // a booking that failed has left it off
    putOnTop(booking);
    if (rowAdd(booking)) {
        m_entry->moveBar(barRow > 0 ? barRow + 1 : 0, 1); // the new row has moved the bar's row down
        m_entry->cursorToQuantity();
        noRedraw.end();
    } else {
        notStored();
        noRedraw.stay();
    }
    booking.waitForNextSecond();
    m_services.frame.setFormEnabled(true);
    grid()->setFocus();
    return true;
}

void MovementPage::putOnTop(const Booking& booking)
{
    MovementTexts row = booking.row();
    row.partnerName = m_ui->cmbXSaki->currentText().toStdString();
    row.staffName = m_services.frame.tantouName().toStdString();
    m_entry->insertTop(row, booking.total(), m_rows.Count() + 1);
}

/// InpRowAdd, OutRowAdd: stores what the cells of row 1 hold and commits the booking. Reading row 1 back is
/// meant: what the operator sees is what is stored.
bool MovementPage::rowAdd(Booking& booking)
{
    MovementTexts row = m_entry->top();
    row.partnerCode = choiceAt(m_partners, m_ui->cmbXSaki->currentIndex()).code;
    row.staffCode = m_services.frame.tantouCode();
    if (!booking.store(row))
        return false;
    markStale();
    return true;
}

/// The row that was not stored stays on top until the next search. The bottom row goes instead, so that the
/// number of rows is what it was.
void MovementPage::notStored()
{
    m_services.msgBox.show(notStoredBox(m_side));
    grid()->setMaxRows(grid()->MaxRows() - 1);
    m_edit->bottomRowGone();
}

} // namespace suisui
