#include "platform/widgets/vaSpread.h"

#include <algorithm>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include "platform/widgets/CellEditor.h"
#include "platform/widgets/EnterKey.h"
#include "platform/widgets/SpreadDelegate.h"
#include "platform/widgets/SpreadModel.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowHeight = 24;

/// Character code of the keys that a KeyPress handler is told of, 0 for the others.
int keyAscii(const QKeyEvent& event)
{
    if (isEnter(event))
        return 13;
    if (event.key() == Qt::Key_Backspace)
        return 8;
    const QString text = event.text();
    return text.size() == 1 && text[0].isPrint() ? text[0].unicode() : 0;
}

QHeaderView* still(QHeaderView* header)
{
    header->hide();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setDefaultSectionSize(rowHeight);
    header->setMinimumSectionSize(rowHeight);
    return header;
}

} // namespace

vaSpread::vaSpread(QWidget* parent)
    : QTableView(parent), m_model(new SpreadModel(this)), m_delegate(new SpreadDelegate(this))
{
    setModel(m_model);
    setItemDelegate(m_delegate);
    still(verticalHeader());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed
                    | QAbstractItemView::DoubleClicked);
    setTabKeyNavigation(false); // Tab leaves the grid; the arrows move in it
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { Q_EMIT HeadingClick(section + 1); });
    connect(this, &QAbstractItemView::clicked, this, &vaSpread::toggleCheck);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusMoved(now); });
}

vaSpread::~vaSpread()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void vaSpread::setColumns(std::span<const SpreadColumn> columns)
{
    m_model->setColumns(columns);
    m_activeCol = m_activeRow = 0;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        setColumnWidth(i, columns[static_cast<std::size_t>(i)].width);
        setColumnHidden(i, columns[static_cast<std::size_t>(i)].hidden);
    }
}

int vaSpread::MaxCols() const
{
    return m_model->cols();
}
int vaSpread::MaxRows() const
{
    return m_model->rows();
}

void vaSpread::setMaxRows(int rows)
{
    m_model->setRows(rows);
    m_activeRow = std::min(m_activeRow, m_model->rows());
}

std::string_view vaSpread::text(int col, int row) const
{
    return m_model->text(col, row);
}
QString vaSpread::qtext(int col, int row) const
{
    return QString::fromUtf8(text(col, row));
}
void vaSpread::SetText(int col, int row, std::string_view text)
{
    m_model->setText(col, row, text);
}
void vaSpread::SetText(int col, int row, const QString& text)
{
    m_model->setText(col, row, text.toStdString());
}
void vaSpread::setRowTexts(int row, std::span<const std::string_view> texts)
{
    m_model->setRowTexts(row, texts);
}

void vaSpread::setRowMaker(RowMaker maker)
{
    m_model->setRowMaker(std::move(maker));
}
void vaSpread::setRowSource(int row, const PackedRow& source, int number)
{
    m_model->setRowSource(row, source, number);
}

void vaSpread::InsertRows(int row, int count)
{
    if (row < 1 || row > MaxRows() + 1 || count < 1)
        return;
    m_quietCursor = true;
    m_model->insert(row, count);
    m_quietCursor = false;
    if (m_activeRow >= row)
        m_activeRow += count;
}

void vaSpread::DeleteRows(int row, int count)
{
    m_quietCursor = true;
    m_model->remove(row, count);
    m_quietCursor = false;
    if (m_activeRow >= row)
        m_activeRow = std::clamp(m_activeRow - count, std::min(row, MaxRows()), MaxRows());
    showCursor();
}

void vaSpread::InsertRowsAt(std::span<const int> rows)
{
    const bool shown = ReDraw();
    setReDraw(false);
    m_activeRow += static_cast<int>(
        std::count_if(rows.begin(), rows.end(), [this](int row) { return row <= m_activeRow; }));
    m_model->insertAt(rows);
    setReDraw(shown);
}

void vaSpread::DeleteRowsWhere(const std::function<bool(int row)>& gone)
{
    const bool shown = ReDraw();
    setReDraw(false);
    int above = 0;
    bool cursorGoes = false;
    m_model->removeWhere([&](int row) {
        const bool leaves = gone(row);
        above += leaves && row < m_activeRow ? 1 : 0;
        cursorGoes |= leaves && row == m_activeRow;
        return leaves;
    });
    m_activeRow = cursorGoes ? 0 : m_activeRow - above;
    setReDraw(shown);
}

