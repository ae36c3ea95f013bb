// The settings hold the choices; the marks follow them.
#include "screens/view_menu.h"

#include <utility>

#include "core/results_turns.h"
#include "platform/overlaid_picture.h"
#include "platform/settings.h"
#include "screens/positions_over.h"

namespace verlink {

namespace {

constexpr char kOn[] = "on", kPositions[] = "mnu_ViewPositions";

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
        if (auto* same = screen->FindAs<View_Choice>(Name()); same && same != this) {
            same->Follow();
            if (same->OnChoiceElsewhere) same->OnChoiceElsewhere();
        }
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
        Serve(*choice);
}

void View_Menu::Serve(View_Choice& choice) {
    choice.OnChoice = [this] { Choice_Made(); };
    choice.OnChoiceElsewhere = [this] { Lay_Over_Anew(); };
}

std::vector<design::Wanted> View_Menu::Wanted() const {
    const auto* choice = owner_.FindAs<View_Choice>(kPositions);
    return choice && choice->On() ? design::Positions_Wanted(Model) : std::vector<design::Wanted>();
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
    if (ear_.Step() == kNoStep || !Model.RunStands) return {};
    const std::vector<design::Wanted> wanted = Wanted();
    if (!wishes.Any() && wanted.empty()) return {};
    platform::Overlay over = Overlay_At(Model, ear_.Step(), wishes, Find_Scales(Model, wishes));
    Lay_Over(over, Model, wanted);
    return over;
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
    const int turns = Results_Turns();
    if (std::exchange(scaled_, turns) != turns) scales_.reset();
    if (!scales_) {
        scales_ = Find_Scales(Model, wishes);
        wanted_ = Wanted();
    }
    if (!wishes.Any() && wanted_.empty()) return;
    platform::Overlay over = Overlay_At(Model, shown.step, wishes, *scales_);
    Lay_Over(over, Model, wanted_);
    picture->Over = over;
}

void View_Menu::Choice_Made() {
    if (redraw_) return redraw_();
    Lay_Over_Anew();
}

void View_Menu::Lay_Over_Anew() {
    scales_.reset();
    if (auto* picture = owner_.FindAs<platform::Overlaid_Picture>("Picture1")) picture->Over = Found_Anew();
}

Positions_Entry::Positions_Entry(View_Menu& view)
    : mnu_ViewBar9(view.mnu_View, "mnu_ViewBar9", ""),
      mnu_ViewPositions(view.mnu_View, kPositions, "Positions", "positions",
                        "The positions of the body that the linkage was found for, and which of them the run passes; "
                        "nothing for a linkage that was found for none") {
    view.Serve(mnu_ViewPositions);
}

}  // namespace verlink
