// What the summary panels show.
#include "output/panels.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "platform/guard.h"

namespace verlink {

using platform::Label;
using platform::Screen;

namespace {

void Show(Screen& screen, const char* name, int index, bool visible) {
    platform::With<Label>(screen, name, index, [&](Label& label) { label.Visible = visible; });
}

/// A line of the run: its name, unit and value.
struct RunLine {
    const char* name;
    const char* unit;
    std::string value;
};

void Put_Run_Line(Screen& screen, int index, const RunLine& line) {
    for (const char* label : {"lbl_Linkout2", "lbl_Initial", "lbl_Unit"}) Show(screen, label, index, true);
    Put_Caption(screen, "lbl_Initial", index, line.name);
    Put_Caption(screen, "lbl_Unit", index, line.unit);
    Put_Caption(screen, "lbl_Linkout2", index, line.value);
}

void Put_Run_Lines(Screen& screen, const Drive& drive, std::array<RunLine, 6> lines) {
    // Where a table drives the crank, texts of limits are of another drive, and so is what stands behind them.
    if (drive.Imported()) {
        constexpr int kTimeDecimals = 4;
        const auto time = [](double seconds) { return Text_Of(Single(FNRound(seconds, kTimeDecimals))); };
        lines[0].value = time(drive.TimeStart);
        lines[1].value = time(drive.TimeStart + double{drive.TimeStep} * int{drive.NSteps});
        lines[2].value = time(drive.TimeStep);
        std::fill(lines.begin() + 3, lines.end(), RunLine{"", "", ""});
    }
    for (const char* label : {"lbl_Linkout2", "lbl_Initial"}) Show(screen, label, 0, true);
    Put_Caption(screen, "lbl_Linkout2", 0, drive.CircuitName);
    for (int i = 1; i <= 6; ++i) Put_Run_Line(screen, i, lines[static_cast<std::size_t>(i - 1)]);
}

/// Lengths by `text`, and the coupler angle.
template <class Text>
void Put_Links(Screen& screen, const Geometry& linkage, Text text) {
    const std::array<Single, 5> lengths{linkage.L1, linkage.L2, linkage.L3, linkage.L4, linkage.Rpa};
    int i = 0;
    for (const Single length : lengths) Put_Caption(screen, "lbl_Links", i++, text(length));
    Put_Caption(screen, "lbl_Links", 5, Text_Of(linkage.Delta));
}

void Put_Length_Units(Screen& screen, const UnitSystem& units) {
    for (int i = 0; i <= 4; ++i) Put_Caption(screen, "lbl_Units", i, units.UnitLabel(6));
}

}  // namespace

void Show_Link_Data(Screen& screen) {
    Guarded("Show_Link_Data", [&] {
        const double shown = Shown_Factor();
        Put_Links(screen, Model, [shown](Single length) { return FNRoundStr(length * shown, Model.DecLengthShown); });
    });
}

void Show_Time_Panel(Screen& screen) {
    Guarded("Show_Time_Panel", [&] {
        Show_Link_Data(screen);
        // In a time run the three texts hold times.
        Put_Length_Units(screen, Model);
        Put_Run_Lines(screen, Model,
                      {{{"Start Time", "sec", Model.ThetaStartStr},
                        {"End Time", "sec", Model.ThetaEndStr},
                        {"Delta Time", "sec", Model.ThetaStepStr},
                        {"Theta0", "deg", Text_Of(Model.ThetaZero)},
                        {"Omega0", "rad/s", Text_Of(Model.Omega2Input)},
                        {"Alpha0", "rad/s/s", Text_Of(Model.Alpha2)}}});
    });
}

void Show_Angle_Panel(Screen& screen) {
    Guarded("Show_Angle_Panel", [&] {
        Show_Link_Data(screen);
        Put_Length_Units(screen, Model);
        Put_Run_Lines(screen, Model,
                      {{{"Min Theta", "deg", Model.ThetaStartStr},
                        {"Max Theta", "deg", Model.ThetaEndStr},
                        {"Delta Theta", "deg", Model.ThetaStepStr},
                        {"Omega2", "rad/s", Text_Of(Model.Omega2Input)},
                        {"", "", ""},
                        {"", "", ""}}});
    });
}

void Show_Linkage_Panel(Screen& screen) {
    Guarded("Show_Linkage_Panel", [&] {
        const double shown = Shown_Factor();
        Put_Links(screen, Model, [shown](Single length) { return Text_Of(Single(length * shown)); });
        Put_Length_Units(screen, Model);
        Put_Run_Line(screen, 4, {"Theta2", "deg", Model.ThetaStartStr});
        Put_Run_Line(screen, 5, {"Omega2", "rad/s", Text_Of(Model.Omega2)});
        Put_Run_Line(screen, 6, {"Alpha2", "rad/s/s", Text_Of(Model.Alpha2)});
        for (int i = 0; i <= 3; ++i)
            for (const char* label : {"lbl_Linkout2", "lbl_Initial", "lbl_Unit"}) Show(screen, label, i, false);
    });
}

void Show_Run_Panel(Screen& screen) {
    switch (Model.Calctype) {
        case 1: Show_Linkage_Panel(screen); break;
        case 3: Show_Angle_Panel(screen); break;
        default: Show_Time_Panel(screen); break;
    }
}

}  // namespace verlink
