// Typing into the cells: what each kind of column takes, and that nothing typed gets lost.
#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadInput = SpreadWindow;

TEST_F(SpreadInput, typing_overwritesTheCell_andSignalsTheChange)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    typeInto(Cell::quantity, 1, u"25"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "25");
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0], (QVariantList{Cell::quantity, 1}));
    typeInto(Cell::quantity, 1, u"25"_s); // no difference, no event
    EXPECT_EQ(changes.size(), 1);
    grid.SetText(Cell::quantity, 1, std::string_view("7")); // what the program writes is not an event either
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, doubleClickAndF2_editTheContent)
{
    addRow("A", "12");
    grid.setFocus();
    const QPoint cell = grid.visualRect(grid.model()->index(0, Cell::quantity - 1)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell);
    ASSERT_TRUE(grid.isEditing());
    pressKey(Qt::Key_End);
    QTest::keyClick(QApplication::focusWidget(), '3');
    pressKey(Qt::Key_Return);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "123");
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_Home);
    QTest::keyClick(QApplication::focusWidget(), '9');
    pressKey(Qt::Key_Return);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "9123");
}

TEST_F(SpreadInput, editorsRefuse_whatTheColumnCannotHold)
{
    addRow("A", "12");
    typeInto(Cell::quantity, 1, u"x1-2 3"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "123");
    typeInto(Cell::quantity, 1, u"-45"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "-45");
    typeInto(Cell::quantity, 1, u"12345678901234567890"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "1234567");
    typeInto(Cell::quantity, 1, u"-"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "1234567");
    for (const QString& noDate : {u"20260230"_s, u"2026/13/01"_s, u"1"_s}) {
        typeInto(Cell::date, 1, noDate);
        EXPECT_EQ(grid.text(Cell::date, 1), "2026/04/01") << noDate.toStdString();
    }
    typeInto(Cell::date, 1, u"20260331"_s);
    EXPECT_EQ(grid.text(Cell::date, 1), "2026/03/31");
    typeInto(Cell::date, 1, u"2026/3/5"_s);
    EXPECT_EQ(grid.text(Cell::date, 1), "2026/03/05");
    typeInto(Cell::time, 1, u"256000"_s);
    EXPECT_EQ(grid.text(Cell::time, 1), "09:00:00");
    typeInto(Cell::time, 1, u"8:05"_s);
    EXPECT_EQ(grid.text(Cell::time, 1), "08:05:00");
    typeInto(Cell::code, 1, u"999"_s); // locked
    EXPECT_EQ(grid.text(Cell::code, 1), "A");
    typeInto(Cell::total, 1, u"999"_s); // a computed figure
    EXPECT_EQ(grid.text(Cell::total, 1), "1,200");
}

TEST_F(SpreadInput, freeText_takesNoMoreCharactersThanItsColumnHolds)
{
    constexpr SpreadColumn narrow[] = {{.heading = "備考", .type = CellType::Text, .digits = 3}};
    grid.setColumns(narrow);
    grid.setMaxRows(1);
    typeInto(1, 1, u"abcdef"_s);
    EXPECT_EQ(grid.text(1, 1), "abc");
    QGuiApplication::clipboard()->setText(u"一二三四"_s);
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_V, Qt::ControlModifier);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(grid.text(1, 1), "一二三");
}

TEST_F(SpreadInput, pasteIntoANumber_isTakenOnlyWhenItIsOne)
{
    addRow("A", "12");
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setFocus();
    for (const auto& [pasted, wanted] :
         {std::pair(u"abc"_s, "12"), std::pair(u"1 000"_s, "12"), std::pair(u"88"_s, "88")}) {
        QGuiApplication::clipboard()->setText(pasted);
        QTest::keyClick(&grid, Qt::Key_F2);
        pressKey(Qt::Key_V, Qt::ControlModifier);
        pressKey(Qt::Key_Return);
        EXPECT_EQ(grid.text(Cell::quantity, 1), wanted) << pasted.toStdString();
    }
    QGuiApplication::clipboard()->setText(u"一行目\n二行目\t終"_s);
    grid.SetActiveCell(Cell::name, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_V, Qt::ControlModifier);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(grid.text(Cell::name, 1), "一行目 二行目 終");
}