void vaSpread::setReDraw(bool on)
{
    if (on == ReDraw())
        return;
    if (!on) {
        setUpdatesEnabled(false);
        m_model->setRedraw(false);
        return;
    }
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    m_quietCursor = true;
    m_model->setRedraw(true);
    m_quietCursor = false;
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
    showCursor();
    setUpdatesEnabled(true);
}

bool vaSpread::ReDraw() const
{
    return m_model->redraw();
}

void vaSpread::setRowBackColor(int row, const QColor& color)
{
    m_model->setBackColor(row, color);
}
QColor vaSpread::rowBackColor(int row) const
{
    return m_model->backColor(row);
}
void vaSpread::setCellForeColor(int col, int row, const QColor& color)
{
    m_model->setForeColor(col, row, color);
}
void vaSpread::setCellBold(int col, int row, bool bold)
{
    m_model->setBold(col, row, bold);
}
QColor vaSpread::cellForeColor(int col, int row) const
{
    return m_model->foreColor(col, row);
}
bool vaSpread::cellBold(int col, int row) const
{
    return m_model->bold(col, row);
}

int vaSpread::ActiveCol() const
{
    return m_activeCol;
}
int vaSpread::ActiveRow() const
{
    return m_activeRow;
}

void vaSpread::SetActiveCell(int col, int row)
{
    if (!m_model->holds(col, row)) {
        m_activeCol = m_activeRow = 0;
        return;
    }
    m_activeCol = col;
    m_activeRow = row;
    showCursor();
}

/// Puts the view's cursor where the program has it. While redraw is off the view keeps its old picture.
void vaSpread::showCursor()
{
    if (!ReDraw())
        return;
    const QModelIndex index = m_model->holds(m_activeCol, m_activeRow)
                                  ? m_model->index(m_activeRow - 1, m_activeCol - 1)
                                  : QModelIndex();
    if (index == currentIndex())
        return;
    m_quietCursor = true;
    setCurrentIndex(index);
    m_quietCursor = false;
    if (index.isValid())
        scrollTo(index);
}

void vaSpread::Sort(std::span<const SortKey> keys)
{
    m_model->sort(keys);
}

void vaSpread::endEdit()
{
    QWidget* editor = m_delegate->openEditor();
    if (editor == nullptr || !isEditing())
        return; // a closed editor lives on until events have run
    commitData(editor);
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
    int key = keyAscii(event);
    if (key == 0 || !m_keyPress)
        return false;
    m_keyPress(key);
    return key == 0;
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
    if (text(col, row) != before)
        Q_EMIT Change(col, row);
}

void vaSpread::toggleCheck(const QModelIndex& index)
{
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    if (!m_model->holds(col, row) || m_model->column(col).type != CellType::CheckBox)
        return;
    SetText(col, row, std::string_view(text(col, row) == "1" ? "0" : "1"));
    Q_EMIT Change(col, row);
}

void vaSpread::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    const bool text = current.isValid() && m_model->column(current.column() + 1).type == CellType::Text;
    setAttribute(Qt::WA_InputMethodEnabled, text);
    if (m_quietCursor)
        return;
    const int oldCol = m_activeCol;
    const int oldRow = m_activeRow;
    m_activeCol = current.column() + 1;
    m_activeRow = current.row() + 1;
    Q_EMIT LeaveCell(oldCol, oldRow, current.isValid() ? m_activeCol : -1, m_activeRow);
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
        QTableView::keyPressEvent(event);
    }
}

/// The selected cells as lines of tab-separated texts, as spreadsheets take them.
void vaSpread::copySelection() const
{
    QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty() && currentIndex().isValid())
        selection.select(currentIndex(), currentIndex());
    if (selection.isEmpty())
        return;
    const QItemSelectionRange range = selection.first();
    QStringList lines;
    for (int row = range.top(); row <= range.bottom(); ++row) {
        QStringList cells;
        for (int column = range.left(); column <= range.right(); ++column)
            if (!isColumnHidden(column))
                cells << qtext(column + 1, row + 1);
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
