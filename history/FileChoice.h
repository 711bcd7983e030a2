// The files of a folder, of which one is chosen. The chosen file has the frame. As long as none is chosen
// there is no frame, and the first key of the arrows, Home or End chooses.
#pragma once

#include <QListWidget>

namespace suisui {

class FileChoice final : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

Q_SIGNALS:
    /// Enter: whatever is chosen is meant, also when nothing is.
    void decided();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Whatever moves the frame chooses, also with Ctrl held; nothing takes the choice away.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
};

} // namespace suisui
