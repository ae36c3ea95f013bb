// A desktop around the program.
#include "desktop/program.h"

#include <QApplication>
#include <cstdio>

#include "desktop/endings.h"
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

namespace verlink::desktop {

namespace {

/// Without a display Qt would abort the process.
bool haveDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

/// The signal that ended it; 0 for the user's wish.
int runScreens(const std::string& command_line) {
    QtDesktop desktop;
    platform::Use_Desktop(&desktop);
    Install_Reporter(Report_Error);
    Register_Screens();
    const Endings endings(desktop);
    Sub_Main(command_line);
    // Where nobody quitted, the session has taken the screens away.
    Leave("the end of the session");
    desktop.discardForms();
    platform::Screens::Discard();
    return endings.signal();
}

}  // namespace

int runProgram(int argc, char** argv) {
    if (!haveDisplay()) {
        std::fputs(
            "verlink: there is no display to open windows on (DISPLAY and WAYLAND_DISPLAY are not set).\n"
            "Try verlink-batch, which works without one.\n",
            stderr);
        return 1;
    }
    returnLargeBlocks();
    platform::Let_Writes_Fail(true);
    const std::string command_line = argc > 1 ? argv[1] : "";

    int signal = 0;
    {
        QApplication app(argc, argv);
        QApplication::setApplicationName(QStringLiteral("verlink"));
        QApplication::setDesktopFileName(QStringLiteral("verlink"));
        QApplication::setWindowIcon(programIcon());
        QApplication::setQuitOnLastWindowClosed(false);
        useQuietStyle();
        watchSession(app);
        watchDisplay();
        signal = runScreens(command_line);
    }
    if (signal != 0) dieOf(signal);
    return 0;
}

}  // namespace verlink::desktop
