// Operating the entry tabs: keys typed into the code field, and where the focus is after each outcome of a
// booking, a search, an update and a delete.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>

#include "tests/support/EntryDesk.h"
#include "tests/support/SideName.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class EntryFocusTest : public ::testing::TestWithParam<Side>
{
protected:
    EntryFocusTest()
    {
        desk.goods("1234567890123", "鉛筆", "5", "100", "5", "100");
        desk.goods("B", "糊", "2", "10", "2", "10");
        for (const char* code : {"1234567890123", "B"})
            desk.shop.add(zaikoTable, {code, "1000", "0", "s", "s"});
        page = &desk.open(GetParam());
        page->resize(1200, 600);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page));
        field().setFocus();
    }
    [[nodiscard]] QLineEdit& field() const { return *page->barCodeField(); }
    template <typename Widget> [[nodiscard]] Widget& control(const QString& pattern) const
    {
        const QString name = pattern.arg(QChar(GetParam() == Side::Receipt ? u'N' : u'S'));
        auto* found = page->findChild<Widget*>(name);
        if (found == nullptr)
            throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    [[nodiscard]] std::size_t stored() const
    {
        return desk.shop.query("SELECT Code FROM " + std::string(movementTable(GetParam()).table.name))
            .size();
    }
    [[nodiscard]] static bool onGrid(const MovementPage& page)
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus != nullptr && focus->objectName().startsWith(u"Sprd_"_s) && focus->isVisible()
               && page.isAncestorOf(focus);
    }
    void book(const QString& code)
    {
        EntryDesk::book(*page, code);
        desk.box.shown.clear();
    }
    /// Presses the button with a box that answers \a answer.
    void press(const QString& button, BoxAnswer answer)
    {
        desk.box.answers = {answer};
        control<QPushButton>(button).click();
        desk.box.answers.clear();
    }
    /// Another program has changed all movements.
    void changedElsewhere() const
    {
        desk.shop.execute("UPDATE " + std::string(movementTable(GetParam()).table.name)
                          + " SET Bikou='other'");
    }

    const MovementCells& cells = movementSide(GetParam()).cells;
    EntryDesk desk;
    MovementPage* page = nullptr;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSides, EntryFocusTest, ::testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

// ---- keys in the code field

