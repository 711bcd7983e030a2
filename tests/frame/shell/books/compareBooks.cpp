#include "tests/frame/shell/books/compareBooks.h"

namespace suisui::test {

namespace {

std::string seven(long long number)
{
    const std::string digits = std::to_string(number < 0 ? -number : number);
    return (number < 0 ? "-" : "") + std::string(digits.size() < 7 ? 7 - digits.size() : 0, '0') + digits;
}

std::string grouped(long long number)
{
    std::string digits = std::to_string(number < 0 ? -number : number);
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), ",");
    return (number < 0 ? "-" : "") + digits;
}

void compareGrid(BooksDesk& desk, std::size_t side)
{
    const Cells& cells = cellsOf[side];
    vaSpread& shown = *desk.window->page(static_cast<Tab>(side)).grid();
    RowSet& buffer = movementTable(static_cast<Side>(side)).rows(desk.db);
    const MovementColumns& columns = movementTable(static_cast<Side>(side)).columns;
    ModelSide& model = desk.model.sides[side];
    ASSERT_EQ(shown.MaxRows(), static_cast<int>(model.grid.size()));
    for (int row = 1; row <= shown.MaxRows(); ++row) {
        const BookedMovement& each = model.inRow(row);
        const Words& words = each.shown;
        const auto text = [&](int column) { return std::string(shown.text(column, row)); };
        ASSERT_EQ(text(1), each.code);
        ASSERT_EQ(text(cells.name), words.name);
        ASSERT_EQ(text(cells.price), std::to_string(words.price));
        ASSERT_EQ(text(cells.quantity), std::to_string(words.quantity));
        ASSERT_EQ(text(cells.discount), std::to_string(words.discount));
        ASSERT_EQ(text(cells.returned[0]), std::to_string(words.returned[0]));
        ASSERT_EQ(
            text(cells.total),
            grouped((words.quantity - words.returned[0] - words.returned[1]) * words.price - words.discount));
        ASSERT_EQ(text(cells.date),
                  words.date.substr(0, 4) + "/" + words.date.substr(4, 2) + "/" + words.date.substr(6));
        ASSERT_EQ(text(cells.time),
                  words.time.substr(0, 2) + ":" + words.time.substr(2, 2) + ":" + words.time.substr(4));
        ASSERT_EQ(text(cells.unit), words.unit);
        ASSERT_EQ(text(cells.remark), words.remark);
        ASSERT_EQ(text(cells.postedQuantity), std::to_string(each.stored.quantity));
        if (cells.postedReturned != noCell) {
            ASSERT_EQ(text(cells.postedReturned), std::to_string(each.stored.returned[0]));
        }
        const int index = std::stoi(text(cells.index));
        ASSERT_EQ(buffer.get(index, columns.inpDate), each.stamp);
        ASSERT_EQ(buffer.get(index, columns.quantity), seven(words.quantity));
        ASSERT_EQ(buffer.get(index, columns.remark), words.remark);
        ASSERT_EQ(buffer.RowState(index), each.touched ? "U" : "");
    }
}

void compareTable(BooksDesk& desk, std::size_t side)
{
    const MovementColumns& columns = movementTable(static_cast<Side>(side)).columns;
    RowSet& rows = movementTable(static_cast<Side>(side)).rows(*desk.watcher);
    const std::vector<BookedMovement>& table = desk.model.sides[side].table;
    ASSERT_EQ(rows.Select("ORDER BY InpDate"), static_cast<int>(table.size()));
    for (int row = 1; row <= rows.Count(); ++row) {
        const BookedMovement& each = table[static_cast<std::size_t>(row - 1)];
        const Words& words = each.stored;
        const auto text = [&](int column) { return rows.get(row, column); };
        ASSERT_EQ(text(columns.inpDate), each.stamp);
        ASSERT_EQ(text(columns.code), each.code);
        ASSERT_EQ(text(columns.name), words.name);
        ASSERT_EQ(text(columns.price), seven(words.price));
        ASSERT_EQ(text(columns.quantity), seven(words.quantity));
        ASSERT_EQ(text(columns.discount), seven(words.discount));
        ASSERT_EQ(text(columns.returned[0]), seven(words.returned[0]));
        if (columns.returned[1] != noColumn) {
            ASSERT_EQ(text(columns.returned[1]), seven(words.returned[1]));
        }
        ASSERT_EQ(text(columns.date), words.date);
        ASSERT_EQ(text(columns.time), words.time);
        ASSERT_EQ(text(columns.unit), words.unit);
        ASSERT_EQ(text(columns.remark), words.remark);
    }
}

/// Every figure is what the model says, and what the movements in the tables add up to.
void compareStock(BooksDesk& desk)
{
    const std::map<std::string, long long> sums = desk.model.sums();
    ZaikoRec& rows = desk.watcher->ZaikoTbl();
    ASSERT_EQ(rows.Select({}), static_cast<int>(desk.model.stock.size()));
    for (int row = 1; row <= rows.Count(); ++row) {
        const std::string code(rows.get(row, ZaikoCol::Code));
        ASSERT_TRUE(desk.model.stock.contains(code)) << code;
        ASSERT_EQ(rows.get(row, ZaikoCol::ZaikoSuu), std::to_string(desk.model.stock.at(code))) << code;
        const auto sum = sums.find(code);
        ASSERT_EQ(desk.model.stock.at(code), sum == sums.end() ? 0 : sum->second) << code;
    }
}

} // namespace

void compareBooks(BooksDesk& desk)
{
    ASSERT_EQ(desk.window->currentTab(), static_cast<Tab>(desk.model.at));
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        ASSERT_EQ(desk.window->dirty(static_cast<Side>(side)), desk.model.sides[side].dirty);
        if (side == desk.model.at)
            compareGrid(desk, side);
        compareTable(desk, side);
    }
    compareStock(desk);
}

} // namespace suisui::test
