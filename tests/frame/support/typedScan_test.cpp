// Scans of a reader that types, distinguished from a person's typing.
#include "frame/support/TypedScan.h"

#include <functional>
#include <map>

#include <gtest/gtest.h>

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include "frame/support/FormGate.h"
#include "platform/widgets/SendKeys.h"
#include "platform/widgets/vaSpread.h"
#include "tests/frame/support/Rhythms.h"
#include "tests/support/Eventually.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr int quantityColumn = 2;
constexpr SpreadColumn columns[] = {{.heading = "名称", .type = CellType::Text},
                                    {.heading = "数量", .type = CellType::Number, .digits = 7}};

class TypedScanTest : public ::testing::Test
{
protected:
    TypedScanTest()
    {
        auto* layout = new QVBoxLayout(&form);
        for (QWidget* each : std::initializer_list<QWidget*>{&code, &other, &grid, &list, &button})
            layout->addWidget(each);
        grid.setColumns(columns);
        grid.setMaxRows(2);
        grid.SetText(quantityColumn, 1, std::string_view("12"));
        list.addItems({u"1 一"_s, u"4 四"_s});
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    void key(const QString& text, int gap, Qt::Key named = Qt::Key_unknown)
    {
        time += static_cast<quint64>(gap);
        const int number =
            named != Qt::Key_unknown ? static_cast<int>(named) : int{text[0].toUpper().unicode()};
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, number, Qt::NoModifier, text);
            event.setTimestamp(time);
            QCoreApplication::sendEvent(form.windowHandle(), &event);
        }
    }
    void send(QEvent::Type type, const Stroke& stroke, quint64 at, bool repeat)
    {
        const int number =
            stroke.key == u'\r' ? int{Qt::Key_Return} : int{QChar(stroke.key).toUpper().unicode()};
        QKeyEvent event(type, number, Qt::NoModifier, QString(QChar(stroke.key)), repeat);
        event.setTimestamp(at);
        QCoreApplication::sendEvent(form.windowHandle(), &event);
    }
    /// Presses and releases in the order in which the hands make them.
    void play(const std::vector<Stroke>& strokes)
    {
        time += 1000;
        std::multimap<quint64, std::function<void()>> events;
        for (std::size_t i = 0; i < strokes.size(); ++i) {
            const Stroke& stroke = strokes[i];
            time += static_cast<quint64>(stroke.gap);
            const quint64 up = time + static_cast<quint64>(stroke.held);
            const bool goesOn = i + 1 < strokes.size() && strokes[i + 1].repeat;
            events.emplace(time, [=, this, at = time] { send(QEvent::KeyPress, stroke, at, stroke.repeat); });
            events.emplace(up, [=, this] { send(QEvent::KeyRelease, stroke, up, goesOn); });
        }
        for (const auto& [at, event] : events)
            event();
    }
    void type(const QString& text, int gap)
    {
        for (const QChar c : text)
            c == u'\n' ? key(u"\r"_s, gap, Qt::Key_Return) : key(QString(c), gap);
    }
    /// Lets the pause run out that tells a person from a reader.
    void pause()
    {
        const qsizetype length = other.text().size();
        EXPECT_TRUE(eventually([&] { return other.text().size() != length; }));
    }

    QWidget form;
    QLineEdit code;
    QLineEdit other;
    vaSpread grid;
    QComboBox list;
    QPushButton button;
    QStringList scans;
    quint64 time = 1000;
    TypedScan typed{form, [this] { return code.hasFocus(); }, [this](const QString& text) { scans << text; }};
};

} // namespace

TEST_F(TypedScanTest, burstOfACode_isAScan_andLeavesNoTrace_whereverTheFocusIs)
{
    grid.SetActiveCell(quantityColumn, 1);
    for (QWidget* focus : std::initializer_list<QWidget*>{&other, &grid, &list, &button}) {
        focus->setFocus();
        scans.clear();
        QSignalSpy changes(&grid, &vaSpread::Change);
        QSignalSpy clicks(&button, &QPushButton::clicked);
        type(u"4901001000017\n"_s, 5);
        EXPECT_EQ(scans, QStringList{u"4901001000017"_s});
        EXPECT_EQ(other.text(), QString());
        EXPECT_FALSE(grid.isEditing());
        EXPECT_EQ(grid.text(quantityColumn, 1), "12");
        EXPECT_EQ(list.currentIndex(), 0);
        EXPECT_EQ(changes.size() + clicks.size(), 0);
    }
}

TEST_F(TypedScanTest, bracketedTexts_areScansAtAnyLength_inTheCodeFieldToo)
{
    for (QWidget* focus : std::initializer_list<QWidget*>{&other, &code}) {
        focus->setFocus();
        for (const QString& text : {u"[E]"_s, u"{TAB}"_s, u"#101#"_s, u"@01@"_s}) {
            scans.clear();
            type(text + u'\n', 10);
            EXPECT_EQ(scans, QStringList{text});
        }
        EXPECT_EQ(code.text() + other.text(), QString());
    }
}

