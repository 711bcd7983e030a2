// What the operator does at the grid: keys, clicks, editing, copying, coming and going.
#include "platform/widgets/vaSpread.h"

#include <algorithm>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/CellEditor.h"
#include "platform/widgets/EnterKey.h"
#include "platform/widgets/SpreadDelegate.h"
#include "platform/widgets/SpreadModel.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// A cell's text as one field of a tab-separated line.
QString asField(QString text)
{
    for (QChar& c : text)
        if (c == u'\t' || c == u'\r' || c == u'\n')
            c = u' ';
    return text;
}

} // namespace

void vaSpread::endEdit()
{
    const QPointer<QWidget> editor = m_delegate->openEditor();
    if (editor == nullptr || !isEditing())
        return; // a closed editor lives on until events have run
    commitData(editor);
    if (editor != nullptr) // a box that the Change brought up lets events run
        closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool vaSpread::isEditing() const
{
    return state() == QAbstractItemView::EditingState;
}

void vaSpread::setKeyPressHandler(KeyPressHandler handler)
{
    m_keyPress = std::move(handler);
}

bool vaSpread::swallowed(const QKeyEvent& event)
{
    if (&event == m_offered)
        return false; // it has opened the editor and comes by a second time
    spell(event);
    int key = keyAsciiOf(event);
    if (key == 0 || !m_keyPress)
        return false;
    m_keyPress(key);
    return key == 0;
}

void vaSpread::spell(const QKeyEvent& event)
{
    if (!isEditing()) {
        m_spelled.clear();
        m_corrected = false;
    }
    const int key = keyAsciiOf(event);
    const auto character = static_cast<char32_t>(key);
    if (key >= u' ')
        m_spelled += QString::fromUcs4(&character, 1);
    else if (key != KeyCode::enter && !event.text().isEmpty())
        m_corrected = true;
}

void vaSpread::commitText(const QModelIndex& index, const QString& typed)
{
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    if (!m_model->holds(col, row))
        return;
    const std::optional<QString> wanted = cellText(m_model->column(col).type, typed);
    if (!wanted)
        return;
    const std::string before(text(col, row));
    SetText(col, row, *wanted);
    if (text(col, row) == before)
        return;
    m_typedText = m_corrected || m_spelled.isEmpty() ? typed : m_spelled;
    m_spelled.clear();
    Q_EMIT Change(col, row);
    m_typedText.clear();
}

void vaSpread::toggleCheck(const QModelIndex& index)
{
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    if (!ReDraw() || !m_model->holds(col, row) || m_model->column(col).type != CellType::CheckBox)
        return;
    SetText(col, row, std::string_view(text(col, row) == "1" ? "0" : "1"));
    Q_EMIT Change(col, row);
}

void vaSpread::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    followInputMethod();
    if (m_quietCursor)
        return;
    const int oldCol = m_activeCol;
    const int oldRow = m_activeRow;
    m_activeCol = current.column() + 1;
    m_activeRow = current.row() + 1;
    cutCursor(); // while redraw is off the view may show rows that have gone
    Q_EMIT LeaveCell(oldCol, oldRow, current.isValid() ? m_activeCol : -1, m_activeRow);
}

/// The input method is on where free text is typed. Qt would have it on in every cell that can be edited.
void vaSpread::followInputMethod()
{
    const QModelIndex cell = currentIndex();
    setAttribute(Qt::WA_InputMethodEnabled,
                 cell.isValid() && m_model->column(cell.column() + 1).type == CellType::Text);
}

void vaSpread::focusInEvent(QFocusEvent* event)
{
    {
        // Qt puts a cursor that is nowhere into the first cell; that is not a move of the operator.
        const QScopedValueRollback quiet(m_quietCursor, true);
        QTableView::focusInEvent(event);
    }
    followInputMethod();
    if (m_activeRow == 0 && ReDraw() && currentIndex().isValid()) {
        m_activeCol = currentIndex().column() + 1;
        m_activeRow = currentIndex().row() + 1;
    }
}

