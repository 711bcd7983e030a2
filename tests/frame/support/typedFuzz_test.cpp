// Random typing of persons and readers, in any mixture and at any speed, while the window is enabled and
// disabled under it. Every key comes out once and in order, as a key of the control or as part of a scan, and
// a scan is just what the rule of the burst calls one. scripts/fuzz.sh runs it for as long as wanted.
#include <functional>
#include <random>

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include "frame/support/FormGate.h"
#include "frame/support/TypedScan.h"
#include "platform/widgets/ReaderPace.h"
#include "platform/widgets/SendKeys.h"
#include "tests/support/Eventually.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr char16_t enter = u'\r';
constexpr char16_t arrow = u'\x1'; ///< stands for a key that types nothing

struct TypedKey
{
    char16_t character;
    int gap; ///< milliseconds since the key before
};

/// Everything that was typed from \a first up to, but without, \a last.
QString textOf(const std::vector<TypedKey>& keys, std::size_t first, std::size_t last)
{
    QString text;
    for (std::size_t i = first; i < last; ++i)
        text += QChar(keys[i].character);
    return text;
}

bool bracketed(const QString& text)
{
    if (text.size() < 2)
        return false;
    const QString ends = QString(text.front()) + text.back();
    return ends == u"[]" || ends == u"{}" || ends == u"##" || ends == u"@@";
}

/// Whether \a text, typed with no longer gaps than \a longestGap and no two keys down at once, is a scan.
bool isScan(const QString& text, int longestGap)
{
    return bracketed(text) || text.size() >= TypedScan::fewestSlowCharacters
           || (text.size() >= TypedScan::fewestCharacters && longestGap < readerGapMs);
}

/// Where the rule sees scans outside the code field: place of the first character, and of the Enter.
std::vector<std::pair<std::size_t, std::size_t>> scansOf(const std::vector<TypedKey>& keys)
{
    std::vector<std::pair<std::size_t, std::size_t>> scans;
    std::size_t begin = 0;
    int longestGap = 0;
    bool typing = false; // the window has got characters, and what follows belongs to them
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i > begin && keys[i].gap >= slowReaderGapMs)
            typing = true;
        if (keys[i].gap >= TypedScan::pauseMs || i == begin) {
            begin = i;
            longestGap = 0;
            typing = false;
        } else {
            longestGap = std::max(longestGap, keys[i].gap);
        }
        if (keys[i].character != enter && keys[i].character != arrow)
            continue;
        const QString text = textOf(keys, begin, i);
        if (keys[i].character == enter && !typing && isScan(text, longestGap))
            scans.emplace_back(begin, i);
        begin = i + 1;
    }
    return scans;
}

