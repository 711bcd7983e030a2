#include "platform/core/Shell.h"

#include <QProcess>

#include "platform/core/RunTimeError.h"

namespace suisui {

void Shell(const QString& program, const QString& folder)
{
    if (!QProcess::startDetached(program, {}, folder))
        throw RunTimeError(RunTimeError::FileNotFound, program.toStdString());
}

} // namespace suisui
