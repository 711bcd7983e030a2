// Opens the label dialog: for a list of master data, for the grids of receipts and shipments, for a slip.
// Each routine takes the grid whose rows become labels, and shows a box instead when it has no rows.
#pragma once

#include "frame/support/DialogScan.h"

class QWidget;

namespace suisui {

class AppIni;
class BarPrt;
class MsgBox;
class vaSpread;
enum class LabelMode;

struct LabelDesk
{
    AppIni& ini;
    MsgBox& msgBox;
    BarPrt& barPrt;
    DialogScan::ReadLine readLine; ///< of the bar-code reader
    QWidget* form = nullptr;       ///< parent of the dialog
};

/// Labels of master data: goods, components or partners; the last row of such a grid is empty.
void MstBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol);
/// Labels of receipts or shipments. \a qtyCol is noCell for one label of each row.
void MainBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol, int qtyCol);
/// Labels of a slip.
void RptBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol, int qtyCol);

} // namespace suisui
