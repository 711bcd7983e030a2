// The cells of a list's rows: how a stored movement, or a row summed by the database, reads on the screen,
// and the figures of a row that subtotals are made of.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "lists/ListSide.h"

namespace suisui {

/// What subtotals add up, in this order. The second return is a shipment's.
enum class ListFigure { Quantity, Discount, Amount, Returned1, Returned2, Count };
inline constexpr std::size_t listFigures = static_cast<std::size_t>(ListFigure::Count);
using ListFigures = std::array<double, listFigures>;

/// Cells of the figures, noCell where the side has none.
[[nodiscard]] std::array<int, listFigures> figureCells(const ListCells& cells);

/// What \a number reads as after it has been shown: a whole number.
[[nodiscard]] double displayed(double number);

/// The figures of a movement: the stored ones, but the amount as displayed.
[[nodiscard]] ListFigures movementFigures(const MovementColumns& columns, const PackedRow& movement);

/// Texts of the cells of \a movement, which is number \a index in its buffer.
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

/// Whether the amount of \a sum is shown, and as a negative figure.
[[nodiscard]] bool showsNegativeAmount(const SumColumns& columns, const PackedRow& sum);

} // namespace suisui
