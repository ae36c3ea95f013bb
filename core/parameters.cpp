// How boxes become the model's values and back, and what is refused on the way.
#include "core/parameters.h"

#include <cmath>
#include <limits>
#include <string>

#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/runs.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CheckBox;
using platform::CommandButton;
using platform::Icon;
using platform::kNoIndex;
using platform::Label;
using platform::OptionButton;
using platform::Screen;
using platform::Screens;
using platform::ScrollBar;
using platform::Tell;
using platform::TextBox;
using platform::With;

const char kBadAngleRange[] =
    "Minimum angle must be smaller than maximum angle.\r"
    "To rotate CW from max to min, use a negative Omega2.";
const char kBadAngleStep[] =
    "Cannot have a zero or negative step size\r"
    "To rotate CW from max to min, use a negative Omega2.";
const char kAnglesTooClose[] =
    "Something is wrong. \r"
    "Start and end theta are too close together\r"
    " or delta theta is too large.";
const char kBadTimeRange[] = "Start time must be smaller than end time - will reset.";
const char kBadTimeStep[] = "Time steps must be positive - will reset";

std::string Too_Many_Steps(const char* kind, const char* advice) {
    return std::string("Your ") + kind + " steps are too small - Have > " + Text_Of(kLastStep) + " Points - Increase " +
           advice;
}

