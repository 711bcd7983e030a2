// Stored movements changed: writing the corrections of the grid, deleting a movement.
#include "movement/MovementPage.h"

#include "booking/Components.h"
#include "booking/ZaikoPost.h"
#include "platform/core/Clock.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

// ---- update

void MovementPage::cmdKousin_Click()
{
    grid()->endEdit();
    Frame& frame = m_services.frame;
    if (!frame.dirty(m_side.side))
        return;
    if (!frame.GuardActive()) {
        const BoxAnswer answer = m_services.msgBox.show(
            {u"更新の確認"_s,
             fillIn(u"「 {term} 」を更新します。　　　　\r\n\r\n　よろしいですか？", {{u"term", term()}}),
             BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No});
        if (answer != BoxAnswer::Yes)
            return;
    }
    if (m_editLost) { // writing the others would report an update that has left this one out
        concurrentChange(false);
        return;
    }
    putBackPosted();
    const std::string stamp = stampOf(m_services.clock.now());
    for (int row = 1; inStep(row) && row <= grid()->MaxRows(); ++row)
        if (m_rows.RowState(bufferIndex(row)) == "U" && !updateRow(row, stamp))
            return;
    m_services.db.Commit();
    if (m_services.db.LastStatus() != 0) {
        notWritten(false);
        return;
    }
    m_takenBack.clear();
    m_services.msgBox.show({u"更新の完了"_s,
                            fillIn(u"「 {term} 」を更新しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    frame.setDirty(m_side.side, false);
}

/// Posts the difference that the row makes and writes it. On false everything has been rolled back.
bool MovementPage::updateRow(int row, const std::string& stamp)
{
    const int index = bufferIndex(row);
    const Figures posted = postedFigures(row);
    const Figures now = shownFigures(row);
    if (!postUpdate(row, index, posted, now, stamp)) {
        m_services.db.Rollback();
        return false;
    }
    if (!writeRow(index)) {
        notWritten(false);
        m_editLost = m_rows.RowState(index) == "D";
        return false;
    }
    m_takenBack.emplace_back(row, posted);
    showPosted(row, now);
    markStale();
    return true;
}

/// Tries a second time, as a lock may be brief. Only the second failure is shown.
bool MovementPage::writeRow(int rowIndex)
{
    m_services.db.ShowErrors(false);
    const int first = m_rows.UpdateRow(rowIndex);
    m_services.db.ShowErrors(true);
    return first == 0 || m_rows.UpdateRow(rowIndex) == 0;
}

void MovementPage::showPosted(int row, const Figures& figures)
{
    const MovementCells& cells = m_side.cells;
    grid()->SetText(cells.postedQuantity, row, CStr(figures.quantity));
    if (cells.postedReturned != noCell)
        grid()->SetText(cells.postedReturned, row, CStr(figures.returned));
}

/// After an update that was rolled back the earlier rows still say that their new figures were posted. Before
/// anything is reckoned from them again they say what really was, or stock and rows would part.
void MovementPage::putBackPosted()
{
    for (auto kept = m_takenBack.rbegin(); kept != m_takenBack.rend(); ++kept)
        showPosted(kept->first, kept->second);
    m_takenBack.clear();
}

bool MovementPage::postUpdate(int row, int rowIndex, const Figures& posted, const Figures& now,
                              const std::string& stamp)
{
    const double delta = updateDelta(m_table.stockSign, posted, now);
    if (m_table.movesComponents) {
        const auto ofComponent = [delta](std::string_view perUnit) { return componentDelta(perUnit, delta); };
        if (!postComponents(m_services.db, m_services.msgBox, grid()->text(m_side.cells.code, row), stamp,
                            ofComponent))
            return false;
    }
    std::string name(m_rows.get(rowIndex, m_table.columns.name));
    const std::string code(m_rows.get(rowIndex, m_table.columns.code));
    if (ZaikoPost(m_services.db, m_services.msgBox, code, CStr(delta), name, stamp) == PostResult::Posted)
        return true;
    restorePosted(row, rowIndex, posted);
    return false;
}

/// A quantity that stock cannot take goes back to what was posted, on the screen and in the buffer alike.
void MovementPage::restorePosted(int row, int rowIndex, const Figures& posted)
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    grid()->SetText(cells.quantity, row, CStr(posted.quantity));
    m_rows.set(rowIndex, columns.quantity, Format(posted.quantity, maskMovement));
    if (cells.postedReturned != noCell) {
        grid()->SetText(cells.returned[0], row, CStr(posted.returned));
        m_rows.set(rowIndex, columns.returned[0], Format(posted.returned, maskMovement));
    }
    grid()->SetText(cells.total, row, Format(rowTotal(columns, m_rows.packed(rowIndex)), maskA));
    grid()->SetActiveCell(cells.quantity, row);
    grid()->setFocus();
}

// ---- delete

void MovementPage::cmdDelete_Click()
{
    grid()->endEdit();
    const int row = grid()->ActiveRow();
    if (m_rows.Count() == 0 || row < 1 || row > grid()->MaxRows())
        return;
    if (!agreesToDelete())
        return;
    if (!inStep(row) || !grid()->ReDraw()) { // the row that is seen is not the row that would go
        concurrentChange(true);
        return;
    }
    putBackPosted();
    const std::string stamp = stampOf(m_services.clock.now());
    const int index = bufferIndex(row);
    if (!postDelete(index, deleteDelta(m_table.stockSign, postedFigures(row)), stamp)) {
        m_services.db.Rollback();
        return;
    }
    m_rows.PrepareDelete(index);
    if (!commitWhen(m_rows.DeleteRow(index))) {
        notWritten(true);
        m_services.frame.setDirty(m_side.side, false);
        return;
    }
    takeOutOfGrid(row, index);
    m_services.msgBox.show({u"削除の完了"_s,
                            fillIn(u"「 {term} 」を削除しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    markStale();
}

bool MovementPage::agreesToDelete()
{
    return m_services.msgBox.show({u"削除の確認"_s,
                                   fillIn(QString::fromUtf16(m_side.deleteQuestion), {{u"term", term()}}),
                                   BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No})
           == BoxAnswer::Yes;
}

/// The goods item first, then its components: the reverse of booking.
bool MovementPage::postDelete(int rowIndex, double delta, const std::string& stamp)
{
    const std::string code(m_rows.get(rowIndex, m_table.columns.code));
    std::string name(m_rows.get(rowIndex, m_table.columns.name));
    if (ZaikoPost(m_services.db, m_services.msgBox, code, CStr(delta), name, stamp) != PostResult::Posted)
        return false;
    if (!m_table.movesComponents)
        return true;
    const auto ofComponent = [delta](std::string_view perUnit) { return componentDelta(perUnit, delta); };
    return postComponents(m_services.db, m_services.msgBox, code, stamp, ofComponent);
}

void MovementPage::takeOutOfGrid(int row, int rowIndex)
{
    vaSpread& sheet = *grid();
    sheet.setReDraw(false);
    sheet.DeleteRows(row);
    for (int r = 1; inStep(r) && r <= sheet.MaxRows(); ++r) {
        const int index = bufferIndex(r);
        if (index <= rowIndex)
            continue;
        if (sheet.pendingNumber(r) != 0)
            sheet.renumberPending(r, index - 1);
        else
            sheet.SetText(m_side.cells.index, r, std::to_string(index - 1));
    }
    const int next = std::min(row, sheet.MaxRows());
    if (next > 0)
        sheet.SetActiveCell(m_side.cells.quantity, next);
    m_bar->move(0, next);
    sheet.setReDraw(true);
}

/// Ends a correction or a delete that could not be written. A failure of the database has shown its cause by
/// now; a row that was refused has not, and that is another program's change.
void MovementPage::notWritten(bool deleting)
{
    m_services.db.Rollback();
    if (m_services.db.LastErrNo().empty())
        concurrentChange(deleting);
    else
        m_ui->cmdXKensaku->setFocus();
}

void MovementPage::concurrentChange(bool deleting)
{
    QString text = fillIn(
        u"「 {term} 」 の更新ができませんでした。\r\n\r\n他の処理で "
        u"変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。",
        {{u"term", term()}});
    if (deleting)
        text.replace(u" 」 の更新ができませんでした。"_s, u" 」 の削除ができませんでした。"_s);
    m_services.msgBox.show({u"データベースエラー"_s, text, BoxIcon::Stop});
    m_ui->cmdXKensaku->setFocus();
}

} // namespace suisui
