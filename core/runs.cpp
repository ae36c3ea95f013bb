// The generated runs, the replay of imported ones, and what happens at a position that does not close.
#include "core/runs.h"

#include <cmath>

#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/rounding.h"
#include "core/solver.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CR;

namespace {

const char kCannotClose[] =
    "Your link lengths are incompatible\r"
    "and cannot reach to close the linkage \r\r"
    "The computation will now be aborted.\r"
    "Please correct your link lengths.\r\r"
    "If you were shift-click-dragging a joint,just \r"
    "shift-click in a new location until linkage reappears.";

void Disable_Input_Buttons() {
    for (const char* button : {"cmd_Done", "cmd_Step", "cmd_Animate"})
        platform::With<platform::CommandButton>("frm_Inputnew", button, platform::kNoIndex,
                                                [](platform::CommandButton& b) { b.Enabled = false; });
}

void Begin_Run(Integer& Result) {
    Run_Dropped();
    Model.NoConnectSeen = false;
    Result = kRetrying;
}

/// The run holds, unless it was ended by the user or closes nowhere: lengths that only just reach, stretched, do not.
void End_Run(const Integer& Result) {
    if (Result == kAborted || Model.Grashof_Code == "NL") return;
    for (int step = 0; step <= Model.NSteps; ++step)
        if (Model.RunTable.Assembled(step)) return Run_Holds();
}

/// One step; false when the user has ended the run there.
bool Step_Goes_On(int step, Integer& Result) {
    Calculate(step, Result);
    return Result != kAborted;
}

double Omega_At(double t) { return Model.Alpha2 * t + Model.Omega2Input; }
double Theta_At(double t) { return Model.Alpha2 * t * t / 2 + Model.Omega2Input * t + Model.ThetaZero * kDegToRad; }

[[gnu::cold]] void Ask_About(double degrees, Integer& Result) {
    if (!Model.InputScreenOpen && !Model.CamDriven && !Model.LinkDriven) return;
    platform::Message message;
    message.text = "Linkage cannot connect or is indeterminate at Theta2 =  " + Text_Of(FNRound(degrees, 2)) + " Deg." +
                   CR + CR + CR + " ABORT - terminates further calculations beyond current position." + CR + CR +
                   " RETRY - continues calculating and reports new problem positions." + CR + CR +
                   "IGNORE - continues calculating with no further messages." + CR + CR;
    message.icon = platform::Icon::kExclamation;
    message.buttons = platform::Buttons::kAbortRetryIgnore;
    message.default_button = 3;
    Result = static_cast<int>(platform::The_Desktop().Show_Message(message));
}

}  // namespace

void Calc_Setup(Integer Calctype, Integer& Result) {
    const Told_As_One told;
    Guarded("Calc_Setup", [&] {
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
        Classify_Linkage();
        if (Model.Grashof_Code == "NL") {
            Run_Dropped();
            Model.MessageText = kCannotClose;
            platform::Tell(Model.MessageText);
            Disable_Input_Buttons();
            return;
        }
        Generated_Run(Calctype, Result);
    });
}

bool Generated_Run(Integer Calctype, Integer& Result) {
    switch (Calctype) {
        case 1: Oneposition(Result); return true;
        case 2: Timestep(Result); return true;
        case 3: Crankangle(Result); return true;
        default: return false;
    }
}

void Run_Unasked(LinkageModel& model) {
    const bool cam = model.CamDriven, link = model.LinkDriven, open = model.InputScreenOpen;
    model.CamDriven = model.LinkDriven = model.InputScreenOpen = false;
    {
        const Told_As_One once;
        Integer Result;
        if (!Generated_Run(model.Calctype, Result)) Imported_Run(Result);
    }
    model.CamDriven = cam;
    model.LinkDriven = link;
    model.InputScreenOpen = open;
}

void Oneposition(Integer& Result) {
    Guarded("Oneposition", [&] {
        Begin_Run(Result);
        Model.NSteps = 0;
        Model.Omega2 = Model.Omega2Input;
        Model.Theta2Rad = (Model.ThetaZero - Model.Link1Angle) * kDegToRad;
        Model.ThetaStartStr = Model.ThetaEndStr = Text_Of(FNRound(Model.ThetaZero, 1));
        Model.ThetaStepStr = "0";
        Clear_RunTable();
        Step_Goes_On(0, Result);
        End_Run(Result);
    });
}

void Timestep(Integer& Result) {
    Guarded("Timestep", [&] {
        Begin_Run(Result);
        Model.CamDriven = false;
        Single t = Model.TimeStart;
        Clear_RunTable();
        StepsAtOnce several;
        for (int step = 0; step <= Model.NSteps; ++step) {
            double later = t;
            if (several.Solve(step, [&later](double& theta2, double& omega2) {
                    omega2 = Omega_At(later);
                    theta2 = Theta_At(later) - Model.Link1AngleRad;
                    later = Rounded(later + Model.TimeStep);
                    return true;
                })) {
                step += StepsAtOnce::kSteps - 1;
                t = later;
                continue;
            }
            Model.Omega2 = Time_Omega(t);
            Model.Theta2Rad = Time_Theta(t) - Model.Link1AngleRad;
            if (!Step_Goes_On(step, Result)) return;
            t += Model.TimeStep;
        }
        End_Run(Result);
    });
}

