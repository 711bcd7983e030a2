// Correcting and deleting stored movements, without a screen.
#include "booking/Correction.h"

#include <gtest/gtest.h>

#include "tests/support/BookingDesk.h"
#include "tests/support/SideName.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

/// Three movements of five pencils, of which 1000 were in stock; row 1 is the newest.
class CorrectionTest : public ::testing::TestWithParam<Side>
{
protected:
    CorrectionTest()
    {
        desk.goods("A", "5", "5");
        desk.stock("A", "1000");
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(tab.book("A"), BookResult::Stored);
    }

    [[nodiscard]] bool isReceipt() const { return GetParam() == Side::Receipt; }
    [[nodiscard]] std::string table() const { return isReceipt() ? "InpTB" : "OutTB"; }
    /// Quantities in the table, oldest booking first.
    [[nodiscard]] Texts quantities() const
    {
        return desk.shop.query(std::string("SELECT ") + (isReceipt() ? "NyuSuu" : "SyuSuu") + " FROM "
                               + table() + " ORDER BY InpDate");
    }
    /// Stock of the pencils after movements of \a moved pieces in all.
    [[nodiscard]] std::string stockAfter(int moved) const
    {
        return std::to_string(1000 + (isReceipt() ? moved : -moved));
    }
    /// The first write of a row fails from now on, and the second does not: a lock that was brief.
    void failFirstWrites() const
    {
        desk.shop.execute("CREATE TABLE Tries (Code TEXT)");
        desk.shop.execute("CREATE TRIGGER brief BEFORE UPDATE ON " + table()
                          + " WHEN NOT EXISTS (SELECT 1 FROM Tries WHERE Code = OLD.InpDate) BEGIN "
                            "INSERT INTO Tries VALUES (OLD.InpDate); SELECT RAISE(FAIL,'brief'); END");
    }
    void failWritesOfTheOldest() const
    {
        desk.shop.execute("CREATE TRIGGER broken BEFORE UPDATE ON " + table()
                          + " WHEN OLD.InpDate='20260401090000' BEGIN SELECT RAISE(ABORT,'broken'); END");
    }
    /// Rows 1 and 3 are corrected; the update has posted row 1 when row 3 fails, and undoes all.
    void updateIsTakenBack()
    {
        tab.type(1, 8, 0);
        tab.type(3, 9, 0);
        failWritesOfTheOldest();
        EXPECT_EQ(tab.edit.update(), EditResult::Failed);
    }
    void writesWorkAgain() const { desk.shop.execute("DROP TRIGGER broken"); }
    void failAllWrites() const
    {
        desk.shop.execute("CREATE TRIGGER broken BEFORE UPDATE ON " + table()
                          + " BEGIN SELECT RAISE(ABORT,'broken'); END");
    }

    BookingDesk desk;
    EntryTab& tab = desk.tab(GetParam());
};

INSTANTIATE_TEST_SUITE_P(BothSides, CorrectionTest, ::testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

} // namespace

