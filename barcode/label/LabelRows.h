// The rows of a grid as labels see them: code and name in the first two columns, a mark that says "print me",
// and perhaps a quantity. Rows count from 1.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <QString>

#include "barcode/label/LabelPages.h"

namespace suisui {

class vaSpread;

class LabelRows final : public CountedRows
{
public:
    /// \a quantityColumn is noCell where every row gets the same number of labels.
    LabelRows(vaSpread& grid, int checkColumn, int quantityColumn)
        : m_grid(grid), m_checkColumn(checkColumn), m_quantityColumn(quantityColumn)
    {
    }

    /// The same rows with marks of their own, so that a print can be tried without using up the grid's.
    [[nodiscard]] LabelRows trial() const;

    [[nodiscard]] std::int64_t count() const;
    /// Rows outside the grid carry no mark and take none.
    [[nodiscard]] bool marked(std::int64_t row) const override;
    void setMark(std::int64_t row, bool mark);

    [[nodiscard]] QString code(std::int64_t row) const;
    [[nodiscard]] QString name(std::int64_t row) const;
    [[nodiscard]] bool hasCode(std::int64_t row) const;

    /// Labels that a row gets when \a eachRow is what every row gets. None without a code or with an empty
    /// quantity. Throws RunTimeError for a quantity that is no number.
    [[nodiscard]] std::int64_t labels(std::int64_t row, std::int64_t eachRow) const;
    [[nodiscard]] std::int64_t labelsCounted(std::int64_t row, std::int64_t eachRow) const override;

private:
    [[nodiscard]] std::string_view quantity(std::int64_t row) const;
    [[nodiscard]] bool inside(std::int64_t row) const { return row >= 1 && row <= count(); }

    vaSpread& m_grid;
    int m_checkColumn;
    int m_quantityColumn;
    std::optional<std::vector<bool>> m_ownMarks; ///< by row; otherwise the grid's cells
};

} // namespace suisui
