// Row sets, units of work and the store's dialect.
#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "store/Where.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

class StoreTest : public ::testing::Test
{
protected:
    StoreTest() : db(shop.databaseFolder(), [this](const std::string& text) { said.push_back(text); })
    {
        EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        shop.add(masterTable, {"A1", "鉛筆", "", "1", "50", "1", "80", "本", "5"});
        shop.add(masterTable, {"B2", "消しゴム", "", "2", "30", "1", "60", "個", "10"});
    }
    std::vector<std::string> master() const
    {
        return shop.query("SELECT Code,Name,Unit FROM Master ORDER BY Code");
    }

    TempShop shop;
    std::vector<std::string> said;
    AppDB db;
};

} // namespace

TEST_F(StoreTest, selectThatMatchesNothing_emptiesTheBuffer_withoutFailure)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select(""), 2);
    EXPECT_EQ(rows.Select("WHERE Code='none'"), 0);
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_TRUE(said.empty());
}

TEST_F(StoreTest, textsCompareWithoutLetterCase)
{
    EXPECT_EQ(db.MasterTbl().Select("WHERE Code='a1'"), 1);
    EXPECT_EQ(db.MasterTbl().Select("Where Code Like 'a*' "), 1);
    EXPECT_EQ(db.MasterTbl().CountRows("WHERE Code Like '?2'"), 1);
}

TEST_F(StoreTest, dialectServesTheRules)
{
    shop.add(zaikoTable, {"A1", "3", "0000001", "s", "s"});
    ASSERT_EQ(db.OpenRecordset("SELECT Trim(CStr(CDbl( iif(UpdDate = 's', CDbl(KuriSuu), CDbl(Zaikosuu)) - "
                               "CDbl('0.5') ))) AS n, Format(2.5, '0000000') AS f, NULL AS x FROM ZaikoTB"),
              DbStatus::Good);
    EXPECT_EQ(db.recordset().Fields("N"), "0.5");
    EXPECT_EQ(db.recordset().Fields("f"), "0000003");
    EXPECT_EQ(db.recordset().Fields("x"), "");
    EXPECT_THROW((void)db.recordset().Fields("nothing"), RunTimeError);
    db.recordset().MoveNext();
    EXPECT_TRUE(db.recordset().atEof());
    EXPECT_EQ(db.ZaikoTbl().Select("WHERE CDbl(KuriSuu) < CDbl(ZaikoSuu)"), 1);
}

TEST_F(StoreTest, keepRowsFlag_letsModeOneAdd)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("WHERE Code='A1'"), 1);
    EXPECT_EQ(rows.Select("WHERE Code='B2'", "1"), 1); // the flag is not set
    rows.setKeepRows(true);
    EXPECT_EQ(rows.Select("WHERE Code='A1'", "1"), 2);
    HSeihinRec& parts = db.HSeihinTbl();
    shop.add(hseihinTable, {"A1", "", "B2", "1"});
    EXPECT_EQ(parts.Select("", "1"), 1);
    EXPECT_EQ(parts.Select("", "1"), 2); // tables without the flag
}

TEST_F(StoreTest, newRow_isInserted_committed_andTiedToItsTableRow)
{
    MasterRec& rows = db.MasterSyu();
    EXPECT_EQ(rows.NewRows(1), DbStatus::Good);
    const int row = rows.Count();
    EXPECT_EQ(rows.RowState(row), "N");
    rows.set(row, MasterCol::Code, "C3");
    rows.set(row, MasterCol::Name, "x'; DROP TABLE Master; --");
    rows.set(row, MasterCol::Unit, std::string("a\0b\x01\xFF", 5));
    ASSERT_EQ(rows.InsertRow(row), DbStatus::Good);
    EXPECT_TRUE(db.inUnit());
    EXPECT_EQ(master().size(), 2U); // nobody else sees it yet
    db.Commit();
    EXPECT_EQ(db.LastStatus(), DbStatus::Good);
    EXPECT_EQ(rows.RowState(row), "");
    ASSERT_EQ(db.MasterTbl().Select("WHERE Code='C3'"), 1);
    EXPECT_EQ(db.MasterTbl().get(1, MasterCol::Name), "x'; DROP TABLE Master; --");
    EXPECT_EQ(db.MasterTbl().get(1, MasterCol::Unit), std::string_view("a\0b\x01\xFF", 5));
    rows.set(row, MasterCol::Code, "C4"); // an edited key still updates the right row
    ASSERT_EQ(rows.UpdateRow(row), DbStatus::Good);
    db.Commit();
    EXPECT_EQ(db.MasterTbl().Select("WHERE Code='C4'"), 1);
}

