// The engine of the labels: walks the rows of a grid and puts one label after another on each page, with the
// function codes at its foot where they are wanted.
#pragma once

#include "barcode/label/LabelJob.h"

namespace suisui {

class AppIni;
class BarPrt;
class LabelRows;

/// Prints \a job on the open document of \a barPrt, whose bar pitch is set.
///
/// A row that does not fit on the page goes on at the head of the next one. Pages in front of the wanted ones
/// are walked without output, so that a partial print has its labels where the whole job has them. Marks are
/// used up: every row that is walked ends with a clear mark, so a second copy has no labels, only function
/// codes. Pages that are left when the labels have run out are still opened and closed. Throws RunTimeError
/// for a quantity that is no number.
void LabelPrintOut(const LabelJob& job, LabelRows& rows, const AppIni& words, BarPrt& barPrt);

} // namespace suisui
