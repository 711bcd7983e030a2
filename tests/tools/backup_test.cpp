// Backups: a copy of a database in use, its proof, its name, which copies go, and the way back.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sqlite3.h>
#include <unistd.h>

#include "platform/core/SingleInstance.h"
#include "store/BackupNote.h"
#include "tests/support/AsAnotherUser.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"
#include "tools/Backup.h"
#include "tools/BackupFolder.h"

namespace suisui::test {

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

std::string bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class BackupTest : public ::testing::Test
{
protected:
    BackupTest()
    {
        order.base = shop.base().toStdString();
        shop.add(zaikoTable, {"A1", "15", "10", "20260401090000", "20260401090000"});
        receive("A1", "0000005", "20260401090000");
    }

    void receive(const std::string& code, const std::string& quantity, const std::string& stamp) const
    {
        shop.add(inpTable, {code, "りんご", "", quantity, "0000100", "", "", "20260401", "090000", "個",
                            "0000000", "0000000", "", "", "", stamp, stamp});
    }
    [[nodiscard]] ToolStatus backup() { return backupShop(order, clock, out, err); }
    [[nodiscard]] ToolStatus restore(const std::string& name)
    {
        return restoreShop(order, name, clock, out, err);
    }
    [[nodiscard]] std::string listed()
    {
        std::ostringstream text;
        status = listBackups(order, text, err);
        return text.str();
    }
    [[nodiscard]] std::string folder() const { return order.base + "/backup/"; }
    /// Everything in the folder of the copies, sorted.
    [[nodiscard]] Texts files() const
    {
        Texts names;
        for (const auto& entry : fs::directory_iterator(folder()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    void later(int seconds) { clock.setNow(clock.now().addSecs(seconds)); }
    void execute(const std::string& sql) const
    {
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), 0);
        db.Execute(sql);
        ASSERT_EQ(db.LastStatus(), 0) << db.LastErrText();
        db.Commit();
    }

    /// Does \a sql to a copy, behind the back of the store's connection.
    void change(const std::string& name, const std::string& sql) const
    {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open((folder() + name).c_str(), &db), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
        sqlite3_close(db);
        fs::remove(folder() + name + ".proof"); // a copy from elsewhere has none
    }
    /// A restore of the first copy is refused with these words, and nothing has changed.
    void expectRefused(const std::string& words)
    {
        const std::string before = bytesOf(shop.databaseFile());
        err.str({});
        EXPECT_EQ(restore(first), ToolStatus::Failed);
        EXPECT_NE(err.str().find(words), std::string::npos) << err.str();
        EXPECT_EQ(bytesOf(shop.databaseFile()), before);
        EXPECT_FALSE(fs::exists(shop.databaseFile() + ".restored"));
    }
    [[nodiscard]] BackupNote note() const { return BackupNote(shop.base()); }

    static constexpr const char* first = "trnvik-20260401-090000.mdb";

    TempShop shop;
    TestClock clock;
    BackupOrder order;
    std::ostringstream out;
    std::ostringstream err;
    ToolStatus status = ToolStatus::Failed;
};

} // namespace

TEST_F(BackupTest, copyHasTheDateInItsName_allRows_andIsProved)
{
    ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
    EXPECT_EQ(files(), (Texts{first, std::string(first) + ".proof"}));
    for (const char* sql : {"SELECT * FROM InpTB", "SELECT * FROM ZaikoTB"})
        EXPECT_EQ(queryFile(folder() + first, sql), shop.query(sql));
    EXPECT_NE(listed().find(std::string(first) + "  "), std::string::npos);
    EXPECT_NE(listed().find("proved, 1 stock figures\n"), std::string::npos) << listed();
    EXPECT_EQ(status, ToolStatus::Good);
}

TEST_F(BackupTest, twoCopiesOfOneSecond_haveNamesOfTheirOwn_inOrder)
{
    for (int i = 0; i < 11; ++i)
        ASSERT_EQ(backup(), ToolStatus::Good);
    const auto copies = BackupFolder(folder()).copies();
    ASSERT_EQ(copies.size(), 11U);
    EXPECT_EQ(copies[1].name, "trnvik-20260401-090000-2.mdb");
    EXPECT_EQ(copies[10].name, "trnvik-20260401-090000-11.mdb");
}

TEST_F(BackupTest, pendingWritesOfTheProgram_areNotInTheCopy_andAreStoredAfterwards)
{
    AppDB program(shop.databaseFolder());
    ASSERT_EQ(program.Open("trnvik.mdb"), 0);
    program.Execute("UPDATE ZaikoTB SET ZaikoSuu='99' WHERE Code='A1'");
    ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
    program.Commit();
    EXPECT_EQ(program.LastStatus(), 0);
    EXPECT_EQ(queryFile(folder() + first, "SELECT ZaikoSuu FROM ZaikoTB"), Texts{"15"});
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"99"});
}

