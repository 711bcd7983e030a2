// What the dialogs of the history have in common: the reader answers them, the control with the focus is
// marked, and closing the window is the same as its second button.
#pragma once

#include <memory>

#include <QDialog>

#include "frame/support/DialogScan.h"

namespace suisui {

class FocusPaint;
class MsgBox;

class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    ~HistoryDialog() override;

    /// Escape, and the window's close box.
    void reject() override { CmdEnd_Click(); }

protected:
    HistoryDialog(MsgBox& msgBox, DialogScan::ReadLine readLine, QWidget* parent);

    /// Connects the buttons of the finished form and starts Timer1.
    void wire(QAbstractButton& ok, QAbstractButton& end, int intervalMs);
    virtual void CmdOK_Click() = 0;
    virtual void CmdEnd_Click() = 0;

    /// Timer1 does not run while a box is up or work is under way.
    void stopTimer() { m_scan->stop(); }
    void restartTimer() { m_scan->start(); }
    void unload();

    [[nodiscard]] FocusPaint& focusPaint() { return *m_focusPaint; }

    MsgBox& m_msgBox;

private:
    DialogScan::ReadLine m_readLine;
    std::unique_ptr<FocusPaint> m_focusPaint;
    DialogScan* m_scan = nullptr;
};

/// Whether \a text holds one of the characters that no file name may hold: \ / : , ; * ? " < > |
[[nodiscard]] bool holdsForbidden(const QString& text);

} // namespace suisui
