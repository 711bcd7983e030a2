// Failures while periods are saved and loaded: afterwards the books are as before, and no partial file is
// left.
#include <sys/stat.h>

#include "platform/core/RunTimeError.h"
#include "tests/history/FaultyDesk.h"
#include "tests/support/HeldFile.h"

namespace suisui::test {

namespace {

const QString writeProtected = QStringLiteral("　　　書き込み禁止になっています。");

/// Breaks as soon as it is asked for the time.
class BrokenClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override
    {
        throw RunTimeError(RunTimeError::InternalError, "no time");
    }
    [[nodiscard]] std::chrono::milliseconds steady() const override { return {}; }
    void letPass(std::chrono::milliseconds /*span*/) override {}
};

} // namespace

TEST(SaveFaults, errorWhenTheRowsHaveLeft_isReported_andBringsThemBack)
{
    FaultyDesk desk;
    BrokenClock clock;
    RirekiDB history(Services{desk.db, desk.ini, clock, desk.box, desk.frame}, desk.prompts,
                     desk.emptyDatabase());
    history.setHistoryExt(QStringLiteral("hst"));
    desk.prompts.periods = {january};
    desk.prompts.places = {{desk.folder(), {}, historyFileName(january, QStringLiteral("hst"))}};
    const Lines before = desk.books();
    EXPECT_EQ(history.save(), RirekiDB::Done);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(QStringLiteral("(Err=51)")));
    EXPECT_FALSE(desk.db.inUnit()) << "the next commit of a screen must not lose the rows";
    desk.db.Commit();
    EXPECT_EQ(desk.books(), before);
    EXPECT_TRUE(desk.files().isEmpty());
    EXPECT_FALSE(desk.frame.waitVisible());
}

TEST(SaveFaults, missingTemplate_isReported_withoutAReason)
{
    FaultyDesk desk;
    ASSERT_EQ(::unlink(desk.emptyDatabase().c_str()), 0);
    desk.expectSaveReports("53", {});
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, folderThatIsGone_isReported)
{
    FaultyDesk desk;
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    desk.expectSaveReports("76", writeProtected);
}

TEST(SaveFaults, folderThatIsAFile_isReported)
{
    FaultyDesk desk;
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    write(desk.folder(), "");
    desk.expectSaveReports("76", writeProtected);
}

TEST(SaveFaults, readOnlyFolder_isReported)
{
    FaultyDesk desk;
    ASSERT_EQ(::chmod(desk.shop->base().toLocal8Bit().constData(), 0755), 0);
    ASSERT_EQ(::chmod(desk.folder().toLocal8Bit().constData(), 0555), 0);
    {
        const PlainUser user;
        ASSERT_TRUE(user.good());
        EXPECT_EQ(desk.save(january), RirekiDB::Done);
    }
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(QStringLiteral("(Err=70)")));
    EXPECT_TRUE(desk.box.shown[0].text.contains(writeProtected));
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"2"});
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, diskWithoutRoomForTheTemplate_isReported)
{
    FaultyDesk desk;
    const SizeLimit limit(20000);
    desk.expectSaveReports("61", QStringLiteral("　　　空き容量が不足しています。"));
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, reportOfTheFileSystem_leavesWhatWasPendingPending)
{
    FaultyDesk desk;
    desk.db.Execute("UPDATE Master SET Unit='x'");
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    EXPECT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_TRUE(desk.db.inUnit());
}

TEST(SaveFaults, diskThatFillsUpOnTheWay_undoesEverything)
{
    FaultyDesk desk;
    const std::string longText(3000, 'x');
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), longText);
    struct stat empty = {};
    ::stat(desk.emptyDatabase().c_str(), &empty);
    const SizeLimit limit(static_cast<rlim_t>(empty.st_size) + 100000);
    desk.expectSaveFails();
}

TEST(SaveFaults, quoteInAnyText_undoesEverything)
{
    for (const bool receipt : {true, false}) {
        FaultyDesk desk;
        if (receipt)
            desk.receipt("A", "0000001", "20260110", "20260110090000", "John's");
        else
            desk.shipment("A", "0000001", "20260110", "20260110090000", "''");
        desk.expectSaveFails();
    }
}

TEST(SaveFaults, numberThatCannotBeRead_undoesEverything)
{
    FaultyDesk desk;
    desk.stock("C", "much", "0");
    desk.expectSaveFails();
}

