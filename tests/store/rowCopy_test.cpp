// Rows from one database to another, and new files that are filled with them.
#include <gtest/gtest.h>

#include <QFile>

#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

/// Goods of one shop, to be copied into those of another.
class RowCopyTest : public ::testing::Test
{
protected:
    RowCopyTest()
        : source(from.databaseFolder()),
          target(to.databaseFolder(), [this](const std::string& text) { said.push_back(text); })
    {
        if (source.Open("trnvik.mdb") != DbStatus::Good || target.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
    }

    void goods(const std::string& code, const std::string& name) const
    {
        from.add(masterTable, {code, name});
    }
    /// Copies what \a sql selects, and leaves the unit of work open.
    DbStatus copied(const std::string& sql = "SELECT * FROM Master ORDER BY Code")
    {
        EXPECT_EQ(source.OpenRecordset(sql), DbStatus::Good);
        return target.copyRows(source, masterTable, added);
    }
    [[nodiscard]] Texts stored() const { return to.query("SELECT Code, Name FROM Master ORDER BY Code"); }

    TempShop from;
    TempShop to;
    Texts said;
    AppDB source;
    AppDB target;
    std::int64_t added = -1;
};

} // namespace

TEST_F(RowCopyTest, allRowsFromTheCursorOn_arriveWithAllTheirTexts)
{
    from.add(masterTable, {"A", "鉛筆", "エンピツ", "1", "50", "2", "80", "本", "5", "i", "u"});
    goods("B", "");
    goods("C", "糊");
    EXPECT_EQ(copied(), DbStatus::Good);
    EXPECT_EQ(added, 3);
    EXPECT_TRUE(target.inUnit());
    EXPECT_TRUE(stored().empty()) << "not before the commit";
    target.Commit();
    EXPECT_EQ(stored(), (Texts{"A|鉛筆", "B|", "C|糊"}));
    EXPECT_EQ(to.query("SELECT * FROM Master WHERE Code = 'A'"), Texts{"A|鉛筆|エンピツ|1|50|2|80|本|5|i|u"});
    EXPECT_EQ(to.query("SELECT count(*) FROM Master WHERE NameKN IS NULL"), Texts{"0"});
}

TEST_F(RowCopyTest, rowsThatTheCursorHasPassed_areNotCopied)
{
    goods("A", "a");
    goods("B", "b");
    ASSERT_EQ(source.OpenRecordset("SELECT * FROM Master ORDER BY Code"), DbStatus::Good);
    source.recordset().MoveNext();
    EXPECT_EQ(target.copyRows(source, masterTable, added), DbStatus::Good);
    EXPECT_EQ(added, 1);
    target.Commit();
    EXPECT_EQ(stored(), Texts{"B|b"});
    EXPECT_TRUE(source.recordset().atEof()) << "the cursor is closed";
}

TEST_F(RowCopyTest, aRowThatIsThereAlready_isPassedOver_andNotCounted)
{
    goods("A", "new");
    goods("B", "new");
    to.add(masterTable, {"a", "old"});
    EXPECT_EQ(copied(), DbStatus::Good);
    EXPECT_EQ(added, 1);
    target.Commit();
    EXPECT_EQ(stored(), (Texts{"a|old", "B|new"}));
}

TEST_F(RowCopyTest, noRows_areCopiedWell_andOpenAUnitAllTheSame)
{
    EXPECT_EQ(copied(), DbStatus::Good);
    EXPECT_EQ(added, 0);
    EXPECT_TRUE(target.inUnit());
    EXPECT_EQ(target.LastStatus(), DbStatus::Good);
}

TEST_F(RowCopyTest, aQuoteOrANul_inAnyRow_refusesThemAll)
{
    for (const std::string& text : {std::string("it's"), std::string("'"), std::string("a\0b", 3)})
        for (const std::string first : {"A", "Z"}) {
            from.execute("DELETE FROM Master");
            goods("M", "plain");
            goods(first, text);
            EXPECT_NE(copied(), DbStatus::Good) << first;
            EXPECT_EQ(added, 0);
            EXPECT_FALSE(target.inUnit());
            EXPECT_NE(target.LastStatus(), DbStatus::Good);
            EXPECT_EQ(target.LastErrText(), "a quote in a row of Master");
            EXPECT_TRUE(source.recordset().atEof());
            target.Commit();
            EXPECT_TRUE(stored().empty());
        }
    EXPECT_TRUE(said.empty()) << "the caller has words of its own";
}

