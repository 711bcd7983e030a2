#include "barcode/label/frm_PriCheck.h"

#include <algorithm>

#include <QRadioButton>
#include <QScreen>

#include "barcode/label/LabelSheets.h"
#include "frame/support/FocusPaint.h"
#include "platform/widgets/BarPrt.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/Hourglass.h"
#include "platform/widgets/SendKeys.h"
#include "store/Numbers.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int stripRowFrom = 10; ///< positions of the row that the strip of function codes takes
constexpr int rowsWithStrip = 5;
constexpr int rowsWithoutStrip = 6;

void enable(const std::vector<QWidget*>& widgets, bool on)
{
    for (QWidget* widget : widgets)
        widget->setEnabled(on);
}

/// Number of columns or rows that \a text gives; 0 when it gives none.
int countIn(const QString& text)
{
    const double number = numberIn(text);
    return number >= 1 && number <= 99 ? static_cast<int>(number) : 0;
}

} // namespace

frm_PriCheck::frm_PriCheck(const LabelSource& source, const Surroundings& around, QWidget* parent)
    : QDialog(parent), m_source(source), m_around(around), m_ui(std::make_unique<Ui::frm_PriCheck>()),
      m_gate(this), m_rows(*source.grid, source.checkColumn, source.quantityColumn),
      m_startRow(QString::number(source.firstRow)), m_endRow(QString::number(source.lastRow))
{
    m_ui->setupUi(this);
    m_ui->layAll->setStretch(1, 1);
    constexpr QSize comfortable(1110, 690);
    constexpr QSize aroundWindow(12, 40); // what the window manager adds, about
    resize(comfortable.boundedTo(screen()->availableSize() - aroundWindow));
    QPalette warning = m_ui->lblWarning->palette();
    warning.setColor(QPalette::WindowText, QColor(200, 0, 0));
    m_ui->lblWarning->setPalette(warning);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    nameTables();
    m_ui->lblSyori->setText(u"【 %1 】"_s.arg(source.word));
    if (!source.markedCaption.isEmpty())
        m_ui->optPrint_0->setText(source.markedCaption);
    if (!source.asksForNumber) {
        m_ui->lblPrtNum_1->setText(source.quantityColumn != 0 ? u"数量分 "_s : u"１ 枚 　"_s);
        m_ui->txtPrtNum->hide();
    }
    for (int step = 1; step <= barPitchSteps; ++step)
        m_ui->cmbBarPich->addItem(QString::number(step));
    m_ui->cmbBarPich->setCurrentIndex(-1);
    wire();
    wireKeys();
    m_focusPaint = std::make_unique<FocusPaint>(this, palette().color(QPalette::Button));
    Form_Load();
    m_scan = new DialogScan(*this, 1, m_around.readLine, *m_ui->CmdOK, *m_ui->CmdEnd, &SendKeys);
}

frm_PriCheck::~frm_PriCheck() = default;

/// The arrays of the form, which Designer knows only as single controls.
void frm_PriCheck::nameTables()
{
    m_optYousi = {m_ui->optYousi_0, m_ui->optYousi_1, m_ui->optYousi_2, m_ui->optYousi_3, m_ui->optYousi_4};
    m_frames = {m_ui->frame_yousi_0, m_ui->frame_yousi_1, m_ui->frame_yousi_2, m_ui->frame_yousi_3,
                m_ui->frame_yousi_4};
    m_pictures = {m_ui->picture_0, m_ui->picture_1, m_ui->picture_2, m_ui->picture_3, m_ui->picture_4};
    m_txtOnePageNum = {m_ui->txtOnePageNum_0, m_ui->txtOnePageNum_1};
    m_txtWHPich = {m_ui->txtWHPich_0, m_ui->txtWHPich_1};
    m_txtLine = {m_ui->txtLine_0, m_ui->txtLine_1};
    m_txtPage = {m_ui->txtPage_0, m_ui->txtPage_1};
    m_name = {m_ui->chkName,
              {m_ui->txtNameXYpoint_0, m_ui->txtNameXYpoint_1},
              {m_ui->lblNameX_0, m_ui->lblNameY_1, m_ui->lblNameUnit_0, m_ui->lblNameUnit_1}};
    m_code = {m_ui->chkCode,
              {m_ui->txtCodeXYpoint_0, m_ui->txtCodeXYpoint_1},
              {m_ui->lblCodeX_0, m_ui->lblCodeY_1, m_ui->lblCodeUnit_0, m_ui->lblCodeUnit_1}};
    m_kinou = {Part{m_ui->chkKinou_0,
                    {m_ui->txtKinouXYpoint_0, m_ui->txtKinouXYpoint_1},
                    {m_ui->lblKinouX_0, m_ui->lblKinouY_1, m_ui->lblKinouUnit_0, m_ui->lblKinouUnit_1}},
               Part{m_ui->chkKinou_1,
                    {m_ui->txtKinouXYpoint_2, m_ui->txtKinouXYpoint_3},
                    {m_ui->lblKinouX_2, m_ui->lblKinouY_3, m_ui->lblKinouUnit_2, m_ui->lblKinouUnit_3}}};
    for (int sheet = 0; sheet < fixedSheets; ++sheet) {
        const LabelSheet& each = labelSheets.at(static_cast<std::size_t>(sheet));
        m_pictures.at(static_cast<std::size_t>(sheet))->setSheet(each, u"opt%1_"_s.arg(sheet));
    }
}

