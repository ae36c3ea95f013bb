// The desktop in windows for the life of one benchmark, on the platform that needs no display.
#pragma once

#include <QApplication>

#include "desktop/form.h"
#include "desktop/qt_desktop.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"

namespace verlink::bench {

class Windows {
   public:
    Windows() : before_(platform::The_Desktop()) { platform::Use_Desktop(&qt); }
    ~Windows() {
        qt.discardForms();
        platform::Use_Desktop(&before_);
    }
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    desktop::Form& Open(const char* screen) {
        desktop::Form& form = qt.formOf(platform::Screens::Get(screen));
        form.resize(1366, 768);
        form.show();
        QApplication::processEvents();
        return form;
    }
    desktop::QtDesktop qt;

   private:
    platform::Desktop& before_;
};

}  // namespace verlink::bench
