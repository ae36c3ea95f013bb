// How the pulses of the crank torque are found and listed, and the torque smoothed.
#include "dynamics/flywheel.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/text.h"
#include "platform/guard.h"

namespace verlink {

namespace {

/// A number as it is printed: a blank stands for the plus sign, and one follows.
template <class Number>
std::string Printed(Number value) {
    const std::string text = Text_Of(value);
    return (text.starts_with('-') ? "" : " ") + text + ' ';
}

/// The line with blanks up to a print column, counted from 1.
std::string Up_To(std::string line, std::size_t column) {
    if (line.size() < column - 1) line.resize(column - 1, ' ');
    return line;
}

void Print_Pulses(platform::PictureBox& paper, const PulseAreas& first, const PulseAreas& second, Integer rows) {
    for (int i = 1; i <= rows; ++i) {
        const std::string line = Up_To("   " + Printed(i), 8) + Printed(FNRound(first(i), 1));
        paper.Print(Up_To(line, 18) + Printed(FNRound(second(i), 1)));
    }
}

void Print_Areas(platform::PictureBox& paper, const std::string& unit, const PulseAreas& PosArea,
                 const PulseAreas& NegArea, Integer PulseCount, Integer FirstSign, Single AvgTorque) {
    paper.Lines = {"", " Areas of Crank Torque",   " Pulses in Order over 1 cycle ",
                   "", "    in Energy Units of :", "     " + unit + " - radians",
                   ""};
    if (FirstSign == -1) paper.Print(" Order   Neg Area   Pos Area");
    if (FirstSign == 1) paper.Print(" Order   Pos Area   Neg Area");
    paper.Print("----------------------------------------------");
    // Behind ten pulses of each sign an eleventh of one may have been counted that has no area yet.
    const Integer rows = std::min<int>(kMostPulses, Integer((PulseCount + 1) / 2.0));
    if (FirstSign == -1) Print_Pulses(paper, NegArea, PosArea, rows);
    if (FirstSign == 1) Print_Pulses(paper, PosArea, NegArea, rows);
    paper.Print("");
    paper.Print("    Average Torque:");
    paper.Print("   " + Printed(FNRound(AvgTorque, 2)) + "  " + unit);
}

Single Average_Of(const TorqueTable& Torque, int last_step) {
    Single average;
    Average2(
        0, last_step, [&](int step, int row) { return Torque(step, row); }, "I_Pointer", 0, average);
    return average;
}

// The average is that of the balanced torque, the pulses that are smoothed those of the unbalanced one.
Single Smoothed(Single unbalanced, Single AvgTorque, Single Fluct) {
    return (unbalanced - AvgTorque) * Fluct + AvgTorque;
}

void Smooth_About(const FlywheelRun& run, Single AvgTorque, Single Fluct) {
    for (int step = 0; step <= run.last_step; ++step)
        run.smoothed(step) = Smoothed(run.unbalanced(step, 0), AvgTorque, Fluct);
}

}  // namespace

FlywheelRun::FlywheelRun(LinkageModel& model)
    : last_step(model.NSteps),
      step_size(model.ThetaStepRad),
      unit(model.UnitLabel(9)),
      unbalanced(model.RunTable.LinkTorque),
      smoothed(model.RunTable.FlywheelTorque) {}

void Fly(const FlywheelRun& run, platform::Screen& Form, Single Fluct, const TorqueTable& Torque) {
    Guarded("Fly", [&] {
        PulseAreas PosArea, NegArea;
        Integer PulseCount, FirstSign;
        const Single AvgTorque = Average_Of(Torque, run.last_step);
        Flywheel([&](int step) { return Torque(step, 0); }, 0, run.last_step, run.step_size, AvgTorque, NegArea,
                 PosArea, PulseCount, FirstSign);
        Print_Areas(Form.Get<platform::PictureBox>("pct_Pict1"), run.unit, PosArea, NegArea, PulseCount, FirstSign,
                    AvgTorque);
        Smooth_About(run, AvgTorque, Fluct);
    });
}

void Smooth_Torque(const FlywheelRun& run, Single Fluct, const TorqueTable& Torque) {
    Smooth_About(run, Average_Of(Torque, run.last_step), Fluct);
}

void Smooth_Solved_Steps(RunResults& table, int last, Single Fluct, std::span<const char> solved) {
    Single sum = 0;
    int count = 0;
    for (int step = 0; step <= last; ++step) {
        if (!solved[static_cast<std::size_t>(step)]) continue;
        sum += table.BalancedMoment(step, 0);
        ++count;
    }
    const Single average = count != 0 ? sum / count : static_cast<double>(sum);
    for (int step = 0; step < static_cast<int>(solved.size()); ++step)
        if (solved[static_cast<std::size_t>(step)])
            table.FlywheelTorque(step) = Smoothed(table.LinkTorque(step, 0), average, Fluct);
}

void Flywheel(const Element& Array, Integer Start, Integer End, Single StepSize, Single Average, PulseAreas& NegArea,
              PulseAreas& PosArea, Integer& PulseCount, Integer& FirstSign) {
    Guarded("Flywheel", [&] {
        if (Start < 0 || End < Start) platform::Raise(platform::kSubscript);
        std::vector<Single> y(static_cast<std::size_t>(End + 1));
        for (int i = Start; i <= End; ++i) y[static_cast<std::size_t>(i)] = Array(i) - Average;

        for (int i = 1; i <= PulseCount; ++i) NegArea(i) = PosArea(i) = 0;
        int p = 1;
        int n = 1;
        bool InPos = false;
        bool InNeg = false;
        // The first interval is left out.
        for (int i = 2; i <= End; ++i) {
            const double here = y[static_cast<std::size_t>(i)];
            const double Area = (y[static_cast<std::size_t>(i - 1)] + here) / 2 * StepSize;
            const bool positive = here >= 0;
            if (i == 2) FirstSign = positive ? 1 : -1;
            if (positive && InNeg) ++n;
            if (!positive && InPos) ++p;
            InPos = positive;
            InNeg = !positive;
            if (InNeg) NegArea(n) += Area;
            if (InPos) PosArea(p) += Area;
        }
        PulseCount = p + n;
    });
}

}  // namespace verlink
