#include "history/FileChoice.h"

#include <QKeyEvent>

#include "platform/widgets/EnterKey.h"

namespace suisui {

void FileChoice::focusInEvent(QFocusEvent* event)
{
    QListWidget::focusInEvent(event); // frames the first file
    if (selectedItems().isEmpty())
        setCurrentItem(nullptr);
}

void FileChoice::keyPressEvent(QKeyEvent* event)
{
    if (!isEnter(*event)) {
        QListWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        Q_EMIT decided();
}

QItemSelectionModel::SelectionFlags FileChoice::selectionCommand(const QModelIndex& index,
                                                                 const QEvent*) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace suisui
