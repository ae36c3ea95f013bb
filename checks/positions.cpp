// The nearest pose to each position on each circuit.
#include "checks/positions.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "checks/designs.h"
#include "checks/estimate.h"
#include "checks/pose.h"
#include "checks/worst.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"

namespace verlink {

namespace {

using checks::Pose;
using checks::Shape;
using checks::Toward;
using checks::Vector;

constexpr double kRadians = M_PI / 180;
constexpr const char* kCircuits[] = {"open", "crossed"};

/// A pose that is asked for, in the ground link's frame.
struct Wanted {
    Vector P;
    double th3;
};

double Wrapped(double radians) { return std::remainder(radians, 2 * M_PI); }

int Count_Of(const SynthesisData& m) { return m.SynPositions == 1 ? 2 : 3; }

Wanted In_Ground_Frame(const LinkageModel& m, const Asked_Pose& asked) {
    const double ground = m.Link1Angle * kRadians;
    return {Vector(asked.x, asked.y) * Toward(-ground), asked.coupler - ground};
}

Asked_Pose Asked_At(const LinkageModel& m, int position) {
    const Vector P1 = m.SpecifiedPivots ? Vector(m.P1x, m.P1y) : Vector{}, O2(m.O2x, m.O2y);
    const Vector moved = position == 2 ? Vector(m.P21x, m.P21y) : position == 3 ? Vector(m.P31x, m.P31y) : Vector{};
    const double turned = position == 2 ? double{m.SynAlpha2} : position == 3 ? double{m.SynAlpha3} : 0.0;
    const double coupler = std::arg(Vector(m.SynZx, m.SynZy)) - m.Delta * kRadians + turned * kRadians;
    const Vector P = P1 + moved - O2;
    return {P.real(), P.imag(), coupler};
}

double Size_Of(const Shape& g) { return std::max({g.L1, g.L2, g.L3, g.L4, g.Rpa}); }

/// What counts as the whole distance of a pose.
double Distance(const Shape& g, const Wanted& wanted, double crank) {
    const Pose pose = checks::Pose_At(g, crank);
    if (!pose.closes) return HUGE_VAL;
    return std::hypot(std::abs(pose.P - wanted.P), std::max(g.L3, g.Rpa) * Wrapped(pose.th3.angle - wanted.th3));
}

/// Around a turn and then ever closer; exactly where the pose itself puts the crank, if it is there.
double Nearest_Crank(const Shape& g, const Wanted& wanted) {
    double best = std::arg(wanted.P - std::polar(g.Rpa, wanted.th3 + g.delta));
    double least = Distance(g, wanted, best);
    if (least < 1e-6 * Size_Of(g)) return best;
    constexpr int kAround = 720;
    std::vector<std::pair<double, double>> around{{least, best}};
    for (int part = 0; part < kAround; ++part) {
        const double crank = 2 * M_PI * part / kAround;
        around.emplace_back(Distance(g, wanted, crank), crank);
    }
    std::tie(least, best) = std::ranges::min(around);
    for (double stride = 2 * M_PI / kAround; best + stride > best; stride /= 2)
        for (const double crank : {best - stride, best + stride}) {
            const double distance = Distance(g, wanted, crank);
            if (distance >= least) continue;
            least = distance;
            best = crank;
        }
    return best;
}

/// Roundings of four lengths turn the coupler the more, the flatter the joint at B is; two of angles add to it.
void Allow_For_Boxes(const LinkageModel& m, const Shape& g, const Wanted& wanted, double sine, Approach& a) {
    constexpr double kHalfAngle = 0.005 * kRadians;
    const double half = 0.5 * std::pow(10.0, -m.DecLengthShown) / Shown_Factor(m);
    const double flat = std::max(sine, std::sqrt(4 * half / std::min(g.L3, g.L4)));
    a.boxes_angle = 4 * half / g.L3 / flat + 2 * kHalfAngle;
    a.boxes = 5 * half + (g.Rpa + g.L3) * a.boxes_angle + std::abs(wanted.P) * kHalfAngle;
}

Approach Approach_To(const LinkageModel& m, Shape g, const Wanted& wanted) {
    Approach a;
    a.crank = Nearest_Crank(g, wanted);
    const Pose pose = checks::Pose_At(g, a.crank);
    a.closes = pose.closes;
    if (!a.closes) return a;
    a.place = std::abs(pose.P - wanted.P);
    a.angle = std::abs(Wrapped(pose.th3.angle - wanted.th3));
    // The lengths are singles, and a change of one turns the coupler the more, the flatter the joint at B is.
    const double part = m.SpecifiedPivots ? 1e-4 : 16 * checks::kHalfPlace;
    const double lengths = g.L1 + g.L2 + g.L3 + g.L4 + g.Rpa + std::abs(wanted.P);
    // In line, a change goes into the angle by its root.
    const double joint = std::abs(std::sin(pose.th4.angle - pose.th3.angle));
    const double sine = std::max(joint, std::sqrt(part * lengths / std::min(g.L3, g.L4)));
    a.expected_angle = part * (lengths / g.L3 / sine + 2 * M_PI);
    a.expected = part * lengths + (g.Rpa + g.L3) * a.expected_angle;
    Allow_For_Boxes(m, g, wanted, joint, a);
    return a;
}

std::string Number_And_Unit(double value, int decimals, const std::string& unit) {
    return Text_Of(FNRound(value, decimals)) + " " + unit;
}

std::string Miss(const LinkageModel& m, const Reached_Position& position) {
    const Approach& a = position.Nearest();
    const std::string number = std::to_string(position.number);
    if (!a.closes) return "closes nowhere on its way to position " + number;
    std::string by;
    if (a.place > a.expected) by = Number_And_Unit(a.place * Shown_Factor(m), 2, m.UnitLabel(6));
    if (a.angle > a.expected_angle) by += (by.empty() ? "" : " and ") + Number_And_Unit(a.angle / kRadians, 2, "deg");
    return "misses position " + number + " by " + by + " on either circuit";
}

/// Whether the circuit can go from one crank angle to another without being taken apart; the way is in turns of `sign`.
bool Goes(const Shape& g, double from, double way) {
    constexpr int kSteps = 360;
    for (int i = 1; i < kSteps; ++i)
        if (!checks::Pose_At(g, from + way * i / kSteps).closes) return false;
    return true;
}

std::string Order(const LinkageModel& m, const std::vector<Reached_Position>& positions, int circuit) {
    const Shape g = checks::Shape_Of(m, m);  // both circuits close at the same crank angles
    const double first = positions[0].circuits[static_cast<std::size_t>(circuit)].crank;
    const bool backwards = m.Omega2Input < 0;
    for (const bool clockwise : {backwards, !backwards}) {
        std::vector<std::pair<double, int>> ways;
        for (const Reached_Position& p : positions) {
            const double on = p.circuits[static_cast<std::size_t>(circuit)].crank - first;
            const double way = Wrapped(clockwise ? -on : on);
            ways.emplace_back(way - 2 * M_PI * std::floor(way / (2 * M_PI)), p.number);
        }
        ways.front().first = 0;
        std::ranges::sort(ways);
        const double whole = ways.back().first;
        if (!Goes(g, first, clockwise ? -whole : whole)) continue;
        std::string order;
        for (const auto& [way, number] : ways) order += (order.empty() ? "" : ", ") + std::to_string(number);
        return ", in the order " + order +
               (clockwise ? " as the crank turns clockwise" : " as the crank turns counterclockwise");
    }
    return ", but cannot move from one to the other";
}

}  // namespace

const Approach& Reached_Position::Nearest() const {
    const auto far = [](const Approach& a) {
        return a.closes ? std::max(a.place / a.expected, a.angle / a.expected_angle) : HUGE_VAL;
    };
    return far(circuits[1]) < far(circuits[0]) ? circuits[1] : circuits[0];
}

Reached_Position Approach_To(const LinkageModel& m, int number, const Asked_Pose& asked) {
    Reached_Position position;
    position.number = number;
    for (std::size_t circuit = 0; circuit <= 1; ++circuit) {
        Shape g = checks::Shape_Of(m, m);
        g.open = circuit == 0;
        position.circuits[circuit] = Approach_To(m, g, In_Ground_Frame(m, asked));
    }
    return position;
}

std::vector<Reached_Position> Positions_Reached(const LinkageModel& m) {
    std::vector<Reached_Position> positions;
    for (int number = 1; number <= Count_Of(m); ++number)
        positions.push_back(Approach_To(m, number, Asked_At(m, number)));
    return positions;
}

bool Misses_One(const std::vector<Reached_Position>& positions) {
    return std::ranges::any_of(positions, [](const Reached_Position& p) {
        return std::ranges::none_of(p.circuits, [](const Approach& a) { return a.Reaches(); });
    });
}

int Circuit_With_All(const std::vector<Reached_Position>& positions) {
    for (const std::size_t circuit : {0U, 1U})
        if (std::ranges::all_of(positions, [&](const Reached_Position& p) { return p.circuits[circuit].Reaches(); }))
            return static_cast<int>(circuit);
    return -1;
}

std::string Words_Of_Positions(const LinkageModel& m, const std::vector<Reached_Position>& positions) {
    std::string words;
    const auto add = [&words](const std::string& more) { words += (words.empty() ? "" : "; ") + more; };
    for (const Reached_Position& p : positions)
        if (std::ranges::none_of(p.circuits, [](const Approach& a) { return a.Reaches(); })) add(Miss(m, p));
    if (!words.empty()) return words;
    const int all = Circuit_With_All(positions);
    if (all >= 0)
        return "reaches all positions on the " + std::string(kCircuits[all]) + " circuit" + Order(m, positions, all);
    for (const Reached_Position& p : positions)
        add("reaches position " + std::to_string(p.number) + " on the " +
            (p.circuits[0].Reaches() ? kCircuits[0] : kCircuits[1]) + " circuit");
    return words;
}

namespace checks {

bool Is_Synthesized(const LinkageModel& m) {
    if (m.SynPositions < 1 || m.SynPositions > 3) return false;
    if (m.Synthesized) return true;
    const Vector W(m.SynWx, m.SynWy), Z(m.SynZx, m.SynZy), U(m.SynUx, m.SynUy), S(m.SynSx, m.SynSy);
    const auto same = [](double length, Vector v) { return v != Vector{} && Single(std::abs(v)) == Single(length); };
    return same(m.L2, W) && same(m.L4, U) && same(m.L3, Z - S) && same(m.Rpa, Z);
}

void Add_Positions(const LinkageModel& m, std::vector<Check>& checks) {
    if (!Is_Synthesized(m)) return;
    const std::vector<Reached_Position> positions = Positions_Reached(m);
    Worst places("Positions of the synthesis", m.UnitLabel(6)), angles("Turns of the synthesis", m.UnitLabel(1));
    const double shown = Shown_Factor(m);
    const int all = Circuit_With_All(positions);
    constexpr const char* kPositions[] = {"", "position 1", "position 2", "position 3"};
    for (const Reached_Position& p : positions) {
        const Approach& a = all >= 0 ? p.circuits[static_cast<std::size_t>(all)] : p.Nearest();
        const double place = a.closes ? a.place : HUGE_VAL, angle = a.closes ? a.angle : HUGE_VAL;
        places.Add(place * shown, a.expected * shown, -1, kPositions[p.number]);
        angles.Add(angle / kRadians, a.expected_angle / kRadians, -1, kPositions[p.number]);
    }
    const std::string words = "The linkage " + Words_Of_Positions(m, positions) + ".";
    checks.push_back(places.Told(m, words));
    checks.push_back(angles.Told(m, "The coupler turns by the angles given between the positions."));
    if (Misses_One(positions) || all >= 0) return;
    for (Check* check : {&checks[checks.size() - 2], &checks.back()}) {
        check->verdict = Verdict::kByDesign;
        check->meaning += " The synthesis does not tell circuits apart.";
    }
}

}  // namespace checks

}  // namespace verlink
