// The sheet of codes: bars with the name and the code beside them, in two columns on A4 pages, drawn by the
// code that draws the labels. It is put beside the reader, or on another screen, so that work can begin
// before anything is labelled.
#pragma once

#include <vector>

#include <QString>

#include "platform/widgets/PrintStatus.h"

namespace suisui {

struct CodeGroup;

struct SheetOutcome
{
    PrintStatus status = PrintStatus::Good; ///< of the file as a whole
    int codes = 0;                          ///< codes printed with bars
    int bare = 0;                           ///< codes that cannot be printed as bars
    int pages = 0;
};

/// Writes \a groups to the new PDF \a file, each under its heading; one without codes is left out.
[[nodiscard]] SheetOutcome writeCodeSheet(const std::vector<CodeGroup>& groups, const QString& file);

} // namespace suisui
