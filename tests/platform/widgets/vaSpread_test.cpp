// The grid: texts, kinds of cells, editing, rows coming and going, colours, sorting, copying.
#include "platform/widgets/vaSpread.h"

#include <algorithm>

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr SpreadColumn columns[] = {
    {.heading = "コード", .type = CellType::Locked},
    {.heading = "名称", .type = CellType::Text},
    {.heading = "数量", .type = CellType::Number, .digits = 7},
    {.heading = "日付", .type = CellType::Date},
    {.heading = "時間", .type = CellType::Time},
    {.heading = "印刷", .type = CellType::CheckBox},
    {.heading = "合計", .type = CellType::Figure},
    {.heading = "", .type = CellType::Number, .hidden = true},
};

class SpreadTest : public ::testing::Test
{
protected:
    SpreadTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addWidget(&grid);
        grid.setColumns(columns);
        window.resize(900, 400);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void addRow(std::string_view code, std::string_view quantity)
    {
        grid.InsertRows(1);
        const std::string_view texts[] = {code,       "名", quantity, "2026/04/01",
                                          "09:00:00", "1",  "1,200",  "0000005"};
        grid.setRowTexts(1, texts);
    }
    /// Opens the editor of a cell, types, and ends it with Enter.
    void typeInto(int col, int row, const QString& keys)
    {
        grid.SetActiveCell(col, row);
        grid.setFocus();
        for (const QChar key : keys)
            QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }

    QWidget window;
    QLineEdit field;
    vaSpread grid;
};

} // namespace

TEST_F(SpreadTest, numberCells_dropLeadingZeros_andOtherTextsStayAsTheyAre)
{
    addRow("A", "0000012");
    EXPECT_EQ(grid.text(3, 1), "12");
    EXPECT_EQ(grid.text(8, 1), "5");
    grid.SetText(3, 1, std::string_view("-0000003"));
    EXPECT_EQ(grid.text(3, 1), "-3");
    grid.SetText(3, 1, std::string_view("-0000000"));
    EXPECT_EQ(grid.text(3, 1), "0");
    grid.SetText(3, 1, std::string_view("1.5"));
    EXPECT_EQ(grid.text(3, 1), "1.5");
    grid.SetText(1, 1, std::string_view("0000012"));
    EXPECT_EQ(grid.text(1, 1), "0000012");
    grid.SetText(3, 1, std::string_view("1234567"));
    EXPECT_EQ(grid.model()->index(0, 2).data().toString(), u"1,234,567"_s);
    EXPECT_EQ(grid.text(9, 1), "");
    EXPECT_EQ(grid.text(1, 2), "");
    EXPECT_EQ(grid.text(1, 0), "コード");
}

TEST_F(SpreadTest, typing_overwritesTheCell_andTellsOfTheChange)
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

TEST_F(SpreadTest, editorsRefuse_whatTheColumnCannotHold)
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

TEST_F(SpreadTest, pasteIntoANumber_isTakenOnlyWhenItIsOne)
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

TEST_F(SpreadTest, emptiedNumber_isTheEmptyText_andEscapeBringsTheOldTextBack)
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

TEST_F(SpreadTest, typedTextIsKept_whenTheFocusLeavesTheCell)
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

TEST_F(SpreadTest, inputMethodIsOn_forFreeTextOnly)
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

TEST_F(SpreadTest, keyHandlerSeesKeysFirst_inGridAndEditor)
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

TEST_F(SpreadTest, checkBox_togglesByClickAndSpace)
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

TEST_F(SpreadTest, cursorMovesOfTheOperator_areTold_thoseOfTheProgramAreNot)
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

TEST_F(SpreadTest, focusIsTold_andAnOpenEditorCountsAsTheGrid)
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

TEST_F(SpreadTest, rowColour_isPaintedAcrossTheRow)
{
    addRow("A", "1");
    grid.setRowBackColor(1, QColor(0, 255, 255));
    const QRect cell = grid.visualRect(grid.model()->index(0, 1));
    const QImage picture = grid.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(cell.right() - 6, cell.center().y()), QColor(0, 255, 255));
    grid.setRowBackColor(1, QColor());
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(cell.right() - 6, cell.center().y()),
              QColor(Qt::white));
}

