// What the grid holds: texts, rows coming and going, colours, order.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <QHeaderView>
#include <QSignalSpy>

#include "platform/widgets/AppFont.h"
#include "tests/platform/widgets/SpreadWindow.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

using SpreadData = SpreadWindow;

TEST_F(SpreadData, numberCells_dropLeadingZeros_andOtherTextsStayAsTheyAre)
{
    addRow("A", "0000012");
    EXPECT_EQ(grid.text(Cell::quantity, 1), "12");
    EXPECT_EQ(grid.text(Cell::posted, 1), "5");
    grid.SetText(Cell::quantity, 1, std::string_view("-0000003"));
    EXPECT_EQ(grid.text(Cell::quantity, 1), "-3");
    grid.SetText(Cell::quantity, 1, std::string_view("-0000000"));
    EXPECT_EQ(grid.text(Cell::quantity, 1), "0");
    grid.SetText(Cell::quantity, 1, std::string_view("1.5"));
    EXPECT_EQ(grid.text(Cell::quantity, 1), "1.5");
    grid.SetText(Cell::code, 1, std::string_view("0000012"));
    EXPECT_EQ(grid.text(Cell::code, 1), "0000012");
    grid.SetText(Cell::quantity, 1, std::string_view("1234567"));
    EXPECT_EQ(grid.model()->index(0, Cell::quantity - 1).data().toString(), u"1,234,567"_s);
    EXPECT_EQ(grid.text(9, 1), "");
    EXPECT_EQ(grid.text(Cell::code, 2), "");
    EXPECT_EQ(grid.text(Cell::code, 0), "コード");
}

TEST_F(SpreadData, sortByKeys_isStable_readsFigures_andTakesTheColoursAlong)
{
    addRow("b", "2");
    addRow("A", "10");
    addRow("c", "2");
    grid.setRowBackColor(2, QColor(255, 255, 0)); // A
    const vaSpread::SortKey keys[] = {{3, false}, {1, true}};
    grid.Sort(keys);
    EXPECT_EQ(std::string(grid.text(Cell::code, 1)) + std::string(grid.text(Cell::code, 2))
                  + std::string(grid.text(Cell::code, 3)),
              "Abc");
    EXPECT_EQ(grid.rowBackColor(1), QColor(255, 255, 0));
}

TEST_F(SpreadData, emptyGrid_hasNoCursor_andTakesEveryCall)
{
    EXPECT_EQ(grid.MaxRows(), 0);
    EXPECT_EQ(grid.MaxCols(), 8);
    grid.SetActiveCell(Cell::code, 1);
    EXPECT_EQ(grid.ActiveRow(), 0);
    EXPECT_EQ(grid.ActiveCol(), 0);
    grid.DeleteRows(1);
    grid.InsertRows(2);
    grid.setMaxRows(-1);
    grid.SetText(Cell::code, 1, std::string_view("x"));
    grid.setRowTexts(1, {});
    grid.setRowBackColor(1, Qt::red);
    grid.Sort({});
    EXPECT_EQ(grid.MaxRows(), 0);
    EXPECT_EQ(grid.text(Cell::code, 1), "");
    EXPECT_FALSE(grid.rowBackColor(1).isValid());
    addRow("A", "1");
    grid.SetActiveCell(Cell::quantity, 1);
    grid.setMaxRows(0);
    EXPECT_EQ(grid.ActiveRow(), 0);
    EXPECT_EQ(grid.ActiveCol(), 0);
    grid.setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_F2, Qt::Key_Space, Qt::Key_Return, Qt::Key_PageDown})
        QTest::keyClick(&grid, key);
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(SpreadData, oneHeading_decidesHowHighAllAre)
{
    grid.horizontalHeader()->setFont(screenFont()); // which has all letters; others step in for each other
    const QHeaderView& header = *grid.horizontalHeader();
    const auto usual = [&header] { return header.QHeaderView::sizeHint().height(); };
    EXPECT_EQ(header.sizeHint().height(), usual());
    constexpr SpreadColumn mixed[] = {{.heading = "", .type = CellType::CheckBox},
                                      {.heading = "gone", .hidden = true},
                                      {.heading = "数量"},
                                      {.heading = "No."},
                                      {.heading = "ｺｰﾄﾞ"}};
    grid.setColumns(mixed);
    EXPECT_EQ(header.sizeHint().height(), usual());
    constexpr SpreadColumn silent[] = {{.heading = ""}, {.heading = ""}};
    grid.setColumns(silent);
    EXPECT_EQ(header.sizeHint().height(), usual());
}

