// The serial port, at a real pseudo-terminal.
#include "platform/core/MSComm.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/core/RunTimeError.h"
#include "tests/support/Eventually.h"
#include "tests/support/Pty.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

template <typename Action> RunTimeError::Number errorOf(Action action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return {};
}

constexpr RunTimeError::Number noError{};

class MSCommTest : public ::testing::Test
{
protected:
    [[nodiscard]] bool arrived(qint64 bytes)
    {
        return eventually([&] { return comm.inBufferCount() >= bytes; });
    }

    Pty reader;
    QString device = reader.device();
    MSComm comm{[this](int) { return device; }};
};

} // namespace

TEST_F(MSCommTest, beginsAsTheScreenWasDrawn)
{
    EXPECT_EQ(comm.commPort(), 1);
    EXPECT_EQ(comm.settings(), u"9600,N,8,1"_s);
    EXPECT_FALSE(comm.portOpen());
    EXPECT_EQ(comm.inBufferCount(), 0);
    EXPECT_EQ(comm.input(), QByteArray());
}

TEST_F(MSCommTest, settingsOfFourGoodItemsAreTaken)
{
    for (const QString& good : {u"9600,N,8,1"_s, u"1200,e,7,2"_s, u"115200,O,5,1.5"_s, u"19200,M,6,1"_s,
                                u"300,s,8,1"_s, u" 9600 , N , 8 , 1 "_s}) {
        EXPECT_EQ(errorOf([&] { comm.setSettings(good); }), noError) << good.toStdString();
        EXPECT_EQ(comm.settings(), good);
    }
}

TEST_F(MSCommTest, settingsWithAnythingElseAreRefused_andTheOldOnesStay)
{
    for (const QString& bad : {u""_s,
                               u","_s,
                               u",,,"_s,
                               u"9600"_s,
                               u"9600,N,8"_s,
                               u"9600,N,8,1,"_s,
                               u"9600,N,8,1,1"_s,
                               u",N,8,1"_s,
                               u"x,N,8,1"_s,
                               u"0,N,8,1"_s,
                               u"-9600,N,8,1"_s,
                               u"9600.5,N,8,1"_s,
                               u"99999999999,N,8,1"_s,
                               u"9600,,8,1"_s,
                               u"9600,X,8,1"_s,
                               u"9600,NN,8,1"_s,
                               u"9600,N,,1"_s,
                               u"9600,N,4,1"_s,
                               u"9600,N,9,1"_s,
                               u"9600,N,8,"_s,
                               u"9600,N,8,0"_s,
                               u"9600,N,8,3"_s,
                               u"9600,N,8,1.0"_s,
                               u"９６００,N,8,1"_s}) {
        EXPECT_EQ(errorOf([&] { comm.setSettings(bad); }), RunTimeError::InvalidPropertyValue)
            << bad.toStdString();
        EXPECT_EQ(comm.settings(), u"9600,N,8,1"_s);
    }
}

TEST_F(MSCommTest, portNumbersGoFrom1To16384)
{
    for (const int good : {1, 2, 16384}) {
        comm.setCommPort(good);
        EXPECT_EQ(comm.commPort(), good);
    }
    for (const int bad : {0, -1, 16385}) {
        EXPECT_EQ(errorOf([&] { comm.setCommPort(bad); }), RunTimeError::InvalidPortNumber) << bad;
        EXPECT_EQ(comm.commPort(), 16384);
    }
}

TEST_F(MSCommTest, opensTheDeviceOfItsPortNumber)
{
    int asked = 0;
    MSComm third([&](int port) {
        asked = port;
        return device;
    });
    third.setCommPort(3);
    third.setPortOpen(true);
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(third.portOpen());
}

TEST_F(MSCommTest, opensWithEverySettingOfAReader)
{
    for (const QString& settings : {u"1200,E,7,1"_s, u"9600,O,7,2"_s, u"38400,N,8,2"_s, u"115200,N,8,1"_s}) {
        comm.setSettings(settings);
        EXPECT_EQ(errorOf([&] { comm.setPortOpen(true); }), noError) << settings.toStdString();
        comm.setPortOpen(false);
    }
}

TEST_F(MSCommTest, aSymbolicLinkOpens)
{
    const QTemporaryDir folder;
    device = folder.path() + u"/reader"_s;
    ASSERT_TRUE(QFile::link(reader.device(), device));
    comm.setPortOpen(true);
    reader.write("4901\r\n");
    ASSERT_TRUE(arrived(6));
    EXPECT_EQ(comm.input(), "4901\r\n");
}

TEST_F(MSCommTest, aDeviceThatIsMissing_orNone_doesNotOpen)
{
    const QTemporaryDir folder;
    QFile file(folder.path() + u"/file"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QString& bad : {folder.path() + u"/missing"_s, file.fileName(), folder.path(), QString()}) {
        device = bad;
        EXPECT_EQ(errorOf([this] { comm.setPortOpen(true); }), RunTimeError::DeviceError)
            << bad.toStdString();
        EXPECT_FALSE(comm.portOpen());
    }
    device = reader.device();
    comm.setPortOpen(true); // and nothing of it sticks
    EXPECT_TRUE(comm.portOpen());
}

