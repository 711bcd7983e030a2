// The window that takes no input without looking disabled, and the wait windows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include "frame/support/FormGate.h"
#include "frame/support/KeyField.h"
#include "frame/support/frm_ShortWait.h"
#include "frame/support/frm_Wait.h"
#include "platform/widgets/EnterButton.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class GateTest : public ::testing::Test
{
protected:
    GateTest() : gate(&window)
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addWidget(&button);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.setFocus();
    }
    static void key(QWidget& target, Qt::Key code, const QString& text, bool repeat = false)
    {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text, repeat);
        QCoreApplication::sendEvent(&target, &press);
        QKeyEvent release(QEvent::KeyRelease, code, Qt::NoModifier, text, repeat);
        QCoreApplication::sendEvent(&target, &release);
    }
    void settle() const
    {
        while (gate.heldKeys() > 0)
            QCoreApplication::processEvents();
    }

    QWidget window;
    KeyField field;
    EnterButton button;
    FormGate gate;
};

} // namespace

TEST_F(GateTest, burstOfKeys_losesNone_thoughEveryKeyDisablesTheWindow)
{
    QString wanted;
    int left = 1000;
    field.setKeyPressHandler([&](int&) {
        gate.setEnabled(false);
        // More keys arrive while this one is worked.
        for (int i = 0; i < 2 && left > 0; ++i, --left) {
            const QChar c(u'a' + left % 26);
            wanted += c;
            key(field, static_cast<Qt::Key>(c.toUpper().unicode()), QString(c));
        }
        QCoreApplication::processEvents();
        gate.setEnabled(true);
    });
    wanted += u'0';
    key(field, Qt::Key_0, u"0"_s);
    settle();
    EXPECT_EQ(field.text().size(), 1001);
    EXPECT_EQ(field.text(), wanted);
}

TEST_F(GateTest, disabledWindow_keepsItsFocus_andTakesNoMouse)
{
    QSignalSpy clicks(&button, &QPushButton::clicked);
    gate.setEnabled(false);
    const QPoint onButton = button.mapTo(&window, button.rect().center());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onButton);
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_TRUE(button.isEnabled());
    gate.setEnabled(true);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onButton);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(GateTest, aTapThatEndsAnEdit_isAClick)
{
    // The press takes the focus from the field, which works for a moment; the finger has gone before the
    // press reaches the button.
    const QPoint at = button.mapTo(&window, button.rect().center());
    QObject::connect(&field, &QLineEdit::editingFinished, &button, [&] {
        gate.setEnabled(false);
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
        gate.setEnabled(true);
    });
    QTest::keyClick(&field, Qt::Key_1);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_FALSE(button.isDown());
}

TEST_F(GateTest, aReleaseWithoutAPress_clicksNothingAfterwards)
{
    const QPoint at = button.mapTo(&window, button.rect().center());
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    gate.setEnabled(false);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    gate.setEnabled(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_FALSE(button.isDown());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(GateTest, heldKeysGoToWhoeverHasTheFocusThen)
{
    QSignalSpy clicks(&button, &QPushButton::clicked);
    gate.setEnabled(false);
    key(field, Qt::Key_Return, u"\r"_s);
    button.setFocus();
    gate.setEnabled(true);
    EXPECT_EQ(clicks.size(), 0); // not inside the call
    settle();
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(GateTest, leaningOnEnter_fillsNoQueue_butRepeatedDigitsCount)
{
    gate.setEnabled(false);
    for (int i = 0; i < 50; ++i)
        key(field, Qt::Key_Return, u"\r"_s, true);
    EXPECT_LE(gate.heldKeys(), 4U);
    for (int i = 0; i < 3; ++i)
        key(field, Qt::Key_0, u"0"_s, true);
    gate.setEnabled(true);
    settle();
    EXPECT_EQ(field.text(), u"000"_s);
}

TEST_F(GateTest, otherWindowsAreUntouched)
{
    gate.setEnabled(false);
    QDialog dialog;
    KeyField inDialog(&dialog);
    dialog.show();
    QTest::keyClick(&inDialog, 'x');
    EXPECT_EQ(inDialog.text(), u"x"_s);
    EXPECT_EQ(gate.heldKeys(), 0U);
}

TEST_F(GateTest, queueHasALimit)
{
    gate.setEnabled(false);
    for (std::size_t i = 0; i < FormGate::mostHeldKeys; ++i)
        key(field, Qt::Key_A, u"a"_s);
    EXPECT_EQ(gate.heldKeys(), FormGate::mostHeldKeys);
}

TEST(WaitWindows, closeThemselvesAtATick_whenTheWorkIsDone)
{
    frm_ShortWait wait;
    wait.load();
    EXPECT_TRUE(wait.isVisible());
    EXPECT_EQ(wait.windowTitle(), u" しばらくお待ち下さい . . ."_s);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    wait.setEndMark();
    EXPECT_TRUE(wait.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&wait] { return !wait.isVisible(); }));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    wait.load(); // the mark is cleared on load
    EXPECT_FALSE(QTest::qWaitFor([&wait] { return !wait.isVisible(); }, 700));
    wait.unload();
    EXPECT_FALSE(wait.isVisible());
    wait.unload();
}

TEST(WaitWindows, barRunsToTheRowsOfItsJob_andHistoryHasItsSteps)
{
    frm_Wait wait;
    wait.load(u"入荷検索"_s, 5000);
    EXPECT_EQ(wait.maximum(), 5000);
    EXPECT_EQ(wait.WaitTag(), u"入荷検索"_s);
    for (int row = 1; row <= 5000; ++row)
        wait.setProgress(row);
    EXPECT_EQ(wait.progress(), 5000);
    wait.unload();
    EXPECT_EQ(wait.WaitTag(), QString());
    wait.load(u"履歴保存"_s, 0);
    EXPECT_EQ(wait.maximum(), 14);
    wait.unload();
    wait.load(u"履歴読込"_s, 0);
    EXPECT_EQ(wait.maximum(), 11);
    wait.unload();
}

} // namespace suisui::test
