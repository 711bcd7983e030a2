// The rows of a grid that labels are printed for: code and name in the first two columns, a mark that says
// that the row is wanted, and perhaps a quantity. Rows count from 1.
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

    /// The same rows with their own copy of the marks, so that a trial print does not use up those of the
    /// grid.
    [[nodiscard]] LabelRows trial() const;

    [[nodiscard]] std::int64_t count() const;
    [[nodiscard]] bool marked(std::int64_t row) const override;
    /// Does nothing for rows outside the grid.
    void setMark(std::int64_t row, bool mark);

    [[nodiscard]] QString code(std::int64_t row) const;
    [[nodiscard]] QString name(std::int64_t row) const;
    [[nodiscard]] bool hasCode(std::int64_t row) const;

    /// The number of labels for a row: its quantity, or \a eachRow where no column gives one; 0 without a
    /// code. Throws RunTimeError for a quantity that is not a number.
    [[nodiscard]] std::int64_t labels(std::int64_t row, std::int64_t eachRow) const;
    [[nodiscard]] std::int64_t labelsCounted(std::int64_t row, std::int64_t eachRow) const override;

private:
    [[nodiscard]] std::string_view quantity(std::int64_t row) const;
    [[nodiscard]] bool inside(std::int64_t row) const { return row >= 1 && row <= count(); }

    vaSpread& m_grid;
    int m_checkColumn;
    int m_quantityColumn;
    std::optional<std::vector<bool>> m_ownMarks; ///< by row; without it the cells of the grid count
};

} // namespace suisui
