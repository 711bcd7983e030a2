// Updates and deletes that are refused: rows that others have changed, a locked file, a stock figure at its
// limit. Nothing stays half done, and the next attempt works.
#include "tests/movement/edit/EditTest.h"
#include "tests/support/HeldFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, rowChangedByAnotherProgram_undoesTheWholeUpdate)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "8");
    EntryDesk::edit(*page, cells.quantity, 3, "9");
    desk.shop.execute(std::string("UPDATE ") + GetParam().table
                      + " SET Bikou='other' WHERE InpDate='20260401090000'"); // row 3 of the grid
    const std::string stock = desk.stockOf("A");
    desk.box.shown.clear();
    update();
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[1].title, u"データベースエラー"_s);
    EXPECT_EQ(desk.box.shown[1].icon, BoxIcon::Stop);
    EXPECT_EQ(
        desk.box.shown[1].text,
        u"「 %1 」 の更新ができませんでした。\r\n\r\n他の処理で 変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。"_s
            .arg(GetParam().term));
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stock);
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_EQ(page->grid()->text(cells.postedQuantity, 1), "8") << "an earlier row has been posted";
    // The box advises to search again. Nothing is left half done.
    desk.frame.setDirty(GetParam().side, false);
    page->cmdKensaku_Click();
    EntryDesk::edit(*page, cells.quantity, 3, "9");
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(19));
}

TEST_P(EditTest, rowDeletedByAnotherProgram_isNeitherUpdatedNorDeleted)
{
    bookThree();
    desk.shop.execute(std::string("DELETE FROM ") + GetParam().table + " WHERE InpDate='20260401090001'");
    const std::string stock = desk.stockOf("A");
    EntryDesk::edit(*page, cells.quantity, 2, "8");
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s);
    EXPECT_EQ(desk.stockOf("A"), stock);
    desk.box.shown.clear();
    erase(2);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(
        desk.box.shown[1].text,
        u"「 %1 」 の削除ができませんでした。\r\n\r\n他の処理で 変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。"_s
            .arg(GetParam().term));
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    EXPECT_EQ(desk.stockOf("A"), stock);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_FALSE(desk.db.inUnit());
}

TEST_P(EditTest, updateTriedAgainAfterAFailure_postsWhatWasTakenBack)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "8");
    EntryDesk::edit(*page, cells.quantity, 3, "9");
    {
        const HeldFile held(desk.shop);
        update();
    }
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EntryDesk::edit(*page, cells.quantity, 1, "8"); // the posting failed, so the cell has its old figure
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000008"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(22));
}

TEST_P(EditTest, stockThatWouldOverflow_bringsTheCellBack_andTheRetryIsRight)
{
    bookThree();
    const bool receipt = GetParam().side == Side::Receipt;
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999998' WHERE Code='A'");
    EntryDesk::edit(*page, cells.quantity, 1, receipt ? "6" : "4"); // one more in stock: fits
    EntryDesk::edit(*page, cells.quantity, 2, receipt ? "9" : "1"); // four more: does not
    desk.box.shown.clear();
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"桁あふれエラー"_s);
    EXPECT_EQ(page->grid()->text(cells.quantity, 2), "5");
    EXPECT_EQ(page->grid()->ActiveCol(), cells.quantity);
    EXPECT_EQ(page->grid()->ActiveRow(), 2);
    EXPECT_EQ(page->grid()->text(cells.postedQuantity, 1), receipt ? "6" : "4")
        << "hidden cells of earlier rows stay";
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), "99999999999998");
    update();
    EXPECT_EQ(quantities().back(), receipt ? "0000006" : "0000004");
    EXPECT_EQ(desk.stockOf("A"), "99999999999999");
}

TEST_P(EditTest, deleteThatCannotBeStored_leavesRowAndStock)
{
    bookThree();
    {
        const HeldFile held(desk.shop);
        erase(1);
    }
    EXPECT_EQ(quantities().size(), 3U);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    erase(1);
    EXPECT_EQ(quantities().size(), 2U);
}

