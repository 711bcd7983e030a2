#include "barcode/label/frm_PriCheck.h"

#include <algorithm>

#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>

#include "barcode/label/LabelSettings.h"
#include "barcode/label/LabelSheets.h"
#include "barcode/label/SheetPicture.h"
#include "frame/support/FocusPaint.h"
#include "frame/support/KeyField.h"
#include "platform/widgets/BarPrt.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/Hourglass.h"
#include "platform/widgets/SendKeys.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

QString textOf(const char16_t* text)
{
    return QString::fromUtf16(text);
}

} // namespace

frm_PriCheck::frm_PriCheck(const LabelSource& source, const Surroundings& around, QWidget* parent)
    : QDialog(parent), m_source(source), m_around(around), m_ui(std::make_unique<Ui::frm_PriCheck>()),
      m_gate(this), m_rows(*source.grid, source.checkColumn, source.quantityColumn), m_setup(source, m_rows)
{
    m_ui->setupUi(this);
    prepareForm();
    wire();
    wireKeys();
    m_focusPaint = std::make_unique<FocusPaint>(this, palette().color(QPalette::Button));
    restoreLabelSettings(m_setup, m_around.ini, m_source.mode);
    showSetup();
    m_scan = new DialogScan(*this, 1, m_around.readLine, *m_ui->CmdOK, *m_ui->CmdEnd, &SendKeys);
}

frm_PriCheck::~frm_PriCheck() = default;

/// Size, colours, and the texts that depend on source and sheets, which Designer does not know.
void frm_PriCheck::prepareForm()
{
    m_ui->layAll->setStretch(1, 1);
    constexpr QSize comfortable(1110, 690);
    constexpr QSize aroundWindow(12, 40); // roughly what the window manager adds
    resize(comfortable.boundedTo(screen()->availableSize() - aroundWindow));
    QPalette warning = m_ui->lblWarning->palette();
    warning.setColor(QPalette::WindowText, QColor(200, 0, 0));
    m_ui->lblWarning->setPalette(warning);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_ui->lblSyori->setText(u"【 %1 】"_s.arg(m_source.word));
    if (!m_source.markedCaption.isEmpty())
        m_ui->optPrint_0->setText(m_source.markedCaption);
    if (!m_source.asksForNumber) {
        m_ui->lblPrtNum_1->setText(m_source.quantityColumn != 0 ? u"数量分 "_s : u"１ 枚 　"_s);
        m_ui->txtPrtNum->hide();
    }
    for (int step = 1; step <= barPitchSteps; ++step)
        m_ui->cmbBarPich->addItem(QString::number(step));
    m_ui->cmbBarPich->setCurrentIndex(-1);
    m_optYousi = {m_ui->optYousi_0, m_ui->optYousi_1, m_ui->optYousi_2, m_ui->optYousi_3, m_ui->optYousi_4};
    m_frames = {m_ui->frame_yousi_0, m_ui->frame_yousi_1, m_ui->frame_yousi_2, m_ui->frame_yousi_3,
                m_ui->frame_yousi_4};
    m_pictures = {m_ui->picture_0, m_ui->picture_1, m_ui->picture_2, m_ui->picture_3, m_ui->picture_4};
    for (std::size_t i = 0; i < labelSheets.size(); ++i) {
        const LabelSheet& sheet = labelSheets.at(i);
        m_optYousi.at(i)->setText(textOf(sheet.paper) + u'\n' + textOf(sheet.labels));
        m_pictures.at(i)->setSheet(sheet, u"opt%1_"_s.arg(i));
    }
    m_optYousi[freeSheet]->setText(u"【フリー】"_s);
}

void frm_PriCheck::wire()
{
    const auto control = [this](const char* name) {
        return name != nullptr ? findChild<QWidget*>(QString::fromLatin1(name)) : nullptr;
    };
    for (const LabelFieldRow& row : labelFields()) {
        if (row.control == nullptr)
            continue;
        const auto field = static_cast<std::size_t>(row.field);
        m_controls.at(field) = control(row.control);
        std::transform(row.labels.begin(), row.labels.end(), m_labels.at(field).begin(), control);
        if (row.field != LabelField::print)
            wireField(row.field, m_controls.at(field));
    }
    wireSheets();
    wirePicture();
    connect(m_ui->CmdOK, &QPushButton::clicked, this, &frm_PriCheck::CmdOK_Click);
    connect(m_ui->CmdEnd, &QPushButton::clicked, this, &QDialog::reject);
}

void frm_PriCheck::wireField(LabelField field, QWidget* widget)
{
    if (auto* typed = qobject_cast<KeyField*>(widget))
        connect(typed, &QLineEdit::textChanged, this,
                [this, field](const QString& text) { take(field, text); });
    else if (auto* box = qobject_cast<QAbstractButton*>(widget))
        connect(box, &QAbstractButton::toggled, this,
                [this, field](bool on) { take(field, on ? u"1"_s : u"0"_s); });
    else if (auto* list = qobject_cast<QComboBox*>(widget))
        connect(list, &QComboBox::currentTextChanged, this,
                [this, field](const QString& text) { take(field, text); });
}

