// What the operator does at the grid: typing, editing, moving, copying.
#include <vector>

#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"
#include "tests/support/InputMethod.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadInput = SpreadWindow;

TEST_F(SpreadInput, typing_overwritesTheCell_andTellsOfTheChange)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    typeInto(3, 1, u"25"_s);
    EXPECT_EQ(grid.text(3, 1), "25");
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0], (QVariantList{3, 1}));
    typeInto(3, 1, u"25"_s); // no difference, no event
    EXPECT_EQ(changes.size(), 1);
    grid.SetText(3, 1, std::string_view("7")); // what the program writes is no event either
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, editorsRefuse_whatTheColumnCannotHold)
{
    addRow("A", "12");
    typeInto(3, 1, u"x1-2 3"_s);
    EXPECT_EQ(grid.text(3, 1), "123");
    typeInto(3, 1, u"-45"_s);
    EXPECT_EQ(grid.text(3, 1), "-45");
    typeInto(3, 1, u"12345678901234567890"_s);
    EXPECT_EQ(grid.text(3, 1), "1234567");
    typeInto(3, 1, u"-"_s);
    EXPECT_EQ(grid.text(3, 1), "1234567");
    for (const QString& noDate : {u"20260230"_s, u"2026/13/01"_s, u"1"_s}) {
        typeInto(4, 1, noDate);
        EXPECT_EQ(grid.text(4, 1), "2026/04/01") << noDate.toStdString();
    }
    typeInto(4, 1, u"20260331"_s);
    EXPECT_EQ(grid.text(4, 1), "2026/03/31");
    typeInto(4, 1, u"2026/3/5"_s);
    EXPECT_EQ(grid.text(4, 1), "2026/03/05");
    typeInto(5, 1, u"256000"_s);
    EXPECT_EQ(grid.text(5, 1), "09:00:00");
    typeInto(5, 1, u"8:05"_s);
    EXPECT_EQ(grid.text(5, 1), "08:05:00");
    typeInto(1, 1, u"999"_s); // locked
    EXPECT_EQ(grid.text(1, 1), "A");
    typeInto(7, 1, u"999"_s); // a computed figure
    EXPECT_EQ(grid.text(7, 1), "1,200");
}

TEST_F(SpreadInput, pasteIntoANumber_isTakenOnlyWhenItIsOne)
{
    addRow("A", "12");
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    for (const auto& [pasted, wanted] :
         {std::pair(u"abc"_s, "12"), std::pair(u"1 000"_s, "12"), std::pair(u"88"_s, "88")}) {
        QGuiApplication::clipboard()->setText(pasted);
        QTest::keyClick(&grid, Qt::Key_F2);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(grid.text(3, 1), wanted) << pasted.toStdString();
    }
    QGuiApplication::clipboard()->setText(u"一行目\n二行目\t終"_s);
    grid.SetActiveCell(2, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(grid.text(2, 1), "一行目 二行目 終");
}

TEST_F(SpreadInput, emptiedNumber_isTheEmptyText_andEscapeBringsTheOldTextBack)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(grid.text(3, 1), "12");
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(grid.text(3, 1), "");
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, typedTextIsKept_whenTheFocusLeavesTheCell)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '9');
    EXPECT_TRUE(grid.isEditing());
    field.setFocus();
    EXPECT_EQ(grid.text(3, 1), "9");
    EXPECT_EQ(changes.size(), 1);
    grid.setFocus();
    QTest::keyClick(&grid, '8');
    grid.endEdit();
    EXPECT_EQ(grid.text(3, 1), "8");
    EXPECT_FALSE(grid.isEditing());
    grid.endEdit();
}

TEST_F(SpreadInput, inputMethodIsOn_forFreeTextOnly)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(2, 1);
    EXPECT_TRUE(takesInputMethod(grid));
    for (const int col : {1, 3, 4, 5, 6, 7}) {
        grid.SetActiveCell(col, 1);
        EXPECT_FALSE(takesInputMethod(grid)) << col;
    }
}

TEST_F(SpreadInput, keyHandlerSeesKeysFirst_inGridAndEditor)
{
    addRow("A", "12");
    std::vector<int> seen;
    bool swallow = false;
    grid.setKeyPressHandler([&](int& key) {
        seen.push_back(key);
        if (swallow || key == 13) {
            field.setFocus();
            key = 0;
        }
    });
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '4');
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // moves on, and what was typed is kept
    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(grid.text(3, 1), "4");
    EXPECT_EQ(seen.back(), 13);
    swallow = true;
    grid.setFocus();
    QTest::keyClick(&grid, '5');
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.text(3, 1), "4");
}