TEST_F(StoreTest, duplicateKey_is3022_inSilence_andALaterCommitKeepsTheRest)
{
    db.Execute("UPDATE Master SET Unit='箱' WHERE Code='B2'");
    ASSERT_EQ(db.LastStatus(), DbStatus::Good);
    db.Execute("INSERT INTO Master (Code) VALUES ('a1')");
    EXPECT_EQ(db.LastStatus(), DbStatus::DuplicateKey);
    EXPECT_EQ(db.LastErrNo(), "3022");
    EXPECT_TRUE(said.empty());
    db.Commit();
    EXPECT_EQ(db.LastStatus(), DbStatus::Good);
    EXPECT_EQ(master(), (std::vector<std::string>{"A1|鉛筆|本", "B2|消しゴム|箱"}));
}

TEST_F(StoreTest, rollback_isHarmless_andUndoesEverything)
{
    db.Rollback();
    EXPECT_EQ(db.LastStatus(), DbStatus::Good);
    db.Execute("DELETE FROM Master");
    db.Rollback();
    db.Rollback();
    EXPECT_EQ(master().size(), 2U);
}

TEST_F(StoreTest, rolledBackUnit_isTakenBackInTheBuffer)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("ORDER BY Code"), 2);
    rows.set(1, MasterCol::Unit, "箱");
    rows.NewRows(1);
    rows.set(3, MasterCol::Code, "C3");
    ASSERT_EQ(rows.UpdateRow(1), DbStatus::Good);
    ASSERT_EQ(rows.InsertRow(3), DbStatus::Good);
    ASSERT_EQ(rows.DeleteRow(2), DbStatus::Good);
    EXPECT_EQ(rows.Count(), 2);
    db.Rollback();
    ASSERT_EQ(rows.Count(), 3);
    EXPECT_EQ(rows.RowState(1), "U");
    EXPECT_EQ(rows.get(1, MasterCol::Unit), "箱"); // what the operator typed is still there
    EXPECT_EQ(rows.get(2, MasterCol::Code), "B2");
    EXPECT_EQ(rows.RowState(3), "N");
    EXPECT_EQ(rows.WriteRows(), DbStatus::Good); // and the second attempt works
    db.Commit();
    EXPECT_EQ(master(), (std::vector<std::string>{"A1|鉛筆|箱", "B2|消しゴム|個", "C3||"}));
}

TEST_F(StoreTest, rowChangedBySomebodyElse_isRefused_andOneThatIsGoneIsMarked)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("ORDER BY Code"), 2);
    shop.execute("UPDATE Master SET Name='PENCIL' WHERE Code='A1'");
    shop.execute("DELETE FROM Master WHERE Code='B2'");
    rows.set(1, MasterCol::Unit, "箱");
    rows.set(2, MasterCol::Unit, "箱");
    EXPECT_EQ(rows.UpdateRow(1), DbStatus::RowChanged);
    EXPECT_EQ(rows.RowState(1), "U");
    EXPECT_EQ(db.LastStatus(), DbStatus::RowChanged);
    EXPECT_EQ(rows.UpdateRow(2), DbStatus::RowChanged);
    EXPECT_EQ(rows.RowState(2), "D");
    EXPECT_EQ(rows.DeleteRow(1), DbStatus::RowChanged);
    EXPECT_EQ(rows.Count(), 2);
    db.Rollback();
    EXPECT_TRUE(said.empty()); // the caller has its own message
    EXPECT_EQ(master(), std::vector<std::string>{"A1|PENCIL|本"});
}

TEST_F(StoreTest, changeOfLetterCaseByAnother_countsAsAChange)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("WHERE Code='A1'"), 1);
    shop.execute("UPDATE Master SET Code='a1' WHERE Code='A1'");
    rows.set(1, MasterCol::Unit, "箱");
    EXPECT_EQ(rows.UpdateRow(1), DbStatus::RowChanged);
}

TEST_F(StoreTest, statementsOfMoreThanOne_orWithANul_areErrors_thatAreSaid)
{
    EXPECT_LT(db.MasterTbl().Select("WHERE Code='x'; DELETE FROM Master"), 0);
    EXPECT_LT(db.MasterTbl().Select(std::string_view("WHERE Code='a\0'", 15)), 0);
    EXPECT_LT(db.MasterTbl().Select("WHERE Code='it's'"), 0);
    EXPECT_EQ(said.size(), 3U);
    db.Execute("DELETE FROM Master; DELETE FROM TantouTB");
    EXPECT_NE(db.LastStatus(), DbStatus::Good);
    db.Commit();
    EXPECT_EQ(master().size(), 2U);
    db.ShowErrors(false);
    said.clear();
    EXPECT_LT(db.MasterTbl().CountRows("WHERE nonsense"), 0);
    EXPECT_TRUE(said.empty());
}

