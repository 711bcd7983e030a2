// A page of labels as a picture, drawn by the engine that prints it, so that it shows before paper is spent
// what the paper will have. Bars that a reader could not read there have a warning colour.
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

/// How well bars fit their place, worst last.
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
    QStringList codes;      ///< those that fit worst, each once; empty when all are good
    bool badNumber = false; ///< a quantity is not a number: printing would stop there
};

/// Page \a page of \a job at the size \a size. \a rows must be a trial (LabelRows::trial), or the print would
/// use up the marks of the grid.
[[nodiscard]] PagePicture drawPage(LabelJob job, const LabelRows& rows, const AppIni& words, int barPitch,
                                   std::int32_t page, QSize size);

} // namespace suisui
