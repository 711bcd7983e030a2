// The rows of a list: the texts that a stored movement, or a row summed by the database, has on the screen,
// and its figures that go into the subtotals.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "lists/ListSide.h"

namespace suisui {

/// What subtotals add up, in this order. Only shipments have a second return.
enum class ListFigure { Quantity, Discount, Amount, Returned1, Returned2, Count };
inline constexpr std::size_t listFigures = static_cast<std::size_t>(ListFigure::Count);
using ListFigures = std::array<double, listFigures>;

/// Cells of the figures, noCell where the side has none.
[[nodiscard]] std::array<int, listFigures> figureCells(const ListCells& cells);

/// \a number as a cell shows it: rounded to a whole number.
[[nodiscard]] double displayed(double number);

/// The figures of a movement: the stored ones, but the amount as displayed.
[[nodiscard]] ListFigures movementFigures(const MovementColumns& columns, const PackedRow& movement);

/// Makes the cells of \a movement, which is number \a index in its buffer.
void makeMovementRow(const ListSide& side, const PackedRow& movement, int index,
                     std::span<std::string> texts);

/// What a summed row shows where its movements may differ.
struct SummedWords
{
    std::string partner;
    std::string staff;
};

/// As makeMovementRow, for a row of the summed selection. A figure too long for its cell leaves it empty.
void makeSummedRow(const ListSide& side, const SummedWords& words, const PackedRow& sum, int index,
                   std::span<std::string> texts);

/// Whether the amount of \a sum is shown and negative.
[[nodiscard]] bool showsNegativeAmount(const SumColumns& columns, const PackedRow& sum);

} // namespace suisui
