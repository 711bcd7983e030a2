// A page of labels as a picture, drawn by the engine that prints it: what is seen before paper is spent is
// what the paper will hold. Bars that no reader could read there are painted in a colour of warning.
#pragma once

#include <QImage>
#include <QSize>
#include <QStringList>

#include "barcode/label/LabelJob.h"
#include "barcode/label/LabelRows.h"

namespace suisui {

class AppIni;

inline constexpr Millimetres paperWidth = 210_mm; ///< A4
inline constexpr Millimetres paperHeight = 297_mm;

/// What is wrong with bars, worst last.
enum class BarFit {
    Good,
    NoQuietZone, ///< less than ten white modules to the next bars or to the edge of the paper
    TooWide,     ///< runs into its neighbour or off the paper
    NotCarried,  ///< characters that the symbology does not have
};

struct PagePicture
{
    QImage image;
    BarFit worst = BarFit::Good;
    QStringList codes;      ///< that are as bad as the worst, each once
    bool badNumber = false; ///< a quantity is no number: the print would stop there
};

/// Page \a page of \a job, as large as fits \a size. The marks of the grid behind \a rows are left alone.
[[nodiscard]] PagePicture drawPage(LabelJob job, const LabelRows& rows, const AppIni& words, int barPitch,
                                   std::int32_t page, QSize size);

} // namespace suisui
