// Updates and deletes that cannot be done: rows that others have changed, a file that is held, a full stock.
// Nothing stays half done, and the next try is right.
#include "tests/movement/edit/EditTest.h"
#include "tests/support/HeldFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, rowChangedByAnotherProgram_undoesTheWholeUpdate)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "8");
    EntryDesk::edit(*page, 4, 3, "9");
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
    EXPECT_EQ(page->grid()->text(16, 1), "8") << "an earlier row has gone through its posting";
    // The advice of the box: search again. Nothing has stayed half done.
    desk.frame.setDirty(GetParam().side, false);
    page->cmdKensaku_Click();
    EntryDesk::edit(*page, 4, 3, "9");
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(19));
}

TEST_P(EditTest, rowDeletedByAnotherProgram_isNeitherUpdatedNorDeleted)
{
    bookThree();
    desk.shop.execute(std::string("DELETE FROM ") + GetParam().table + " WHERE InpDate='20260401090001'");
    const std::string stock = desk.stockOf("A");
    EntryDesk::edit(*page, 4, 2, "8");
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
    EntryDesk::edit(*page, 4, 1, "8");
    EntryDesk::edit(*page, 4, 3, "9");
    {
        const HeldFile held(desk.shop);
        update();
    }
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EntryDesk::edit(*page, 4, 1, "8"); // the posting failed, so the cell is what it was
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000008"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(22));
}

TEST_P(EditTest, stockThatWouldOverflow_bringsTheCellBack_andTheRetryIsRight)
{
    bookThree();
    const bool receipt = GetParam().side == Side::Receipt;
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999998' WHERE Code='A'");
    EntryDesk::edit(*page, 4, 1, receipt ? "6" : "4"); // one more in stock: fits
    EntryDesk::edit(*page, 4, 2, receipt ? "9" : "1"); // four more: does not
    desk.box.shown.clear();
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"桁あふれエラー"_s);
    EXPECT_EQ(page->grid()->text(4, 2), "5");
    EXPECT_EQ(page->grid()->ActiveCol(), 4);
    EXPECT_EQ(page->grid()->ActiveRow(), 2);
    EXPECT_EQ(page->grid()->text(16, 1), receipt ? "6" : "4") << "hidden cells of earlier rows stay";
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

} // namespace suisui::test
