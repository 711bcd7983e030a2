// Stored movements in the grid: loading a period, and taking corrections into the buffer.
#include "movement/MovementPage.h"

#include "frame/support/Busy.h"
#include "frame/support/Questions.h"
#include "movement/EntryGrid.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Where.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowsWithoutAsking = 1000;
constexpr qsizetype shortestAskedCode = 6; ///< nobody ships a hundred thousand pieces unasked

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
    const int count = m_rows.Select(
        whereDated(m_table, m_period.from.stored().toStdString(), m_period.to.stored().toStdString())
        + m_side.orderBy);
    m_edit->searched(true);
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
        frame.setTabLoaded(m_side.tab, true); // else a tab change would search, and ask, once more
        m_entry->moveBar(0, 1);
        m_entry->cursorToQuantity();
    } else {
        m_edit->searched(false); // the old rows stay in view, the row set has the new ones
    }
    busy.end();
    grid()->setFocus();
}

/// Many rows are loaded only when the operator wants to wait for them; then with the wait window.
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
        if (!code && takeCell(column, row, index))
            m_services.frame.setDirty(m_side.side, true);
    } else {
        concurrentChange(false); // the box says what to do: search again
    }
}

/// Takes a cell into the row set; false when it says nothing new.
bool MovementPage::takeCell(int column, int row, int rowIndex)
{
    const EditedCell* const cell = m_entry->edited(column);
    if (cell == nullptr)
        return false;
    const bool number = cell->form == CellForm::Number;
    if (number && grid()->text(column, row).empty())
        grid()->SetText(column, row, std::string_view("0"));
    if (!m_edit->take(rowIndex, cell->column, cell->form, grid()->text(column, row)))
        return false;
    if (number)
        grid()->SetText(m_side.cells.total, row, m_edit->total(rowIndex));
    return true;
}

/// A reader too slow to be told from a person types its code into the quantity. When the operator says so,
/// the quantity stays as it was and the code waits in the code field for an Enter: nothing is lost, and
/// nothing is booked unseen.
bool MovementPage::wasCode(int row, int rowIndex)
{
    const QString typed = grid()->typedText();
    const std::string code = typed.toStdString();
    if (typed.size() < shortestAskedCode || !canBeCode(code)
        || m_table.master(m_services.db).CountRows(whereCode(code)) <= 0 || agreesToQuantity(typed, row))
        return false;
    grid()->SetText(m_side.cells.quantity, row, m_rows.get(rowIndex, m_table.columns.quantity));
    m_ui->txtXBarCode->setText(typed);
    m_ui->txtXBarCode->setFocus();
    m_ui->txtXBarCode->selectAll();
    return true;
}

bool MovementPage::agreesToQuantity(const QString& typed, int row)
{
    const Box box{
        u"数量の確認"_s,
        fillIn(
            u"入力された 「 {typed} 」 は\r\n登録されている {goods} の コード です。\r\n\r\n数量を 「 "
            u"{quantity} 」 に変更しますか？　　　\r\n\r\n　　はい　　： 数量を変更します\r\n　　いいえ　： "
            u"数量は変更せず、コードを入力欄に移します　　　\r\n　　　　　　　（Enter を押すと 登録します）",
            {{u"typed", typed},
             {u"goods", m_services.ini.MasterTerm(0)},
             {u"quantity", grid()->qtext(m_side.cells.quantity, row)}}),
        BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No};
    return m_services.msgBox.show(box) == BoxAnswer::Yes;
}

} // namespace suisui
