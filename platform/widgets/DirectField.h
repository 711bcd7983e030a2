// A one-line field that takes keys as they are typed: the input method stays off, whatever the shop's
// computer is set to. Codes and figures must not be turned into kana.
//
// It paints its own background, corners included, so that a blink of the cursor repaints the field alone and
// not the frames, pages and window under it.
#pragma once

#include <QLineEdit>

namespace suisui {

class DirectField : public QLineEdit
{
    Q_OBJECT

public:
    explicit DirectField(QWidget* parent = nullptr);

    /// QLineEdit says that it takes the input method wherever it can be edited, whatever its attribute says.
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace suisui
