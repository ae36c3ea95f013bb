// The sizes and places of screens, by the display and the settings.
#include "core/window_sizes.h"

#include <algorithm>

#include "core/linkage_model.h"
#include "platform/desktop_services.h"

namespace verlink {

using platform::Screen;
using platform::The_Desktop;

namespace {

constexpr char kHome[] = "frm_HomeScreen";

void Center(Screen& screen) {
    const platform::DisplaySize display = The_Desktop().Display();
    screen.Left() = Long((display.width - screen.Width()) / 2.0);
    screen.Top() = std::max<long>(0, Long((display.height - screen.Height()) / 2.0));
}

}  // namespace

void Centerform(Screen& screen) {
    screen.Left() = Long((The_Desktop().Display().width - screen.Width()) / 2.0);
    screen.Top() = std::max<long>(0, Model.HomeTop);
}

void Show_Centered(const char* name) {
    Screen& screen = platform::Screens::Get(name);
    Centerform(screen);
    screen.ShowModal();
}

void Arrive_At(const char* name) {
    if (const Screen* home = platform::Screens::Find(kHome)) Screen::Hide_Above(*home);
    Show_Centered(name);
}

void Maximize_Screen(Screen& screen, long width, long height) {
    const platform::DisplaySize display = The_Desktop().Display();
    const double ratio = Divide(static_cast<double>(width), static_cast<double>(height));
    if (Model.AspectActive) Model.AspectCorrection = 1.6 / Model.AspectRatio;
    double NewWidth = Model.ScreenWidth;
    double NewHeight = NewWidth / ratio * Model.AspectCorrection;
    if (screen.Name() == kHome) {
        NewHeight = static_cast<double>(display.height - kDisplayMargin);
        NewWidth = NewHeight * ratio / Model.AspectCorrection;
        if (NewWidth > static_cast<double>(display.width)) {
            NewWidth = static_cast<double>(display.width);
            NewHeight = NewWidth / ratio * Model.AspectCorrection;
        }
    }
    Model.ScreenWidth = NewWidth;
    Model.ScreenHeight = NewHeight;
    screen.Width() = Model.ScreenWidth;
    screen.Height() = Model.ScreenHeight;
    Center(screen);
}

void Reset_Screen(Screen& screen, long width, long height) {
    screen.Width() = width;
    screen.Height() = height;
    Centerform(screen);
}

void Fit_Screen(Screen& screen, long width, long height) {
    if (Model.FullScreen)
        Maximize_Screen(screen, width, height);
    else
        Reset_Screen(screen, width, height);
}

bool Display_Is_High_Enough() { return The_Desktop().Display().height - kDisplayMargin >= kWorkHeight; }

void Fit_Display(Screen& screen) {
    screen.Width() = kWorkWidth;
    screen.Height() = kWorkHeight;
    if (!Display_Is_High_Enough()) {
        const long height = The_Desktop().Display().height - kDisplayMargin;
        screen.Height() = height;
        screen.Width() = Long(static_cast<double>(height) * kWorkWidth / kWorkHeight);
    }
    Centerform(screen);
}

}  // namespace verlink