namespace {

constexpr int kAngleDecimals = 2;

Single Value_Of(const TextBox& box) { return Val(box.Text.Get()); }

/// The number of a box that is read. One that cannot be stored gives way to what the record has, as `back` puts it,
/// and its failure goes on.
template <class Back>
Single Number_Of(TextBox& box, Back back) {
    Single number;
    const long failure = Failure_Of([&] { number = Value_Of(box); });
    box.Settle();
    if (failure != 0) {
        back();
        platform::Raise(failure);
    }
    return number;
}

/// A box that waits to be taken over keeps its text.
void Show(Screen& screen, const char* name, int index, const std::string& text) {
    With<TextBox>(screen, name, index, [&](TextBox& box) {
        if (!box.Touched()) box.Text = text;
    });
}

void Show_Length(Screen& screen, int index, Single length) {
    Show(screen, "txt_Linkout", index, Text_Of(FNRound(length * Shown_Factor(), Model.DecLengthShown)));
}

void Show_Angle(Screen& screen, int index, Single angle) {
    Show(screen, "txt_Linkout", index, Text_Of(FNRound(angle, kAngleDecimals)));
}

/// A box as it is read, which shows the value times a factor: a hand's text, else the value of the record. Unless the
/// text says exactly the value, `show` puts it there, rounded.
template <class Show>
Single Read(TextBox& box, Single value, double factor, Show show) {
    if (box.Touched()) return Number_Of(box, show) / factor;
    if (box.Text.Get().empty() || Single(Value_Of(box) / factor) != value) show();
    return value;
}

Single Read_Coordinate(Screen& screen, int index, Single stored) {
    return Read(screen.Text("txt_Linkout", index), stored, Shown_Factor(), [&] { Show_Length(screen, index, stored); });
}

Single Read_Length(Screen& screen, int index, Single stored) {
    const double factor = Shown_Factor();
    TextBox& box = screen.Text("txt_Linkout", index);
    const Single typed = Read(box, stored, factor, [&] { Show_Length(screen, index, stored); });
    Single length = typed;
    Check_Positive(length);
    if (length != typed) box.Text = Text_Of(Single(length * factor));
    return length;
}

Single Read_Angle(Screen& screen, int index, Single stored) {
    return Read(screen.Text("txt_Linkout", index), stored, 1, [&] { Show_Angle(screen, index, stored); });
}

/// A limit of the run, which the record has as text.
Single Read_Initial(Screen& screen, int index, const std::string& stored) {
    TextBox& box = screen.Text("txt_initial", index);
    const auto show = [&] { box.Text = stored; };
    if (!box.Touched() && (box.Text.Get().empty() || Value_Of(box) != Single(Val(stored)))) show();
    return Number_Of(box, show);
}

void Caption(Screen& screen, const char* name, int index, const std::string& caption) {
    With<Label>(screen, name, index, [&](Label& label) { label.Caption = caption; });
}

void Caption_Line(Screen& screen, int index, const char* name, const char* unit) {
    Caption(screen, "lbl_Initial", index, name);
    Caption(screen, "lbl_Unit", index, unit);
}

void Disable(Screen& screen, const char* button) {
    With<CommandButton>(screen, button, kNoIndex, [](CommandButton& found) { found.Enabled = false; });
}

/// The read-out of the animate screen, which tells a position of the run.
void Caption_Read_Out(const char* name, const char* unit) {
    const auto caption = [](const char* label, const std::string& text) {
        With<Label>("frm_Animate", label, kNoIndex, [&](Label& found) { found.Caption = text; });
    };
    caption("lbl_StepLabel", name);
    caption("lbl_StepUnit", unit);
    caption("lbl_Omega", Text_Of(Model.Omega2Input));
}

void Show_Angle_Limits(Screen& screen) {
    Show(screen, "txt_initial", 0, Model.ThetaStartStr);
    Show(screen, "txt_initial", 1, Model.ThetaEndStr);
}

bool Get_Angle_Conditions(Screen& screen) {
    const Drive before = Model;
    const Single Min = Read_Initial(screen, 0, Model.ThetaStartStr);
    const Single Max = Read_Initial(screen, 1, Model.ThetaEndStr);
    if (!(Min < Max)) {
        Tell(kBadAngleRange, Icon::kExclamation);
        Show_Angle_Limits(screen);
        return false;
    }
    const Single Step = Read_Initial(screen, 2, Model.ThetaStepStr);
    const bool forward = Step > 0.0;
    Model.ThetaStart = Min;
    Model.ThetaEnd = Max;
    if (forward) Model.ThetaStep = Step;
    Derive_Angle_Limits();
    if (!forward) {
        Tell(kBadAngleStep);
        Show(screen, "txt_initial", 2, Model.ThetaStepStr);
        return false;
    }

    // A refusal from here on is of the limits together, so all of them go back.
    const auto put_back = [&] {
        static_cast<Drive&>(Model) = before;
        Show_Angle_Limits(screen);
        Show(screen, "txt_initial", 2, Model.ThetaStepStr);
    };
    const Single range = std::abs(Model.ThetaEndRad - Model.ThetaStartRad);
    if (Single(0.98 * Model.ThetaStepRad) >= range) {
        Tell(kAnglesTooClose, Icon::kExclamation);
        put_back();
        return false;
    }
    const double steps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
    if (steps > kLastStep) {
        Tell(Too_Many_Steps("angle", "Delta Theta"));
        put_back();
        screen.Text("txt_initial", 2).SetFocus();
        return false;
    }
    Model.NSteps = steps;
    Model.Alpha2 = 0;
    if (Screen* animate = Screens::Find("frm_Animate")) {
        Put_Linkage_Geometry(*animate);
        Put_Angle_Initial_Conditions(*animate);
    }
    return true;
}

bool Get_Time_Conditions(Screen& screen) {
    const Drive before = Model;
    const Single Start = Read_Initial(screen, 0, Text_Of(Model.TimeStart));
    const Single End = Read_Initial(screen, 1, Text_Of(Model.TimeEnd));
    if (!(Start < End)) {
        Tell(kBadTimeRange, Icon::kExclamation);
        Show(screen, "txt_initial", 0, Text_Of(Model.TimeStart));
        Show(screen, "txt_initial", 1, Text_Of(Model.TimeEnd));
        return false;
    }
    Model.TimeStart = Start;
    Model.TimeEnd = End;
    Model.ThetaStartStr = Text_Of(Start);
    Model.ThetaEndStr = Text_Of(End);
    const Single Step = Read_Initial(screen, 2, Text_Of(Model.TimeStep));
    if (Step <= 0.0) {
        Tell(kBadTimeStep);
        if (Step < 0.0) Model.TimeStep = -Step;
        Show(screen, "txt_initial", 2, Text_Of(Model.TimeStep));
    } else {
        Model.TimeStep = Step;
    }
    Model.ThetaStepStr = Text_Of(Model.TimeStep);
    const double steps = Model.TimeStep > 0.0 ? Steps_Of(Model.TimeStart, Model.TimeEnd, Model.TimeStep)
                                              : std::numeric_limits<double>::infinity();
    if (steps > kLastStep) {
        // The screen goes on all the same: its boxes wait, and the run that reads them refuses them again.
        const bool waits = screen.FindAs<CommandButton>("cmd_Calc") != nullptr;
        for (int box = 0; waits && box <= 2; ++box)
            screen.Text("txt_initial", box).Type(screen.Text("txt_initial", box).Text);
        Tell(Too_Many_Steps("time", "Delta Time"));
        static_cast<Drive&>(Model) = before;
    } else {
        Model.NSteps = steps;
    }
    if (Screen* animate = Screens::Find("frm_Animate")) {
        Put_Linkage_Geometry(*animate);
        Put_Time_Initial_Conditions(*animate);
    }
    return true;
}

void Settle_Linkage(Screen& screen) {
    for (platform::Control* control : screen.Controls())
        if (auto* box = dynamic_cast<TextBox*>(control); box && box->Name() == "txt_Linkout") box->Settle();
}

bool Same_Limits(const Drive& a, const Drive& b) {
    for (const auto field : {&Drive::ThetaZero, &Drive::ThetaStart, &Drive::ThetaEnd, &Drive::ThetaStep,
                             &Drive::TimeStart, &Drive::TimeEnd, &Drive::TimeStep, &Drive::Alpha2})
        if (a.*field != b.*field) return false;
    return a.NSteps == b.NSteps && a.ThetaStartStr == b.ThetaStartStr && a.ThetaEndStr == b.ThetaEndStr &&
           a.ThetaStepStr == b.ThetaStepStr;
}

void Get_Delta2() {
    With<TextBox>("frm_Inputnew", "txt_initial", 4, [](TextBox& box) { Take_Motion(box, Model.Delta2); });
}

template <class Flag>
void Read_Flag(Screen& screen, const char* box, Flag& flag, bool ticked_is_yes = true) {
    With<CheckBox>(screen, box, kNoIndex, [&](CheckBox& found) { flag = found.Value == ticked_is_yes ? "Y" : "N"; });
}

}  // namespace

