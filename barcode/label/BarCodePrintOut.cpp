#include "barcode/label/BarCodePrintOut.h"

#include <optional>

#include "barcode/label/frm_PriCheck.h"
#include "frame/support/ShowModal.h"
#include "platform/widgets/Hourglass.h"
#include "platform/core/MsgBox.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// Place of the words of \a mode among those of its kind, which begin with \a first.
int placeOf(LabelMode mode, LabelMode first)
{
    return static_cast<int>(mode) - static_cast<int>(first);
}

/// False, after a box that says so, when \a grid has fewer than \a least rows.
bool hasRows(const LabelDesk& desk, const vaSpread& grid, int least)
{
    if (grid.MaxRows() >= least)
        return true;
    desk.msgBox.show(
        {u"バーコード印刷"_s,
         u"印刷する情報がありません。　　　\r\n\r\n対象の情報を表示した後に\r\n再度、印刷して下さい。"_s,
         BoxIcon::Stop});
    return false;
}

void showDialog(const LabelDesk& desk, const LabelSource& source)
{
    std::optional<PointerShape> making(hourglass());
    frm_PriCheck dialog(source, {desk.ini, desk.msgBox, desk.barPrt, desk.readLine}, desk.form);
    making.reset();
    showModal(dialog);
}

LabelSource entryRows(LabelMode mode, vaSpread& grid, int checkCol, int qtyCol)
{
    return {.mode = mode,
            .grid = &grid,
            .checkColumn = checkCol,
            .quantityColumn = qtyCol,
            .firstRow = grid.ActiveRow(),
            .lastRow = grid.MaxRows(),
            .asksForNumber = false,
            .word = {},
            .markedCaption = {}};
}

} // namespace

void MstBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol)
{
    if (!hasRows(desk, grid, 2))
        return;
    const bool onEmptyRow = grid.ActiveRow() == grid.MaxRows();
    showDialog(desk, {.mode = mode,
                      .grid = &grid,
                      .checkColumn = checkCol,
                      .quantityColumn = noCell,
                      .firstRow = onEmptyRow ? grid.ActiveRow() - 1 : grid.ActiveRow(),
                      .lastRow = grid.MaxRows() - 1,
                      .asksForNumber = true,
                      .word = desk.ini.MasterTerm(placeOf(mode, LabelMode::Goods)),
                      .markedCaption = {}});
}

void MainBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol, int qtyCol)
{
    if (!hasRows(desk, grid, 1))
        return;
    LabelSource source = entryRows(mode, grid, checkCol, qtyCol);
    source.word = desk.ini.Term(placeOf(mode, LabelMode::Receipts));
    showDialog(desk, source);
}

void RptBarCodePrintOut(const LabelDesk& desk, LabelMode mode, vaSpread& grid, int checkCol, int qtyCol)
{
    if (!hasRows(desk, grid, 1))
        return;
    LabelSource source = entryRows(mode, grid, checkCol, qtyCol);
    source.word = u"伝 票"_s;
    source.markedCaption = u" 「コード」 が入力されている すべての行を印刷する。"_s;
    showDialog(desk, source);
}

} // namespace suisui
