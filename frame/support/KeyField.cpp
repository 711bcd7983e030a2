#include "frame/support/KeyField.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "platform/widgets/KeyCodes.h"

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
