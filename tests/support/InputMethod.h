// What an input method asks a field, and what it sends to it.
#pragma once

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QWidget>

namespace suisui::test {

/// Whether the input method is on in \a widget, as the system finds it out.
[[nodiscard]] inline bool takesInputMethod(QWidget& widget)
{
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(&widget, &query);
    return query.value(Qt::ImEnabled).toBool();
}

/// A conversion under way shows \a text; an empty one ends it.
inline void showPreedit(QWidget& widget, const QString& text)
{
    QInputMethodEvent event(text, {});
    QCoreApplication::sendEvent(&widget, &event);
}

/// The end of a conversion: \a text is taken.
inline void commitText(QWidget& widget, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace suisui::test