void frm_PriCheck::wire()
{
    wireSheets();
    wireFields();
    wirePicture();
    connect(m_ui->CmdOK, &QPushButton::clicked, this, &frm_PriCheck::CmdOK_Click);
    connect(m_ui->CmdEnd, &QPushButton::clicked, this, &QDialog::reject);
}

void frm_PriCheck::wireSheets()
{
    for (int sheet = 0; sheet < sheetChoices; ++sheet)
        connect(m_optYousi.at(static_cast<std::size_t>(sheet)), &QRadioButton::toggled, this,
                [this, sheet](bool on) {
                    if (on)
                        optYousi_Click(sheet);
                });
    QWidget* before = m_ui->txtPage_1;
    for (SheetPicture* sheet : m_pictures) {
        connect(sheet, &SheetPicture::resized, this, &frm_PriCheck::refreshLater);
        int position = 0;
        for (QRadioButton* button : sheet->buttons()) {
            connect(button, &QRadioButton::toggled, this, [this, start = position++](bool on) {
                if (on && start < m_ui->cmbStart->count())
                    m_ui->cmbStart->setCurrentIndex(start);
            });
            setTabOrder(before, button);
            before = button;
        }
    }
}

void frm_PriCheck::wireFields()
{
    for (KeyField* field : m_txtOnePageNum)
        connect(field, &QLineEdit::textChanged, this, [this] { txtOnePageNum_Change(); });
    for (KeyField* field : m_txtLine)
        connect(field, &QLineEdit::textChanged, this, [this] { txtLine_Change(); });
    connect(m_ui->txtPrtNum, &QLineEdit::textChanged, this, [this] { LabelPageCalc(); });
    connect(m_ui->optPrint_0, &QRadioButton::toggled, this, [this] { optPrint_Click(); });
    connect(m_ui->cmbStart, &QComboBox::currentIndexChanged, this, [this] { cmbStart_Click(); });
    connect(m_ui->cmbBarPich, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0)
            m_around.barPrt.setBarPitch(index + 1);
    });
    connect(m_ui->txtBarHeight, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (isNumeric(text))
            m_around.barPrt.setBarHeight(nearestDot(numberIn(text)));
    });
    for (const Part* part : {&m_name, &m_code})
        connect(part->box, &QAbstractButton::toggled, this, [this] { followTicks(); });
    for (const Part& part : m_kinou)
        connect(part.box, &QAbstractButton::toggled, this, [this] { chkKinou_Click(); });
}

/// Whatever changes, the picture follows.
void frm_PriCheck::wirePicture()
{
    for (QLineEdit* field : findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, &frm_PriCheck::refreshLater);
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        connect(button, &QAbstractButton::toggled, this, &frm_PriCheck::refreshLater);
    for (QComboBox* choice : findChildren<QComboBox*>())
        connect(choice, &QComboBox::currentIndexChanged, this, &frm_PriCheck::refreshLater);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &frm_PriCheck::refreshPicture);
    connect(m_ui->cmdBack, &QToolButton::clicked, this, [this] {
        --m_shownPage;
        refreshPicture();
    });
    connect(m_ui->cmdNext, &QToolButton::clicked, this, [this] {
        ++m_shownPage;
        refreshPicture();
    });
    connect(m_ui->cmdLarge, &QToolButton::clicked, this, &frm_PriCheck::showLarge);
}

SheetPicture* frm_PriCheck::picture() const
{
    return m_pictures.at(static_cast<std::size_t>(m_sheet));
}

/// The chosen button of the sheet's picture; null where the sheet has none.
QRadioButton* frm_PriCheck::positionButton() const
{
    const auto& buttons = picture()->buttons();
    const auto chosen =
        std::find_if(buttons.begin(), buttons.end(), [](const auto* b) { return b->isChecked(); });
    return chosen != buttons.end() ? *chosen : nullptr;
}

void frm_PriCheck::optYousi_Click(int sheet)
{
    m_sheet = sheet;
    for (QWidget* frame : m_frames)
        frame->hide();
    m_frames.at(static_cast<std::size_t>(sheet))
        ->show(); // never two at once: the dialog would grow to hold both
    writeSheet(sheet);
    cmbStart_Click();
    m_shownPage = 1;
    refreshLater();
}

