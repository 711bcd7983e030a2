// Moving the cursor by keys and mouse, and copying what is selected.
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadInput = SpreadWindow;

TEST_F(SpreadInput, cursorMovesOfTheOperator_areSignalled_theProgramsAreNot)
{
    addRow("A", "1");
    addRow("B", "2");
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    grid.SetActiveCell(Cell::name, 1);
    EXPECT_EQ(leaves.size(), 0);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Down);
    ASSERT_EQ(leaves.size(), 1);
    EXPECT_EQ(leaves[0], (QVariantList{Cell::name, 1, Cell::name, 2}));
    EXPECT_EQ(grid.ActiveRow(), 2);
    QSignalSpy headings(&grid, &vaSpread::HeadingClick);
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
    ASSERT_EQ(headings.size(), 1);
    EXPECT_EQ(headings[0], QVariantList{1});
}

TEST_F(SpreadInput, whatTheProgramDoesToTheRows_isNotAMoveOfTheOperator)
{
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    QSignalSpy changes(&grid, &vaSpread::Change);
    for (int i = 0; i < 4; ++i)
        addRow("A", "1");
    grid.setFocus(); // the cursor comes to the first cell
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(grid.ActiveCol(), 1);
    grid.SetActiveCell(3, 4);
    grid.setMaxRows(3);
    EXPECT_EQ(grid.ActiveRow(), 3);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(2, 2));
    grid.DeleteRows(3);
    grid.InsertRows(1);
    grid.setReDraw(false);
    grid.setReDraw(true);
    const vaSpread::SortKey rising[] = {{1, true}};
    grid.Sort(rising);
    grid.setMaxRows(0);
    grid.setColumns(columns);
    EXPECT_EQ(leaves.size(), 0);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(SpreadInput, codeTypedAtALockedCell_leavesTheCursorWhereItIs)
{
    for (const char* code : {"490", "49", "4"})
        addRow(code, "1");
    grid.SetActiveCell(Cell::code, 1);
    grid.setFocus();
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    for (const char key : {'4', '9', '0'})
        QTest::keyClick(&grid, key);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(leaves.size(), 0);
}

TEST_F(SpreadInput, headingClick_movesNoCursorAndSelectsNothing)
{
    for (int i = 0; i < 3; ++i)
        addRow("A", "1");
    grid.SetActiveCell(Cell::quantity, 2);
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    QSignalSpy headings(&grid, &vaSpread::HeadingClick);
    const QHeaderView* header = grid.horizontalHeader();
    const QPoint fourth(header->sectionViewportPosition(3) + header->sectionSize(3) / 2, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, fourth);
    ASSERT_EQ(headings.size(), 1);
    EXPECT_EQ(headings[0], QVariantList{4});
    EXPECT_EQ(grid.ActiveCol(), Cell::quantity);
    EXPECT_EQ(grid.ActiveRow(), 2);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(1, Cell::quantity - 1));
    EXPECT_EQ(leaves.size(), 0);
    EXPECT_LE(grid.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(SpreadInput, tabGoesFromCellToCell_andLeavesTheGridAtItsEnds)
{
    addRow("B", "2");
    addRow("A", "1");
    grid.SetActiveCell(Cell::mark, 1);
    grid.setFocus();
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(grid.ActiveCol(), Cell::total);
    QTest::keyClick(&grid, Qt::Key_Tab); // past the hidden column into the next row
    EXPECT_EQ(grid.ActiveCol(), Cell::code);
    EXPECT_EQ(grid.ActiveRow(), 2);
    QTest::keyClick(&grid, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(grid.ActiveCol(), Cell::total);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(leaves.size(), 3);
    grid.SetActiveCell(Cell::total, 2);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &field);
    grid.SetActiveCell(Cell::code, 1);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &field);
    grid.setMaxRows(0);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &field);
}

TEST_F(SpreadInput, tabOutOfAnEditor_takesTheTextAndGoesOn)
{
    addRow("A", "1");
    startTyping(Cell::quantity, 1, '7');
    pressKey(Qt::Key_Tab);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "7");
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.ActiveCol(), Cell::date);
    QTest::keyClick(&grid, Qt::Key_F2);
    pressKey(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(grid.ActiveCol(), Cell::quantity);
    EXPECT_EQ(grid.text(Cell::date, 1), "2026/04/01");
}

TEST_F(SpreadInput, selectedCells_areCopiedAsTabSeparatedLines)
{
    addRow("B", "2");
    addRow("A", "0000001");
    grid.setFocus();
    grid.SetActiveCell(Cell::code, 1);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"A"_s);
    grid.selectionModel()->select(
        QItemSelection(grid.model()->index(0, Cell::code - 1), grid.model()->index(1, Cell::posted - 1)),
        QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"A\t名\t1\t2026/04/01\t09:00:00\t1\t1,200\r\nB\t名\t2\t2026/04/01\t09:00:00\t1\t1,200"_s);
}

TEST_F(SpreadInput, cellsSelectedByTheKeyboard_areCopied_eachAsOneField)
{
    addRow("B", "12345");
    addRow("A", "1");
    grid.SetText(Cell::name, 1, std::string_view("x\ty\nz"));
    grid.SetActiveCell(Cell::name, 1);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"x y z\t1\r\n名\t12345"_s);
}

} // namespace suisui::test
