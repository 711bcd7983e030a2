// What the grid shows, and what it does while it must not show anything.
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>

#include "tests/platform/widgets/SpreadWindow.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadPaint = SpreadWindow;

TEST_F(SpreadPaint, rowColour_isPaintedAcrossTheRow)
{
    addRow("A", "1");
    grid.setRowBackColor(1, QColor(0, 255, 255));
    const QRect cell = grid.visualRect(grid.model()->index(0, Cell::name - 1));
    const QImage picture = grid.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(cell.right() - 6, cell.center().y()), QColor(0, 255, 255));
    grid.setRowBackColor(1, QColor());
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(cell.right() - 6, cell.center().y()),
              QColor(Qt::white));
}

TEST_F(SpreadPaint, whileRedrawIsOff_theDataMovesOn_andTheViewComesBackWhole)
{
    addRow("A", "1");
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setReDraw(false);
    addRow("B", "2");
    grid.setMaxRows(1);
    QCoreApplication::processEvents();
    (void)grid.grab();
    EXPECT_EQ(grid.MaxRows(), 1);
    EXPECT_EQ(grid.text(Cell::code, 1), "B");
    EXPECT_EQ(grid.model()->rowCount(), 1);
    grid.setMaxRows(5);
    (void)grid.grab();
    EXPECT_EQ(grid.model()->rowCount(), 1); // the view keeps its rows
    grid.SetActiveCell(Cell::name, 4);
    grid.setReDraw(true);
    EXPECT_EQ(grid.model()->rowCount(), 5);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(3, Cell::name - 1));
    (void)grid.grab();
}

TEST_F(SpreadPaint, rowsAreMadeOfTheirSource_onceAndWhenLookedAt)
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
    EXPECT_EQ(grid.text(Cell::code, 500), "c500");
    EXPECT_EQ(grid.text(Cell::quantity, 500), "500");
    EXPECT_EQ(made, 1);
    grid.setReDraw(true);
    (void)grid.grab();
    EXPECT_LT(made, 60); // what is in view
}

namespace {

/// Pixels of \a color in \a part of \a picture.
int countOf(const QColor& color, const QImage& picture, const QRect& part)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += picture.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

} // namespace

TEST_F(SpreadPaint, checkBox_isDrawnInTheMiddleOfItsCell_andShowsItsMark)
{
    addRow("A", "1");
    const QRect cell = grid.visualRect(grid.model()->index(0, Cell::mark - 1));
    const auto drawn = [&] { return grid.viewport()->grab().toImage().copy(cell); };
    const QImage marked = drawn();
    grid.SetText(Cell::mark, 1, std::string_view("0"));
    const QImage plain = drawn();
    grid.SetText(Cell::mark, 1, std::string_view(""));
    EXPECT_EQ(drawn(), plain);
    EXPECT_NE(marked, plain);
    // The text of the cell is not written beside the box: nothing but the middle differs or is inked.
    const QRect middle(cell.width() / 2 - 12, 0, 24, cell.height());
    for (const QImage& each : {marked, plain}) {
        EXPECT_EQ(countOf(Qt::white, each, QRect(2, 2, middle.left() - 4, cell.height() - 6)),
                  (middle.left() - 4) * (cell.height() - 6));
        EXPECT_LT(countOf(Qt::white, each, middle), middle.width() * middle.height());
    }
}

TEST_F(SpreadPaint, figuresAreOnTheRight_inTheirColour)
{
    addRow("A", "1");
    grid.SetActiveCell(Cell::code, 1);
    const QRect cell = grid.visualRect(grid.model()->index(0, Cell::total - 1));
    const QRect left(cell.left() + 2, cell.top() + 2, cell.width() / 3, cell.height() - 6);
    QImage picture = grid.viewport()->grab().toImage();
    EXPECT_EQ(countOf(Qt::white, picture, left), left.width() * left.height());
    grid.SetText(Cell::total, 1, std::string_view("-1,200"));
    grid.setCellForeColor(Cell::total, 1, QColor(255, 0, 0));
    grid.setCellBold(Cell::total, 1, true);
    picture = grid.viewport()->grab().toImage();
    EXPECT_GT(countOf(QColor(255, 0, 0), picture, cell), 10);
    EXPECT_EQ(countOf(Qt::white, picture, left), left.width() * left.height());
}

