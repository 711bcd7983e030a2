// Importing databases in Jet format: what is imported, what is reported, what is refused.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "store/Schema.h"
#include "tests/support/Seed.h"
#include "tests/support/TempShop.h"
#include "tests/tools/JetWriter.h"
#include "tools/JetImport.h"
#include "tools/OldTexts.h"

namespace suisui::test {

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class JetImportTest : public ::testing::TestWithParam<Jet>
{
protected:
    JetImportTest()
    {
        for (const TableDef* table : allTables()) {
            JetTable old{.name = std::string(table->name), .columns = {}, .rows = {}};
            for (const std::string_view column : table->columns)
                old.columns.push_back({.name = std::string(column)});
            tables.push_back(old);
        }
        add("Master", {"A1", "りんご　①", "", "1", "100", "1", "150", "個", "3"});
        add("ZaikoTB", {"A1", "0000012", "10", "20240401090000", "20240402090000"});
        receive("A1", "5", "20240401090000");
        add("OutTB", {"A1",
                      "りんご",
                      "",
                      "0000003",
                      "0000150",
                      "",
                      "",
                      "20240402",
                      "090000",
                      "個",
                      "0000000",
                      "",
                      "",
                      "",
                      "",
                      "備考～－",
                      "",
                      "",
                      "20240402090000",
                      "20240402090000"});
    }

    JetTable& table(const std::string& name) { return *std::ranges::find(tables, name, &JetTable::name); }
    /// A row of texts; the columns after them are Null.
    void add(const std::string& name, const Texts& texts)
    {
        JetTable& old = table(name);
        std::vector<JetTable::Value> row;
        for (const std::string& text : texts)
            row.push_back({.bytes = jetText(GetParam(), text)});
        row.resize(old.columns.size(), {.bytes = {}, .null = true});
        old.rows.push_back(row);
    }
    void receive(const std::string& code, const std::string& quantity, const std::string& stamp)
    {
        add("InpTB", {code, "りんご", "", quantity, "100", "S1", "青果", "2024/04/01", "090000", "個", "",
                      "0", "", "", "", stamp, stamp});
    }
    void write() const { writeBytes(jetFile(GetParam(), tables)); }
    void writeBytes(const std::string& bytes) const
    {
        std::ofstream(file(), std::ios::binary | std::ios::trunc) << bytes;
    }
    ToolStatus import(bool anyway = false)
    {
        out.str({});
        err.str({});
        return importJet(base(), file(), anyway, out, err);
    }
    /// Imports what must be refused, and checks that nothing was written.
    void expectRefused(const std::string& reason)
    {
        write();
        EXPECT_EQ(import(), ToolStatus::Found) << err.str();
        EXPECT_NE(out.str().find(reason), std::string::npos) << out.str();
        EXPECT_NE(out.str().find("1 problems; nothing was written"), std::string::npos) << out.str();
        EXPECT_TRUE(fs::is_empty(base() + "/DB"));
    }
    [[nodiscard]] Texts query(const std::string& sql) const { return queryFile(database(), sql); }
    [[nodiscard]] std::string base() const { return dir.path().toStdString(); }
    [[nodiscard]] std::string database() const { return base() + "/DB/trnvik.mdb"; }
    [[nodiscard]] std::string file() const { return base() + "/old.mdb"; }

    QTemporaryDir dir;
    std::vector<JetTable> tables;
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace

TEST_P(JetImportTest, wholeShop_comesAlong_withItsTexts_numbers_andEmptyForNull)
{
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str() << err.str();
    EXPECT_EQ(query("SELECT * FROM InpTB"),
              Texts{"A1|りんご||0000005|0000100|S1|青果|20240401|090000|個|0000000|0000000||||20240401090000|"
                    "20240401090000"});
    EXPECT_EQ(query("SELECT * FROM OutTB"),
              Texts{"A1|りんご||0000003|0000150|||20240402|090000|個|0000000|0000000|0000000|||備考～－|||"
                    "20240402090000|20240402090000"});
    EXPECT_EQ(query("SELECT * FROM ZaikoTB"), Texts{"A1|0000012|10|20240401090000|20240402090000"});
    EXPECT_EQ(query("SELECT Name, Stock, UpdDate FROM Master"), Texts{"りんご　①|3|"});
    EXPECT_NE(out.str().find("InpTB: 1 of 1 rows\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("RirekiTB: 0 of 0 rows\n"), std::string::npos);
    EXPECT_FALSE(fs::exists(database() + ".importing"));
    EXPECT_TRUE(fs::exists(base() + "/db/trnorg.mdb"));
    std::ostringstream checked;
    EXPECT_EQ(checkBooks(base(), checked, checked), ToolStatus::Good) << checked.str();
}

TEST_P(JetImportTest, rowsOfAllLengths_comeAlongAsTheyAre)
{
    std::mt19937 engine(printedSeed());
    const auto letters = [&engine](char letter, unsigned most) {
        return std::string(std::uniform_int_distribution<std::size_t>(0, most)(engine), letter);
    };
    Texts expected;
    for (int i = 0; i < 400; ++i) {
        Texts texts{"T" + std::to_string(i)};
        for (std::size_t column = 1; column < 15; ++column)
            texts.push_back(letters('a', 12) + (letters('x', 3).empty() ? "担当～" : "") + letters('z', 60));
        add("TantouTB", texts);
        std::string line;
        for (const std::string& text : texts)
            line += (line.empty() ? "" : "|") + text;
        expected.push_back(line);
    }
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str() << err.str();
    EXPECT_EQ(query("SELECT * FROM TantouTB ORDER BY rowid"), expected);
}

TEST_P(JetImportTest, numbersInColumnsOfNumbers_comeAlong)
{
    table("InpTB").columns[3].type = JetTable::Long;
    table("InpTB").columns[4].type = JetTable::Integer;
    for (auto& row : table("InpTB").rows) {
        row[3].bytes = "5";
        row[4].bytes = "100";
    }
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str() << err.str();
    EXPECT_EQ(query("SELECT NyuSuu, NyuPrice FROM InpTB"), Texts{"0000005|0000100"});
}

TEST_P(JetImportTest, columnsWithNamesOfTheirOwn_areTakenByTheirPlace)
{
    table("HSeihinTB").columns[1].name = "SeihinMei";
    table("HSeihinTB").columns[4].name = "BuhinMei";
    table("InpTB").columns[16].name = "UPdDate"; // the same name, letter case aside
    add("HSeihinTB", {"SET", "詰合せ", "A1", "2", "りんご"});
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str() << err.str();
    EXPECT_EQ(query("SELECT Name, HSeihinCD, Suuryou, HSeihinName FROM HSeihinTB"),
              Texts{"詰合せ|A1|2|りんご"});
    EXPECT_NE(out.str().find("HSeihinTB: column HSeihinName is taken from BuhinMei, by its position"),
              std::string::npos)
        << out.str();
}

TEST_P(JetImportTest, aNumberWithAFraction_isNamed_andStopsTheImport)
{
    add("OutTB", {"B1", "", "", "1.5", "", "", "", "20240402", "090000",         "",
                  "",   "", "", "",    "", "", "", "",         "20240402090001", "20240402090001"});
    expectRefused("OutTB row 2: SyuSuu \"1.5\" is not a whole number\n");
    EXPECT_EQ(import(true), ToolStatus::Found);
    EXPECT_EQ(query("SELECT Code FROM OutTB"), Texts{"A1"});
}

TEST_P(JetImportTest, aDateThatDoesNotExist_isNamed)
{
    table("InpTB").rows[0][7].bytes = jetText(GetParam(), "きのう");
    table("ZaikoTB").rows[0][1].bytes = jetText(GetParam(), "7"); // so that the books hold without the row
    expectRefused("InpTB row 1: NyuDate \"きのう\" is not a date\n");
}

TEST_P(JetImportTest, twoRowsOfOneKey_areNamed)
{
    receive("A1", "0", "20240401090000");
    expectRefused("InpTB row 2: a row with the key Code A1, InpDate 20240401090000 is there already\n");
}

TEST_P(JetImportTest, aMissingTable_isNamed)
{
    tables.pop_back();
    expectRefused("RirekiTB: there is no such table\n");
}

TEST_P(JetImportTest, aMissingColumn_isNamed)
{
    table("TantouTB").columns.pop_back();
    expectRefused("TantouTB: there is no column UpdDate\n");
}

TEST_P(JetImportTest, aColumnWithoutAPlaceHere_isNamedWhenItHoldsTexts)
{
    table("TantouTB").columns.push_back({.name = "Kekkon"});
    add("TantouTB", {"T1", "山田", "", "", "", "", "", "", "", "", "", "", "", "", "", ""});
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str();
    fs::remove(database());
    table("TantouTB").rows[0][15].bytes = jetText(GetParam(), "1999");
    expectRefused("TantouTB: column Kekkon has no place here; it holds texts in 1 rows\n");
}

TEST_P(JetImportTest, aColumnThatIsNotText_isNamed)
{
    table("TantouTB").columns[11].type = JetTable::Date;
    expectRefused("TantouTB: column Nyusya is neither text nor number\n");
}

TEST_P(JetImportTest, stockThatMovementsDoNotMake_isNamed_andCarriedOnDemand)
{
    table("ZaikoTB").rows[0][1].bytes = jetText(GetParam(), "13");
    expectRefused("books: stock of A1 is 13, its movements make 12\n");
    EXPECT_EQ(import(true), ToolStatus::Found);
    EXPECT_EQ(query("SELECT ZaikoSuu FROM ZaikoTB"), Texts{"13"});
    EXPECT_EQ(query("SELECT count(*) FROM InpTB"), Texts{"1"});
}

TEST_P(JetImportTest, missingRowsThatTheFileSpeaksOf_areCounted)
{
    table("KokyakuTB").declaredMore = 2;
    expectRefused("KokyakuTB: the file has 2 rows, 0 can be read\n");
}

TEST_P(JetImportTest, aFileCutShort_isRefused_andNothingIsWritten)
{
    for (int i = 0; i < 200; ++i)
        add("TantouTB", {"T" + std::to_string(i), std::string(60, 'x')});
    const std::string whole = jetFile(GetParam(), tables);
    const std::size_t page = GetParam() == Jet::Three ? 2048 : 4096;
    for (std::size_t pages = 0; pages < whole.size() / page; ++pages) {
        writeBytes(whole.substr(0, pages * page));
        const ToolStatus status = import();
        EXPECT_NE(status, ToolStatus::Good) << pages << " pages of " << whole.size() / page;
        EXPECT_FALSE(fs::exists(database())) << pages;
        EXPECT_FALSE(fs::exists(database() + ".importing")) << pages;
    }
}

TEST_P(JetImportTest, aFileCutInsideItsLastPage_isNamedWithTheRowsThatItLost)
{
    add("RirekiTB", {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    add("RirekiTB", {"20230401", "20240331", "hst", "12345", "20240401090000"});
    const std::string whole = jetFile(GetParam(), tables);
    for (const std::size_t cut : {std::size_t{1}, std::size_t{20}}) { // rows fill a page from its end
        writeBytes(whole.substr(0, whole.size() - cut));
        EXPECT_EQ(import(), ToolStatus::Found) << err.str();
        EXPECT_NE(out.str().find("file: it ends inside its last page, " + std::to_string(cut)
                                 + " bytes are missing\n"),
                  std::string::npos)
            << out.str();
        EXPECT_NE(out.str().find("RirekiTB row 1: the file ends before this row does\n"), std::string::npos)
            << out.str();
        EXPECT_EQ(out.str().find("RirekiTB row 2"), std::string::npos) << out.str();
        EXPECT_TRUE(fs::is_empty(base() + "/DB"));
    }
    EXPECT_EQ(import(true), ToolStatus::Found);
    EXPECT_EQ(query("SELECT DateFrom FROM RirekiTB"), Texts{"20230401"});
}

TEST_P(JetImportTest, aRowWithoutACode_isNamed)
{
    add("TantouTB", {"", "山田"});
    expectRefused("TantouTB row 1: Code \"\" is not a code\n");
    table("TantouTB").rows.clear();
    add("HSeihinTB", {"A1", "", " ", "2"});
    expectRefused("HSeihinTB row 1: HSeihinCD \" \" is not a code\n");
}

TEST_P(JetImportTest, aDayOrATimeThatNoCalendarHas_isNamed)
{
    table("ZaikoTB").rows[0][1].bytes = jetText(GetParam(), "7"); // so that the books hold without the row
    table("InpTB").rows[0][7].bytes = jetText(GetParam(), "20010230");
    expectRefused("InpTB row 1: NyuDate \"20010230\" is not a date\n");
    table("InpTB").rows[0][7].bytes = jetText(GetParam(), "20010228");
    table("InpTB").rows[0][8].bytes = jetText(GetParam(), "256199");
    expectRefused("InpTB row 1: NyuTime \"256199\" is not a time\n");
}

TEST_P(JetImportTest, controlCharacters_areNamed_andBecomeBlanksOnDemand)
{
    add("TantouTB", {"T1", "山\x07田\r\n"});
    expectRefused("TantouTB row 1: Name \"山 田  \" has control characters, here as blanks\n");
    EXPECT_EQ(import(true), ToolStatus::Found);
    EXPECT_EQ(query("SELECT Code, Name FROM TantouTB"), Texts{"T1|山 田  "});
}

TEST_P(JetImportTest, whatAKilledImportHasLeft_doesNotMatter)
{
    write();
    fs::create_directories(base() + "/DB");
    for (const char* ending : {"", "-journal", ".new"})
        std::ofstream(database() + ".importing" + ending) << "half a database";
    ASSERT_EQ(import(), ToolStatus::Good) << out.str() << err.str();
    EXPECT_EQ(query("SELECT count(*) FROM InpTB"), Texts{"1"});
    EXPECT_EQ(std::distance(fs::directory_iterator(base() + "/DB"), {}), 1);
}

TEST_P(JetImportTest, anExistingDatabase_staysAsItIs)
{
    write();
    ASSERT_EQ(import(), ToolStatus::Good);
    EXPECT_EQ(import(true), ToolStatus::Failed);
    EXPECT_NE(err.str().find("is there already"), std::string::npos);
    EXPECT_EQ(query("SELECT count(*) FROM InpTB"), Texts{"1"});
}

TEST_P(JetImportTest, aFileOfAnotherKind_isRefused)
{
    EXPECT_EQ(import(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("there is no such file"), std::string::npos);
    writeBytes("PK and something");
    EXPECT_EQ(import(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("nothing was written"), std::string::npos);
    EXPECT_FALSE(fs::exists(base() + "/DB"));
}

INSTANTIATE_TEST_SUITE_P(Formats, JetImportTest, ::testing::Values(Jet::Three, Jet::Four),
                         [](const auto& format) { return format.param == Jet::Three ? "jet3" : "jet4"; });

class Jet3Test : public JetImportTest
{
};

TEST_P(Jet3Test, bytesThatAreNotText_areNamed_notCarriedAsQuestionMarks)
{
    table("Master").rows[0][1].bytes = "ab\x81";
    expectRefused("Master row 1: Name \"ab\uFFFD\" is not text\n");
    table("Master").rows[0][1].bytes = "ab?";
    write();
    EXPECT_EQ(import(), ToolStatus::Good) << out.str();
    EXPECT_EQ(query("SELECT Name FROM Master"), Texts{"ab?"});
}

INSTANTIATE_TEST_SUITE_P(Formats, Jet3Test, ::testing::Values(Jet::Three),
                         [](const auto&) { return "jet3"; });

class Jet4Test : public JetImportTest
{
protected:
    /// \a runs, alternately of plain and of other letters, as the newer format packs them.
    static std::string packed(const Texts& runs)
    {
        std::string bytes = "\xFF\xFE";
        for (std::size_t i = 0; i < runs.size(); ++i) {
            if (i > 0)
                bytes += '\0';
            bytes += i % 2 == 0 ? runs[i] : jetText(Jet::Four, runs[i]);
        }
        return bytes;
    }
};

TEST_P(Jet4Test, packedTexts_comeAlong)
{
    table("Master").rows[0][1].bytes = packed({"Apple 500g"});
    table("Master").rows[0][2].bytes = packed({"A", "りんご～①", "500g", "箱"});
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str();
    EXPECT_EQ(query("SELECT Name, NameKN FROM Master"), Texts{"Apple 500g|Aりんご～①500g箱"});
}

TEST_P(Jet4Test, namesWithRareLetters_comeAlong)
{
    table("Master").rows[0][1].bytes = jetText(Jet::Four, "𠮷野の𩸽");
    table("Master").rows[0][2].bytes = packed({"1", "𠮷"});
    write();
    ASSERT_EQ(import(), ToolStatus::Good) << out.str();
    EXPECT_EQ(query("SELECT Name, NameKN FROM Master"), Texts{"𠮷野の𩸽|1𠮷"});
}

TEST_P(Jet4Test, halfALetter_isNamed_notCarriedAsAQuestionMark)
{
    table("Master").rows[0][1].bytes = jetText(Jet::Four, "𠮷").substr(0, 2) + jetText(Jet::Four, "野");
    expectRefused("Master row 1: Name \"\uFFFD野\" is not text\n");
}

INSTANTIATE_TEST_SUITE_P(Formats, Jet4Test, ::testing::Values(Jet::Four), [](const auto&) { return "jet4"; });

TEST(OldTextsTest, formsOfNumbersAndDates)
{
    const struct
    {
        const char* table;
        const char* column;
        const char* text;
        const char* stored; ///< nullptr: it cannot be one
    } cases[] = {
        {"InpTB", "NyuSuu", "", "0000000"},
        {"InpTB", "NyuSuu", "  12 ", "0000012"},
        {"InpTB", "NyuSuu", "0000012", "0000012"},
        {"InpTB", "NyuSuu", "000000012", "000000012"},
        {"InpTB", "NyuSuu", "-3", "-0000003"},
        {"InpTB", "NyuSuu", "-0000003", "-0000003"},
        {"InpTB", "NyuSuu", "12.0", "0000012"},
        {"InpTB", "NyuSuu", "12.5", nullptr},
        {"InpTB", "NyuSuu", "1,200", nullptr},
        {"InpTB", "NyuSuu", "1e3", nullptr},
        {"InpTB", "NyuSuu", "１２", nullptr},
        {"InpTB", "NyuSuu", "99999999999999999999", nullptr},
        {"InpTB", "NyuDate", "20240401", "20240401"},
        {"InpTB", "NyuDate", "2024/04/01", "20240401"},
        {"InpTB", "NyuDate", "2024/4/1", nullptr},
        {"InpTB", "NyuDate", "", nullptr},
        {"InpTB", "NyuDate", "20010230", nullptr},
        {"InpTB", "NyuDate", "20240229", "20240229"},
        {"InpTB", "NyuTime", "09:00:01", "090001"},
        {"InpTB", "NyuTime", "235959", "235959"},
        {"InpTB", "NyuTime", "240000", nullptr},
        {"InpTB", "NyuTime", "096000", nullptr},
        {"InpTB", "NyuTime", "256199", nullptr},
        {"InpTB", "InpDate", "20230229090001", nullptr},
        {"InpTB", "InpDate", "20230228090060", nullptr},
        {"TantouTB", "Code", "", nullptr},
        {"TantouTB", "Code", "0 1", "0 1"},
        {"TantouTB", "Name", "", ""},
        {"InpTB", "InpDate", "2024/04/01 09:00:01", "20240401090001"},
        {"InpTB", "Bikou", " 1,5 ", " 1,5 "},
        {"ZaikoTB", "ZaikoSuu", "0000012", "0000012"},
        {"ZaikoTB", "KuriSuu", "", "0"},
        {"ZaikoTB", "ZaikoSuu", "-1.5", "-1.5"},
        {"ZaikoTB", "ZaikoSuu", "many", nullptr},
        {"Master", "Stock", "", ""},
        {"Master", "Stock", "few", nullptr},
        {"HSeihinTB", "Suuryou", "0.5", "0.5"},
    };
    for (const auto& one : cases) {
        const auto stored = asStored(one.table, one.column, one.text);
        const auto expected = one.stored == nullptr ? std::nullopt : std::optional<std::string>(one.stored);
        EXPECT_EQ(stored, expected) << one.column << " " << one.text;
        EXPECT_EQ(meaningOf(one.table, one.column).empty(),
                  std::string_view(one.column) == "Bikou" || std::string_view(one.column) == "Name");
    }
}

} // namespace suisui::test
