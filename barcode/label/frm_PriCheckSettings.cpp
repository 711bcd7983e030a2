// Sheets written into the fields, and what is remembered of the last print.
#include <algorithm>

#include <QRadioButton>

#include "barcode/label/LabelSheets.h"
#include "barcode/label/frm_PriCheck.h"
#include "frame/support/KeyField.h"
#include "platform/widgets/BarPrt.h"
#include "store/AppIni.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int usualPitch = 3;

QString textOf(const char16_t* text)
{
    return QString::fromUtf16(text);
}

QString tickOf(const QAbstractButton& box)
{
    return box.isChecked() ? u"1"_s : u"0"_s;
}

} // namespace

void frm_PriCheck::writeSheet(int sheet)
{
    const LabelSheet* const figures =
        sheet < fixedSheets ? &labelSheets.at(static_cast<std::size_t>(sheet)) : nullptr;
    enableForSheet(figures);
    if (figures != nullptr)
        writeFigures(*figures);
    else
        m_ui->lblYosiName->setText(u"【 フリー 】\n自由設定"_s);
    followTicks();
}

/// The free sheet, which has no \a figures, lets everything be set.
void frm_PriCheck::enableForSheet(const LabelSheet* figures)
{
    const bool strip = figures == nullptr || figures->functionCodes;
    for (QRadioButton* button : picture()->buttons())
        button->show();
    for (const Part& part : m_kinou) {
        part.box->setChecked(false);
        part.box->setEnabled(strip);
    }
    m_ui->lblKinouSetumei->setEnabled(strip);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_txtOnePageNum[0], m_txtOnePageNum[1],
                                                           m_ui->lblOnePageNum_0, m_ui->lblOnePageNum_1,
                                                           m_ui->lblOnePageUnit_0, m_ui->lblOnePageUnit_1})
        widget->setEnabled(figures == nullptr);
}

void frm_PriCheck::writeFigures(const LabelSheet& figures)
{
    m_ui->lblYosiName->setText(textOf(figures.title) + u'\n' + textOf(figures.maker));
    m_ui->cmbBarPich->setCurrentText(textOf(figures.barPitch));
    m_ui->txtBarHeight->setText(textOf(figures.barHeight));
    m_ui->txtXYpoint_0->setText(textOf(figures.startX));
    m_ui->txtXYpoint_1->setText(textOf(figures.startY));
    m_txtWHPich[0]->setText(textOf(figures.width));
    m_txtWHPich[1]->setText(textOf(figures.height));
    m_txtOnePageNum[0]->setText(QString::number(figures.columns));
    m_txtOnePageNum[1]->setText(QString::number(figures.rows));
    for (const auto& [part, text] : {std::pair{&m_name, &figures.name}, std::pair{&m_code, &figures.code}}) {
        part->box->setChecked(text->on);
        part->place[0]->setText(textOf(text->x));
        part->place[1]->setText(textOf(text->y));
    }
    if (figures.functionCodes) {
        m_kinou[0].place[0]->setText(textOf(screenStrip.x));
        m_kinou[0].place[1]->setText(textOf(screenStrip.y));
        m_kinou[1].place[0]->setText(textOf(searchStrip.x));
        m_kinou[1].place[1]->setText(textOf(searchStrip.y));
    }
}

void frm_PriCheck::Form_Load()
{
    m_txtLine[0]->setText(m_startRow);
    m_txtLine[1]->setText(m_endRow);
    optPrint_Click();
    m_ui->cmbStart->setCurrentIndex(0);
    for (std::size_t i = 0; i < labelSheets.size(); ++i)
        m_optYousi.at(i)->setText(textOf(labelSheets.at(i).paper) + u'\n' + textOf(labelSheets.at(i).labels));
    m_optYousi[freeSheet]->setText(u"【フリー】"_s);
    const QString saved = m_around.ini.labelSetting(m_source.mode, u"Yousi"_s);
    const int sheet = saved.size() == 1 && saved >= u"0" && saved <= u"4" ? saved.toInt() : 0;
    if (m_optYousi.at(static_cast<std::size_t>(sheet))->isChecked())
        optYousi_Click(sheet);
    else
        m_optYousi.at(static_cast<std::size_t>(sheet))->setChecked(true);
    restoreSettings();
}