TEST_F(BackupTest, whileTheDatabaseIsHeldStill_readsSeeOneState_andAWriterWaits)
{
    AppDB held(shop.databaseFolder());
    AppDB program(shop.databaseFolder());
    ASSERT_EQ(program.Open("trnvik.mdb"), 0);
    ASSERT_EQ(held.OpenStill(shop.databaseFile()), 0);
    program.Execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    program.Commit();
    EXPECT_NE(program.LastStatus(), 0);
    EXPECT_TRUE(program.LastWasBusy());
    EXPECT_EQ(held.ZaikoTbl().CountRows("WHERE ZaikoSuu='15'"), 1);
    held.Rollback();
    program.Commit(); // the unit is still whole
    EXPECT_EQ(program.LastStatus(), 0);
    EXPECT_EQ(held.ZaikoTbl().CountRows("WHERE ZaikoSuu='16'"), 1);
}

TEST_F(BackupTest, databaseThatAnotherProcessLocks_isWaitedFor_thenRefused_withNothingLeft)
{
    AppDB other(shop.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), 0);
    ASSERT_EQ(other.OpenRecordset("PRAGMA locking_mode=EXCLUSIVE"), 0);
    other.CloseRecordset();
    other.Execute("UPDATE ZaikoTB SET ZaikoSuu='15'");
    other.Commit();
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("another program holds"), std::string::npos) << err.str();
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(BackupTest, booksThatDoNotHold_areKeptAndNamed_andDoNotPushAProvedCopyOut)
{
    order.keep = 1;
    ASSERT_EQ(backup(), ToolStatus::Good);
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    for (int i = 0; i < 3; ++i) {
        later(60);
        EXPECT_EQ(backup(), ToolStatus::Found);
    }
    EXPECT_NE(out.str().find("stock of A1 is 16, its movements make 15"), std::string::npos);
    EXPECT_EQ(BackupFolder(folder()).copies().size(), 2U); // the proved one and the newest of the others
    EXPECT_NE(listed().find("its books have 1 problems"), std::string::npos);
    EXPECT_TRUE(fs::exists(folder() + first));
    EXPECT_EQ(status, ToolStatus::Good);
}

TEST_F(BackupTest, stockIsProvedWithComponents_carriedOverStock_andReturns)
{
    shop.add(hseihinTable, {"SET", "", "A1", "2"});
    shop.add(zaikoTable, {"SET", "4", "1", "20260401090000", "20260401090000"});
    shop.add(inpTable, {"SET", "", "", "0000004", "0000000", "", "", "20260401", "090001", "", "0000000",
                        "0000001", "", "", "", "20260401090001", "20260401090001"});
    EXPECT_EQ(backup(), ToolStatus::Found); // three sets have come in, so six are missing of A1
    execute("UPDATE ZaikoTB SET ZaikoSuu='9' WHERE Code='A1'");
    later(1);
    EXPECT_EQ(backup(), ToolStatus::Good) << out.str();
}

