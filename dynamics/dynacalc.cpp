// The nine equations of each position, their solution, and what is stored of it.
#include "dynamics/dynacalc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

#include "core/elimination.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/text.h"
#include "dynamics/solve_again.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr int kUnknowns = 9;

/// Matrix and right side with subscripts from 1, the equation first.
struct System {
    ForceEquations Held;

    double& A(int i, int j) { return Held.A[static_cast<std::size_t>((i - 1) * kUnknowns + j - 1)]; }
    double& C(int i) { return Held.C[static_cast<std::size_t>(i - 1)]; }
};

/// A link at a step: angles relative to the ground link, in radians.
struct LinkState {
    Single th;        ///< of its line of centres
    Single w, a;      ///< rad/s, rad/s^2
    Single R;         ///< pivot to mass centre, stored length
    double sin, cos;  ///< of th
    Single S, C;      ///< sine and cosine of the mass centre's direction
};

/// Sine and cosine of th + angle, at hand where nothing is added.
struct Directed {
    Single S, C;
    Directed(const LinkState& s, double angle)
        : S(angle == 0 ? s.sin : std::sin(s.th + angle)), C(angle == 0 ? s.cos : std::cos(s.th + angle)) {}
};

LinkState State_Of(const LoadedRun& run, int step, int link, const Table<Single, 0, 4, 2>& CG) {
    const RunResults& table = run.table;
    LinkState s;
    s.th = table.Theta(step, link - 2) * kDegToRad - run.linkage.Link1AngleRad;
    s.w = table.Omega(step, link - 2);
    s.a = table.Alpha(step, link - 2);
    s.R = CG(link, 0);
    s.sin = std::sin(s.th);
    s.cos = std::cos(s.th);
    const Directed centre(s, CG(link, 1));
    s.S = centre.S;
    s.C = centre.C;
    return s;
}

/// The links of a step, by number.
struct Links {
    LinkState l2, l3, l4;
};

/// Friction on link 3, torque on link 4, and moments of all forces about the mass centres of links 3 and 4.
struct Loads {
    Single Fx, Fy;
    Single T4;
    Single M3, M4;
};

/// Accelerations in stored lengths.
void Store_Centres(RunResults& table, int step, const Links& at, double shown) {
    const auto& [l2, l3, l4] = at;
    auto& velocity = table.VelXY;
    velocity(step, 3, 0) = l2.w * l2.R * -l2.S;
    velocity(step, 3, 1) = l2.w * l2.R * l2.C;
    velocity(step, 4, 0) = l4.w * l4.R * -l4.S;
    velocity(step, 4, 1) = l4.w * l4.R * l4.C;
    // That of A is in the table already, in the unit shown.
    velocity(step, 5, 0) = l3.w * l3.R * -l3.S + velocity(step, 0, 0) / shown;
    velocity(step, 5, 1) = l3.w * l3.R * l3.C + velocity(step, 0, 1) / shown;

    auto& acceleration = table.AccXY;
    const Single Ax = acceleration(step, 0, 0) / shown;
    const Single Ay = acceleration(step, 0, 1) / shown;
    acceleration(step, 5, 0) = l3.w * l3.w * l3.R * -l3.C + Ax + l3.a * l3.R * -l3.S;
    acceleration(step, 5, 1) = l3.w * l3.w * l3.R * -l3.S + Ay + l3.a * l3.R * l3.C;
    acceleration(step, 6, 0) = l2.w * l2.w * l2.R * -l2.C + l2.a * l2.R * -l2.S;
    acceleration(step, 6, 1) = l2.w * l2.w * l2.R * -l2.S + l2.a * l2.R * l2.C;
    acceleration(step, 7, 0) = l4.w * l4.w * l4.R * -l4.C + l4.a * l4.R * -l4.S;
    acceleration(step, 7, 1) = l4.w * l4.w * l4.R * -l4.S + l4.a * l4.R * l4.C;
}

void Scale_Centres(RunResults& table, int step, double shown) {
    for (int axis = 0; axis <= 1; ++axis) {
        for (int row = 3; row <= 5; ++row) table.VelXY(step, row, axis) *= shown;
        for (int row = 5; row <= 7; ++row) table.AccXY(step, row, axis) *= shown;
    }
}

