#include "frame/support/FocusPaint.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

namespace suisui {

namespace {

const QColor focusColor(0, 255, 255);

bool isField(const QWidget* widget) { return qobject_cast<const QLineEdit*>(widget) != nullptr; }

bool isMarked(const QWidget* widget)
{
    return isField(widget) || qobject_cast<const QAbstractButton*>(widget) != nullptr
           || qobject_cast<const QComboBox*>(widget) != nullptr;
}

/// Fields are painted by their base, buttons and choices by their face; option buttons and check boxes have no
/// face and take the colour behind them.
void paint(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Base, isField(widget) ? color : palette.color(QPalette::Base));
    palette.setColor(QPalette::Button, color);
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    if (widget->inherits("QRadioButton") || widget->inherits("QCheckBox"))
        widget->setAutoFillBackground(color == focusColor);
}

} // namespace

FocusPaint::FocusPaint(QWidget* form, const QColor& base) : QObject(form), m_base(base)
{
    for (QWidget* widget : form->findChildren<QWidget*>())
        if (isMarked(widget) && widget->focusPolicy() != Qt::NoFocus)
            widget->installEventFilter(this);
}

void FocusPaint::setNormal(QWidget* widget) const { paint(widget, isField(widget) ? QColor(Qt::white) : m_base); }

bool FocusPaint::eventFilter(QObject* object, QEvent* event)
{
    auto* widget = static_cast<QWidget*>(object);
    if (event->type() == QEvent::FocusIn) {
        paint(widget, focusColor);
        auto* field = qobject_cast<QLineEdit*>(widget);
        if (field == nullptr || m_keepSelection.contains(object))
            return false;
        field->selectAll(); // at once: a reader's first character may be next
        if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
            QTimer::singleShot(0, field, [field] { // the press itself drops the selection again
                if (field->hasFocus())
                    field->selectAll();
            });
    } else if (event->type() == QEvent::FocusOut && !m_exempt.contains(object)) {
        setNormal(widget);
    }
    return QObject::eventFilter(object, event);
}

} // namespace suisui
