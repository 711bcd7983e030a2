#include "lists/MovementListPage.h"

#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppIni.h"
#include "ui_MovementListPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int codeLength = 13;
constexpr int enterKey = 13;

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
    m_period = {{m_ui->txtXLyyyy_F, m_ui->txtXLmm_F, m_ui->txtXLdd_F},
                {m_ui->txtXLyyyy_T, m_ui->txtXLmm_T, m_ui->txtXLdd_T}};
    m_ui->Sprd_XHyou->setColumns(m_side.columns);
    new GridBar(*m_ui->Sprd_XHyou);
    nameControls();
    m_ui->txtXLBarCode->setKeyPressHandler([this](int& key) { barCode_KeyPress(key); });
    wirePeriod(m_period, m_ui->cmdXLKensaku);
    enterMovesOn(*m_ui->cmbXLSaki, *m_ui->cmbXLTantou);
    enterMovesOn(*m_ui->cmbXLTantou, *m_ui->cmdXLKensaku);
}

MovementListPage::~MovementListPage() = default;

/// The form is drawn once; its controls carry the letter of their side in their names.
void MovementListPage::nameControls()
{
    m_ui->Sprd_XHyou->setObjectName(QString::fromUtf16(m_side.gridName));
    m_ui->fraXList->setObjectName(QString::fromUtf16(m_side.listFrameName));
    letterNames(*this, QChar(m_side.letter));
    m_ui->fraXLWhere->setTitle(QString::fromUtf16(m_side.whereFrameCaption));
    m_ui->fraXList->setTitle(QString::fromUtf16(m_side.listFrameCaption));
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
    m_ui->lblXLSaki->setText(heading(partnerHeading));
    m_ui->lblXLTantou->setText(heading(staffHeading));
    plainHeadings();
}

void MovementListPage::setDefaultDates(const QString& from, const QString& to)
{
    m_period.from.setDate(from);
    m_period.to.setDate(to);
}

void MovementListPage::setPartners(const ChoiceList& partners)
{
    fillCombo(*m_ui->cmbXLSaki, partners, true);
}

void MovementListPage::setStaff(const ChoiceList& staff)
{
    fillCombo(*m_ui->cmbXLTantou, staff, true);
}

void MovementListPage::firstShow()
{
    const QString kept = m_ui->txtXLBarCode->text();
    m_ui->txtXLBarCode->clear();
    int key = enterKey;
    barCode_KeyPress(key);
    m_ui->txtXLBarCode->setText(kept);
}

void MovementListPage::barCode_KeyPress(int& keyAscii)
{
    SearchKeyCheck(keyAscii);
    limitLength(*m_ui->txtXLBarCode, codeLength, true, keyAscii);
    if (keyAscii == enterKey && m_ui->txtXLBarCode->text().isEmpty())
        resetTab();
}

void MovementListPage::plainHeadings()
{
    for (int column = 1; column <= grid()->MaxCols(); ++column)
        grid()->SetText(column, 0, (m_services.ini.*m_side.heading)(column));
}

void MovementListPage::resetTab()
{
    m_ui->lblXLSyouhin->setText(allChoices);
    m_ui->cmbXLSaki->setCurrentIndex(m_ui->cmbXLSaki->count() - 1);
    m_ui->cmbXLTantou->setCurrentIndex(m_ui->cmbXLTantou->count() - 1);
    m_ui->chkXLSum->setChecked(false);
    plainHeadings();
    grid()->setMaxRows(0);
    m_ui->cmdXLKensaku->setFocus();
}

} // namespace suisui