void Crankangle(Integer& Result) {
    Guarded("Crankangle", [&] {
        Begin_Run(Result);
        Model.CamDriven = false;
        Model.Alpha2 = 0;
        Model.Omega2 = Model.Omega2Input;
        const bool from_the_end = Model.Omega2Input <= 0;
        Model.Theta2Rad = (from_the_end ? Model.ThetaEndRad : Model.ThetaStartRad) - Model.Link1AngleRad;
        const Single Final = (from_the_end ? Model.ThetaStartRad : Model.ThetaEndRad) - Model.Link1AngleRad;
        const double stride = from_the_end ? -Model.ThetaStepRad : +Model.ThetaStepRad;
        const auto overshot = [&](double angle) { return from_the_end ? angle < Final : angle > Final; };
        Clear_RunTable();
        StepsAtOnce several;
        for (int step = 0; step <= Model.NSteps; ++step) {
            double angle = Model.Theta2Rad;
            if (several.Solve(step, [&](double& theta2, double& omega2) {
                    omega2 = Model.Omega2;
                    theta2 = angle;
                    angle = Rounded(angle + stride);
                    return !overshot(theta2);
                })) {
                step += StepsAtOnce::kSteps - 1;
                Model.Theta2Rad = angle;
                continue;
            }
            if (!Step_Goes_On(step, Result)) return;
            if (Model.Omega2 == 0) continue;  // every step repeats the first position
            if (overshot(Model.Theta2Rad)) {
                Model.Theta2Rad = Final;  // the step that overshot is rewritten at the limit
                Calculate(step, Result);
                break;
            }
            Model.Theta2Rad += stride;
        }
        End_Run(Result);
    });
}

void Imported_Run(Integer& Result) {
    const Told_As_One told;
    Guarded("Imported_Run", [&] {
        Begin_Run(Result);
        Clear_Motion();
        // The positions leave theirs there; the model's own stands for the first of the next run.
        const Single own = Model.Alpha2;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const double drive = Model.RunTable.DriveTheta(step);
            const double degrees = Model.Calctype == run::kCamDriven
                                       ? Model.CamDirection * drive + Model.CamPhase + Model.ThetaZero - Model.Delta2
                                       : drive - Model.Link1Angle + Model.Delta2;
            Model.Theta2Rad = degrees * kDegToRad;
            Model.Omega2 = Model.RunTable.Omega(step, 0);
            Model.ImportedAlpha2 = Model.RunTable.Alpha(step, 0);
            Calculate(step, Result);  // the answer to abort is left to the caller
        }
        Model.Alpha2 = own;
        End_Run(Result);
    });
}

void Noconnect(Single& ThetaRad, Integer& step, Integer& LastPoint, Integer& Result) {
    Guarded("Noconnect", [&] {
        auto& table = Model.RunTable;
        // In the frame of the limits and of all other angles of the table.
        const double degrees = ThetaRad * kRadToDeg + Model.Link1Angle;
        Model.NoConnectSeen = true;
        table.Assembled(step) = false;
        if (Result != kIgnoring && Result != kAborted) Ask_About(degrees, Result);
        for (int i = Model.Imported() ? 1 : 0; i <= 2; ++i) {
            table.Theta(step, i) = 0;
            table.Omega(step, i) = 0;
            table.Alpha(step, i) = 0;
        }
        table.Theta(step, 0) = FNRound(degrees, 2);
        for (int axis = 0; axis <= 1; ++axis) {
            for (int point = 0; point <= 2; ++point) {
                table.PointXY(step, point, axis) = 0;
                table.VelXY(step, point, axis) = 0;
                table.AccXY(step, point, axis) = 0;
            }
            for (int point = 3; point <= LastPoint; ++point) {
                table.VelXY(step, point, axis) = 0;
                table.AccXY(step, point, axis) = 0;
            }
            table.FixedCentrode(step, 0, axis) = 0;
            table.MovingCentrode(step, 0, axis) = 0;
        }
        table.Theta(step, 3) = 0;
        table.OmegaRatio(step) = 0;
        table.MechAdvantage(step) = 0;
    });
}

double Time_Omega(Single t) { return Omega_At(t); }

double Time_Theta(Single t) { return Theta_At(t); }

double Steps_Of(double First, double Last, double Increment) {
    return std::floor(Divide(Last - First, Increment) + 0.5);
}

bool Divided_Into_Steps(const Drive& drive) {
    constexpr double kRounding = 1e-3;
    const auto reached = [&](double first, double last, double increment) {
        return increment != 0 && std::abs((last - first) / increment - drive.NSteps) <= 0.5 + kRounding;
    };
    if (drive.Calctype == run::kByTime) return reached(drive.TimeStart, drive.TimeEnd, drive.TimeStep);
    if (drive.Calctype != run::kByAngle) return true;
    return reached(drive.ThetaStart, drive.ThetaEnd, drive.ThetaStep) &&
           reached(drive.ThetaStartRad, drive.ThetaEndRad, drive.ThetaStepRad);
}

}  // namespace verlink
