// A text field whose keys pass a KeyPress routine first, as every entry field of the program does. The
// routine sees the key's character code (platform/core/KeyCodes.h) and may set it to 0, which drops the key
// without a sound. Keys without a character (arrows, Delete) pass by.
//
// A paste may pass a field's limit; its line breaks and control characters are left out.
//
// A reader that types must not have its letters turned into kana: the input method is off.
#pragma once

#include <functional>

#include "platform/widgets/DirectField.h"

namespace suisui {

class KeyField : public DirectField
{
    Q_OBJECT

public:
    explicit KeyField(QWidget* parent = nullptr);

    using KeyPressHandler = std::function<void(int& keyAscii)>;
    void setKeyPressHandler(KeyPressHandler handler) { m_keyPress = std::move(handler); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tidyPaste(const QString& edited);

    KeyPressHandler m_keyPress;
};

} // namespace suisui
