// The data tool: making a program folder, sample data, checking the books, CSV out and in.
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>

#include "tests/support/TempShop.h"
#include "tools/Csv.h"
#include "tools/Phrases.h"
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
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        db.Execute(sql);
        ASSERT_EQ(db.LastStatus(), DbStatus::Good);
        db.Commit();
    }

    ToolStatus exportTo(const std::string& name, bool cp932 = false, bool replaceOther = false)
    {
        err.str({});
        return exportTable(
            base(), {.table = "tantoutb", .file = path(name), .cp932 = cp932, .replaceOther = replaceOther},
            out, err);
    }
    /// What \a work says in Japanese.
    [[nodiscard]] std::string
    inJapanese(const std::function<ToolStatus(std::ostream& out, std::ostream& err)>& work)
    {
        std::ostringstream said;
        speak(said, Language::Japanese);
        (void)work(said, said);
        return said.str();
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

TEST_F(TagDbTest, importedComponents_areCarriedForward_orLeftAsTheyWere)
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

TEST_F(TagDbTest, aDifferenceFarAfterThePoint_isFound_aLostBitIsNot)
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
    ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
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
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Good) << "the return may be carried forward";
    execute("DELETE FROM RirekiTB");
    execute("UPDATE InpTB SET NyuDate='2026/4/1', NyuPrice='50'");
    out.str({});
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Found);
    EXPECT_NE(out.str().find("stock of P is 9, its movements make 8"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("NyuDate \"2026/4/1\" is not a date"), std::string::npos);
    EXPECT_NE(out.str().find("NyuPrice \"50\" is not a movement number"), std::string::npos);
}

TEST_F(TagDbTest, tablesComeBackFromCsv_asTheyWent)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    execute("INSERT INTO TantouTB (Code,Name,Bikou) VALUES ('01','山田,\"太郎\"','二行\r\nの備考 ～－①')");
    for (const bool cp932 : {false, true}) {
        ASSERT_EQ(exportTo("t.csv", cp932, true), ToolStatus::Good) << err.str();
        execute("DELETE FROM TantouTB");
        ASSERT_EQ(importTable(base(), "TantouTB", path("t.csv"), cp932, out, err), ToolStatus::Good)
            << err.str();
        AppDB db(base() + "/DB");
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        ASSERT_EQ(db.TantouTbl().Select(""), 1);
        EXPECT_EQ(db.TantouTbl().get(1, TantouCol::Name), "山田,\"太郎\"");
        EXPECT_EQ(db.TantouTbl().get(1, TantouCol::Bikou), "二行\r\nの備考 ～－①");
    }
    execute("UPDATE TantouTB SET Name='𠮷野'");
    EXPECT_EQ(exportTo("u.csv", true), ToolStatus::Failed);
    EXPECT_FALSE(fs::exists(path("u.csv")));
}

TEST_F(TagDbTest, numbersAndDatesInAnotherFormat_getThatOfTheirColumn)
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

TEST_F(TagDbTest, whatAColumnCannotHold_isNamed_andNothingIsStored)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    const struct
    {
        const char* table;
        std::string bytes;
        bool cp932;
        const char* words;
    } files[] = {
        {"Master", "Code,NyuPrice\nA,1\nB,cheap\n", false,
         "line 3: column NyuPrice: \"cheap\" is not a number"},
        {"InpTB", "Code,NyuSuu\nA,1\n", false, "line 2: column NyuDate: \"\" is not a date"},
        {"HSeihinTB", "Code,HSeihinCD,Suuryou\nA,B,two\n", false, "column Suuryou: \"two\" is not a number"},
        {"Master", "Code,Name\nA,a\nB,\x83\x8A\n", false,
         "line 3, column 3: not text in UTF-8 (a file in code page 932 needs --cp932)"},
        {"Master", "Code,Name\nA,\x83\n", true, "line 2, column 3: not text in code page 932"},
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
    EXPECT_NE(err.str().find("or is one of a newer version"), std::string::npos) << err.str();
}

