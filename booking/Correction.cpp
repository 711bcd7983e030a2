#include "booking/Correction.h"

#include <algorithm>

#include "booking/Components.h"
#include "booking/ZaikoPost.h"
#include "platform/core/Clock.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "store/Where.h"

namespace suisui {

namespace {

std::string storedForm(CellForm form, std::string_view text)
{
    switch (form) {
    case CellForm::Number:
        return movementNumber(text);
    case CellForm::Date:
        return storedDate(text);
    case CellForm::Time:
        return storedTime(text);
    case CellForm::Text:
        break;
    }
    return std::string(text);
}

} // namespace

Correction::Correction(Side side, const Books& books, EntryRows& view)
    : m_table(movementTable(side)), m_books(books), m_view(view), m_rows(m_table.rows(books.db))
{
}

int Correction::search(std::string_view from, std::string_view to)
{
    const auto column = [this](int index) {
        return std::string(m_table.table.columns[static_cast<std::size_t>(index)]);
    };
    const MovementColumns& columns = m_table.columns;
    const int count = m_rows.Select(whereDated(m_table, from, to) + " ORDER BY " + column(columns.date) + ", "
                                    + column(columns.time));
    searched(true);
    return count;
}

void Correction::searched(bool shown)
{
    m_takenBack.clear();
    m_outOfStep = shown ? 0 : m_view.count();
    m_editLost = false;
}

void Correction::bottomRowGone()
{
    m_outOfStep = std::max(m_outOfStep - 1, 0);
}

bool Correction::inStep(int row) const
{
    return row <= m_view.count() - m_outOfStep;
}

// ---- corrections

bool Correction::isCode(const QString& typed) const
{
    constexpr qsizetype shortestAskedCode = 6;
    const std::string code = typed.toStdString();
    return typed.size() >= shortestAskedCode && canBeCode(code)
           && m_table.master(m_books.db).CountRows(whereCode(code)) > 0;
}

bool Correction::take(int index, int column, CellForm form, std::string_view text)
{
    const std::string_view before = m_rows.get(index, column);
    if (form == CellForm::Number && text == before)
        return false;
    const std::string value = storedForm(form, text);
    if (form != CellForm::Number && value == before)
        return false;
    m_rows.set(index, column, value);
    const std::string_view state = m_rows.RowState(index);
    m_editLost |= state == "D" || state == "N";
    return true;
}

std::string Correction::total(int index) const
{
    return Format(rowTotal(m_table.columns, m_rows.packed(index)), maskA);
}

// ---- update

EditResult Correction::update()
{
    m_rowsWritten = 0;
    if (m_editLost) // writing the others would report an update that has left this one out
        return EditResult::ConcurrentChange;
    putBackPosted();
    const std::string stamp = stampOf(m_books.clock.now());
    for (int row = 1; inStep(row) && row <= m_view.count(); ++row) {
        if (m_rows.RowState(m_view.bufferIndex(row)) != "U")
            continue;
        if (const EditResult result = updateRow(row, stamp); result != EditResult::Done)
            return result;
    }
    m_books.db.Commit();
    if (m_books.db.LastStatus() != DbStatus::Good)
        return notWritten();
    m_takenBack.clear();
    return EditResult::Done;
}

/// Posts the difference that the row makes and writes it.
EditResult Correction::updateRow(int row, const std::string& stamp)
{
    const int index = m_view.bufferIndex(row);
    const Figures posted = m_view.posted(row);
    const Figures now = m_view.shown(row);
    if (!postUpdate(row, index, posted, now, stamp)) {
        m_books.db.Rollback();
        return EditResult::Refused;
    }
    if (!writeRow(index)) {
        const EditResult result = notWritten();
        m_editLost = m_rows.RowState(index) == "D";
        return result;
    }
    m_takenBack.emplace_back(row, posted);
    m_view.setPosted(row, now);
    ++m_rowsWritten;
    return EditResult::Done;
}

/// Tries a second time, as a lock may be brief. Only the second failure is shown.
bool Correction::writeRow(int index)
{
    m_books.db.ShowErrors(false);
    const DbStatus first = m_rows.UpdateRow(index);
    m_books.db.ShowErrors(true);
    return first == DbStatus::Good || m_rows.UpdateRow(index) == DbStatus::Good;
}

bool Correction::postUpdate(int row, int index, const Figures& posted, const Figures& now,
                            const std::string& stamp)
{
    const double delta = updateDelta(m_table.stockSign, posted, now);
    if (m_table.movesComponents) {
        const auto ofComponent = [delta](std::string_view perUnit) { return componentDelta(perUnit, delta); };
        if (!postComponents(m_books.db, m_books.msgBox, m_view.code(row), stamp, ofComponent))
            return false;
    }
    if (postGoods(index, delta, stamp))
        return true;
    restorePosted(row, index, posted);
    return false;
}

bool Correction::postGoods(int index, double delta, const std::string& stamp)
{
    const std::string code(m_rows.get(index, m_table.columns.code));
    std::string name(m_rows.get(index, m_table.columns.name));
    return ZaikoPost(m_books.db, m_books.msgBox, code, CStr(delta), name, stamp) == PostResult::Posted;
}

/// Puts a quantity that the stock cannot take back to what was posted, on the screen and in the row set.
void Correction::restorePosted(int row, int index, const Figures& posted)
{
    m_rows.set(index, m_table.columns.quantity, Format(posted.quantity, maskMovement));
    if (m_table.returnsMoveStock)
        m_rows.set(index, m_table.columns.returned[0], Format(posted.returned, maskMovement));
    m_view.putBack(row, posted, total(index));
}

/// After an update that was rolled back, the hidden cells of the earlier rows still have the new figures as
/// posted. Before anything is computed from them again they get what was really posted, or stock and rows
/// would diverge.
void Correction::putBackPosted()
{
    for (auto kept = m_takenBack.rbegin(); kept != m_takenBack.rend(); ++kept)
        m_view.setPosted(kept->first, kept->second);
    m_takenBack.clear();
}

/// A failure of the database has shown its cause by now. A row that was refused has not: another program has
/// changed it.
EditResult Correction::notWritten()
{
    m_books.db.Rollback();
    return m_books.db.LastStatus() == DbStatus::RowChanged ? EditResult::ConcurrentChange
                                                           : EditResult::Failed;
}

// ---- delete

EditResult Correction::erase(int row)
{
    if (!inStep(row))
        return EditResult::ConcurrentChange;
    putBackPosted();
    const std::string stamp = stampOf(m_books.clock.now());
    const int index = m_view.bufferIndex(row);
    if (!postDelete(index, deleteDelta(m_table.stockSign, m_view.posted(row)), stamp)) {
        m_books.db.Rollback();
        return EditResult::Refused;
    }
    m_rows.PrepareDelete(index);
    return commitWhen(m_books.db, m_rows.DeleteRow(index)) ? EditResult::Done : notWritten();
}

/// The goods item first, then its components: the reverse of booking.
bool Correction::postDelete(int index, double delta, const std::string& stamp)
{
    if (!postGoods(index, delta, stamp))
        return false;
    if (!m_table.movesComponents)
        return true;
    const std::string code(m_rows.get(index, m_table.columns.code));
    const auto ofComponent = [delta](std::string_view perUnit) { return componentDelta(perUnit, delta); };
    return postComponents(m_books.db, m_books.msgBox, code, stamp, ofComponent);
}

} // namespace suisui
