// The only working window: five tabs, the person in charge, and the buttons that concern the whole program.
// It puts the pages together, owns the flags of all tabs, guards unsaved edits, and is what a scanned value
// acts on.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include <QMainWindow>

#include "barcode/ScanDispatch.h"
#include "frame/support/DialogScan.h"
#include "frame/support/FormGate.h"
#include "frame/support/Frame.h"
#include "frame/support/Page.h"
#include "frame/support/TypedScan.h"
#include "platform/widgets/Hourglass.h"

class QComboBox;

namespace Ui {
class frmMain;
}

namespace suisui {

class AppEnv;
class BarPrt;
class FocusPaint;
class MovementListPage;
class MovementPage;
class Printer;
class RirekiButtons;
class RirekiDB;
class ScreenPrompts;
class StockPage;
class SlipIni;
class frm_ShortWait;
class frm_Wait;

/// What the window asks of the run that owns it.
class Run
{
public:
    virtual ~Run() = default;

    /// The next line of the reader, for the dialogs; empty when there is none.
    [[nodiscard]] virtual QString nextLine() = 0;
    /// frm_End: whether the operator agrees to end.
    [[nodiscard]] virtual bool askEnd() = 0;
    /// Whether the run starts the master-data program when it has stopped.
    [[nodiscard]] virtual bool masterStartFlag() const = 0;
    virtual void setMasterStartFlag(bool start) = 0;
    /// The window has agreed to close: the date of the last use is written, the reader released, EndFlag set.
    virtual void windowUnloaded() = 0;
};

/// What the window is given by the run. All of it outlives the window.
struct Surroundings
{
    AppDB& db;
    const AppEnv& env;
    AppIni& ini;
    SlipIni& slipIni;
    Clock& clock;
    MsgBox& msgBox;
    frm_ShortWait& shortWait;
    frm_Wait& wait;
    Printer& printer; ///< of the list reports
    BarPrt& barPrt;   ///< of the labels
    Run& run;
    QString lastDate; ///< "YYYYMMDD", default from-date of the searches
};

class frmMain final : public QMainWindow, public Frame, public ScanTarget
{
    Q_OBJECT

public:
    explicit frmMain(const Surroundings& surroundings, QWidget* parent = nullptr);
    ~frmMain() override;

    /// Form_Load: lists, dates, captions, first searches of the tabs that are not in front. May set
    /// MasterMissing.
    void load();
    /// Master data is so incomplete that the program must give way to the master-data program.
    [[nodiscard]] bool MasterMissing() const { return m_masterMissing; }
    /// Brings tab \a tab to the front with everything that a change of tab does, even if it is there.
    void showTab(Tab tab);
    void cmdMaster_Click();

    /// The window's Enabled property; the main loop reads no scans while it is off.
    [[nodiscard]] bool formEnabled() const { return m_gate.enabled(); }
    /// Recognises what a keyboard-style reader scans, wherever the focus is. Without it such a reader is
    /// understood in the code fields only.
    void recogniseTypedScans();
    /// The next value that such a reader has scanned, to be dispatched like one of the serial reader; empty
    /// when there is none.
    [[nodiscard]] QString takeTypedScan() { return m_gate.takeScan(); }
    [[nodiscard]] bool hasTypedScan() const { return m_gate.hasScan(); }
    /// Something is under way, or keys and scans wait for their turn.
    [[nodiscard]] bool atWork() const;
    /// The pages and the shared combo box of staff, for whoever drives the window.
    [[nodiscard]] Page& page(Tab tab) { return *m_pages.at(static_cast<std::size_t>(tab)); }
    [[nodiscard]] QComboBox* staffChoice();

    // Frame
    void BusyOn() override;
    void BusyOff() override;
    void setFormEnabled(bool enabled) override;
    [[nodiscard]] Tab currentTab() const override;
    [[nodiscard]] bool TabLoaded(Tab tab) const override
    {
        return m_tabLoaded.at(static_cast<std::size_t>(tab));
    }
    void setTabLoaded(Tab tab, bool loaded) override
    {
        m_tabLoaded.at(static_cast<std::size_t>(tab)) = loaded;
    }
    [[nodiscard]] bool dirty(Side side) const override { return m_dirty.at(indexOf(side)); }
    void setDirty(Side side, bool dirty) override { m_dirty.at(indexOf(side)) = dirty; }
    BoxAnswer EditGuard(Tab tab) override;
    [[nodiscard]] bool GuardActive() const override { return m_guardActive; }
    [[nodiscard]] std::string tantouCode() const override;
    [[nodiscard]] QString tantouName() const override;
    void showWait(const QString& waitTag, int maximum) override;
    [[nodiscard]] bool waitVisible() const override;
    void unloadWait() override;
    void setWaitProgress(int value) override;

    // ScanTarget
    void selectTab(int tab) override;
    void GoodsCodeSet(const QString& code) override;
    void TantouCodeSet(const QString& code) override;
    void SakiCodeSet(const QString& code) override;
    void sendKeys(const QString& expression) override;
    void MainBarEtc(const QString& function) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void buildPages();
    void buildHistory();
    void givePrinting();
    [[nodiscard]] bool loadPartners(Side side);
    [[nodiscard]] bool loadStaff();
    [[nodiscard]] bool loadGoods();
    void DateBoxInit();
    void loadCaptions();
    void masterDataMissing(const QString& title, const QString& text);

    void SSTab_Click(int previousTab);
    void showTitle(int tab);
    void firstShow(Tab tab);
    void backToGuardedTab(Tab tab);
    [[nodiscard]] bool Form_Unload();
    void gridKeyPress(Tab tab, int& keyAscii);
    void setPointer(bool hourglass);
    /// Null for a tab of another kind.
    [[nodiscard]] MovementPage* entryPage(Tab tab);
    [[nodiscard]] MovementListPage* listPage(Tab tab);
    void cmdPrint_Click(Side side, int printColumn, int quantityColumn);

    Surroundings m_around;
    DialogScan::ReadLine m_nextLine; ///< of the run, for the dialogs
    std::unique_ptr<Ui::frmMain> m_ui;
    FormGate m_gate;
    std::unique_ptr<FocusPaint> m_focusPaint;
    std::unique_ptr<TypedScan> m_typedScan;

    std::array<Page*, static_cast<std::size_t>(Tab::Count)> m_pages{};
    std::array<MovementPage*, 2> m_entry{};
    StockPage* m_stock = nullptr;
    std::array<MovementListPage*, 2> m_lists{};

    std::unique_ptr<ScreenPrompts> m_historyPrompts;
    std::unique_ptr<RirekiDB> m_history;
    std::unique_ptr<RirekiButtons> m_historyButtons;

    ChoiceList m_staff; // TantouCodes

    // The two list tabs start blank on purpose, so they count as loaded.
    std::array<bool, static_cast<std::size_t>(Tab::Count)> m_tabLoaded{false, false, false, true, true};
    std::array<bool, 2> m_dirty{};
    int m_currentTab = 0;
    bool m_guardActive = false;
    bool m_gridEnterFlag = false;
    bool m_masterMissing = false;
    std::optional<PointerShape> m_pointer; ///< the hourglass, while the window is busy
    bool m_unloadAgreed = false;
};

} // namespace suisui
