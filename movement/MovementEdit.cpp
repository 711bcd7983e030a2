// Correcting and deleting stored movements, as the operator sees it: the question before, and the box after.
#include "movement/MovementPage.h"

#include "movement/EntryGrid.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr auto updateQuestion = u"「 {term} 」を更新します。　　　　\r\n\r\n　よろしいですか？";

} // namespace

void MovementPage::cmdKousin_Click()
{
    grid()->endEdit();
    Frame& frame = m_services.frame;
    if (!frame.dirty(m_side.side) || (!frame.GuardActive() && !agrees(u"更新の確認"_s, updateQuestion)))
        return;
    const EditResult result = m_edit->update();
    if (m_edit->rowsWritten() > 0)
        markStale();
    if (result != EditResult::Done) {
        notWritten(result, false);
        return;
    }
    m_services.msgBox.show({u"更新の完了"_s,
                            fillIn(u"「 {term} 」を更新しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    frame.setDirty(m_side.side, false);
}

void MovementPage::cmdDelete_Click()
{
    grid()->endEdit();
    const int row = grid()->ActiveRow();
    if (m_rows.Count() == 0 || row < 1 || row > grid()->MaxRows()
        || !agrees(u"削除の確認"_s, m_side.deleteQuestion))
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
    m_services.msgBox.show({u"削除の完了"_s,
                            fillIn(u"「 {term} 」を削除しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    markStale();
}

bool MovementPage::agrees(const QString& title, const char16_t* question)
{
    return m_services.msgBox.show({title, fillIn(QString::fromUtf16(question), {{u"term", term()}}),
                                   BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No})
           == BoxAnswer::Yes;
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
