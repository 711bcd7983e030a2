// Row sets, selections and cursors at their edges: rows and columns that are not there, sets that are gone.
#include <array>
#include <cstddef>
#include <memory>

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

struct RowEdgesTest : public ::testing::Test
{
    RowEdgesTest() : db(shop.databaseFolder())
    {
        EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        for (const char* code : {"B", "C", "A"})
            shop.add(masterTable, {code, std::string("name ") + code, "", "1", "50", "1", "80", "本", "5"});
    }
    /// What the error of \a work says, with its number.
    template <typename Work> static std::string errorOf(Work work)
    {
        try {
            work();
        } catch (const RunTimeError& error) {
            return std::to_string(static_cast<int>(error.number())) + " " + error.what();
        }
        return "no error";
    }
    static std::string outside(const std::string& words)
    {
        return std::to_string(static_cast<int>(RunTimeError::SubscriptOutOfRange)) + " " + words;
    }
    static std::string codesOf(const RowSet& rows)
    {
        std::string codes;
        for (int row = 1; row <= rows.Count(); ++row)
            codes += rows.get(row, 0);
        return codes;
    }

    TempShop shop;
    AppDB db;
};

} // namespace

TEST_F(RowEdgesTest, rowsAndColumnsThatAreNotThere_areNamed)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select({}), 3);
    EXPECT_EQ(errorOf([&] { (void)rows.get(4, 0); }), outside("row 4 of Master"));
    EXPECT_EQ(errorOf([&] { (void)rows.get(0, 0); }), outside("row 0 of Master"));
    EXPECT_EQ(errorOf([&] { rows.set(1, -1, "x"); }), outside("column of Master"));
    EXPECT_EQ(errorOf([&] { rows.set(1, masterTable.columnCount(), "x"); }), outside("column of Master"));
    EXPECT_EQ(rows.RowState(1), "") << "nothing was set";
    rows.set(3, masterTable.columnCount() - 1, "x");
    EXPECT_EQ(rows.get(3, masterTable.columnCount() - 1), "x");
    ZaikoViewRec& view = db.ZaikoViewTbl();
    EXPECT_EQ(errorOf([&] { (void)view.packed(1); }), outside("row 1 of a selection"));
    EXPECT_EQ(errorOf([&] { (void)view.packed(0); }), outside("row 0 of a selection"));
    EXPECT_NE(errorOf([&] { (void)rows.PrepareDelete(4); }), "no error");
    EXPECT_EQ(rows.PrepareDelete(3), DbStatus::Good);
}

TEST_F(RowEdgesTest, newRows_areEmptyTexts)
{
    MasterRec& rows = db.MasterTbl();
    EXPECT_NE(rows.NewRows(-1), DbStatus::Good);
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_EQ(rows.NewRows(0), DbStatus::Good);
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_EQ(rows.NewRows(2), DbStatus::Good);
    EXPECT_EQ(rows.Count(), 2);
    EXPECT_EQ(rows.RowState(2), "N");
    EXPECT_EQ(rows.get(2, masterTable.columnCount() - 1), "");
    EXPECT_NE(rows.UpdateRow(2), DbStatus::Good) << "it is in no table yet";
    EXPECT_NE(rows.DeleteRow(2), DbStatus::Good);
    EXPECT_FALSE(db.inUnit());
}

TEST_F(RowEdgesTest, rowsComeInTheOrderOfTheirTable_unlessOneIsAskedFor)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("WHERE Code >= 'A'"), 3);
    EXPECT_EQ(codesOf(rows), "BCA");
    ASSERT_EQ(rows.Select("order by Code desc"), 3);
    EXPECT_EQ(codesOf(rows), "CBA");
    EXPECT_EQ(rows.CountRows("WHERE Code < 'C'"), 2);
    EXPECT_EQ(rows.CountRows("WHERE nonsense"), -1);
    EXPECT_EQ(rows.Count(), 3) << "counting leaves the rows";
}

