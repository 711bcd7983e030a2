// Updating the table from corrected cells: what is asked, written and posted.
#include "tests/movement/edit/EditTest.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, updateWithNothingChanged_asksNothing)
{
    bookThree();
    page->cmdKousin_Click();
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(EditTest, updateAsks_andSaysWhenItIsDone)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 2, "8");
    update(BoxAnswer::No);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    desk.box.shown.clear();
    desk.frame.loaded = {true, true, true, true, true};
    update();
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u"更新の確認"_s);
    EXPECT_EQ(desk.box.shown[0].text,
              u"「 %1 」を更新します。　　　　\r\n\r\n　よろしいですか？"_s.arg(GetParam().term));
    EXPECT_EQ(desk.box.shown[0].defaultButton, BoxAnswer::No);
    EXPECT_EQ(desk.box.shown[1].title, u"更新の完了"_s);
    EXPECT_EQ(desk.box.shown[1].text, u"「 %1 」を更新しました。　　　　"_s.arg(GetParam().term));
    EXPECT_EQ(desk.box.shown[1].icon, BoxIcon::Information);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000008", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    EXPECT_FALSE(desk.frame.TabLoaded(Tab::Stock));
    EXPECT_FALSE(desk.frame.TabLoaded(GetParam().listTab));
}

TEST_P(EditTest, changedDateOnly_writesTheRow_andLeavesTheStockAlone)
{
    bookThree();
    const auto stockRows = desk.shop.query("SELECT * FROM ZaikoTB ORDER BY Code");
    EntryDesk::edit(*page, cells.date, 1, "2026/03/30");
    update();
    EXPECT_EQ(desk.shop.query("SELECT * FROM ZaikoTB ORDER BY Code"), stockRows);
    EXPECT_EQ(desk.shop
                  .query(std::string("SELECT ") + GetParam().date + " FROM " + GetParam().table
                         + " ORDER BY InpDate")
                  .back(),
              "20260330");
}

TEST_P(EditTest, laterUpdate_postsOnlyWhatIsNew)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "8");
    update();
    EntryDesk::edit(*page, cells.quantity, 1, "6");
    update();
    EXPECT_EQ(desk.stockOf("A"), stockAfter(16));
    EXPECT_EQ(page->grid()->text(cells.postedQuantity, 1), "6");
}

} // namespace suisui::test
