// Message boxes, injected keys, and buttons that a reader must not press by mistake.
#include <functional>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/core/RunTimeError.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/MsgBox.h"
#include "platform/widgets/SendKeys.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Shows \a box and works \a act on its dialog once it is up.
BoxAnswer answered(const Box& box, const std::function<void(QWidget&)>& act)
{
    ScreenMsgBox screen;
    QTimer::singleShot(0, qApp, [&act] { act(*QApplication::activeModalWidget()); });
    return screen.show(box);
}

void press(QWidget& dialog, Qt::Key key)
{
    QWidget* focused = dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
    QTest::keyClick(focused, key);
}

const Box yesNo{u"更新の確認"_s, u"一行目。　　　\r\n\r\n　　二行目"_s, BoxIcon::Question, BoxButtons::YesNo,
                BoxAnswer::No};

} // namespace

TEST(MsgBox, showsTitleAndTextToTheLetter_andTheDefaultButton)
{
    EXPECT_EQ(answered(yesNo,
                       [](QWidget& dialog) {
                           EXPECT_EQ(dialog.windowTitle(), u"更新の確認"_s);
                           const auto* text = dialog.findChild<QLabel*>(u"msgBoxText"_s);
                           EXPECT_EQ(text->text(), u"一行目。　　　\r\n\r\n　　二行目"_s);
                           EXPECT_EQ(text->textFormat(), Qt::PlainText);
                           EXPECT_FALSE(text->wordWrap());
                           EXPECT_EQ(dialog.focusWidget()->objectName(), u"msgBoxNo"_s);
                           press(dialog, Qt::Key_Return);
                       }),
              BoxAnswer::No);
}

TEST(MsgBox, answersByKeys)
{
    EXPECT_EQ(answered(yesNo, [](QWidget& dialog) { press(dialog, Qt::Key_Y); }), BoxAnswer::Yes);
    EXPECT_EQ(answered(yesNo, [](QWidget& dialog) { press(dialog, Qt::Key_Escape); }), BoxAnswer::No);
    Box three = yesNo;
    three.buttons = BoxButtons::YesNoCancel;
    three.defaultButton = BoxAnswer::None;
    EXPECT_EQ(answered(three, [](QWidget& dialog) { dialog.close(); }), BoxAnswer::Cancel);
    EXPECT_EQ(answered(three, [](QWidget& dialog) { press(dialog, Qt::Key_Return); }), BoxAnswer::Yes);
    EXPECT_EQ(answered({u"t"_s, u"x"_s}, [](QWidget& dialog) { press(dialog, Qt::Key_Return); }),
              BoxAnswer::Ok);
}

TEST(MsgBox, aReadersCodeDoesNotCloseIt)
{
    answered({u"t"_s, u"x"_s}, [](QWidget& dialog) {
        QWidget* button = dialog.focusWidget();
        for (const char key : {'4', '9', '0'})
            QTest::keyClick(button, key);
        QTest::keyClick(button, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(button, Qt::Key_Return); // the operator's own Enter
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST(EnterButton, enterPresses_butNotBehindTypedCharacters)
{
    EnterButton button;
    button.show();
    QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 1);
    for (const char key : {'A', '-', '1'})
        QTest::keyClick(&button, key);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks.size(), 1);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 2);
    QKeyEvent lineFeed(QEvent::KeyPress, 0x0A, Qt::NoModifier, u"\n"_s);
    QCoreApplication::sendEvent(&button, &lineFeed);
    EXPECT_EQ(clicks.size(), 3);
}

class SendKeysTest : public ::testing::Test
{
protected:
    SendKeysTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&first);
        layout->addWidget(&second);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        first.setFocus();
    }
    void send(const QString& keys)
    {
        SendKeys(keys);
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents();
    }

    QWidget window;
    QLineEdit first;
    QLineEdit second;
};

TEST_F(SendKeysTest, expressionsAreTypedWhereTheFocusIs)
{
    send(u"aB1{+}{-}"_s);
    EXPECT_EQ(first.text(), u"aB1+-"_s);
    send(u"{TAB}xy{left}z{BS}{home}>{Del 1}{end}{5 3}"_s);
    EXPECT_EQ(second.text(), u">y555"_s);
    send(u"^a+(q)~"_s);
    EXPECT_EQ(second.text(), u"q"_s);
}

TEST_F(SendKeysTest, keysWaitUntilEventsRun)
{
    SendKeys(u"a"_s);
    EXPECT_EQ(first.text(), QString());
    QCoreApplication::processEvents();
    EXPECT_EQ(first.text(), u"a"_s);
}

TEST_F(SendKeysTest, expressionWithoutMeaning_typesNothing)
{
    for (const QString& bad : {u"abc{NOSUCHKEY}"_s, u"x{"_s, u"(ab"_s, u"a}"_s, u"{A x}"_s, u"^"_s}) {
        EXPECT_THROW(SendKeys(bad), RunTimeError) << bad.toStdString();
        QCoreApplication::processEvents();
        EXPECT_EQ(first.text(), QString());
    }
}

} // namespace suisui::test
