#include "frame/support/frm_ShortWait.h"

#include "ui_frm_ShortWait.h"

namespace suisui {

frm_ShortWait::frm_ShortWait() : m_ui(std::make_unique<Ui::frm_ShortWait>())
{
    m_ui->setupUi(this);
}

frm_ShortWait::~frm_ShortWait() = default;

} // namespace suisui