TEST_F(TagDbTest, badLine_isNamed_andNothingIsStored)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    const std::pair<std::string, std::string> files[] = {
        {"Code,Name\r\n01,a\r\n02\r\n", "line 3: 1 fields instead of 2"},
        {"Code,Nothing\r\n01,a\r\n", "no column \"Nothing\""},
        {"Code,Name\r\n01,a\r\n01,b\r\n", "line 3: this key is there already"},
        {"Code,Name\r\n01,\"a\r\n02,b\r\n", "line 2, column 4: a quoted field has no end"},
        {"Code,Name\r01,a\r02,b\r", "line 1, column 10: its lines end as on an old Macintosh"},
        {"Code,Name\r\n01,a\"b\r\n", "line 2, column 5"},
        {"", "empty"},
    };
    for (const auto& [text, words] : files) {
        write("bad.csv", text);
        err.str({});
        EXPECT_EQ(importTable(base(), "TantouTB", path("bad.csv"), false, out, err), ToolStatus::Failed);
        EXPECT_NE(err.str().find(words), std::string::npos) << err.str();
        AppDB db(base() + "/DB");
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        EXPECT_EQ(db.TantouTbl().CountRows(""), 0);
    }
    EXPECT_EQ(importTable(base(), "NoTable", path("bad.csv"), false, out, err), ToolStatus::Failed);
    EXPECT_EQ(importTable(base(), "TantouTB", path("missing.csv"), false, out, err), ToolStatus::Failed);
}

TEST_F(TagDbTest, export_neverTakesThePlaceOfADatabase_orOfWhatBelongsToOne)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    fs::create_directories(path("backup"));
    fs::create_directories(path("elsewhere"));
    fs::copy_file(path("DB/trnvik.mdb"), path("elsewhere/RRK20260401-20260430.abc")); // by what is in it
    write("elsewhere/old.db", std::string("\0\1\0\0Standard Jet DB\0 and more", 28));
    write("elsewhere/letter-journal", "");
    write("elsewhere/journal", "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7 the journal of a database");
    write("elsewhere/copy.mdb.proof", "sha256 00\n");
    write("elsewhere/empty.mdb", "");
    fs::create_symlink(path("DB/trnvik.mdb"), path("link.csv"));
    fs::create_symlink(path("DB/trnvik.mdb-journal"), path("nowhere.csv")); // would harm the database
    fs::create_hard_link(path("DB/trnvik.mdb"), path("hard.csv"));
    fs::create_directory_symlink(path("DB"), path("short"));
    const std::string before = read("DB/trnvik.mdb");
    for (const char* name :
         {"DB/trnvik.mdb", "db/trnorg.mdb", "DB/new.csv", "DB/trnvik.mdb-journal", "backup/new.csv",
          "Ini/AppEnv.ini", "elsewhere/RRK20260401-20260430.abc", "elsewhere/old.db",
          "elsewhere/letter-journal", "elsewhere/journal", "elsewhere/copy.mdb.proof", "elsewhere/empty.mdb",
          "link.csv", "nowhere.csv", "hard.csv", "short/trnvik.mdb", "elsewhere/../DB/trnvik.mdb"}) {
        const std::string was = read(name);
        EXPECT_EQ(exportTo(name, false, true), ToolStatus::Failed) << name;
        EXPECT_EQ(read(name), was) << name;
    }
    EXPECT_EQ(read("DB/trnvik.mdb"), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(path("DB")), {}), 1)
        << "something new beside the database";
}

TEST_F(TagDbTest, export_replacesAnotherFile_onlyWhenAsked_wholeAndForItsOwner)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    write("list.csv", "the shop's own");
    EXPECT_EQ(exportTo("list.csv"), ToolStatus::Failed);
    EXPECT_NE(err.str().find("is there already; --force replaces it"), std::string::npos) << err.str();
    EXPECT_EQ(read("list.csv"), "the shop's own");
    ASSERT_EQ(exportTo("list.csv", false, true), ToolStatus::Good) << err.str();
    EXPECT_TRUE(read("list.csv").starts_with("Code,Name,")) << read("list.csv");
    struct stat is
    {
    };
    ASSERT_EQ(::stat(path("list.csv").c_str(), &is), 0);
    EXPECT_EQ(is.st_mode & 0777U, 0600U);
    EXPECT_EQ(exportTo("no such folder/list.csv"), ToolStatus::Failed);
    EXPECT_EQ(exportTo("DB"), ToolStatus::Failed);
    for (const auto& entry : fs::directory_iterator(base()))
        EXPECT_FALSE(entry.path().filename().string().starts_with(".list")) << entry.path();
}

TEST_F(TagDbTest, export_intoAPipe_isWrittenThrough)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    EXPECT_EQ(exportTable(base(), {.table = "TantouTB", .file = "/dev/null"}, out, err), ToolStatus::Good);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(TagDbTest, aDamagedDatabase_isNamedAsSuch)
{
    ASSERT_EQ(createShop(base(), out, err), ToolStatus::Good);
    write("DB/trnvik.mdb", "this is no database at all, whatever its name says");
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Failed);
    EXPECT_NE(err.str().find("the database is damaged, or is not one (file is not a database)"),
              std::string::npos)
        << err.str();
    fs::remove(path("DB/trnvik.mdb"));
    err.str({});
    EXPECT_EQ(checkBooks(base(), out, err), ToolStatus::Failed);
    EXPECT_NE(err.str().find("there is no such file"), std::string::npos) << err.str();
}

