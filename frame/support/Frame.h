// What a page of the main window asks of the window around it. Pages know this interface and not
// frmMain, and never each other.
#pragma once

#include <string>

#include <QString>

#include "platform/core/MsgBox.h"
#include "store/Side.h"

namespace suisui {

class AppDB;
class AppIni;
class Clock;

/// The tabs of the main window, in order.
enum class Tab { Receipt, Shipment, Stock, ReceiptList, ShipmentList, Count };

/// Whether the window takes input.
class BusyState
{
public:
    virtual ~BusyState() = default;

    /// Brackets of every long or data-changing handler: the window takes no input, the pointer is the
    /// hourglass, and what is pending runs. BusyOff also lets the wait windows close themselves.
    virtual void BusyOn() = 0;
    virtual void BusyOff() = 0;
    /// The window's Enabled property alone.
    virtual void setFormEnabled(bool enabled) = 0;
};

/// The flags of the tabs, and the guard of what is not saved yet.
class TabStates
{
public:
    virtual ~TabStates() = default;

    [[nodiscard]] virtual Tab currentTab() const = 0;

    /// The tab's grid has been filled since a movement last made it stale.
    [[nodiscard]] virtual bool TabLoaded(Tab tab) const = 0;
    virtual void setTabLoaded(Tab tab, bool loaded) = 0;

    /// InpDirty and OutDirty: the grid of that side holds unsaved cell changes.
    [[nodiscard]] virtual bool dirty(Side side) const = 0;
    virtual void setDirty(Side side, bool dirty) = 0;

    /// Asks about unsaved changes of \a tab. None when nothing had to be asked.
    virtual BoxAnswer EditGuard(Tab tab) = 0;
    /// True while EditGuard runs; an update then asks nothing more.
    [[nodiscard]] virtual bool GuardActive() const = 0;
};

/// Who books.
class PersonInCharge
{
public:
    virtual ~PersonInCharge() = default;

    /// Person in charge as chosen now. The code throws RunTimeError::SubscriptOutOfRange when nothing is
    /// chosen.
    [[nodiscard]] virtual std::string tantouCode() const = 0;
    [[nodiscard]] virtual QString tantouName() const = 0;
};

/// The wait window of long work.
class WaitWindows
{
public:
    virtual ~WaitWindows() = default;

    /// frm_Wait for the job \a waitTag, with a bar from 0 to \a maximum.
    virtual void showWait(const QString& waitTag, int maximum) = 0;
    [[nodiscard]] virtual bool waitVisible() const = 0;
    /// Takes the wait windows away at once, where a box is to follow.
    virtual void unloadWait() = 0;
    /// Moves the bar and, often enough for the window to repaint, lets events run.
    virtual void setWaitProgress(int value) = 0;
};

class Frame : public BusyState, public TabStates, public PersonInCharge, public WaitWindows
{
};

/// What every page is handed.
struct Services
{
    AppDB& db;
    AppIni& ini;
    Clock& clock;
    MsgBox& msgBox;
    Frame& frame;
};

} // namespace suisui
