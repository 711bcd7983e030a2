// A modal dialog takes over the reading of the bar-code reader while it is up: its Timer1 reads one line at
// each tick and answers the dialog with it.
#pragma once

#include <algorithm>
#include <functional>

#include <QAbstractButton>
#include <QTimer>

#include "frame/support/ScannedValue.h"

namespace suisui {

class DialogScan : public QObject
{
public:
    using ReadLine = std::function<QString()>;

    /// \a ok and \a end are pressed by their function codes; key codes go to \a sendKeys.
    DialogScan(QWidget& dialog, int intervalMs, ReadLine readLine, QAbstractButton& ok, QAbstractButton& end,
               std::function<void(const QString&)> sendKeys)
        : QObject(&dialog)
    {
        connect(&m_timer1, &QTimer::timeout, this,
                [readLine = std::move(readLine), sendKeys = std::move(sendKeys), &ok, &end] {
                    dialogBarCodeChk(
                        readLine(), [&ok] { ok.click(); }, [&end] { end.click(); }, sendKeys);
                });
        m_timer1.start(intervalMs);
    }

    /// The dialog stays and reads again, whatever interval it began with.
    void start() { m_timer1.start(1); }
    /// Interval 0: the dialog reads no more.
    void stop() { m_timer1.stop(); }
    [[nodiscard]] bool reading() const { return m_timer1.isActive(); }

private:
    QTimer m_timer1;
};

/// True when the reader's lines go to \a dialog now.
[[nodiscard]] inline bool readsScans(const QWidget& dialog)
{
    const QObjectList& parts = dialog.children();
    return std::any_of(parts.begin(), parts.end(), [](const QObject* part) {
        const auto* scan = dynamic_cast<const DialogScan*>(part);
        return scan != nullptr && scan->reading();
    });
}

} // namespace suisui