TEST_F(SpreadData, cursorStaysWithItsRow_whenRowsComeAndGo)
{
    for (const bool redraw : {true, false}) {
        grid.setMaxRows(0);
        grid.setReDraw(redraw);
        for (const char* code : {"C", "B", "A"})
            addRow(code, "1");
        grid.SetActiveCell(Cell::quantity, 2);
        QSignalSpy leaves(&grid, &vaSpread::LeaveCell);
        grid.InsertRows(1, 2);
        EXPECT_EQ(grid.ActiveRow(), 4) << redraw;
        EXPECT_EQ(grid.text(Cell::code, grid.ActiveRow()), "B") << redraw;
        grid.DeleteRows(1, 2);
        EXPECT_EQ(grid.ActiveRow(), 2) << redraw;
        grid.DeleteRows(2); // its own row: the one that moves up takes the cursor
        EXPECT_EQ(grid.ActiveRow(), 2) << redraw;
        EXPECT_EQ(grid.text(Cell::code, 2), "C") << redraw;
        grid.DeleteRows(2, 5);
        EXPECT_EQ(grid.ActiveRow(), 1) << redraw;
        grid.setReDraw(true);
        EXPECT_EQ(grid.currentIndex(), grid.model()->index(0, Cell::quantity - 1)) << redraw;
        EXPECT_EQ(leaves.size(), 0) << redraw;
    }
}

TEST_F(SpreadData, figuresSortAsNumbers_andTextsWithoutRegardToCase)
{
    for (const char* total : {"1,000", "900", "-5", "", "12,000"}) {
        addRow(total, "1");
        grid.SetText(Cell::total, 1, std::string_view(total));
    }
    const auto codes = [this] {
        std::string all;
        for (int row = 1; row <= grid.MaxRows(); ++row)
            all.append(grid.text(Cell::total, row)).append("|");
        return all;
    };
    const vaSpread::SortKey falling[] = {{7, false}};
    grid.Sort(falling);
    EXPECT_EQ(codes(), "12,000|1,000|900|-5||");
    const vaSpread::SortKey byText[] = {{1, true}};
    grid.Sort(byText);
    EXPECT_EQ(codes(), "|-5|1,000|12,000|900|");
    grid.setMaxRows(0);
    for (const char* code : {"b", "C", "a", "B"})
        addRow(code, "1");
    grid.Sort(byText);
    EXPECT_EQ(std::string(grid.text(Cell::code, 1)) + std::string(grid.text(Cell::code, 2))
                  + std::string(grid.text(Cell::code, 3)),
              "aBb"); // equal but for the case: the order they came in
}

namespace {

struct PlainRow
{
    std::string code;
    bool coloured = false;
    bool bold = false;
};

/// The grid's rows as they should be, with the operations of the grid.
struct PlainGrid
{
    std::vector<PlainRow> rows;

    void insert(unsigned at, unsigned count) { rows.insert(rows.begin() + at, count, {}); }
    void erase(unsigned at, unsigned count)
    {
        rows.erase(rows.begin() + at, rows.begin() + std::min<std::size_t>(at + count, rows.size()));
    }
};

} // namespace

TEST_F(SpreadData, randomRowsComingAndGoing_matchAPlainList)
{
    std::mt19937 random(printedSeed());
    PlainGrid plain;
    const vaSpread::SortKey byCode[] = {{1, true}};
    for (int i = 0; i < 3000; ++i) {
        const auto count = static_cast<unsigned>(plain.rows.size());
        const unsigned at = count == 0 ? 0 : static_cast<unsigned>(random() % count);
        const int row = static_cast<int>(at) + 1;
        const auto some = static_cast<unsigned>(1 + random() % 3);
        switch (count == 0 ? 0 : random() % 8) {
        case 0:
        case 1: {
            const std::string code = std::to_string(random() % 1000);
            grid.InsertRows(row, static_cast<int>(some));
            grid.SetText(Cell::code, row, std::string_view(code));
            plain.insert(at, some);
            plain.rows[at].code = code;
            break;
        }
        case 2:
            grid.DeleteRows(row, static_cast<int>(some));
            plain.erase(at, some);
            break;
        case 3:
            grid.setRowBackColor(row, Qt::yellow);
            plain.rows[at].coloured = true;
            break;
        case 4:
            grid.setCellBold(Cell::total, row, true);
            grid.setCellForeColor(Cell::total, row, Qt::red);
            plain.rows[at].bold = true;
            break;
        case 5:
            grid.setReDraw(random() % 2 == 0);
            break;
        case 6:
            grid.setMaxRows(static_cast<int>(count + some) - 2);
            plain.rows.resize(count + some - 2);
            break;
        default:
            grid.Sort(byCode);
            std::stable_sort(plain.rows.begin(), plain.rows.end(),
                             [](const auto& a, const auto& b) { return a.code < b.code; });
        }
        ASSERT_EQ(grid.MaxRows(), static_cast<int>(plain.rows.size()));
        for (int each = 1; each <= grid.MaxRows(); ++each) {
            const PlainRow& wanted = plain.rows[static_cast<std::size_t>(each - 1)];
            ASSERT_EQ(grid.text(Cell::code, each), wanted.code);
            ASSERT_EQ(grid.rowBackColor(each).isValid(), wanted.coloured);
            ASSERT_EQ(grid.cellBold(Cell::total, each), wanted.bold);
            ASSERT_EQ(grid.cellForeColor(Cell::total, each).isValid(), wanted.bold);
        }
    }
}

} // namespace suisui::test
