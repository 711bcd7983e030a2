#include "lists/report/ReportTemplate.h"

namespace suisui {

const ReportTemplate& reportOf(Tab tab)
{
    switch (tab) {
    case Tab::ReceiptList:
        return rptList_In;
    case Tab::ShipmentList:
        return rptList_Out;
    default:
        return rptList_Stock;
    }
}

int pageCount(const ReportTemplate& report, int gridRows)
{
    return (gridRows + report.rowsPerPage - 1) / report.rowsPerPage;
}

} // namespace suisui
