// Correcting and deleting stored movements, as the operator sees it: the question before, and the box after.
#include "movement/MovementPage.h"

#include "movement/EntryGrid.h"
#include "movement/MovementBoxes.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_MovementPage.h"

namespace suisui {

void MovementPage::cmdKousin_Click()
{
    grid()->endEdit();
    Frame& frame = m_services.frame;
    if (!frame.dirty(m_side.side) || (!frame.GuardActive() && !agrees(updateQuestion(term()))))
        return;
    const EditResult result = m_edit->update();
    if (m_edit->rowsWritten() > 0)
        markStale();
    if (result != EditResult::Done) {
        notWritten(result, false);
        return;
    }
    m_services.msgBox.show(updatedBox(term()));
    frame.setDirty(m_side.side, false);
}

void MovementPage::cmdDelete_Click()
{
    grid()->endEdit();
    const int row = grid()->ActiveRow();
    if (m_rows.Count() == 0 || row < 1 || row > grid()->MaxRows() || !agrees(deleteQuestion(m_side, term())))
        return;
    if (!m_edit->inStep(row) || !grid()->ReDraw()) { // the visible row is not the one that would be deleted
        concurrentChange(true);
        return;
    }
    const int index = m_entry->bufferIndex(row);
    const EditResult result = m_edit->erase(row);
    if (result != EditResult::Done) {
        notWritten(result, true);
        return;
    }
    m_entry->takeOut(row, index, *m_edit);
    m_services.msgBox.show(deletedBox(term()));
    markStale();
}

bool MovementPage::agrees(const Box& question)
{
    return m_services.msgBox.show(question) == BoxAnswer::Yes;
}

/// Ends a correction or a delete that was rolled back.
void MovementPage::notWritten(EditResult result, bool deleting)
{
    if (result == EditResult::Refused)
        return; // its box was shown, and the cursor is where the figure is
    if (result == EditResult::ConcurrentChange)
        concurrentChange(deleting);
    else
        m_ui->cmdXKensaku->setFocus();
    if (deleting)
        m_services.frame.setDirty(m_side.side, false);
}

void MovementPage::concurrentChange(bool deleting)
{
    m_services.msgBox.show(concurrentChangeBox(term(), deleting));
    m_ui->cmdXKensaku->setFocus();
}

} // namespace suisui
