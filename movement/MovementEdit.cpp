// Stored movements in the grid: loading a period, taking corrections into the buffer, writing them, deleting.
#include "movement/MovementPage.h"

#include <vector>

#include "movement/Components.h"
#include "movement/Deltas.h"
#include "movement/ZaikoPost.h"
#include "platform/core/Clock.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowsWithoutAsking = 1000;

} // namespace

// ---- search

void MovementPage::cmdKensaku_Click()
{
    grid()->endEdit(); // a button pressed by the reader takes no focus from the cell
    Frame& frame = m_services.frame;
    if (frame.EditGuard(frame.currentTab()) != BoxAnswer::Cancel) {
        frame.BusyOn();
        if (!PeriodCheck(m_period, frame, m_services.msgBox)) {
            frame.BusyOff();
            return;
        }
        std::string where(m_side.whereFrom);
        where += m_period.from.stored().toStdString();
        where += m_side.whereTo;
        where += m_period.to.stored().toStdString();
        where += m_side.orderBy;
        const int count = m_rows.Select(where);
        if (count <= 0) {
            grid()->setMaxRows(0);
            grid()->setReDraw(true);
            frame.BusyOff();
            m_period.from.year->setFocus();
            return;
        }
        if (agreesToShow(count)) {
            gridLoad();
            m_bar->move(0, 1);
            cursorToQuantity();
        }
    }
    frame.BusyOff();
    grid()->setFocus();
}

/// Many rows are loaded only when the operator wants to wait for them; then with the wait window.
bool MovementPage::agreesToShow(int count)
{
    if (count <= rowsWithoutAsking)
        return true;
    const BoxAnswer answer = m_services.msgBox.show(
        {u"表示の確認"_s,
         fillIn(u"検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n\r\n　　　（検"
                u"索結果： {count} 件）\r\n\r\n表示を行っても、よろしいですか？",
                {{u"count", QString::number(count)}}),
         BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::Yes});
    if (answer != BoxAnswer::Yes)
        return false;
    m_services.frame.showWait(QString::fromUtf16(m_side.waitTag), count);
    return true;
}

void MovementPage::gridLoad()
{
    vaSpread& sheet = *grid();
    Frame& frame = m_services.frame;
    const bool waiting = frame.waitVisible();
    sheet.setReDraw(false);
    const int count = m_rows.Count();
    sheet.setMaxRows(0); // rows of the last search keep no colours
    sheet.setMaxRows(count);
    int shown = 0;
    for (int i = count; i >= 1; --i) {
        if (m_rows.RowState(i) == "D")
            continue;
        sheet.setRowSource(++shown, m_rows.packed(i), i);
        if (waiting)
            frame.setWaitProgress(shown);
    }
    sheet.setMaxRows(shown);
    sheet.setReDraw(true);
}

/// The cells of a stored row. The label mark is not stored and stays empty.
void MovementPage::makeRow(const PackedRow& stored, int index, std::span<std::string> texts) const
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    const auto put = [&texts](int cell, std::string_view text) {
        if (cell != noCell)
            texts[static_cast<std::size_t>(cell - 1)] = text;
    };
    put(cells.code, stored.text(columns.code));
    put(cells.name, stored.text(columns.name));
    put(cells.price, stored.text(columns.price));
    put(cells.quantity, stored.text(columns.quantity));
    put(cells.discount, stored.text(columns.discount));
    put(cells.total, Format(rowTotal(columns, stored), maskA));
    put(cells.partner, stored.text(columns.partnerName));
    put(cells.staff, stored.text(columns.staffName));
    put(cells.unit, stored.text(columns.unit));
    for (std::size_t r = 0; r < cells.returned.size(); ++r)
        put(cells.returned[r], stored.text(columns.returned[r]));
    put(cells.date, screenDate(stored.text(columns.date)));
    put(cells.time, screenTime(stored.text(columns.time)));
    put(cells.remark, stored.text(columns.remark));
    put(cells.postedReturned, stored.text(columns.returned[0]));
    put(cells.postedQuantity, stored.text(columns.quantity));
    put(cells.index, std::to_string(index));
}

// ---- corrections

void MovementPage::cellChange(int column, int row)
{
    m_services.frame.BusyOn();
    const int index = bufferIndex(row);
    if (changeNumber(column, row, index) || changeText(column, row, index))
        m_services.frame.setDirty(m_side.side, true);
    m_services.frame.BusyOff();
}

bool MovementPage::changeNumber(int column, int row, int rowIndex)
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    const struct
    {
        int cell;
        int stored;
    } numbers[] = {{cells.price, columns.price},
                   {cells.quantity, columns.quantity},
                   {cells.discount, columns.discount},
                   {cells.returned[0], columns.returned[0]},
                   {cells.returned[1], columns.returned[1]}};
    for (const auto& number : numbers) {
        if (number.cell != column || number.cell == noCell)
            continue;
        if (grid()->text(column, row).empty())
            grid()->SetText(column, row, std::string_view("0"));
        const std::string_view shown = grid()->text(column, row);
        if (shown == m_rows.get(rowIndex, number.stored))
            return false;
        m_rows.set(rowIndex, number.stored, movementNumber(shown));
        grid()->SetText(cells.total, row, Format(rowTotal(columns, m_rows.packed(rowIndex)), maskA));
        return true;
    }
    return false;
}