void Take_Motion(TextBox& box, Single& value) {
    const Single taken = Read(box, value, 1, [&] { box.Text = Text_Of(value); });
    if (taken == value) return;
    value = taken;
    Run_Dropped();
    Model_Unsaved();
}

bool Is_Linkage_Touched(Screen& screen) {
    for (platform::Control* control : screen.Controls())
        if (const auto* box = dynamic_cast<TextBox*>(control))
            if (box->Touched() && box->Name() == "txt_Linkout") return true;
    return false;
}

void Check_Positive(Single& length) {
    if (length >= 0.0) return;
    Tell("Link lengths must be positive - Have changed to positive value - Please check your data", Icon::kExclamation);
    length = -length;
}

void Derive_Angle_Limits() {
    Model.ThetaStartStr = Text_Of(Model.ThetaStart);
    Model.ThetaEndStr = Text_Of(Model.ThetaEnd);
    Model.ThetaStepStr = Text_Of(Model.ThetaStep);
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
}

void Derive_Time_Limits() {
    Model.ThetaStartStr = Text_Of(Model.TimeStart);
    Model.ThetaEndStr = Text_Of(Model.TimeEnd);
    Model.ThetaStepStr = Text_Of(Model.TimeStep);
}

void Get_Linkage_Geometry(Screen& screen, Road road) {
    const bool taken = Guarded("Get_Linkage_Geometry", [&] {
        if (Is_Linkage_Touched(screen)) {
            Model.CognateEdit = false;
            Model.CognateNumber = 1;
            Model.CognatesDue = true;
        }
        Enter_Linkage(road, [&] {
            Model.L2 = Read_Length(screen, 1, Model.L2);
            Model.L3 = Read_Length(screen, 2, Model.L3);
            Model.L4 = Read_Length(screen, 3, Model.L4);
            Model.Rpa = Read_Length(screen, 4, Model.Rpa);
            Model.Delta = Read_Angle(screen, 5, Model.Delta);
            if (Model.PolarCoords) {
                Model.L1 = Read_Length(screen, 0, Model.L1);
                Model.Link1Angle = Read_Angle(screen, 6, Model.Link1Angle);
            } else {
                Model.Link1X = Read_Coordinate(screen, 15, Model.Link1X);
                Model.Link1Y = Read_Coordinate(screen, 16, Model.Link1Y);
            }
            Put_Circuit(screen);
        });
        // Also a text that was typed into the form that is not in force.
        Settle_Linkage(screen);
        if (Model.PolarCoords) {
            Show_Length(screen, 15, Model.Link1X);
            Show_Length(screen, 16, Model.Link1Y);
        } else {
            Show_Length(screen, 0, Model.L1);
            Show_Angle(screen, 6, Model.Link1Angle);
        }
        Disable(screen, "cmd_Animate");
        Disable(screen, "cmd_Done");
        if (Model.Calctype == run::kLinkDriven) Get_Delta2();
        Model.RedrawFlag = "Y";
        // The screens tell the class of the linkage in hand, run or not.
        Classify_Linkage();
    });
    if (taken) return;
    Settle_Linkage(screen);
    Put_Linkage_Geometry(screen);
}

