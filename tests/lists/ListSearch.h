// The fixture of the search tests: a movement list of either side.
#pragma once

#include <gtest/gtest.h>

#include "tests/lists/ListDesk.h"

namespace suisui::test {

class ListSearch : public testing::TestWithParam<Side>
{
protected:
    ListDesk desk{GetParam()};

    /// Codes of the movements in the list, in order.
    [[nodiscard]] std::string codes() const
    {
        std::string all;
        for (int row = 1; row <= desk.grid().MaxRows(); ++row)
            if (!desk.cell(desk.cells.code, row).empty())
                all += desk.cell(desk.cells.code, row) + " ";
        return all;
    }
    [[nodiscard]] std::string headings() const
    {
        std::string all;
        for (int col = 1; col <= desk.grid().MaxCols(); ++col)
            all += desk.cell(col, 0) + "|";
        return all;
    }
    [[nodiscard]] std::string plainHeadings() const
    {
        return desk.bySide(
            "入荷日|商品名|入荷先|単価|数量|値引き|合計|コード|担当者|返却数|単位|備考||",
            "出荷日|商品名|出荷先|単価|数量|値引き|合計|コード|担当者|良品返品|不良返品|単位|備考||");
    }
};

} // namespace suisui::test