TEST_F(SpreadTest, whileRedrawIsOff_theDataMovesOn_andTheViewComesBackWhole)
{
    addRow("A", "1");
    grid.SetActiveCell(3, 1);
    grid.setReDraw(false);
    addRow("B", "2");
    grid.setMaxRows(1);
    QCoreApplication::processEvents();
    (void)grid.grab();
    EXPECT_EQ(grid.MaxRows(), 1);
    EXPECT_EQ(grid.text(1, 1), "B");
    EXPECT_EQ(grid.model()->rowCount(), 1);
    grid.setMaxRows(5);
    (void)grid.grab();
    EXPECT_EQ(grid.model()->rowCount(), 1); // the view's rows stand still
    grid.SetActiveCell(2, 4);
    grid.setReDraw(true);
    EXPECT_EQ(grid.model()->rowCount(), 5);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(3, 1));
    (void)grid.grab();
}

TEST_F(SpreadTest, rowsAreMadeOfTheirSource_onceAndWhenLookedAt)
{
    int made = 0;
    grid.setRowMaker([&made](const PackedRow& source, int number, std::span<std::string> texts) {
        ++made;
        texts[0] = source.text(0);
        texts[2] = std::to_string(number);
    });
    grid.setReDraw(false);
    grid.setMaxRows(1000);
    PackedRow source(1);
    for (int row = 1; row <= 1000; ++row) {
        source.setText(0, "c" + std::to_string(row));
        grid.setRowSource(row, source, row);
    }
    EXPECT_EQ(made, 0);
    EXPECT_EQ(grid.text(1, 500), "c500");
    EXPECT_EQ(grid.text(3, 500), "500");
    EXPECT_EQ(made, 1);
    grid.setReDraw(true);
    (void)grid.grab();
    EXPECT_LT(made, 60); // what is in view
}

TEST_F(SpreadTest, selectedCells_areCopiedAsTabSeparatedLines)
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

TEST_F(SpreadTest, sortByKeys_isStable_readsFigures_andTakesTheColoursAlong)
{
    addRow("b", "2");
    addRow("A", "10");
    addRow("c", "2");
    grid.setRowBackColor(2, QColor(255, 255, 0)); // A
    const vaSpread::SortKey keys[] = {{3, false}, {1, true}};
    grid.Sort(keys);
    EXPECT_EQ(std::string(grid.text(1, 1)) + std::string(grid.text(1, 2)) + std::string(grid.text(1, 3)),
              "Abc");
    EXPECT_EQ(grid.rowBackColor(1), QColor(255, 255, 0));
}

TEST_F(SpreadTest, randomRowsComingAndGoing_matchAPlainList)
{
    std::mt19937 random(printedSeed());
    std::vector<std::pair<std::string, bool>> plain; // code, coloured
    for (int i = 0; i < 3000; ++i) {
        const auto count = static_cast<unsigned>(plain.size());
        const unsigned at = count == 0 ? 0 : static_cast<unsigned>(random() % count);
        switch (random() % 6) {
        case 0:
        case 1: {
            const std::string code = std::to_string(random() % 1000);
            grid.InsertRows(static_cast<int>(at) + 1);
            grid.SetText(1, static_cast<int>(at) + 1, std::string_view(code));
            plain.insert(plain.begin() + at, {code, false});
            break;
        }
        case 2:
            if (count > 0) {
                grid.DeleteRows(static_cast<int>(at) + 1);
                plain.erase(plain.begin() + at);
            }
            break;
        case 3:
            if (count > 0) {
                grid.setRowBackColor(static_cast<int>(at) + 1, Qt::yellow);
                plain[at].second = true;
            }
            break;
        case 4:
            grid.setReDraw(random() % 2 == 0);
            break;
        default: {
            const vaSpread::SortKey keys[] = {{1, true}};
            grid.Sort(keys);
            std::stable_sort(plain.begin(), plain.end(),
                             [](const auto& a, const auto& b) { return a.first < b.first; });
        }
        }
        ASSERT_EQ(grid.MaxRows(), static_cast<int>(plain.size()));
        for (std::size_t row = 0; row < plain.size(); ++row) {
            ASSERT_EQ(grid.text(1, static_cast<int>(row) + 1), plain[row].first);
            ASSERT_EQ(grid.rowBackColor(static_cast<int>(row) + 1).isValid(), plain[row].second);
        }
    }
}

} // namespace suisui::test
