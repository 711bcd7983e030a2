// Keyboard entry: filters, lengths, the Enter chain, dates in three boxes, scanned values.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include "frame/support/Check_Csv.h"
#include "frame/support/ChoiceBox.h"
#include "frame/support/FocusPaint.h"
#include "frame/support/KeyField.h"
#include "platform/widgets/AppFont.h"
#include "platform/widgets/EnterButton.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/InputMethod.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestFrame.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST(KeyFilters, letThroughTheirKeys_andNoOthers)
{
    const auto passing = [](KeyFilter filter) {
        std::string keys;
        for (int code = 1; code < 0x3100; ++code) {
            int key = code;
            EXPECT_EQ(filter(key), key);
            if (key != 0)
                keys += key < 32 ? '#' + std::to_string(key) : std::string(1, static_cast<char>(key));
        }
        return keys;
    };
    const std::string upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string lower = "abcdefghijklmnopqrstuvwxyz";
    EXPECT_EQ(passing(NumKeyCheck), "#3#8#130123456789");
    EXPECT_EQ(passing(CodeKeyCheck), "#3#8#13#22#24-0123456789" + upper + lower);
    EXPECT_EQ(passing(SearchKeyCheck), "#3#8#13#22#24*-0123456789?" + upper + lower);
}

class DateTest : public ::testing::Test
{
protected:
    DateTest()
    {
        auto* layout = new QVBoxLayout(&window);
        for (KeyField& each : boxes)
            layout->addWidget(&each);
        layout->addWidget(&search);
        wirePeriod(period, &search);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void fill(const std::array<const char16_t*, 6>& texts)
    {
        for (std::size_t i = 0; i < texts.size(); ++i)
            boxes[i].setText(QString::fromUtf16(texts[i]));
        box.shown.clear();
        frame.enabled = false;
    }
    /// The check refused with this text and put the focus on that box.
    void refused(const QString& text, const KeyField& at)
    {
        expectOneBox(box, {.title = u"日付エラー"_s, .text = text, .icon = BoxIcon::Stop});
        EXPECT_TRUE(at.hasFocus());
        EXPECT_TRUE(frame.enabled);
    }

    QWidget window;
    std::array<KeyField, 6> boxes;
    EnterButton search;
    PeriodBoxes period{{&boxes[0], &boxes[1], &boxes[2]}, {&boxes[3], &boxes[4], &boxes[5]}};
    ScriptedMsgBox box;
    TestFrame frame;
};

TEST_F(DateTest, emptyYear_winsOverEmptyMonth_overEmptyDay)
{
    fill({u"", u"", u"", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    refused(u"「年」 を入力して下さい。　　　"_s, boxes[0]);
    fill({u"2026", u"", u"", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    refused(u"「月」 を入力して下さい。　　　"_s, boxes[1]);
    fill({u"2026", u"1", u"", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    refused(u"「日」 を入力して下さい。　　　"_s, boxes[2]);
    EXPECT_EQ(boxes[1].text(), u"1"_s); // not padded before all three are there
}

TEST_F(DateTest, yearFive_becomesFourDigits_andTheCalendarDecides)
{
    fill({u"5", u"1", u"1", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    EXPECT_EQ(boxes[0].text(), u"0005"_s);
    refused(u"存在しない 「日付」 です。　( 0005/01/01 )　　　\r\n\r\n正しい 「日付」 を入力して下さい。"_s,
            boxes[2]);
}

TEST_F(DateTest, thirtiethOfFebruary_isPadded_andDoesNotExist)
{
    fill({u"2026", u"2", u"30", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    refused(u"存在しない 「日付」 です。　( 2026/02/30 )　　　\r\n\r\n正しい 「日付」 を入力して下さい。"_s,
            boxes[2]);
    fill({u"2024", u"2", u"29", u"", u"", u""});
    EXPECT_TRUE(DateCheck(period.from, frame, box));
}

TEST_F(DateTest, monthAndDayOutsideTheirRange_areRefused_andStay)
{
    for (const char16_t* month : {u"13", u"00", u"0"}) {
        fill({u"2026", month, u"1", u"", u"", u""});
        EXPECT_FALSE(DateCheck(period.from, frame, box));
        refused(u"「月」 が 正しく入力されていません。　　　"_s, boxes[1]);
    }
    EXPECT_EQ(boxes[1].text(), u"00"_s);
    fill({u"2026", u"1", u"32", u"", u"", u""});
    EXPECT_FALSE(DateCheck(period.from, frame, box));
    refused(u"「日」 が 正しく入力されていません。　　　"_s, boxes[2]);
}

TEST_F(DateTest, periodOfOneDayPasses_andOneThatEndsBeforeItBeginsDoesNot)
{
    fill({u"2026", u"4", u"1", u"2026", u"04", u"01"});
    EXPECT_TRUE(PeriodCheck(period, frame, box));
    EXPECT_EQ(period.from.stored(), u"20260401"_s);
    fill({u"2026", u"4", u"2", u"2026", u"4", u"1"});
    EXPECT_FALSE(PeriodCheck(period, frame, box));
    refused(
        u"「開始年月日」 が 「終了年月日」 より未来日です。　　　\r\n\r\n　2026/04/02   >   2026/04/01\r\n\r\n\r\n　　　 正しい 「日付」 を入力して下さい。"_s,
        boxes[0]);
    fill({u"2026", u"4", u"2", u"2026", u"", u"1"});
    EXPECT_FALSE(PeriodCheck(period, frame, box));
    refused(u"「月」 を入力して下さい。　　　"_s, boxes[4]);
}

TEST_F(DateTest, enterGoesFromBoxToBox_andToTheButton)
{
    boxes[0].setFocus();
    for (std::size_t i = 1; i < boxes.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(boxes[i].hasFocus()) << i;
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
    EXPECT_TRUE(search.hasFocus());
}

TEST_F(DateTest, digitAtTheLimit_isTakenByASelectedBox_only)
{
    boxes[0].setText(u"2026"_s);
    boxes[0].setFocus();
    boxes[0].selectAll();
    QTest::keyClick(&boxes[0], '1');
    EXPECT_EQ(boxes[0].text(), u"1"_s);
    QTest::keyClicks(&boxes[0], u"99x-99"_s);
    EXPECT_EQ(boxes[0].text(), u"1999"_s);
    QTest::keyClick(&boxes[0], Qt::Key_Backspace);
    EXPECT_EQ(boxes[0].text(), u"199"_s);
    QTest::keyClicks(&boxes[1], u"123"_s);
    EXPECT_EQ(boxes[1].text(), u"12"_s);
}

TEST_F(DateTest, pasteByKey_doesNothingInADateBox)
{
    QGuiApplication::clipboard()->setText(u"12"_s);
    QTest::keyClick(&boxes[0], Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(boxes[0].text(), QString());
}

TEST(KeyField, aPaste_mayPassTheLimit_andBringsNoControlCharacters)
{
    KeyField field;
    field.setKeyPressHandler([&field](int& key) {
        CodeKeyCheck(key);
        limitLength(field, 13, true, key);
    });
    QGuiApplication::clipboard()->setText(u"12345\r\n67890ABCDEF"_s);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), u"1234567890ABCDEF"_s);
    QTest::keyClick(&field, '7');
    EXPECT_EQ(field.text().size(), 16);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"1234567890ABCDEF"_s);
    QTest::keyClicks(&field, u"a'b c\"d;"_s);
    EXPECT_EQ(field.text(), u"abcd"_s);
}

TEST(KeyField, keepsTheInputMethodOff)
{
    KeyField field;
    EXPECT_FALSE(field.testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(takesInputMethod(field));
    field.setEnabled(false);
    field.setEnabled(true);
    field.setReadOnly(true);
    field.setReadOnly(false);
    EXPECT_FALSE(takesInputMethod(field));
}

TEST(KeyField, leaningOnEnter_isOneEnter)
{
    KeyField field;
    int enters = 0;
    field.setKeyPressHandler([&enters](int& key) { enters += key == 13 ? 1 : 0; });
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCoreApplication::sendEvent(&field, &first);
    QCoreApplication::sendEvent(&field, &repeat);
    EXPECT_EQ(enters, 1);
    QKeyEvent lineFeed(QEvent::KeyPress, 0x0A, Qt::NoModifier, u"\n"_s);
    QCoreApplication::sendEvent(&field, &lineFeed);
    EXPECT_EQ(enters, 2);
}

TEST(FocusPaint, marksTheFocus_andSelectsTheText)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* field = new KeyField;
    auto* button = new EnterButton;
    layout->addWidget(field);
    layout->addWidget(button);
    field->setText(u"4901"_s);
    const FocusPaint paint(&window, QColor(239, 239, 239));
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    button->setFocus();
    EXPECT_EQ(button->palette().color(QPalette::Button), QColor(0, 255, 255));
    field->setFocus();
    EXPECT_EQ(button->palette().color(QPalette::Button), QColor(239, 239, 239));
    EXPECT_EQ(field->palette().color(QPalette::Base), QColor(0, 255, 255));
    EXPECT_EQ(field->selectedText(), u"4901"_s);
    button->setFocus();
    EXPECT_EQ(field->palette().color(QPalette::Base), QColor(Qt::white));
}

TEST(FocusPaint, aControlThatIsBackToItsOwnColours_hasNoPaletteOfItsOwn)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* first = new EnterButton;
    auto* second = new EnterButton;
    layout->addWidget(first);
    layout->addWidget(second);
    const FocusPaint paint(&window, window.palette().color(QPalette::Button));
    const qint64 born = second->palette().cacheKey();
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    second->setFocus();
    EXPECT_NE(second->palette().cacheKey(), born);
    first->setFocus();
    EXPECT_EQ(second->palette().cacheKey(), born) << "the style keeps a picture for each palette";
    paint.setNormal(second);
    EXPECT_EQ(second->palette().cacheKey(), born);
    second->setFocus();
    EXPECT_EQ(second->palette().color(QPalette::Button), QColor(0, 255, 255));
}

TEST(ChoiceBox, showsAWholeNameOfTwentyCharacters_orEndsItWithDots_andAHint)
{
    QWidget window;
    window.setFont(screenFont());
    QHBoxLayout row(&window);
    ChoiceBox box;
    row.addWidget(&box);
    row.addStretch();
    const QString twenty = u"株式会社とても長い名前の卸売センター北関"_s;
    ASSERT_EQ(twenty.size(), 20);
    box.addItem(twenty);
    box.addItem(twenty + u"東第二営業所"_s);
    box.setToolTip(u"入荷先"_s);
    window.show();
    EXPECT_EQ(box.shownText(), twenty);
    const auto hint = [&box] {
        QHelpEvent help(QEvent::ToolTip, box.rect().center(), box.mapToGlobal(box.rect().center()));
        QCoreApplication::sendEvent(&box, &help);
        return QToolTip::text();
    };
    EXPECT_EQ(hint(), u"入荷先"_s) << "of a name that is whole there is nothing to tell";
    box.setCurrentIndex(1);
    EXPECT_TRUE(box.shownText().endsWith(u'…')) << box.shownText().toStdString();
    EXPECT_TRUE(box.currentText().startsWith(box.shownText().chopped(1)));
    EXPECT_EQ(hint(), box.currentText() + u"\n入荷先"_s);
    window.resize(window.minimumSizeHint()); // a small screen
    QCoreApplication::processEvents();
    box.setCurrentIndex(0);
    EXPECT_LT(box.width(), box.sizeHint().width());
    EXPECT_TRUE(box.shownText().endsWith(u'…'));
}

TEST(ChoiceBox, itsOpenListShowsWholeNames)
{
    ChoiceBox box;
    box.setFont(screenFont());
    for (int i = 0; i < 40; ++i)
        box.addItem(u"株式会社とても長い名前の卸売センター北関"_s);
    box.show();
    box.showPopup();
    const QAbstractItemView& list = *box.view();
    EXPECT_GE(list.viewport()->width(), list.sizeHintForColumn(0));
    box.hidePopup();
}

} // namespace suisui::test