TEST_F(SpreadInput, checkBox_togglesByClickAndSpace)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    const QRect cell = grid.visualRect(grid.model()->index(0, 5));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(grid.text(6, 1), "0");
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(grid.text(6, 1), "1");
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(SpreadInput, cursorMovesOfTheOperator_areTold_thoseOfTheProgramAreNot)
{
    addRow("A", "1");
    addRow("B", "2");
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    grid.SetActiveCell(2, 1);
    EXPECT_EQ(leaves.size(), 0);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Down);
    ASSERT_EQ(leaves.size(), 1);
    EXPECT_EQ(leaves[0], (QVariantList{2, 1, 2, 2}));
    EXPECT_EQ(grid.ActiveRow(), 2);
    QSignalSpy headings(&grid, &vaSpread::HeadingClick);
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
    ASSERT_EQ(headings.size(), 1);
    EXPECT_EQ(headings[0], QVariantList{1});
}

TEST_F(SpreadInput, focusIsTold_andAnOpenEditorCountsAsTheGrid)
{
    addRow("A", "1");
    field.setFocus();
    QSignalSpy got(&grid, &vaSpread::GotFocus);
    QSignalSpy lost(&grid, &vaSpread::LostFocus);
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    EXPECT_EQ(got.size(), 1);
    QTest::keyClick(&grid, '5');
    EXPECT_EQ(lost.size(), 0);
    field.setFocus();
    EXPECT_EQ(lost.size(), 1);
}

TEST_F(SpreadInput, selectedCells_areCopiedAsTabSeparatedLines)
{
    addRow("B", "2");
    addRow("A", "0000001");
    grid.setFocus();
    grid.SetActiveCell(1, 1);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"A"_s);
    grid.selectionModel()->select(QItemSelection(grid.model()->index(0, 0), grid.model()->index(1, 7)),
                                  QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"A\t名\t1\t2026/04/01\t09:00:00\t1\t1,200\r\nB\t名\t2\t2026/04/01\t09:00:00\t1\t1,200"_s);
}

TEST_F(SpreadInput, aConversionOpensTheEditor_andItsEndChangesNothingYet)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(2, 1);
    const std::string before(grid.text(2, 1));
    const QSignalSpy changes(&grid, &vaSpread::Change);
    showPreedit(grid, u"きのう"_s); // the grid keeps the focus until the first conversion has ended
    ASSERT_TRUE(grid.isEditing());
    commitText(grid, u"昨日"_s);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(grid.isEditing());
    EXPECT_TRUE(editor->text().contains(u"昨日"_s));
    EXPECT_EQ(grid.text(2, 1), before);
    EXPECT_TRUE(changes.isEmpty());
    const QString typed = editor->text();
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.qtext(2, 1), typed);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, aConversionLeftByTheMouse_isTakenWithTheCell)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(2, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    editor->clear();
    commitText(*editor, u"昨日"_s);
    showPreedit(*editor, u"は"_s);
    field.setFocus();
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.qtext(2, 1).startsWith(u"昨日"_s));
}

TEST_F(SpreadInput, inputMethodStaysOff_whenTheFocusComesToAFigure)
{
    addRow("A", "12");
    grid.SetActiveCell(3, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_FALSE(takesInputMethod(grid));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_FALSE(takesInputMethod(*QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(takesInputMethod(grid));
    grid.SetActiveCell(2, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_TRUE(takesInputMethod(grid));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_TRUE(takesInputMethod(*QApplication::focusWidget()));
}

TEST_F(SpreadInput, keyHandlerSeesEachKeyOnce)
{
    addRow("A", "12");
    std::vector<int> seen;
    grid.setKeyPressHandler([&](int& key) { seen.push_back(key); });
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '4'); // opens the editor and goes on into it
    QTest::keyClick(QApplication::focusWidget(), '5');
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_Enter);
    EXPECT_EQ(seen, (std::vector<int>{'4', '5', 8, 13, 13}));
    EXPECT_EQ(grid.text(3, 1), "4");
}

TEST_F(SpreadInput, enterThatTheHandlerLeaves_endsTheEditorAndStaysInTheCell)
{
    addRow("A", "1");
    addRow("B", "2");
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    typeInto(3, 1, u"77"_s);
    EXPECT_EQ(grid.text(3, 1), "77");
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.hasFocus());
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.ActiveCol(), 3);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(leaves.size(), 0);
}

TEST_F(SpreadInput, doubleClickAndF2_editTheContent)
{
    addRow("A", "12");
    grid.setFocus();
    const QPoint cell = grid.visualRect(grid.model()->index(0, 2)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell);
    ASSERT_TRUE(grid.isEditing());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QTest::keyClick(QApplication::focusWidget(), '3');
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(grid.text(3, 1), "123");
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    QTest::keyClick(QApplication::focusWidget(), '9');
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(grid.text(3, 1), "9123");
}

