// Restoring a backup: what comes back, what is kept, and which copies are refused.
#include <unistd.h>

#include "platform/core/SingleInstance.h"
#include "tests/support/AsAnotherUser.h"
#include "tests/tools/BackupDesk.h"
#include "tools/BackupFolder.h"

namespace suisui::test {

TEST_F(BackupTest, restore_bringsTheCopyBack_andKeepsWhatWasThere)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    const std::string copy = bytesOf(folder() + first);
    const Texts then = shop.query("SELECT * FROM InpTB");
    receive("A1", "0000001", "20260402090000");
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    const Texts now = shop.query("SELECT * FROM InpTB");
    later(86400);
    ASSERT_EQ(restore(first), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT * FROM InpTB"), then);
    EXPECT_EQ(bytesOf(folder() + first), copy);
    const std::string kept = "trnvik-20260402-090000-replaced.mdb";
    EXPECT_EQ(queryFile(folder() + kept, "SELECT * FROM InpTB"), now);
    EXPECT_NE(listed().find("kept by a restore"), std::string::npos);
    later(1);
    ASSERT_EQ(restore(kept), ToolStatus::Good) << err.str(); // and back again
    EXPECT_EQ(shop.query("SELECT * FROM InpTB"), now);
    EXPECT_FALSE(fs::exists(shop.databaseFile() + ".restored"));
}

TEST_F(BackupTest, restore_ofADamagedDatabase_keepsIt_andPlaysNoJournal)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    const Texts then = shop.query("SELECT * FROM InpTB");
    write(shop.databaseFile(), "no database any more");
    write(shop.databaseFile() + "-journal", "a journal of another file");
    later(60);
    ASSERT_EQ(restore(first), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT * FROM InpTB"), then);
    const std::string kept = folder() + "trnvik-20260401-090100-replaced.mdb";
    EXPECT_EQ(bytesOf(kept), "no database any more");
    EXPECT_FALSE(fs::exists(shop.databaseFile() + "-journal"));
    EXPECT_EQ(restore(fs::path(kept).filename()), ToolStatus::Failed); // it never was a database
}

TEST_F(BackupTest, restore_whereNoDatabaseIs)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    fs::remove_all(shop.databaseFolder());
    ASSERT_EQ(restore(folder() + first), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"15"});
}

TEST_F(BackupTest, restore_isRefused_whileTheProgramRuns)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    const std::string before = bytesOf(shop.databaseFile());
    SingleInstance program(shop.base());
    ASSERT_FALSE(program.prevInstance());
    EXPECT_EQ(restore(first), ToolStatus::Failed);
    EXPECT_NE(err.str().find("the program runs"), std::string::npos) << err.str();
    EXPECT_EQ(bytesOf(shop.databaseFile()), before);
}

TEST_F(BackupTest, restore_ofWhatDoesNotHold_onlyWhenTheOperatorSaysSo)
{
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    ASSERT_EQ(backup(), ToolStatus::Found);
    execute("UPDATE ZaikoTB SET ZaikoSuu='15' WHERE Code='A1'");
    EXPECT_EQ(restore(first), ToolStatus::Failed);
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"15"});
    order.evenUnsound = true;
    later(1);
    EXPECT_EQ(restore(first), ToolStatus::Good);
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"16"});
}

TEST_F(BackupTest, restore_ofAHistoryFile_isRefused_byWhatIsInIt_andByItsName)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    change(first, "DELETE FROM ZaikoTB");
    order.evenUnsound = true;
    expectRefused("is a history file");
    fs::copy_file(shop.databaseFile(), folder() + "RRK20260401-20260430.abc");
    EXPECT_EQ(restore("RRK20260401-20260430.abc"), ToolStatus::Failed);
}

TEST_F(BackupTest, restore_ofACopyWithOtherRulesThanTheProgram_isRefused)
{
    const std::pair<const char*, const char*> changes[] = {
        {"DROP INDEX InpTB_1", "it lacks the unique index of InpTB (InpDate, Code)"},
        {"DROP INDEX TantouTB_1; CREATE INDEX TantouTB_1 ON TantouTB (Code)",
         "it lacks the unique index of TantouTB (Code)"},
        {"CREATE UNIQUE INDEX own ON InpTB (Code)", "it has a unique index of its own, own"},
        {"CREATE TRIGGER t AFTER INSERT ON InpTB BEGIN DELETE FROM OutTB; END",
         "it has a trigger of its own, t"},
        {"CREATE VIEW v AS SELECT * FROM InpTB", "it has a view of its own, v"},
    };
    order.evenUnsound = true; // which only concerns the books
    for (const auto& [sql, words] : changes) {
        ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
        change(first, sql);
        expectRefused(words);
        fs::remove(folder() + first);
    }
}

TEST_F(BackupTest, restore_fromAnotherJournalMode_leavesTheProgramsOwn)
{
    const auto modeOf = [](const std::string& file) { return bytesOf(file).substr(18, 2); };
    const std::string own = modeOf(shop.databaseFile());
    ASSERT_EQ(backup(), ToolStatus::Good);
    change(first, "PRAGMA journal_mode=WAL");
    ASSERT_NE(modeOf(folder() + first), own);
    ASSERT_EQ(restore(first), ToolStatus::Good) << err.str();
    EXPECT_EQ(modeOf(shop.databaseFile()), own);
    EXPECT_EQ(std::distance(fs::directory_iterator(shop.databaseFolder()), {}), 1);
}

TEST_F(BackupTest, restore_whereNobodyCanTellWhetherTheProgramRuns_isRefused)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    const AsAnotherUser another(order.base, {shop.databaseFolder(), folder(), shop.databaseFile(),
                                             folder() + first, folder() + first + ".proof"});
    expectRefused("so nobody can tell whether the program runs in it");
}

TEST_F(BackupTest, restore_onANewComputer_makesTheProgramFolder)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    const std::string copy = folder() + first;
    order.base += "/new/computer";
    ASSERT_EQ(restore(copy), ToolStatus::Good) << err.str();
    EXPECT_EQ(queryFile(order.base + "/DB/trnvik.mdb", "SELECT ZaikoSuu FROM ZaikoTB"), Texts{"15"});
}

TEST_F(BackupTest, restore_ofNoDatabase_leavesEverythingAsItWas)
{
    const std::string before = bytesOf(shop.databaseFile());
    write(order.base + "/letter.txt", "Dear shop");
    order.evenUnsound = true;
    EXPECT_EQ(restore(order.base + "/letter.txt"), ToolStatus::Failed);
    EXPECT_EQ(restore("trnvik-19990101-000000.mdb"), ToolStatus::Failed);
    EXPECT_EQ(bytesOf(shop.databaseFile()), before);
    EXPECT_EQ(files(), Texts{});
    EXPECT_FALSE(fs::exists(shop.databaseFile() + ".restored"));
}

} // namespace suisui::test