/// What a table has of the mass centres' motion at a step.
class Centres {
   public:
    Centres(const RunResults& table, int step) {
        for (int row = 0; row <= 2; ++row)
            for (int axis = 0; axis <= 1; ++axis) {
                velocity_[row][axis] = table.VelXY(step, 3 + row, axis);
                acceleration_[row][axis] = table.AccXY(step, 5 + row, axis);
            }
    }
    void Put_Back(RunResults& table, int step) const {
        for (int row = 0; row <= 2; ++row)
            for (int axis = 0; axis <= 1; ++axis) {
                table.VelXY(step, 3 + row, axis) = velocity_[row][axis];
                table.AccXY(step, 5 + row, axis) = acceleration_[row][axis];
            }
    }

   private:
    Single velocity_[3][2], acceleration_[3][2];
};

/// Moment of a force about a mass centre, given the place of its point in the link's frame, degrees.
double Moment(Single distance, Single angle, const LinkState& link, Single X, Single Y) {
    const Directed arm(link, angle * kDegToRad);
    const Single Rx = distance * arm.C;
    const Single Ry = distance * arm.S;
    return Y * Rx - X * Ry;
}

Loads Loads_At(const LoadedRun& run, int step, const Links& at) {
    const MassProperties& m = run.loads;
    const auto& velocity = run.table.VelXY;
    // Friction acts against the velocity of the coupler point.
    const Single phi = (Atan2D(velocity(step, 2, 0), velocity(step, 2, 1)) + 180) * kDegToRad;
    const double sine = std::sin(phi);
    const double cosine = std::cos(phi);
    const Single Px = run.linkage.Rpa * cosine;
    const Single Py = run.linkage.Rpa * sine;
    Loads loads;
    loads.T4 = run.torque_imported ? run.table.ImportedTorque(step) : m.ExtTorque(4);
    loads.Fx = m.FrictionForce * cosine;
    loads.Fy = m.FrictionForce * sine;
    // The arm of the friction is taken along the force itself, so that its moment is 0 but for rounding.
    const double moment3 = Moment(m.ForceDist3, m.ForceAng3, at.l3, m.ExtForce3X, m.ExtForce3Y);
    loads.M3 = moment3 + (loads.Fy * Px - Py * loads.Fx);
    loads.M4 = Moment(m.ForceDist4, m.ForceAng4, at.l4, m.ExtForce4X, m.ExtForce4Y);
    return loads;
}

/// Newton's and Euler's equations of links 2, 3 and 4, three rows to a link. Unknowns: F12, F32, F43, F14, x and y
/// each, and T12.
void Fill_Matrix(System& s, const Geometry& linkage, const Links& at) {
    const auto& [l2, l3, l4] = at;
    s.Held.A.fill(0);
    s.A(1, 1) = 1;
    s.A(1, 3) = 1;
    s.A(2, 2) = 1;
    s.A(2, 4) = 1;
    s.A(3, 1) = l2.R * l2.S;
    s.A(3, 2) = -l2.R * l2.C;
    s.A(3, 3) = -(linkage.L2 * l2.sin - l2.S * l2.R);
    s.A(3, 4) = linkage.L2 * l2.cos - l2.C * l2.R;
    s.A(3, 9) = 1;
    s.A(4, 3) = -1;
    s.A(4, 5) = 1;
    s.A(5, 4) = -1;
    s.A(5, 6) = 1;
    s.A(6, 3) = -l3.R * l3.S;
    s.A(6, 4) = l3.R * l3.C;
    s.A(6, 5) = -(linkage.L3 * l3.sin - l3.S * l3.R);
    s.A(6, 6) = linkage.L3 * l3.cos - l3.C * l3.R;
    s.A(7, 5) = -1;
    s.A(7, 7) = 1;
    s.A(8, 6) = -1;
    s.A(8, 8) = 1;
    s.A(9, 5) = linkage.L4 * l4.sin - l4.S * l4.R;
    s.A(9, 6) = -(linkage.L4 * l4.cos - l4.C * l4.R);
    s.A(9, 7) = l4.R * l4.S;
    s.A(9, 8) = -l4.R * l4.C;
}