TEST_F(TagDbTest, inJapanese_resultsFaultsAndProblemsAreJapanese)
{
    const auto create = [this](std::ostream& o, std::ostream& e) { return createShop(base(), o, e); };
    EXPECT_EQ(inJapanese(create),
              path("DB/trnvik.mdb") + " を作りました\n" + path("db/trnorg.mdb") + " を作りました\n");
    const auto check = [this](std::ostream& o, std::ostream& e) { return checkBooks(base(), o, e); };
    EXPECT_EQ(inJapanese(check), "異常はありません\n");
    execute("INSERT INTO Master (Code) VALUES ('P')");
    execute("INSERT INTO ZaikoTB VALUES ('P','9','8','20260401090000','いつか')");
    EXPECT_EQ(inJapanese(check), "ZaikoTB の 1 行目、UpdDate の「いつか」は日時ではありません\n"
                                 "P の在庫数は 9 ですが、入出荷の記録では 8 です\n2 件の問題があります\n");
    write("bad.csv", "Code,Name\r\n01,\"a\r\n");
    EXPECT_EQ(
        inJapanese([this](std::ostream& o, std::ostream& e) {
            return importTable(base(), "TantouTB", path("bad.csv"), false, o, e);
        }),
        "tagdb: " + path("bad.csv")
            + "：2 行目 4 "
              "文字目：「\"」で始まる欄が閉じていません。表計算ソフトで開き、この欄の「\"」を直して、CSV "
              "で保存し直して下さい。何も登録していません\n");
    write("DB/trnvik.mdb", "this is no database at all, whatever its name says");
    EXPECT_NE(inJapanese(check).find("データベースが壊れているか、データベースではありません"),
              std::string::npos)
        << inJapanese(check);
}

TEST(Texts, theSessionsLocaleChoosesTheLanguage_theStrongestNameFirst)
{
    const struct
    {
        const char* all;
        const char* messages;
        const char* lang;
        Language language;
    } sessions[] = {
        {"", "", "", Language::English},
        {"", "", "ja_JP.UTF-8", Language::Japanese},
        {"", "", "ja", Language::Japanese},
        {"", "", "ja_JP.utf8@calendar", Language::Japanese},
        {"", "C", "ja_JP.UTF-8", Language::English},
        {"", "ja_JP.UTF-8", "de_DE.UTF-8", Language::Japanese},
        {"C.UTF-8", "ja_JP.UTF-8", "ja_JP.UTF-8", Language::English},
        {"ja_JP.UTF-8", "C", "C", Language::Japanese},
        {"", "", "ja_JP.eucJP", Language::English}, // which could not show it
        {"", "", "jam_JM.UTF-8", Language::English},
    };
    for (const auto& session : sessions) {
        qputenv("LC_ALL", session.all);
        qputenv("LC_MESSAGES", session.messages);
        qputenv("LANG", session.lang);
        EXPECT_EQ(languageOfSession(), session.language)
            << session.all << '/' << session.messages << '/' << session.lang;
    }
}

TEST(Texts, wordsOfOneLanguageAreRecognised_withTheirParts)
{
    const auto said = [](const char* english) {
        return recognised(phrases::jetReasons, english).in(Language::Japanese);
    };
    EXPECT_EQ(said("there is no such table"), "この表がありません");
    EXPECT_EQ(said("the file has 12 rows, 9 can be read"),
              "ファイルには 12 行ありますが、9 行しか読めません");
    EXPECT_EQ(said("NyuDate \"20010230\" is not a date"), "NyuDate の「20010230」は日付ではありません");
    EXPECT_EQ(said("Name \"a\" b\" is not text"), "Name の「a\" b」は文字として読めません");
    EXPECT_EQ(said("something that nobody has put down"), "something that nobody has put down");
    for (const Phrase& phrase : phrases::jetReasons)
        EXPECT_EQ(recognised(phrases::jetReasons, phrase.english).in(Language::English), phrase.english);
}

TEST(Texts, partsGoIntoTheirPlaces_alsoWhereTheyLookLikePlacesThemselves)
{
    const Message message(phrases::about, {"{2}", {phrases::rowsOf, {"Master", "3"}}});
    EXPECT_EQ(message.in(Language::English), "{2}: Master: 3 rows\n");
    EXPECT_EQ(message.in(Language::Japanese), "{2}：Master：3 行\n");
}

} // namespace suisui::test
