// What the solve stored, beside a second solution, virtual work and momentum.
#include "checks/forces.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "checks/solved.h"
#include "checks/worst.h"
#include "core/linkage_model.h"

namespace verlink::checks {

namespace {

constexpr double kRadians = M_PI / 180;

Vector Value(const Estimate2& e) { return {e.x.value, e.y.value}; }

/// What a solve took and stored.
struct Solve_Record {
    const ForceTable& forces;
    const TorqueTable& torques;
    Masses masses;
    bool loaded;

    static Solve_Record Of_Links(const LinkageModel& m) {
        return {m.RunTable.PinForce, m.RunTable.LinkTorque, {m.LinkMass, m.LinkInertia, m.CG}, true};
    }
    static Solve_Record Of_Counterweights(const LinkageModel& m) {
        return {m.RunTable.BerkForce, m.RunTable.BerkTorque, {m.BerkMass, m.BerkInertia, m.BerkCG}, false};
    }
    bool Is_Empty(int n) const {
        for (int row = 0; row <= 7; ++row)
            if (At(forces, n, row) != Vector{}) return false;
        return torques(n, 0) == 0;
    }
};

/// Whether a solve can have stopped there: where coupler and rocker lie in line, or where numbers are beyond what a
/// single holds.
bool Stops(const LinkageModel& m, const Step& step, const Solve_Record& record) {
    const Estimate& determinant = step.expected.determinant;
    if (!(std::abs(determinant.value) > determinant.error)) return true;  // nor where one is no number
    const Solved s = Solve(m, step, record.masses, record.loaded);
    double force = 1, arm = 1;
    for (const Estimate2* pin : {&s.F12, &s.F32, &s.F43, &s.F14}) force = std::max(force, std::abs(Value(*pin)));
    for (const Body* body : {&s.l2, &s.l3, &s.l4}) {
        force = std::max(force, std::abs(Value(body->force)));
        arm = std::max(arm, std::abs(body->arm));
    }
    return !(force * arm < std::numeric_limits<float>::max());
}

/// The first step of those without forces at the end of a run, if a solve can have stopped there, or where a position
/// does not close; else the one behind the last.
int Stopped_At(const LinkageModel& m, const std::vector<Step>& steps, const Solve_Record& record) {
    int first = m.NSteps + 1;
    while (first > 0 && record.Is_Empty(first - 1)) --first;
    const auto step = std::ranges::find(steps, first, &Step::number);
    return step == steps.end() || Stops(m, *step, record) ? first : m.NSteps + 1;
}

class Forces {
   public:
    Forces(const LinkageModel& model, const std::vector<Step>& steps) : m_(model), t_(model.RunTable), steps_(steps) {}

    void Add(std::vector<Check>& checks) {
        const int stopped = Stopped_At(m_, steps_, Solve_Record::Of_Links(m_));
        if (stopped <= m_.NSteps) stopped_.Add_By_Design(0, 0, m_.NSteps + 1 - stopped, stopped, "");
        for (const Step& step : steps_) {
            if (!step.pose.closes) continue;
            if (step.number >= stopped) break;
            const Solved s = Solve(m_, step, {m_.LinkMass, m_.LinkInertia, m_.CG}, true);
            const int n = step.number;
            power_.Add(std::abs(t_.LinkTorque(n, 0) - s.virtual_work), s.T12.error, n, "");
            Compare_Pins(n, s);
            Compare_Shaking(n, s);
            Compare_Torques(n, s);
            Compare_Centres(step, s, centres_, centres_acc_);
            Leave_Out(step, s);
        }
        if (centres_.Fails() || centres_acc_.Fails()) Compare_With_Counterweights(stopped);
        Tell(checks);
    }