TEST_F(TypedScanTest, plainCodeInTheCodeField_endsThereByItself)
{
    code.setFocus();
    QSignalSpy ended(&code, &QLineEdit::returnPressed);
    type(u"4901001000017\n"_s, 5);
    EXPECT_TRUE(scans.isEmpty());
    EXPECT_EQ(code.text(), u"4901001000017"_s);
    EXPECT_EQ(ended.size(), 1);
}

TEST_F(TypedScanTest, aPersonsTyping_arrivesWhole)
{
    other.setFocus();
    type(u"12345678901\n"_s, 120);
    EXPECT_TRUE(scans.isEmpty());
    EXPECT_EQ(other.text(), u"12345678901"_s);
    other.clear();
    type(u"[E]\n"_s, 60);
    EXPECT_TRUE(scans.isEmpty());
    EXPECT_EQ(other.text(), u"[E]"_s);
}

TEST_F(TypedScanTest, shortBursts_arrive_withTheirEnter)
{
    other.setFocus();
    QSignalSpy ended(&other, &QLineEdit::returnPressed);
    type(u"12\n"_s, 5);
    EXPECT_TRUE(scans.isEmpty());
    EXPECT_EQ(other.text(), u"12"_s);
    EXPECT_EQ(ended.size(), 1);
    other.clear();
    type(u"[E\n"_s, 5);
    EXPECT_EQ(other.text(), u"[E"_s);
    other.clear();
    type(u"["_s, 5);
    type(u"\n"_s, 5);
    EXPECT_EQ(other.text(), u"["_s);
}

TEST_F(TypedScanTest, codesOfAnyLength_areScans_atTheSpeedOfAReader)
{
    const struct
    {
        QString code;
        int gap;
        bool scan;
    } cases[] = {{u"12"_s, 1, false},
                 {u"A-1"_s, 1, true},
                 {u"A-1"_s, 24, true},
                 {u"A-1"_s, 25, false},
                 {u"SET-01"_s, 8, true},
                 {u"1234567"_s, 24, true},
                 {u"12345"_s, 40, false},
                 {u"SET-01"_s, 40, true},
                 {u"SET-01"_s, 59, true},
                 {u"SET-01"_s, 60, false},
                 {u"1234567"_s, 45, true},
                 {u"4901001000017"_s, 59, true},
                 {u"4901001000017"_s, 60, false},
                 {u"[E]"_s, 45, true},
                 {u"@01@"_s, 59, true}};
    for (const auto& each : cases) {
        other.setFocus();
        other.clear();
        scans.clear();
        play(readersScan(each.code, each.gap));
        EXPECT_EQ(scans, each.scan ? QStringList{each.code} : QStringList())
            << each.code.toStdString() << " at " << each.gap;
        EXPECT_EQ(other.text(), each.scan ? QString() : each.code) << each.code.toStdString();
    }
}

TEST_F(TypedScanTest, aLateEnter_endsTyping)
{
    other.setFocus();
    for (const auto& [text, gap, end] : {std::tuple{u"1234"_s, 5, 25}, {u"123456"_s, 5, 60}}) {
        other.clear();
        std::vector<Stroke> strokes = readersScan(text, gap);
        strokes.back().gap = end;
        play(strokes);
        EXPECT_TRUE(scans.isEmpty());
        EXPECT_EQ(other.text(), text);
    }
}

TEST_F(TypedScanTest, whatPersonsType_isNeverTakenAway)
{
    other.setFocus();
    for (const Rhythm& rhythm : personsRhythms) {
        other.clear();
        const QSignalSpy ended(&other, &QLineEdit::returnPressed);
        play(rhythm.strokes);
        QString text;
        for (const Stroke& stroke : rhythm.strokes)
            if (stroke.key != u'\r')
                text += QChar(stroke.key);
        EXPECT_EQ(other.text(), text) << rhythm.what;
        EXPECT_EQ(ended.size(), 1) << rhythm.what;
        EXPECT_TRUE(scans.isEmpty()) << rhythm.what;
    }
}

TEST_F(TypedScanTest, sixThousandEntriesOfFastTypists_areAllTheirs)
{
    std::mt19937 random(printedSeed());
    other.setFocus();
    for (const double wordsAMinute : {80.0, 120.0, 160.0}) {
        for (int i = 0; i < 2000; ++i) {
            other.clear();
            const int characters = 1 + static_cast<int>(random() % 8);
            play(personsEntry(random, wordsAMinute, characters));
            ASSERT_EQ(other.text().size(), characters);
        }
    }
    EXPECT_TRUE(scans.isEmpty());
}