void Put_Linkage_Geometry(Screen& screen) {
    Guarded("Put_Linkage_Geometry", [&] {
        for (int box = 0; box <= 3; ++box) Show_Length(screen, box, Model.LinkArray(box + 1));
        Show_Length(screen, 4, Model.LinkArray(0));
        Show_Angle(screen, 5, Model.Delta);
        Show_Angle(screen, 6, Model.Link1Angle);
        Show_Length(screen, 15, Model.Link1X);
        Show_Length(screen, 16, Model.Link1Y);
        Put_Circuit(screen);
        for (int label : {0, 1, 2, 3, 4, 11, 12}) Caption(screen, "lbl_Units", label, Model.UnitLabel(6));
        With<TextBox>("frm_Animate", "txt_LineAngle", kNoIndex, [](TextBox& box) {
            if (!box.Touched()) box.Text = Text_Of(FNRound(Model.LineAngle, 0));
        });
    });
}

bool Get_Initial_Conditions(Screen& screen) {
    bool accepted = true;
    const Drive before = Model;
    const bool ended = Guarded("Get_Initial_Conditions", [&] {
        if (Model.Calctype == run::kOnePosition) {
            Model.ThetaZero = Read_Initial(screen, 0, Text_Of(Model.ThetaZero));
            screen.Text("txt_initial", 1).Text = screen.Text("txt_initial", 0).Text;
        } else if (Model.Calctype == run::kByTime) {
            accepted = Get_Time_Conditions(screen);
        } else if (Model.Calctype == run::kByAngle) {
            accepted = Get_Angle_Conditions(screen);
        }
        if (!Same_Limits(before, Model)) {
            Run_Dropped();
            Model_Unsaved();
        }
        if (!accepted) return;
        if (Screen* input = Screens::Find("frm_Inputnew")) {
            Disable(*input, "cmd_Animate");
            Disable(*input, "cmd_Done");
        }
        Model.RedrawFlag = "Y";
    });
    return ended && accepted;
}

