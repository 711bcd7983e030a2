// The data tool: making a program folder, sample data, checking the books, CSV out and in.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/TempShop.h"
#include "tools/Csv.h"
#include "tools/TagDb.h"

namespace suisui::test {

namespace {

namespace fs = std::filesystem;

class TagDbTest : public ::testing::Test
{
protected:
    std::string base() const { return dir.path().toStdString(); }
    std::string path(const std::string& name) const { return base() + "/" + name; }
    void write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void execute(const std::string& sql) const
    {
        AppDB db(base() + "/DB");
        ASSERT_EQ(db.Open("trnvik.mdb"), 0);
        db.Execute(sql);
        ASSERT_EQ(db.LastStatus(), 0);
        db.Commit();
    }

    QTemporaryDir dir;
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace

TEST_F(TagDbTest, create_makesDatabaseAndTemplate_andTouchesNeitherAgain)
{
    EXPECT_EQ(createShop(base(), out, err), ToolStatus::Good);
    EXPECT_TRUE(fs::exists(path("DB/trnvik.mdb")) && fs::exists(path("db/trnorg.mdb")));
    const std::string before = read("DB/trnvik.mdb");
    EXPECT_EQ(createShop(base(), out, err), ToolStatus::Failed);
    EXPECT_EQ(read("DB/trnvik.mdb"), before);
    fs::remove(path("db/trnorg.mdb"));
    EXPECT_EQ(createShop(base(), out, err), ToolStatus::Good); // only what is missing
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Good);
}

TEST_F(TagDbTest, importedComponents_areCarriedForward_andAFailedImportLeavesBothAsTheyWere)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    execute("INSERT INTO Master (Code, Name) VALUES ('SET', '詰合せ'), ('P', '部品'), ('Q', '部品')");
    execute(
        "INSERT INTO InpTB (Code, NyuSuu, NyuPrice, NyuNebiki, Henkyaku, NyuDate, NyuTime, InpDate, UpdDate) "
        "VALUES ('SET', '0000003', '0000000', '0000000', '0000000', '20260401', '090000', "
        "'20260401090000', '20260401090000')");
    execute("INSERT INTO ZaikoTB VALUES ('SET', '3', '0', '20260401090000', '20260401090000'), "
            "('P', '-0.3', '-0.3', '20260401090000', '20260401090000')");
    const auto stock = [this] {
        return queryFile(path("DB/trnvik.mdb"), "SELECT Code, ZaikoSuu, KuriSuu FROM ZaikoTB ORDER BY Code");
    };
    const auto parts = [this] { return queryFile(path("DB/trnvik.mdb"), "SELECT count(*) FROM HSeihinTB"); };
    const auto before = stock();
    write("bad.csv", "Code,HSeihinCD,Suuryou\nSET,P,0.1\nSET,Q,many\n");
    EXPECT_EQ(importTable(base(), "HSeihinTB", path("bad.csv"), false, out, err), ToolStatus::Failed);
    EXPECT_EQ(stock(), before);
    EXPECT_EQ(parts(), std::vector<std::string>{"0"});
    write("good.csv", "Code,HSeihinCD,Suuryou\nSET,P,0.1\nSET,Q,2\n");
    EXPECT_EQ(importTable(base(), "HSeihinTB", path("good.csv"), false, out, err), ToolStatus::Good)
        << err.str();
    EXPECT_EQ(stock(), (std::vector<std::string>{"P|-0.3|0", "Q|0|6", "SET|3|0"}));
    out.str({});
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Good) << out.str();
}

TEST_F(TagDbTest, aDifferenceFarBehindThePoint_isFound_aBitThatGotLostIsNot)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    const auto statusWith = [this](const std::string& figure, const std::string& carried) {
        execute("DELETE FROM ZaikoTB");
        execute("INSERT INTO ZaikoTB VALUES ('A', '" + figure + "', '" + carried
                + "', '20260401090000', '20260401090000')");
        return checkBooks(base(), out, err);
    };
    EXPECT_EQ(statusWith("0.3", "0.3"), ToolStatus::Good);
    EXPECT_EQ(statusWith("0.30000000000000004", "0.3"), ToolStatus::Good) << "as older versions wrote it";
    EXPECT_EQ(statusWith("0.3000001", "0.3"), ToolStatus::Found);
    EXPECT_EQ(statusWith("0.30000000000001", "0.3"), ToolStatus::Found);
    EXPECT_EQ(statusWith("99999999999999", "99999999999998"), ToolStatus::Found);
}

