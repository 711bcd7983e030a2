// Stored movements in the grid: loading a period, and taking corrections into the buffer.
#include "movement/MovementPage.h"

#include "frame/support/Questions.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
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
        m_takenBack.clear();
        m_outOfStep = 0;
        m_editLost = false;
        if (count <= 0) {
            grid()->setMaxRows(0);
            grid()->setReDraw(true);
            frame.setTabLoaded(m_side.tab, count == 0);
            frame.BusyOff();
            m_period.from.year->setFocus();
            return;
        }
        if (agreesToShow(count)) {
            gridLoad();
            frame.setTabLoaded(m_side.tab, true); // else a tab change would search, and ask, once more
            m_bar->move(0, 1);
            cursorToQuantity();
        } else {
            m_outOfStep = grid()->MaxRows(); // the old rows stay in view, the buffer has the new ones
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
    if (!agreesToManyRows(m_services.frame, m_services.msgBox, count))
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
    if (inStep(row)) {
        const int index = bufferIndex(row);
        const bool code = column == m_side.cells.quantity && wasCode(row, index);
        if (!code && (changeNumber(column, row, index) || changeText(column, row, index))) {
            m_services.frame.setDirty(m_side.side, true);
            const std::string_view state = m_rows.RowState(index);
            m_editLost |= state == "D" || state == "N";
        }
    } else {
        concurrentChange(false); // the box says what to do: search again
    }
    m_services.frame.BusyOff();
}

bool MovementPage::inStep(int row) const
{
    return row <= grid()->MaxRows() - m_outOfStep;
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

} // namespace suisui
