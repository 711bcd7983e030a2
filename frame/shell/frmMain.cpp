#include "frame/shell/frmMain.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>

#include "barcode/label/BarCodePrintOut.h"
#include "frame/shell/TitleBar.h"
#include "frame/support/Busy.h"
#include "frame/support/FocusPaint.h"
#include "frame/support/FormDisabled.h"
#include "frame/support/PageTools.h"
#include "frame/support/frm_ShortWait.h"
#include "frame/support/frm_Wait.h"
#include "history/RirekiButtons.h"
#include "history/ScreenPrompts.h"
#include "lists/MovementListPage.h"
#include "lists/StockPage.h"
#include "movement/MovementPage.h"
#include "platform/core/DoEvents.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/Hourglass.h"
#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/ShopFiles.h"
#include "ui_frmMain.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

// What a window manager puts around the window, about.
constexpr int frameWidth = 6;
constexpr int titleHeight = 28;

QColor baseColor(const QWidget& form)
{
    return form.palette().color(QPalette::Button);
}

} // namespace

frmMain::frmMain(const Surroundings& surroundings, QWidget* parent)
    : QMainWindow(parent), m_around(surroundings), m_nextLine([this] { return m_around.run.nextLine(); }),
      m_ui(std::make_unique<Ui::frmMain>()), m_gate(this)
{
    m_ui->setupUi(this);
    m_ui->lblBCReference->hide();
    buildPages();
    buildHistory();
    givePrinting();
    m_focusPaint = std::make_unique<FocusPaint>(this, baseColor(*m_ui->lblBCReference));
    m_focusPaint->exempt(m_stock->lowBox());
    m_focusPaint->exempt(m_stock->zeroBox());
    connect(m_ui->cmdMaster, &QPushButton::clicked, this, &frmMain::cmdMaster_Click);
    connect(m_ui->CmdEnd, &QPushButton::clicked, this, [this] { close(); });
    connect(m_ui->SSTab, &QTabWidget::currentChanged, this, [this](int tab) {
        const int previous = m_currentTab;
        m_currentTab = tab;
        SSTab_Click(previous);
    });
    // What the screen has, less a frame around it.
    const QRect room =
        screen()->availableGeometry().adjusted(0, 0, -2 * frameWidth, -titleHeight - frameWidth);
    resize(QSize(1180, 740).boundedTo(room.size()));
    move(screen()->availableGeometry().center() - rect().center() - QPoint(frameWidth, titleHeight / 2));
}

frmMain::~frmMain() = default;

void frmMain::buildPages()
{
    const Services services{m_around.db, m_around.ini, m_around.clock, m_around.msgBox, *this};
    for (const Side side : {Side::Receipt, Side::Shipment}) {
        const auto at = indexOf(side);
        m_entry[at] = new MovementPage(side, services, this);
        m_lists[at] = new MovementListPage(side, services, this);
        connect(m_entry[at], &MovementPage::labelsWanted, this,
                [this, side](int printColumn, int quantityColumn) {
                    cmdPrint_Click(side, printColumn, quantityColumn);
                });
    }
    m_stock = new StockPage(services, this);
    m_pages = {m_entry[0], m_entry[1], m_stock, m_lists[0], m_lists[1]};

    const std::array frames{m_ui->tabfram_0, m_ui->tabfram_1, m_ui->tabfram_2, m_ui->tabfram_3,
                            m_ui->tabfram_4};
    const std::array bars{m_ui->lbltlfram_0, m_ui->lbltlfram_1, m_ui->lbltlfram_2, m_ui->lbltlfram_3,
                          m_ui->lbltlfram_4};
    const std::array pictures{m_ui->imgTitle_0, m_ui->imgTitle_1, m_ui->imgTitle_2, m_ui->imgTitle_3,
                              m_ui->imgTitle_4};
    for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab) {
        const auto at = static_cast<std::size_t>(tab);
        frames[at]->layout()->addWidget(m_pages[at]);
        paintTitleBar(static_cast<Tab>(tab), *bars[at], *pictures[at]);
        m_pages[at]->grid()->setKeyPressHandler(
            [this, tab](int& key) { gridKeyPress(static_cast<Tab>(tab), key); });
    }
}

void frmMain::buildHistory()
{
    const Services services{m_around.db, m_around.ini, m_around.clock, m_around.msgBox, *this};
    m_historyPrompts = std::make_unique<ScreenPrompts>(m_around.db, m_around.ini, m_around.env,
                                                       m_around.clock, m_around.msgBox, m_nextLine, *this);
    m_history = std::make_unique<RirekiDB>(services, *m_historyPrompts,
                                           emptyPath(m_around.env.BaseFolder().toStdString()));
    m_history->settle();
    m_historyButtons = std::make_unique<RirekiButtons>(
        services, *m_historyPrompts, *m_history,
        RirekiButtons::Controls{*m_ui->cmdRirekiOut, *m_ui->cmdRirekiIn, [this] { showTab(Tab::Receipt); }});
    connect(m_ui->cmdRirekiOut, &QPushButton::clicked, this,
            [this] { m_historyButtons->cmdRirekiOut_Click(); });
    connect(m_ui->cmdRirekiIn, &QPushButton::clicked, this,
            [this] { m_historyButtons->cmdRirekiIn_Click(); });
}

