#include "platform/widgets/DirectField.h"

#include <QPaintEvent>
#include <QPainter>

namespace suisui {

DirectField::DirectField(QWidget* parent) : QLineEdit(parent)
{
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setInputMethodHints(Qt::ImhLatinOnly | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
}

QVariant DirectField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return query == Qt::ImEnabled ? QVariant(false) : QLineEdit::inputMethodQuery(query);
}

void DirectField::paintEvent(QPaintEvent* event)
{
    const QWidget& under = parentWidget() != nullptr ? *parentWidget() : static_cast<QWidget&>(*this);
    QPainter(this).fillRect(event->rect(), under.palette().color(QPalette::Window));
    QLineEdit::paintEvent(event);
}

} // namespace suisui
