// A grid of goods to be labelled: code, name, quantity and the mark of the rows that get labels.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/widgets/vaSpread.h"

namespace suisui::test {

inline constexpr int labelCodeColumn = 1;
inline constexpr int labelNameColumn = 2;
inline constexpr int labelQuantityColumn = 3;
inline constexpr int labelMarkColumn = 4;

struct LabelledRow
{
    std::string code;
    std::string quantity = "1";
    bool mark = true;
};

class LabelledGrid : public vaSpread
{
public:
    LabelledGrid()
    {
        static constexpr std::array columns{SpreadColumn{.heading = "code"}, SpreadColumn{.heading = "name"},
                                            SpreadColumn{.heading = "quantity", .type = CellType::Number},
                                            SpreadColumn{.heading = "mark", .type = CellType::CheckBox}};
        setColumns(columns);
    }

    void fill(const std::vector<LabelledRow>& rows)
    {
        setMaxRows(static_cast<int>(rows.size()));
        for (int row = 1; row <= MaxRows(); ++row) {
            const LabelledRow& from = rows[static_cast<std::size_t>(row) - 1];
            SetText(labelCodeColumn, row, from.code);
            SetText(labelNameColumn, row, "name of " + from.code);
            SetText(labelQuantityColumn, row, from.quantity);
            SetText(labelMarkColumn, row, std::string_view(from.mark ? "1" : "0"));
        }
    }

    /// "1" or "0" for each row from the top.
    [[nodiscard]] std::string marks() const
    {
        std::string all;
        for (int row = 1; row <= MaxRows(); ++row)
            all += text(labelMarkColumn, row) == "1" ? '1' : '0';
        return all;
    }
};

} // namespace suisui::test