TEST_F(SpreadInput, emptiedNumber_isTheEmptyText_andEscapeBringsTheOldTextBack)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Escape);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "12");
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "");
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, emptiedDateAndTime_bringTheOldTextBack)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.setFocus();
    for (const int col : {Cell::date, Cell::time}) {
        grid.SetActiveCell(col, 1);
        QTest::keyClick(&grid, Qt::Key_F2);
        pressKey(Qt::Key_Delete);
        pressKey(Qt::Key_Return);
    }
    EXPECT_EQ(grid.text(Cell::date, 1), "2026/04/01");
    EXPECT_EQ(grid.text(Cell::time, 1), "09:00:00");
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(SpreadInput, checkBox_togglesByClickAndSpace)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    const QRect cell = grid.visualRect(grid.model()->index(0, Cell::mark - 1));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(grid.text(Cell::mark, 1), "0");
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(grid.text(Cell::mark, 1), "1");
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(SpreadInput, typedTextIsKept_whenTheFocusLeavesTheCell)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    startTyping(Cell::quantity, 1, '9');
    EXPECT_TRUE(grid.isEditing());
    field.setFocus();
    EXPECT_EQ(grid.text(Cell::quantity, 1), "9");
    EXPECT_EQ(changes.size(), 1);
    grid.setFocus();
    QTest::keyClick(&grid, '8');
    grid.endEdit();
    EXPECT_EQ(grid.text(Cell::quantity, 1), "8");
    EXPECT_FALSE(grid.isEditing());
    grid.endEdit();
}

TEST_F(SpreadInput, typedTextIsKept_whenAnotherWindowComesForward)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    startTyping(Cell::quantity, 1, '9');
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(grid.text(Cell::quantity, 1), "9");
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, typedTextIsKept_whenTheRowsScrollAway)
{
    for (int i = 0; i < 200; ++i)
        addRow("A", "12");
    startTyping(Cell::quantity, 1, '9');
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    grid.endEdit();
    EXPECT_EQ(grid.text(Cell::quantity, 1), "9");
    EXPECT_EQ(grid.text(Cell::quantity, 200), "12");
}

TEST_F(SpreadInput, typedTextIsKeptInItsRow_whenTheProgramTurnsToTheRows)
{
    addRow("B", "1");
    addRow("A", "2");
    QSignalSpy changes(&grid, &vaSpread::Change);
    startTyping(Cell::quantity, 1, '9');
    grid.setReDraw(false);
    EXPECT_FALSE(grid.isEditing());
    grid.InsertRows(1);
    grid.setReDraw(true);
    EXPECT_EQ(grid.text(Cell::quantity, 2), "9");
    grid.SetActiveCell(Cell::quantity, 2);
    QTest::keyClick(&grid, '8');
    const vaSpread::SortKey falling[] = {{1, false}};
    grid.Sort(falling); // B, A, the empty row
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.text(Cell::code, 2), "A");
    EXPECT_EQ(grid.text(Cell::quantity, 2), "8");
    EXPECT_EQ(grid.text(Cell::quantity, 1), "1");
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(SpreadInput, whileRedrawIsOff_noCellCanBeEdited)
{
    addRow("A", "12");
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setFocus();
    grid.setReDraw(false);
    grid.InsertRows(1);
    QTest::keyClick(&grid, '9');
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_FALSE(grid.isEditing());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.visualRect(grid.model()->index(0, Cell::mark - 1)).center());
    EXPECT_EQ(grid.text(Cell::mark, 1), "");
    EXPECT_EQ(grid.text(Cell::mark, 2), "1");
    grid.setReDraw(true);
    EXPECT_EQ(grid.text(Cell::quantity, 2), "12");
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_TRUE(grid.isEditing());
}

} // namespace suisui::test
