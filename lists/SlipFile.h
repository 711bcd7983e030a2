// The file that hands the shown list to the slip program: a line for the headings and one for each row of the
// grid, subtotals and total included. Every field ends with a comma and none is quoted; figures are written
// as the cells show them.
#pragma once

#include <string>

#include <QString>

#include "lists/ListSide.h"

namespace suisui {

/// The records of \a grid as text, lines ended by CR LF. A line break in a cell becomes a blank, so that a
/// record stays one line.
[[nodiscard]] std::string slipText(const ListSide& side, const AppIni& ini, const vaSpread& grid);

/// Writes \a text to the file \a path in code page 932, with "?" for characters that it lacks. The file is
/// written aside and then replaces the old one, so a reader sees one or the other whole. False when it could
/// not be written; the old file is then unchanged.
[[nodiscard]] bool writeSlipFile(const QString& path, const std::string& text);

} // namespace suisui
