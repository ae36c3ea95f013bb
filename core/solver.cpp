// One position into the record, in the order in which its refusals are noticed; and several at once in long runs.
#include "core/solver.h"

#include <algorithm>

#include "core/centrodes.h"
#include "core/linkage_model.h"
#include "core/position.h"
#include "core/runs.h"
#include "platform/guard.h"

namespace verlink {

namespace {

LinkageShape Present_Shape() {
    return Shape_Of(Model.L1, Model.L2, Model.L3, Model.L4, Model.Rpa, Model.DeltaRad, Model.CircuitSign);
}

Wrap Wrap_Mode() {
    if (Model.ModuloMode == "abs") return Wrap::kAbs;
    if (Model.ModuloMode == "180") return Wrap::k180;
    return Wrap::kNone;
}

void Require_Finite(double sum) {
    if (!Is_Finite(sum)) platform::Raise(platform::kOverflow);
}

[[gnu::cold, gnu::noinline]] void Refuse(Integer step, Integer& Result) {
    Integer last_point = 3;
    Noconnect(Model.Theta2Rad, step, last_point, Result);
}

/// Angles and points of a position; false when it was refused on the way.
bool Take_Position(Integer step, const LinkageShape& shape, const Position<double>& p, Integer& Result) {
    auto& m = Model;
    m.SinTheta2 = p.SinTheta2;
    m.CosTheta2 = p.CosTheta2;
    if (m.L2 == 0 || m.L3 == 0 || m.L4 == 0) platform::Raise(platform::kDivisionByZero);
    Require_Finite(shape.Sum + p.ClosureSum);
    if (p.D4 < 0 || p.A == 0) return Refuse(step, Result), false;
    m.Theta4Rad = p.Theta4;
    m.SinTheta4 = p.SinTheta4;
    m.CosTheta4 = p.CosTheta4;
    Require_Finite(p.CouplerSum);
    if (p.D3 < 0) return Refuse(step, Result), false;
    m.Ax = p.Ax;
    m.Ay = p.Ay;
    if (p.D == 0) {
        // This one refusal goes on, into the division that ends the step with the reporter's message.
        Refuse(step, Result);
        platform::Raise(platform::kDivisionByZero);
    }
    m.Theta3Rad = p.Theta3;
    m.SinTheta3 = p.SinTheta3;
    m.CosTheta3 = p.CosTheta3;
    m.SinDelta3 = p.SinDelta3;
    m.CosDelta3 = p.CosDelta3;
    m.Px = p.Px;
    m.Py = p.Py;
    m.Bx = p.Bx;
    m.By = p.By;
    if (p.S34 == 0) return Refuse(step, Result), false;
    return true;
}

/// Speeds and accelerations; false when the position was refused on the way.
bool Take_Motion(Integer step, const Position<double>& p, Integer& Result) {
    auto& m = Model;
    m.Omega3 = p.Omega3;
    m.Omega4 = p.Omega4;
    m.Omega2Sq = p.Omega2Sq;
    m.Omega3Sq = p.Omega3Sq;
    m.Omega4Sq = p.Omega4Sq;
    for (int point = 0; point <= 2; ++point)
        for (int axis = 0; axis <= 1; ++axis) m.RunTable.VelXY(step, point, axis) = p.Vel[point][axis];
    m.Alpha2 = p.Alpha2;
    Require_Finite(p.AccelerationSum);
    if (p.G == 0) return Refuse(step, Result), false;
    m.Alpha3 = p.Alpha3;
    m.Alpha4 = p.Alpha4;
    for (int point = 0; point <= 4; ++point)
        for (int axis = 0; axis <= 1; ++axis) m.RunTable.AccXY(step, point, axis) = p.Acc[point][axis];
    return true;
}

/// Only the first element of all is mended; a full turn at a later step stands.
void Mend_First_Angle(Wrap wrap) {
    auto& first = Model.RunTable.Theta(0, 0);
    if (wrap == Wrap::kAbs && first == 360) first = 0;
}

void Store_Angles(int step, const Position<double>& p) {
    const Wrap wrap = Wrap_Mode();
    Rounding<double> r;
    float theta[4];
    Store_Angles(p, Model.Link1Angle, wrap, r, theta);
    for (int row = 0; row <= 3; ++row) Model.RunTable.Theta(step, row) = theta[row];
    Mend_First_Angle(wrap);
}

void Store_Ratios(int step) {
    auto& table = Model.RunTable;
    if (Model.Omega2 != 0)
        table.OmegaRatio(step) = Model.Omega4 / Model.Omega2;
    else if (step > 0)
        table.OmegaRatio(step) = table.OmegaRatio(step - 1);
    // A rocker at rest leaves the element: here nothing is carried over from the step before.
    if (Model.Omega4 != 0) table.MechAdvantage(step) = Model.Omega2 / Model.Omega4;
}

void Store_Motion(int step) {
    const auto& m = Model;
    auto& table = Model.RunTable;
    if (!m.Imported()) {
        table.Omega(step, 0) = m.Omega2;
        table.Alpha(step, 0) = m.Alpha2;
    }
    table.Omega(step, 1) = m.Omega3;
    table.Omega(step, 2) = m.Omega4;
    table.Alpha(step, 1) = m.Alpha3;
    table.Alpha(step, 2) = m.Alpha4;
    table.PointXY(step, 0, 0) = m.Ax;
    table.PointXY(step, 0, 1) = m.Ay;
    table.PointXY(step, 1, 0) = m.Bx;
    table.PointXY(step, 1, 1) = m.By;
    table.PointXY(step, 2, 0) = m.Px;
    table.PointXY(step, 2, 1) = m.Py;
}

void Solve_Step(Integer step, Integer& Result) {
    auto& m = Model;
    m.RunTable.Assembled(step) = true;
    // In an imported run the first acceleration term still has the acceleration of the step before.
    const double alpha2 = m.Imported() ? m.ImportedAlpha2 : m.Alpha2;
    Position<double> positions[1];
    auto& p = positions[0];
    p.Theta2 = m.Theta2Rad;
    p.Omega2 = m.Omega2;
    p.Alpha2 = alpha2;
    p.Alpha2Before = m.Alpha2;
    const LinkageShape shape = Present_Shape();
    Solve(shape, positions);
    if (!Take_Position(step, shape, p, Result) || !Take_Motion(step, p, Result)) return;
    Store_Angles(step, p);
    Store_Ratios(step);
    Store_Motion(step);
    if (!m.Imported() && !m.Parallelogram) Centrodes(step);
    const double factor = Shown_Factor();
    const bool scaled = Scale_Positions(step, factor, 0, 2) && Scale_Velocities(step, factor, 0, 2) &&
                        Scale_Accelerations(step, factor, 0, 4);
    if (!scaled) m.RunTable.Assembled(step) = false;
}

template <class Points>
void Scale(Points& points, int step, double factor, int First, int Last) {
    for (int point = First; point <= Last; ++point)
        for (int axis = 0; axis <= 1; ++axis) points(step, point, axis) *= factor;
}

}  // namespace

void Calculate(Integer step, Integer& Result) {
    const bool solved = Guarded("Calculate", [&] { Solve_Step(step, Result); });
    if (!solved && step >= 0 && step <= kLastStep) Model.RunTable.Assembled(step) = false;
}

StepsAtOnce::StepsAtOnce(Lanes lanes)
    : run_{Present_Shape(),
           Wrap_Mode(),
           Model.Link1Angle,
           Shown_Factor(),
           !Model.Parallelogram,
           Model.Alpha2,
           {},
           at_once::Columns_Of(Model.RunTable)},
      solve_(lanes == Lanes::kFour && at_once::kSolveByFours ? at_once::kSolveByFours : at_once::Solve_By_Pairs) {}

bool StepsAtOnce::Is_Possible(int step) const {
    const int last = step + kSteps - 1;
    return step >= resume_ && Is_Finite(run_.shape.Sum) && last < Model.NSteps && last <= kLastStep &&
           !Model.Imported();
}

bool StepsAtOnce::Solve_All(int step, const double* theta2, const double* omega2) {
    auto& m = Model;
    // Known since the first step was solved.
    run_.start = {m.Centrode0Ax, m.Centrode0Ay, m.SinCentrode0, m.CosCentrode0};
    if (!solve_(run_, step, theta2, omega2)) return false;
    std::fill_n(m.RunTable.Assembled.Steps(step, kSteps), kSteps, true);
    return true;
}

bool Scale_Positions(int step, double factor, int First, int Last) {
    return Guarded("Scale_Positions", [&] { Scale(Model.RunTable.PointXY, step, factor, First, Last); });
}

bool Scale_Velocities(int step, double factor, int First, int Last) {
    return Guarded("Scale_Velocities", [&] { Scale(Model.RunTable.VelXY, step, factor, First, Last); });
}

bool Scale_Accelerations(int step, double factor, int First, int Last) {
    return Guarded("Scale_Accelerations", [&] { Scale(Model.RunTable.AccXY, step, factor, First, Last); });
}

}  // namespace verlink
