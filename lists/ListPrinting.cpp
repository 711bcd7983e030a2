#include "lists/ListPrinting.h"

#include <QWidget>

#include "frame/support/ShowModal.h"
#include "lists/frmPriCheck_List.h"
#include "platform/core/MsgBox.h"
#include "platform/widgets/vaSpread.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

void printList(const ReportTemplate& report, const vaSpread& grid, const HeadNow& head,
               const ListPrinting& printing, QWidget* parent)
{
    if (grid.MaxRows() == 0) {
        printing.msgBox.show(
            {.title = u"一覧印刷"_s,
             .text =
                 u"印刷する情報がありません。\r\n\r\n対象の情報を 検索（表示）した後に　　\r\n再度、印刷して下さい。"_s});
        return;
    }
    frmPriCheck_List dialog(report, grid, head, printing, parent);
    showModal(dialog);
}

} // namespace suisui