TEST_F(TypedScanTest, ofTypingThatGoesOn_onlyTheFirstCharacterIsHeld)
{
    other.setFocus();
    type(u"1"_s, 1000);
    EXPECT_EQ(other.text(), QString());
    type(u"2"_s, 90);
    EXPECT_EQ(other.text(), u"12"_s);
    for (int i = 0; i < 5; ++i) {
        type(u"3"_s, 20);
        EXPECT_EQ(other.text().size(), 3 + i) << "at once";
    }
    type(u"\n"_s, 20);
    EXPECT_TRUE(scans.isEmpty());
    type(u"4901001000017\n"_s, 5); // an Enter ends it
    EXPECT_EQ(scans, QStringList{u"4901001000017"_s});
}

TEST_F(TypedScanTest, aZeroThatComesAsARepeat_belongsToItsCode)
{
    other.setFocus();
    play({{u'1', 0, 0}, {u'0', 1, 0}, {u'0', 0, 0, true}, {u'7', 1, 0}, {u'\r', 1, 0}});
    EXPECT_EQ(scans, QStringList{u"1007"_s});
    EXPECT_EQ(other.text(), QString());
}

TEST_F(TypedScanTest, keysWithoutAnEnd_arriveAfterAMoment)
{
    other.setFocus();
    type(u"1234567890"_s, 5);
    EXPECT_EQ(other.text(), QString());
    pause();
    EXPECT_EQ(other.text(), u"1234567890"_s);
    type(u"\n"_s, 500);
    EXPECT_TRUE(scans.isEmpty());
}

TEST_F(TypedScanTest, aSlowKeyInTheMiddle_makesItTyping)
{
    other.setFocus();
    type(u"490100"_s, 5);
    type(u"1"_s, 100);
    type(u"000017\n"_s, 5);
    EXPECT_TRUE(scans.isEmpty());
    EXPECT_EQ(other.text(), u"4901001000017"_s);
}

TEST_F(TypedScanTest, keysThatTypeNothing_endTheHolding_inOrder)
{
    other.setFocus();
    type(u"abc"_s, 5);
    key(QString(), 5, Qt::Key_Left);
    EXPECT_EQ(other.text(), u"abc"_s);
    EXPECT_EQ(other.cursorPosition(), 2);
    type(u"d"_s, 5);
    pause();
    EXPECT_EQ(other.text(), u"abdc"_s);
}

TEST_F(TypedScanTest, textWithoutAnEnd_isHeldNoFurtherThanAScanCanBeLong)
{
    other.setMaxLength(100000);
    other.setFocus();
    type(QString(5000, u'7'), 1);
    EXPECT_EQ(other.text().size(), 5000);
    time += 1000;
    type(u"4901001000017\n"_s, 5);
    EXPECT_EQ(scans, QStringList{u"4901001000017"_s});
}

TEST_F(TypedScanTest, keysThatTheProgramTypes_areNotScans)
{
    other.setFocus();
    SendKeys(u"[E]12345678~"_s);
    EXPECT_TRUE(eventually([this] { return other.text() == u"[E]12345678"; }));
    EXPECT_TRUE(scans.isEmpty());
}

TEST_F(TypedScanTest, spaceOnAButton_stillPressesIt)
{
    button.setFocus();
    QSignalSpy clicks(&button, &QPushButton::clicked);
    key(u" "_s, 500, Qt::Key_Space);
    EXPECT_TRUE(eventually([&clicks] { return clicks.size() == 1; }));
    EXPECT_FALSE(button.isDown());
}

TEST_F(TypedScanTest, openChoice_closesForAScan)
{
    list.setFocus();
    list.showPopup();
    type(u"4901001000017\n"_s, 5);
    EXPECT_EQ(scans, QStringList{u"4901001000017"_s});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(list.currentIndex(), 0);
}

TEST(TypedScanGate, scansTakeTheirTurn_afterHeldKeys)
{
    QWidget form;
    QLineEdit field(&form);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    field.setFocus();
    FormGate gate(&form);
    gate.setEnabled(false);
    QTest::keyClick(&field, 'a');
    gate.scanned(u"4901001000017"_s);
    QTest::keyClick(&field, 'b');
    EXPECT_EQ(gate.takeScan(), QString());
    gate.setEnabled(true);
    EXPECT_TRUE(eventually([&gate] { return gate.hasScan(); }));
    EXPECT_EQ(field.text(), u"a"_s) << "what was typed after the scan waits for it";
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), u"a"_s);
    EXPECT_EQ(gate.takeScan(), u"4901001000017"_s);
    EXPECT_TRUE(eventually([&field] { return field.text() == u"ab"; }));
    gate.scanned(u"x"_s);
    EXPECT_TRUE(eventually([&gate] { return gate.hasScan(); }));
    EXPECT_EQ(gate.takeScan(), u"x"_s);
}

} // namespace suisui::test
