#include "platform/widgets/DirectField.h"

namespace suisui {

DirectField::DirectField(QWidget* parent) : QLineEdit(parent)
{
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setInputMethodHints(Qt::ImhLatinOnly | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
}

QVariant DirectField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return query == Qt::ImEnabled ? QVariant(false) : QLineEdit::inputMethodQuery(query);
}

} // namespace suisui
