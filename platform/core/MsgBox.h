// Every message box of the program goes through here: title, text, icon, buttons, default button. The screen
// answers through platform/widgets/ScreenMsgBox.h, so a rule that warns or asks needs no window library.
// Texts are plain, "\r\n" is one line break, and full-width blanks stay as they are, because the texts
// lay themselves out with them. Tests hand in a box that answers by script.
#pragma once

#include <QString>

namespace suisui {

enum class BoxIcon { Stop, Question, Exclamation, Information };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct Box
{
    QString title;
    QString text;
    BoxIcon icon = BoxIcon::Stop;
    BoxButtons buttons = BoxButtons::Ok;
    BoxAnswer defaultButton = BoxAnswer::None; ///< None: the first button
};

class MsgBox
{
public:
    virtual ~MsgBox() = default;

    /// Shows \a box and waits for the answer. A Yes/No box closed by its window answers No, one with
    /// Cancel answers Cancel.
    virtual BoxAnswer show(const Box& box) = 0;
};

} // namespace suisui
