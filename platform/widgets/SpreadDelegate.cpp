#include "platform/widgets/SpreadDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "platform/widgets/CellEditor.h"
#include "platform/widgets/DirectField.h"
#include "platform/widgets/EnterKey.h"
#include "platform/widgets/SpreadModel.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

namespace {

/// Selected cells are tinted over whatever colour their row has.
QColor tinted(const QColor& back)
{
    constexpr qreal share = 0.25;
    const QColor tint(70, 120, 220);
    return QColor::fromRgbF(static_cast<float>(back.redF() * (1 - share) + tint.redF() * share),
                            static_cast<float>(back.greenF() * (1 - share) + tint.greenF() * share),
                            static_cast<float>(back.blueF() * (1 - share) + tint.blueF() * share));
}

} // namespace

SpreadDelegate::SpreadDelegate(vaSpread* spread) : QStyledItemDelegate(spread), m_spread(spread) {}

void SpreadDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    const bool selected = (cell.state & QStyle::State_Selected) != 0;
    const bool current = index == m_spread->currentIndex();
    // The program paints its own bars; the style's highlight would hide them.
    cell.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
    if (selected && !current) {
        const QVariant back = index.data(Qt::BackgroundRole);
        painter->fillRect(cell.rect, tinted(back.isValid() ? back.value<QColor>() : QColor(Qt::white)));
        QStyleOptionViewItem drawn = cell;
        initStyleOption(&drawn, index);
        drawn.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
        drawn.backgroundBrush = Qt::NoBrush;
        m_spread->style()->drawControl(QStyle::CE_ItemViewItem, &drawn, painter, m_spread);
    } else {
        QStyledItemDelegate::paint(painter, cell, index);
    }
    const auto* model = static_cast<const SpreadModel*>(index.model());
    if (model->column(index.column() + 1).type == CellType::CheckBox)
        paintCheckBox(painter, cell, model->text(index.column() + 1, index.row() + 1) == "1");
    if (current) {
        painter->save();
        painter->setPen(QPen(QColor(20, 60, 160), 2));
        painter->drawRect(cell.rect.adjusted(1, 1, -1, -1));
        painter->restore();
    }
}

void SpreadDelegate::paintCheckBox(QPainter* painter, const QStyleOptionViewItem& option, bool checked) const
{
    QStyle* style = m_spread->style();
    QStyleOptionButton box;
    box.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
    const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, m_spread),
                     style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, m_spread));
    box.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, option.rect);
    box.palette = m_spread->palette();
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, m_spread);
}

QWidget* SpreadDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex& index) const
{
    const SpreadColumn& column = static_cast<const SpreadModel*>(index.model())->column(index.column() + 1);
    // Figures are typed without the input method; names and remarks with it.
    QLineEdit* editor = column.type == CellType::Text ? new QLineEdit(parent) : new DirectField(parent);
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setAlignment(column.type == CellType::Number ? Qt::AlignRight : Qt::AlignLeft);
    editor->setValidator(new CellValidator(column.type, column.digits, editor));
    if (column.type == CellType::Text && column.digits > 0)
        editor->setMaxLength(column.digits);
    m_editor = editor;
    return editor;
}

void SpreadDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    // Set once, when the editor opens: a repaint of the row must not overwrite what is being typed.
    if (!editor->property("filled").toBool())
        static_cast<QLineEdit*>(editor)->setText(index.data(Qt::EditRole).toString());
    editor->setProperty("filled", true);
}

void SpreadDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    m_spread->commitText(index, static_cast<QLineEdit*>(editor)->text());
}

bool SpreadDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        // The handler may move the focus away, which commits and closes the editor.
        if (m_spread->swallowed(key))
            return true;
        if (isEnter(key)) {
            m_spread->endEdit();
            return true;
        }
        if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
            m_spread->tabOutOfEditor(key.key() == Qt::Key_Tab
                                     && !key.modifiers().testFlag(Qt::ShiftModifier));
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace suisui