TEST_F(SpreadPaint, selectedCells_areTintedOverTheColourOfTheirRow)
{
    addRow("B", "1");
    addRow("A", "1");
    grid.setRowBackColor(2, QColor(0, 255, 255));
    grid.SetActiveCell(Cell::name, 1);
    grid.setFocus();
    const QRect cell = grid.visualRect(grid.model()->index(1, Cell::name - 1));
    const QPoint inside(cell.right() - 8, cell.center().y());
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(inside), QColor(0, 255, 255));
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ShiftModifier);
    grid.selectionModel()->setCurrentIndex(grid.model()->index(0, Cell::name - 1),
                                           QItemSelectionModel::NoUpdate);
    const QColor tint = grid.viewport()->grab().toImage().pixelColor(inside);
    EXPECT_NE(tint, QColor(0, 255, 255));
    EXPECT_GT(tint.blue(), 200); // still the bar's colour, a shade darker
    EXPECT_LT(tint.red(), 80);
}

TEST_F(SpreadPaint, cursorIsAFrame_andHidesNoColour)
{
    addRow("A", "1");
    grid.setRowBackColor(1, QColor(0, 255, 255));
    grid.SetActiveCell(Cell::quantity, 1);
    const QRect cell = grid.visualRect(grid.model()->index(0, Cell::quantity - 1));
    const QImage picture = grid.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(cell.left() + 8, cell.center().y()), QColor(0, 255, 255));
    EXPECT_NE(picture.pixelColor(cell.left() + 1, cell.center().y()), QColor(0, 255, 255));
}

TEST_F(SpreadPaint, whileRedrawIsOff_thePictureDoesNotChange)
{
    addRow("A", "1");
    const QImage before = window.grab().toImage();
    grid.setReDraw(false);
    grid.setRowBackColor(1, QColor(255, 0, 0));
    grid.InsertRows(1, 30);
    grid.SetActiveCell(Cell::code, 30);
    QCoreApplication::processEvents();
    EXPECT_FALSE(grid.updatesEnabled());
    grid.setReDraw(true);
    EXPECT_TRUE(grid.updatesEnabled());
    EXPECT_NE(window.grab().toImage(), before);
}

TEST_F(SpreadPaint, whileRedrawIsOff_aGridThatComesBackIntoViewIsEmpty)
{
    addRow("A", "1");
    grid.setRowBackColor(1, QColor(255, 0, 0));
    grid.setReDraw(false);
    grid.hide();
    grid.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(grid.updatesEnabled()); // what another control has left there must go
    QImage picture = grid.viewport()->grab().toImage();
    EXPECT_EQ(countOf(Qt::white, picture, picture.rect()), picture.width() * picture.height());
    grid.setMaxRows(0); // what the picture showed is no more
    window.resize(700, 300);
    QCoreApplication::processEvents();
    (void)window.grab();
    grid.setMaxRows(2);
    grid.setRowBackColor(2, QColor(255, 0, 0));
    grid.setReDraw(true);
    picture = grid.viewport()->grab().toImage();
    EXPECT_GT(countOf(QColor(255, 0, 0), picture, picture.rect()), 1000);
}

TEST_F(SpreadPaint, redrawOnAgain_keepsTheScrollPosition_unlessTheCursorWasMoved)
{
    for (int i = 0; i < 200; ++i)
        addRow("A", "1");
    grid.SetActiveCell(Cell::quantity, 5);
    grid.setFocus();
    grid.verticalScrollBar()->setValue(120);
    grid.setReDraw(false);
    grid.SetText(Cell::name, 1, std::string_view("x"));
    grid.setReDraw(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.verticalScrollBar()->value(), 120);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(4, Cell::quantity - 1));
    grid.setReDraw(false);
    grid.InsertRows(1);
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setReDraw(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.verticalScrollBar()->value(), 0);
    grid.verticalScrollBar()->setValue(150);
    grid.setReDraw(false);
    grid.setMaxRows(3);
    grid.setReDraw(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.verticalScrollBar()->value(), 0);
}

} // namespace suisui::test