class TypedFuzz : public ::testing::Test
{
protected:
    TypedFuzz()
    {
        auto* layout = new QVBoxLayout(&form);
        for (QLineEdit* field : {&code, &other}) {
            layout->addWidget(field);
            field->installEventFilter(this->recorder.get());
        }
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    /// Bursts of readers, typing of persons, and neither.
    std::vector<TypedKey> randomKeys(int count)
    {
        const QString letters = u"0123456789ABCabc[]{}#@ -*"_s;
        std::vector<TypedKey> keys;
        while (static_cast<int>(keys.size()) < count) {
            const int speed = std::array{1, 5, 24, 25, 59, 60, 120, 400}[random() % 8];
            const bool mixed = random() % 4 == 0;
            const auto length = random() % 20;
            const QString brackets =
                std::array{u"[]"_s, u"{}"_s, u"##"_s, u"@@"_s, u""_s, u""_s}[random() % 6];
            QString text = brackets.left(1);
            for (auto n = length; n > 0; --n)
                text += letters[static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size()))];
            text += brackets.right(1);
            if (random() % 8 == 0)
                text.insert(static_cast<qsizetype>(random() % static_cast<unsigned>(text.size() + 1)),
                            QChar(arrow));
            if (random() % 4 != 0)
                text += QChar(enter);
            for (const QChar c : text)
                keys.push_back({c.unicode(), mixed ? std::array{5, 25, 59, 60, 250}[random() % 5] : speed});
        }
        return keys;
    }

    void press(const TypedKey& key)
    {
        time += static_cast<quint64>(key.gap);
        const int number = key.character == enter   ? int{Qt::Key_Return}
                           : key.character == arrow ? int{Qt::Key_Left}
                                                    : int{QChar(key.character).toUpper().unicode()};
        const QString text = key.character == arrow ? QString() : QString(QChar(key.character));
        if (QChar(key.character).isUpper())
            send(QEvent::KeyPress, Qt::Key_Shift, {});
        send(QEvent::KeyPress, number, text);
        send(QEvent::KeyRelease, number, text);
        if (QChar(key.character).isUpper())
            send(QEvent::KeyRelease, Qt::Key_Shift, {});
    }
    void send(QEvent::Type type, int number, const QString& text)
    {
        QKeyEvent event(type, number, Qt::NoModifier, text);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(form.windowHandle(), &event);
    }
    void takeScan()
    {
        if (!gate.hasScan())
            return;
        const auto at = static_cast<std::size_t>(came.size());
        const QString value = gate.takeScan();
        came += value + QChar(enter);
        scans.emplace_back(at, static_cast<std::size_t>(came.size()) - 1);
    }
    /// Types \a keys; the window is disabled and enabled meanwhile as a busy program does it.
    void type(const std::vector<TypedKey>& keys)
    {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            press(keys[i]);
            if (random() % 40 == 0 || i % 400 == 0)
                gate.setEnabled(!gate.enabled() || i % 400 == 0);
            // The real clock may run only where the typing pauses as well.
            if (i + 1 < keys.size() && keys[i + 1].gap >= slowReaderGapMs && random() % 4 == 0) {
                QCoreApplication::processEvents();
                takeScan();
            }
        }
        gate.setEnabled(true);
        (void)eventually(
            [&] {
                takeScan();
                return came.size() >= static_cast<qsizetype>(keys.size());
            },
            std::chrono::seconds(10));
    }

    /// Types what nobody would, behind a pause and with nothing come yet, and returns it.
    std::vector<TypedKey> typeRandomKeys()
    {
        came.clear();
        scans.clear();
        std::vector<TypedKey> keys = randomKeys(1200);
        keys.front().gap = 1000;
        type(keys);
        return keys;
    }

    /// Keeps what the fields get.
    struct Recorder : QObject
    {
        explicit Recorder(QString& to) : text(to) {}
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::KeyPress)
                return false;
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (key.key() != Qt::Key_Shift)
                text += key.text().isEmpty() ? QChar(arrow) : key.text().front();
            return true;
        }
        QString& text;
    };

    std::mt19937 random{printedSeed()};
    QString came; ///< every key, in the order in which it had an effect
    std::vector<std::pair<std::size_t, std::size_t>> scans;
    std::unique_ptr<Recorder> recorder = std::make_unique<Recorder>(came);
    QWidget form;
    QLineEdit code;
    QLineEdit other;
    quint64 time = 1000;
    FormGate gate{&form};
    TypedScan typed{form, [this] { return gate.enabled() && gate.heldKeys() == 0 && code.hasFocus(); },
                    [this](const QString& text) { gate.scanned(text); }};
};

} // namespace

TEST_F(TypedFuzz, outsideTheCodeField_scansAreTheBursts_andEveryKeyArrivesOnce)
{
    other.setFocus();
    for (int round = 0; round < 6; ++round) {
        const std::vector<TypedKey> keys = typeRandomKeys();
        ASSERT_EQ(came.toStdString(), textOf(keys, 0, keys.size()).toStdString());
        ASSERT_EQ(scans, scansOf(keys));
        EXPECT_GE(scans.size(), 5U);
    }
}

TEST_F(TypedFuzz, inTheCodeField_scansAreBracketed_andEveryKeyArrivesOnce)
{
    code.setFocus();
    for (int round = 0; round < 6; ++round) {
        const std::vector<TypedKey> keys = typeRandomKeys();
        ASSERT_EQ(came.toStdString(), textOf(keys, 0, keys.size()).toStdString());
        // A busy window makes the code field one that cannot end a code by itself.
        const auto possible = scansOf(keys);
        for (const auto& scan : scans) {
            EXPECT_NE(std::find_if(possible.begin(), possible.end(),
                                   [&](const auto& each) {
                                       return each.second == scan.second && each.first <= scan.first;
                                   }),
                      possible.end());
        }
    }
}

TEST(SendKeysFuzz, anExpressionIsTypedOrDropped_andNothingStays)
{
    QLineEdit field;
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    std::mt19937 random(printedSeed());
    const QStringList pieces{u"{"_s,        u"}"_s,     u"("_s,        u")"_s,      u"+"_s,
                             u"^"_s,        u"%"_s,     u"~"_s,        u"a"_s,      u" "_s,
                             u"{F5}"_s,     u"{TAB}"_s, u"{LEFT 3}"_s, u"9"_s,      u"{{}"_s,
                             u"{}}"_s,      u"あ"_s,    u"😀"_s,        u"{BS 0}"_s, u"{x -1}"_s,
                             u"[E]"_s,      u"\t"_s,    u"{FOO}"_s,    u"{}"_s,     u"{ENTER 2000}"_s,
                             u"{\"a\":1}"_s};
    for (int i = 0; i < 3000; ++i) {
        QString expression;
        for (auto n = random() % 12; n > 0; --n)
            expression += pieces.at(static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size())));
        ASSERT_NO_THROW(SendKeys(expression)) << expression.toStdString();
        if (i % 50 == 0)
            QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    field.setFocus();
    field.clear();
    SendKeys(u"4901"_s);
    EXPECT_TRUE(eventually([&field] { return field.text() == u"4901"; })) << field.text().toStdString();
}

} // namespace suisui::test
