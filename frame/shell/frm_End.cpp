#include "frame/shell/frm_End.h"

#include "frame/support/FocusPaint.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/SendKeys.h"
#include "ui_frm_End.h"

namespace suisui {

frm_End::frm_End(DialogScan::ReadLine readLine, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frm_End>())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_focusPaint = std::make_unique<FocusPaint>(this, palette().color(QPalette::Button));
    connect(m_ui->CmdOK, &QPushButton::clicked, this, [this] { leave(true); });
    connect(m_ui->CmdEnd, &QPushButton::clicked, this, [this] { leave(false); });
    m_scan = new DialogScan(*this, 1, std::move(readLine), *m_ui->CmdOK, *m_ui->CmdEnd, &SendKeys);
    m_ui->CmdOK->setFocus();
}

frm_End::~frm_End() = default;

void frm_End::leave(bool result)
{
    m_result = result;
    m_scan->stop();
    done(0);
}

} // namespace suisui
