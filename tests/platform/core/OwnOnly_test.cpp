// Who may read a shop's folder, and what a file that may not grow any further does to a program.
#include "platform/core/OwnOnly.h"

#include <csignal>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>

namespace suisui::test {

namespace {

namespace fs = std::filesystem;

constexpr unsigned all = 07777;

class OwnOnlyTest : public ::testing::Test
{
protected:
    [[nodiscard]] fs::path path(const std::string& name = {}) const
    {
        return fs::path(dir.path().toStdString()) / name;
    }
    void make(const std::string& name, mode_t mode) const
    {
        fs::create_directories(path(name).parent_path());
        std::ofstream(path(name)) << "x";
        ASSERT_EQ(::chmod(path(name).c_str(), mode), 0);
    }
    void openFolder(const std::string& name, mode_t mode) const
    {
        fs::create_directories(path(name));
        ASSERT_EQ(::chmod(path(name).c_str(), mode), 0);
    }
    [[nodiscard]] unsigned modeOf(const std::string& name = {}) const
    {
        struct stat is
        {
        };
        EXPECT_EQ(::lstat(path(name).c_str(), &is), 0) << name;
        return is.st_mode & all;
    }

    QTemporaryDir dir;
};

} // namespace

TEST_F(OwnOnlyTest, aShopsFolderAndAllItsData_loseTheRightsOfOthers)
{
    for (const char* file : {"DB/trnvik.mdb", "DB/trnvik.mdb-journal", "db/trnorg.mdb", "Ini/AppEnv.ini",
                             "backup/trnvik-20260401-090000.mdb", "exe/FileCsv.csv"})
        make(file, 0664);
    make("exe/Master.exe", 0775);
    for (const char* folder : {"DB", "db", "Ini", "backup", "exe", ""})
        openFolder(folder, 0775);
    makeOwnOnly(path().string());
    for (const char* folder : {"DB", "db", "Ini", "backup", "exe", ""})
        EXPECT_EQ(modeOf(folder), 0700U) << folder;
    for (const char* file : {"DB/trnvik.mdb", "DB/trnvik.mdb-journal", "db/trnorg.mdb", "Ini/AppEnv.ini",
                             "backup/trnvik-20260401-090000.mdb", "exe/FileCsv.csv"})
        EXPECT_EQ(modeOf(file), 0600U) << file;
    EXPECT_EQ(modeOf("exe/Master.exe"), 0700U) << "a companion can still be started";
}

TEST_F(OwnOnlyTest, aFolderWithThePrograms_staysOpen_itsDataDoNot)
{
    make("suisuitag", 0755);
    make("DB/trnvik.mdb", 0644);
    openFolder("", 0755);
    makeOwnOnly(path().string());
    EXPECT_EQ(modeOf(), 0755U);
    EXPECT_EQ(modeOf("suisuitag"), 0755U);
    EXPECT_EQ(modeOf("DB/trnvik.mdb"), 0600U);
}

TEST_F(OwnOnlyTest, aFolderWithoutAShop_andAFileThatIsLinkedIn_stayAsTheyAre)
{
    openFolder("", 0755);
    make("Ini/other.ini", 0644);
    makeOwnOnly(path().string());
    EXPECT_EQ(modeOf("Ini/other.ini"), 0644U);
    EXPECT_EQ(modeOf(), 0755U);
    make("elsewhere/letter", 0644);
    fs::create_directories(path("DB"));
    fs::create_symlink(path("elsewhere/letter"), path("DB/letter"));
    makeOwnOnly(path().string());
    EXPECT_EQ(modeOf("elsewhere/letter"), 0644U);
}

TEST_F(OwnOnlyTest, aBegunProgram_makesFilesForItsOwner_andOutlivesAFileLimit)
{
    const std::string file = path("made").string();
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::umask(0);
        (void)std::signal(SIGXFSZ, SIG_DFL);
        beginProgram();
        const rlimit limit{.rlim_cur = 4, .rlim_max = 4};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            ::_exit(3);
        std::ofstream stream(file);
        stream << "more than four bytes" << std::flush;
        ::_exit(stream.good() ? 4 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(modeOf("made"), 0600U);
}

} // namespace suisui::test
