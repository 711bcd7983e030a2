#include "platform/core/AwayFromLoop.h"

#include <atomic>
#include <exception>
#include <system_error>
#include <thread>

#include <QCoreApplication>
#include <QThread>

namespace suisui {

void awayFromLoop(const std::function<void()>& work)
{
    std::atomic<bool> done = false;
    std::exception_ptr error;
    std::thread helper;
    QObject loop; // whatever is posted to it ends a sleep of the loop
    try {
        helper = std::thread([&] {
            try {
                work();
            } catch (...) {
                error = std::current_exception();
            }
            done = true;
            QMetaObject::invokeMethod(
                &loop, [] {}, Qt::QueuedConnection);
        });
    } catch (const std::system_error&) {
        work(); // no thread could be started: the windows wait, but the work is done
        return;
    }
    while (!done)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    helper.join();
    if (error)
        std::rethrow_exception(error);
}

void inLoop(const std::function<void()>& work)
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || QThread::currentThread() == application->thread())
        work();
    else
        QMetaObject::invokeMethod(QCoreApplication::instance(), work, Qt::BlockingQueuedConnection);
}

} // namespace suisui