TEST_F(BackupTest, aCopyThatChangesLater_isToldOf_andIsNotRestored)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    std::string bytes = bytesOf(folder() + first);
    bytes[bytes.size() - 1] ^= 1;
    write(folder() + first, bytes);
    EXPECT_NE(listed().find("NOT TO BE USED"), std::string::npos);
    EXPECT_EQ(status, ToolStatus::Found);
    EXPECT_EQ(restore(first), ToolStatus::Failed);
    EXPECT_NE(err.str().find("has changed since it was proved"), std::string::npos);
}

TEST_F(BackupTest, aCopyWithoutItsNote_isNotCalledProved)
{
    EXPECT_NE(listed().find("0 proved copies"), std::string::npos);
    EXPECT_EQ(status, ToolStatus::Found);
    ASSERT_EQ(backup(), ToolStatus::Good);
    fs::remove(folder() + first + ".proof");
    EXPECT_NE(listed().find("not proved"), std::string::npos);
    EXPECT_EQ(status, ToolStatus::Found);
}

TEST_F(BackupTest, oldestGoFirst_withTheirNotes_andOthersFilesStay)
{
    order.keep = 3;
    fs::create_directories(folder());
    write(folder() + "trnvik.mdb", "the shop's own");
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(backup(), ToolStatus::Good);
        later(86400);
    }
    EXPECT_EQ(files(),
              (Texts{"trnvik-20260403-090000.mdb", "trnvik-20260403-090000.mdb.proof",
                     "trnvik-20260404-090000.mdb", "trnvik-20260404-090000.mdb.proof",
                     "trnvik-20260405-090000.mdb", "trnvik-20260405-090000.mdb.proof", "trnvik.mdb"}));
    EXPECT_NE(out.str().find("removed trnvik-20260402-090000.mdb\n"), std::string::npos);
}

TEST_F(BackupTest, dateSetBack_theNewCopyIsNotTheOneThatGoes)
{
    order.keep = 2;
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(backup(), ToolStatus::Good);
        later(86400);
    }
    later(-30 * 86400);
    ASSERT_EQ(backup(), ToolStatus::Good);
    const auto copies = BackupFolder(folder()).copies();
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(copies[0].stamp, "20260304-090000");
    EXPECT_EQ(copies[1].stamp, "20260402-090000");
}

TEST_F(BackupTest, soManyCopiesStay_ofAllSortsTogether_andTheLastProvedOneAmongThem)
{
    order.keep = 3;
    ASSERT_EQ(backup(), ToolStatus::Good);
    later(60);
    ASSERT_EQ(restore(first), ToolStatus::Good) << err.str(); // leaves a copy of what was there
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    for (int i = 0; i < 6; ++i) {
        later(60);
        ASSERT_EQ(backup(), ToolStatus::Found);
        EXPECT_LE(BackupFolder(folder()).copies().size(), 3U);
    }
    const auto copies = BackupFolder(folder()).copies();
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[0].name, "trnvik-20260401-090100-replaced.mdb") << "proved, when it was replaced";
    EXPECT_EQ(copies[1].stamp, "20260401-090600");
    EXPECT_EQ(copies[2].stamp, "20260401-090700");
}

TEST_F(BackupTest, copiesOfOneSecond_neverTakeTheNameOfOneThatWent)
{
    order.keep = 2;
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(backup(), ToolStatus::Good);
    const auto copies = BackupFolder(folder()).copies();
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(copies[0].number, 4);
    EXPECT_EQ(copies[1].number, 5);
}

