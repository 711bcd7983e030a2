// Backups: a copy of a database in use, its verification, its name, and which copies are removed.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "tests/support/AsAnotherUser.h"
#include "tests/tools/BackupDesk.h"
#include "tools/BackupFolder.h"

namespace suisui::test {

TEST_F(BackupTest, copyHasTheDateInItsName_allRows_andIsVerified)
{
    ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
    EXPECT_EQ(files(), (Texts{first, std::string(first) + ".proof"}));
    for (const char* sql : {"SELECT * FROM InpTB", "SELECT * FROM ZaikoTB"})
        EXPECT_EQ(queryFile(folder() + first, sql), shop.query(sql));
    EXPECT_NE(listed().find(std::string(first) + "  "), std::string::npos);
    EXPECT_NE(listed().find("verified, 1 stock figures\n"), std::string::npos) << listed();
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

TEST_F(BackupTest, pendingWrites_areNotInTheCopy_andAreStoredAfterwards)
{
    AppDB program(shop.databaseFolder());
    ASSERT_EQ(program.Open("trnvik.mdb"), DbStatus::Good);
    program.Execute("UPDATE ZaikoTB SET ZaikoSuu='99' WHERE Code='A1'");
    ASSERT_EQ(backup(), ToolStatus::Good) << err.str();
    program.Commit();
    EXPECT_EQ(program.LastStatus(), DbStatus::Good);
    EXPECT_EQ(queryFile(folder() + first, "SELECT ZaikoSuu FROM ZaikoTB"), Texts{"15"});
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"99"});
}

TEST_F(BackupTest, duringASnapshot_readsSeeOneState_andAWriterWaits)
{
    AppDB held(shop.databaseFolder());
    AppDB program(shop.databaseFolder());
    ASSERT_EQ(program.Open("trnvik.mdb"), DbStatus::Good);
    ASSERT_EQ(held.OpenStill(shop.databaseFile()), DbStatus::Good);
    program.Execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    program.Commit();
    EXPECT_EQ(program.LastStatus(), DbStatus::Busy);
    EXPECT_EQ(held.ZaikoTbl().CountRows("WHERE ZaikoSuu='15'"), 1);
    held.Rollback();
    program.Commit(); // the unit is still whole
    EXPECT_EQ(program.LastStatus(), DbStatus::Good);
    EXPECT_EQ(held.ZaikoTbl().CountRows("WHERE ZaikoSuu='16'"), 1);
}

TEST_F(BackupTest, lockedDatabase_isWaitedFor_thenRefused_withNothingLeft)
{
    AppDB other(shop.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), DbStatus::Good);
    ASSERT_EQ(other.OpenRecordset("PRAGMA locking_mode=EXCLUSIVE"), DbStatus::Good);
    other.CloseRecordset();
    other.Execute("UPDATE ZaikoTB SET ZaikoSuu='15'");
    other.Commit();
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("another program holds"), std::string::npos) << err.str();
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(BackupTest, booksThatDoNotHold_areKept_andPushNoVerifiedCopyOut)
{
    order.keep = 1;
    ASSERT_EQ(backup(), ToolStatus::Good);
    execute("UPDATE ZaikoTB SET ZaikoSuu='16' WHERE Code='A1'");
    for (int i = 0; i < 3; ++i) {
        later(60);
        EXPECT_EQ(backup(), ToolStatus::Found);
    }
    EXPECT_NE(out.str().find("stock of A1 is 16, its movements make 15"), std::string::npos);
    EXPECT_EQ(BackupFolder(folder()).copies().size(), 2U); // the verified one and the newest of the others
    EXPECT_NE(listed().find("its books have 1 problems"), std::string::npos);
    EXPECT_TRUE(fs::exists(folder() + first));
    EXPECT_EQ(status, ToolStatus::Good);
}

TEST_F(BackupTest, stockIsVerified_withComponents_carriedStock_andReturns)
{
    shop.add(hseihinTable, {"SET", "", "A1", "2"});
    shop.add(zaikoTable, {"SET", "4", "1", "20260401090000", "20260401090000"});
    shop.add(inpTable, {"SET", "", "", "0000004", "0000000", "", "", "20260401", "090001", "", "0000000",
                        "0000001", "", "", "", "20260401090001", "20260401090001"});
    EXPECT_EQ(backup(), ToolStatus::Found); // three sets have come in, so six of A1 are missing
    execute("UPDATE ZaikoTB SET ZaikoSuu='9' WHERE Code='A1'");
    later(1);
    EXPECT_EQ(backup(), ToolStatus::Good) << out.str();
}

TEST_F(BackupTest, aCopyThatChangesLater_isReported_andIsNotRestored)
{
    ASSERT_EQ(backup(), ToolStatus::Good);
    std::string bytes = bytesOf(folder() + first);
    bytes[bytes.size() - 1] ^= 1;
    write(folder() + first, bytes);
    EXPECT_NE(listed().find("NOT TO BE USED"), std::string::npos);
    EXPECT_EQ(status, ToolStatus::Found);
    EXPECT_EQ(restore(first), ToolStatus::Failed);
    EXPECT_NE(err.str().find("has changed since it was verified"), std::string::npos);
}

TEST_F(BackupTest, aCopyWithoutItsNote_isNotCalledVerified)
{
    EXPECT_NE(listed().find("0 verified copies"), std::string::npos);
    EXPECT_EQ(status, ToolStatus::Found);
    ASSERT_EQ(backup(), ToolStatus::Good);
    fs::remove(folder() + first + ".proof");
    EXPECT_NE(listed().find("not verified"), std::string::npos);
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

TEST_F(BackupTest, soManyCopiesStay_ofAllSorts_withTheLastVerifiedOne)
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
    EXPECT_EQ(copies[0].name, "trnvik-20260401-090100-replaced.mdb") << "verified when it was replaced";
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
    order.daily = false; // attended
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

TEST_F(BackupTest, whatAKilledRunHasLeft_isNotACopy_andGoes)
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
    EXPECT_NE(err.str().find("another backup or restore is running"), std::string::npos);
    ::close(other);
    EXPECT_EQ(backup(), ToolStatus::Good);
}

TEST_F(BackupTest, noDatabase_orNoFolder_isReported)
{
    order.folder = shop.databaseFile(); // a file
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("no backup was made"), std::string::npos);
    fs::remove(shop.databaseFile());
    order.folder.clear();
    EXPECT_EQ(backup(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("cannot read"), std::string::npos) << err.str();
}

} // namespace suisui::test
