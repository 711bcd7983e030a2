// Values that no sheet carries: thousands of random ones against the dispatch and against the reading of
// frames. Whatever comes, it is dispatched, dropped, or a run-time error, and the next value is read whole.
// For a long run: scanFuzz_test --gtest_repeat=-1 --gtest_break_on_failure, best of a build with the
// sanitizers.
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "barcode/ScanDispatch.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/ReaderDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Notes what reaches the window.
class Notes final : public ScanTarget
{
public:
    void selectTab(int tab) override
    {
        if (tab < 0 || tab > 4)
            throw RunTimeError(RunTimeError::SubscriptOutOfRange, "no such tab");
        note(u"tab"_s, QString::number(tab));
    }
    void GoodsCodeSet(const QString& code) override { note(u"goods"_s, code); }
    void TantouCodeSet(const QString& code) override { note(u"staff"_s, code); }
    void SakiCodeSet(const QString& code) override { note(u"partner"_s, code); }
    void sendKeys(const QString& expression) override { note(u"keys"_s, expression); }
    void MainBarEtc(const QString& function) override { note(u"function"_s, function); }

    std::vector<std::pair<QString, QString>> seen;

private:
    void note(const QString& kind, const QString& text) { seen.emplace_back(kind, text); }
};

QString randomValue(std::mt19937& random)
{
    const QString letters = u"[]{}##@@00123456789ABEUabz*?-+^%~() \t'\"\\\u00e9あｱ漢😀"_s;
    QString value;
    for (auto n = random() % 24; n > 0; --n)
        value += letters[static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size()))];
    const char16_t brackets[][2] = {{u'[', u']'}, {u'{', u'}'}, {u'#', u'#'}, {u'@', u'@'}};
    const auto& pair = brackets[random() % 4];
    if (random() % 2 == 0)
        value.prepend(QChar(pair[0]));
    if (random() % 2 == 0)
        value.append(QChar(pair[1]));
    return value;
}

/// What the value means, told by its first and last character alone.
QString kindOf(const QString& value)
{
    if (value.isEmpty())
        return {};
    const QChar first = value.front();
    const bool closed = value.size() > 1;
    if (first == u'{')
        return value.back() == u'}' ? u"keys"_s : QString();
    if (first == u'[') {
        if (value.back() != u']')
            return {};
        const QString inner = value.mid(1, value.size() - 2);
        return inner >= u"0"_s && inner <= u"4"_s ? u"tab"_s : u"function"_s;
    }
    if (first == u'#')
        return !closed ? u"error"_s : (value.back() == u'#' ? u"partner"_s : QString());
    if (first == u'@')
        return !closed ? u"error"_s : (value.back() == u'@' ? u"staff"_s : QString());
    return value.size() <= 16 ? u"goods"_s : QString();
}

} // namespace

TEST(ScanFuzz, everyValueIsDispatchedDroppedOrAnError)
{
    std::mt19937 random(printedSeed());
    for (int i = 0; i < 50000; ++i) {
        const QString value = randomValue(random);
        Notes notes;
        bool failed = false;
        try {
            MainBarCodeChk(value, notes);
        } catch (const RunTimeError&) {
            failed = true;
        }
        const QString kind = kindOf(value);
        if (failed) {
            ASSERT_TRUE(kind == u"error" || kind == u"tab") << value.toStdString();
            ASSERT_TRUE(notes.seen.empty());
        } else if (kind.isEmpty()) {
            ASSERT_TRUE(notes.seen.empty()) << value.toStdString();
        } else {
            ASSERT_EQ(notes.seen.size(), 1U) << value.toStdString();
            ASSERT_EQ(notes.seen[0].first, kind) << value.toStdString();
        }
    }
}

TEST(ScanFuzz, framesInRandomPieces_comeOutWholeAndInOrder)
{
    ReaderDesk desk;
    (void)desk.barcode.BarCodeInit(&desk.comm);
    std::mt19937 random(printedSeed());
    QByteArray sent;
    std::vector<QByteArray> frames;
    for (int i = 0; i < 2000; ++i) {
        QByteArray frame;
        for (auto n = random() % 40; n > 0; --n)
            frame += static_cast<char>(random() % 256);
        frame.replace("\r\n", "..");
        if (frame.endsWith('\r') || frame.startsWith('\n') || frame.isEmpty())
            frame = "x" + frame + "x";
        frames.push_back(frame);
        sent += frame + "\r\n";
    }
    std::size_t got = 0;
    const auto read = [&] {
        got += static_cast<std::size_t>(desk.lines().size());
        return got >= frames.size();
    };
    while (!sent.isEmpty()) {
        const auto length = std::min<qsizetype>(static_cast<qsizetype>(random() % 700 + 1), sent.size());
        desk.reader.write(sent.first(length));
        sent.remove(0, length);
        (void)read();
    }
    ASSERT_TRUE(eventually(read)) << got << " of " << frames.size();
    EXPECT_EQ(got, frames.size());
    desk.send("4901001000017\r\n");
    EXPECT_EQ(desk.lines(), QStringList{u"4901001000017"_s});
}

} // namespace suisui::test