/// Fields take what is saved, each only if it is a number; where nothing is saved the sheet's own figures
/// stay.
void frm_PriCheck::restoreSettings()
{
    const auto saved = [this](const QString& name) { return m_around.ini.labelSetting(m_source.mode, name); };
    const auto toField = [&](QLineEdit* field, const QString& name) {
        if (isNumeric(saved(name)))
            field->setText(saved(name));
    };
    const auto toCount = [&](QLineEdit* field, const QString& name) {
        const double count = numberIn(saved(name)); // what the field itself could not hold is nonsense
        if (count >= 1 && count <= 99)
            field->setText(QString::number(static_cast<int>(count)));
    };
    const auto toBox = [&](QAbstractButton* box, const QString& name) {
        if (box->isEnabled() && (saved(name) == u"0" || saved(name) == u"1"))
            box->setChecked(saved(name) == u"1");
    };
    if (const QString pitch = saved(u"BarPich"_s); !pitch.isEmpty()) {
        const double step = numberIn(pitch);
        const bool good = step >= 1 && step <= barPitchSteps;
        m_ui->cmbBarPich->setCurrentIndex((good ? static_cast<int>(step) : usualPitch) - 1);
    }
    toField(m_ui->txtBarHeight, u"BarHeight"_s);
    toField(m_ui->txtXYpoint_0, u"XPoint"_s);
    toField(m_ui->txtXYpoint_1, u"YPoint"_s);
    toField(m_txtWHPich[0], u"WPich"_s);
    toField(m_txtWHPich[1], u"HPich"_s);
    toCount(m_txtOnePageNum[0], u"PageColumns"_s);
    toCount(m_txtOnePageNum[1], u"PageRows"_s);
    toBox(m_name.box, u"Name"_s);
    toField(m_name.place[0], u"NameXPoint"_s);
    toField(m_name.place[1], u"NameYPoint"_s);
    toBox(m_code.box, u"Code"_s);
    toField(m_code.place[0], u"CodeXPoint"_s);
    toField(m_code.place[1], u"CodeYPoint"_s);
    toBox(m_kinou[0].box, u"Kinou0"_s);
    toField(m_kinou[0].place[0], u"KinouXPoint0"_s);
    toField(m_kinou[0].place[1], u"KinouYPoint0"_s);
    toBox(m_kinou[1].box, u"Kinou1"_s);
    toField(m_kinou[1].place[0], u"KinouXPoint1"_s);
    toField(m_kinou[1].place[1], u"KinouYPoint1"_s);
}

void frm_PriCheck::saveSettings()
{
    const QStringList values{m_ui->cmbBarPich->currentText(),
                             m_ui->txtBarHeight->text(),
                             m_ui->txtXYpoint_0->text(),
                             m_ui->txtXYpoint_1->text(),
                             m_txtWHPich[0]->text(),
                             m_txtWHPich[1]->text(),
                             m_txtOnePageNum[0]->text(),
                             m_txtOnePageNum[1]->text(),
                             tickOf(*m_code.box),
                             tickOf(*m_name.box),
                             tickOf(*m_kinou[0].box),
                             tickOf(*m_kinou[1].box),
                             QString::number(m_sheet),
                             m_name.place[0]->text(),
                             m_name.place[1]->text(),
                             m_code.place[0]->text(),
                             m_code.place[1]->text(),
                             m_kinou[0].place[0]->text(),
                             m_kinou[0].place[1]->text(),
                             m_kinou[1].place[0]->text(),
                             m_kinou[1].place[1]->text()};
    m_around.ini.setLabelSettings(m_source.mode, values);
}

} // namespace suisui