void Put_Angle_Initial_Conditions(Screen& screen) {
    Guarded("Put_Angle_Initial_Conditions", [&] {
        Show(screen, "txt_initial", 0, Model.ThetaStartStr);
        Show(screen, "txt_initial", 1, Model.ThetaEndStr);
        Show(screen, "txt_initial", 2, Model.ThetaStepStr);
        Caption_Line(screen, 0, "Min Theta", "deg");
        Caption_Line(screen, 1, "Max Theta", "deg");
        Caption_Line(screen, 2, "Delta Theta", "deg");
        Caption_Line(screen, 3, "Omega2", "rad/s");
        Caption_Line(screen, 4, "Alpha2", "rad/s^2");
        Caption_Line(screen, 5, "Theta Zero", "deg");
        if (Model.Calctype == run::kOnePosition)
            Caption_Read_Out("Alpha2", "rad/s^2");
        else
            Caption_Read_Out("Theta2", "deg");
    });
}

void Put_Time_Initial_Conditions(Screen& screen) {
    Guarded("Put_Time_Initial_Conditions", [&] {
        Show(screen, "txt_initial", 0, Text_Of(Model.TimeStart));
        Show(screen, "txt_initial", 1, Text_Of(Model.TimeEnd));
        Show(screen, "txt_initial", 2, Text_Of(Model.TimeStep));
        const bool link_driven = Model.Calctype == run::kLinkDriven;
        Show(screen, "txt_initial", 4, Text_Of(link_driven ? Model.Delta2 : Model.Alpha2));
        Caption_Line(screen, 0, "Start Time", "sec");
        Caption_Line(screen, 1, "End Time", "sec");
        Caption_Line(screen, 2, "Delta Time", "sec");
        Caption_Line(screen, 3, "Omega Zero", "rad/s");
        Caption_Line(screen, 4, link_driven ? "Delta 2" : "Alpha2", link_driven ? "deg" : "rad/s^2");
        Caption_Line(screen, 5, Model.Imported() ? "Thetazero" : "ThetaZero", "deg");
        Caption_Read_Out("Time", "sec");
    });
}

void Get_Circuit(Screen& screen) {
    With<OptionButton>(screen, "opt_OpenCross", 0, [](OptionButton& open) {
        Model.CircuitIndex = open.Value ? 1 : 2;
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    });
}

void Put_Circuit(Screen& screen) {
    const int chosen = Model.CircuitSign == -1 ? 0 : 1;
    With<OptionButton>(screen, "opt_OpenCross", chosen, [](OptionButton& option) { option.Value = true; });
}

void Check_Parameters(Screen& screen) {
    Guarded("Check_Parameters", [&] {
        With<ScrollBar>(screen, "hsc_speed", kNoIndex,
                        [](ScrollBar& speed) { Model.AnimateDelay = 32767 - speed.Value(); });
        With<TextBox>(screen, "txt_Cycles", kNoIndex, [](TextBox& box) { Model.Cycles = Val(box.Text.Get()); });
        // The box shows whole degrees.
        With<TextBox>(screen, "txt_LineAngle", kNoIndex, [](TextBox& box) {
            if (box.Touched()) Model.LineAngle = Val(box.Text.Get());
        });
        Model.AnimateStepSize = 1;
        Read_Flag(screen, "chk_Showlinks", Model.HideLinksFlag, false);
        Read_Flag(screen, "chk_Coupler", Model.ShowCouplerFlag);
        Read_Flag(screen, "chk_CouplerLines", Model.ShowCouplerLinesFlag);
        Read_Flag(screen, "chk_Centrodes", Model.ShowCentrodesFlag);
        Read_Flag(screen, "chk_Trace", Model.TraceFlag);
        int option = 0;
        for (const int target : shift_drag::kOfOption)
            With<OptionButton>(screen, "opt_Shift_Drag", option++, [&](OptionButton& found) {
                if (found.Value) Model.ShiftDragTarget = target;
            });
    });
}

}  // namespace verlink
