// Checks what the operator has set before labels are printed, with the words of the box for each fault.
#pragma once

#include <optional>

#include <QString>

#include "barcode/label/LabelFields.h"

namespace suisui {

class LabelSetup;

/// Rows that the fields get after the box, so that the operator only has to confirm them.
struct CorrectedRows
{
    QString first;
    QString last;
    bool afterFocus = false; ///< the field gets the focus before the texts change
};

struct LabelRefusal
{
    QString title;
    QString text;
    std::optional<LabelField> field; ///< gets the focus
    std::optional<CorrectedRows> rows;
};

/// The first fault: of the fields in the order of their table, then of the rows, then of the pages. None when
/// the job can be printed.
[[nodiscard]] std::optional<LabelRefusal> refusalOf(const LabelSetup& setup);

} // namespace suisui