TEST_F(MSCommTest, aDeviceInUseDoesNotOpen_untilItIsLetGo)
{
    MSComm other([this](int) { return device; });
    other.setPortOpen(true);
    EXPECT_EQ(errorOf([this] { comm.setPortOpen(true); }), RunTimeError::DeviceError);
    EXPECT_FALSE(comm.portOpen());
    other.setPortOpen(false);
    comm.setPortOpen(true);
    EXPECT_TRUE(comm.portOpen());
}

TEST_F(MSCommTest, anOpenPort_isNotOpenedOrRenumbered_aClosedOneNotWritten)
{
    EXPECT_EQ(errorOf([this] { comm.setPortOpen(false); }), RunTimeError::PortNotOpen);
    EXPECT_EQ(errorOf([this] { comm.output("x"); }), RunTimeError::PortNotOpen);
    EXPECT_EQ(errorOf([this] { comm.clearInBuffer(); }), RunTimeError::PortNotOpen);
    comm.setPortOpen(true);
    EXPECT_EQ(errorOf([this] { comm.setPortOpen(true); }), RunTimeError::PortAlreadyOpen);
    EXPECT_EQ(errorOf([this] { comm.setCommPort(2); }), RunTimeError::PortAlreadyOpen);
    EXPECT_TRUE(comm.portOpen());
}

TEST_F(MSCommTest, oneReadTakesEverythingThatIsWaiting)
{
    comm.setPortOpen(true);
    reader.write("4901");
    ASSERT_TRUE(arrived(4));
    reader.write(QByteArray("\r\n\0\xFF", 4));
    ASSERT_TRUE(arrived(8));
    EXPECT_EQ(comm.input(), QByteArray("4901\r\n\0\xFF", 8));
    EXPECT_EQ(comm.inBufferCount(), 0);
    EXPECT_EQ(comm.input(), QByteArray());
}

TEST_F(MSCommTest, everyByteValuePassesAsItIs)
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    comm.setPortOpen(true);
    reader.write(bytes);
    ASSERT_TRUE(arrived(256));
    EXPECT_EQ(comm.input(), bytes);
}

TEST_F(MSCommTest, whatNobodyReads_pilesUpWithoutLoss)
{
    QByteArray scans;
    for (int i = 0; i < 20000; ++i)
        scans += QByteArray::number(4901000000000 + i) + "\r\n";
    comm.setPortOpen(true);
    reader.write(scans);
    ASSERT_TRUE(arrived(scans.size()));
    EXPECT_EQ(comm.input(), scans);
}

TEST_F(MSCommTest, settingTheCountToZeroDropsWhatIsWaiting_andNothingLater)
{
    comm.setPortOpen(true);
    reader.write("before");
    ASSERT_TRUE(arrived(6));
    comm.clearInBuffer();
    EXPECT_EQ(comm.inBufferCount(), 0);
    reader.write("after");
    ASSERT_TRUE(arrived(5));
    EXPECT_EQ(comm.input(), "after");
}

TEST_F(MSCommTest, whatIsWrittenReachesTheReader)
{
    comm.setPortOpen(true);
    comm.output("\x1B"
                "Z\r");
    QByteArray got;
    EXPECT_TRUE(eventually([&] { return (got += reader.read()).size() >= 3; }));
    EXPECT_EQ(got, "\x1B"
                   "Z\r");
}

TEST_F(MSCommTest, anUnpluggedReader_closesThePort_andIsReportedOnce)
{
    int losses = 0;
    QObject::connect(&comm, &MSComm::deviceLost, &comm, [&losses] { ++losses; });
    comm.setPortOpen(true);
    reader.hangUp();
    ASSERT_TRUE(eventually([&] { return losses > 0; }));
    EXPECT_FALSE(comm.portOpen());
    for (int i = 0; i < 100; ++i) {
        QCoreApplication::processEvents();
        EXPECT_EQ(comm.inBufferCount(), 0);
        EXPECT_EQ(comm.input(), QByteArray());
    }
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(errorOf([this] { comm.output("x"); }), RunTimeError::PortNotOpen);
    EXPECT_EQ(errorOf([this] { comm.setPortOpen(false); }), noError); // not the caller's mistake
    EXPECT_EQ(errorOf([this] { comm.setPortOpen(false); }), RunTimeError::PortNotOpen);
}

TEST_F(MSCommTest, whatCameBeforeTheReaderWasUnplugged_isStillReadOnce)
{
    comm.setPortOpen(true);
    reader.write("4901\r\n");
    ASSERT_TRUE(arrived(6));
    reader.hangUp();
    ASSERT_TRUE(eventually([&] { return !comm.portOpen(); }));
    EXPECT_EQ(comm.inBufferCount(), 6);
    EXPECT_EQ(comm.input(), "4901\r\n");
    EXPECT_EQ(comm.inBufferCount(), 0);
    EXPECT_EQ(comm.input(), QByteArray());
}

TEST_F(MSCommTest, afterTheLossOfAReader_anotherOneOpens)
{
    comm.setPortOpen(true);
    reader.write("old");
    ASSERT_TRUE(arrived(3));
    reader.hangUp();
    ASSERT_TRUE(eventually([&] { return !comm.portOpen(); }));
    Pty next;
    device = next.device();
    comm.setPortOpen(true);
    EXPECT_EQ(comm.inBufferCount(), 0);
    next.write("new");
    ASSERT_TRUE(arrived(3));
    EXPECT_EQ(comm.input(), "new");
}

} // namespace suisui::test
