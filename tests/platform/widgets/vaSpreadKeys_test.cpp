// Who gets the keys: the handler of the page, the open editor, the input method.
#include <vector>

#include <QLineEdit>
#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"
#include "tests/support/InputMethod.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadInput = SpreadWindow;

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
    startTyping(Cell::quantity, 1, '4');
    pressKey(Qt::Key_Return); // moves on, and what was typed is kept
    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "4");
    EXPECT_EQ(seen.back(), 13);
    swallow = true;
    grid.setFocus();
    QTest::keyClick(&grid, '5');
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.text(Cell::quantity, 1), "4");
}

TEST_F(SpreadInput, keyHandlerSeesEachKeyOnce)
{
    addRow("A", "12");
    std::vector<int> seen;
    grid.setKeyPressHandler([&](int& key) { seen.push_back(key); });
    startTyping(Cell::quantity, 1, '4'); // opens the editor and goes on into it
    QTest::keyClick(QApplication::focusWidget(), '5');
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Left);
    pressKey(Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_Enter);
    EXPECT_EQ(seen, (std::vector<int>{'4', '5', 8, 13, 13}));
    EXPECT_EQ(grid.text(Cell::quantity, 1), "4");
}

TEST_F(SpreadInput, enterThatTheHandlerLeaves_endsTheEditorAndStaysInTheCell)
{
    addRow("A", "1");
    addRow("B", "2");
    QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
    typeInto(Cell::quantity, 1, u"77"_s);
    EXPECT_EQ(grid.text(Cell::quantity, 1), "77");
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.hasFocus());
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.ActiveCol(), Cell::quantity);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(leaves.size(), 0);
}

TEST_F(SpreadInput, focusIsSignalled_andAnOpenEditorCountsAsTheGrid)
{
    addRow("A", "1");
    field.setFocus();
    QSignalSpy got(&grid, &vaSpread::GotFocus);
    QSignalSpy lost(&grid, &vaSpread::LostFocus);
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setFocus();
    EXPECT_EQ(got.size(), 1);
    QTest::keyClick(&grid, '5');
    EXPECT_EQ(lost.size(), 0);
    field.setFocus();
    EXPECT_EQ(lost.size(), 1);
}

TEST_F(SpreadInput, inputMethodIsOn_forFreeTextOnly)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(Cell::name, 1);
    EXPECT_TRUE(takesInputMethod(grid));
    for (const int col : {Cell::code, Cell::quantity, Cell::date, Cell::time, Cell::mark, Cell::total}) {
        grid.SetActiveCell(col, 1);
        EXPECT_FALSE(takesInputMethod(grid)) << col;
    }
}

TEST_F(SpreadInput, aConversionOpensTheEditor_andItsEndChangesNothingYet)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(Cell::name, 1);
    const std::string before(grid.text(Cell::name, 1));
    const QSignalSpy changes(&grid, &vaSpread::Change);
    showPreedit(grid, u"きのう"_s); // the grid keeps the focus until the first conversion has ended
    ASSERT_TRUE(grid.isEditing());
    commitText(grid, u"昨日"_s);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(grid.isEditing());
    EXPECT_TRUE(editor->text().contains(u"昨日"_s));
    EXPECT_EQ(grid.text(Cell::name, 1), before);
    EXPECT_TRUE(changes.isEmpty());
    const QString typed = editor->text();
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.qtext(Cell::name, 1), typed);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadInput, aConversionLeftByTheMouse_isTakenWithTheCell)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(Cell::name, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    editor->clear();
    commitText(*editor, u"昨日"_s);
    showPreedit(*editor, u"は"_s);
    field.setFocus();
    EXPECT_FALSE(grid.isEditing());
    EXPECT_TRUE(grid.qtext(Cell::name, 1).startsWith(u"昨日"_s));
}

TEST_F(SpreadInput, inputMethodStaysOff_whenTheFocusComesToAFigure)
{
    addRow("A", "12");
    grid.SetActiveCell(Cell::quantity, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_FALSE(takesInputMethod(grid));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_FALSE(takesInputMethod(*QApplication::focusWidget()));
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(takesInputMethod(grid));
    grid.SetActiveCell(Cell::name, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_TRUE(takesInputMethod(grid));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_TRUE(takesInputMethod(*QApplication::focusWidget()));
}

} // namespace suisui::test
