#include "platform/widgets/EnterButton.h"

#include <QKeyEvent>

#include "platform/widgets/EnterKey.h"

namespace suisui {

EnterButton::EnterButton(QWidget* parent) : QPushButton(parent)
{
    setAutoDefault(false);
}

void EnterButton::keyPressEvent(QKeyEvent* event)
{
    const bool enter = isEnter(*event);
    if (enter || event->key() == Qt::Key_Space) {
        if (enter && !m_typedAt && !event->isAutoRepeat())
            click();
        else if (!enter && !m_typedAt)
            QPushButton::keyPressEvent(event);
        if (enter)
            m_typedAt = false;
        event->accept();
        return;
    }
    const QString text = event->text();
    if (!text.isEmpty() && text[0].isPrint()
        && (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0)
        m_typedAt = true;
    QPushButton::keyPressEvent(event);
}

void EnterButton::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && m_typedAt)
        event->accept();
    else
        QPushButton::keyReleaseEvent(event);
}

void EnterButton::focusInEvent(QFocusEvent* event)
{
    m_typedAt = false;
    QPushButton::focusInEvent(event);
}

} // namespace suisui
