// The engine that prints labels: walks the rows of a grid and puts one label after another on each page, with
// the function codes at its foot if they are wanted.
#pragma once

#include "barcode/label/LabelJob.h"

namespace suisui {

class AppIni;
class BarPrt;
class LabelRows;

/// Prints \a job on the open document of \a barPrt, whose bar pitch is set.
///
/// A row whose labels do not fit on the page continues on the next one. Pages before the wanted ones are
/// walked without output, so that a partial print has its labels where the whole job has them. Marks are used
/// up: every row that was walked has lost its mark, so a second copy has no labels, only function codes. When
/// the labels run out, the remaining pages are still opened and closed. Throws RunTimeError for a quantity
/// that is not a number.
void LabelPrintOut(const LabelJob& job, LabelRows& rows, const AppIni& words, BarPrt& barPrt);

} // namespace suisui
