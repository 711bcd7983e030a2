// The serial reader: opening, failing, reading and closing.
#include "barcode/Barcode.h"

#include <optional>

#include <gtest/gtest.h>

#include "platform/core/DoEvents.h"
#include "platform/core/RunTimeError.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/ReaderDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class BarcodeTest : public ::testing::Test
{
protected:
    void open()
    {
        EXPECT_FALSE(desk.barcode.BarCodeInit(&desk.comm));
        ASSERT_TRUE(desk.comm.portOpen());
        ASSERT_TRUE(desk.box.shown.empty());
    }

    /// The failure is shown once and to the letter, with no wait window over it, and the reader is off.
    void expectFailure()
    {
        desk.box.onShow = [this](const Box&) { desk.happened.emplace_back("box"); };
        EXPECT_FALSE(desk.barcode.BarCodeInit(&desk.comm));
        EXPECT_EQ(desk.happened, (std::vector<std::string>{"unload", "box"}));
        expectOneBox(
            desk.box,
            {.title = u"通信ポート(COM) 未設定"_s,
             .text =
                 u"【基本情報 登録】 バーコード設定画面で\r\n通信ポート(COM)を正しく設定して下さい。\r\n\r\n設定を行うまで、バーコードはご使用になれません。　　　"_s,
             .icon = BoxIcon::Stop});
        EXPECT_FALSE(desk.barcode.hasLine());
        EXPECT_EQ(desk.barcode.line(), QString());
        EXPECT_EQ(desk.box.shown.size(), 1U);
    }

    ReaderDesk desk;
};

struct BadSetting
{
    QString ReaderSettings::*item;
    QString value;
};

} // namespace

TEST_F(BarcodeTest, opensThePortOfTheSettings)
{
    desk.settings = {u"1"_s, u"12"_s, u"19200"_s, u"E"_s, u"7"_s, u"2"_s};
    open();
    EXPECT_EQ(desk.comm.commPort(), 12);
    EXPECT_EQ(desk.asked, 12);
    EXPECT_EQ(desk.comm.settings(), u"19200,E,7,2"_s);
    EXPECT_TRUE(desk.happened.empty());
}

TEST_F(BarcodeTest, nothingIsRead_beforeThePortIsOpen)
{
    EXPECT_FALSE(desk.barcode.hasLine());
    EXPECT_EQ(desk.barcode.line(), QString());
    EXPECT_TRUE(desk.barcode.CommRead().isEmpty());
}

TEST_F(BarcodeTest, everyBadSetting_isReportedOnce_andTheReaderIsDead)
{
    const BadSetting bad[] = {
        {&ReaderSettings::commKind, u"x"_s},       {&ReaderSettings::commKind, u"32768"_s},
        {&ReaderSettings::commPortNo, u""_s},      {&ReaderSettings::commPortNo, u"COM3"_s},
        {&ReaderSettings::commPortNo, u"0"_s},     {&ReaderSettings::commPortNo, u"-1"_s},
        {&ReaderSettings::commPortNo, u"16385"_s}, {&ReaderSettings::commPortNo, u"40000"_s},
        {&ReaderSettings::commBaud, u""_s},        {&ReaderSettings::commBaud, u"fast"_s},
        {&ReaderSettings::commBaud, u"9600,N"_s},  {&ReaderSettings::commParity, u""_s},
        {&ReaderSettings::commParity, u"X"_s},     {&ReaderSettings::commDataBit, u""_s},
        {&ReaderSettings::commDataBit, u"9"_s},    {&ReaderSettings::commStopBit, u""_s},
        {&ReaderSettings::commStopBit, u"3"_s},
    };
    const ReaderSettings good = desk.settings;
    for (const BadSetting& setting : bad) {
        desk.settings = good;
        desk.settings.*setting.item = setting.value;
        desk.happened.clear();
        desk.box.shown.clear();
        expectFailure();
        EXPECT_FALSE(desk.comm.portOpen()) << setting.value.toStdString();
    }
}

TEST_F(BarcodeTest, aKindThatIsNotSet_harmsNothing)
{
    desk.settings.commKind.clear();
    open();
    desk.send("4901\r\n");
    EXPECT_EQ(desk.lines(), QStringList{u"4901"_s});
}

TEST_F(BarcodeTest, aMissingDevice_isReported)
{
    desk.device = u"/dev/no such reader"_s;
    expectFailure();
}

TEST_F(BarcodeTest, aPortInUse_isReported)
{
    MSComm other([this](int) { return desk.reader.device(); });
    other.setPortOpen(true);
    expectFailure();
    other.setPortOpen(false);
}

TEST_F(BarcodeTest, settingsThatCannotBeRead_areReported)
{
    std::vector<std::string> happened;
    Barcode barcode([]() -> ReaderSettings { throw RunTimeError(RunTimeError::FileNotFound, "AppEnv.ini"); },
                    desk.box, [&happened] { happened.emplace_back("unload"); });
    EXPECT_FALSE(barcode.BarCodeInit(&desk.comm));
    EXPECT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(happened.size(), 1U);
    EXPECT_EQ(barcode.line(), QString());
}

