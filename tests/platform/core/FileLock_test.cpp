// Who holds the lock on a file, and for how long.
#include "platform/core/FileLock.h"

#include <optional>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/core/Shell.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class FileLockTest : public ::testing::Test
{
protected:
    void makeProgram(const QByteArray& script)
    {
        QFile file(program);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
    }

    QTemporaryDir folder;
    const QString lock = folder.filePath(u".master.lock"_s);
    const QString program = folder.filePath(u"Master.exe"_s);
};

} // namespace

TEST_F(FileLockTest, aMissingFile_andOneThatNobodyHolds_areNotLocked)
{
    EXPECT_FALSE(isLocked(lock));
    EXPECT_FALSE(QFile::exists(lock)); // looking makes none
    QFile file(lock);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(isLocked(lock));
}

TEST_F(FileLockTest, itIsHeldForAsLongAsTheObjectLives_byOneAtATime)
{
    std::optional<FileLock> first(std::in_place, lock, LockKeeper::StartedPrograms);
    EXPECT_TRUE(first->held());
    EXPECT_TRUE(isLocked(lock));
    EXPECT_FALSE(FileLock(lock, LockKeeper::ThisProgram).held());
    EXPECT_TRUE(isLocked(lock));
    first.reset();
    EXPECT_FALSE(isLocked(lock));
}

TEST_F(FileLockTest, aProgramThatWasStartedMeanwhile_keepsIt_untilItEnds)
{
    makeProgram("touch started\nwhile [ ! -e go ]; do sleep 0.01; done\n");
    {
        const FileLock held(lock, LockKeeper::StartedPrograms);
        Shell(program, folder.path());
    }
    ASSERT_TRUE(eventually([this] { return QFile::exists(folder.filePath(u"started"_s)); }));
    EXPECT_TRUE(isLocked(lock));
    QFile go(folder.filePath(u"go"_s));
    ASSERT_TRUE(go.open(QIODevice::WriteOnly));
    EXPECT_TRUE(eventually([this] { return !isLocked(lock); }));
}

TEST_F(FileLockTest, whereNoFileCanBeMade_nothingIsHeld)
{
    EXPECT_FALSE(FileLock(folder.filePath(u"no such folder/lock"_s), LockKeeper::ThisProgram).held());
}

} // namespace suisui::test