TEST_F(StoreTest, boundText_meansOnlyItself_whateverItHolds)
{
    const std::string sly = "x' OR '1'='1";
    db.Execute("INSERT INTO Master (Code, Name) VALUES (" + bound(sly) + ", " + bound("?") + ")");
    ASSERT_EQ(db.LastStatus(), DbStatus::Good);
    ASSERT_EQ(db.MasterTbl().Select(whereCode(sly)), 1);
    EXPECT_EQ(db.MasterTbl().get(1, MasterCol::Code), sly);
    EXPECT_EQ(db.MasterTbl().CountRows("WHERE Name=" + bound("?") + " AND Code=" + bound(sly)), 1);
    EXPECT_EQ(db.MasterTbl().CountRows(whereCode("'")), 0);
    ASSERT_EQ(db.OpenRecordset("SELECT Name FROM Master " + whereCode(sly)), DbStatus::Good);
    EXPECT_EQ(db.recordset().Fields("Name"), "?");
    db.CloseRecordset();
    db.Rollback();
    EXPECT_TRUE(said.empty());
}

TEST_F(StoreTest, boundTextWithANul_orMissing_isAnError_thatIsSaid)
{
    EXPECT_LT(db.MasterTbl().Select(whereCode(std::string_view("A1\0", 3))), 0);
    EXPECT_LT(db.MasterTbl().Select("WHERE Code=?"), 0);
    EXPECT_EQ(said.size(), 2U);
    EXPECT_EQ(db.MasterTbl().Select(whereCode("A1")), 1) << "a kept statement is as good as new";
}

TEST_F(StoreTest, rowsOutsideTheBuffer_areARunTimeError)
{
    EXPECT_THROW((void)db.MasterTbl().get(1, MasterCol::Code), RunTimeError);
    EXPECT_THROW((void)db.MasterTbl().RowState(0), RunTimeError);
    db.MasterTbl().Clear();
    db.MasterTbl().Clear();
    EXPECT_EQ(db.MasterTbl().Count(), 0);
}

TEST_F(StoreTest, eachAccessorHasABufferOfItsOwn)
{
    ASSERT_EQ(db.MasterTbl().Select("WHERE Code='A1'"), 1);
    ASSERT_EQ(db.MasterPost().Select("WHERE Code='B2'"), 1);
    EXPECT_EQ(db.MasterTbl().get(1, MasterCol::Code), "A1");
    EXPECT_EQ(db.MasterSyu().Count(), 0);
}

TEST_F(StoreTest, readingHoldsNoLock)
{
    ASSERT_EQ(db.MasterTbl().Select(""), 2);
    AppDB other(shop.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), DbStatus::Good);
    other.Execute("UPDATE Master SET Unit='x'");
    EXPECT_EQ(other.LastStatus(), DbStatus::Good);
    other.Commit();
    EXPECT_EQ(other.LastStatus(), DbStatus::Good);
}

TEST_F(StoreTest, tablesHaveTheirColumnsInOrder)
{
    EXPECT_EQ(
        shop.query("SELECT group_concat(name,' ') FROM pragma_table_info('InpTB')"),
        std::vector<std::string>{"Code Name NameKN NyuSuu NyuPrice NyuSakiCD NysName NyuDate NyuTime Unit "
                                 "NyuNebiki Henkyaku TanCD TanName Bikou InpDate UpdDate"});
    EXPECT_EQ(shop.query("SELECT group_concat(name,' ') FROM pragma_table_info('OutTB')"),
              std::vector<std::string>{
                  "Code Name NameKN SyuSuu SyuPrice SyuSakiCD SysName SyuDate SyuTime Unit "
                  "SyuNebiki RHenkyaku FHenkyaku TanCD TanName Bikou TyoDate TyoTime InpDate UpdDate"});
    EXPECT_EQ(
        shop.query("SELECT DISTINCT upper(t.type) FROM sqlite_master m, pragma_table_info(m.name) t WHERE "
                   "m.type='table'"),
        std::vector<std::string>{"TEXT"});
}

} // namespace suisui::test