TEST_P(CorrectionTest, updatePostsTheDifferences_andWritesTheRows)
{
    tab.type(1, 8, 0);
    tab.type(3, 3, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(tab.edit.rowsWritten(), 2);
    EXPECT_EQ(quantities(), (Texts{"0000003", "0000005", "0000008"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(16));
    tab.type(1, 6, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(14)) << "only what is new";
}

TEST_P(CorrectionTest, returnsWeakenAReceipt_andNeverReachTheStockFromAShipment)
{
    tab.type(1, 8, 3);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(isReceipt() ? 15 : 18));
    EXPECT_EQ(tab.erase(1), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
}

TEST_P(CorrectionTest, writeThatFailsOnce_isTriedAgain_withoutAWord)
{
    failFirstWrites();
    tab.type(2, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(quantities(), (Texts{"0000005", "0000008", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
    EXPECT_TRUE(desk.storeSaid.empty());
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(CorrectionTest, writeThatFailsTwice_hasShownItsCauseOnce_andLeavesNothing)
{
    failAllWrites();
    tab.type(1, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Failed);
    EXPECT_EQ(desk.storeSaid.size(), 1U);
    EXPECT_EQ(quantities(), (Texts{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EXPECT_FALSE(desk.db.inUnit());
    writesWorkAgain();
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
}

TEST_P(CorrectionTest, rowThatAnotherProgramHasChanged_undoesTheWholeUpdate)
{
    tab.type(1, 8, 0);
    tab.type(3, 9, 0);
    desk.shop.execute("UPDATE " + table() + " SET Bikou='other' WHERE InpDate='20260401090000'"); // row 3
    EXPECT_EQ(tab.edit.update(), EditResult::ConcurrentChange);
    EXPECT_EQ(tab.edit.rowsWritten(), 1) << "row 1 was, before row 3 undid it";
    EXPECT_EQ(tab.view.posted(1).quantity, 8);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EXPECT_EQ(quantities(), (Texts{"0000005", "0000005", "0000005"}));
    tab.search();
    tab.type(1, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
}

TEST_P(CorrectionTest, figuresOfAnUpdateThatWasTakenBack_arePutBackBeforeTheNext)
{
    updateIsTakenBack();
    writesWorkAgain();
    // A new row pushes all others down, and the old figures with them.
    EXPECT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(tab.view.posted(2).quantity, 5);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(quantities(), (Texts{"0000009", "0000005", "0000008", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(27));
}

TEST_P(CorrectionTest, updateThatWasTakenBack_postsTheSameAtTheNextTry)
{
    updateIsTakenBack();
    writesWorkAgain();
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(quantities(), (Texts{"0000009", "0000005", "0000008"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(22));
}

TEST_P(CorrectionTest, searchForgetsWhatWasTakenBack)
{
    updateIsTakenBack();
    writesWorkAgain();
    desk.shop.execute("UPDATE " + table() + (isReceipt() ? " SET NyuSuu" : " SET SyuSuu")
                      + "='0000007' WHERE InpDate='20260401090002'"); // row 1
    tab.search();
    tab.type(1, 9, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(17)) << "from 7 to 9";
}

TEST_P(CorrectionTest, deleteAfterAnUpdateThatWasTakenBack_undoesWhatWasPosted)
{
    updateIsTakenBack();
    EXPECT_EQ(tab.erase(1), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
}

TEST_P(CorrectionTest, rowThatIsGone_refusesEveryUpdate_untilTheNextSearch)
{
    desk.shop.execute("DELETE FROM " + table() + " WHERE InpDate='20260401090001'"); // row 2
    tab.type(2, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::ConcurrentChange);
    tab.type(1, 9, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::ConcurrentChange)
        << "another row does not make the lost one good";
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EXPECT_EQ(tab.erase(2), EditResult::ConcurrentChange);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    tab.search();
    tab.type(1, 9, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(19));
}

TEST_P(CorrectionTest, rowThatCouldNotBeDeleted_refusesTheUpdateOfItsCorrection)
{
    desk.shop.execute("DELETE FROM " + table() + " WHERE InpDate='20260401090001'"); // row 2
    EXPECT_EQ(tab.erase(2), EditResult::ConcurrentChange);
    tab.type(2, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::ConcurrentChange);
    EXPECT_EQ(tab.edit.rowsWritten(), 0);
}

TEST_P(CorrectionTest, rowThatWasNeverStored_refusesTheUpdateOfItsCorrection)
{
    desk.shop.execute("CREATE TRIGGER full BEFORE INSERT ON " + table()
                      + " BEGIN SELECT RAISE(ABORT,'full'); END");
    EXPECT_EQ(tab.book("A"), BookResult::NotStored);
    tab.type(2, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Done) << "the row below is stored";
    tab.type(1, 8, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::ConcurrentChange);
    EXPECT_EQ(tab.edit.rowsWritten(), 0);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
}

TEST_P(CorrectionTest, rowRefusedByTheStock_undoesTheRowsBeforeIt)
{
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999998'");
    tab.type(1, isReceipt() ? 6 : 4, 0); // one more in stock: fits
    tab.type(2, isReceipt() ? 9 : 1, 0); // four more: does not
    EXPECT_EQ(tab.edit.update(), EditResult::Refused);
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_EQ(tab.edit.rowsWritten(), 1);
    EXPECT_EQ(quantities(), (Texts{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), "99999999999998");
    EXPECT_EQ(tab.edit.update(), EditResult::Done) << "the figure that did not fit is what it was";
    EXPECT_EQ(desk.stockOf("A"), "99999999999999");
}

TEST_P(CorrectionTest, stockThatWouldOverflow_putsTheFiguresBack)
{
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999998'");
    const MovementColumns& columns = movementTable(GetParam()).columns;
    tab.type(1, isReceipt() ? 10 : 1, 1); // four more in stock: a shipment's return is not looked at
    EXPECT_EQ(tab.edit.update(), EditResult::Refused);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(tab.view.shown(1).quantity, 5);
    EXPECT_EQ(tab.view.totalPutBack, isReceipt() ? "500" : "600");
    EXPECT_EQ(tab.rows().get(3, columns.quantity), "0000005");
    EXPECT_EQ(tab.rows().get(3, columns.returned[0]), isReceipt() ? "0000000" : "0000001");
    EXPECT_EQ(desk.stockOf("A"), "99999999999998");
}

TEST_P(CorrectionTest, aTypedFigure_isComparedAsAText)
{
    const MovementColumns& columns = movementTable(GetParam()).columns;
    EXPECT_TRUE(tab.edit.take(3, columns.quantity, CellForm::Number, "5"));
    EXPECT_FALSE(tab.edit.take(3, columns.quantity, CellForm::Number, "0000005"));
    EXPECT_FALSE(tab.edit.take(3, columns.date, CellForm::Date, "2026/04/01"));
    EXPECT_TRUE(tab.edit.take(3, columns.time, CellForm::Time, "09:00:59"));
    EXPECT_EQ(tab.rows().get(3, columns.time), "090059");
    EXPECT_EQ(tab.rows().RowState(3), "U");
    EXPECT_EQ(tab.rows().RowState(2), "");
}

TEST_P(CorrectionTest, rowsThatTheRowSetHasLeft_areNotTouched)
{
    tab.rows().Select("WHERE Code='NIX'");
    tab.edit.searched(false);
    EXPECT_FALSE(tab.edit.inStep(1));
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(tab.edit.erase(1), EditResult::ConcurrentChange);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EXPECT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_TRUE(tab.edit.inStep(1));
    EXPECT_FALSE(tab.edit.inStep(2));
}

TEST_P(CorrectionTest, newRowThatWasNotStored_cutsOffARowThatTheRowSetHasLeft)
{
    tab.rows().Select("WHERE Code='NIX'");
    tab.edit.searched(false);
    desk.shop.execute("CREATE TRIGGER full BEFORE INSERT ON " + table()
                      + " BEGIN SELECT RAISE(ABORT,'full'); END");
    EXPECT_EQ(tab.book("A"), BookResult::NotStored);
    EXPECT_EQ(tab.view.count(), 3);
    EXPECT_TRUE(tab.edit.inStep(1));
    EXPECT_FALSE(tab.edit.inStep(2));
}

TEST(ReceiptCorrection, updateWhoseCommitFails_leavesNothing)
{
    BookingDesk desk;
    EntryTab& tab = desk.receipts;
    desk.goods("A", "5", "5");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    tab.type(1, 8, 0);
    {
        AppDB reader(desk.shop.databaseFolder());
        ASSERT_EQ(reader.OpenStill(desk.shop.databaseFile()),
                  DbStatus::Good); // others' commits wait, and give up
        EXPECT_EQ(tab.edit.update(), EditResult::Failed);
        EXPECT_FALSE(desk.db.inUnit());
    }
    EXPECT_EQ(desk.stockOf("A"), "5");
    EXPECT_EQ(tab.edit.update(), EditResult::Done);
    EXPECT_EQ(desk.stockOf("A"), "8");
}

TEST(ReceiptCorrection, deletePostsTheGoodsFirst_updateTheirComponents)
{
    BookingDesk desk;
    EntryTab& tab = desk.receipts;
    desk.goods("SET", "5", "5");
    desk.goods("PART", "1", "1");
    desk.component("SET", "PART", "3");
    desk.stock("PART", "15");
    ASSERT_EQ(tab.book("SET"), BookResult::Stored);
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999999' WHERE Code='PART'");
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='1' WHERE Code='SET'");
    EXPECT_EQ(tab.erase(1), EditResult::Refused);
    EXPECT_FALSE(desk.db.inUnit());
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u" 在庫不足"_s);
    EXPECT_EQ(desk.box.shown[1].title, u"桁あふれエラー"_s);
    desk.box.shown.clear();
    tab.type(1, 0, 0);
    EXPECT_EQ(tab.edit.update(), EditResult::Refused);
    ASSERT_EQ(desk.box.shown.size(), 1U) << "the component alone";
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(tab.view.shown(1).quantity, 0) << "the cells stay when it is a component that is refused";
    EXPECT_EQ(desk.stockOf("SET"), "1");
}

} // namespace suisui::test
