// The rules of the results: whatever a flag vouches for is what the model gives when it is asked anew.
#include <cmath>

#include "core/classification.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "output/transform.h"
#include "tests/walk/aside.h"
#include "tests/walk/record.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

namespace {

/// The arrays that differ; where positions do, the rest is no news.
std::string Kind_Of(const Difference& difference) {
    return difference.names.find("PointXY") != std::string::npos ? "positions" : difference.names;
}

/// As the screens run it.
void Run_Anew() {
    Integer Result = kRetrying;
    if (Model.Calctype < 4)
        Calc_Setup(Model.Calctype, Result);
    else
        Imported_Run(Result);
}

int Last_Step(const LinkageModel& model) { return model.NSteps > kLastStep ? kLastStep : int{model.NSteps}; }

/// Values that differ by no more than storing in 32 bits does, a few times over.
bool Near(double a, double b, double scale) { return std::abs(a - b) <= 4e-6 * std::abs(scale) + 1e-30; }

/// Angles in degrees, a whole turn apart or not.
bool Near_Turned(double a, double b) {
    const double apart = std::remainder(a - b, 360);
    return std::abs(apart) <= 2e-4 + 1e-6 * std::abs(a);
}

}  // namespace

/// `Calculated`: the run made anew gives the same table, bit for bit.
/// Except: a run that the user has aborted, at a position that does not close, stands up to there; behind it the
/// table is empty.
Found Motion_Is_Of_The_Model(const Aside& aside, bool run_aborted) {
    aside.Again();
    if (!Model.Calculated) return {};
    const LinkageModel& before = aside.Before();
    Run_Anew();
    const int last = Last_Step(before);
    if (Model.NSteps != before.NSteps)
        return Finding{
            "Calculated", "number of steps",
            "the run has " + std::to_string(before.NSteps) + " steps, made anew " + std::to_string(Model.NSteps)};
    if (Model.Grashof_Code == "NL")
        return Finding{"Calculated", "links that close nowhere", "Calculated, and the links can close nowhere"};
    const Difference difference = Compare_Results(before.RunTable, Model.RunTable, last, Results::kMotion);
    if (!difference.Any()) return {};
    if (run_aborted) {
        const int step = First_Difference(before.RunTable, Model.RunTable, last);
        if (step > 0 && !Model.RunTable.Assembled(step - 1) && Empty_From(before.RunTable, step, last)) return {};
    }
    return Finding{"Calculated", Kind_Of(difference), difference.values};
}

namespace {

template <class Array>
void Put_Row(const Array& from, Array& to, int row, int axis) {
    for (int step = 0; step <= kLastStep; ++step) to(step, row, axis) = from(step, row, axis);
}

}  // namespace

/// `DynamicsDone`: the forces solved anew are the same, bit for bit.
/// Except: the mass centres in the table are those that were solved for last, and a balance solves for the
/// counterweights'.
Found Forces_Are_Of_The_Model(const Aside& aside) {
    aside.Again();
    if (!Model.DynamicsDone) return {};
    const LinkageModel& before = aside.Before();
    // What a solve that stops half-way has not written is not of this model.
    Model.RunTable.PinForce = {};
    Model.RunTable.LinkTorque = {};
    Solve_Forces(Model);
    for (int axis = 0; axis <= 1; ++axis) {
        for (int centre = 3; centre <= 5; ++centre) Put_Row(before.RunTable.VelXY, Model.RunTable.VelXY, centre, axis);
        for (int centre = 5; centre <= 7; ++centre) Put_Row(before.RunTable.AccXY, Model.RunTable.AccXY, centre, axis);
    }
    const Difference difference = Compare_Results(before.RunTable, Model.RunTable, Last_Step(before), Results::kForces);
    if (!difference.Any()) return {};
    return Finding{"DynamicsDone", difference.names, difference.values};
}

/// `BalanceDone`: the counterweights of the record give the same forces anew, bit for bit.
Found Balance_Is_Of_The_Model(const Aside& aside) {
    aside.Again();
    if (!Model.BalanceDone) return {};
    const LinkageModel& before = aside.Before();
    Model.RunTable.BerkForce = {};
    Model.RunTable.BerkTorque = {};
    Berkof_Setup(Model);
    Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    const Difference difference =
        Compare_Results(before.RunTable, Model.RunTable, Last_Step(before), Results::kBalance);
    if (!difference.Any()) return {};
    return Finding{"BalanceDone", difference.names, difference.values};
}

/// `FFTDone`: the function that was transformed gives the same harmonics anew, bit for bit. Which function that was
/// the record does not keep; it was in slot 1 when the transform was made.
Found Transform_Is_Of_The_Model(const Aside& aside, const Transformed& last) {
    aside.Again();
    if (!Model.FFTDone) return {};
    const LinkageModel& before = aside.Before();
    static_cast<FunctionSlots&>(Model) = last.slots;
    Do_DFT(Model.NSteps);
    for (int i = 0; i <= kLastStep; ++i)
        for (int row = 0; row <= 3; ++row)
            if (before.FFTResult(i, row) != Model.FFTResult(i, row))
                return Finding{"FFTDone", "FFTResult",
                               "FFTResult(" + std::to_string(i) + "," + std::to_string(row) + ") is " +
                                   Word_Of(before.FFTResult(i, row)) + ", made anew " +
                                   Word_Of(Model.FFTResult(i, row))};
    return {};
}

