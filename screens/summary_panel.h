// What the screens of plots and tables show of the linkage beside their data.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// The read-outs that `Show_Run_Panel` fills in.
struct Summary_Panel {
    explicit Summary_Panel(platform::Screen& owner) : screen(owner) {}

    platform::Screen& screen;

    platform::Frame fra_Links{screen, "fra_Links", "Linkage Data"};
    platform::ControlArray<platform::Label> lbl_LinkName{screen,
                                                         "lbl_LinkName",
                                                         {{0, "Link 1 (Ground)"},
                                                          {1, "Link 2 (Crank)"},
                                                          {2, "Link 3 (Coupler)"},
                                                          {3, "Link 4 (Rocker)"},
                                                          {4, "Dist. from I 2,3 to Coupler Pt"},
                                                          {5, "Angle from Link 3 to Coupler Pt"}}};
    platform::ControlArray<platform::Label> lbl_Links{
        screen, "lbl_Links", {{0, ""}, {1, ""}, {2, ""}, {3, ""}, {4, ""}, {5, ""}}};
    /// Length units; the angle of the coupler point has its own.
    platform::ControlArray<platform::Label> lbl_Units{screen, "lbl_Units", {0, 1, 2, 3, 4}};
    platform::ControlArray<platform::Label> lbl_Degrees{screen, "lbl_Degrees", {{5, "deg"}}};

    /// A line each for circuit (0), start, end and step of the run, and what is given at the start; the captions
    /// follow the kind of run.
    platform::Frame fra_Initial{screen, "fra_Initial", "Initial Conditions"};
    platform::ControlArray<platform::Label> lbl_Initial{
        screen,
        "lbl_Initial",
        {{0, "Circuit"}, {1, ""}, {2, ""}, {3, ""}, {4, "Theta2"}, {5, "Omega2"}, {6, "Alpha2"}}};
    platform::ControlArray<platform::Label> lbl_Linkout2{
        screen, "lbl_Linkout2", {{0, ""}, {1, ""}, {2, ""}, {3, ""}, {4, ""}, {5, ""}, {6, ""}}};
    platform::ControlArray<platform::Label> lbl_Unit{
        screen, "lbl_Unit", {{1, ""}, {2, ""}, {3, ""}, {4, "deg"}, {5, "rad/s"}, {6, "rad/s/s"}}};
};

}  // namespace verlink
