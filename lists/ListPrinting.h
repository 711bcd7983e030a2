// From the button 一覧印刷 to the sheet: asks for the pages, lets the operator choose the printer, prints.
#pragma once

#include <functional>

#include <QString>

#include "frame/support/DialogScan.h"
#include "lists/report/ListReport.h"

class QWidget;

namespace suisui {

class AppIni;
class Clock;
class MsgBox;
class Printer;

/// What the list reports need of the run.
struct ListPrinting
{
    const AppIni& ini;
    const Clock& clock;
    MsgBox& msgBox;
    Printer& printer;
    QString baseFolder;
    DialogScan::ReadLine readLine;
};

/// What a tab shows when it is asked: the conditions above its list, and whether all columns are filled.
using HeadNow = std::function<ReportHead()>;

/// cmdRptZList_Click and its counterparts: the dialog for the list in \a grid, or the box that says that
/// there is nothing to print.
void printList(const ReportTemplate& report, const vaSpread& grid, const HeadNow& head,
               const ListPrinting& printing, QWidget* parent);

} // namespace suisui