namespace {

/// Is it the number of steps from first to last? Either one, where a half is to be rounded.
bool Is_Count(int steps, double first, double last, double step) {
    if (step == 0) return true;
    const double ratio = (last - first) / step;
    return std::abs(ratio - steps) <= 0.5 + 1e-3;
}

class Story {
   public:
    void Says(bool so, const char* what, const std::string& seen) {
        if (!so && !finding_) finding_ = Finding{"one story", what, seen};
    }
    void Equal(double derived, double primary, double scale, const char* what) {
        Says(Near(derived, primary, scale), what,
             std::string(what) + ": " + Word_Of(derived) + " and " + Word_Of(primary));
    }
    const Found& Outcome() const { return finding_; }

   private:
    Found finding_;
};

void Check_Links(Story& story) {
    const auto& m = Model;
    const Single links[] = {m.Rpa, m.L1, m.L2, m.L3, m.L4, m.Link1X, m.Link1Y, m.Link1LocalX, m.Link1LocalY};
    const char* names[] = {"LinkArray and Rpa",    "LinkArray and L1",     "LinkArray and L2",
                           "LinkArray and L3",     "LinkArray and L4",     "LinkArray and Link1X",
                           "LinkArray and Link1Y", "LinkArray and LocalX", "LinkArray and LocalY"};
    for (int i = 0; i <= 8; ++i)
        story.Says(m.LinkArray(i) == links[i], names[i],
                   std::string(names[i]) + ": " + Word_Of(m.LinkArray(i)) + " and " + Word_Of(links[i]));
    const double length = std::hypot(double{m.Link1X}, double{m.Link1Y});
    story.Equal(m.L1, length, length, "L1 and the place of O4");
    // Next to nothing, a single has too few digits for a direction.
    constexpr double kSmall = 1e-34;
    if (length > kSmall)
        story.Says(
            Near_Turned(m.Link1Angle, std::atan2(double{m.Link1Y}, double{m.Link1X}) * 180 / M_PI),
            "Link1Angle and the place of O4",
            "Link1Angle " + Word_Of(m.Link1Angle) + " of (" + Word_Of(m.Link1X) + ", " + Word_Of(m.Link1Y) + ")");
    story.Equal(m.Link1AngleRad, m.Link1Angle * kDegToRad, std::abs(m.Link1AngleRad) + 7, "Link1Angle in radians");
    story.Says(Near_Turned(m.Delta, m.DeltaRad * kRadToDeg), "Delta in radians",
               "Delta " + Word_Of(m.Delta) + ", in radians " + Word_Of(m.DeltaRad));
    story.Says(m.Parallelogram == (m.L2 == m.L4 && m.L3 == m.L1), "Parallelogram",
               m.Parallelogram ? "taken for a parallelogram" : "not known as a parallelogram");
}

void Check_Drive(Story& story) {
    const auto& m = Model;
    story.Says(m.CircuitSign == (m.CircuitIndex == 1 ? -1 : 1), "circuit's sign",
               "CircuitIndex " + std::to_string(m.CircuitIndex) + ", CircuitSign " + std::to_string(m.CircuitSign));
    story.Says(m.CircuitName == (m.CircuitIndex == 1 ? "Open" : "Crossed"), "circuit's name",
               "CircuitIndex " + std::to_string(m.CircuitIndex) + ", CircuitName " + m.CircuitName);
    if (m.Calctype == 3) {
        story.Equal(m.ThetaStartRad, m.ThetaStart * kDegToRad, m.ThetaStart, "ThetaStart in radians");
        story.Equal(m.ThetaEndRad, m.ThetaEnd * kDegToRad, m.ThetaEnd, "ThetaEnd in radians");
        story.Equal(m.ThetaStepRad, m.ThetaStep * kDegToRad, m.ThetaStep, "ThetaStep in radians");
        story.Says(Is_Count(m.NSteps, m.ThetaStart, m.ThetaEnd, m.ThetaStep), "NSteps of angles",
                   std::to_string(m.NSteps) + " steps of " + Word_Of(m.ThetaStep) + " from " + Word_Of(m.ThetaStart) +
                       " to " + Word_Of(m.ThetaEnd));
    }
    if (m.Calctype == 2)
        story.Says(Is_Count(m.NSteps, m.TimeStart, m.TimeEnd, m.TimeStep), "NSteps of times",
                   std::to_string(m.NSteps) + " steps of " + Word_Of(m.TimeStep) + " from " + Word_Of(m.TimeStart) +
                       " to " + Word_Of(m.TimeEnd));
}

}  // namespace

/// While results count, derived values follow the primary ones, to the precision of a stored number.
/// Except: steps are counted in radians, so that a half of a step may be rounded either way.
Found Record_Tells_One_Story(const Aside& aside) {
    aside.Again();
    if (!Model.Calculated) return {};
    Story story;
    Check_Links(story);
    Check_Drive(story);
    return story.Outcome();
}

}  // namespace verlink::walk