void frm_PriCheck::wireSheets()
{
    for (int sheet = 0; sheet < sheetChoices; ++sheet)
        connect(m_optYousi.at(static_cast<std::size_t>(sheet)), &QRadioButton::toggled, this,
                [this, sheet](bool on) {
                    if (on)
                        take(LabelField::sheet, QString::number(sheet));
                });
    QWidget* before = m_ui->txtPage_1;
    for (SheetPicture* sheet : m_pictures) {
        connect(sheet, &SheetPicture::resized, this, &frm_PriCheck::refreshLater);
        int position = 0;
        for (QRadioButton* button : sheet->buttons()) {
            connect(button, &QRadioButton::toggled, this, [this, start = ++position](bool on) {
                if (on && start <= m_setup.capacity())
                    take(LabelField::startLabel, QString::number(start));
            });
            setTabOrder(before, button);
            before = button;
        }
    }
}

/// Takes the new content of a control, whoever has changed it.
void frm_PriCheck::take(LabelField field, const QString& text)
{
    if (field == LabelField::barHeight)
        // Meant: the rounded number of millimetres is set as dots; printing sets the dots of the printer.
        if (const std::optional<double> millimetres = numberIn(text))
            m_around.barPrt.setBarHeight(nearestDot(*millimetres));
    if (field == LabelField::barPitch && !text.isEmpty())
        m_around.barPrt.setBarPitch(text.toInt());
    if (m_showing)
        return;
    if (field == LabelField::sheet)
        m_shownPage = 1;
    m_setup.set(field, text);
    showSetup();
}

void frm_PriCheck::showSetup()
{
    const QScopedValueRollback<bool> showing(m_showing, true);
    showSheet();
    showStarts();
    for (const LabelFieldRow& row : labelFields())
        showField(row);
    showPositions();
    refreshLater();
}

void frm_PriCheck::showField(const LabelFieldRow& row)
{
    QWidget* control = m_controls.at(static_cast<std::size_t>(row.field));
    if (control == nullptr || row.field == LabelField::print)
        return;
    const QString& text = m_setup.text(row.field);
    if (auto* typed = qobject_cast<KeyField*>(control); typed != nullptr && typed->text() != text)
        typed->setText(text);
    else if (auto* box = qobject_cast<QAbstractButton*>(control))
        box->setChecked(m_setup.ticked(row.field));
    else if (auto* list = qobject_cast<QComboBox*>(control))
        list->setCurrentIndex(text.toInt() - 1); // both lists count from 1
    control->setEnabled(m_setup.enabled(row.field));
    for (QWidget* label : m_labels.at(static_cast<std::size_t>(row.field)))
        if (label != nullptr)
            label->setEnabled(m_setup.enabled(row.field));
}

/// The list of first labels has an item for each label of a page.
void frm_PriCheck::showStarts()
{
    if (m_ui->cmbStart->count() == m_setup.capacity())
        return;
    setCursor(hourglass());
    const QSignalBlocker quiet(m_ui->cmbStart);
    m_ui->cmbStart->clear();
    for (int start = 1; start <= m_setup.capacity(); ++start)
        m_ui->cmbStart->addItem(QString::number(start));
    unsetCursor();
}

void frm_PriCheck::showSheet()
{
    const auto sheet = static_cast<std::size_t>(m_setup.sheet());
    m_optYousi.at(sheet)->setChecked(true);
    m_ui->lblKinouSetumei->setEnabled(m_setup.mayHoldStrip());
    const LabelSheet* figures = m_setup.fixedSheet();
    m_ui->lblYosiName->setText(figures != nullptr ? textOf(figures->title) + u'\n' + textOf(figures->maker)
                                                  : u"【 フリー 】\n自由設定"_s);
    for (std::size_t i = 0; i < m_frames.size(); ++i)
        if (i != sheet)
            m_frames.at(i)->hide();
    m_frames.at(sheet)->show(); // never two at once: the dialog would grow to hold both
}

/// Chooses the button of the first label and hides those that the strip of function codes covers.
void frm_PriCheck::showPositions()
{
    const auto& buttons = picture()->buttons();
    int position = 0;
    for (QRadioButton* button : buttons) {
        if (position + 1 == m_setup.number(LabelField::startLabel))
            button->setChecked(true);
        button->setVisible(m_setup.positionOffered(position++));
    }
}

/// The control of \a field; null when there is none on this sheet.
QWidget* frm_PriCheck::controlOf(LabelField field) const
{
    if (field == LabelField::sheet)
        return m_optYousi.at(static_cast<std::size_t>(m_setup.sheet()));
    if (field == LabelField::position)
        return positionButton();
    return m_controls.at(static_cast<std::size_t>(field));
}

SheetPicture* frm_PriCheck::picture() const
{
    return m_pictures.at(static_cast<std::size_t>(m_setup.sheet()));
}

/// The chosen button in the picture; null for the free sheet, which has none.
QRadioButton* frm_PriCheck::positionButton() const
{
    const auto& buttons = picture()->buttons();
    const auto chosen =
        std::find_if(buttons.begin(), buttons.end(), [](const auto* b) { return b->isChecked(); });
    return chosen != buttons.end() ? *chosen : nullptr;
}

void frm_PriCheck::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    refreshLater();
}

} // namespace suisui
