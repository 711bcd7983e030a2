// The questions of saving and loading, asked by the dialogs.
#pragma once

#include "frame/support/DialogScan.h"
#include "history/HistoryPrompts.h"

class QWidget;

namespace suisui {

class AppDB;
class AppEnv;
class AppIni;
class Clock;
class MsgBox;

class ScreenPrompts final : public HistoryPrompts
{
public:
    /// \a window is the parent of the dialogs; \a readLine gives what the reader sends meanwhile.
    ScreenPrompts(AppDB& db, const AppIni& ini, const AppEnv& env, const Clock& clock, MsgBox& msgBox,
                  DialogScan::ReadLine readLine, QWidget& window);

    [[nodiscard]] QString askExtension() override;
    [[nodiscard]] std::optional<Period> askPeriod() override;
    [[nodiscard]] Place askPlace(const PlaceQuestion& question) override;

private:
    AppDB& m_db;
    const AppIni& m_ini;
    const AppEnv& m_env;
    const Clock& m_clock;
    MsgBox& m_msgBox;
    DialogScan::ReadLine m_readLine;
    QWidget& m_window;
};

} // namespace suisui
