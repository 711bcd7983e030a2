#include "platform/core/AwayFromLoop.h"

#include <exception>
#include <system_error>
#include <thread>

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

namespace suisui {

void awayFromLoop(const std::function<void()>& work)
{
    QEventLoop untilDone;
    std::exception_ptr error;
    std::thread helper;
    try {
        helper = std::thread([&] {
            try {
                work();
            } catch (...) {
                error = std::current_exception();
            }
            QMetaObject::invokeMethod(&untilDone, &QEventLoop::quit, Qt::QueuedConnection);
        });
    } catch (const std::system_error&) {
        work(); // no thread to be had: the windows wait, the work is done all the same
        return;
    }
    untilDone.exec();
    helper.join(); // an application that is told to quit leaves the loop early
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
