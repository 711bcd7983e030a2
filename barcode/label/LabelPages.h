// How many pages a job of labels needs, and which of them go on paper. Pure arithmetic; the walk of the
// engine comes to the same pages, and the tests hold the two together.
#pragma once

#include <cstdint>
#include <optional>

#include <QString>

namespace suisui {

/// A text as a number; nothing for one that is not numeric.
[[nodiscard]] std::optional<double> numberIn(const QString& text);

/// Labels that a quantity asks for: whole, halves to the even neighbour. A quantity beyond all paper stands
/// at a bound, so that sums of quantities never overflow.
[[nodiscard]] std::int64_t labelsOf(double quantity);

/// Pages for \a labels on sheets of \a capacity when the first label goes to place \a start (from 1) of the
/// first page. 0 for no labels.
[[nodiscard]] std::int32_t pagesNeeded(std::int64_t labels, std::int64_t capacity, std::int64_t start);

/// Rows that ask for labels, as far as the count of pages knows them. Rows count from 1.
class CountedRows
{
public:
    virtual ~CountedRows() = default;
    /// Rows outside the grid carry no mark.
    [[nodiscard]] virtual bool marked(std::int64_t row) const = 0;
    /// Labels that a row gets when \a eachRow is what every row gets. A quantity that is not a number counts
    /// as nothing.
    [[nodiscard]] virtual std::int64_t labelsCounted(std::int64_t row, std::int64_t eachRow) const = 0;

protected:
    CountedRows() = default;
    CountedRows(const CountedRows&) = default;
    CountedRows(CountedRows&&) = default;
    CountedRows& operator=(const CountedRows&) = default;
    CountedRows& operator=(CountedRows&&) = default;
};

/// Labels that the rows \a first to \a last ask for, or only those of them that carry a mark.
[[nodiscard]] std::int64_t labelsWanted(const CountedRows& rows, std::int64_t first, std::int64_t last,
                                        bool markedOnly, std::int64_t eachRow);

struct LabelPageRange
{
    std::int32_t first = 1;
    std::int32_t last = 1;
};

/// The pages that two fields name, within 1 and \a total: what is no number, or lies outside, or ends before
/// it begins, is taken as the first or the last page.
[[nodiscard]] LabelPageRange labelPageRange(const QString& first, const QString& last, std::int32_t total);

} // namespace suisui
