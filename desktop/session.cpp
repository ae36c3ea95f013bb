// How the session's manager is answered.
#include "desktop/session.h"

#include <QGuiApplication>
#include <QSessionManager>

#include "files/model_file.h"
#include "platform/guard.h"
#include "platform/screen.h"

namespace verlink::desktop {

void watchSession(QGuiApplication& application) {
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application, [](QSessionManager& manager) {
        platform::Screen* home = platform::Screens::Find("frm_HomeScreen");
        // Where nobody may be asked, the session does not wait.
        if (!home || !manager.allowsInteraction()) return;
        bool may_end = true;
        Guarded("frm_Homescreen.Session", [&] { may_end = May_End_Session(*home); });
        manager.release();
        if (!may_end) manager.cancel();
    });
}

}  // namespace verlink::desktop