/// Rates of change of momentum of links 2, 3 and 4, and of angular momentum about their mass centres.
struct Inertias {
    Single Fi[3][2];
    Single Ia[3];
};

Inertias Inertias_At(const RunResults& table, int step, const Links& at, const Array<Single, 0, 4>& Mass,
                     const Array<Single, 0, 4>& Inertia) {
    const auto& acceleration = table.AccXY;
    Inertias i;
    for (int axis = 0; axis <= 1; ++axis) {
        i.Fi[0][axis] = acceleration(step, 6, axis) * Mass(2);
        i.Fi[1][axis] = acceleration(step, 5, axis) * Mass(3);
        i.Fi[2][axis] = acceleration(step, 7, axis) * Mass(4);
    }
    i.Ia[0] = at.l2.a * Inertia(2);
    i.Ia[1] = at.l3.a * Inertia(3);
    i.Ia[2] = at.l4.a * Inertia(4);
    return i;
}

void Fill_Right_Side(System& s, const Inertias& inertias, const MassProperties& m, const Loads& loads, bool loaded) {
    for (int link = 0; link <= 2; ++link) {
        s.C(3 * link + 1) = inertias.Fi[link][0];
        s.C(3 * link + 2) = inertias.Fi[link][1];
        s.C(3 * link + 3) = inertias.Ia[link];
    }
    if (!loaded) return;
    s.C(4) -= m.ExtForce3X + loads.Fx;
    s.C(5) -= m.ExtForce3Y + loads.Fy;
    s.C(6) -= m.ExtTorque(3) + loads.M3;
    s.C(7) -= m.ExtForce4X;
    s.C(8) -= m.ExtForce4Y;
    s.C(9) -= loads.T4 + loads.M4;
}

void Store(int step, System& x, const Links& at, const Inertias& inertias, Single T3, const Loads& loads,
           ForceTable& Forces, TorqueTable& Torques) {
    for (int axis = 0; axis <= 1; ++axis) {
        Forces(step, 0, axis) = x.C(3 + axis);
        Forces(step, 1, axis) = x.C(5 + axis);
        Forces(step, 5, axis) = x.C(1 + axis);
        Forces(step, 6, axis) = x.C(7 + axis);
        Forces(step, 2, axis) = -inertias.Fi[1][axis];
        Forces(step, 3, axis) = -inertias.Fi[0][axis];
        Forces(step, 4, axis) = -inertias.Fi[2][axis];
        Forces(step, 7, axis) = -x.C(1 + axis) - x.C(7 + axis);
    }
    Torques(step, 0) = x.C(9);
    // The loads count here even where they are left out of the system.
    Torques(step, 1) = -inertias.Ia[1] + T3 + loads.M3;
    Torques(step, 2) = -inertias.Ia[2] + loads.T4 + loads.M4;
    const auto& l4 = at.l4;
    Torques(step, 3) = (-l4.R * l4.C) * Forces(step, 6, 1) - (-l4.R * l4.S) * Forces(step, 6, 0) - x.C(9);
}

/// No results of an earlier solve stand behind those of one that stopped.
void Clear_From(int first, const LoadedRun& run, ForceTable& Forces, TorqueTable& Torques) {
    for (int step = first; step <= std::min(run.last_step, kLastStep); ++step) {
        for (int axis = 0; axis <= 1; ++axis) {
            for (int row = 0; row <= 7; ++row) Forces(step, row, axis) = 0;
            for (int row = 3; row <= 5; ++row) run.table.VelXY(step, row, axis) = 0;
            for (int row = 5; row <= 7; ++row) run.table.AccXY(step, row, axis) = 0;
        }
        for (int row = 0; row <= 3; ++row) Torques(step, row) = 0;
    }
}

/// The masses of a solve, by link.
struct Bodies {
    const Array<Single, 0, 4>&Mass, &Inertia;
    const Table<Single, 0, 4, 2>& CG;
};