   private:
    void Compare_Pins(int n, const Solved& s) {
        const auto compare = [&](int row, const Estimate2& force, double sign, const char* name) {
            pins_.Add(std::abs(At(t_.PinForce, n, row) - sign * Value(force)), force.Error(), n, name);
        };
        compare(0, s.F32, 1, "link 3 on link 2");
        compare(1, s.F43, 1, "link 4 on link 3");
        compare(5, s.F12, 1, "ground on link 2");
        compare(6, s.F14, 1, "ground on link 4");
        compare(2, s.l3.force, -1, "inertia of link 3");
        compare(3, s.l2.force, -1, "inertia of link 2");
        compare(4, s.l4.force, -1, "inertia of link 4");
    }

    void Compare_Shaking(int n, const Solved& s) {
        const Vector shaking = At(t_.PinForce, n, 7);
        const Vector ground = -At(t_.PinForce, n, 5) - At(t_.PinForce, n, 6);
        const double size = std::abs(At(t_.PinForce, n, 5)) + std::abs(At(t_.PinForce, n, 6));
        shaking_.Add(std::abs(shaking - ground), 4 * kHalfPlace * size, n, "beside the ground's pins");
        Vector momentum = Value(s.loads.force3) + Value(s.loads.force4);
        for (const Body* body : {&s.l2, &s.l3, &s.l4}) momentum -= body->mass * body->acceleration;
        shaking_.Add(std::abs(shaking - momentum), s.F12.Error() + s.F14.Error() + 4 * kHalfPlace * size, n,
                     "beside the momentum");
        // The program takes moments about link 4's mass centre; the ground gets this about O2.
        const Vector F14 = Value(s.F14);
        const double told = Cross(-s.l4.arm, F14) - s.T12.value, true_one = -Cross(double{m_.L1}, F14) - s.T12.value;
        const double open = std::abs(s.l4.arm) * (s.F14.Error() + 8 * kHalfPlace * std::abs(F14)) +
                            s.l4.arm_estimate.Error() * std::abs(F14) + s.T12.error +
                            4 * kHalfPlace * std::abs(s.T12.value) + 2 * kHalfPlace * std::abs(told);
        moment_.Add_By_Design(std::abs(t_.LinkTorque(n, 3) - told), open, std::abs(told - true_one), n, "");
    }

    void Compare_Torques(int n, const Solved& s) {
        const auto compare = [&](int row, const Body& body, const Estimate& moment, const char* name) {
            const Estimate net = Stored(moment - body.moment);
            torques_.Add(std::abs(t_.LinkTorque(n, row) - (moment.value - body.inertia * body.alpha)), net.error, n,
                         name);
        };
        compare(1, s.l3, s.loads.moment3, "link 3");
        compare(2, s.l4, s.loads.moment4, "link 4");
    }

    void Compare_Centres(const Step& step, const Solved& s, Worst& velocities, Worst& accelerations) const {
        const int n = step.number;
        const double w2 = step.drive.omega2, shown = Shown_Factor(m_);
        const auto compare = [&](const Body& body, int velocity, int acceleration, double omega_open, double A_open,
                                 const char* name) {
            const double a_open = shown * body.acceleration_estimate.Error();
            accelerations.Add(std::abs(At(t_.AccXY, n, acceleration) - shown * body.acceleration),
                              a_open + 4 * kHalfPlace * shown * std::abs(body.acceleration), n, name);
            const Vector taken = shown * w2 * body.centre1;
            const double open =
                std::abs(body.arm) * omega_open + std::abs(w2 * body.turn1) * body.arm_estimate.Error() + A_open;
            velocities.Add(std::abs(At(t_.VelXY, n, velocity) - taken), shown * open + 6 * kHalfPlace * std::abs(taken),
                           n, name);
        };
        compare(s.l2, 3, 6, 0, 0, "link 2");
        compare(s.l4, 4, 7, step.expected.omega4.error, 0, "link 4");
        compare(s.l3, 5, 5, step.expected.omega3.error, step.expected.velocity[0].Error(), "link 3");
    }

    /// A balance leaves their motion where that of the links was.
    void Compare_With_Counterweights(int stopped) {
        Worst velocities("", ""), accelerations("", "");
        for (const Step& step : steps_) {
            if (!step.pose.closes) continue;
            if (step.number >= stopped) break;
            const Solved s = Solve(m_, step, {m_.BerkMass, m_.BerkInertia, m_.BerkCG}, false);
            Compare_Centres(step, s, velocities, accelerations);
        }
        of_counterweights_ = !velocities.Fails() && !accelerations.Fails();
    }