TEST(SaveFaults, periodThatIsListedAlready_undoesEverything)
{
    FaultyDesk desk;
    desk.shop->add(rirekiTable, {"20260101", "20260131", "hst", "1", "20260301000000"});
    desk.expectSaveFails();
}

TEST(SaveFaults, templateThatHoldsRows_isNotATemplate)
{
    FaultyDesk desk;
    ASSERT_EQ(::unlink(desk.emptyDatabase().c_str()), 0);
    std::filesystem::copy_file(desk.shop->databaseFile(), desk.emptyDatabase());
    desk.expectSaveFails();
}

TEST(SaveFaults, templateThatIsNotADatabase_undoesEverything)
{
    FaultyDesk desk;
    write(QString::fromStdString(desk.emptyDatabase()), "これはデータベースではありません。");
    desk.expectSaveFails();
}

TEST(SaveFaults, workingDatabaseHeldByAnother_undoesEverything)
{
    FaultyDesk desk;
    std::optional<HeldFile> held(std::in_place, *desk.shop);
    desk.expectSaveFails([&held] { held.reset(); });
    EXPECT_EQ(desk.save(january), RirekiDB::Done);
}

TEST(SaveFaults, nameThatIsTakenMeanwhile_isLeftToItsOwner)
{
    FaultyDesk desk;
    write(desk.fileOf(january), "somebody else's");
    desk.expectSaveFails();
    EXPECT_EQ(bytesOf(desk.fileOf(january)), "somebody else's");
}

TEST(SaveFaults, fileOfAKilledProgram_doesNotGetInTheWay)
{
    FaultyDesk desk;
    write(desk.folder() + QStringLiteral("/.RRK20260101-20260131.hst.new"), "half a file");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(desk.files(), QStringList{QStringLiteral("RRK20260101-20260131.hst")});
}

TEST(LoadFaults, fileThatIsGone_keepsItsPlaceOnTheList)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_TRUE(QFile::remove(desk.fileOf(january)));
    desk.expectLoadFails();
    EXPECT_EQ(desk.listed().size(), 1U);
}

TEST(LoadFaults, fileHeldByAnother_canBeLoadedLater)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        const HeldFile held(*desk.shop, desk.fileOf(january).toStdString());
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
}

TEST(LoadFaults, workingDatabaseHeldByAnother_canBeLoadedLater)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        const HeldFile held(*desk.shop);
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
}

TEST(LoadFaults, quoteInAHistoryRow_bringsNothingBack)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        Sqlite engine;
        ASSERT_EQ(engine.open(desk.fileOf(january).toStdString()), 0);
        ASSERT_EQ(engine.execute("UPDATE OutTB SET Bikou='it''s'"), 0);
    }
    desk.expectLoadFails();
}

TEST(LoadFaults, diskThatFillsUpOnTheWay_bringsNothingBack)
{
    FaultyDesk desk;
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), std::string(3000, 'x'));
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    // Other rows take the room that the saved ones have left in the file.
    for (int i = 0; i < 220; ++i)
        desk.receipt("A", "0000001", "20260310", std::to_string(20260310000000 + i), std::string(3000, 'x'));
    struct stat file = {};
    ::stat(desk.shop->databaseFile().c_str(), &file);
    {
        const SizeLimit limit(static_cast<rlim_t>(file.st_size) + 100000);
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"422"});
}

TEST(LoadFaults, fileThatCannotBeDeleted_isLoadedAllTheSame)
{
    FaultyDesk desk;
    const Lines movements = desk.movements();
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(::chmod(desk.shop->base().toLocal8Bit().constData(), 0777), 0);
    ASSERT_EQ(::chmod(desk.shop->databaseFolder().c_str(), 0777), 0);
    for (const char* file : {"", "-journal"})
        ASSERT_EQ(::chmod((desk.shop->databaseFile() + file).c_str(), 0666), 0);
    ASSERT_EQ(::chmod(desk.fileOf(january).toLocal8Bit().constData(), 0666), 0);
    ASSERT_EQ(::chmod(desk.folder().toLocal8Bit().constData(), 0555), 0);
    {
        const PlainUser user;
        ASSERT_TRUE(user.good());
        EXPECT_EQ(desk.load(january), RirekiDB::Done);
    }
    EXPECT_EQ(desk.movements(), movements);
    EXPECT_TRUE(desk.listed().empty());
    EXPECT_TRUE(QFile::exists(desk.fileOf(january)));
}

} // namespace suisui::test
