// The entry of verlink: a desktop around the program.
#include <QApplication>
#include <cstdio>

#include "desktop/icons.h"
#include "desktop/memory.h"
#include "desktop/qt_desktop.h"
#include "desktop/quiet_style.h"
#include "desktop/session.h"
#include "platform/guard.h"
#include "platform/system.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/startup.h"

namespace {

/// Without a display Qt would abort the process.
bool haveDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    verlink::desktop::returnLargeBlocks();
    if (!haveDisplay()) {
        std::fputs(
            "verlink: there is no display to open windows on (DISPLAY and WAYLAND_DISPLAY are not set).\n"
            "Try verlink-batch, which works without one.\n",
            stderr);
        return 1;
    }
    verlink::platform::Let_Writes_Fail(true);
    const std::string command_line = argc > 1 ? argv[1] : "";

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("verlink"));
    QApplication::setDesktopFileName(QStringLiteral("verlink"));
    QApplication::setWindowIcon(verlink::desktop::programIcon());
    QApplication::setQuitOnLastWindowClosed(false);
    verlink::desktop::useQuietStyle();
    verlink::desktop::watchSession(app);

    verlink::desktop::QtDesktop desktop;
    verlink::platform::Use_Desktop(&desktop);
    verlink::Install_Reporter(verlink::Report_Error);
    verlink::Register_Screens();
    verlink::Sub_Main(command_line);
    desktop.discardForms();
    verlink::platform::Screens::Discard();
    return 0;
}