/// What the list tabs print with, and where the slip program is.
void frmMain::givePrinting()
{
    const ListPrinting printing{
        m_around.ini, m_around.clock, m_around.msgBox, m_around.printer, m_around.env.BaseFolder(),
        m_nextLine};
    m_stock->setListPrinting(printing);
    for (MovementListPage* list : m_lists)
        list->setListPrinting(printing);
    m_lists[indexOf(Side::Shipment)]->setSlipPlace(m_around.slipIni, m_around.env.BaseFolder() + u"/exe"_s);
}

/// cmdNPrint_Click, cmdSPrint_Click.
void frmMain::cmdPrint_Click(Side side, int printColumn, int quantityColumn)
{
    const auto at = indexOf(side);
    m_focusPaint->setNormal(m_entry[at]->printButton());
    const FormDisabled disabled(*this);
    MainBarCodePrintOut({m_around.ini, m_around.msgBox, m_around.barPrt, m_nextLine, this},
                        movementSide(side).labelMode, *m_entry[at]->grid(), printColumn, quantityColumn);
}

void frmMain::recogniseTypedScans()
{
    const auto inCodeField = [this] {
        return m_gate.enabled() && m_gate.heldKeys() == 0
               && QApplication::focusWidget() == page(currentTab()).barCodeField();
    };
    m_typedScan = std::make_unique<TypedScan>(*this, inCodeField,
                                              [this](const QString& value) { m_gate.scanned(value); });
}

bool frmMain::atWork() const
{
    return !m_gate.enabled() || m_gate.heldKeys() > 0 || m_gate.hasScan()
           || (m_typedScan && m_typedScan->holdsKeys());
}

QComboBox* frmMain::staffChoice()
{
    return m_ui->cmbTantou;
}

MovementPage* frmMain::entryPage(Tab tab)
{
    return tab == Tab::Receipt || tab == Tab::Shipment ? m_entry[static_cast<std::size_t>(tab)] : nullptr;
}

MovementListPage* frmMain::listPage(Tab tab)
{
    if (tab == Tab::ReceiptList)
        return m_lists[indexOf(Side::Receipt)];
    return tab == Tab::ShipmentList ? m_lists[indexOf(Side::Shipment)] : nullptr;
}

// ---- Frame

void frmMain::setPointer(bool hourglass)
{
    if (!hourglass)
        m_pointer.reset();
    else if (!m_pointer)
        m_pointer.emplace(suisui::hourglass());
}

void frmMain::BusyOn()
{
    m_gate.setEnabled(false);
    setPointer(true);
    DoEvents();
}

void frmMain::BusyOff()
{
    // Held keys wait for the main loop: processed here they would nest inside the handler that is ending.
    m_gate.setEnabled(false);
    DoEvents();
    m_around.shortWait.setEndMark();
    m_around.wait.setEndMark();
    setFormEnabled(true);
}

void frmMain::setFormEnabled(bool enabled)
{
    m_gate.setEnabled(enabled);
    if (enabled)
        setPointer(false);
}

Tab frmMain::currentTab() const
{
    return static_cast<Tab>(m_currentTab);
}

std::string frmMain::tantouCode() const
{
    return choiceAt(m_staff, m_ui->cmbTantou->currentIndex()).code;
}

QString frmMain::tantouName() const
{
    return m_ui->cmbTantou->currentText();
}

void frmMain::showWait(const QString& waitTag, int maximum)
{
    m_around.wait.load(waitTag, maximum);
    DoEvents();
}

bool frmMain::waitVisible() const
{
    return m_around.wait.isVisible();
}

void frmMain::unloadWait()
{
    m_around.wait.unload();
    m_around.shortWait.unload();
}

void frmMain::setWaitProgress(int value)
{
    m_around.wait.setProgress(value);
}

// ---- Enter in a grid

/// Enter in a grid goes back to the code field, so that the next code overwrites the last one. An Enter that
/// came while the grid was not the active control has stayed with the grid; the one after it is spent on
/// that.
void frmMain::gridKeyPress(Tab tab, int& keyAscii)
{
    if (keyAscii != KeyCode::enter)
        return;
    const QWidget* active = QApplication::focusWidget();
    const vaSpread* grid = page(tab).grid();
    if (m_gridEnterFlag) {
        m_gridEnterFlag = false;
    } else if (active == grid || grid->isAncestorOf(active)) {
        page(tab).barCodeField()->setFocus();
        keyAscii = 0;
    } else {
        m_gridEnterFlag = true;
    }
}

// ---- unload

void frmMain::cmdMaster_Click()
{
    m_focusPaint->setNormal(m_ui->cmdMaster);
    m_gate.setEnabled(false);
    if (EditGuard(currentTab()) == BoxAnswer::Cancel) {
        setFormEnabled(true);
        return;
    }
    m_around.run.setMasterStartFlag(true);
    close();
}

/// False refuses.
bool frmMain::Form_Unload()
{
    const Busy busy(*this);
    m_focusPaint->setNormal(m_ui->CmdEnd);
    const BoxAnswer guard = EditGuard(currentTab());
    if (guard == BoxAnswer::Cancel) {
        setFormEnabled(true);
        m_around.run.setMasterStartFlag(false);
        m_ui->CmdEnd->setFocus();
        return false;
    }
    if (!m_around.run.masterStartFlag() && !m_around.run.askEnd()) {
        setFormEnabled(true);
        if (guard == BoxAnswer::No)
            SSTab_Click(m_currentTab); // the discarded edits disappear from the grid
        m_ui->CmdEnd->setFocus();
        return false;
    }
    m_around.run.windowUnloaded();
    return true;
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (m_unloadAgreed) {
        event->accept();
        return;
    }
    m_unloadAgreed = Form_Unload();
    event->setAccepted(m_unloadAgreed);
}

} // namespace suisui
