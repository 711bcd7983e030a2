#include "frame/support/FormGate.h"

#include <utility>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include "platform/widgets/EnterKey.h"

namespace suisui {

namespace {

/// A scanned value among the held keys.
class ScanEvent final : public QEvent
{
public:
    explicit ScanEvent(QString scanned) : QEvent(kind()), value(std::move(scanned)) {}
    static Type kind()
    {
        static const auto number = static_cast<Type>(registerEventType());
        return number;
    }
    const QString value;
};

} // namespace

FormGate::FormGate(QWidget* form) : m_form(form)
{
    qApp->installEventFilter(this);
}

FormGate::~FormGate() = default;

void FormGate::setEnabled(bool enabled)
{
    m_enabled = enabled;
    if (!enabled)
        return;
    schedule();
    if (m_release)
        QMetaObject::invokeMethod(
            this, [this] { deliverRelease(); }, Qt::QueuedConnection);
}

bool FormGate::eventFilter(QObject* object, QEvent* event)
{
    // A press moves the focus before any widget sees it, so it is stopped at the window itself.
    if (object->isWindowType())
        return !m_enabled && object == m_form->windowHandle()
               && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick);
    if (!object->isWidgetType() || static_cast<QWidget*>(object)->window() != m_form)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
        return filterKey(event);
    case QEvent::ShortcutOverride:
        if (m_enabled && m_held.empty() && m_scan.isEmpty())
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

bool FormGate::filterKey(QEvent* event)
{
    if (event == m_delivering || (m_enabled && m_held.empty() && m_scan.isEmpty()))
        return false;
    if (m_held.size() < mostHeldKeys && !leansOnEnter(*event))
        m_held.emplace_back(event->clone());
    event->accept();
    return true;
}

/// The press may have come before the window was disabled. A button is released without a click; a scroll bar
/// must see it, else it goes on scrolling.
bool FormGate::filterRelease(QObject* object, const QEvent& event)
{
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button != nullptr && !button->isDown()) {
        m_released = button;
        m_release.reset(event.clone());
    } else if (button != nullptr) {
        button->setDown(false);
    }
    return qobject_cast<QAbstractSlider*>(object) == nullptr;
}

/// A button that no press has reached makes nothing of it.
void FormGate::deliverRelease()
{
    if (!m_enabled)
        return; // when it is enabled again
    const std::unique_ptr<QEvent> release = std::move(m_release);
    if (release && m_released && QApplication::activeModalWidget() == nullptr)
        QCoreApplication::sendEvent(m_released, release.get());
}

bool FormGate::filterPointer(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
        return filterRelease(object, *event);
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
        return true;
    default:
        return false;
    }
}

/// Somebody leaning on Enter must not fill the queue with it: of its repeats one is held. Repeats of other
/// keys count, because a reader's "00" may arrive as one key and its repeat.
bool FormGate::leansOnEnter(const QEvent& event) const
{
    const auto repeatedEnter = [](const QEvent& held) {
        const auto* key = dynamic_cast<const QKeyEvent*>(&held);
        return key != nullptr && key->isAutoRepeat() && isEnter(*key);
    };
    return repeatedEnter(event) && !m_held.empty() && repeatedEnter(*m_held.back())
           && (m_held.size() < 2 || repeatedEnter(*m_held[m_held.size() - 2]));
}

void FormGate::scanned(const QString& value)
{
    if (m_enabled && m_held.empty() && m_scan.isEmpty())
        m_scan = value;
    else if (m_held.size() < mostHeldKeys)
        m_held.push_back(std::make_unique<ScanEvent>(value));
}

QString FormGate::takeScan()
{
    QString value = std::exchange(m_scan, QString());
    if (!value.isEmpty())
        schedule();
    return value;
}

/// Delivery is posted, so that no key is processed inside the handler that enables the window.
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
    const QWidget* modal = QApplication::activeModalWidget();
    if (!m_enabled || m_held.empty() || hasScan() || (modal != nullptr && modal != m_form))
        return;
    const std::unique_ptr<QEvent> key = std::move(m_held.front());
    m_held.pop_front();
    if (key->type() == ScanEvent::kind())
        m_scan = static_cast<const ScanEvent&>(*key).value;
    else
        deliver(*key);
    schedule();
}

void FormGate::deliver(QEvent& event)
{
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr || target->window() != m_form)
        target = m_form->focusWidget() != nullptr ? m_form->focusWidget() : m_form;
    if (event.type() == QEvent::InputMethod && !target->testAttribute(Qt::WA_InputMethodEnabled))
        return; // a code field takes no composed text
    const QScopedValueRollback<const QEvent*> passing(m_delivering, &event);
    QCoreApplication::sendEvent(target, &event);
}

} // namespace suisui
