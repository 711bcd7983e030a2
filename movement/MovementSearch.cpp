// Stored movements in the grid: loading a period, and taking corrections into the row set.
#include "movement/MovementPage.h"

#include "frame/support/Busy.h"
#include "frame/support/Questions.h"
#include "movement/EntryGrid.h"
#include "movement/MovementBoxes.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_MovementPage.h"

namespace suisui {

namespace {

constexpr int rowsWithoutAsking = 1000;

} // namespace

// ---- search

void MovementPage::cmdKensaku_Click()
{
    grid()->endEdit(); // a button pressed by the reader takes no focus from the cell
    Frame& frame = m_services.frame;
    if (frame.EditGuard(frame.currentTab()) == BoxAnswer::Cancel) {
        frame.BusyOff(); // ends as any search does
        grid()->setFocus();
        return;
    }
    Busy busy(frame);
    if (!PeriodCheck(m_period, frame, m_services.msgBox))
        return;
    const int count =
        m_edit->search(m_period.from.stored().toStdString(), m_period.to.stored().toStdString());
    if (count <= 0) {
        grid()->setMaxRows(0);
        grid()->setReDraw(true);
        frame.setTabLoaded(m_side.tab, count == 0);
        busy.end();
        m_period.from.year->setFocus();
        return;
    }
    if (agreesToShow(count)) {
        gridLoad();
        frame.setTabLoaded(m_side.tab, true); // or a tab change would search, and ask, again
        m_entry->moveBar(0, 1);
        m_entry->cursorToQuantity();
    } else {
        m_edit->searched(false); // the old rows stay in view, the row set has the new ones
    }
    busy.end();
    grid()->setFocus();
}

/// Asks before many rows are loaded, and opens the wait window for them.
bool MovementPage::agreesToShow(int count)
{
    if (count <= rowsWithoutAsking)
        return true;
    if (!agreesToManyRows(m_services.frame, m_services.msgBox, count))
        return false;
    m_services.frame.showWait(QString::fromUtf16(m_side.waitTag), count);
    return true;
}

void MovementPage::gridLoad()
{
    Frame& frame = m_services.frame;
    m_entry->load(m_rows, [&frame, waiting = frame.waitVisible()](int shown) {
        if (waiting)
            frame.setWaitProgress(shown);
    });
}

// ---- corrections

void MovementPage::cellChange(int column, int row)
{
    const Busy busy(m_services.frame);
    if (m_edit->inStep(row)) {
        const int index = m_entry->bufferIndex(row);
        const bool code = column == m_side.cells.quantity && wasCode(row, index);
        if (!code && m_entry->take(column, row, *m_edit))
            m_services.frame.setDirty(m_side.side, true);
    } else {
        concurrentChange(false); // the box says what to do: search again
    }
}

/// A reader that types as slowly as a person puts its code into the quantity. When the operator confirms
/// that, the quantity stays as it was and the code waits in the code field for an Enter: nothing is lost, and
/// nothing is booked unseen.
bool MovementPage::wasCode(int row, int rowIndex)
{
    const QString typed = grid()->typedText();
    if (!m_edit->isCode(typed)
        || agrees(
            quantityQuestion(typed, m_services.ini.MasterTerm(0), grid()->qtext(m_side.cells.quantity, row))))
        return false;
    grid()->SetText(m_side.cells.quantity, row, m_rows.get(rowIndex, m_table.columns.quantity));
    m_ui->txtXBarCode->setText(typed);
    m_ui->txtXBarCode->setFocus();
    m_ui->txtXBarCode->selectAll();
    return true;
}

} // namespace suisui