TEST_P(EntryFocusTest, thirteenCharactersCanBeTyped_andEnterStillBooksThem)
{
    QTest::keyClicks(&field(), u"12345678901234"_s);
    EXPECT_EQ(field().text(), u"1234567890123"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(stored(), 1U);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(field().text(), u"1234567890123"_s) << "the next code overwrites it";
}

TEST_P(EntryFocusTest, aSelectedCodeIsTypedOver_andBackspacePasses)
{
    field().setText(u"1234567890123"_s);
    field().end(false);
    QTest::keyClick(&field(), 'B');
    EXPECT_EQ(field().text().size(), 13);
    QTest::keyClick(&field(), Qt::Key_Backspace);
    EXPECT_EQ(field().text(), u"123456789012"_s);
    field().selectAll();
    QTest::keyClick(&field(), 'B');
    EXPECT_EQ(field().text(), u"B"_s);
}

TEST_P(EntryFocusTest, quotesAndBlanksCannotBeTyped)
{
    QTest::keyClicks(&field(), u"B' *?;"_s);
    EXPECT_EQ(field().text(), u"B"_s);
}

TEST_P(EntryFocusTest, aPasteMayBeLongerThanTyping_andIsLookedUpWhole)
{
    QGuiApplication::clipboard()->setText(u"1234567890123456"_s);
    QTest::keyClick(&field(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field().text(), u"1234567890123456"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(u"「 1234567890123456 」"_s));
    EXPECT_EQ(stored(), 0U);
}

TEST_P(EntryFocusTest, enterOnTheEmptyField_leavesTheFocusThere)
{
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(stored(), 0U);
    EXPECT_TRUE(desk.frame.enabled);
}

// ---- the focus after a booking

TEST_P(EntryFocusTest, afterABooking_isInTheQuantityOfTheNewRow)
{
    QTest::keyClicks(&field(), u"b"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(onGrid(*page));
    EXPECT_EQ(page->grid()->ActiveRow(), 1);
    EXPECT_EQ(page->grid()->ActiveCol(), cells.quantity);
    EXPECT_EQ(page->grid()->currentIndex().column(), cells.quantity - 1) << "and it is seen to be this cell";
}

TEST_P(EntryFocusTest, afterAnUnknownCode_isInTheCodeField)
{
    page->grid()->setFocus();
    EntryDesk::book(*page, u"4999"_s);
    EXPECT_TRUE(field().hasFocus());
}

// ---- and after search, update and delete

TEST_P(EntryFocusTest, afterASearch_isInTheGrid_withoutResultInTheFirstYear)
{
    book(u"B"_s);
    press(u"cmd%1Kensaku"_s, BoxAnswer::Yes);
    EXPECT_TRUE(onGrid(*page));
    page->setDefaultDates(u"20300101"_s, u"20300102"_s);
    press(u"cmd%1Kensaku"_s, BoxAnswer::Yes);
    EXPECT_TRUE(control<QLineEdit>(u"txt%1yyyy_F"_s).hasFocus());
}

TEST_P(EntryFocusTest, whenTheGuardIsCancelled_goesToTheGrid)
{
    book(u"B"_s);
    control<QPushButton>(u"cmd%1Kensaku"_s).setFocus();
    desk.frame.guardAnswer = BoxAnswer::Cancel;
    page->cmdKensaku_Click();
    EXPECT_TRUE(onGrid(*page));
}

TEST_P(EntryFocusTest, afterAFailedUpdate_isOnTheSearchButton_orInTheRefusedCell)
{
    book(u"B"_s);
    EntryDesk::edit(*page, cells.quantity, 1, "8");
    changedElsewhere();
    page->grid()->setFocus();
    press(u"cmd%1Kousin"_s, BoxAnswer::Yes);
    EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s);
    EXPECT_TRUE(control<QPushButton>(u"cmd%1Kensaku"_s).hasFocus());

    desk.frame.setDirty(GetParam(), false);
    page->cmdKensaku_Click();
    desk.shop.execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999999' WHERE Code='B'");
    EntryDesk::edit(*page, cells.quantity, 1, GetParam() == Side::Receipt ? "8" : "1");
    field().setFocus();
    press(u"cmd%1Kousin"_s, BoxAnswer::Yes);
    EXPECT_EQ(desk.box.shown.back().title, u"桁あふれエラー"_s);
    EXPECT_TRUE(onGrid(*page));
    EXPECT_EQ(page->grid()->ActiveCol(), cells.quantity);
}

TEST_P(EntryFocusTest, afterAFailedDelete_isOnTheSearchButton_withNothingPending)
{
    book(u"B"_s);
    EntryDesk::edit(*page, cells.price, 1, "99");
    changedElsewhere();
    press(u"cmd%1Delete"_s, BoxAnswer::Yes);
    EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s);
    EXPECT_TRUE(control<QPushButton>(u"cmd%1Kensaku"_s).hasFocus());
    EXPECT_FALSE(desk.frame.dirty(GetParam()));
    EXPECT_EQ(stored(), 1U);
}

// ---- a row that was not stored

TEST_P(EntryFocusTest, aRowThatWasNotStored_letsNoOtherRowBeDeletedInItsPlace)
{
    book(u"1234567890123"_s);
    book(u"B"_s);
    page->grid()->SetActiveCell(cells.quantity,
                                2); // the older row, which is still in view until the next search
    // Somebody else's row has the stamp of the next booking.
    const std::string stamp = "20260401090005";
    const std::string table(movementTable(GetParam()).table.name);
    std::vector<std::string> taken(static_cast<std::size_t>(movementTable(GetParam()).table.columnCount()));
    taken[0] = "B";
    taken[static_cast<std::size_t>(movementTable(GetParam()).columns.inpDate)] = stamp;
    desk.shop.add(movementTable(GetParam()).table, taken);
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 0, 5)));
    EntryDesk::book(*page, u"B"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    ASSERT_EQ(page->grid()->MaxRows(), 2);
    desk.box.shown.clear();
    press(u"cmd%1Delete"_s, BoxAnswer::Yes);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[1].title, u"データベースエラー"_s);
    EXPECT_EQ(stored(), 3U) << "neither the visible row nor the one that has moved to its place";
    // After the search that the box advises, everything works again.
    page->setDefaultDates(u"20260401"_s, u"20260401"_s);
    page->cmdKensaku_Click();
    ASSERT_EQ(page->grid()->MaxRows(), 2);
    press(u"cmd%1Delete"_s, BoxAnswer::Yes);
    EXPECT_EQ(stored(), 2U);
}

} // namespace suisui::test
