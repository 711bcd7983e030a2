// Message boxes, and buttons that a reader must not press by mistake.
#include <functional>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/widgets/BoxText.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/ScreenMsgBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Shows \a box and works \a act on its dialog once it is up.
BoxAnswer answered(const Box& box, const std::function<void(QWidget&)>& act, QWidget* parent = nullptr)
{
    ScreenMsgBox screen(parent);
    QTimer looksForIt;
    QObject::connect(&looksForIt, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible())
            return;
        looksForIt.stop();
        act(*dialog);
    });
    looksForIt.start(0);
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

TEST(EnterButton, enterPresses_butNotAfterTypedCharacters)
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

TEST(MsgBox, aCodeWithTheLetterOfAnAnswer_answersNothing)
{
    EXPECT_EQ(answered(yesNo,
                       [](QWidget& dialog) {
                           for (const char key : {'A', 'Y', 'N', '1'})
                               QTest::keyClick(dialog.focusWidget(), key);
                           EXPECT_TRUE(dialog.isVisible());
                           QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
                           EXPECT_TRUE(dialog.isVisible());
                           QTest::keyClick(dialog.focusWidget(), 'n'); // the operator, after the code
                       }),
              BoxAnswer::No);
}

TEST(MsgBox, theButtonWithTheFocusIsCyan)
{
    const auto face = [](QWidget& dialog, const QString& name) {
        return dialog.findChild<QPushButton*>(name)->palette().color(QPalette::Button);
    };
    const QColor cyan(0, 255, 255);
    answered(yesNo, [&](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        EXPECT_EQ(face(dialog, u"msgBoxNo"_s), cyan);
        EXPECT_NE(face(dialog, u"msgBoxYes"_s), cyan);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Left);
        EXPECT_EQ(face(dialog, u"msgBoxYes"_s), cyan);
        EXPECT_NE(face(dialog, u"msgBoxNo"_s), cyan);
        press(dialog, Qt::Key_Escape);
    });
}

TEST(MsgBox, buttonsCarryJapaneseWords)
{
    Box three = yesNo;
    three.buttons = BoxButtons::YesNoCancel;
    answered(three, [](QWidget& dialog) {
        for (const auto& [name, word] :
             {std::pair(u"msgBoxYes"_s, u"はい(&Y)"_s), std::pair(u"msgBoxNo"_s, u"いいえ(&N)"_s),
              std::pair(u"msgBoxCancel"_s, u"キャンセル"_s)})
            EXPECT_EQ(dialog.findChild<QPushButton*>(name)->text(), word);
        dialog.close();
    });
    answered({u"t"_s, u"x"_s}, [](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QPushButton*>(u"msgBoxOk"_s)->text(), u"OK"_s);
        dialog.close();
    });
}

TEST(MsgBox, aLongLineWidensTheBox_andLineBreaksAreOneLineEach)
{
    const QString line(40, u'あ');
    answered({u"t"_s, line + u"\r\n\r\nx"_s}, [&line](QWidget& dialog) {
        const auto* text = static_cast<const BoxText*>(dialog.findChild<QLabel*>(u"msgBoxText"_s));
        EXPECT_GE(text->width(), text->fontMetrics().horizontalAdvance(line));
        EXPECT_EQ(text->lines(), (QStringList{line, QString(), u"x"_s}));
        EXPECT_EQ(text->height(), 3 * text->lineStep());
        dialog.close();
    });
}

TEST(MsgBox, canBeUsed_overADisabledWindow)
{
    QWidget window;
    window.show();
    window.setEnabled(false);
    const auto pressYes = [&window](QWidget& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window);
        QTest::mouseClick(dialog.findChild<QPushButton*>(u"msgBoxYes"_s), Qt::LeftButton);
    };
    EXPECT_EQ(answered(yesNo, pressYes, &window), BoxAnswer::Yes);
}

TEST(EnterButton, codeThatHoldsABlank_pressesNothing_untilTheFocusComesBack)
{
    QWidget window;
    QVBoxLayout layout(&window);
    EnterButton button;
    QPushButton other;
    layout.addWidget(&button);
    layout.addWidget(&other);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.setFocus();
    QSignalSpy clicks(&button, &QPushButton::clicked);
    for (const char key : {'A', ' ', '1'})
        QTest::keyClick(&button, key);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 0);
    QTest::keyClick(&button, 'A');
    other.setFocus();
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_FALSE(button.autoDefault());
}

TEST(MsgBox, staysOnTheScreen_howeverLongANameIs_andLosesNothingOfIt)
{
    const QString name = u"とても長い名前の商品"_s.repeated(40);
    const Box long1{u"t"_s, u"　"_s + name + u"\r\n\r\n　　在庫数 = -1"_s};
    Box tall = long1;
    tall.text = name.repeated(60);
    for (const Box& box : {long1, tall})
        answered(box, [&box](QWidget& dialog) {
            const QRect screen = dialog.screen()->availableGeometry();
            EXPECT_LE(dialog.frameGeometry().width(), screen.width());
            EXPECT_LE(dialog.frameGeometry().height(), screen.height());
            const auto* text = static_cast<const BoxText*>(dialog.findChild<QLabel*>(u"msgBoxText"_s));
            EXPECT_EQ(text->text(), box.text);
            EXPECT_EQ(text->lines().join(QString()), QString(box.text).remove(u"\r\n"_s));
            for (const QString& line : text->lines())
                EXPECT_LE(text->fontMetrics().horizontalAdvance(line), text->width());
            EXPECT_TRUE(dialog.findChild<QPushButton*>(u"msgBoxOk"_s)->isVisible());
            press(dialog, Qt::Key_Return);
        });
}

TEST(MsgBox, keepsItsLinesApart)
{
    answered(yesNo, [](QWidget& dialog) {
        const auto* text = static_cast<const BoxText*>(dialog.findChild<QLabel*>(u"msgBoxText"_s));
        ASSERT_EQ(text->lines().size(), 3);
        EXPECT_EQ(text->height(), 3 * text->lineStep());
        EXPECT_GE(text->lineStep(), text->fontMetrics().height() * 5 / 4);
        // White between the lines that are drawn.
        const QImage picture = const_cast<BoxText*>(text)->grab().toImage();
        int inked = 0;
        int runs = 0;
        bool before = false;
        for (int y = 0; y < picture.height(); ++y) {
            bool ink = false;
            for (int x = 0; x < picture.width(); ++x)
                ink |= qGray(picture.pixel(x, y)) < 100;
            inked += ink ? 1 : 0;
            runs += ink && !before ? 1 : 0;
            before = ink;
        }
        EXPECT_GT(inked, 0);
        EXPECT_GE(runs, 2);
        press(dialog, Qt::Key_Escape);
    });
}

TEST(MsgBox, hasNoButtonsToMinimiseOrMaximise)
{
    answered(yesNo, [](QWidget& dialog) {
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::CustomizeWindowHint));
        EXPECT_FALSE(dialog.windowFlags().testAnyFlags(Qt::WindowMinMaxButtonsHint));
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        press(dialog, Qt::Key_Escape);
    });
}

} // namespace suisui::test
