#include "history/ScreenPrompts.h"

#include "frame/support/ShowModal.h"
#include "history/frmRirekiFileExt.h"
#include "history/frmRirekiFromTo.h"
#include "history/frm_DirFile.h"

namespace suisui {

ScreenPrompts::ScreenPrompts(AppDB& db, const AppIni& ini, const AppEnv& env, const Clock& clock,
                             MsgBox& msgBox, DialogScan::ReadLine readLine, QWidget& window)
    : m_db(db), m_ini(ini), m_env(env), m_clock(clock), m_msgBox(msgBox), m_readLine(std::move(readLine)),
      m_window(window)
{
}

QString ScreenPrompts::askExtension()
{
    frmRirekiFileExt dialog(m_msgBox, m_readLine, &m_window);
    showModal(dialog);
    return dialog.HistoryExt();
}

std::optional<Period> ScreenPrompts::askPeriod()
{
    frmRirekiFromTo dialog(m_db, m_clock, m_msgBox, m_readLine, &m_window);
    showModal(dialog);
    if (dialog.DateFrom().empty())
        return std::nullopt;
    return Period{dialog.DateFrom(), dialog.DateTo()};
}

Place ScreenPrompts::askPlace(const PlaceQuestion& question)
{
    frm_DirFile dialog(question, m_ini, m_env, m_msgBox, m_readLine, &m_window);
    showModal(dialog);
    return dialog.place();
}

} // namespace suisui