    /// By how much the driving torque would be another if what is left out or taken otherwise were taken as it is.
    void Leave_Out(const Step& step, const Solved& s) {
        const int n = step.number;
        const Loads& l = s.loads;
        if (m_.FrictionForce != 0) {
            const double at_P = Dot(l.friction, step.pose.P1 - s.l3.centre1);
            friction_.Add_By_Design(0, s.T12.error, std::abs(at_P), n, "");
        }
        const Vector E3(m_.ExtForce3X, m_.ExtForce3Y), E4(m_.ExtForce4X, m_.ExtForce4Y);
        if (m_.Link1Angle != 0 && std::abs(E3) + std::abs(E4) > 0) {
            const Vector back = Toward(-m_.Link1Angle * kRadians);
            const Vector way3 = s.l3.centre1 + kQuarter * s.l3.turn1 * l.point3;
            const Vector way4 = s.l4.centre1 + kQuarter * s.l4.turn1 * l.point4;
            const double off = Dot(E3 * back - E3, way3) + Dot(E4 * back - E4, way4);
            directions_.Add_By_Design(0, s.T12.error, std::abs(off), n, "");
        }
        if (m_.TorqueImported) taken_.Add_By_Design(0, 0, std::abs(l.torque4), n, "");
    }

    void Tell(std::vector<Check>& checks) const {
        const auto tell = [&](const Worst& worst, const char* meaning, const std::string& design = "") {
            if (worst.Any()) checks.push_back(worst.Told(m_, meaning, design));
        };
        const auto tell_centres = [&](const Worst& worst, const char* meaning) {
            tell(worst, meaning);
            if (!worst.Fails() || !of_counterweights_) return;
            checks.back().verdict = Verdict::kByDesign;
            checks.back().meaning +=
                " A balance leaves those of the counterweights in their place, until the next run or solve.";
        };
        tell(power_,
             "Power in equals power out: the driving torque is what virtual work of inertia, loads and friction "
             "asks of the crank.");
        tell(pins_, "Each link is in balance: the pin forces are those of moments about A and O4.");
        tell(shaking_,
             "The shaking force is what the ground gets at O2 and O4, and what the momentum of the links and "
             "the loads leave.");
        tell(moment_, "The shaking moment follows from the forces at O4 and the driving torque.",
             "It is taken about the mass centre of link 4; about O2 the ground gets another, by so much.");
        tell(torques_, "The net torques on links 3 and 4 are those of inertia and loads.");
        tell_centres(centres_, "The mass centres move with their links.");
        tell_centres(centres_acc_, "The mass centres are accelerated with their links.");
        tell(stopped_, "Steps without forces.", "The solve stopped there, and the steps that follow have none.");
        tell(friction_, "Where friction acts.",
             "Friction acts at the mass centre of link 3, without a moment: at the coupler point, against whose motion "
             "it is, the driving torque would be another by so much.");
        tell(directions_, "Where external forces point.",
             "Their directions count from the ground link, which is turned: counted from the global frame, the driving "
             "torque would be another by so much.");
        tell(taken_, "The imported torque on link 4.",
             "It is taken as it stands in its file, with its sign and step by step, wherever link 4 is there.");
    }

