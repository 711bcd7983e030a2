// How many pages a job of labels needs, and which of them are printed. Pure arithmetic; the engine finds its
// pages by walking the rows, and the tests compare the two.
#pragma once

#include <cstdint>
#include <optional>

#include <QString>

namespace suisui {

/// A text as a number; nothing for one that is not numeric.
[[nodiscard]] std::optional<double> numberIn(const QString& text);

/// The number of labels for a quantity: rounded, halves to the even number, and bounded so that sums never
/// overflow.
[[nodiscard]] std::int64_t labelsOf(double quantity);

/// The number of pages for \a labels on sheets of \a capacity when the first label goes to place \a start
/// (from 1) of the first page; 0 for no labels.
[[nodiscard]] std::int32_t pagesNeeded(std::int64_t labels, std::int64_t capacity, std::int64_t start);

/// What the count of pages needs to know of the rows. Rows count from 1.
class CountedRows
{
public:
    virtual ~CountedRows() = default;
    /// False for rows outside the grid.
    [[nodiscard]] virtual bool marked(std::int64_t row) const = 0;
    /// The number of labels for a row: its quantity, or \a eachRow where no column gives one. A quantity that
    /// is not a number counts as 0.
    [[nodiscard]] virtual std::int64_t labelsCounted(std::int64_t row, std::int64_t eachRow) const = 0;

protected:
    CountedRows() = default;
    CountedRows(const CountedRows&) = default;
    CountedRows(CountedRows&&) = default;
    CountedRows& operator=(const CountedRows&) = default;
    CountedRows& operator=(CountedRows&&) = default;
};

/// The number of labels for the rows \a first to \a last, or only for those among them that are marked.
[[nodiscard]] std::int64_t labelsWanted(const CountedRows& rows, std::int64_t first, std::int64_t last,
                                        bool markedOnly, std::int64_t eachRow);

struct LabelPageRange
{
    std::int32_t first = 1;
    std::int32_t last = 1;
};

/// The pages that two fields name. A first page that is not a number or out of range becomes 1; a last page
/// that is not a number, out of range or before the first becomes \a total.
[[nodiscard]] LabelPageRange labelPageRange(const QString& first, const QString& last, std::int32_t total);

} // namespace suisui
