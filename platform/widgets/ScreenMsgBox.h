// Message boxes on the screen.
#pragma once

#include "platform/core/MsgBox.h"

class QWidget;

namespace suisui {

class ScreenMsgBox final : public MsgBox
{
public:
    /// \a parent may be null, or set later when the main window comes into being.
    explicit ScreenMsgBox(QWidget* parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget* parent) { m_parent = parent; }
    BoxAnswer show(const Box& box) override;

private:
    QWidget* m_parent;
};

} // namespace suisui