TEST_P(EditTest, rowDeletedByAnother_isRefusedAtEachUpdate_untilTheNextSearch)
{
    bookThree();
    desk.shop.execute(std::string("DELETE FROM ") + GetParam().table + " WHERE InpDate='20260401090001'");
    const std::string stock = desk.stockOf("A");
    EntryDesk::edit(*page, cells.quantity, 2, "8");
    for (int attempt = 1; attempt <= 3; ++attempt) {
        desk.box.shown.clear();
        update();
        ASSERT_EQ(desk.box.shown.size(), 2U) << attempt;
        EXPECT_EQ(desk.box.shown[1].title, u"データベースエラー"_s) << attempt;
        EXPECT_TRUE(desk.frame.dirty(GetParam().side)) << attempt;
        EXPECT_EQ(desk.stockOf("A"), stock) << attempt;
    }
    EntryDesk::edit(*page, cells.quantity, 1, "9"); // another row does not repair the lost one
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005"}));
    desk.frame.setDirty(GetParam().side, false);
    page->cmdKensaku_Click();
    EntryDesk::edit(*page, cells.quantity, 1, "9");
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"更新の完了"_s);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000009"}));
}

TEST_P(EditTest, rowThatCouldNotBeDeleted_isRefusedWhenItIsCorrectedLater)
{
    bookThree();
    desk.shop.execute(std::string("DELETE FROM ") + GetParam().table + " WHERE InpDate='20260401090001'");
    erase(2);
    ASSERT_FALSE(desk.frame.dirty(GetParam().side));
    EntryDesk::edit(*page, cells.quantity, 2, "8");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        desk.box.shown.clear();
        update();
        EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s) << attempt;
        EXPECT_TRUE(desk.frame.dirty(GetParam().side)) << attempt;
    }
}

TEST_P(EditTest, rowOfAFailedInsert_isRefusedWhenItIsCorrected)
{
    bookThree();
    const std::string table = GetParam().table;
    desk.shop.execute("CREATE TRIGGER full BEFORE INSERT ON " + table
                      + " BEGIN SELECT RAISE(ABORT,'full'); END");
    EntryDesk::book(*page, u"A"_s);
    desk.shop.execute("DROP TRIGGER full");
    ASSERT_EQ(quantities().size(), 3U);
    const std::string stock = desk.stockOf("A");
    EntryDesk::edit(*page, cells.quantity, 2, "7"); // the row below is stored
    update();
    ASSERT_EQ(desk.box.shown.back().title, u"更新の完了"_s);
    EntryDesk::edit(*page, cells.quantity, 1, "9");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        desk.box.shown.clear();
        update();
        ASSERT_EQ(desk.box.shown.size(), 2U) << attempt;
        EXPECT_EQ(desk.box.shown[1].title, u"データベースエラー"_s) << attempt;
        EXPECT_TRUE(desk.frame.dirty(GetParam().side)) << attempt;
    }
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000007"}));
    EXPECT_NE(desk.stockOf("A"), stock) << "the row below was posted";
}

/// A database that shows its failures, as the program's does, and that fails every update in the given way.
TEST_P(EditTest, updateThatFails_showsItsCauseOnce_andBlamesNobodyElse)
{
    for (const std::string how : {"ABORT", "ROLLBACK"}) { // the second ends the whole unit
        std::vector<std::string> causes;
        AppDB db(desk.shop.databaseFolder(), [&causes](const std::string& text) { causes.push_back(text); });
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        MovementPage own(GetParam().side, {db, desk.ini, desk.clock, desk.box, desk.frame});
        own.setPartners({{"101", u"東商店"_s}});
        EntryDesk::book(own, u"A"_s);
        const std::string stock = desk.stockOf("A");
        EntryDesk::edit(own, cells.quantity, 1, "8");
        desk.shop.execute(std::string("CREATE TRIGGER broken BEFORE UPDATE ON ") + GetParam().table
                          + " BEGIN SELECT RAISE(" + how + ",'the disk is broken'); END");
        for (int attempt = 1; attempt <= 2; ++attempt) {
            causes.clear();
            desk.box.shown.clear();
            desk.box.answers = {BoxAnswer::Yes};
            own.cmdKousin_Click();
            ASSERT_EQ(causes.size(), 1U) << how << attempt;
            EXPECT_NE(causes[0].find("the disk is broken"), std::string::npos) << causes[0];
            EXPECT_EQ(desk.box.shown.size(), 1U) << "only the question";
            EXPECT_TRUE(desk.frame.dirty(GetParam().side));
            EXPECT_FALSE(db.inUnit());
            EXPECT_EQ(desk.stockOf("A"), stock);
        }
        desk.shop.execute("DROP TRIGGER broken");
        desk.box.answers = {BoxAnswer::Yes};
        own.cmdKousin_Click();
        EXPECT_EQ(desk.box.shown.back().title, u"更新の完了"_s);
        EXPECT_EQ(quantities().back(), "0000008");
    }
}

} // namespace suisui::test
