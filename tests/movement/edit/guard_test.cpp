// Unsaved corrections and the guard over them.
#include "tests/movement/edit/EditTest.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, cancelAtTheGuard_keepsGridAndCorrections)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "77");
    desk.frame.guardAnswer = BoxAnswer::Cancel;
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->text(cells.quantity, 1), "77");
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, guardedUpdate_asksNothingOfItsOwn)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "8");
    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"更新の完了"_s);
}

} // namespace suisui::test
