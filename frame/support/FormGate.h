// The Enabled property of a window as the rules mean it. While it is off the window takes no input, but
// nothing turns grey and the focus stays where it is, which a widget's own enabled property would not do.
//
// Keys are not lost: they are held in order and processed, one at a time and each by the widget that has the
// focus then, when the window is enabled again. A bar-code reader that types at full speed needs just that,
// for every key of a code field disables the window for a moment. Text of an input method is held among them.
#pragma once

#include <deque>
#include <memory>

#include <QObject>
#include <QPointer>
#include <QString>

class QAbstractButton;
class QEvent;
class QWidget;

namespace suisui {

class FormGate : public QObject
{
public:
    /// Keys beyond this many are dropped; nobody types so far ahead.
    static constexpr std::size_t mostHeldKeys = 4096;

    explicit FormGate(QWidget* form);
    ~FormGate() override;

    void setEnabled(bool enabled);
    [[nodiscard]] bool enabled() const { return m_enabled; }
    [[nodiscard]] std::size_t heldKeys() const { return m_held.size(); }

    /// A value that a typing reader has scanned takes its turn after the keys that are held.
    void scanned(const QString& value);
    /// The scanned value whose turn has come; the keys after it wait until it is taken. Empty: there is
    /// none.
    [[nodiscard]] QString takeScan();
    [[nodiscard]] bool hasScan() const { return !m_scan.isEmpty(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] bool filterKey(QEvent* event);
    [[nodiscard]] bool filterPointer(QObject* object, QEvent* event);
    [[nodiscard]] bool filterRelease(QObject* object, const QEvent& event);
    [[nodiscard]] bool leansOnEnter(const QEvent& event) const;
    void schedule();
    void deliverNext();
    void deliver(QEvent& event);
    void deliverRelease();

    QWidget* m_form;
    std::deque<std::unique_ptr<QEvent>> m_held;
    QString m_scan;
    QPointer<QAbstractButton> m_released; ///< released before its press has arrived
    std::unique_ptr<QEvent> m_release;
    const QEvent* m_delivering = nullptr;
    bool m_enabled = true;
    bool m_scheduled = false;
};

} // namespace suisui
