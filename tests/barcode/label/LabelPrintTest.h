// A print job over a grid of marked rows, and a printer that records what it is given.
#pragma once

#include <optional>

#include <gtest/gtest.h>

#include "barcode/label/LabelPrint.h"
#include "barcode/label/LabelRows.h"
#include "store/AppIni.h"
#include "tests/barcode/label/LabelledGrid.h"
#include "tests/support/RecordingBarPrt.h"

namespace suisui::test {

inline constexpr LabelGrid sheetOfTwelve{
    .columns = 2, .rows = 6, .start = {25.4_mm, 25.4_mm}, .width = 88.9_mm, .height = 38.1_mm};

using Labels = std::vector<std::string>;

class LabelPrint : public ::testing::Test
{
protected:
    LabelPrint()
    {
        job.grid = sheetOfTwelve;
        job.barHeight = 12_mm;
        ini.setIniFolder(QString());
    }

    void fill(const std::vector<LabelledRow>& rows)
    {
        grid.fill(rows);
        job.startRow = 1;
        job.endRow = grid.MaxRows();
    }

    LabelRows rows(int quantity = labelQuantityColumn) { return {grid, labelMarkColumn, quantity}; }

    /// Prints all pages, or those that were chosen.
    void print(std::optional<LabelPageRange> pages = {})
    {
        LabelRows source = rows();
        const auto labels = labelsWanted(source, job.startRow, job.endRow, true, job.eachRow);
        counted = pagesNeeded(labels, job.grid.capacity(), job.startLabel);
        job.pages = pages.value_or(LabelPageRange{1, counted});
        LabelPrintOut(job, source, ini, paper);
    }

    /// Position on the sheet, from 0, of a bar at \a dot.
    [[nodiscard]] int positionOf(QPoint dot) const
    {
        for (int position = 0; position < job.grid.capacity(); ++position)
            if (placeInDots(job.grid.placeOf(position), {600, 600, 0, 0}) == dot)
                return position;
        return -1;
    }
    /// "code@position" of each bar of page \a page, from 0.
    [[nodiscard]] Labels labelsOfPage(std::size_t page) const
    {
        Labels labels;
        for (const auto& bar : paper.pages.at(page).bars)
            labels.push_back(bar.text.toStdString() + "@" + std::to_string(positionOf(bar.at)));
        return labels;
    }
    [[nodiscard]] std::string marks() const { return grid.marks(); }

    LabelledGrid grid;
    AppIni ini;
    RecordingBarPrt paper;
    LabelJob job;
    std::int32_t counted = 0;
};

} // namespace suisui::test
