// One copy of the program for a program folder.
#include "platform/core/SingleInstance.h"

#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Another copy of the program: a process that takes the folder and stays until it is killed.
class OtherCopy
{
public:
    explicit OtherCopy(const QString& base)
    {
        int line[2] = {};
        EXPECT_EQ(pipe(line), 0);
        m_process = fork();
        if (m_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL); // it does not outlive a test program that fails
            SingleInstance other(base);
            const char answer = other.prevInstance() ? 'n' : 'y';
            (void)!write(line[1], &answer, 1);
            while (true)
                pause();
        }
        close(line[1]);
        char answer = '?';
        EXPECT_EQ(read(line[0], &answer, 1), 1);
        close(line[0]);
        m_holds = answer == 'y';
    }
    ~OtherCopy() { kill(); }
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    [[nodiscard]] bool holds() const { return m_holds; }
    /// As the power or a user takes it away: it has no chance to tidy up.
    void kill()
    {
        if (m_process <= 0)
            return;
        ::kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        m_process = 0;
    }

private:
    pid_t m_process = 0;
    bool m_holds = false;
};

class SingleInstanceTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString base() const { return m_folder.path(); }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(SingleInstanceTest, theFirstCopyHoldsTheFolder_theSecondIsRefused)
{
    OtherCopy other(base());
    ASSERT_TRUE(other.holds());
    SingleInstance second(base());
    EXPECT_TRUE(second.prevInstance());
    EXPECT_TRUE(second.prevInstance());
}

TEST_F(SingleInstanceTest, aRefusedCopyLeavesTheHolderItsFolder)
{
    OtherCopy other(base());
    ASSERT_TRUE(other.holds());
    {
        SingleInstance second(base());
        EXPECT_TRUE(second.prevInstance());
    }
    EXPECT_FALSE(OtherCopy(base()).holds());
}

TEST_F(SingleInstanceTest, aKillFreesTheFolder)
{
    OtherCopy other(base());
    ASSERT_TRUE(other.holds());
    other.kill();
    EXPECT_TRUE(QFile::exists(base() + u"/.suisuitag.lock"_s)); // what it left behind must not stop anybody
    SingleInstance next(base());
    EXPECT_FALSE(next.prevInstance());
    EXPECT_FALSE(OtherCopy(base()).holds());
}

TEST_F(SingleInstanceTest, aFileLeftEmptyByAKill_stopsNobody)
{
    QFile lock(base() + u"/.suisuitag.lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();
    SingleInstance next(base());
    EXPECT_FALSE(next.prevInstance());
    EXPECT_TRUE(next.holds());
    EXPECT_FALSE(OtherCopy(base()).holds());
}

TEST_F(SingleInstanceTest, theEndOfTheObjectFreesTheFolder)
{
    {
        SingleInstance first(base());
        EXPECT_FALSE(first.prevInstance());
        EXPECT_FALSE(first.prevInstance()); // it is not a second copy of itself
        EXPECT_FALSE(OtherCopy(base()).holds());
    }
    EXPECT_TRUE(OtherCopy(base()).holds());
}

TEST_F(SingleInstanceTest, anOldLockOfALivingCopyStaysInForce)
{
    SingleInstance first(base());
    ASSERT_FALSE(first.prevInstance());
    QFile lock(base() + u"/.suisuitag.lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addYears(-1), QFileDevice::FileModificationTime));
    EXPECT_FALSE(OtherCopy(base()).holds());
}

TEST_F(SingleInstanceTest, foldersAreIndependent)
{
    const QTemporaryDir elsewhere;
    OtherCopy other(base());
    ASSERT_TRUE(other.holds());
    SingleInstance here(elsewhere.path());
    EXPECT_FALSE(here.prevInstance());
}

TEST_F(SingleInstanceTest, aFolderThatCannotBeWritten_countsAsNotHeld)
{
    SingleInstance nowhere(base() + u"/no such folder"_s);
    EXPECT_FALSE(nowhere.prevInstance());
    EXPECT_FALSE(nowhere.holds());
}

} // namespace suisui::test
