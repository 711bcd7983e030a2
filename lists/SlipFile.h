// The file that hands the shown list to the slip program: one record a line, a line for the headings and one
// for each row of the grid, subtotals and total included. Every field ends in a comma and none is quoted;
// figures stand as the cells show them.
#pragma once

#include <string>

#include <QString>

#include "lists/ListSide.h"

namespace suisui {

/// The records of \a grid as text, lines ended by CR LF. A line break in a cell becomes a blank, so that a
/// record stays one line.
[[nodiscard]] std::string slipText(const ListSide& side, const AppIni& ini, const vaSpread& grid);

/// Puts \a text into the file \a path in code page 932, with "?" for what that lacks. The file comes into
/// being beside the old one and takes its place whole, so whoever reads sees one or the other. False when it
/// could not be written; the old file is then as it was.
[[nodiscard]] bool writeSlipFile(const QString& path, const std::string& text);

} // namespace suisui