/// Both to the same bits; false for a singular system, of which the second tells the user.
bool Solve_Quietly(System& s) {
    return PairedSystem<kUnknowns>(s.Held.A.data(), s.Held.C.data()).Solve(s.Held.C.data());
}
bool Solve_And_Tell(System& s) {
    if (Solve_Quietly(s)) return true;
    Integer unknowns = kUnknowns;
    Integer Error;
    SimQ(unknowns, s.Held.A, s.Held.C, Error);
    return Error == 0;
}

using System_Solver = bool (*)(System&);

/// What a step is made of before it is solved.
struct Loaded_Step {
    Links at;
    Inertias inertias;
    Loads loads;
};

/// Also stores the motion of the mass centres, in stored lengths, and the right side of the system.
Loaded_Step Load_Step(const LoadedRun& run, int step, bool loaded, const Bodies& bodies, System& system) {
    Loaded_Step s{
        {State_Of(run, step, 2, bodies.CG), State_Of(run, step, 3, bodies.CG), State_Of(run, step, 4, bodies.CG)},
        {},
        {}};
    Store_Centres(run.table, step, s.at, run.shown);
    s.inertias = Inertias_At(run.table, step, s.at, bodies.Mass, bodies.Inertia);
    s.loads = Loads_At(run, step, s.at);
    Fill_Right_Side(system, s.inertias, run.loads, s.loads, loaded);
    return s;
}

/// The solution takes the place of the right side; false where links 3 and 4 are in line.
bool Solve_By_Links(const Geometry& linkage, const Links& at, System& s) {
    const auto& [l2, l3, l4] = at;
    const double a = -linkage.L3 * l3.sin, b = linkage.L3 * l3.cos, c = linkage.L4 * l4.sin, d = -linkage.L4 * l4.cos;
    const double about3 = s.C(6) - l3.R * l3.S * s.C(4) + l3.R * l3.C * s.C(5);
    const double about4 = s.C(9) - l4.R * l4.S * s.C(7) + l4.R * l4.C * s.C(8);
    const double determinant = a * d - b * c;
    const double F43x = (about3 * d - b * about4) / determinant, F43y = (a * about4 - about3 * c) / determinant;
    const double F32x = F43x - s.C(4), F32y = F43y - s.C(5);
    const double F14x = F43x + s.C(7), F14y = F43y + s.C(8);
    const double F12x = s.C(1) - F32x, F12y = s.C(2) - F32y;
    const double T12 = s.C(3) - l2.R * l2.S * F12x + l2.R * l2.C * F12y + (linkage.L2 * l2.sin - l2.S * l2.R) * F32x -
                       (linkage.L2 * l2.cos - l2.C * l2.R) * F32y;
    const double solution[] = {F12x, F12y, F32x, F32y, F43x, F43y, F14x, F14y, T12};
    std::copy(std::begin(solution), std::end(solution), s.Held.C.begin());
    return std::isfinite(F43x + F43y + T12);
}

bool Solve_Step_Directly(const LoadedRun& run, int step, bool loaded, const Bodies& bodies, ForceTable& Forces,
                         TorqueTable& Torques, System& system) {
    const Loaded_Step s = Load_Step(run, step, loaded, bodies, system);
    if (!Solve_By_Links(run.linkage, s.at, system)) return false;
    Store(step, system, s.at, s.inertias, run.loads.ExtTorque(3), s.loads, Forces, Torques);
    Scale_Centres(run.table, step, run.shown);
    return true;
}

/// False for a singular system.
bool Solve_Step(const LoadedRun& run, int step, bool loaded, const Bodies& bodies, ForceTable& Forces,
                TorqueTable& Torques, ForceSolve& solve, System& system, System_Solver solve_system) {
    const Loaded_Step s = Load_Step(run, step, loaded, bodies, system);
    Fill_Matrix(system, run.linkage, s.at);
    if (step == 0) solve.first = system.Held;
    if (!solve_system(system)) return false;
    Store(step, system, s.at, s.inertias, run.loads.ExtTorque(3), s.loads, Forces, Torques);
    Scale_Centres(run.table, step, run.shown);
    return true;
}