bool vaSpread::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool back = key->key() == Qt::Key_Backtab
                          || (key->key() == Qt::Key_Tab && key->modifiers().testFlag(Qt::ShiftModifier));
        const bool plain = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
        if ((back || key->key() == Qt::Key_Tab) && plain && tabToCell(!back)) {
            key->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

/// Moves the cursor to the next or the previous cell that can be seen. False after the last and before the
/// first one: there Tab goes on to the next control.
bool vaSpread::tabToCell(bool forward)
{
    const QModelIndex from = currentIndex();
    if (!ReDraw() || !from.isValid())
        return false;
    const int step = forward ? 1 : -1;
    int row = from.row();
    int column = from.column();
    do {
        column += step;
        if (column < 0 || column >= MaxCols()) {
            row += step;
            column = forward ? 0 : MaxCols() - 1;
        }
        if (row < 0 || row >= MaxRows())
            return false;
    } while (isColumnHidden(column));
    setCurrentIndex(m_model->index(row, column));
    return true;
}

/// What \a editor holds is taken, and the cursor goes on as with Tab in the grid.
void vaSpread::tabOutOfEditor(bool forward)
{
    endEdit();
    if (!tabToCell(forward))
        focusNextPrevChild(forward);
}

bool vaSpread::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (trigger != AnyKeyPressed)
        m_spelled.clear(); // it opens by other means than by a character
    // The picture may show another row than the data now hold.
    return ReDraw() && QTableView::edit(index, trigger, event);
}

void vaSpread::keyboardSearch(const QString&)
{
    // A code typed at a locked cell must not send the cursor through the rows.
}

void vaSpread::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    if (m_scrollWhenShown && currentIndex().isValid())
        scrollTo(currentIndex());
    m_scrollWhenShown = false;
    blankWhileOff();
}

void vaSpread::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    blankWhileOff();
}

/// When the grid comes into view or changes its size while redraw is off, its old picture is gone, and what
/// is in its place on the screen is another control's. An empty grid is shown until redraw is on again.
void vaSpread::blankWhileOff()
{
    if (!ReDraw())
        setUpdatesEnabled(true);
}

void vaSpread::paintEvent(QPaintEvent* event)
{
    if (ReDraw())
        QTableView::paintEvent(event);
}

bool vaSpread::viewportEvent(QEvent* event)
{
    const QEvent::Type type = event->type();
    if (!ReDraw()
        && (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease
            || type == QEvent::MouseButtonDblClick))
        return true; // a click on the old picture would hit other rows than it shows
    return QTableView::viewportEvent(event);
}

void vaSpread::keyPressEvent(QKeyEvent* event)
{
    if (swallowed(*event)) {
        event->accept();
        return;
    }
    if (isEnter(*event)) {
        endEdit();
        event->accept();
    } else if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
    } else if (event->key() == Qt::Key_Space && currentIndex().isValid()
               && m_model->column(currentIndex().column() + 1).type == CellType::CheckBox) {
        toggleCheck(currentIndex());
        event->accept();
    } else {
        const QScopedValueRollback offered(m_offered, static_cast<const QKeyEvent*>(event));
        QTableView::keyPressEvent(event);
    }
}

/// The selected cells as lines of tab-separated texts, as spreadsheets take them.
void vaSpread::copySelection() const
{
    QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty() && currentIndex().isValid())
        selection.select(currentIndex(), currentIndex());
    if (!ReDraw() || selection.isEmpty())
        return;
    // Rows that were put in between have cut one block of cells into several.
    QItemSelectionRange range = selection.first();
    for (const QItemSelectionRange& part : selection)
        range = {
            m_model->index(std::min(range.top(), part.top()), std::min(range.left(), part.left())),
            m_model->index(std::max(range.bottom(), part.bottom()), std::max(range.right(), part.right()))};
    QStringList lines;
    for (int row = range.top(); row <= range.bottom(); ++row) {
        QStringList cells;
        for (int column = range.left(); column <= range.right(); ++column)
            if (!isColumnHidden(column))
                cells << asField(qtext(column + 1, row + 1));
        lines << cells.join(u'\t');
    }
    QGuiApplication::clipboard()->setText(lines.join(u"\r\n"_s));
}

void vaSpread::focusMoved(const QWidget* now)
{
    const bool here = now == this || isAncestorOf(now);
    if (here == m_hasFocus)
        return;
    m_hasFocus = here;
    if (here)
        Q_EMIT GotFocus();
    else
        Q_EMIT LostFocus();
}

} // namespace suisui
