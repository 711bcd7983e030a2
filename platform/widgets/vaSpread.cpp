#include "platform/widgets/vaSpread.h"

#include <algorithm>

#include <QApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "platform/widgets/SpreadDelegate.h"
#include "platform/widgets/SpreadHeader.h"
#include "platform/widgets/ReDrawOff.h"
#include "platform/widgets/SpreadModel.h"

namespace suisui {

namespace {

constexpr int rowHeight = 24;

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
    setHorizontalHeader(new SpreadHeader(this));
    setModel(m_model);
    setItemDelegate(m_delegate);
    still(verticalHeader());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed
                    | QAbstractItemView::DoubleClicked);
    setTabKeyNavigation(false); // Tab goes by rules of its own
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    // A click on a heading sorts; it selects no column and moves no cursor.
    disconnect(horizontalHeader(), &QHeaderView::sectionPressed, this, nullptr);
    disconnect(horizontalHeader(), &QHeaderView::sectionEntered, this, nullptr);
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
    const QScopedValueRollback quiet(m_quietCursor, true);
    endEdit();
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
    endEdit();
    {
        const QScopedValueRollback quiet(m_quietCursor, true);
        m_model->setRows(rows);
    }
    cutCursor();
    showCursor();
}

/// The cursor is never below the last row.
void vaSpread::cutCursor()
{
    m_activeRow = std::min(m_activeRow, MaxRows());
    if (m_activeRow == 0)
        m_activeCol = 0;
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
int vaSpread::pendingNumber(int row) const
{
    return m_model->pendingNumber(row);
}
void vaSpread::renumberPending(int row, int number)
{
    m_model->renumberPending(row, number);
}

void vaSpread::InsertRows(int row, int count)
{
    if (row < 1 || row > MaxRows() + 1 || count < 1)
        return;
    endEdit();
    const QScopedValueRollback quiet(m_quietCursor, true);
    m_model->insert(row, count);
    if (m_activeRow >= row)
        m_activeRow += count;
}

void vaSpread::DeleteRows(int row, int count)
{
    endEdit();
    {
        const QScopedValueRollback quiet(m_quietCursor, true);
        m_model->remove(row, count);
    }
    if (m_activeRow >= row)
        m_activeRow = std::clamp(m_activeRow - count, std::min(row, MaxRows()), MaxRows());
    cutCursor();
    showCursor();
}

void vaSpread::InsertRowsAt(std::span<const int> rows)
{
    const ReDrawOff noRedraw(*this);
    m_activeRow += static_cast<int>(
        std::count_if(rows.begin(), rows.end(), [this](int row) { return row <= m_activeRow; }));
    m_model->insertAt(rows);
}

void vaSpread::DeleteRowsWhere(const std::function<bool(int row)>& gone)
{
    const ReDrawOff noRedraw(*this);
    int above = 0;
    bool cursorGoes = false;
    m_model->removeWhere([&](int row) {
        const bool leaves = gone(row);
        above += leaves && row < m_activeRow ? 1 : 0;
        cursorGoes |= leaves && row == m_activeRow;
        return leaves;
    });
    m_activeRow = cursorGoes ? 0 : m_activeRow - above;
}

void vaSpread::setReDraw(bool on)
{
    if (on == ReDraw())
        return;
    if (!on) {
        endEdit(); // what was typed belongs to the row that is still there
        setUpdatesEnabled(false);
        m_model->setRedraw(false);
        m_cursorSet = false;
        return;
    }
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    {
        const QScopedValueRollback quiet(m_quietCursor, true);
        m_model->setRedraw(true);
    }
    showCursor();
    if (!m_cursorSet) {
        horizontalScrollBar()->setValue(across);
        verticalScrollBar()->setValue(down);
    }
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
    m_cursorSet = true;
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
    if (!index.isValid())
        return;
    // Out of sight the grid has not its size yet, and would scroll to where nobody wants it.
    m_scrollWhenShown = !isVisible();
    if (!m_scrollWhenShown)
        scrollTo(index);
}

void vaSpread::Sort(std::span<const SortKey> keys)
{
    endEdit();
    m_model->sortRows(keys);
}

} // namespace suisui
