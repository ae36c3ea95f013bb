// How a run is played: scale, frames, delay, stepping.
#include "animation/engine.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <vector>

#include "animation/drawing.h"
#include "animation/film.h"
#include "animation/shown.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CheckBox;
using platform::Label;
using platform::PictureBox;
using platform::ScrollBar;
using platform::With;

namespace {

constexpr platform::Color Packed(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

int Sign_Of(double value) { return (value > 0) - (value < 0); }

/// Whose windows are held; a screen may be there several times.
std::vector<const platform::Screen*>& Held() {
    static std::vector<const platform::Screen*> held;
    return held;
}

bool Autoscaling(platform::Screen& form) {
    if (std::ranges::find(Held(), &form) != Held().end()) return false;
    bool ticked = false;
    With<CheckBox>(form, "chk_autoscale", platform::kNoIndex, [&](CheckBox& box) { ticked = box.Value; });
    return ticked;
}

void Show_Readout(platform::Screen& form, bool visible) {
    for (const char* name : {"lbl_StepLabel", "lbl_StepUnit", "lbl_StepNumber"})
        With<Label>(form, name, platform::kNoIndex, [&](Label& label) { label.Visible = visible; });
}

void Show_Number(platform::Screen& form, const std::string& text) {
    With<Label>(form, "lbl_StepNumber", platform::kNoIndex, [&](Label& label) { label.Caption = text; });
}

void Move_Bar(platform::Screen& form, int value) {
    With<ScrollBar>(form, "hsc_step", platform::kNoIndex, [&](ScrollBar& bar) { bar.SetValue(value); });
}

/// False when the user has stopped the run.
bool Hold_Frame(int step) {
    if (const auto* take = Frame_Taker::InForce()) return (*take)(step);
    const Long turns = static_cast<std::int64_t>(Model.AnimateWait) * Model.AnimateDelay;
    const std::int64_t counted = std::max(static_cast<std::int64_t>(turns), std::int64_t{0});
    const std::chrono::nanoseconds pause(counted * kNanosecondsPerTurn);
    return platform::The_Desktop().Pause(std::min<std::chrono::nanoseconds>(pause, kLongestFrame));
}

/// The position stays in the picture.
void Draw_Still(int step, platform::Screen& form) {
    Model.PassColor = Model.PenColor;
    Drawsub(step, form);
    Position_Shown(form, step);
}

/// One cycle of a run. Gives back whether there is to be another: not when the user has stopped it, and not when there
/// was nothing to show, since the next one would be the same.
bool Play_Cycle(platform::Screen& form) {
    bool shown = false;
    for (int step = Model.FirstStep; step <= Model.LastStep; step += Model.StepIncrement) {
        if (!Model.RunTable.Assembled(step)) continue;
        bool stop = false;
        const bool goes_on = Drawone(step, form, stop);
        Model.PenColor = Model.DrawColor;
        if (stop) {
            if (step == 0) break;
            Drawsub(step - 1, form);
            Position_Shown(form, step - 1);
            return shown;
        }
        shown = true;
        if (goes_on && step != Model.LastStep) continue;
        Draw_Still(step, form);
        if (goes_on) return true;
        // As after a press of Step: the position stands, and the next one is the next to be shown.
        Model.CurrentStep = step + 1;
        return false;
    }
    // What was drawn of the last positions that close is erased by now.
    Nothing_Shown(form);
    return shown;
}

}  // namespace

void Set_Palette() {
    Model.ColorRed = Packed(255, 0, 0);
    Model.ColorGreen = Packed(0, 255, 0);
    Model.ColorBlue = Packed(0, 0, 255);
    Model.ColorBlack = Packed(0, 0, 0);
    Model.ColorWhite = Packed(255, 255, 255);
    Model.ColorCyan = Packed(0, 255, 255);
    Model.ColorYellow = Packed(255, 255, 0);
    Model.ColorMagenta = Packed(255, 0, 255);
    Model.ColorPurple = Packed(128, 0, 128);
    Model.ColorGray = Packed(128, 128, 128);
}

Held_Window::Held_Window(const platform::Screen& form) : form_(form) { Held().push_back(&form); }

Held_Window::~Held_Window() { Held().erase(std::ranges::find(Held(), &form_)); }

void Autoscale() {
    Guarded("Autoscale", [] {
        const auto& points = Model.RunTable.PointXY;
        const double factor = Shown_Factor();
        Model.AnimMax = points(0, 2, 0);
        Model.AnimMin = points(0, 2, 0);
        const auto widen = [](Single coordinate) {
            Model.AnimMax = std::max(Model.AnimMax, coordinate);
            Model.AnimMin = std::min(Model.AnimMin, coordinate);
        };
        // The coupler point of step 0 counts in the local frame too.
        widen(points(0, 2, 1));
        for (int row = Model.HideLinksFlag == "Y" ? 2 : 0; row <= 3; ++row) {
            for (int step = 0; step <= Model.NSteps; ++step) {
                Single x = points(step, row, 0);
                Single y = points(step, row, 1);
                if (Model.Link1Angle != 0) Rotate(x, y, Model.Link1Angle, 1, x, y);
                widen(x);
                widen(y);
            }
        }
        if (Model.HideLinksFlag == "N") {
            widen(Model.L1 * factor);
            widen(0);
        }

        Single sum = 0;
        for (int link = 1; link <= 4; ++link) {
            sum += Model.LinkArray(link);
            // In centimetres and millimetres each length counts a second time, which sets the margin there.
            if (factor != 1) sum += Model.LinkArray(link) * factor;
        }
        if (Model.Calctype == run::kCamDriven) {
            const auto lower = [&](Single center) {
                const Single edge = -((Sign_Of(center) * Model.CamDiameter) / 2 + center) * factor;
                if (edge < Model.AnimMin) Model.AnimMin = edge;
            };
            lower(Model.CamCenterX);
            lower(Model.CamCenterY);
        }
        const Single margin = (sum / 4) * 0.25;
        Model.AnimMin = Model.AnimMin - margin;
        Model.AnimMax = Model.AnimMax + margin;
        Model.AnimMax = Model.ZoomFactor * Model.AnimMax;
        Model.AnimMin = Model.ZoomFactor * Model.AnimMin;
    });
}

void Animate_Setup(platform::Screen& form) {
    Guarded("Animate_Setup", [&] {
        platform::Surface& surface = form.Get<PictureBox>("Picture1").Canvas();
        Set_Palette();
        Check_Parameters(form);
        if (Model.RedrawFlag == "N") surface.Cls();
        // Without a window yet there is none to keep.
        if (Autoscaling(form) || Model.AnimMax <= Model.AnimMin) Autoscale();
        Model.CentrodeRadius = std::abs(Model.AnimMax * 0.008);
        Model.PinRadius = std::abs(Model.AnimMax * 0.015);
        Model.CouplerPinRadius = std::abs(Model.AnimMax * 0.012);
        Model.PivotRadius = std::abs(Model.AnimMax * 0.03);
        Model.CouplerLineLength = Model.PivotRadius;
        Model.LinkColor = Model.DrawColor = Model.PenColor = Model.ColorMagenta;
        Model.PivotColor = Model.ColorBlue;
        Model.TracePinColor = Model.ColorBlack;
        Model.EraseColor = Model.ColorWhite;
        Model.ColorPassStep = Model.EraseColor - Model.DrawColor;
        surface.Scale(Model.AnimMin, Model.AnimMin, Model.AnimMax, Model.AnimMax);
        surface.DrawMode(13);
        surface.BackColor(Model.ColorWhite);
        Titlebox(form);
        Model.FirstStep = 0;
        Model.LastStep = Model.NSteps;
        Model.StepIncrement = Model.AnimateStepSize;
        Model.FlipSum = Model.AnimMin + Model.AnimMax;
        switch (Model.Calctype) {
            case 2:
            case 4:
            case 5:
                Put_Linkage_Geometry(form);
                Put_Time_Initial_Conditions(form);
                break;
            case 3:
                Put_Linkage_Geometry(form);
                Put_Angle_Initial_Conditions(form);
                break;
            default: break;
        }
    });
}

void Animate(platform::Screen& form) {
    const Told_As_One told;
    Guarded("Animate", [&] {
        Animate_Setup(form);
        Model.CurrentStep = 0;
        Show_Readout(form, false);
        const bool curve = Model.ShowCouplerFlag == "Y";
        bool goes_on = true;
        for (int cycle = 1; cycle <= Model.Cycles && goes_on; ++cycle) {
            Show_Nothing(form);
            Drawpivots(form);
            Axes(form);
            if (curve) DrawCouplerCurve(form);
            goes_on = Play_Cycle(form);
            if (curve) DrawCouplerCurve(form);
            Drawpivots(form);
            Axes(form);
        }
    });
}

bool Drawone(int step, platform::Screen& form, bool& stop) {
    bool goes_on = true;
    Guarded("Drawone", [&] {
        stop = false;
        const auto& points = Model.RunTable.PointXY;
        for (const platform::Color pass : {Model.DrawColor, Model.EraseColor}) {
            Model.PassColor = pass;
            Model.PenColor = Model.TraceFlag == "Y" ? Model.LinkColor : Model.PassColor;
            // The exact origin is the mark of a position that did not close.
            if (points(step, 2, 0) == 0 && points(step, 2, 1) == 0) {
                stop = true;
                return;
            }
            Drawsub(step, form);
            if (pass != Model.DrawColor) continue;
            Position_Shown(form, step, true);
            goes_on = Hold_Frame(step);
        }
        if (Model.ShowCouplerFlag == "Y") DrawCouplerCurve(form);
        if (Model.ShowCentrodesFlag == "Y") PlotCentrodeCircles(step, form);
        Drawpivots(form);
    });
    return goes_on;
}

void Step(platform::Screen& form, Integer& step) {
    Guarded("Step", [&] {
        Animate_Setup(form);
        Show_Readout(form, true);
        const auto theta2 = [&] { return FNRoundStr(Model.RunTable.Theta(step, 0), 1); };
        switch (Model.Calctype) {
            case 1:
                // The label says Theta2; the number is the crank's acceleration.
                Show_Number(form, Text_Of(Model.Alpha2));
                break;
            case 2:
            case 4:
            case 5: Show_Number(form, FNRoundStr(step * Model.TimeStep + Model.TimeStart, 2)); break;
            case 3:
                Show_Number(form, theta2());
                if (step > Model.NSteps) step = 0;
                With<platform::TextBox>("frm_Inputnew", "txt_Thetazero", platform::kNoIndex,
                                        [&](platform::TextBox& box) { box.Text = theta2(); });
                break;
            default: break;
        }
        DrawLinkage(form, step);
    });
}

void DrawLinkage(platform::Screen& form, int step) {
    Guarded("DrawLinkage", [&] {
        Drawpivots(form);
        Axes(form);
        if (Model.ShowCouplerFlag == "Y") DrawCouplerCurve(form);
        Drawsub(step, form);
        Model.PenColor = Model.DrawColor;
        if (step == Model.LastStep) Drawsub(step, form);
        if (Model.ShowCentrodesFlag == "Y") PlotCentrodeCircles(step, form);
        Drawpivots(form);
        Axes(form);
        Position_Shown(form, step);
    });
}

void Step_Setup(platform::Screen& form, bool& lock) {
    Guarded("Step_Setup", [&] {
        Model.RedrawFlag = "Y";
        lock = true;
        With<ScrollBar>(form, "hsc_step", platform::kNoIndex, [](ScrollBar& bar) { bar.SetMax(Model.NSteps); });
        const auto wrap = [] {
            if (Model.CurrentStep > Model.NSteps) Model.CurrentStep = 0;
        };
        switch (Model.Calctype) {
            case 1: Model.CurrentStep = 0; break;
            case 2:
            case 4:
                wrap();
                Move_Bar(form, Model.CurrentStep);
                Step(form, Model.CurrentStep);
                break;
            case 3:
                wrap();
                Step(form, Model.CurrentStep);
                Move_Bar(form, Model.CurrentStep);
                break;
            // A link-driven run has no case: its count moves, and nothing is drawn.
            default: break;
        }
        if (Model.Calctype > run::kOnePosition) ++Model.CurrentStep;
    });
}

void Step_Reset(platform::Screen& form) {
    Guarded("Step_Reset", [&] {
        Integer first = 0;
        Step(form, first);
        Move_Bar(form, 0);
        Model.CurrentStep = 1;
    });
}

}  // namespace verlink