TEST_F(RowEdgesTest, selectionThatFails_leavesWhatWasAddedBefore)
{
    MasterRec& rows = db.MasterTbl();
    rows.setKeepRows(true);
    ASSERT_EQ(rows.Select("WHERE Code='A'", "1"), 1);
    EXPECT_EQ(rows.Select("WHERE CDbl(Name) = 0", "1"), -1);
    EXPECT_EQ(codesOf(rows), "A");
    EXPECT_EQ(rows.Select("WHERE Code='B'", "1"), 2);
    EXPECT_EQ(codesOf(rows), "AB");
    EXPECT_EQ(rows.Select("WHERE Code='C'", "0"), 1);
}

TEST_F(RowEdgesTest, aRowInsertedUnderAnotherKey_isTheNewRowFromThenOn)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select("WHERE Code='A'"), 1);
    rows.set(1, MasterCol::Code, "D");
    ASSERT_EQ(rows.InsertRow(1), DbStatus::Good);
    rows.set(1, MasterCol::Unit, "箱");
    ASSERT_EQ(rows.UpdateRow(1), DbStatus::Good);
    db.Commit();
    EXPECT_EQ(shop.query("SELECT Code, Unit FROM Master ORDER BY Code"),
              (std::vector<std::string>{"A|本", "B|本", "C|本", "D|箱"}));
}

TEST_F(RowEdgesTest, aRowSetThatIsGone_isNoPartOfTheUnit)
{
    alignas(ZaikoRec) std::array<std::byte, sizeof(ZaikoRec)> place;
    auto* const rows = std::construct_at(reinterpret_cast<ZaikoRec*>(place.data()), db, zaikoTable);
    rows->NewRows(1);
    rows->set(1, ZaikoCol::Code, "A");
    ASSERT_EQ(rows->InsertRow(1), DbStatus::Good);
    std::destroy_at(rows);
    for (std::size_t i = 0; i < place.size(); ++i) // whoever looks there now goes astray
        place.at(i) = static_cast<std::byte>(i);
    db.Rollback();
    EXPECT_EQ(shop.query("SELECT count(*) FROM ZaikoTB"), std::vector<std::string>{"0"});
}

TEST_F(RowEdgesTest, severalRowsDeletedAndTakenBack_areWhereTheyWere)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select({}), 3);
    rows.set(2, MasterCol::Unit, "箱");
    ASSERT_EQ(rows.DeleteRow(1), DbStatus::Good);
    ASSERT_EQ(rows.DeleteRow(2), DbStatus::Good);
    ASSERT_EQ(rows.UpdateRow(1), DbStatus::Good);
    EXPECT_EQ(rows.RowState(1), "");
    EXPECT_EQ(codesOf(rows), "C");
    db.Rollback();
    EXPECT_EQ(codesOf(rows), "BCA");
    EXPECT_EQ(rows.RowState(1), "");
    EXPECT_EQ(rows.RowState(2), "U");
    EXPECT_EQ(rows.WriteRows(), DbStatus::Good) << "what was stored is still known";
    db.Commit();
    db.Rollback();
    EXPECT_EQ(codesOf(rows), "BCA") << "nothing left to take back";
    EXPECT_EQ(shop.query("SELECT Code FROM Master WHERE Unit='箱'"), std::vector<std::string>{"C"});
}

TEST_F(RowEdgesTest, writeRows_endsAtTheFirstThatFails)
{
    MasterRec& rows = db.MasterTbl();
    ASSERT_EQ(rows.Select({}), 3);
    for (int row = 1; row <= 3; ++row)
        rows.set(row, MasterCol::Unit, "箱");
    shop.execute("DELETE FROM Master WHERE Code='C'"); // row 2
    EXPECT_NE(rows.WriteRows(), DbStatus::Good);
    EXPECT_EQ(rows.RowState(1), "");
    EXPECT_EQ(rows.RowState(2), "D");
    EXPECT_EQ(rows.RowState(3), "U");
    EXPECT_EQ(db.LastErrNo(), "") << "nothing of the engine's";
}