    const LinkageModel& m_;
    const RunResults& t_;
    const std::vector<Step>& steps_;
    Worst power_{"Power in and out", m_.UnitLabel(9)}, pins_{"Pin forces", m_.UnitLabel(kForceLabel)};
    Worst shaking_{"Shaking force", m_.UnitLabel(kForceLabel)}, moment_{"Shaking moment", m_.UnitLabel(9)};
    Worst torques_{"Net torques", m_.UnitLabel(9)}, centres_{"Velocities of mass centres", m_.UnitLabel(4)};
    bool of_counterweights_{};
    Worst centres_acc_{"Accelerations of mass centres", m_.UnitLabel(5)};
    Worst friction_{"Moment of friction", m_.UnitLabel(9)}, directions_{"Directions of loads", m_.UnitLabel(9)};
    Worst stopped_{"Steps not solved", "steps"}, taken_{"Torque on link 4", m_.UnitLabel(9)};
};

}  // namespace

void Add_Forces(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks) {
    Forces(model, steps).Add(checks);
}

void Add_Balance(const LinkageModel& m, const std::vector<Step>& steps, std::vector<Check>& checks) {
    Worst centre("Balanced mass centre", m.UnitLabel(6)), shaking("Balanced shaking force", m.UnitLabel(kForceLabel));
    const double shown = Shown_Factor(m);
    const auto product = [&](int link) { return m.BerkMass(link) * m.BerkRadius(link) - m.MRNeeded(link); };
    const double off2 = product(2), off4 = product(4);
    double all = 0, moments = 0;
    for (const int link : {2, 3, 4}) {
        all += m.LinkMass(link) + m.BerkMass(link);
        moments += m.LinkMass(link) * std::abs(m.CG(link, 0)) + std::abs(m.MRNeeded(link)) +
                   std::abs(double{m.BerkMass(link)} * m.BerkRadius(link));
    }
    moments += m.LinkMass(3) * (m.L2 + m.CG(3, 0) * (m.L2 + m.L4) / m.L3);
    // Of the sums made here, which count where one mass is beyond all others.
    const double own_rounding = 0x1p-44 * std::max({m.L1, m.L2, m.L3, m.L4});
    Vector first, first_off;
    bool any = false;
    const int stopped = std::min(Stopped_At(m, steps, Solve_Record::Of_Links(m)),
                                 Stopped_At(m, steps, Solve_Record::Of_Counterweights(m)));
    for (const Step& step : steps) {
        if (!step.pose.closes) continue;
        const Solved own = Solve(m, step, {m.LinkMass, m.LinkInertia, m.CG}, true);
        const Solved weights = Solve(m, step, {m.BerkMass, m.BerkInertia, m.BerkCG}, false);
        Vector sum, momentum = Value(own.loads.force3) + Value(own.loads.force4);
        for (const Solved* s : {&own, &weights})
            for (const Body* body : {&s->l2, &s->l3, &s->l4}) {
                sum += body->mass * body->centre;
                momentum -= body->mass * body->acceleration;
            }
        const Vector off =
            off2 * Toward(step.pose.th2.angle + m.MRAngle(2)) + off4 * Toward(step.pose.th4.angle + m.MRAngle(4));
        if (!any) {
            first = sum;
            first_off = off;
            any = true;
        }
        if (all > 0)
            centre.Add_By_Design(std::abs(sum - first - (off - first_off)) / all * shown,
                                 (16 * kHalfPlace * moments / all + own_rounding) * shown,
                                 std::abs(off - first_off) / all * shown, step.number, "");
        if (step.number >= stopped) continue;
        const Estimate2 pins[] = {own.F12, own.F14, weights.F12, weights.F14};
        double open = 0;
        for (const Estimate2& pin : pins) open += pin.Error() + 4 * kHalfPlace * std::abs(Value(pin));
        shaking.Add(std::abs(At(m.RunTable.BalancedForce, step.number, 7) - momentum), open, step.number, "");
    }
    if (stopped <= m.NSteps) {
        Worst without("Steps not balanced", "steps");
        without.Add_By_Design(0, 0, m.NSteps + 1 - stopped, stopped, "");
        checks.push_back(without.Told(m, "Steps without the forces of counterweights.",
                                      "A solve stopped there, and the sums that follow lack what it has not found."));
    }
    if (centre.Any())
        checks.push_back(centre.Told(m, "The mass centre of links and counterweights stands still.",
                                     "The mass-radius products entered are not quite those needed."));
    if (shaking.Any())
        checks.push_back(shaking.Told(m,
                                      "The shaking force with counterweights is what the momentum of links and "
                                      "counterweights and the loads leave."));
}

}  // namespace verlink::checks
