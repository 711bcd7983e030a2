// Asks once for the extension that all history files of the database will carry.
#pragma once

#include "history/HistoryDialog.h"

namespace Ui {
class frmRirekiFileExt;
}

namespace suisui {

class frmRirekiFileExt final : public HistoryDialog
{
    Q_OBJECT

public:
    frmRirekiFileExt(MsgBox& msgBox, DialogScan::ReadLine readLine, QWidget* parent);
    ~frmRirekiFileExt() override;

    /// Empty for a cancel.
    [[nodiscard]] const QString& HistoryExt() const { return m_historyExt; }

protected:
    void CmdOK_Click() override;
    void CmdEnd_Click() override;

private:
    void refuse(const QString& title, const QString& text);

    std::unique_ptr<Ui::frmRirekiFileExt> m_ui;
    QString m_historyExt;
};

} // namespace suisui