TEST_F(RowCopyTest, rowsOfAnotherTable_areRefused)
{
    goods("A", "a");
    EXPECT_NE(copied("SELECT Code, Name FROM Master"), DbStatus::Good);
    EXPECT_EQ(target.LastErrText(), "the rows have not the columns of Master");
    EXPECT_FALSE(target.inUnit());
    EXPECT_NE(copied("SELECT *, Code FROM Master"), DbStatus::Good);
    EXPECT_EQ(copied("SELECT Code FROM Master WHERE Code = 'NIX'"), DbStatus::Good)
        << "no row has wrong columns";
}

TEST_F(RowCopyTest, aRowThatCannotBeRead_undoesTheRowsBeforeIt)
{
    goods("A", "a");
    goods("B", "b");
    from.add(zaikoTable, {"B", "many"});
    const std::string sum = "CStr(CDbl((SELECT ZaikoSuu FROM ZaikoTB WHERE ZaikoTB.Code = Master.Code)))";
    ASSERT_NE(
        copied("SELECT Code, Name, " + sum + ", '', '', '', '', '', '', '', '' FROM Master ORDER BY Code"),
        DbStatus::Good);
    EXPECT_EQ(added, 0);
    EXPECT_EQ(target.LastErrText(), "a row of Master cannot be read");
    EXPECT_FALSE(target.inUnit());
    EXPECT_TRUE(stored().empty());
}

TEST_F(RowCopyTest, failuresAreSilentOnlyWhileItCopies)
{
    goods("A", "a");
    EXPECT_EQ(copied(), DbStatus::Good);
    target.Commit();
    target.Execute("nonsense");
    EXPECT_EQ(said.size(), 1U);
    target.Rollback();
    said.clear();
    to.execute("CREATE TRIGGER full BEFORE INSERT ON Master BEGIN SELECT RAISE(ABORT,'full'); END");
    goods("B", "b");
    EXPECT_NE(copied(), DbStatus::Good);
    EXPECT_TRUE(said.empty());
    EXPECT_FALSE(target.inUnit());
    EXPECT_EQ(added, 0);
}

TEST_F(RowCopyTest, aWorkingDatabaseThatIsHeld_takesNoRows)
{
    goods("A", "a");
    AppDB other(to.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), DbStatus::Good);
    other.Execute("DELETE FROM Master");
    EXPECT_NE(copied(), DbStatus::Good);
    EXPECT_EQ(target.LastFailure(), DbStatus::Busy);
    EXPECT_FALSE(target.inUnit());
    other.Rollback();
}

TEST(Filling, aFileBeingFilled_hasItsKeysAtFirst_andItsIndexesAtTheEnd)
{
    const TempShop shop;
    const Texts indexes = shop.query("SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name");
    const std::string path = shop.databaseFolder() + "/period.hst";
    ASSERT_EQ(AppDB::Create(path), DbStatus::Good);
    AppDB file(shop.databaseFolder());
    ASSERT_EQ(file.OpenForFilling(path), DbStatus::Good);
    EXPECT_EQ(
        queryFile(path, "SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name"),
        (Texts{"InpTB_1", "KokyakuTB_1", "Master_1", "OutTB_1", "RirekiTB_1", "TantouTB_1", "ZaikoTB_1"}));
    file.Execute("INSERT INTO InpTB (Code, InpDate) VALUES ('A', '20260101090000')");
    EXPECT_EQ(file.LastStatus(), DbStatus::Good);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path + "-journal"))) << "it takes no file beside it";
    file.Execute("INSERT INTO InpTB (Code, InpDate) VALUES ('A', '20260101090000')");
    EXPECT_EQ(file.LastErrNo(), "3022");
    ASSERT_EQ(file.FinishFilling(0xFEDCBA98U), DbStatus::Good);
    EXPECT_FALSE(file.inUnit());
    EXPECT_EQ(queryFile(path, "SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name"), indexes);
    EXPECT_EQ(queryFile(path, "SELECT Code FROM InpTB"), Texts{"A"});
    file.CloseFile();
    EXPECT_EQ(AppDB::MarkOf(path), 0xFEDCBA98U);
}

TEST(Filling, withoutAMark_theFileHasNone)
{
    const TempShop shop;
    const std::string path = shop.databaseFolder() + "/period.hst";
    ASSERT_EQ(AppDB::Create(path), DbStatus::Good);
    AppDB file(shop.databaseFolder());
    ASSERT_EQ(file.OpenForFilling(path), DbStatus::Good);
    ASSERT_EQ(file.FinishFilling(), DbStatus::Good);
    file.CloseFile();
    EXPECT_EQ(AppDB::MarkOf(path), 0U);
    EXPECT_NE(file.OpenForFilling(shop.databaseFolder() + "/none.hst"), DbStatus::Good);
}

} // namespace suisui::test
