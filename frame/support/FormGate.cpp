#include "frame/support/FormGate.h"

#include <utility>

#include <QAbstractButton>
#include <QApplication>

#include "platform/widgets/EnterKey.h"

namespace suisui {

FormGate::FormGate(QWidget* form) : m_form(form)
{
    qApp->installEventFilter(this);
}

FormGate::~FormGate() = default;

void FormGate::setEnabled(bool enabled)
{
    m_enabled = enabled;
    if (enabled)
        schedule();
}

bool FormGate::eventFilter(QObject* object, QEvent* event)
{
    if (!object->isWidgetType() || static_cast<QWidget*>(object)->window() != m_form)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return filterKey(static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:
        if (m_enabled && m_held.empty())
            return false;
        event->accept(); // a key to be held, not a shortcut
        return true;
    case QEvent::Close:
        if (m_enabled || !event->spontaneous())
            return false;
        event->ignore();
        return true;
    case QEvent::WindowUnblocked:
        schedule();
        return false;
    default:
        return !m_enabled && filterPointer(object, event);
    }
}

bool FormGate::filterKey(QKeyEvent* event)
{
    if (event == m_delivering || (m_enabled && m_held.empty()))
        return false;
    if (m_held.size() < mostHeldKeys && !leansOnEnter(*event))
        m_held.emplace_back(event->clone());
    event->accept();
    return true;
}

bool FormGate::filterPointer(QObject* object, QEvent* event) const
{
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
        // The press came before the window was disabled: let go without a click.
        if (auto* button = qobject_cast<QAbstractButton*>(object))
            button->setDown(false);
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

/// Somebody leaning on Enter must not fill the queue with it: of its repeats one is held. Repeats of other
/// keys count, because a reader's "00" may arrive as one key and its repeat.
bool FormGate::leansOnEnter(const QKeyEvent& event) const
{
    const auto repeatedEnter = [](const QKeyEvent& key) { return key.isAutoRepeat() && isEnter(key); };
    return repeatedEnter(event) && !m_held.empty() && repeatedEnter(*m_held.back())
           && (m_held.size() < 2 || repeatedEnter(*m_held[m_held.size() - 2]));
}

/// Delivery is posted, so that no key is worked inside the handler that enables the window.
void FormGate::schedule()
{
    if (m_scheduled || m_held.empty())
        return;
    m_scheduled = true;
    QMetaObject::invokeMethod(
        this, [this] { deliverNext(); }, Qt::QueuedConnection);
}

void FormGate::deliverNext()
{
    m_scheduled = false;
    // A box over the window takes its own keys; held ones wait until it is gone.
    if (!m_enabled || m_held.empty() || QApplication::activeModalWidget() != nullptr)
        return;
    const std::unique_ptr<QKeyEvent> key = std::move(m_held.front());
    m_held.pop_front();
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr || target->window() != m_form)
        target = m_form->focusWidget() != nullptr ? m_form->focusWidget() : m_form;
    const QEvent* outer = std::exchange(m_delivering, key.get());
    QCoreApplication::sendEvent(target, key.get());
    m_delivering = outer;
    schedule();
}

} // namespace suisui
