#include "platform/widgets/KeyCodes.h"

#include <QKeyEvent>

#include "platform/widgets/EnterKey.h"

namespace suisui {

int keyAsciiOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (isEnter(event))
        return KeyCode::enter;
    if (key == Qt::Key_Backspace)
        return KeyCode::backspace;
    if ((event.modifiers() & Qt::ControlModifier) != 0 && key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + 1;
    const QList<uint> text = event.text().toUcs4();
    return !text.isEmpty() && QChar::isPrint(text[0]) ? static_cast<int>(text[0]) : 0;
}

} // namespace suisui
