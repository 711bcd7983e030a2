#include "lists/MovementListPage.h"

#include <utility>

#include "frame/support/Busy.h"
#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "frame/support/Questions.h"
#include "lists/ListHeadings.h"
#include "lists/ListSubtotals.h"
#include "platform/widgets/ReDrawOff.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Where.h"
#include "ui_MovementListPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

// Columns of the headings that name the conditions.
constexpr int goodsHeading = 2;
constexpr int partnerHeading = 3;
constexpr int staffHeading = 9;

} // namespace

MovementListPage::MovementListPage(Side side, const Services& services, QWidget* parent)
    : Page(parent), m_side(listSide(side)), m_services(services),
      m_ui(std::make_unique<Ui::MovementListPage>())
{
    m_ui->setupUi(this);
    followRuler(*m_ui->txtXLBarCode, *m_ui->lblXLBarCode);
    m_period = {{m_ui->txtXLyyyy_F, m_ui->txtXLmm_F, m_ui->txtXLdd_F},
                {m_ui->txtXLyyyy_T, m_ui->txtXLmm_T, m_ui->txtXLdd_T}};
    m_ui->Sprd_XHyou->setColumns(m_side.columns);
    m_ui->lblXLSyouhin->setTextFormat(Qt::PlainText);
    m_bar = new GridBar(
        *grid(), [this](int row) { return restColor(*grid(), m_side.cells, row); }, BarWithNoFocus::Grey);
    nameControls();
    wire();
}

MovementListPage::~MovementListPage() = default;

/// One form serves both sides; its controls get the letter of their side in their names.
void MovementListPage::nameControls()
{
    m_ui->Sprd_XHyou->setObjectName(QString::fromUtf16(m_side.gridName));
    m_ui->fraXList->setObjectName(QString::fromUtf16(m_side.listFrameName));
    letterNames(*this, QChar(m_side.letter));
    m_ui->fraXLWhere->setTitle(QString::fromUtf16(m_side.whereFrameCaption));
    m_ui->fraXList->setTitle(QString::fromUtf16(m_side.listFrameCaption));
}

void MovementListPage::wire()
{
    m_ui->txtXLBarCode->setKeyPressHandler([this](int& key) { barCode_KeyPress(key); });
    wirePeriod(m_period, m_ui->cmdXLKensaku);
    enterMovesOn(*m_ui->cmbXLSaki, *m_ui->cmbXLTantou);
    enterMovesOn(*m_ui->cmbXLTantou, *m_ui->cmdXLKensaku);
    connect(m_ui->cmdXLKensaku, &QPushButton::clicked, this, &MovementListPage::cmdKensaku_Click);
    connect(grid(), &vaSpread::HeadingClick, this, &MovementListPage::headingClick);
    connect(m_ui->cmdRptXList, &QPushButton::clicked, this, &MovementListPage::cmdRptList_Click);
    if (m_side.printsSlips)
        connect(m_ui->cmdPrintRptExe, &QPushButton::clicked, this, &MovementListPage::cmdPrintRptExe_Click);
    else
        delete std::exchange(m_ui->cmdPrintRptExe, nullptr);
}

QLineEdit* MovementListPage::barCodeField()
{
    return m_ui->txtXLBarCode;
}

vaSpread* MovementListPage::grid()
{
    return m_ui->Sprd_XHyou;
}

QComboBox* MovementListPage::partnerChoice()
{
    return m_ui->cmbXLSaki;
}

QComboBox* MovementListPage::staffChoice()
{
    return m_ui->cmbXLTantou;
}

QWidget* MovementListPage::searchButton()
{
    return m_ui->cmdXLKensaku;
}

void MovementListPage::setCaptions(const AppIni& ini)
{
    const auto heading = [this, &ini](int column) { return (ini.*m_side.heading)(column); };
    m_ui->fraXLWhere->setTitle(u" 【 %1 】 明細 表示条件 "_s.arg(ini.Term(m_side.termIndex)));
    m_ui->fraXList->setTitle(u" 【 %1 】 明細 "_s.arg(ini.Term(m_side.termIndex)));
    m_ui->lblXLSyouhin_M->setText(heading(goodsHeading));
    m_ui->lblXLSaki->setText(asCaption(heading(partnerHeading)));
    m_ui->lblXLTantou->setText(asCaption(heading(staffHeading)));
    writePlainHeadings(m_side, ini, *grid());
}

