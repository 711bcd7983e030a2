#include "lists/ListRows.h"

#include <cmath>

#include "store/Numbers.h"
#include "store/Stamps.h"

namespace suisui {

namespace {

constexpr double tooLong = 99999999999999; // summed figures from here on are not shown
constexpr double surelyExact = 1e15;       // whole numbers below this are shown digit by digit

void put(std::span<std::string> texts, int cell, std::string_view text)
{
    if (cell != noCell)
        texts[static_cast<std::size_t>(cell - 1)] = text;
}

/// Empty for a figure that is too long.
std::string sumText(std::string_view stored)
{
    const double sum = numberOf(stored);
    return sum < tooLong ? Format(sum, maskA) : std::string();
}

} // namespace

std::array<int, listFigures> figureCells(const ListCells& cells)
{
    return {cells.quantity, cells.discount, cells.amount, cells.returned[0], cells.returned[1]};
}

double displayed(double number)
{
    if (std::abs(number) < surelyExact && std::trunc(number) == number)
        return number;
    return numberOf(Format(number, maskA));
}

ListFigures movementFigures(const MovementColumns& columns, const PackedRow& movement)
{
    const auto figure = [&movement](int column) {
        return column == noColumn ? 0.0 : numberOf(movement.text(column));
    };
    const double quantity = figure(columns.quantity);
    const double discount = figure(columns.discount);
    const double returned1 = figure(columns.returned[0]);
    const double returned2 = figure(columns.returned[1]);
    const double amount = (quantity - (returned1 + returned2)) * figure(columns.price) - discount;
    return {quantity, discount, displayed(amount), returned1, returned2};
}

void makeMovementRow(const ListSide& side, const PackedRow& movement, int index, std::span<std::string> texts)
{
    const ListCells& cells = side.cells;
    const MovementColumns& columns = movementTable(side.side).columns;
    const auto text = [&movement](int column) { return movement.text(column); };
    const auto figure = [&movement](int column) { return Format(numberOf(movement.text(column)), maskB); };
    put(texts, cells.date, screenDate(text(columns.date)));
    put(texts, cells.name, text(columns.name));
    put(texts, cells.partner, text(columns.partnerName));
    put(texts, cells.price, figure(columns.price));
    put(texts, cells.quantity, figure(columns.quantity));
    put(texts, cells.discount, figure(columns.discount));
    put(texts, cells.amount, Format(rowTotal(columns, movement), maskA));
    put(texts, cells.code, text(columns.code));
    put(texts, cells.staff, text(columns.staffName));
    for (std::size_t i = 0; i < cells.returned.size(); ++i)
        if (columns.returned[i] != noColumn)
            put(texts, cells.returned[i], figure(columns.returned[i]));
    put(texts, cells.unit, text(columns.unit));
    put(texts, cells.remark, text(columns.remark));
    put(texts, cells.index, std::to_string(index));
}

void makeSummedRow(const ListSide& side, const SummedWords& words, const PackedRow& sum, int index,
                   std::span<std::string> texts)
{
    const ListCells& cells = side.cells;
    const SumColumns& columns = side.sumColumns;
    const auto text = [&sum](int column) { return sum.text(column); };
    put(texts, cells.name, text(columns.name));
    put(texts, cells.partner, words.partner);
    put(texts, cells.price, Format(numberOf(text(columns.price)), maskPrice));
    put(texts, cells.quantity, sumText(text(columns.quantity)));
    put(texts, cells.discount, sumText(text(columns.discount)));
    put(texts, cells.amount, sumText(text(columns.amount)));
    put(texts, cells.code, text(columns.code));
    put(texts, cells.staff, words.staff);
    for (std::size_t i = 0; i < cells.returned.size(); ++i)
        if (columns.returned[i] != noColumn)
            put(texts, cells.returned[i], sumText(text(columns.returned[i])));
    put(texts, cells.unit, text(columns.unit));
    put(texts, cells.index, std::to_string(index));
}

bool showsNegativeAmount(const SumColumns& columns, const PackedRow& sum)
{
    const double amount = numberOf(sum.text(columns.amount));
    return amount < tooLong && displayed(amount) < 0;
}

} // namespace suisui
