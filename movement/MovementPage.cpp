#include "movement/MovementPage.h"

#include "frame/support/PageTools.h"
#include "movement/EntryGrid.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

MovementPage::MovementPage(Side side, const Services& services, QWidget* parent)
    : Page(parent), m_side(movementSide(side)), m_table(movementTable(side)), m_services(services),
      m_rows(m_table.rows(services.db)), m_ui(std::make_unique<Ui::MovementPage>())
{
    m_ui->setupUi(this);
    followRuler(*m_ui->txtXBarCode, *m_ui->lblXBarCode);
    m_period = {{m_ui->txtXyyyy_F, m_ui->txtXmm_F, m_ui->txtXdd_F},
                {m_ui->txtXyyyy_T, m_ui->txtXmm_T, m_ui->txtXdd_T}};
    m_entry = std::make_unique<EntryGrid>(*m_ui->Sprd_X, m_side);
    m_edit = std::make_unique<Correction>(side, books(), *m_entry);
    nameControls();
    wire();
}

MovementPage::~MovementPage() = default;

/// One form serves both sides; its controls get the letter of their side in their names.
void MovementPage::nameControls()
{
    m_ui->Sprd_X->setObjectName(QString::fromUtf16(m_side.gridName));
    m_ui->fraXData->setObjectName(QString::fromUtf16(m_side.dataFrameName));
    letterNames(*this, QChar(m_side.letter));
    m_ui->fraXData->setTitle(QString::fromUtf16(m_side.dataFrameCaption));
    m_ui->fraXSaki->setTitle(QString::fromUtf16(m_side.partnerFrameCaption));
    m_ui->cmbXSaki->setToolTip(QString::fromUtf16(m_side.partnerTip));
    m_ui->txtXBarCode->setToolTip(QString::fromUtf16(m_side.codeTip));
}

void MovementPage::wire()
{
    m_ui->txtXBarCode->setKeyPressHandler([this](int& key) { barCode_KeyPress(key); });
    wirePeriod(m_period, m_ui->cmdXKensaku);
    connect(m_ui->cmdXKensaku, &QPushButton::clicked, this, &MovementPage::cmdKensaku_Click);
    connect(m_ui->cmdXKousin, &QPushButton::clicked, this, &MovementPage::cmdKousin_Click);
    connect(m_ui->cmdXDelete, &QPushButton::clicked, this, &MovementPage::cmdDelete_Click);
    connect(m_ui->cmdXPrint, &QPushButton::clicked, this, &MovementPage::cmdPrint_Click);
    connect(m_ui->Sprd_X, &vaSpread::Change, this, &MovementPage::cellChange);
}

QLineEdit* MovementPage::barCodeField()
{
    return m_ui->txtXBarCode;
}

vaSpread* MovementPage::grid()
{
    return m_ui->Sprd_X;
}

QWidget* MovementPage::printButton()
{
    return m_ui->cmdXPrint;
}

void MovementPage::cmdPrint_Click()
{
    grid()->endEdit();
    const MovementCells& cells = m_side.cells;
    Q_EMIT labelsWanted(cells.print, m_ui->optXPrint1->isChecked() ? noCell : cells.quantity);
    m_ui->cmdXPrint->setFocus();
}

QComboBox* MovementPage::partnerChoice()
{
    return m_ui->cmbXSaki;
}

void MovementPage::setCaptions(const AppIni& ini)
{
    const MovementCells& cells = m_side.cells;
    m_ui->fraXSaki->setTitle(u" %1 名称 "_s.arg((ini.*m_side.heading)(cells.partner)));
    m_ui->fraXData->setTitle(u" 【 %1 】 情報 "_s.arg(ini.Term(m_side.termIndex)));
    for (int column = 1; column <= grid()->MaxCols(); ++column)
        grid()->SetText(column, 0, (ini.*m_side.heading)(column));
}

void MovementPage::setDefaultDates(const QString& from, const QString& to)
{
    m_period.from.setDate(from);
    m_period.to.setDate(to);
}

void MovementPage::setToday(const QString& text)
{
    m_ui->lblXToday->setText(text);
}

void MovementPage::setPartners(const ChoiceList& partners)
{
    m_partners = partners;
    fillCombo(*m_ui->cmbXSaki, partners, false);
}

bool MovementPage::choosePartner(const QString& code)
{
    return chooseCode(*m_ui->cmbXSaki, m_partners, code);
}

void MovementPage::firstShow()
{
    grid()->SetActiveCell(1, 1);
    cmdKensaku_Click();
}

QString MovementPage::term() const
{
    return m_services.ini.Term(m_side.termIndex);
}

void MovementPage::markStale()
{
    m_services.frame.setTabLoaded(Tab::Stock, false);
    m_services.frame.setTabLoaded(m_side.listTab, false);
}

} // namespace suisui
