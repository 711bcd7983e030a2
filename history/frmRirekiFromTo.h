// Asks for the period to save, and shows the periods saved so far.
#pragma once

#include "frame/support/Check_Csv.h"
#include "frame/support/FormGate.h"
#include "history/HistoryDialog.h"
#include "history/HistoryFile.h"

namespace Ui {
class frmRirekiFromTo;
}

namespace suisui {

class AppDB;
class Clock;
struct Box;

class frmRirekiFromTo final : public HistoryDialog
{
    Q_OBJECT

public:
    frmRirekiFromTo(AppDB& db, const Clock& clock, MsgBox& msgBox, DialogScan::ReadLine readLine,
                    QWidget* parent);
    ~frmRirekiFromTo() override;

    /// "YYYYMMDD"; empty for a cancel.
    [[nodiscard]] const std::string& DateFrom() const { return m_dateFrom; }
    [[nodiscard]] const std::string& DateTo() const { return m_dateTo; }

protected:
    void CmdOK_Click() override;
    void CmdEnd_Click() override;

private:
    void propose(const Clock& clock);
    [[nodiscard]] bool datesAreGood();
    [[nodiscard]] bool hasMovements(const Period& period);
    [[nodiscard]] bool isNew(const Period& period);
    [[nodiscard]] bool overlapIsMeant(const Period& period);
    /// Says so and goes on waiting. Always false.
    [[nodiscard]] bool countFailed(const QString& text);
    void stay(QWidget* focus = nullptr);

    AppDB& m_db;
    std::unique_ptr<Ui::frmRirekiFromTo> m_ui;
    FormGate m_gate;
    PeriodBoxes m_boxes;
    std::string m_dateFrom;
    std::string m_dateTo;
};

/// The period that follows one that ended on \a lastDay ("YYYYMMDD", or empty when none was saved yet): from
/// the day after it to one month after it; without one, a month from \a today on.
[[nodiscard]] Period proposedPeriod(const QString& lastDay, const QDate& today);

} // namespace suisui
