// Asks for a moment's patience during short work.
#pragma once

#include <memory>

#include "frame/support/WaitWindow.h"

namespace Ui {
class frm_ShortWait;
}

namespace suisui {

class frm_ShortWait final : public WaitWindow
{
    Q_OBJECT

public:
    frm_ShortWait();
    ~frm_ShortWait() override;

    /// Shows the window.
    void load() { open(); }

private:
    std::unique_ptr<Ui::frm_ShortWait> m_ui;
};

} // namespace suisui