/// `step` is the one under way, also when a failure ends the procedure; false for a singular system there.
bool Solve_Steps(const LoadedRun& run, bool loaded, const Bodies& bodies, ForceTable& Forces, TorqueTable& Torques,
                 ForceSolve& solve, int& step, System_Solver solve_system) {
    System system;
    for (; step <= run.last_step; ++step)
        if (!Solve_Step(run, step, loaded, bodies, Forces, Torques, solve, system, solve_system)) return false;
    return solve.solved = true;
}

}  // namespace

LoadedRun::LoadedRun(LinkageModel& model)
    : linkage(model),
      loads(model),
      torque_imported(model.TorqueImported),
      last_step(model.NSteps),
      shown(Shown_Factor(model)),
      table(model.RunTable) {}

ForceSolve Dynacalc(const LoadedRun& run, Integer LoadFlag, const Array<Single, 0, 4>& Mass,
                    const Array<Single, 0, 4>& Inertia, const Table<Single, 0, 4, 2>& CG, ForceTable& Forces,
                    TorqueTable& Torques) {
    ForceSolve solve;
    int step = 0;
    Guarded("Dynacalc", [&] {
        if (Solve_Steps(run, LoadFlag == 0, {Mass, Inertia, CG}, Forces, Torques, solve, step, Solve_And_Tell)) return;
        platform::Tell("Error in Computing Simultaneous Equations at step    " + Text_Of(step),
                       platform::Icon::kQuestion);
    });
    if (!solve.solved) Clear_From(step, run, Forces, Torques);
    return solve;
}

void Solve_Closed_Steps(const LoadedRun& run, std::span<char> solved) {
    const MassProperties& m = run.loads;
    const Bodies bodies{m.LinkMass, m.LinkInertia, m.CG};
    System system;
    for (int step = 0; step <= run.last_step; ++step) {
        char& done = solved[static_cast<std::size_t>(step)] = 0;
        if (!run.table.Assembled(step)) continue;
        What_Failed([&] {
            done = Solve_Step_Directly(run, step, true, bodies, run.table.PinForce, run.table.LinkTorque, system);
        });
    }
}

void Solve_Closed_Steps(const LoadedRun& run, const BalanceWeights& weights, std::span<char> solved) {
    const Bodies bodies{weights.BerkMass, weights.BerkInertia, weights.BerkCG};
    System system;
    for (int step = 0; step <= run.last_step; ++step) {
        char& done = solved[static_cast<std::size_t>(step)];
        if (!std::exchange(done, 0)) continue;
        const Centres own(run.table, step);
        What_Failed([&] {
            done = Solve_Step_Directly(run, step, false, bodies, run.table.BerkForce, run.table.BerkTorque, system);
        });
        own.Put_Back(run.table, step);
    }
}

void Resolve_Forces(MassProperties& m) {
    m.ExtForce3X = m.ExtForceMag(3) * std::cos(m.ExtForceAng(3) * kDegToRad);
    m.ExtForce3Y = m.ExtForceMag(3) * std::sin(m.ExtForceAng(3) * kDegToRad);
    m.ExtForce4X = m.ExtForceMag(4) * std::cos(m.ExtForceAng(4) * kDegToRad);
    m.ExtForce4Y = m.ExtForceMag(4) * std::sin(m.ExtForceAng(4) * kDegToRad);
}

ForceSolve Solve_Forces(LinkageModel& m) {
    Resolve_Forces(m);
    ForceSolve solve = Dynacalc(m, 0, m.LinkMass, m.LinkInertia, m.CG, m.RunTable.PinForce, m.RunTable.LinkTorque);
    Forces_Hold();
    return solve;
}

bool Solve_Forces_Again(LinkageModel& m) {
    Forces_Dropped();
    if (!m.RunStands) return false;
    Resolve_Forces(m);
    const LoadedRun run(m);
    ForceTable& Forces = m.RunTable.PinForce;
    TorqueTable& Torques = m.RunTable.LinkTorque;
    ForceSolve solve;
    int step = 0;
    const bool failed =
        What_Failed([&] {
            Solve_Steps(run, true, {m.LinkMass, m.LinkInertia, m.CG}, Forces, Torques, solve, step, Solve_Quietly);
        }).has_value();
    if (failed || !solve) {
        Clear_From(step, run, Forces, Torques);
        return false;
    }
    Forces_Hold();
    return true;
}

}  // namespace verlink
