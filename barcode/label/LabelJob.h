// One job of labels, as the operator has set it when printing begins.
#pragma once

#include <cstdint>

#include <QString>

#include "barcode/label/LabelGeometry.h"
#include "barcode/label/LabelPages.h"

namespace suisui {

/// A part that is printed with the bars, or not.
struct LabelPart
{
    bool on = false;
    MillimetrePoint place; ///< of a text: from the corner of its bars; of a strip: from the first label
};

struct LabelJob
{
    LabelGrid grid;
    std::int64_t startLabel = 1; ///< place of the first label on the first page, from 1
    Millimetres barHeight;
    LabelPart name;
    LabelPart code;
    LabelPart screenCodes; ///< strip of the function codes that change tabs
    LabelPart searchCodes; ///< strip of the function codes that search
    QString wrap;          ///< put before and after the code, in bars and text
    std::int64_t startRow = 1;
    std::int64_t endRow = 0;
    std::int64_t eachRow = 1; ///< labels for each row, unless a column gives the quantity
    LabelPageRange pages;
};

} // namespace suisui