TEST_F(BarcodeTest, afterAFailedOpening_neitherReadsNorTheEnd_touchThePort)
{
    std::optional<Barcode> barcode;
    barcode.emplace([this] { return desk.settings; }, desk.box, [] {});
    desk.settings.commParity = u"X"_s;
    EXPECT_FALSE(barcode->BarCodeInit(&desk.comm));

    desk.comm.setPortOpen(true); // as if somebody else opened it
    desk.send("4901001000017\r\n");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(barcode->line(), QString());
        EXPECT_FALSE(barcode->hasLine());
    }
    EXPECT_EQ(desk.comm.inBufferCount(), 15);
    barcode.reset();
    EXPECT_TRUE(desk.comm.portOpen());
    EXPECT_EQ(desk.box.shown.size(), 1U);
}

TEST_F(BarcodeTest, bytesFromBeforeTheOpeningAreDropped_laterOnesKept)
{
    desk.reader.write("4900000000000\r\n49");
    open();
    EXPECT_FALSE(desk.barcode.hasLine());
    desk.send("4901001000017\r\n");
    EXPECT_EQ(desk.lines(), QStringList{u"4901001000017"_s});
}

TEST_F(BarcodeTest, scansOfALongOperationWait_andComeOneAtATime)
{
    open();
    desk.send("A\r\nB\r\nC\r\nD\r\n");
    EXPECT_TRUE(desk.barcode.hasLine());
    for (const QString& line : {u"A"_s, u"B"_s, u"C"_s, u"D"_s}) {
        EXPECT_TRUE(desk.barcode.hasLine());
        EXPECT_EQ(desk.barcode.line(), line);
    }
    EXPECT_FALSE(desk.barcode.hasLine());
    EXPECT_EQ(desk.barcode.line(), QString());
}

TEST_F(BarcodeTest, aByteOnThePortEndsTheSleepOfTheMainLoop)
{
    open();
    bool overslept = false;
    QTimer rescue;
    QObject::connect(&rescue, &QTimer::timeout, &rescue, [&overslept] { overslept = true; });
    rescue.start(std::chrono::seconds(30));
    desk.reader.write("4901\r\n");
    QString line;
    while (line.isEmpty() && !overslept) {
        if (!desk.barcode.hasLine())
            DoEventsOrWait();
        line = desk.barcode.line();
    }
    EXPECT_EQ(line, u"4901"_s);
}

TEST_F(BarcodeTest, theEndClosesThePort_andAnotherProgramMayHaveIt)
{
    std::optional<Barcode> barcode;
    barcode.emplace([this] { return desk.settings; }, desk.box, [] {});
    EXPECT_FALSE(barcode->BarCodeInit(&desk.comm));
    ASSERT_TRUE(desk.comm.portOpen());
    barcode.reset();
    EXPECT_FALSE(desk.comm.portOpen());
    MSComm other([this](int) { return desk.device; });
    other.setPortOpen(true);
    EXPECT_TRUE(other.portOpen());
}

TEST_F(BarcodeTest, afterCommClose_nothingIsReadOrWritten_norClosedAgain)
{
    open();
    desk.send("4901\r\n");
    desk.barcode.CommClose();
    EXPECT_FALSE(desk.comm.portOpen());
    EXPECT_FALSE(desk.barcode.hasLine());
    EXPECT_EQ(desk.barcode.line(), QString());
    EXPECT_FALSE(desk.barcode.CommWrite(u"x"_s));
    desk.barcode.CommClose();
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_F(BarcodeTest, whatIsWrittenGoesOutInTheCodePage)
{
    open();
    desk.barcode.write(u"Z\rｱ入"_s);
    QByteArray sent;
    EXPECT_TRUE(eventually([&] { return (sent += desk.reader.read()).size() >= 5; }));
    EXPECT_EQ(sent, "Z\r\xB1\x93\xFC");
}

TEST_F(BarcodeTest, anUnpluggedReader_endsTheScans_notTheProgram)
{
    open();
    int losses = 0;
    QObject::connect(&desk.comm, &MSComm::deviceLost, &desk.comm, [&losses] { ++losses; });
    desk.send("4901\r\n4902\r\n49");
    desk.reader.hangUp();
    ASSERT_TRUE(eventually([&] { return losses > 0; }));
    EXPECT_EQ(desk.lines(), (QStringList{u"4901"_s, u"4902"_s})); // what was scanned before counts
    for (int i = 0; i < 100; ++i) {
        DoEvents();
        EXPECT_FALSE(desk.barcode.hasLine());
        EXPECT_EQ(desk.barcode.line(), QString());
    }
    EXPECT_EQ(losses, 1);
    EXPECT_FALSE(desk.barcode.CommWrite(u"x"_s));
    desk.barcode.CommClose();
    EXPECT_TRUE(desk.box.shown.empty());
}

} // namespace suisui::test