TEST_F(SpreadInput, emptiedDateAndTime_bringTheOldTextBack)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.setFocus();
    for (const int col : {4, 5}) {
        grid.SetActiveCell(col, 1);
        QTest::keyClick(&grid, Qt::Key_F2);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(grid.text(4, 1), "2026/04/01");
    EXPECT_EQ(grid.text(5, 1), "09:00:00");
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(SpreadInput, freeTextTakesNoMoreCharactersThanItsColumnHolds)
{
    constexpr SpreadColumn narrow[] = {{.heading = "備考", .type = CellType::Text, .digits = 3}};
    grid.setColumns(narrow);
    grid.setMaxRows(1);
    typeInto(1, 1, u"abcdef"_s);
    EXPECT_EQ(grid.text(1, 1), "abc");
    QGuiApplication::clipboard()->setText(u"一二三四"_s);
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(grid.text(1, 1), "一二三");
}

TEST_F(SpreadInput, typedTextIsKept_whenAnotherWindowComesForward)
{
    addRow("A", "12");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '9');
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(grid.text(3, 1), "9");
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, typedTextIsKept_whenTheRowsScrollAway)
{
    for (int i = 0; i < 200; ++i)
        addRow("A", "12");
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '9');
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    grid.endEdit();
    EXPECT_EQ(grid.text(3, 1), "9");
    EXPECT_EQ(grid.text(3, 200), "12");
}

TEST_F(SpreadInput, typedTextIsKeptInItsRow_whenTheProgramTurnsToTheRows)
{
    addRow("B", "1");
    addRow("A", "2");
    QSignalSpy changes(&grid, &vaSpread::Change);
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '9');
    grid.setReDraw(false);
    EXPECT_FALSE(grid.isEditing());
    grid.InsertRows(1);
    grid.setReDraw(true);
    EXPECT_EQ(grid.text(3, 2), "9");
    grid.SetActiveCell(3, 2);
    QTest::keyClick(&grid, '8');
    const vaSpread::SortKey falling[] = {{1, false}};
    grid.Sort(falling); // B, A, the empty row
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.text(1, 2), "A");
    EXPECT_EQ(grid.text(3, 2), "8");
    EXPECT_EQ(grid.text(3, 1), "1");
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(SpreadInput, whileRedrawIsOff_noCellCanBeEdited)
{
    addRow("A", "12");
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    grid.setReDraw(false);
    grid.InsertRows(1);
    QTest::keyClick(&grid, '9');
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_FALSE(grid.isEditing());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.visualRect(grid.model()->index(0, 5)).center());
    EXPECT_EQ(grid.text(6, 1), "");
    EXPECT_EQ(grid.text(6, 2), "1");
    grid.setReDraw(true);
    EXPECT_EQ(grid.text(3, 2), "12");
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_TRUE(grid.isEditing());
}

TEST_F(SpreadInput, codeTypedAtALockedCell_leavesTheCursorWhereItIs)
{
    for (const char* code : {"490", "49", "4"})
        addRow(code, "1");
    grid.SetActiveCell(1, 1);
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
    grid.SetActiveCell(3, 2);
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    QSignalSpy headings(&grid, &vaSpread::HeadingClick);
    const QHeaderView* header = grid.horizontalHeader();
    const QPoint fourth(header->sectionViewportPosition(3) + header->sectionSize(3) / 2, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, fourth);
    ASSERT_EQ(headings.size(), 1);
    EXPECT_EQ(headings[0], QVariantList{4});
    EXPECT_EQ(grid.ActiveCol(), 3);
    EXPECT_EQ(grid.ActiveRow(), 2);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(1, 2));
    EXPECT_EQ(leaves.size(), 0);
    EXPECT_LE(grid.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(SpreadInput, tabGoesFromCellToCell_andLeavesTheGridAtItsEnds)
{
    addRow("B", "2");
    addRow("A", "1");
    grid.SetActiveCell(6, 1);
    grid.setFocus();
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(grid.ActiveCol(), 7);
    QTest::keyClick(&grid, Qt::Key_Tab); // past the hidden column into the next row
    EXPECT_EQ(grid.ActiveCol(), 1);
    EXPECT_EQ(grid.ActiveRow(), 2);
    QTest::keyClick(&grid, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(grid.ActiveCol(), 7);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(leaves.size(), 3);
    grid.SetActiveCell(7, 2);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &field);
    grid.SetActiveCell(1, 1);
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
    grid.SetActiveCell(3, 1);
    grid.setFocus();
    QTest::keyClick(&grid, '7');
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(grid.text(3, 1), "7");
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.ActiveCol(), 4);
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(grid.ActiveCol(), 3);
    EXPECT_EQ(grid.text(4, 1), "2026/04/01");
}

TEST_F(SpreadInput, whatTheProgramDoesToTheRows_isNoMoveOfTheOperator)
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

TEST_F(SpreadInput, cellsSelectedByTheKeyboard_areCopied_eachAsOneField)
{
    addRow("B", "12345");
    addRow("A", "1");
    grid.SetText(2, 1, std::string_view("x\ty\nz"));
    grid.SetActiveCell(2, 1);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"x y z\t1\r\n名\t12345"_s);
}

} // namespace suisui::test
