// Says when the program is at rest: everything that it has been given is done, and it waits for its operator.
// A program that drives this one (a test, a remote hand) asks for it instead of guessing from processor time.
//
// The question is an X client message of type _SUISUITAG_AT_REST to any window of the program, with a number
// of the asker's own as its first word. It passes through the same queue as keys and clicks, so it never
// overtakes them. The answer is the same number as a property of that name at the same window (CARDINAL, 32
// bits). It comes at the first moment at which the loop has nothing more to deliver and nobody is at work,
// also when that is a loop of a box or a dialog. While nobody asks, nothing is done for it. Without an X
// server nobody can ask.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace suisui {

class AtRest final : public QObject, public QAbstractNativeEventFilter
{
public:
    /// \a atWork: something is still to be done that no event announces, such as a scan that waits for its
    /// turn. It is asked in the loop, and again whenever the loop has delivered something.
    explicit AtRest(std::function<bool()> atWork);
    ~AtRest() override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    class Display;

    void aboutToWait();
    void answer();

    std::function<bool()> m_atWork;
    std::unique_ptr<Display> m_display; ///< made for the first client message
    QMetaObject::Connection m_loop;     ///< there while a question waits for its answer
    std::uint32_t m_window = 0;
    std::uint32_t m_number = 0;
    int m_quietRounds = 0;
};

} // namespace suisui
