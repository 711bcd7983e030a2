// Lines out of the byte stream of a reader: split, joined, broken and endless.
#include "barcode/Barcode.h"

#include <gtest/gtest.h>

#include "platform/core/CodePage.h"
#include "tests/support/ReaderDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class FramesTest : public ::testing::Test
{
protected:
    FramesTest()
    {
        EXPECT_FALSE(desk.barcode.BarCodeInit(&desk.comm));
        EXPECT_TRUE(desk.comm.portOpen());
    }

    /// The line that is read when \a bytes have come since the last one.
    QString look(const QByteArray& bytes = {})
    {
        desk.send(bytes);
        return desk.barcode.line();
    }

    ReaderDesk desk;
};

} // namespace

TEST_F(FramesTest, twoFramesInOneRead_areTwoLooks)
{
    EXPECT_EQ(look("4901\r\n4902\r\n"), u"4901"_s);
    EXPECT_TRUE(desk.barcode.hasLine());
    EXPECT_EQ(look(), u"4902"_s);
    EXPECT_FALSE(desk.barcode.hasLine());
}

TEST_F(FramesTest, aFrameSplitBetweenCrAndLf_isOneLine)
{
    EXPECT_EQ(look("123\r"), QString());
    EXPECT_FALSE(desk.barcode.hasLine());
    EXPECT_EQ(look("\n"), u"123"_s);
}

TEST_F(FramesTest, anEmptyFrameIsUsedUp)
{
    EXPECT_EQ(look("\r\n"), QString());
    EXPECT_FALSE(desk.barcode.hasLine());
    EXPECT_EQ(look("5\r\n"), u"5"_s);
    EXPECT_EQ(look("\r\n\r\n6\r\n"), QString());
    EXPECT_TRUE(desk.barcode.hasLine());
    EXPECT_EQ(look(), QString());
    EXPECT_EQ(look(), u"6"_s);
}

TEST_F(FramesTest, aLoneCrOrLf_belongsToTheLine)
{
    EXPECT_EQ(look("A\nB\r\n"), u"A\nB"_s);
    EXPECT_EQ(look("A\rB\r\n"), u"A\rB"_s);
    EXPECT_EQ(look("\n\rC\r\r\n"), u"\n\rC\r"_s);
    EXPECT_EQ(look("\r"), QString());
    EXPECT_EQ(look("x\n"), QString());
    EXPECT_EQ(look("\r\n"), u"\rx\n"_s);
}

TEST_F(FramesTest, charactersThatComeOneByOne_areALineWithTheLast)
{
    for (const char* one : {"A", "B", "\r"}) {
        EXPECT_EQ(look(one), QString());
        EXPECT_FALSE(desk.barcode.hasLine());
    }
    EXPECT_EQ(look("\n"), u"AB"_s);
}

TEST_F(FramesTest, whatHasNoEnd_isTheFrontOfTheNextLine)
{
    EXPECT_EQ(look("49"), QString());
    EXPECT_EQ(look("4901\r\n"), u"494901"_s);
}

TEST_F(FramesTest, threeFramesCutAtAnyTwoPlaces_areThreeLines)
{
    const QByteArray stream = "4901001000017\r\n[E]\r\n#101#\r\n";
    const QStringList expected{u"4901001000017"_s, u"[E]"_s, u"#101#"_s};
    for (qsizetype first = 0; first <= stream.size(); ++first)
        for (qsizetype second = first; second <= stream.size(); ++second) {
            QStringList lines;
            for (const QByteArray& piece :
                 {stream.first(first), stream.sliced(first, second - first), stream.sliced(second)}) {
                desk.send(piece);
                lines += desk.lines();
            }
            ASSERT_EQ(lines, expected) << "cut at " << first << " and " << second;
        }
}

TEST_F(FramesTest, twoThousandFramesInPiecesOfAnySize_comeOnceAndInOrder)
{
    const std::uint32_t seed = printedSeed();
    std::mt19937 random(seed);
    const QString signs = u"0123456789AZaz[]{}#@ \r\n\\～－①入荷ｱｲﾞ"_s;
    QStringList expected;
    QByteArray stream;
    while (expected.size() < 2000) {
        QString text = QString::number(expected.size());
        for (auto length = random() % 20; length > 0; --length)
            text += signs[random() % signs.size()];
        if (text.contains(u"\r\n"_s))
            continue;
        stream += QByteArray::fromStdString(toCp932(text.toStdString()).value()) + "\r\n";
        expected += text;
    }
    QStringList lines;
    while (!stream.isEmpty()) {
        const qsizetype piece = std::min<qsizetype>(stream.size(), 1 + random() % 64);
        desk.reader.write(stream.first(piece));
        stream = stream.sliced(piece);
        if (random() % 3 == 0)
            QCoreApplication::processEvents();
        for (auto looks = random() % 4; looks > 0; --looks)
            if (const QString line = desk.barcode.line(); !line.isEmpty())
                lines += line;
    }
    EXPECT_TRUE(eventually([&] { return (lines += desk.lines()).size() >= expected.size(); }));
    EXPECT_EQ(lines.size(), expected.size()) << "seed " << seed;
    for (qsizetype i = 0; i < std::min(lines.size(), expected.size()); ++i)
        ASSERT_EQ(lines[i].toStdString(), expected[i].toStdString()) << "seed " << seed << ", frame " << i;
    EXPECT_FALSE(desk.barcode.hasLine());
}

TEST_F(FramesTest, aMegabyteWithoutAnEnd_isALineWhenItsEndComes)
{
    QByteArray expected;
    while (expected.size() < 1024 * 1024) {
        const QByteArray piece = QByteArray::number(expected.size()).rightJustified(1000, '.') + '\r';
        desk.send(piece);
        expected += piece;
        ASSERT_EQ(desk.barcode.line(), QString());
        ASSERT_FALSE(desk.barcode.hasLine());
    }
    EXPECT_EQ(look("\r\nnext\r\n"), QString::fromLatin1(expected));
    EXPECT_EQ(look(), u"next"_s);
}

TEST_F(FramesTest, bytesThatAreNotText_spoilNothingElse)
{
    EXPECT_EQ(look("\xFF\xFE"
                   "4901\x81\r\n4902\r\n"),
              u"\uFFFD\uFFFD4901\uFFFD"_s);
    EXPECT_EQ(look(), u"4902"_s);
    EXPECT_EQ(look(QByteArray("4\0"
                              "9\r\n",
                              5)),
              QString::fromLatin1("4\0"
                                  "9",
                                  3));
}

TEST_F(FramesTest, textIsOfTheJapaneseCodePage_andAsciiAsItIs)
{
    EXPECT_EQ(look("\x93\xFC\x89\xD7\x81\x60\x81\x7C\x87\x40\xB1\r\n"), u"入荷～－①ｱ"_s);
    EXPECT_EQ(look("{ENTER}~\\|\r\n"), u"{ENTER}~\\|"_s);
    EXPECT_EQ(look("\x95\x5C\r"), QString()); // its second byte is a backslash
    EXPECT_EQ(look("\n"), u"表"_s);
}

} // namespace suisui::test
