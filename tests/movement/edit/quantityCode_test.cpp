// A reader that types as slowly as a person puts its code into the quantity.
#include <QApplication>
#include <QKeyEvent>
#include <QTest>

#include "tests/movement/edit/EditTest.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Shows \a page, which has rows, with more goods whose codes can be mistaken for quantities.
void show(const EntryDesk& desk, MovementPage& page)
{
    for (const char* code : {"1234567", "SET-01", "0000123", "4901001000017", "12345"})
        desk.goods(code, "品", "1", "10", "1", "10");
    page.show();
    page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
}

/// Types \a text and Enter at the quantity of row 1; a box is answered with \a answer.
void typeQuantity(EntryDesk& desk, MovementPage& page, int quantityCell, const QString& text,
                  BoxAnswer answer)
{
    desk.box.shown.clear();
    desk.box.answers = {answer};
    page.grid()->SetActiveCell(quantityCell, 1);
    page.grid()->setFocus();
    for (const QChar letter : text + u'\r') {
        QKeyEvent key(QEvent::KeyPress, letter == u'\r' ? int{Qt::Key_Return} : 0, Qt::NoModifier,
                      QString(letter));
        QCoreApplication::sendEvent(QApplication::focusWidget(), &key);
    }
    desk.box.answers.clear();
}

} // namespace

TEST_P(EditTest, aCodeAsQuantity_isAskedAbout_andEnterLosesNothing)
{
    bookThree();
    show(desk, *page);
    typeQuantity(desk, *page, cells.quantity, u"1234567"_s, BoxAnswer::No);
    expectOneBox(
        desk.box,
        {.title = u"数量の確認"_s,
         .text =
             u"入力された 「 1234567 」 は\r\n登録されている 商品 の コード です。\r\n\r\n数量を 「 1234567 」 に変更しますか？　　　\r\n\r\n　　はい　　： 数量を変更します\r\n　　いいえ　： 数量は変更せず、コードを入力欄に移します　　　\r\n　　　　　　　（Enter を押すと 登録します）"_s,
         .icon = BoxIcon::Question,
         .buttons = BoxButtons::YesNo,
         .defaultButton = BoxAnswer::No});
    EXPECT_EQ(page->grid()->text(cells.quantity, 1), "5");
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    EXPECT_EQ(page->barCodeField()->text(), u"1234567"_s);
    EXPECT_EQ(page->barCodeField()->selectedText(), u"1234567"_s);
    EXPECT_TRUE(page->barCodeField()->hasFocus());
    EXPECT_EQ(quantities().size(), 3U) << "nothing is booked unseen";
    EXPECT_FALSE(page->grid()->isEditing());
}

TEST_P(EditTest, aYes_takesTheQuantity)
{
    bookThree();
    show(desk, *page);
    typeQuantity(desk, *page, cells.quantity, u"1234567"_s, BoxAnswer::Yes);
    EXPECT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(page->grid()->text(cells.quantity, 1), "1234567");
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
}

TEST_P(EditTest, whatTheCellRefusesOfACode_countsAsTyped)
{
    bookThree();
    show(desk, *page);
    for (const QString& code : {u"SET-01"_s, u"4901001000017"_s, u"0000123"_s}) {
        typeQuantity(desk, *page, cells.quantity, code, BoxAnswer::No);
        EXPECT_EQ(desk.box.shown.size(), 1U) << code.toStdString();
        EXPECT_EQ(page->grid()->text(cells.quantity, 1), "5") << code.toStdString();
        EXPECT_EQ(page->barCodeField()->text(), code);
    }
}

TEST_P(EditTest, quantitiesThatAreNotACode_orAShortOne_areTakenUnasked)
{
    bookThree();
    show(desk, *page);
    for (const auto& [typed, shown] :
         {std::pair{u"12"_s, "12"}, {u"12345"_s, "12345"}, {u"1234568"_s, "1234568"}, {u"123"_s, "123"}}) {
        typeQuantity(desk, *page, cells.quantity, typed, BoxAnswer::No);
        EXPECT_TRUE(desk.box.shown.empty()) << shown;
        EXPECT_EQ(page->grid()->text(cells.quantity, 1), shown);
    }
}

} // namespace suisui::test
