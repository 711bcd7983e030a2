// Keys that the program types.
#include "platform/widgets/SendKeys.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "platform/widgets/ScreenMsgBox.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class SendKeysTest : public ::testing::Test
{
protected:
    SendKeysTest()
    {
        layout.addWidget(&first);
        layout.addWidget(&second);
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
    QVBoxLayout layout{&window};
    QLineEdit first;
    QLineEdit second;
};

} // namespace

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
        send(bad);
        EXPECT_EQ(first.text(), QString()) << bad.toStdString();
    }
}

namespace {

/// Writes down the keys that reach it.
class KeyNotes : public QWidget
{
public:
    KeyNotes() { setFocusPolicy(Qt::StrongFocus); }
    QStringList pressed;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QWidget::event(event);
        const auto* key = static_cast<const QKeyEvent*>(event);
        pressed << QKeySequence(key->keyCombination()).toString(QKeySequence::PortableText);
        return true;
    }
};

} // namespace

TEST_F(SendKeysTest, namesSignsCountsAndGroups_becomeKeys)
{
    KeyNotes notes;
    layout.addWidget(&notes);
    notes.show();
    notes.setFocus();
    const std::pair<QString, QString> cases[] = {
        {u"{f1}{F16}"_s, u"F1 F16"_s},
        {u"{UP}{down 2}{PgUp}{PGDN}"_s, u"Up Down Down PgUp PgDown"_s},
        {u"{BKSP}{BACKSPACE}{bs}{DELETE}{INS}{INSERT}"_s, u"Backspace Backspace Backspace Del Ins Ins"_s},
        {u"{HOME}{END}{LEFT}{RIGHT}{ESC}{TAB}"_s, u"Home End Left Right Esc Tab"_s},
        {u"{ENTER}~{BREAK}{CAPSLOCK}"_s, u"Return Return Cancel CapsLock"_s},
        {u"+{F5}^{HOME}%x"_s, u"Shift+F5 Ctrl+Home Alt+X"_s},
        {u"^+{END}+(ab)c"_s, u"Ctrl+Shift+End Shift+A Shift+B C"_s},
        {u"{a 3}{LEFT 0}{{}{}}"_s, u"A A A { }"_s},
    };
    for (const auto& [keys, wanted] : cases) {
        notes.pressed.clear();
        send(keys);
        EXPECT_EQ(notes.pressed.join(u' '), wanted) << keys.toStdString();
    }
}

TEST_F(SendKeysTest, keysGoToTheBoxThatTheFirstOfThemOpens)
{
    QPushButton opens;
    layout.addWidget(&opens);
    opens.show();
    opens.setFocus();
    BoxAnswer answer = BoxAnswer::None;
    QObject::connect(&opens, &QPushButton::clicked, [&answer] {
        ScreenMsgBox box;
        answer = box.show({u"t"_s, u"x"_s, BoxIcon::Question, BoxButtons::YesNo});
    });
    SendKeys(u" {RIGHT}~"_s);
    EXPECT_TRUE(eventually([&answer] { return answer != BoxAnswer::None; }));
    EXPECT_EQ(answer, BoxAnswer::No);
}

TEST_F(SendKeysTest, moreExpressionsWithoutMeaning)
{
    const QString deep(100000, u'(');
    for (const QString& bad : {u"{}"_s, u"{F0}"_s, u"{F17}"_s, u"{F+5}"_s, u"{a 1001}"_s, u"{a -1}"_s,
                               u"{ENTERX}"_s, u"a)"_s, deep, QString(100000, u'+') + u"a"_s}) {
        send(bad);
        EXPECT_EQ(first.text(), QString()) << bad.left(20).toStdString();
    }
}

TEST_F(SendKeysTest, aSymbolThatWasMeantForAnotherProgram_typesNothing)
{
    for (const QString& symbol : {u"{FOO}"_s, u"{ENTER 2000}"_s, u"{\"code\":\"4901001000017\",\"lot\":12}"_s,
                                  u"{\"a\": {\"b\": [1, 2]}}"_s, u"{a}{b}{\"c\": 1}"_s,
                                  u"{12345678-9abc-def0-1234-56789abcdef0}"_s}) {
        send(symbol);
        EXPECT_EQ(first.text(), QString()) << symbol.toStdString();
    }
    send(u"{4}{9}"_s);
    EXPECT_EQ(first.text(), u"49"_s);
}

TEST_F(SendKeysTest, countsThatMultiply_fillNoMemory)
{
    send(QString(u"{a 1000}"_s).repeated(200000));
    EXPECT_EQ(first.text(), QString());
}

} // namespace suisui::test
