// The desktop in windows for the life of one benchmark, on the platform that needs no display.
#pragma once

#include <QApplication>
#include <QImage>

#include "animation/engine.h"
#include "bench/program.h"
#include "core/linkage_model.h"
#include "desktop/form.h"
#include "desktop/qt_desktop.h"
#include "screens/frm_animate.h"

namespace verlink::bench {

/// Starts Qt once, for the life of the process.
void Start_Qt();

class Windows {
    platform::Desktop& before_ = (Start_Qt(), Start_Program(), platform::The_Desktop());

   public:
    Windows() { platform::Use_Desktop(&qt); }
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
};

/// The floor of a drawing: as many pixels filled plainly.
template <int width, int height>
void Fill() {
    static QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
}

inline void Play_Once(frm_Animate& screen) {
    Model.RedrawFlag = "N";
    Animate(screen);
}

}  // namespace verlink::bench
