// What is on no sheet and no reader should send: random values for the dispatch, random bytes for the reading
// of frames. Everything is dispatched, dropped, or a run-time error, and the next value is read whole.
// scripts/fuzz.sh runs it for as long as wanted.
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "barcode/ScanDispatch.h"
#include "platform/core/CodePage.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/ReaderDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Records what reaches the window.
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

/// What the value means, by its first and last character alone.
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

/// The bytes of one frame: any but an end, also not one that the last byte makes with the end that follows.
QByteArray randomFrame(std::mt19937& random, unsigned most)
{
    QByteArray frame;
    for (auto n = random() % most; n > 0; --n)
        frame += random() % 8 == 0 ? "\r\n"[random() % 2] : static_cast<char>(random() % 256);
    frame.replace("\r\n", "..");
    if (frame.isEmpty() || frame.endsWith('\r') || frame.startsWith('\n'))
        frame = "x" + frame + "x";
    return frame;
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
    QStringList wanted;
    for (int i = 0; i < 2000; ++i) {
        const QByteArray frame = randomFrame(random, i % 500 == 499 ? 60000 : 40);
        wanted += QString::fromStdString(fromCp932(frame.toStdString()));
        sent += frame + "\r\n";
    }
    QStringList got;
    const auto read = [&] {
        got += desk.lines();
        return got.size() >= wanted.size();
    };
    while (!sent.isEmpty()) {
        const auto length = std::min<qsizetype>(static_cast<qsizetype>(random() % 700 + 1), sent.size());
        desk.reader.write(sent.first(length));
        sent.remove(0, length);
        (void)read();
    }
    EXPECT_TRUE(eventually(read)) << got.size() << " of " << wanted.size();
    for (qsizetype i = 0; i < std::min(got.size(), wanted.size()); ++i)
        ASSERT_EQ(got.at(i), wanted.at(i)) << "frame " << i;
    EXPECT_EQ(got.size(), wanted.size());
    desk.send("4901001000017\r\n");
    EXPECT_EQ(desk.lines(), QStringList{u"4901001000017"_s});
}

TEST(ScanFuzz, whateverAReaderSends_isHandled_andTheNextCodeIsRead)
{
    ReaderDesk desk;
    (void)desk.barcode.BarCodeInit(&desk.comm);
    std::mt19937 random(printedSeed());
    for (int i = 0; i < 300; ++i) {
        QByteArray bytes;
        for (auto n = random() % 300; n > 0; --n)
            bytes +=
                "\r\n[]{}#@049AE\x81\x82\xfc\xff"[random() % 17]; // ends of lines, brackets, half characters
        desk.send(bytes + "\r\n");
        Notes notes;
        for (const QString& line : desk.lines())
            try {
                MainBarCodeChk(line, notes);
            } catch (const RunTimeError&) {
                ASSERT_FALSE(kindOf(line).isEmpty()) << line.toStdString();
            }
        for (const auto& [kind, text] : notes.seen)
            ASSERT_LE(kind == u"goods" ? text.size() : 0, 16);
        desk.send("4901001000017\r\n");
        ASSERT_EQ(desk.lines(), QStringList{u"4901001000017"_s});
    }
}

TEST(ScanFuzz, readerSettingsThatAreNonsense_openThePort_orAreReportedOnce)
{
    std::mt19937 random(printedSeed());
    const QStringList words{u"9600"_s, u"115200"_s, u"N"_s,     u"e"_s,  u"8"_s,  u"7"_s,
                            u"1"_s,    u"1.5"_s,    u""_s,      u" "_s,  u","_s,  u"-1"_s,
                            u"1e9"_s,  u"0"_s,      u"99999"_s, u"無"_s, u"N,8"_s};
    for (int i = 0; i < 200; ++i) {
        ReaderDesk desk;
        for (QString* item :
             {&desk.settings.commKind, &desk.settings.commPortNo, &desk.settings.commBaud,
              &desk.settings.commParity, &desk.settings.commDataBit, &desk.settings.commStopBit})
            if (random() % 3 != 0)
                *item = words.at(static_cast<qsizetype>(random() % static_cast<unsigned>(words.size())));
        EXPECT_FALSE(desk.barcode.BarCodeInit(&desk.comm));
        ASSERT_EQ(desk.box.shown.size(), desk.comm.portOpen() ? 0U : 1U);
        EXPECT_EQ(desk.barcode.line(), QString());
    }
}

} // namespace suisui::test
