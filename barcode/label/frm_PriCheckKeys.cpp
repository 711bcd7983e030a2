// Keys of the label dialog: what the fields let through, and where Enter goes.
#include <algorithm>

#include <QKeyEvent>
#include <QRadioButton>
#include <QRegularExpressionValidator>

#include "barcode/label/SheetPicture.h"
#include "barcode/label/frm_PriCheck.h"
#include "frame/support/Check_Csv.h"
#include "frame/support/KeyField.h"
#include "platform/core/KeyCodes.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/EnterKey.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowDigits = 4;
constexpr int pageDigits = 4;
constexpr int labelDigits = 3;
constexpr int countDigits = 2;
constexpr int measureLength = 6;

/// Digits, "-" and "."; Ctrl-C, Backspace, Enter.
int measureKeyCheck(int& keyAscii)
{
    const bool passes = (keyAscii >= '0' && keyAscii <= '9') || keyAscii == '-' || keyAscii == '.'
                        || keyAscii == KeyCode::ctrlC || keyAscii == KeyCode::backspace
                        || keyAscii == KeyCode::enter;
    if (!passes)
        keyAscii = 0;
    return keyAscii;
}

} // namespace

void frm_PriCheck::wireKeys()
{
    wireLimits();
    wireSteps();
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        if (qobject_cast<QPushButton*>(button) == nullptr)
            button->installEventFilter(this);
    for (QComboBox* choice : {m_ui->cmbStart, m_ui->cmbBarPich})
        choice->installEventFilter(this);
}

void frm_PriCheck::wireLimits()
{
    Ui::frm_PriCheck& ui = *m_ui;
    const auto limit = [this](std::initializer_list<KeyField*> fields, KeyFilter filter, int length) {
        for (KeyField* field : fields)
            limitKeys(*field, filter, length, [this, field] { enterFrom(field); });
    };
    limit({ui.txtLine_0, ui.txtLine_1}, NumKeyCheck, rowDigits);
    limit({ui.txtPage_0, ui.txtPage_1}, NumKeyCheck, pageDigits);
    limit({ui.txtPrtNum}, NumKeyCheck, labelDigits);
    limit({ui.txtOnePageNum_0, ui.txtOnePageNum_1}, NumKeyCheck, countDigits);
    limit({ui.txtXYpoint_0, ui.txtXYpoint_1, ui.txtBarHeight, ui.txtWHPich_0, ui.txtWHPich_1,
           ui.txtNameXYpoint_0, ui.txtNameXYpoint_1, ui.txtCodeXYpoint_0, ui.txtCodeXYpoint_1,
           ui.txtKinouXYpoint_0, ui.txtKinouXYpoint_1, ui.txtKinouXYpoint_2, ui.txtKinouXYpoint_3},
          measureKeyCheck, measureLength);
    // A paste passes no key filter, and each label of a page is an item of the list.
    static const QRegularExpression digits(u"[0-9]*"_s);
    for (KeyField* field : m_txtOnePageNum) {
        field->setMaxLength(countDigits);
        field->setValidator(new QRegularExpressionValidator(digits, field));
    }
}

void frm_PriCheck::wireSteps()
{
    Ui::frm_PriCheck& ui = *m_ui;
    m_steps = {
        {ui.optPrint_0, {ui.txtPage_0}},
        {ui.optPrint_1, {ui.txtLine_0}},
        {ui.txtLine_0, {ui.txtLine_1}},
        {ui.txtLine_1, {ui.txtPage_0}},
        {ui.txtPage_0, {ui.txtPage_1}},
        {ui.txtPrtNum, {ui.cmbStart, ui.txtXYpoint_1}},
        {ui.cmbStart, {ui.txtXYpoint_1}},
        {ui.txtXYpoint_1, {ui.txtXYpoint_0}},
        {ui.txtXYpoint_0, {ui.txtOnePageNum_0, ui.txtBarHeight}},
        {ui.txtOnePageNum_0, {ui.txtBarHeight}},
        {ui.txtBarHeight, {ui.txtWHPich_1, ui.cmbBarPich}},
        {ui.txtWHPich_1, {ui.cmbBarPich}},
        {ui.cmbBarPich, {ui.txtOnePageNum_1, ui.txtWHPich_0, ui.chkName}},
        {ui.txtOnePageNum_1, {ui.txtWHPich_0, ui.chkName}},
        {ui.txtWHPich_0, {ui.chkName}},
        {ui.chkName, {ui.txtNameXYpoint_0, ui.chkCode}},
        {ui.txtNameXYpoint_0, {ui.txtNameXYpoint_1}},
        {ui.txtNameXYpoint_1, {ui.chkCode}},
        {ui.chkCode, {ui.txtCodeXYpoint_0, ui.chkKinou_0, ui.CmdOK}},
        {ui.txtCodeXYpoint_0, {ui.txtCodeXYpoint_1}},
        {ui.txtCodeXYpoint_1, {ui.chkKinou_0, ui.CmdOK}},
        {ui.chkKinou_0, {ui.txtKinouXYpoint_0, ui.chkKinou_1}},
        {ui.txtKinouXYpoint_0, {ui.txtKinouXYpoint_1}},
        {ui.txtKinouXYpoint_1, {ui.chkKinou_1}},
        {ui.chkKinou_1, {ui.txtKinouXYpoint_2, ui.CmdOK}},
        {ui.txtKinouXYpoint_2, {ui.txtKinouXYpoint_3}},
        {ui.txtKinouXYpoint_3, {ui.CmdOK}},
    };
    for (QRadioButton* sheet : m_optYousi)
        m_steps.push_back({sheet, {ui.txtPrtNum, ui.cmbStart, ui.txtXYpoint_1}});
}

void frm_PriCheck::enterFrom(QWidget* widget)
{
    const auto goTo = [](const std::vector<QWidget*>& places) {
        const auto open = std::find_if(places.begin(), places.end(), [](const QWidget* place) {
            return place != nullptr && place->isEnabled() && place->isVisible();
        });
        if (open != places.end())
            (*open)->setFocus();
    };
    QRadioButton* const sheet = m_optYousi.at(static_cast<std::size_t>(m_sheet));
    if (widget == m_ui->txtPage_1)
        return goTo({positionButton(), sheet});
    if (widget->parentWidget() == picture())
        return goTo({sheet});
    const auto step =
        std::find_if(m_steps.begin(), m_steps.end(), [&](const Step& each) { return each.from == widget; });
    if (step != m_steps.end())
        goTo(step->to);
}

bool frm_PriCheck::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !isEnter(*static_cast<QKeyEvent*>(event)))
        return QDialog::eventFilter(object, event);
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat())
        enterFrom(static_cast<QWidget*>(object));
    return true;
}

} // namespace suisui
