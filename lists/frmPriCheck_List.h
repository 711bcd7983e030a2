// Asks which pages of a list report to print, and prints them.
#pragma once

#include <memory>

#include <QDialog>
#include <QElapsedTimer>

#include "frame/support/FormGate.h"
#include "lists/ListPrinting.h"

namespace Ui {
class frmPriCheck_List;
}

namespace suisui {

class FocusPaint;
class KeyField;

class frmPriCheck_List final : public QDialog
{
    Q_OBJECT

public:
    /// Everything handed in lives longer than the dialog.
    frmPriCheck_List(const ReportTemplate& report, const vaSpread& grid, HeadNow head,
                     const ListPrinting& printing, QWidget* parent);
    ~frmPriCheck_List() override;

    /// Prints the chosen pages and closes. Cancelling the choice of the printer leaves the dialog open.
    void CmdOK_Click();
    /// Does not close while it prints.
    void reject() override;

private:
    void wirePages();
    void wireButtons();
    [[nodiscard]] PageRange correctedPages();
    [[nodiscard]] PrinterChoice choosePrinter();
    void printPages(PageRange range);
    [[nodiscard]] ReportHead headNow() const;
    void letEventsRun();
    void tell(ReportStatus status);

    const ReportTemplate& m_report;
    const vaSpread& m_grid;
    HeadNow m_head;
    ListPrinting m_printing;
    Printer_Properties m_paper;
    int m_pages;
    std::unique_ptr<Ui::frmPriCheck_List> m_ui;
    std::unique_ptr<FocusPaint> m_focusPaint;
    FormGate m_gate;
    DialogScan* m_scan = nullptr;
    QElapsedTimer m_sinceEvents;
    bool m_busy = false;
};

} // namespace suisui