TEST_F(TagDbTest, sample_fillsAnEmptyDatabase_only)
{
    EXPECT_EQ(sampleShop(base(), out, err), ToolStatus::Failed); // there is none
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    ASSERT_EQ(sampleShop(base(), out, err), ToolStatus::Good);
    EXPECT_EQ(sampleShop(base(), out, err), ToolStatus::Failed);
    AppDB db(base() + "/DB");
    ASSERT_EQ(db.Open("trnvik.mdb"), 0);
    EXPECT_GE(db.MasterTbl().Select(""), 190);
    EXPECT_EQ(db.KokyakuNyu().CountRows("Where NyuKyk = '1'"), 6);
    EXPECT_EQ(db.KokyakuNyu().CountRows("Where SyuKyk = '1'"), 6);
    EXPECT_EQ(db.TantouTbl().CountRows(""), 5);
    EXPECT_GE(db.HSeihinTbl().Select(""), 12);
    for (int row = 1; row <= db.HSeihinTbl().Count(); ++row)
        EXPECT_EQ(db.MasterPost().CountRows(
                      "WHERE Code='" + std::string(db.HSeihinTbl().get(row, HSeihinCol::HSeihinCD)) + "'"),
                  1);
    for (int row = 1; row <= db.MasterTbl().Count();
         ++row) { // EAN-13: weights 1 and 3 in turn add up to a ten
        const std::string code(db.MasterTbl().get(row, MasterCol::Code));
        ASSERT_EQ(code.size(), 13U);
        int sum = 0;
        for (std::size_t i = 0; i < code.size(); ++i)
            sum += (code[i] - '0') * (i % 2 == 0 ? 1 : 3);
        EXPECT_EQ(sum % 10, 0) << code;
    }
}

TEST_F(TagDbTest, check_findsWrongStock_andWrongEncodings)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    execute("INSERT INTO Master (Code) VALUES ('A'),('P')");
    execute("INSERT INTO HSeihinTB (Code,HSeihinCD,Suuryou) VALUES ('P','A','1.5')");
    execute(
        "INSERT INTO InpTB (Code,NyuSuu,NyuPrice,NyuNebiki,Henkyaku,NyuDate,NyuTime,InpDate,UpdDate) VALUES "
        "('p','0000010','0000000','0000000','0000002','20260401','090000','20260401090000','20260401090000'"
        ")");
    execute("INSERT INTO ZaikoTB VALUES ('P','8','0','20260401090000','20260401090000'),"
            "('A','-2','10','20260401090000','20260401090000')");
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Good) << out.str();
    execute("UPDATE ZaikoTB SET ZaikoSuu='9' WHERE Code='P'");
    execute("INSERT INTO RirekiTB (DateFrom) VALUES ('Trn')");
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Good) << "the return may be carried";
    execute("DELETE FROM RirekiTB");
    execute("UPDATE InpTB SET NyuDate='2026/4/1', NyuPrice='50'");
    out.str({});
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Found);
    EXPECT_NE(out.str().find("stock of P is 9, its movements make 8"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("NyuDate \"2026/4/1\" is no date"), std::string::npos);
    EXPECT_NE(out.str().find("NyuPrice \"50\" is no movement number"), std::string::npos);
}

TEST_F(TagDbTest, tablesComeBackFromCsv_asTheyWent)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    execute("INSERT INTO TantouTB (Code,Name,Bikou) VALUES ('01','山田,\"太郎\"','二行\r\nの備考 ～－①')");
    for (const bool cp932 : {false, true}) {
        ASSERT_EQ(exportTable(base(), "tantoutb", path("t.csv"), cp932, out, err), ToolStatus::Good)
            << err.str();
        execute("DELETE FROM TantouTB");
        ASSERT_EQ(importTable(base(), "TantouTB", path("t.csv"), cp932, out, err), ToolStatus::Good)
            << err.str();
        AppDB db(base() + "/DB");
        ASSERT_EQ(db.Open("trnvik.mdb"), 0);
        ASSERT_EQ(db.TantouTbl().Select(""), 1);
        EXPECT_EQ(db.TantouTbl().get(1, TantouCol::Name), "山田,\"太郎\"");
        EXPECT_EQ(db.TantouTbl().get(1, TantouCol::Bikou), "二行\r\nの備考 ～－①");
    }
    execute("UPDATE TantouTB SET Name='𠮷野'");
    EXPECT_EQ(exportTable(base(), "TantouTB", path("u.csv"), true, out, err), ToolStatus::Failed);
}

