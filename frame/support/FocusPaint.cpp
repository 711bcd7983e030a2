#include "frame/support/FocusPaint.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>

#include "platform/widgets/FocusColor.h"

namespace suisui {

namespace {

bool isField(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) != nullptr;
}

bool isMarked(const QWidget* widget)
{
    return isField(widget) || qobject_cast<const QAbstractButton*>(widget) != nullptr
           || qobject_cast<const QComboBox*>(widget) != nullptr;
}

[[nodiscard]] bool isColored(const QWidget& widget, const QColor& color)
{
    const QPalette& palette = widget.palette();
    return (!isField(&widget) || palette.color(QPalette::Base) == color)
           && palette.color(QPalette::Button) == color && palette.color(QPalette::Window) == color;
}

/// Fields are painted by their base, buttons and combo boxes by their face; radio buttons and check
/// boxes have no face and take the colour behind them.
///
/// A palette that is set is a new one even when its colours are the old, and the style keeps a picture of a
/// combo box for each palette. So none is set without need, and a control that is back to what it was born
/// with has no palette of its own.
void paint(QWidget* widget, const QColor& color)
{
    if (isColored(*widget, color))
        return;
    widget->setPalette(QPalette());
    if (!isColored(*widget, color)) {
        QPalette palette = widget->palette();
        if (isField(widget))
            palette.setColor(QPalette::Base, color);
        palette.setColor(QPalette::Button, color);
        palette.setColor(QPalette::Window, color);
        widget->setPalette(palette);
    }
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

void FocusPaint::setNormal(QWidget* widget) const
{
    paint(widget, isField(widget) ? QColor(Qt::white) : m_base);
}

bool FocusPaint::eventFilter(QObject* object, QEvent* event)
{
    auto* widget = static_cast<QWidget*>(object);
    switch (event->type()) {
    case QEvent::FocusIn:
        enter(widget, static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::FocusOut:
        // A menu or list that opens out of the control leaves it the current one.
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason && !m_exempt.contains(object))
            setNormal(widget);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        followFirstClick(object, *static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void FocusPaint::enter(QWidget* widget, Qt::FocusReason reason)
{
    paint(widget, focusColor);
    auto* field = qobject_cast<QLineEdit*>(widget);
    // Back from its own menu, a field keeps what the operator had selected for it.
    if (field == nullptr || m_keepSelection.contains(widget) || reason == Qt::PopupFocusReason)
        return;
    field->selectAll(); // at once: a reader's first character may be next
    m_clicked = reason == Qt::MouseFocusReason ? field : nullptr;
    m_clickedAt.reset();
}

/// The press that brings the focus drops the selection again. The whole text is selected anew at the release,
/// unless the mouse has been drawn over a part of it.
void FocusPaint::followFirstClick(QObject* object, const QMouseEvent& event)
{
    if (object != m_clicked)
        return;
    if (event.type() == QEvent::MouseButtonPress && !m_clickedAt) {
        m_clickedAt = event.position().toPoint();
        return;
    }
    m_clicked = nullptr;
    if (event.type() == QEvent::MouseButtonPress)
        return; // the release of the first went elsewhere
    const QPoint at = event.position().toPoint();
    const QPoint way = m_clickedAt ? at - *m_clickedAt : QPoint();
    if (way.manhattanLength() >= QApplication::startDragDistance())
        return;
    auto* field = static_cast<QLineEdit*>(object);
    QTimer::singleShot(0, field, [field] {
        if (field->hasFocus())
            field->selectAll();
    });
}

} // namespace suisui
