#include "frame/support/KeyField.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/EnterKey.h"

namespace suisui {

namespace {

/// \a text without the line breaks and control characters that a one-line field cannot show.
QString onOneLine(QString text)
{
    text.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
               || c == QChar::ParagraphSeparator;
    });
    return text;
}

} // namespace

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

KeyField::KeyField(QWidget* parent) : DirectField(parent)
{
    connect(this, &QLineEdit::textEdited, this, &KeyField::tidyPaste);
}

/// Pastes that come without a key code (Shift+Insert, the menu, the mouse) pass no KeyPress routine; a code
/// copied out of a spreadsheet brings its line break with it.
void KeyField::tidyPaste(const QString& edited)
{
    const QString tidy = onOneLine(edited);
    if (tidy.size() == edited.size())
        return;
    const auto place = onOneLine(edited.left(cursorPosition())).size();
    setText(tidy);
    setCursorPosition(static_cast<int>(place));
}

void KeyField::keyPressEvent(QKeyEvent* event)
{
    int keyAscii = keyAsciiOf(*event);
    if (keyAscii == 0) {
        DirectField::keyPressEvent(event); // arrows, Delete and the like
        return;
    }
    event->accept();
    if (keyAscii == KeyCode::enter && event->isAutoRepeat())
        return; // leaning on Enter must not book a code twice
    if (m_keyPress)
        m_keyPress(keyAscii);
    switch (keyAscii) {
    case 0:
    case KeyCode::enter: // what Enter does is the handler's business alone; no dialog's button sees it
        break;
    case KeyCode::ctrlC:
        copy();
        break;
    case KeyCode::ctrlV:
        insert(onOneLine(QGuiApplication::clipboard()->text()));
        break;
    case KeyCode::ctrlX:
        cut();
        break;
    default:
        DirectField::keyPressEvent(event);
        event->accept();
    }
}

} // namespace suisui
