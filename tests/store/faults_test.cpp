// Files that are not databases of this program, and disks and machines that fail in the middle of the work.
#include <csignal>
#include <fstream>
#include <functional>
#include <random>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/Seed.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

std::string bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

/// Exit status of \a work in a separate process.
int inChild(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

DbStatus openStatus(const TempShop& shop)
{
    AppDB db(shop.databaseFolder());
    db.ShowErrors(false);
    return db.Open("trnvik.mdb");
}

void addReceipt(AppDB& db, int number)
{
    InpRec& rows = db.InpTbl();
    rows.NewRows(1);
    const int row = rows.Count();
    rows.set(row, InpCol::Code, "A" + std::to_string(number));
    rows.set(row, InpCol::Bikou, std::string(400, 'x'));
    rows.set(row, InpCol::InpDate, std::to_string(20260000000000 + number));
    if (rows.InsertRow(row) == DbStatus::Good)
        db.Execute("UPDATE ZaikoTB SET ZaikoSuu=CStr(CDbl(ZaikoSuu)+1) WHERE Code='A'");
}

} // namespace

TEST(DatabaseFaults, filesThatAreNoDatabaseOfOurs_areRefused_andStayAsTheyAre)
{
    const TempShop good;
    const std::string whole = bytesOf(good.databaseFile());
    const TempShop foreign;
    {
        Sqlite engine;
        ASSERT_EQ(engine.open(foreign.databaseFile()), 0);
        ASSERT_EQ(engine.execute("ALTER TABLE Master RENAME COLUMN Stock TO Other"), 0);
    }
    const TempShop newer;
    {
        Sqlite engine;
        ASSERT_EQ(engine.open(newer.databaseFile()), 0);
        ASSERT_EQ(engine.execute("PRAGMA user_version=" + std::to_string(schemaVersion + 1)), 0);
    }
    const std::pair<std::string, std::string> files[] = {
        {"empty", ""},
        {"text", "これはデータベースではありません。"},
        {"truncated", whole.substr(0, whole.size() / 2)},
        {"cut in a page", whole.substr(0, whole.size() - 100)},
        {"overwritten", std::string(whole.size(), '\0')},
        {"foreign", bytesOf(foreign.databaseFile())},
        {"newer", bytesOf(newer.databaseFile())},
    };
    for (const auto& [name, bytes] : files) {
        const TempShop shop;
        write(shop.databaseFile(), bytes);
        EXPECT_NE(openStatus(shop), DbStatus::Good) << name;
        EXPECT_EQ(bytesOf(shop.databaseFile()), bytes) << name;
    }
}

TEST(DatabaseFaults, missingFile_isRefused_andNotMade)
{
    const TempShop shop;
    ASSERT_EQ(::unlink(shop.databaseFile().c_str()), 0);
    EXPECT_NE(openStatus(shop), DbStatus::Good);
    EXPECT_NE(::access(shop.databaseFile().c_str(), F_OK), 0);
}

TEST(DatabaseFaults, fileWithoutPermission_isRefused)
{
    for (const mode_t mode : {mode_t{0}, mode_t{0444}}) {
        const TempShop shop;
        ASSERT_EQ(::chmod(shop.base().toLocal8Bit().constData(), 0755), 0);
        ASSERT_EQ(::chmod(shop.databaseFolder().c_str(), 0755), 0);
        ASSERT_EQ(::chmod(shop.databaseFile().c_str(), mode), 0);
        const std::string before = bytesOf(shop.databaseFile());
        EXPECT_EQ(inChild([&shop] {
                      constexpr uid_t nobody = 65534;
                      if (::geteuid() == 0 && ::setresuid(nobody, nobody, nobody) != 0)
                          return 99;
                      return openStatus(shop) != DbStatus::Good ? 1 : 0;
                  }),
                  1)
            << "mode " << mode;
        EXPECT_EQ(bytesOf(shop.databaseFile()), before);
    }
}

TEST(DatabaseFaults, fileHeldByAnother_isRefused)
{
    const TempShop shop;
    AppDB holder(shop.databaseFolder());
    ASSERT_EQ(holder.Open("trnvik.mdb"), DbStatus::Good);
    holder.Execute("UPDATE Master SET Unit='x'");
    ASSERT_EQ(holder.LastStatus(), DbStatus::Good);
    EXPECT_EQ(openStatus(shop), DbStatus::Busy);
    holder.Rollback();
    EXPECT_EQ(openStatus(shop), DbStatus::Good);
}

TEST(DatabaseFaults, createRefusesAnExistingFile)
{
    const TempShop shop;
    const std::string before = bytesOf(shop.databaseFile());
    std::string why;
    EXPECT_NE(AppDB::Create(shop.databaseFile(), &why), DbStatus::Good);
    EXPECT_FALSE(why.empty());
    EXPECT_EQ(bytesOf(shop.databaseFile()), before);
}

TEST(DatabaseFaults, fullDisk_isReported_andLeavesWholeUnitsOnly)
{
    const TempShop shop;
    shop.add(zaikoTable, {"A", "0", "0", "s", "s"});
    const int stored = inChild([&shop] {
        ::signal(SIGXFSZ, SIG_IGN);
        struct stat file = {};
        ::stat(shop.databaseFile().c_str(), &file);
        const auto room = static_cast<rlim_t>(file.st_size) + 60000;
        const struct rlimit limit = {room, room};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::vector<std::string> said;
        AppDB db(shop.databaseFolder(), [&said](const std::string& text) { said.push_back(text); });
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            return 250;
        int count = 0;
        for (int i = 1; i <= 240; ++i) {
            addReceipt(db, i);
            if (db.LastStatus() == DbStatus::Good)
                db.Commit();
            if (db.LastStatus() != DbStatus::Good) {
                db.Rollback();
                if (said.empty() || said.front().find("空き容量") == std::string::npos)
                    return 251;
                return count;
            }
            ++count;
        }
        return 252; // it never became full
    });
    ASSERT_LT(stored, 240);
    EXPECT_EQ(shop.query("SELECT COUNT(*) FROM InpTB"), std::vector<std::string>{std::to_string(stored)});
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), std::vector<std::string>{std::to_string(stored)});
    EXPECT_EQ(shop.query("PRAGMA integrity_check"), std::vector<std::string>{"ok"});
    AppDB again(shop.databaseFolder());
    ASSERT_EQ(again.Open("trnvik.mdb"), DbStatus::Good);
    addReceipt(again, 1000);
    again.Commit();
    EXPECT_EQ(again.LastStatus(), DbStatus::Good);
}

TEST(DatabaseFaults, killAtAnyInstant_leavesWholeUnitsOnly)
{
    std::mt19937 random(printedSeed());
    const TempShop shop;
    shop.add(zaikoTable, {"A", "0", "0", "s", "s"});
    for (int turn = 0; turn < 20; ++turn) {
        const pid_t child = fork();
        if (child == 0) {
            AppDB db(shop.databaseFolder());
            if (db.Open("trnvik.mdb") != DbStatus::Good)
                _exit(1);
            for (int i = 1;; ++i) {
                addReceipt(db, turn * 1000000 + i);
                db.Commit();
            }
        }
        ::usleep(static_cast<useconds_t>(random() % 30000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_EQ(openStatus(shop), DbStatus::Good);
        ASSERT_EQ(shop.query("SELECT COUNT(*) FROM InpTB"), shop.query("SELECT ZaikoSuu FROM ZaikoTB"));
    }
    EXPECT_NE(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), std::vector<std::string>{"0"});
}

} // namespace suisui::test
