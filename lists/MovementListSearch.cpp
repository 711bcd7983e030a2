// Searching a list: reads the conditions, asks when there are many rows, and fills the grid with movements
// and subtotals or with sums.
#include "lists/MovementListPage.h"

#include <QComboBox>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "frame/support/Busy.h"
#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "frame/support/Questions.h"
#include "lists/ListHeadings.h"
#include "lists/ListSubtotals.h"
#include "platform/widgets/ReDrawOff.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppDB.h"
#include "ui_MovementListPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowsWithoutAsking = 1000;
constexpr int rowsWithoutWaitWindow = 500;

/// Code of what \a combo shows; none for all of them. Throws RunTimeError::SubscriptOutOfRange when it shows
/// something that has no code.
std::optional<std::string> chosen(const QComboBox& combo, const ChoiceList& choices)
{
    if (combo.currentText() == allChoices)
        return std::nullopt;
    return choiceAt(choices, combo.currentIndex()).code;
}

/// The partner or member of staff of a summed row, whose movements may have many: the one asked for, or a
/// dash.
std::string wordFor(const QComboBox& combo, std::string_view dash)
{
    return combo.currentText() == allChoices ? std::string(dash) : combo.currentText().toStdString();
}

} // namespace

void MovementListPage::cmdKensaku_Click()
{
    if (m_searching)
        return;
    const QScopedValueRollback<bool> searching(m_searching, true);
    Frame& frame = m_services.frame;
    Busy busy(frame);
    if (!PeriodCheck(m_period, frame, m_services.msgBox))
        return;
    listLoad();
    busy.end();
    if (grid()->MaxRows() == 0) {
        writePlainHeadings(m_side, m_services.ini, *grid());
        m_ui->txtXLBarCode->setFocus();
    } else {
        grid()->setFocus();
    }
}

ListFilter MovementListPage::filter() const
{
    return {.from = m_period.from.stored().toStdString(),
            .to = m_period.to.stored().toStdString(),
            .goodsCaption = m_ui->lblXLSyouhin->text(),
            .chosenCode = m_chosenCode,
            .partner = chosen(*m_ui->cmbXLSaki, m_partners),
            .staff = chosen(*m_ui->cmbXLTantou, m_staff)};
}

void MovementListPage::listLoad()
{
    AppDB& db = m_services.db;
    const ListView view = m_ui->chkXLSum->isChecked() ? ListView::Summed : ListView::Detail;
    const ListBuffer& buffer = view == ListView::Summed ? m_side.summed : m_side.detail;
    const ListFilter conditions = filter();
    const int count = buffer.select(db, whereText(m_side, conditions), buffer.order);
    if (count <= 0) {
        emptyGrid();
        return;
    }
    if (count > rowsWithoutAsking && !agreesToManyRows(m_services.frame, m_services.msgBox, count)) {
        buffer.clear(db);
        return;
    }
    const bool waits =
        count > rowsWithoutAsking || (view == ListView::Detail && count > rowsWithoutWaitWindow);
    if (waits)
        m_services.frame.showWait(QString::fromUtf16(buffer.waitTag), count);
    rememberSlip(conditions);
    const ReDrawOff noRedraw(*grid());
    if (view == ListView::Summed)
        sumFill(count);
    else
        detailFill(count);
    buffer.clear(db);
    m_bar->move(0, 1);
    grid()->SetActiveCell(m_side.cells.partner, 1); // first, so that the leading columns scroll into view
    grid()->SetActiveCell(m_side.cells.date, 1);
    writeSearchHeadings(m_side, m_services.ini, *grid(), view);
}

void MovementListPage::emptyGrid()
{
    grid()->setMaxRows(0);
    grid()->horizontalScrollBar()->setValue(0);
}

/// Each day ends with a subtotal, the list with the total.
void MovementListPage::detailFill(int count)
{
    vaSpread& sheet = *grid();
    Frame& frame = m_services.frame;
    AppDB& db = m_services.db;
    const bool waiting = frame.waitVisible();
    const ListCells& cells = m_side.cells;
    const MovementColumns& columns = movementTable(m_side.side).columns;
    const std::string label = groupLabel(m_side, m_services.ini, cells.date);
    sheet.setRowMaker([this](const PackedRow& movement, int index, std::span<std::string> texts) {
        makeMovementRow(m_side, movement, index, texts);
    });
    sheet.setMaxRows(0);
    sheet.setMaxRows(count);
    int row = 0;
    const auto sumRow = [&](SumRow kind, const ListFigures& sums) {
        sheet.setMaxRows(sheet.MaxRows() + 1);
        writeSumRow(sheet, cells, ++row, kind, kind == SumRow::Subtotal ? label : std::string(), sums);
    };
    Subtotals subtotals(
        m_side.detail.row(db, 1).text(columns.date)); // the first day, even when its row has gone
    for (int i = 1; i <= count; ++i) {
        if (!m_side.detail.gone(db, i)) {
            const PackedRow& movement = m_side.detail.row(db, i);
            const ListFigures figures = movementFigures(columns, movement);
            if (const auto closed = subtotals.add(movement.text(columns.date), figures))
                sumRow(SumRow::Subtotal, *closed);
            sheet.setRowSource(++row, movement, i);
            if (figures[static_cast<std::size_t>(ListFigure::Amount)] < 0)
                markNegative(sheet, cells.amount, row);
        }
        if (waiting)
            frame.setWaitProgress(i);
    }
    sumRow(SumRow::Subtotal, subtotals.close());
    sumRow(SumRow::Total, subtotals.total());
    sheet.setMaxRows(row);
}

void MovementListPage::sumFill(int count)
{
    vaSpread& sheet = *grid();
    Frame& frame = m_services.frame;
    const bool waiting = frame.waitVisible();
    const SummedWords words{.partner = wordFor(*m_ui->cmbXLSaki, "          －"),
                            .staff = wordFor(*m_ui->cmbXLTantou, "       －")};
    sheet.setRowMaker([this, words](const PackedRow& sum, int index, std::span<std::string> texts) {
        makeSummedRow(m_side, words, sum, index, texts);
    });
    sheet.setMaxRows(0);
    sheet.setMaxRows(count);
    for (int i = 1; i <= count; ++i) {
        const PackedRow& sum = m_side.summed.row(m_services.db, i);
        sheet.setRowSource(i, sum, i);
        if (showsNegativeAmount(m_side.sumColumns, sum))
            markNegative(sheet, m_side.cells.amount, i);
        if (waiting)
            frame.setWaitProgress(i);
    }
}

} // namespace suisui
