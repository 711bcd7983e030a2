#include <cstdlib>

#include "frame/shell/Application.h"
#include "frame/shell/Main.h"
#include "platform/core/OwnOnly.h"
#include "platform/widgets/FontsAhead.h"
#include "store/AppEnv.h"

int main(int argc, char** argv)
{
    suisui::beginProgram();
    const suisui::FontsAhead configuration(suisui::FontsAhead::readConfiguration);
    suisui::Application application(argc, argv);
    const suisui::FontsAhead families(suisui::FontsAhead::readFamilies);
    suisui::SystemClock clock;
    suisui::ScreenMsgBox msgBox;
    suisui::Main_Module run(suisui::AppEnv::programFolder(QCoreApplication::applicationFilePath()), clock,
                            msgBox);
    application.setErrorEnd([&run](const QString& what) { run.endOnError(what); });
    try {
        const int status = run.Main();
        // All that the run had open is closed. Qt's Wayland plugin may wait for ever for a thread of its own
        // when it is taken down on a busy machine (seen with Qt 6.4), so it is not.
        if (QGuiApplication::platformName().startsWith(u"wayland"))
            std::_Exit(status);
        return status;
    } catch (const std::exception& error) {
        qCritical("%s", error.what());
        run.endOnError(suisui::Application::describe(error));
    }
}