TEST_F(TagDbTest, numbersAndDatesInAnotherDress_getTheFormOfTheirColumn)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    write("r.csv", "\xEF\xBB\xBF"
                   "Code,NyuSuu,NyuDate,NyuTime,InpDate,UpdDate\r\n"
                   "A,5,2026/04/01,09:00:00,20260401090000,2026/04/01 09:00:00\r\n");
    ASSERT_EQ(importTable(base(), "InpTB", path("r.csv"), false, out, err), ToolStatus::Good) << err.str();
    EXPECT_EQ(queryFile(path("DB/trnvik.mdb"),
                        "SELECT NyuSuu,NyuPrice,Henkyaku,NyuDate,NyuTime,UpdDate FROM InpTB"),
              std::vector<std::string>{"0000005|0000000|0000000|20260401|090000|20260401090000"});
}

TEST_F(TagDbTest, whatAColumnCannotHold_andBytesThatAreNoText_areNamed_andNothingIsStored)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    const struct
    {
        const char* table;
        std::string bytes;
        bool cp932;
        const char* words;
    } files[] = {
        {"Master", "Code,NyuPrice\nA,1\nB,cheap\n", false, "line 3: column NyuPrice: \"cheap\" is no number"},
        {"InpTB", "Code,NyuSuu\nA,1\n", false, "line 2: column NyuDate: \"\" is no date"},
        {"HSeihinTB", "Code,HSeihinCD,Suuryou\nA,B,two\n", false, "column Suuryou: \"two\" is no number"},
        {"Master", "Code,Name\nA,a\nB,\x83\x8A\n", false,
         "line 3, column 3: no text in UTF-8 (a file in code page 932 needs --cp932)"},
        {"Master", "Code,Name\nA,\x83\n", true, "line 2, column 3: no text in code page 932"},
    };
    for (const auto& file : files) {
        write("bad.csv", file.bytes);
        err.str({});
        EXPECT_EQ(importTable(base(), file.table, path("bad.csv"), file.cp932, out, err), ToolStatus::Failed);
        EXPECT_NE(err.str().find(file.words), std::string::npos) << err.str();
        EXPECT_EQ(queryFile(path("DB/trnvik.mdb"), std::string("SELECT count(*) FROM ") + file.table),
                  std::vector<std::string>{"0"});
    }
}

TEST_F(TagDbTest, databaseOfANewerVersion_isRefusedWithTheReason)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    Sqlite engine;
    ASSERT_EQ(engine.open(path("DB/trnvik.mdb")), 0);
    ASSERT_EQ(engine.execute("PRAGMA user_version=" + std::to_string(schemaVersion + 1)), 0);
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Failed);
    EXPECT_NE(err.str().find("or one of a newer version"), std::string::npos) << err.str();
}

TEST_F(TagDbTest, badLine_isNamed_andNothingIsStored)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    const std::pair<std::string, std::string> files[] = {
        {"Code,Name\r\n01,a\r\n02\r\n", "line 3: 1 fields instead of 2"},
        {"Code,Nothing\r\n01,a\r\n", "no column \"Nothing\""},
        {"Code,Name\r\n01,a\r\n01,b\r\n", "line 3: this key is there already"},
        {"Code,Name\r\n01,\"a\r\n", "line 3, column"},
        {"Code,Name\r\n01,a\"b\r\n", "line 2, column 5"},
        {"", "empty"},
    };
    for (const auto& [text, words] : files) {
        write("bad.csv", text);
        err.str({});
        EXPECT_EQ(importTable(base(), "TantouTB", path("bad.csv"), false, out, err), ToolStatus::Failed);
        EXPECT_NE(err.str().find(words), std::string::npos) << err.str();
        AppDB db(base() + "/DB");
        ASSERT_EQ(db.Open("trnvik.mdb"), 0);
        EXPECT_EQ(db.TantouTbl().CountRows(""), 0);
    }
    EXPECT_EQ(importTable(base(), "NoTable", path("bad.csv"), false, out, err), ToolStatus::Failed);
    EXPECT_EQ(importTable(base(), "TantouTB", path("missing.csv"), false, out, err), ToolStatus::Failed);
}

} // namespace suisui::test
