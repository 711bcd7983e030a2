// Asks whether the program should really end. The reader can answer too.
#pragma once

#include <memory>

#include <QDialog>

#include "frame/support/DialogScan.h"

namespace Ui {
class frm_End;
}

namespace suisui {

class FocusPaint;

class frm_End final : public QDialog
{
    Q_OBJECT

public:
    frm_End(DialogScan::ReadLine readLine, QWidget* parent);
    ~frm_End() override;

    /// True when the operator wants to end.
    [[nodiscard]] bool result() const { return m_result; }

private:
    void leave(bool result);

    std::unique_ptr<Ui::frm_End> m_ui;
    std::unique_ptr<FocusPaint> m_focusPaint;
    DialogScan* m_scan = nullptr;
    bool m_result = false;
};

} // namespace suisui
