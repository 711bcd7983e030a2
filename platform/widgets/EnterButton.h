// A push button of the program: Enter presses it while it has the focus. But an Enter that ends a run of
// typed characters comes from a bar-code reader that types, whose code has landed on a button by mistake; it
// presses nothing.
#pragma once

#include <QPushButton>

namespace suisui {

class EnterButton : public QPushButton
{
    Q_OBJECT

public:
    explicit EnterButton(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    bool m_typedAt = false; ///< characters have come that are not meant for a button
};

} // namespace suisui
