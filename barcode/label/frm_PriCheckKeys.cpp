// Keys of the label dialog: what the fields accept, and where Enter goes.
#include <algorithm>

#include <QKeyEvent>
#include <QRadioButton>
#include <QRegularExpressionValidator>

#include "barcode/label/SheetPicture.h"
#include "barcode/label/frm_PriCheck.h"
#include "frame/support/Check_Csv.h"
#include "frame/support/KeyField.h"
#include "platform/widgets/EnterKey.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

void frm_PriCheck::wireKeys()
{
    for (const LabelFieldRow& row : labelFields())
        if (auto* typed = qobject_cast<KeyField*>(m_controls.at(static_cast<std::size_t>(row.field))))
            limitKeysOf(*typed, row);
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        if (qobject_cast<QPushButton*>(button) == nullptr)
            button->installEventFilter(this);
    for (QComboBox* list : {m_ui->cmbStart, m_ui->cmbBarPich})
        list->installEventFilter(this);
}

void frm_PriCheck::limitKeysOf(KeyField& control, const LabelFieldRow& row)
{
    const KeyFilter filter = row.typing.keys == LabelKeys::digits ? NumKeyCheck : measureKeyCheck;
    limitKeys(control, filter, row.typing.length, [this, &control] { enterFrom(&control); });
    if (!row.typing.pasteToo)
        return;
    static const QRegularExpression digits(u"[0-9]*"_s);
    control.setMaxLength(row.typing.length);
    control.setValidator(new QRegularExpressionValidator(digits, &control));
}

/// The field that \a widget belongs to; none for the buttons below the picture.
std::optional<LabelField> frm_PriCheck::fieldOf(const QWidget* widget) const
{
    if (std::find(m_optYousi.begin(), m_optYousi.end(), widget) != m_optYousi.end())
        return LabelField::sheet;
    if (widget->parentWidget() == picture())
        return LabelField::position;
    const auto control = std::find(m_controls.begin(), m_controls.end(), widget);
    if (control == m_controls.end())
        return {};
    return static_cast<LabelField>(control - m_controls.begin());
}

void frm_PriCheck::enterFrom(QWidget* widget)
{
    if (const auto field = fieldOf(widget))
        if (QWidget* place = controlOf(m_setup.next(*field)))
            place->setFocus();
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
