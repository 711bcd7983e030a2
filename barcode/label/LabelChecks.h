// What keeps a job of labels from being printed, in the words of its box.
#pragma once

#include <optional>

#include <QString>

#include "barcode/label/LabelFields.h"

namespace suisui {

class LabelSetup;

/// Rows that the fields get after the box, so that the operator only has to look at them.
struct CorrectedRows
{
    QString first;
    QString last;
    bool afterFocus = false; ///< the field has the focus before the texts change
};

struct LabelRefusal
{
    QString title;
    QString text;
    std::optional<LabelField> field; ///< gets the focus
    std::optional<CorrectedRows> rows;
};

/// The first thing that is wrong, in the order of the table of fields, then the rows, then the pages.
[[nodiscard]] std::optional<LabelRefusal> refusalOf(const LabelSetup& setup);

} // namespace suisui
