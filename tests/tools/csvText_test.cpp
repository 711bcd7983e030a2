// Tables from elsewhere whose bytes are not text, or that name a column twice: reported by line and column,
// and nothing is stored. Such bytes that are in the database nevertheless are found there.
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/TempShop.h"
#include "tools/TagDb.h"

namespace suisui::test {

namespace {

class CsvText : public ::testing::Test
{
protected:
    ToolStatus import(const std::string& bytes, bool cp932)
    {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
        err.str({});
        return importTable(base, "TantouTB", file, cp932, out, err);
    }
    [[nodiscard]] std::string stored() const { return shop.query("SELECT count(*) FROM TantouTB").at(0); }

    TempShop shop;
    std::string base = shop.base().toStdString();
    std::string file = base + "/t.csv";
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace

TEST_F(CsvText, bytesThatAreNotText_areNamedByPlace_andNothingIsStored)
{
    const struct
    {
        std::string bytes;
        bool cp932;
        const char* words;
    } files[] = {
        {"Code,Name\r\n01,a\r\n02,\x8E\x52\x93\x63\r\n", false, "line 3, column 4: not text in UTF-8"},
        {"Code,Name\r\n01,山\xE7", false, "line 2, column 7: not text in UTF-8"},
        {std::string("Code,Name\n01,a\0b\n", 17), false, "line 2, column 5: not text in UTF-8"},
        {"Code,Name\n01,\x8E\x52\n02,\x81", true, "line 3, column 4: not text in code page 932"},
        {"\xFF", false, "line 1, column 1: not text in UTF-8"},
    };
    for (const auto& one : files) {
        EXPECT_EQ(import(one.bytes, one.cp932), ToolStatus::Failed);
        EXPECT_NE(err.str().find(one.words), std::string::npos) << err.str();
        EXPECT_NE(err.str().find("nothing was stored"), std::string::npos) << err.str();
        EXPECT_EQ(stored(), "0");
    }
    EXPECT_EQ(import("Code,Name\r\n01,\x8E\x52\x93\x63\r\n", true), ToolStatus::Good) << err.str();
    EXPECT_EQ(import("Code,Name\r\n02,\uFFFD\r\n", false), ToolStatus::Good)
        << err.str(); // as it was exported
    EXPECT_EQ(shop.query("SELECT Name FROM TantouTB ORDER BY Code"),
              (std::vector<std::string>{"山田", "\uFFFD"}));
}

TEST_F(CsvText, aColumnNamedTwice_isRefused)
{
    EXPECT_EQ(import("Code,Name,name\n01,a,b\n", false), ToolStatus::Failed);
    EXPECT_NE(err.str().find("line 1: column \"name\" is there twice"), std::string::npos) << err.str();
    EXPECT_EQ(stored(), "0");
}

TEST_F(CsvText, bytesThatAreNotText_inAnyTable_areFoundByTheCheck)
{
    for (const TableDef* table : allTables()) {
        const std::string name(table->name);
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        db.Execute("INSERT INTO " + name + " (" + std::string(table->columns[1])
                   + ") VALUES (CAST(x'8E52' AS TEXT))");
        ASSERT_EQ(db.LastStatus(), DbStatus::Good) << db.LastErrText();
        db.Commit();
        std::ostringstream found;
        EXPECT_EQ(checkBooks(base, found, err), ToolStatus::Found) << name;
        EXPECT_NE(found.str().find(name + " row 1 " + std::string(table->columns[1])), std::string::npos)
            << found.str();
        EXPECT_NE(found.str().find("is not text"), std::string::npos) << found.str();
        db.Execute("DELETE FROM " + name);
        db.Commit();
    }
}

} // namespace suisui::test