void frm_PriCheck::txtOnePageNum_Change()
{
    const std::array labels{std::vector<QWidget*>{m_ui->lblWHPich_0, m_ui->lblWHUnit_0},
                            std::vector<QWidget*>{m_ui->lblWHPich_1, m_ui->lblWHUnit_1}};
    std::array<int, 2> counts{};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        counts.at(i) = countIn(m_txtOnePageNum.at(i)->text());
        if (counts.at(i) == 0)
            return;
        m_txtWHPich.at(i)->setEnabled(counts.at(i) != 1);
        enable(labels.at(i), counts.at(i) != 1);
    }
    setCursor(hourglass());
    const int capacity = counts[0] * counts[1];
    const bool many = capacity >= 2;
    m_ui->lblStart->setEnabled(many);
    m_ui->cmbStart->setEnabled(many);
    if (m_sheet == freeSheet) {
        for (const Part& part : m_kinou)
            part.box->setEnabled(many);
        followTicks();
    }
    {
        const QSignalBlocker quiet(m_ui->cmbStart);
        m_ui->cmbStart->clear();
        for (int start = 1; start <= capacity; ++start)
            m_ui->cmbStart->addItem(QString::number(start));
        m_ui->cmbStart->setCurrentIndex(0);
    }
    cmbStart_Click();
    unsetCursor();
}

void frm_PriCheck::setPages(const QString& first, const QString& last)
{
    m_txtPage[0]->setText(first);
    m_txtPage[1]->setText(last);
}

void frm_PriCheck::LabelPageCalc()
{
    const int columns = countIn(m_txtOnePageNum[0]->text());
    const int rows = countIn(m_txtOnePageNum[1]->text());
    const QString each = m_ui->txtPrtNum->text();
    if (columns == 0 || rows == 0 || !isNumeric(each))
        return;
    const bool marked = m_ui->optPrint_0->isChecked();
    const double end = numberIn(m_endRow);
    const double first = marked ? 1 : numberIn(m_txtLine[0]->text());
    const double last = marked ? end : numberIn(m_txtLine[1]->text());
    if (!marked && (first == 0 || last == 0 || last < first || last > end))
        return;
    const std::int64_t labels = labelsWanted(m_rows, std::max<std::int64_t>(labelsOf(first), 1),
                                             labelsOf(last), marked, labelsOf(numberIn(each)));
    m_pageTotal = pagesNeeded(labels, std::int64_t{columns} * rows, m_ui->cmbStart->currentIndex() + 1);
    if (labels == 0)
        setPages(u"0"_s, u"0"_s);
    else
        setPages(u"1"_s, QString::number(m_pageTotal));
    refreshLater();
}

void frm_PriCheck::txtLine_Change()
{
    setPages(u"0"_s, u"0"_s);
    const QString first = m_txtLine[0]->text();
    const QString last = m_txtLine[1]->text();
    if (!isNumeric(first) || !isNumeric(last) || numberIn(last) > numberIn(m_endRow) || numberIn(first) < 1
        || numberIn(last) < numberIn(first))
        return;
    LabelPageCalc();
}

void frm_PriCheck::optPrint_Click()
{
    setPages(u"0"_s, u"0"_s);
    const bool range = m_ui->optPrint_1->isChecked();
    enable({m_txtLine[0], m_txtLine[1], m_ui->lblLine_0, m_ui->lblLine_1}, range);
    LabelPageCalc();
}

void frm_PriCheck::cmbStart_Click()
{
    const int start = m_ui->cmbStart->currentIndex();
    const auto& buttons = picture()->buttons();
    if (start >= 0 && start < static_cast<int>(buttons.size()))
        buttons[static_cast<std::size_t>(start)]->setChecked(true);
    LabelPageCalc();
}

/// On the sheet whose last row can hold the strip, a tick takes that row from the labels.
void frm_PriCheck::chkKinou_Click()
{
    const bool strip = m_kinou[0].box->isChecked() || m_kinou[1].box->isChecked();
    if (m_sheet < fixedSheets && labelSheets.at(static_cast<std::size_t>(m_sheet)).functionCodes) {
        const auto& buttons = picture()->buttons();
        for (std::size_t i = stripRowFrom; i < buttons.size(); ++i) {
            if (strip && buttons[i]->isChecked())
                buttons[0]->setChecked(true);
            buttons[i]->setVisible(!strip);
        }
        m_txtOnePageNum[1]->setText(QString::number(strip ? rowsWithStrip : rowsWithoutStrip));
    }
    followTicks();
}

/// The position fields of each box follow its tick.
void frm_PriCheck::followTicks()
{
    for (const Part* part : {&m_name, &m_code, &m_kinou[0], &m_kinou[1]}) {
        const bool on = part->box->isChecked() && part->box->isEnabled();
        for (KeyField* field : part->place)
            field->setEnabled(on);
        enable(part->labels, on);
    }
}

void frm_PriCheck::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    refreshLater();
}

} // namespace suisui