bool MovementPage::changeText(int column, int row, int rowIndex)
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    const auto asItStands = [](std::string_view text) { return std::string(text); };
    const struct
    {
        int cell;
        int stored;
        std::string (*form)(std::string_view);
    } texts[] = {{cells.name, columns.name, asItStands},
                 {cells.unit, columns.unit, asItStands},
                 {cells.date, columns.date, storedDate},
                 {cells.time, columns.time, storedTime},
                 {cells.remark, columns.remark, asItStands}};
    for (const auto& text : texts) {
        if (text.cell != column)
            continue;
        const std::string value = text.form(grid()->text(column, row));
        if (value == m_rows.get(rowIndex, text.stored))
            return false;
        m_rows.set(rowIndex, text.stored, value);
        return true;
    }
    return false;
}

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
    const std::string stamp = stampOf(m_services.clock.now());
    for (int row = 1; row <= grid()->MaxRows(); ++row)
        if (m_rows.RowState(bufferIndex(row)) == "U" && !updateRow(row, stamp))
            return;
    m_services.db.Commit();
    if (m_services.db.LastStatus() != 0) {
        m_services.db.Rollback();
        concurrentChange(false);
        return;
    }
    m_services.msgBox.show({u"更新の完了"_s,
                            fillIn(u"「 {term} 」を更新しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    frame.setDirty(m_side.side, false);
}

/// Posts the difference that the row makes and writes it. On false everything has been rolled back.
bool MovementPage::updateRow(int row, const std::string& stamp)
{
    const MovementCells& cells = m_side.cells;
    const int index = bufferIndex(row);
    const Figures posted = postedFigures(row);
    const Figures now = shownFigures(row);
    if (!postUpdate(row, index, posted, now, stamp)) {
        m_services.db.Rollback();
        return false;
    }
    if (m_rows.UpdateRow(index) != 0
        && m_rows.UpdateRow(index) != 0) { // a second try, as a lock may be brief
        m_services.db.Rollback();
        concurrentChange(false);
        return false;
    }
    grid()->SetText(cells.postedQuantity, row, CStr(now.quantity));
    if (cells.postedReturned != noCell)
        grid()->SetText(cells.postedReturned, row, CStr(now.returned));
    markStale();
    return true;
}

bool MovementPage::postUpdate(int row, int rowIndex, const Figures& posted, const Figures& now,
                              const std::string& stamp)
{
    const double delta = updateDelta(m_table.stockSign, posted, now);
    if (m_table.movesComponents) {
        const auto ofComponent = [delta](std::string_view perUnit) { return componentDelta(perUnit, delta); };
        if (!postComponents(m_services, grid()->text(m_side.cells.code, row), stamp, ofComponent))
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
    if (m_rows.Count() == 0 || row < 1)
        return;
    const BoxAnswer answer = m_services.msgBox.show(
        {u"削除の確認"_s, fillIn(QString::fromUtf16(m_side.deleteQuestion), {{u"term", term()}}),
         BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No});
    if (answer != BoxAnswer::Yes)
        return;
    const std::string stamp = stampOf(m_services.clock.now());
    const int index = bufferIndex(row);
    AppDB& db = m_services.db;
    if (!postDelete(index, deleteDelta(m_table.stockSign, postedFigures(row)), stamp)) {
        db.Rollback();
        return;
    }
    m_rows.PrepareDelete(index);
    int status = m_rows.DeleteRow(index);
    if (status == 0) {
        db.Commit();
        status = db.LastStatus();
    }
    if (status != 0) {
        db.Rollback();
        concurrentChange(true);
        m_services.frame.setDirty(m_side.side, false);
        return;
    }
    takeOutOfGrid(row, index);
    m_services.msgBox.show({u"削除の完了"_s,
                            fillIn(u"「 {term} 」を削除しました。　　　　", {{u"term", term()}}),
                            BoxIcon::Information});
    markStale();
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
    return postComponents(m_services, code, stamp, ofComponent);
}

void MovementPage::takeOutOfGrid(int row, int rowIndex)
{
    vaSpread& sheet = *grid();
    sheet.setReDraw(false);
    sheet.DeleteRows(row);
    for (int r = 1; r <= sheet.MaxRows(); ++r) {
        const int index = bufferIndex(r);
        if (index > rowIndex)
            sheet.SetText(m_side.cells.index, r, std::to_string(index - 1));
    }
    const int next = std::min(row, sheet.MaxRows());
    if (next > 0)
        sheet.SetActiveCell(m_side.cells.quantity, next);
    m_bar->move(0, next);
    sheet.setReDraw(true);
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
