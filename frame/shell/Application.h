// The Qt application of the program. What no handler has foreseen is caught here, at the door to Qt's event
// delivery, and ends the run in one place.
#pragma once

#include <functional>

#include <QApplication>

namespace suisui {

class Application final : public QApplication
{
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    /// Called with a description of the error; does not return.
    void setErrorEnd(std::function<void(const QString&)> end) { m_end = std::move(end); }

    /// The words for \a error in the report, for the shop's people. What a programmer needs besides goes to
    /// the journal of the desktop.
    [[nodiscard]] static QString describe(const std::exception& error);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    std::function<void(const QString&)> m_end;
};

} // namespace suisui