void MovementListPage::setDefaultDates(const QString& from, const QString& to)
{
    m_period.from.setDate(from);
    m_period.to.setDate(to);
}

void MovementListPage::setPartners(const ChoiceList& partners)
{
    m_partners = partners;
    fillCombo(*m_ui->cmbXLSaki, partners, true);
}

bool MovementListPage::choosePartner(const QString& code)
{
    return chooseCode(*m_ui->cmbXLSaki, m_partners, code);
}

void MovementListPage::setStaff(const ChoiceList& staff)
{
    m_staff = staff;
    fillCombo(*m_ui->cmbXLTantou, staff, true);
}

void MovementListPage::firstShow()
{
    const QString kept = m_ui->txtXLBarCode->text();
    m_ui->txtXLBarCode->clear();
    int key = KeyCode::enter;
    barCode_KeyPress(key);
    m_ui->txtXLBarCode->setText(kept);
}

// ---- the goods to be listed

void MovementListPage::barCode_KeyPress(int& keyAscii)
{
    SearchKeyCheck(keyAscii);
    limitLength(*m_ui->txtXLBarCode, goodsCodeLength, true, keyAscii);
    if (keyAscii != KeyCode::enter)
        return;
    const QString text = m_ui->txtXLBarCode->text();
    if (text.isEmpty()) {
        resetTab();
        return;
    }
    if (text.size() > goodsCodeLength)
        return;
    Busy busy(m_services.frame);
    const bool taken = takeCode(text);
    busy.end();
    if (taken)
        m_ui->cmdXLKensaku->setFocus();
    else
        m_ui->txtXLBarCode->setFocus();
}

/// Keeps the code, the pattern or "all of them" for the next search. False when there is no such code;
/// nothing changes then.
bool MovementListPage::takeCode(const QString& text)
{
    const std::string code = text.toStdString();
    if (!canBeCode(code)) {
        sayUnregistered(m_services.msgBox, m_services.ini, code);
        return false;
    }
    if (text == u"*") {
        m_ui->lblXLSyouhin->setText(allChoices);
    } else if (text.contains(u'*') || text.contains(u'?')) {
        m_ui->lblXLSyouhin->setText(text);
    } else {
        MasterRec& goods = m_services.db.MasterSyu();
        if (goods.Select(whereCode(code)) <= 0) {
            sayUnregistered(m_services.msgBox, m_services.ini, code);
            return false;
        }
        m_ui->lblXLSyouhin->setText(QString::fromUtf8(goods.get(1, MasterCol::Name)));
        goods.Clear();
    }
    m_chosenCode = code;
    return true;
}

void MovementListPage::resetTab()
{
    m_chosenCode.clear();
    m_ui->lblXLSyouhin->setText(allChoices);
    m_ui->cmbXLSaki->setCurrentIndex(m_ui->cmbXLSaki->count() - 1);
    m_ui->cmbXLTantou->setCurrentIndex(m_ui->cmbXLTantou->count() - 1);
    m_ui->chkXLSum->setChecked(false);
    writePlainHeadings(m_side, m_services.ini, *grid());
    emptyGrid();
    m_ui->cmdXLKensaku->setFocus();
}

// ---- sorting

void MovementListPage::headingClick(int col)
{
    if (grid()->MaxRows() < 2)
        return;
    const Busy busy(m_services.frame);
    const ListView view = shownView(*grid(), m_side.cells);
    if (sortsBy(m_side, view, col))
        sort(view, col);
}

/// The bar follows its movement.
void MovementListPage::sort(ListView view, int col)
{
    vaSpread& sheet = *grid();
    const int activeCol = sheet.ActiveCol();
    const RowFinder finder(sheet, m_side.cells);
    const ReDrawOff noRedraw(sheet);
    sheet.setRowBackColor(sheet.ActiveRow(), Qt::white);
    sortList(m_side, m_services.ini, sheet, view, col);
    const int row = finder.find(sheet);
    m_bar->move(0, row);
    sheet.SetActiveCell(activeCol, row);
}

} // namespace suisui
