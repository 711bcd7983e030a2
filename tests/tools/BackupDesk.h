// A shop with one receipt, and its backups.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "store/BackupNote.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"
#include "tools/Backup.h"

namespace suisui::test {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

inline std::string bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write(const std::string& path, const std::string& bytes)
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
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        db.Execute(sql);
        ASSERT_EQ(db.LastStatus(), DbStatus::Good) << db.LastErrText();
        db.Commit();
    }

    /// Runs \a sql on a copy, through a connection of its own.
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

} // namespace suisui::test