TEST_F(RowEdgesTest, shipmentsAndTheirSums_areGroupedByPriceAndUnit_toTheLetter)
{
    auto ship = [this, stamp = 0](const std::string& quantity, const std::string& price,
                                  const std::string& unit, const std::string& name) mutable {
        shop.add(outTable, {"A",
                            name,
                            "",
                            quantity,
                            price,
                            "S",
                            "",
                            "20260101",
                            "100000",
                            unit,
                            "1",
                            "0",
                            "0",
                            "T",
                            "",
                            "",
                            "",
                            "",
                            std::to_string(20260101000000 + ++stamp),
                            ""});
    };
    ship("1", "50", "kg", "a");
    ship("2", "40", "KG", "b");
    ship("3", "50", "KG", "c");
    ship("4", "50", "kg", "B");
    SyuViewRec& rows = db.SyuViewTbl();
    const auto quantities = [&rows] {
        std::string text;
        for (int row = 1; row <= rows.Count(); ++row)
            text += rows.get(row, SyuViewCol::SyuSuu);
        return text;
    };
    ASSERT_EQ(rows.Select(" WHERE Code='a' ", ""), 4);
    EXPECT_EQ(quantities(), "2314");
    ASSERT_EQ(rows.Select("WHERE Code='A' ORDER BY SyuSuu DESC", ""), 4);
    EXPECT_EQ(quantities(), "4321");
    ASSERT_EQ(rows.Select("WHERE Code='A'", "1"), 8) << "what has no flag always adds";
    SyuSumRec& sums = db.SyuSumTbl();
    ASSERT_EQ(sums.Select("WHERE Code='A'", " ORDER BY CDbl(SyuPrice)", ""), 2)
        << "kg and KG are one unit here";
    EXPECT_EQ(sums.Select("WHERE Code='A'", "", ""), 2) << "in no order";
    EXPECT_EQ(sums.Select("", "", "1"), 4);
    ASSERT_EQ(sums.Select("WHERE Code='A'", " ORDER BY CDbl(SyuPrice)", ""), 2);
    EXPECT_EQ(db.NyuSumTbl().Select("", "", ""), 0);
    EXPECT_EQ(db.ZaikoViewTbl().Select("", ""), 0);
    EXPECT_EQ(sums.get(2, SyuSumCol::SyuSuu), "8");
    EXPECT_EQ(sums.get(2, SyuSumCol::Name), "c") << "the last of the names";
    EXPECT_EQ(sums.get(2, SyuSumCol::Amount), "397");
}

TEST_F(RowEdgesTest, aCursorHasItsColumnsByName_untilItsEnd)
{
    Recordset& cursor = db.recordset();
    const std::string noRow = std::to_string(static_cast<int>(RunTimeError::InvalidCall)) + " no current row";
    EXPECT_TRUE(cursor.atEof());
    EXPECT_EQ(errorOf([&] { (void)cursor.Fields("Code"); }), noRow);
    ASSERT_EQ(db.OpenRecordset("SELECT Code AS Codes, Name, Unit AS Cod FROM Master ORDER BY Code"),
              DbStatus::Good);
    EXPECT_EQ(cursor.columns(), 3);
    EXPECT_EQ(cursor.Fields("cODES"), "A");
    EXPECT_EQ(cursor.Fields("Cod"), "本");
    EXPECT_EQ(cursor.Fields(std::string_view("Name!", 4)), "name A") << "a name ends where it ends";
    EXPECT_EQ(errorOf([&] { (void)cursor.Fields("Code"); }), outside("no column Code"));
    cursor.MoveNext();
    cursor.MoveNext();
    EXPECT_FALSE(cursor.atEof());
    EXPECT_EQ(cursor.text(1), "name C");
    cursor.MoveNext();
    EXPECT_TRUE(cursor.atEof());
    EXPECT_EQ(cursor.status(), DbStatus::Good);
    EXPECT_EQ(errorOf([&] { cursor.MoveNext(); }), noRow);
    EXPECT_NE(db.OpenRecordset("SELECT CDbl(Name) AS n FROM Master"), DbStatus::Good);
    EXPECT_TRUE(cursor.atEof());
    EXPECT_EQ(cursor.status(), DbStatus::Good);
    ASSERT_EQ(db.OpenRecordset("SELECT CDbl(iif(Code = 'A', '1', Name)) AS n FROM Master ORDER BY Code"),
              DbStatus::Good);
    cursor.MoveNext();
    EXPECT_TRUE(cursor.atEof());
    EXPECT_NE(cursor.status(), DbStatus::Good) << "it ended by a failure";
    db.CloseRecordset();
    EXPECT_EQ(cursor.status(), DbStatus::Good);
}

} // namespace suisui::test
