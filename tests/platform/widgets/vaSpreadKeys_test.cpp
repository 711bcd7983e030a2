// Who gets the keys: the handler of the page, the open editor, the input method.
#include <vector>

#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"

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
    startTyping(3, 1, '4');
    pressKey(Qt::Key_Return); // moves on, and what was typed is kept
    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(grid.text(3, 1), "4");
    EXPECT_EQ(seen.back(), 13);
    swallow = true;
    grid.setFocus();
    QTest::keyClick(&grid, '5');
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(grid.text(3, 1), "4");
}

TEST_F(SpreadInput, keyHandlerSeesEachKeyOnce)
{
    addRow("A", "12");
    std::vector<int> seen;
    grid.setKeyPressHandler([&](int& key) { seen.push_back(key); });
    startTyping(3, 1, '4'); // opens the editor and goes on into it
    QTest::keyClick(QApplication::focusWidget(), '5');
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Left);
    pressKey(Qt::Key_Return);
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

TEST_F(SpreadInput, inputMethodIsOn_forFreeTextOnly)
{
    addRow("A", "12");
    grid.setFocus();
    grid.SetActiveCell(2, 1);
    EXPECT_TRUE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    for (const int col : {1, 3, 4, 5, 6, 7}) {
        grid.SetActiveCell(col, 1);
        EXPECT_FALSE(grid.testAttribute(Qt::WA_InputMethodEnabled)) << col;
    }
}

TEST_F(SpreadInput, inputMethodStaysOff_whenTheFocusComesToAFigure)
{
    addRow("A", "12");
    grid.SetActiveCell(3, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_FALSE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_FALSE(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    grid.SetActiveCell(2, 1);
    field.setFocus();
    grid.setFocus();
    EXPECT_TRUE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_TRUE(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
}

} // namespace suisui::test
