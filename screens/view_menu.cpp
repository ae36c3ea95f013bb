// The settings hold the choices; the marks follow them.
#include "screens/view_menu.h"

#include <utility>

#include "platform/overlaid_picture.h"
#include "platform/settings.h"

namespace verlink {

namespace {

constexpr char kOn[] = "on";

}  // namespace

View_Choice::View_Choice(platform::MenuEntry& parent, const std::string& name, const std::string& caption,
                         const std::string& setting, const std::string& tip)
    : MenuEntry(parent, name, caption), setting_("view." + setting) {
    Tip = tip;
    OnClick = [this] { Choose(!On()); };
    Follow();
}

bool View_Choice::On() const { return platform::The_Settings().Text(setting_) == kOn; }

void View_Choice::Choose(bool on) {
    platform::Settings& settings = platform::The_Settings();
    settings.Put(setting_, on ? kOn : "");
    settings.Save();
    for (platform::Screen* screen : platform::Screens::Made())
        if (auto* same = screen->FindAs<View_Choice>(Name())) same->Follow();
    Follow();
    if (OnChoice) OnChoice();
}

View_Menu::View_Menu(platform::Screen& owner, std::function<void()> redraw)
    : mnu_View(owner, "mnu_View", "View"),
      mnu_ViewPoles(mnu_View, "mnu_ViewPoles", "Poles I13 and I24", "poles",
                    "Where the coupler turns about the ground, and the crank about the rocker, with the lines that "
                    "meet there"),
      mnu_ViewVelocities(mnu_View, "mnu_ViewVelocities", "Velocities", "velocities",
                         "Arrows of the velocities of A, B and P, with their scale"),
      mnu_ViewAccelerations(mnu_View, "mnu_ViewAccelerations", "Accelerations", "accelerations",
                            "Arrows of the accelerations of A, B and P, with their scale"),
      mnu_ViewPinForces(
          mnu_View, "mnu_ViewPinForces", "Pin Forces", "pinforces",
          "Arrows of the forces at the pins, with their scale, once forces are solved: on the crank at O2 and A, on "
          "the coupler at B, on the rocker at O4"),
      mnu_ViewShakingForce(mnu_View, "mnu_ViewShakingForce", "Shaking Force", "shakingforce",
                           "An arrow of the force on the ground, at O2, with its scale, once forces are solved"),
      mnu_ViewCurvature(mnu_View, "mnu_ViewCurvature", "Curvature at P", "curvature",
                        "The circle that the coupler curve follows at P, with its centre and its radius"),
      mnu_ViewGrid(mnu_View, "mnu_ViewGrid", "Grid", "grid", "Lines of round coordinates, with their values"),
      mnu_ViewNames(mnu_View, "mnu_ViewNames", "Names of Joints", "names", "The letters of joints and pivots"),
      mnu_ViewGhosts(mnu_View, "mnu_ViewGhosts", "Ghosts at Both Ends", "ghosts",
                     "The linkage at the first and the last position of the run that close, in grey"),
      owner_(owner),
      redraw_(std::move(redraw)),
      ear_(owner, [this](const Shown& shown) { Show(shown); }) {
    mnu_View.OnOpen = [this] {
        for (platform::MenuEntry* entry : mnu_View.Children())
            if (auto* choice = dynamic_cast<View_Choice*>(entry)) choice->Follow();
    };
    for (View_Choice* choice :
         {&mnu_ViewPoles, &mnu_ViewVelocities, &mnu_ViewAccelerations, &mnu_ViewPinForces, &mnu_ViewShakingForce,
          &mnu_ViewCurvature, &mnu_ViewGrid, &mnu_ViewNames, &mnu_ViewGhosts})
        choice->OnChoice = [this] { Choice_Made(); };
}

View_Wishes View_Menu::Wishes() const {
    return {.poles = mnu_ViewPoles.On(),
            .velocities = mnu_ViewVelocities.On(),
            .accelerations = mnu_ViewAccelerations.On(),
            .pin_forces = mnu_ViewPinForces.On(),
            .shaking_force = mnu_ViewShakingForce.On(),
            .curvature = mnu_ViewCurvature.On(),
            .grid = mnu_ViewGrid.On(),
            .names = mnu_ViewNames.On(),
            .ghosts = mnu_ViewGhosts.On()};
}

platform::Overlay View_Menu::Found_Anew() const {
    const View_Wishes wishes = Wishes();
    if (ear_.Step() == kNoStep || !wishes.Any() || !Model.RunStands) return {};
    return Overlay_At(Model, ear_.Step(), wishes, Find_Scales(Model, wishes));
}

void View_Menu::Show(const Shown& shown) {
    auto* picture = owner_.FindAs<platform::Overlaid_Picture>("Picture1");
    if (!picture) return;
    if (!shown.playing) {
        scales_.reset();
        picture->Over = Found_Anew();
        return;
    }
    const View_Wishes wishes = Wishes();
    if (!wishes.Any()) return;
    if (!scales_) scales_ = Find_Scales(Model, wishes);
    picture->Over = Overlay_At(Model, shown.step, wishes, *scales_);
}

void View_Menu::Choice_Made() {
    if (redraw_) return redraw_();
    scales_.reset();
    if (auto* picture = owner_.FindAs<platform::Overlaid_Picture>("Picture1")) picture->Over = Found_Anew();
}

}  // namespace verlink
