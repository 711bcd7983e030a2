// Slips that cannot be written or started: the list stays usable and no partial file is left.
#include <csignal>

#include <sys/resource.h>

#include <QDir>

#include "tests/lists/SlipDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_F(Slip, withoutItsProgramLeavesTheScreenUsable)
{
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    EXPECT_TRUE(QFile::exists(csv()));
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(program()));
    expectUsable();
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 3);
}

TEST_F(Slip, intoAFolderThatTakesNoFileStartsNothing)
{
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    for (const QString& folder : {desk.shop.base() + u"/missing"_s, u"/proc/self"_s}) {
        desk.box.shown.clear();
        desk.page->setSlipPlace(slipIni, folder);
        press();
        ASSERT_EQ(desk.box.shown.size(), 1U);
        EXPECT_EQ(desk.box.shown[0].title, u" 「伝票」 印刷"_s);
        EXPECT_EQ(handedOver(u"CustomerCode"_s), u"-"_s);
        expectUsable();
    }
}

TEST_F(Slip, onAFullDisk_keepsTheOldFile_andStartsNothing)
{
    installProgram();
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    ASSERT_TRUE(started());
    QFile::remove(desk.shop.base() + u"/exe/started"_s);
    const auto before = readBack(csv());
    desk.storeMany(300);
    desk.store({{.code = "9", .name = std::string(5000, 'x'), .partner = "102"}});
    desk.search();

    // No file may grow beyond a few bytes, which is like a full disk to the writer.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit room = {};
    getrlimit(RLIMIT_FSIZE, &room);
    const rlimit none{.rlim_cur = 100, .rlim_max = room.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
    press();
    setrlimit(RLIMIT_FSIZE, &room);

    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(readBack(csv()), before);
    EXPECT_EQ(QDir(desk.shop.base() + u"/exe"_s).entryList(QDir::Files).size(), 2)
        << "nothing is left behind";
    EXPECT_FALSE(QFile::exists(desk.shop.base() + u"/exe/started"_s));
    expectUsable();
    press();
    EXPECT_TRUE(started()) << "it works when there is room again";
    EXPECT_EQ(starts(), 2) << "before the disk was full and after it";
}

TEST_F(Slip, whoseSettingsCannotBeWritten_isNotPrintedUnderAnotherName)
{
    installProgram();
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    slipIni.setIniFolder(u"/proc/self"_s);
    press();
    EXPECT_EQ(desk.box.shown.size(), 1U);
    expectUsable();
    slipIni.setIniFolder(desk.shop.base() + u"/Ini"_s);
    press();
    EXPECT_TRUE(started());
    EXPECT_EQ(starts(), 1) << "not with settings that could not be written";
}

} // namespace suisui::test
