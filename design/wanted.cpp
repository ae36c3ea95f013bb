// Told apart by the dyads of the synthesis data, and asked of the checks' formulas.
#include "design/wanted.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "checks/positions.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "design/task.h"
#include "design/task_units.h"

namespace verlink::design {

namespace {

/// What conversions and files round away, as a part of a length; of an angle, degrees.
constexpr double kRounded = 2e-4, kRoundedAngle = 2e-3;

bool Same(Point a, Point b, double measure) { return Distance(a, b) <= kRounded * measure; }

double Lengths(const LinkageModel& m) { return double{m.L1} + m.L2 + m.L3 + m.L4; }

struct Dyads {
    Point W, Z, U, S;
};

/// Of the linkage, with the directions that the synthesis data have. A file holds these and no vectors.
Dyads Dyads_As_Directed(const LinkageModel& m) {
    const auto along = [](double length, double degrees) { return std::polar(length, degrees * kDegree); };
    Dyads d{along(m.L2, m.SynTheta), along(m.Rpa, m.SynPhi), along(m.L4, m.SynSigma), {}};
    d.S = d.Z - along(m.L3, m.SynPhi - m.Delta);
    return d;
}

/// Whether they hang together as the linkage does: from O2 and from O4 to the same coupler point.
bool Close(const LinkageModel& m, const Dyads& d) {
    const Point ground = std::polar<double>(m.L1, m.Link1Angle * kDegree);
    return Same(d.W + d.Z, ground + d.U + d.S, Lengths(m));
}

/// Most of the lengths that a hand has not changed are those of the dyads.
bool Is_Of(const LinkageModel& m, const Dyads& d) {
    constexpr int kLeast = 2;
    const double boxes = std::pow(10.0, -m.DecLengthShown) / Shown_Factor(m);
    const std::pair<Point, double> lengths[] = {
        {d.W, m.L2}, {d.Z - d.S, m.L3}, {d.U, m.L4}, {d.Z, m.Rpa}, {d.W + d.Z - d.U - d.S, m.L1}};
    return std::ranges::count_if(lengths, [boxes](const auto& pair) {
               return std::abs(std::abs(pair.first) - pair.second) <= boxes + kRounded * std::abs(pair.first);
           }) >= kLeast;
}

/// From O2 to the coupler point in position 1, and the coupler's direction there; none for another linkage.
std::optional<std::pair<Point, Point>> Begins_At(const LinkageModel& m) {
    Dyads dyads{{m.SynWx, m.SynWy}, {m.SynZx, m.SynZy}, {m.SynUx, m.SynUy}, {m.SynSx, m.SynSy}};
    const bool kept = dyads.W != Point{} && dyads.U != Point{};
    if (!kept) dyads = Dyads_As_Directed(m);
    if (kept ? !Is_Of(m, dyads) : !Close(m, dyads)) return {};
    return std::pair{dyads.W + dyads.Z, dyads.Z - dyads.S};
}

bool Is_Task_Of(const LinkageModel& m, const std::vector<Place>& places, double factor, double span) {
    const std::pair<Point, double> given[] = {{{m.P21x, m.P21y}, m.SynAlpha2}, {{m.P31x, m.P31y}, m.SynAlpha3}};
    for (std::size_t i = 1; i < std::min<std::size_t>(places.size(), 3); ++i) {
        const auto& [moved, turned] = given[i - 1];
        if (!Same((places[i].at - places[0].at) / factor, moved, span)) return false;
        if (std::abs(std::remainder(places[i].angle - places[0].angle - turned, 360)) > kRoundedAngle) return false;
    }
    return true;
}

/// From O2, global frame, stored length.
Point Coupler_Point(const LinkageModel& m, int step) {
    const auto& at = m.RunTable.PointXY;
    return std::polar(1 / Shown_Factor(m), m.Link1Angle * kDegree) * Point(at(step, 2, 0), at(step, 2, 1));
}

/// Whether the run has the crank between two of its steps that close. At its ends it may lack what lengths were rounded
/// by, of the crank's turn and of the coupler point's way, but no more than that can be seen: a coupler as short as
/// what is rounded swings far in that turn.
bool Run_Has(const LinkageModel& m, const Approach& approach, Point wanted) {
    constexpr double kSlack = 0.01, kMost = 1, kFullTurn = 360, kNear = 5e-3;
    const double near = kNear * (Lengths(m) + m.Rpa);
    const double at = approach.crank / kDegree + m.Link1Angle;
    const auto wrapped = [](double degrees) { return std::remainder(degrees, kFullTurn); };
    for (int step = 0; step <= m.NSteps; ++step) {
        if (!m.RunTable.Assembled(step)) continue;
        const double here = m.RunTable.Theta(step, 0), way = wrapped(at - here);
        const double off = Distance(Coupler_Point(m, step), wanted);
        if (std::abs(way) <= kMost && off <= (std::abs(way) <= kSlack ? near : std::min(near, approach.boxes)))
            return true;
        if (step == m.NSteps || !m.RunTable.Assembled(step + 1)) continue;
        const double stride = wrapped(m.RunTable.Theta(step + 1, 0) - here);
        if (way * stride > 0 && std::abs(way) <= std::abs(stride)) return true;
    }
    return false;
}

void Ask(const LinkageModel& m, double coupler, Wanted& wanted) {
    const Reached_Position reached = Approach_To(m, wanted.number, {wanted.at.real(), wanted.at.imag(), coupler});
    const std::size_t in_force = m.CircuitSign == -1 ? 0 : 1;
    const Approach& here = reached.circuits[in_force];
    wanted.off = here.closes ? here.place : HUGE_VAL;
    wanted.askew = here.closes ? here.angle / kDegree : HUGE_VAL;
    if (here.Reaches_As_Shown())
        wanted.is = Run_Has(m, here, wanted.at) ? Wanted::Is::kPassed : Wanted::Is::kBeyondRun;
    else
        wanted.is =
            reached.circuits[1 - in_force].Reaches_As_Shown() ? Wanted::Is::kOnOtherCircuit : Wanted::Is::kMissed;
}

/// By how much, in the decimals that are shown; empty where these are zeros, or where the linkage does not close.
std::string Amount(const LinkageModel& m, double off, double askew) {
    if (!std::isfinite(off)) return "";
    const double place = FNRound(off * Shown_Factor(m), m.DecLengthShown), angle = FNRound(askew, 2);
    if (place == 0 && angle == 0) return "";
    return Text_Of(place) + " " + m.UnitLabel(6) + ", " + Text_Of(angle) + " deg";
}

}  // namespace

std::vector<Wanted> Positions_Wanted(const LinkageModel& m) {
    Task task;
    std::string fault;
    if (m.DesignTask.empty() || !Read_Task(m.DesignTask, task, fault)) return {};
    task = In_Units(task, m.Units);
    const double factor = Shown_Factor(m);
    const std::vector<Place> places = Absolute_Positions(task);
    const auto begin = Begins_At(m);
    if (!begin || !Is_Task_Of(m, places, factor, Span_Of(task) / factor)) return {};
    std::vector<Wanted> all;
    for (const Place& place : places) {
        Wanted wanted;
        wanted.number = static_cast<int>(all.size()) + 1;
        wanted.at = begin->first + (place.at - places[0].at) / factor;
        wanted.angle = place.angle;
        Ask(m, std::arg(begin->second) + (place.angle - places[0].angle) * kDegree, wanted);
        all.push_back(wanted);
    }
    return all;
}

std::vector<std::string> Words_Of(const LinkageModel& m, const std::vector<Wanted>& wanted) {
    constexpr const char* kWords[] = {"passed", "on the other circuit", "beyond the run"};
    std::vector<std::string> lines;
    for (int is = 0; is < 3; ++is) {
        std::string numbers;
        double off = 0, askew = 0;
        for (const Wanted& w : wanted) {
            if (static_cast<int>(w.is) != is) continue;
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(w.number);
            off = std::max(off, w.off);
            askew = std::max(askew, w.askew);
        }
        if (numbers.empty()) continue;
        const bool one = numbers.find(',') == std::string::npos;
        const std::string within = is == 0 ? Amount(m, off, askew) : "";
        lines.push_back((one ? "position " : "positions ") + numbers + " " + kWords[is] +
                        (within.empty() ? "" : " within " + within));
    }
    for (const Wanted& w : wanted) {
        if (w.is != Wanted::Is::kMissed) continue;
        const std::string by = Amount(m, w.off, w.askew);
        lines.push_back("position " + std::to_string(w.number) + " missed" + (by.empty() ? "" : " by " + by));
    }
    return lines;
}

}  // namespace verlink::design
