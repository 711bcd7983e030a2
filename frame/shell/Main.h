// The whole run: refuses a second copy and a running master-data program, opens the database, brings up
// frmMain, polls the reader until the window has agreed to close, and stops in order. It owns everything
// that lives for the run; whoever needs a part is handed it.
#pragma once

#include <functional>
#include <memory>

#include <QObject>

#include "barcode/Barcode.h"
#include "frame/shell/frmMain.h"
#include "frame/support/frm_ShortWait.h"
#include "frame/support/frm_Wait.h"
#include "platform/core/AtRest.h"
#include "platform/core/Clock.h"
#include "platform/core/MSComm.h"
#include "platform/core/SingleInstance.h"
#include "platform/widgets/ScreenMsgBox.h"
#include "platform/widgets/Printer.h"
#include "platform/widgets/PrinterBarPrt.h"
#include "store/AppDB.h"
#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/SlipIni.h"

namespace suisui {

class RunTimeError;

class Main_Module : public QObject, private Run
{
    Q_OBJECT

public:
    /// \a msgBox must outlive the run.
    Main_Module(const QString& baseFolder, Clock& clock, ScreenMsgBox& msgBox);
    ~Main_Module() override;

    /// Entry of the program. Returns its exit status.
    int Main();

    /// Where an error that nobody foresaw ends: a report, rollback, port and database closed. Does not
    /// return.
    [[noreturn]] void endOnError(const QString& what);

    /// Read-only date of the last use: as stored, otherwise today.
    [[nodiscard]] QString LastDateGet() const;

private:
    [[nodiscard]] bool openDatabase();
    void unloadWaits();
    void volumeCheck(int count, const QString& text);
    [[nodiscard]] bool atWork() const;
    void makeWindow();
    [[nodiscard]] bool loadWindow();
    void openReader();
    [[nodiscard]] bool mayWork();
    void showFailedBackup();
    void mainLoop();
    void stop();

    // Run
    [[nodiscard]] QString nextLine() override;
    [[nodiscard]] bool askEnd() override;
    [[nodiscard]] bool masterStartFlag() const override { return m_masterStartFlag; }
    void setMasterStartFlag(bool start) override { m_masterStartFlag = start; }
    void windowUnloaded() override;

    QString m_base;
    Clock& m_clock;
    ScreenMsgBox& m_msgBox;
    SingleInstance m_instance;
    AtRest m_atRest;

    // Declared in the order in which the run needs them; released in the stop order by stop().
    std::unique_ptr<AppEnv> m_appEnv;
    std::unique_ptr<AppIni> m_appIni;
    std::unique_ptr<SlipIni> m_slipIni;
    std::unique_ptr<AppDB> m_appDB;
    std::unique_ptr<frm_ShortWait> m_shortWait;
    std::unique_ptr<frm_Wait> m_wait;
    std::unique_ptr<Printer> m_printer;
    std::unique_ptr<PrinterBarPrt> m_barPrt1;
    std::unique_ptr<frmMain> m_frmMain;
    std::unique_ptr<MSComm> m_msComm1;
    std::unique_ptr<Barcode> m_barcode;

    QString m_lastDate;
    bool m_endFlag = false;
    bool m_masterStartFlag = false;
};

} // namespace suisui