TEST_F(BackupTest, aDailyRunThatFails_isNotedWithTheReason_untilOneIsGood)
{
    ASSERT_EQ(backupShop(order, clock, out, err), ToolStatus::Good);
    EXPECT_FALSE(note().read());
    order.daily = true;
    order.folder = shop.databaseFile(); // a file in the place of the folder
    EXPECT_EQ(backup(), ToolStatus::Failed);
    auto failed = note().read();
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->when, clock.now());
    EXPECT_EQ(failed->why.toStdString(), shop.databaseFile() + "：フォルダではありません");
    EXPECT_FALSE(failed->advice.isEmpty());
    order.folder.clear();
    later(86400);
    EXPECT_EQ(backup(), ToolStatus::Good);
    EXPECT_FALSE(note().read());
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    EXPECT_EQ(backup(), ToolStatus::Found);
    failed = note().read();
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->why.toStdString(), "写しは作りましたが、在庫数と記録の合わないところが 1 件あります。");
    note().clear();
    order.daily = false; // somebody watches
    EXPECT_EQ(backup(), ToolStatus::Found);
    EXPECT_FALSE(note().read());
}

TEST_F(BackupTest, aDamagedDatabase_isNamedAsSuch_inTheNoteAsWell)
{
    order.daily = true;
    write(shop.databaseFile(), "no database any more");
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("the database is damaged"), std::string::npos) << err.str();
    ASSERT_TRUE(note().read());
    EXPECT_EQ(note().read()->why, QStringLiteral("データベースが壊れています"));
    EXPECT_EQ(note().read()->advice, QStringLiteral("バックアップから 復元して下さい。"));
}

TEST_F(BackupTest, aNoteThatLostItsWordsOnAFullDisk_stillSaysWhen)
{
    write(order.base + "/backup-failed.txt", "");
    const auto failed = note().read();
    ASSERT_TRUE(failed);
    EXPECT_TRUE(failed->when.isValid());
    EXPECT_TRUE(failed->why.contains(QStringLiteral("空き容量")));
}

TEST_F(BackupTest, aDailyRunWithoutADatabase_hasNothingToDo_andMakesNothing)
{
    order.daily = true;
    order.base += "/nobody";
    EXPECT_EQ(backup(), ToolStatus::Good) << err.str();
    EXPECT_FALSE(fs::exists(order.base));
    order.daily = false;
    EXPECT_EQ(backup(), ToolStatus::Failed);
}

TEST_F(BackupTest, whatAKilledRunHasLeft_isNoCopy_andGoes)
{
    fs::create_directories(folder());
    write(folder() + "copy.part", "half");
    write(folder() + "proof.part", "half");
    write(folder() + "trnvik-20260331-090000.mdb.proof", "a note whose copy never got its name");
    write(folder() + "letter.proof", "the shop's own");
    EXPECT_EQ(listed().find("copy.part"), std::string::npos);
    ASSERT_EQ(backup(), ToolStatus::Good);
    EXPECT_EQ(files(), (Texts{"letter.proof", first, std::string(first) + ".proof"}));
}

TEST_F(BackupTest, secondRunAtTheSameTime_isRefused)
{
    fs::create_directories(folder());
    const int other = ::open(folder().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("another backup or restore is at work"), std::string::npos);
    ::close(other);
    EXPECT_EQ(backup(), ToolStatus::Good);
}

TEST_F(BackupTest, noDatabase_orNoFolder_isToldOf)
{
    order.folder = shop.databaseFile(); // a file
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("no backup was made"), std::string::npos);
    fs::remove(shop.databaseFile());
    order.folder.clear();
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("cannot read"), std::string::npos) << err.str();
}

TEST_F(BackupTest, restore_bringsTheCopyBack_keepsWhatWasThere_andLeavesTheCopyAsItIs)
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

TEST_F(BackupTest, restore_ofADamagedDatabase_keepsItAsItWas_andNoJournalIsPlayedIntoTheNewFile)
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
    order.evenUnsound = true; // which is about the books alone
    for (const auto& [sql, words] : changes) {
        ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
        change(first, sql);
        expectRefused(words);
        fs::remove(folder() + first);
    }
}

TEST_F(BackupTest, restore_ofACopyInAnotherJournalMode_leavesTheFileInTheProgramsOwn)
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
