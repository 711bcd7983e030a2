// What labels are printed for: a grid, its columns and the rows that the dialog proposes.
#pragma once

#include <QString>

#include "platform/core/NoCell.h"
#include "store/AppIni.h"

namespace suisui {

class vaSpread;

/// What is printed. The first two columns of the grid are code and name.
struct LabelSource
{
    LabelMode mode = LabelMode::Goods; ///< the settings are kept by it
    vaSpread* grid = nullptr;
    int checkColumn = noCell;
    int quantityColumn = noCell; ///< noCell: each row gets the same number
    int firstRow = 1;            ///< proposed rows
    int lastRow = 0;
    bool asksForNumber = true; ///< the operator may say how many labels each row gets
    QString word;              ///< name of the source
    QString markedCaption;     ///< replaces the caption of the radio button for marked rows; empty: keeps it
};

} // namespace suisui
