// Several positions of a run solved at once, for vectors of any width; the record is not known here.
#pragma once

#include "core/number.h"
#include "core/pole.h"
#include "core/position.h"
#include "core/rounding.h"

namespace verlink {
struct RunResults;
}

namespace verlink::at_once {

/// So many steps at a time.
inline constexpr int kSteps = 8;

/// Where the results of step 0 go; those of the next steps follow.
struct Columns {
    Single *Theta[4], *Ratio, *Advantage, *Omega[3], *Alpha[3];
    Single *Points[3][2], *Vel[3][2], *Acc[5][2], *Fixed[2], *Moving[2];
};

/// Those of a table of results.
Columns Columns_Of(RunResults& table);

/// How far a run is solved. Short of the motion, that is for a linkage in which no speed and no acceleration can be
/// beyond a single where links 3 and 4 are a thousandth off a line, and which closes there without a look at them.
enum class Depth { kAngles, kPoints, kMotion };

/// What all steps of a run have in common.
struct Run {
    LinkageShape shape;
    Wrap wrap;
    double Link1Angle;   ///< degrees
    double factor;       ///< from stored to shown lengths
    bool has_poles;      ///< not for a parallelogram
    double Alpha2;       ///< rad/s^2
    CouplerStart start;  ///< of the moving centrode
    Columns columns;
    bool on_coupler = true;  ///< whether the acceleration on link 3's axes is wanted
    Depth depth = Depth::kMotion;
};

/// Steps `step` to `step` + 7, at these crank angles (local, radians) and speeds before they are rounded. False, with
/// nothing stored, when one of them needs the care of a single solution.
using Solver = bool (*)(const Run& run, int step, const double* theta2, const double* omega2);
bool Solve_By_Pairs(const Run& run, int step, const double* theta2, const double* omega2);
/// For machines with AVX2; null in a build that has none.
extern const Solver kSolveByFours;

/// What is stored of a vector of positions besides the positions themselves.
template <class V>
struct Steps {
    Stored<V> Theta[4];
    Stored<V> Points[3][2];
    Stored<V> Ratio, Advantage;
    Crossing<V> Fixed;
    MovingPoint<V> Moving;
};

/// The poles of all, as ground and coupler see them: each kind of work for all in turn, so that their waits overlap.
template <class V, int N>
inline void Find_Poles(const Run& run, const Position<V> (&positions)[N], Steps<V> (&steps)[N]) {
    for (int i = 0; i < N; ++i) {
        const auto& p = positions[i];
        steps[i].Fixed = Cross(V{}, V{}, Wide(p.Ax), Wide(p.Ay), Both<V>(run.shape.L1), V{}, Wide(p.Bx), Wide(p.By));
    }
    for (int i = 0; i < N; ++i) {
        const auto& p = positions[i];
        steps[i].Moving = On_Coupler(run.start, Wide(steps[i].Fixed.X), Wide(steps[i].Fixed.Y), Wide(p.Ax), Wide(p.Ay),
                                     p.SinTheta3, p.CosTheta3);
    }
}

/// Points among what is stored, and all lengths in the shown unit.
template <class V>
inline void Show_Lengths(const Run& run, Position<V>& p, Steps<V>& steps, Rounding<V>& r) {
    steps.Points[0][0] = p.Ax;
    steps.Points[0][1] = p.Ay;
    steps.Points[1][0] = p.Bx;
    steps.Points[1][1] = p.By;
    steps.Points[2][0] = p.Px;
    steps.Points[2][1] = p.Py;
    if (run.factor != 1) {
        const auto show = [&](auto& vectors, int count) {
            for (int i = 0; i < count; ++i)
                for (auto& component : vectors[i]) r.Keep(component, Wide(component) * run.factor);
        };
        show(steps.Points, 3);
        if (run.depth != Depth::kMotion) return;
        show(p.Vel, 3);
        show(p.Acc, run.on_coupler ? 5 : 4);
    }
}

/// The rest of a vector; false when one of its steps needs the care of a single solution.
template <class V>
inline bool Finish(const Run& run, Position<V>& p, Steps<V>& steps) {
    Rounding<V> r = p.All;
    Store_Angles(p, run.Link1Angle, run.wrap, r, steps.Theta);
    r.Keep(steps.Ratio, Wide(p.Omega4) / p.Omega2);
    r.Keep(steps.Advantage, p.Omega2 / Wide(p.Omega4));
    V not_zero = p.A * p.D * p.S34 * p.G;
    if (run.has_poles) {
        r.Add(steps.Fixed.All.Sum());
        r.Add(steps.Moving.All.Sum());
        not_zero = not_zero * steps.Fixed.Run1 * steps.Fixed.Run2 * steps.Fixed.SlopeDifference;
    }
    Show_Lengths(run, p, steps, r);
    return r.All_Finite() && !Is_Zero(not_zero);
}

/// Numbers that are known to be finite.
template <class V>
inline void Put(Single* column, int step, const Stored<V>& values) {
    Single::Store_Finite<kLanesOf<V>>(&values, column + step);
}

template <class V>
inline void Put_All(const Run& run, int step, const Position<V>& p, const Steps<V>& steps) {
    const Columns& c = run.columns;
    for (int row = 0; row <= 3; ++row) Put<V>(c.Theta[row], step, steps.Theta[row]);
    Put<V>(c.Ratio, step, steps.Ratio);
    Put<V>(c.Advantage, step, steps.Advantage);
    const Stored<V> omegas[] = {Narrow(p.Omega2), p.Omega3, p.Omega4};
    const Stored<V> alphas[] = {Narrow(p.Alpha2), p.Alpha3, p.Alpha4};
    for (int row = 0; row <= 2; ++row) {
        Put<V>(c.Omega[row], step, omegas[row]);
        Put<V>(c.Alpha[row], step, alphas[row]);
    }
    for (int axis = 0; axis <= 1; ++axis) {
        for (int point = 0; point <= 2; ++point) {
            Put<V>(c.Points[point][axis], step, steps.Points[point][axis]);
            Put<V>(c.Vel[point][axis], step, p.Vel[point][axis]);
        }
        for (int point = 0; point <= (run.on_coupler ? 4 : 3); ++point)
            Put<V>(c.Acc[point][axis], step, p.Acc[point][axis]);
    }
    if (!run.has_poles) return;
    Put<V>(c.Fixed[0], step, steps.Fixed.X);
    Put<V>(c.Fixed[1], step, steps.Fixed.Y);
    Put<V>(c.Moving[0], step, steps.Moving.X);
    Put<V>(c.Moving[1], step, steps.Moving.Y);
}

/// So many numbers in a row.
template <class V>
inline V Taken(const double* numbers) {
    V taken{};
    for (int i = 0; i < kLanesOf<V>; ++i) taken[i] = numbers[i];
    return taken;
}

/// Angles, and points where they are wanted, of a vector; false when one of its steps needs more care.
template <class V>
inline bool Finish_Places(const Run& run, Position<V>& p, Steps<V>& steps) {
    constexpr double kThousandth = 1e-3;
    Rounding<V> r = p.All;
    Store_Angles(p, run.Link1Angle, run.wrap, r, steps.Theta);
    if (run.depth != Depth::kAngles) Show_Lengths(run, p, steps, r);
    const V in_line = If(p.S34 * p.S34 < kThousandth * kThousandth, V{}, Both<V>(1));
    return r.All_Finite() && !Is_Zero(p.A * p.D * in_line);
}

template <class V, int N>
inline bool Solve_Places(const Run& run, int step, Position<V> (&positions)[N]) {
    Steps<V> steps[N];
    Solve_Angles(run.shape, positions);
    if (run.depth != Depth::kAngles) Solve_Points(run.shape, positions);
    for (int i = 0; i < N; ++i)
        if (!Finish_Places(run, positions[i], steps[i])) return false;
    for (int i = 0; i < N; ++i) {
        const int at = step + kLanesOf<V> * i;
        for (int row = 0; row <= 3; ++row) Put<V>(run.columns.Theta[row], at, steps[i].Theta[row]);
        if (run.depth != Depth::kAngles)
            for (int point = 0; point <= 2; ++point)
                for (int axis = 0; axis <= 1; ++axis)
                    Put<V>(run.columns.Points[point][axis], at, steps[i].Points[point][axis]);
    }
    return true;
}

template <class V>
inline bool Solve_All(const Run& run, int step, const double* theta2, const double* omega2) {
    constexpr int kLanes = kLanesOf<V>, kVectors = kSteps / kLanes;
    Position<V> positions[kVectors];
    for (int i = 0; i < kVectors; ++i) positions[i].Theta2 = Rounded(Taken<V>(theta2 + kLanes * i));
    if (run.depth != Depth::kMotion) return Solve_Places(run, step, positions);
    Steps<V> steps[kVectors];
    for (int i = 0; i < kVectors; ++i) {
        positions[i].Omega2 = Rounded(Taken<V>(omega2 + kLanes * i));
        positions[i].Alpha2 = positions[i].Alpha2Before = Both<V>(run.Alpha2);
    }
    Solve_Motion(run.shape, positions);
    if (run.on_coupler) Solve_On_Coupler(positions);
    if (run.has_poles) Find_Poles(run, positions, steps);
    for (int i = 0; i < kVectors; ++i)
        if (!Finish(run, positions[i], steps[i])) return false;
    for (int i = 0; i < kVectors; ++i) Put_All(run, step + kLanes * i, positions[i], steps[i]);
    return true;
}

}  // namespace verlink::at_once
