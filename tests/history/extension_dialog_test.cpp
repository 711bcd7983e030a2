// The extension that all history files will carry.
#include "history/frmRirekiFileExt.h"

#include <QLabel>
#include <QLineEdit>

#include "tests/history/DialogDesk.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor cyan(0, 255, 255);

} // namespace

TEST(ExtensionDialog, takesTheTrimmedText)
{
    DialogDesk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    EXPECT_TRUE(control<QLabel>(dialog, u"lblCaption"_s).text().contains(u"履歴"_s));
    QTest::keyClicks(&control<QLineEdit>(dialog, u"txtFileExt"_s), u" h t "_s);
    press(dialog, u"CmdOK"_s);
    EXPECT_EQ(dialog.HistoryExt(), u"h t"_s);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(ExtensionDialog, refusesNothingAndForbiddenCharacters)
{
    const QString forbidden[] = {u"\\"_s, u"/"_s,  u":"_s, u","_s, u";"_s, u"*"_s,
                                 u"?"_s,  u"\""_s, u"<"_s, u">"_s, u"|"_s};
    DialogDesk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    auto& field = control<QLineEdit>(dialog, u"txtFileExt"_s);
    for (const QString& nothing : {u""_s, u"   "_s}) {
        field.setText(nothing);
        control<QPushButton>(dialog, u"CmdOK"_s).setFocus();
        press(dialog, u"CmdOK"_s);
        expectBox(
            desk.said(),
            {u"拡張子 未指定エラー"_s,
             u"「拡張子」 が指定されていません。\r\n\r\n拡張子を指定した後に、再度、決定して下さい。　　　"_s});
        EXPECT_TRUE(field.hasFocus());
    }
    for (const QString& character : forbidden) {
        field.setText(u"a"_s + character + u"b"_s);
        press(dialog, u"CmdOK"_s);
        expectBox(
            desk.said(),
            {u"拡張子 使用文字エラー"_s,
             u"「拡張子」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\n拡張子を修正した後に、再度、決定して下さい。　　　"_s});
        EXPECT_TRUE(field.hasFocus());
    }
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.HistoryExt().isEmpty());
}

TEST(ExtensionDialog, enterMovesToTheButton_andTheFieldIsSelectedWhole)
{
    DialogDesk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    auto& field = control<QLineEdit>(dialog, u"txtFileExt"_s);
    EXPECT_EQ(field.palette().color(QPalette::Base), cyan);
    QTest::keyClicks(&field, u"hst"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(control<QPushButton>(dialog, u"CmdOK"_s).hasFocus());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(field.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(control<QPushButton>(dialog, u"CmdOK"_s).palette().color(QPalette::Button), cyan);
    field.setFocus();
    EXPECT_EQ(field.selectedText(), u"hst"_s);
}

TEST(ExtensionDialog, everyWayOut_withoutOk_isACancel)
{
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) { press(dialog, u"CmdEnd"_s); },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); }};
    for (const auto& leave : ways) {
        DialogDesk desk;
        frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
        desk.show(dialog);
        control<QLineEdit>(dialog, u"txtFileExt"_s).setText(u"hst"_s);
        leave(dialog);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_TRUE(dialog.HistoryExt().isEmpty());
    }
}

TEST(ExtensionDialog, isAnsweredByTheReader)
{
    for (const bool ok : {true, false}) {
        DialogDesk desk;
        frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
        desk.show(dialog);
        control<QLineEdit>(dialog, u"txtFileExt"_s).setText(u"hst"_s);
        desk.scans.lines = {u"4901001000017"_s, u"[U]"_s, ok ? u"[P]"_s : u"[T]"_s};
        ASSERT_TRUE(eventually([&] { return !dialog.isVisible(); }));
        EXPECT_EQ(dialog.HistoryExt(), ok ? u"hst"_s : QString());
    }
}

TEST(ExtensionDialog, goesOnListening_afterABox_andNotDuringIt)
{
    DialogDesk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    desk.box.onShow = [&](const Box&) {
        desk.scans.lines = {u"[T]"_s};
        letTheTimersTick();
        EXPECT_EQ(desk.scans.lines.size(), 1U);
    };
    press(dialog, u"CmdOK"_s);
    ASSERT_TRUE(eventually([&] { return !dialog.isVisible(); }));
}

} // namespace suisui::test
