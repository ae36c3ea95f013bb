// Arrows, poles, curvature, names and ghosts from the table of the run.
#include "animation/overlays.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <string>
#include <vector>

#include "core/joints.h"
#include "core/numeric.h"

namespace verlink {

namespace {

using platform::Color;
using platform::Overlay;
using Kind = Overlay::Mark::Kind;

constexpr Color Mixed(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

// Dark enough for words on the white of the picture, and apart from the drawing's own.
constexpr Color kVelocity = Mixed(0, 90, 190), kAcceleration = Mixed(200, 30, 0), kForce = Mixed(128, 0, 128);
constexpr Color kShaking = Mixed(0, 0, 0), kPole = Mixed(150, 85, 0), kBend = Mixed(0, 115, 100);
constexpr Color kLetters = Mixed(40, 40, 40), kGhost = Mixed(0, 0, 60);

/// Parts of the window: the longest arrow of a run; how far a ray may lead; where a curve counts as straight.
constexpr double kLongest = 0.28, kReach = 30, kStraight = 1e4;

/// Rows of `PinForce`, and whose joint they are drawn at.
constexpr int kOnCrankAtA = 0, kOnCouplerAtB = 1, kOnCrankAtO2 = 5, kOnRockerAtO4 = 6, kShakingRow = 7;
constexpr int kPins[] = {kOnCrankAtA, kOnCouplerAtB, kOnCrankAtO2, kOnRockerAtO4};

template <class Table>
Spot Entry(const Table& table, int step, int row) {
    return {table(step, row, 0), table(step, row, 1)};
}

/// Closes, within a run that the table holds.
bool Closes(const LinkageModel& model, int step) {
    return step >= 0 && step <= model.NSteps && model.RunTable.Assembled(step);
}

/// In the frame of the ground link.
Joints Joints_At(const LinkageModel& model, int step) {
    const auto& points = model.RunTable.PointXY;
    return {{},
            {model.L1 * Shown_Factor(model), 0},
            Entry(points, step, 0),
            Entry(points, step, 1),
            Entry(points, step, 2)};
}

/// What nearly all of them stay below. A few that are far out, near a toggle, do not make the rest too small to see.
double Usual_Most(std::vector<double>& lengths) {
    if (lengths.empty()) return 0;
    const double most = *std::max_element(lengths.begin(), lengths.end());
    const auto at = lengths.begin() + static_cast<std::ptrdiff_t>(static_cast<double>(lengths.size() - 1) * 0.95);
    std::nth_element(lengths.begin(), at, lengths.end());
    constexpr double kFarOut = 3;
    return *at > 0 ? std::min(most, kFarOut * *at) : most;
}

template <class Table, class Rows>
double Scale_Of(const LinkageModel& model, const Table& table, const Rows& rows) {
    std::vector<double> lengths;
    for (int step = 0; step <= model.NSteps; ++step)
        if (model.RunTable.Assembled(step))
            for (const int row : rows) lengths.push_back(std::abs(Entry(table, step, row)));
    const double window = double{model.AnimMax} - model.AnimMin;
    const double scale = Usual_Most(lengths) / (kLongest * window);
    return std::isfinite(scale) ? scale : 0;
}

/// Parts of the window that a legend takes.
constexpr double kLegendWide = 0.45, kLegendHigh = 0.2;

Overlay::Corner Emptiest(const LinkageModel& model) {
    constexpr int kEnough = 360;
    const double window = double{model.AnimMax} - model.AnimMin;
    const Spot turn = std::polar(1.0, double{model.Link1AngleRad});
    const int by = std::max(1, model.NSteps / kEnough);
    std::array met{0, 0, 0, 0};
    for (int step = 0; step <= model.NSteps; step += by) {
        if (!model.RunTable.Assembled(step)) continue;
        const Joints joints = Joints_At(model, step);
        for (const Spot local : {joints.O2, joints.O4, joints.A, joints.B, joints.P}) {
            const Spot at = local * turn;
            const double across = (at.real() - model.AnimMin) / window, up = (at.imag() - model.AnimMin) / window;
            const bool left = across<kLegendWide, right = across> 1 - kLegendWide;
            const bool top = up > 1 - kLegendHigh, bottom = up < kLegendHigh;
            met[0] += top && left;
            met[1] += top && right;
            met[2] += bottom && left;
            met[3] += bottom && right;
        }
    }
    constexpr Overlay::Corner kCorners[] = {Overlay::Corner::kTopLeft, Overlay::Corner::kTopRight,
                                            Overlay::Corner::kBottomLeft, Overlay::Corner::kBottomRight};
    return kCorners[std::min_element(met.begin(), met.end()) - met.begin()];
}

/// One position as it is laid over the picture.
class Layer {
   public:
    Layer(const LinkageModel& model, int step, const View_Wishes& wishes, const Overlay_Scales& scales)
        : model_(model),
          wishes_(wishes),
          scales_(scales),
          step_(step),
          joints_(Joints_At(model, step)),
          turn_(model.Link1Angle == 0 ? Spot{1, 0} : std::polar(1.0, double{model.Link1AngleRad})),
          window_(double{model.AnimMax} - model.AnimMin) {}

    Overlay Make() {
        overlay_.corner = scales_.legend;
        if (wishes_.ghosts) Ghosts();
        Keep_Clear_Of_Links();
        if (wishes_.poles) Poles();
        if (wishes_.curvature) Bend();
        if (wishes_.velocities)
            Motion(model_.RunTable.VelXY, scales_.velocity, "velocity", 4, kVelocity, Kind::kOpenArrow);
        if (wishes_.accelerations)
            Motion(model_.RunTable.AccXY, scales_.acceleration, "acceleration", 5, kAcceleration, Kind::kArrow);
        if (wishes_.pin_forces) Pin_Forces();
        if (wishes_.shaking_force) Shaking_Force();
        if (wishes_.names) Names();
        return std::move(overlay_);
    }

   private:
    /// From the frame of the ground link to the drawing's coordinates.
    platform::Point Drawn(Spot local) const {
        const Spot at = local * turn_;
        return {at.real(), model_.FlipSum - at.imag()};
    }
    platform::Point Drawn_Way(Spot local) const {
        const Spot way = local * turn_;
        return {way.real(), -way.imag()};
    }

    void Line(Kind kind, Spot from, Spot to, Color color) {
        overlay_.marks.push_back({kind, Drawn(from), Drawn(to), color});
    }
    void Ring(Spot at, Color color) { overlay_.marks.push_back({Kind::kRing, Drawn(at), {}, color}); }
    void Name(const std::string& text, Spot at, Spot away, Color color, double radius = 0) {
        overlay_.names.push_back({text, Drawn(at), Drawn_Way(away), color, radius});
    }
    void Say(const std::string& text, Color color) { overlay_.legend.push_back({.text = text, .color = color}); }

    void Links(const Joints& j, Kind kind, Color color) {
        for (const auto& [from, to] : {std::pair{j.O2, j.A}, std::pair{j.A, j.B}, std::pair{j.B, j.O4},
                                       std::pair{j.A, j.P}, std::pair{j.P, j.B}})
            Line(kind, from, to, color);
    }

    /// Where the joints are as near as can be seen.
    bool Alike(const Joints& one, const Joints& other) const {
        constexpr double kSeen = 1e-4;
        return std::abs(one.A - other.A) + std::abs(one.B - other.B) < kSeen * window_;
    }

    /// One ghost where a run ends as it began, and none where the linkage itself stands.
    void Ghosts() {
        std::optional<Joints> drawn;
        for (const int end : {scales_.first, scales_.last}) {
            if (!Closes(model_, end)) continue;
            const Joints ghost = Joints_At(model_, end);
            if (Alike(ghost, joints_) || (drawn && Alike(ghost, *drawn))) continue;
            Links(ghost, Kind::kFaint, kGhost);
            drawn = ghost;
        }
    }

    void Keep_Clear_Of_Links() { Links(joints_, Kind::kNothing, 0); }

    /// From where a link ends to the pole on its line, or to the edge where that is too far. Along the ground, where
    /// nothing is drawn, from its other end.
    void Ray(Spot from, Spot to, const Pole& pole, bool drawn) {
        const double reach = kReach * window_;
        const Spot along = (to - from) / std::abs(to - from);
        if (pole.at_infinity) {
            Line(Kind::kDashes, from, from - reach * along, kPole);
            Line(Kind::kDashes, drawn ? to : from, to + reach * along, kPole);
            return;
        }
        const double at = ((pole.at - from) * std::conj(along)).real(), length = std::abs(to - from);
        const Spot end = from + std::clamp(at, -reach, reach) * along;
        const bool before = at<0, behind = at> length;
        if (drawn && !before && !behind) return;
        const bool from_first = drawn ? before : !before;
        Line(Kind::kDashes, from_first ? from : to, end, kPole);
    }

    void Show_Pole(const std::string& name, const std::optional<Pole>& pole, std::pair<Spot, Spot> one,
                   std::pair<Spot, Spot> other, bool other_drawn) {
        if (!pole) return;
        Ray(one.first, one.second, *pole, true);
        Ray(other.first, other.second, *pole, other_drawn);
        if (pole->at_infinity || std::abs(pole->at) > kReach * window_) return;
        Ring(pole->at, kPole);
        Name(name, pole->at, pole->at - (joints_.A + joints_.B) / 2.0, kPole);
    }

    void Poles() {
        Show_Pole("I13", Pole_13(joints_), {joints_.O2, joints_.A}, {joints_.O4, joints_.B}, true);
        Show_Pole("I24", Pole_24(joints_), {joints_.A, joints_.B}, {joints_.O2, joints_.O4}, false);
    }

    void Bend() {
        const std::string words = "Radius of curvature at P: ";
        const std::optional<Curvature> bend = Curvature_At_P(joints_);
        if (!bend) return Say(words + "none here", kBend);
        if (bend->radius > kStraight * window_) {
            const double reach = kReach * window_;
            Line(Kind::kLine, joints_.P - reach * bend->along, joints_.P + reach * bend->along, kBend);
            return Say(words + "infinite", kBend);
        }
        overlay_.marks.push_back({Kind::kCircle, Drawn(bend->centre), {}, kBend, bend->radius});
        Line(Kind::kDashes, joints_.P, bend->centre, kBend);
        Ring(bend->centre, kBend);
        Name("C", bend->centre, bend->centre - joints_.P, kBend);
        Say(words + FNRoundStr(bend->radius, model_.DecLengthShown) + " " + model_.UnitLabel(6), kBend);
    }

    /// A line of the legend; false where there is no arrow of that kind in the whole run.
    bool Scale(double per_world, const std::string& what, const std::string& unit, Color color, Kind kind) {
        if (per_world > 0) {
            overlay_.legend.push_back(
                {.text = what, .color = color, .per_world = per_world, .unit = unit, .open = kind == Kind::kOpenArrow});
            return true;
        }
        Say(what + ": 0 " + unit, color);
        return false;
    }

    template <class Table>
    void Arrow(const Table& table, int row, Spot at, double per_world, Color color, Kind kind) {
        Line(kind, at, at + Entry(table, step_, row) / per_world, color);
    }

    template <class Table>
    void Motion(const Table& table, double per_world, const std::string& what, int unit, Color color, Kind kind) {
        if (!Scale(per_world, what, model_.UnitLabel(unit), color, kind)) return;
        Arrow(table, 0, joints_.A, per_world, color, kind);
        Arrow(table, 1, joints_.B, per_world, color, kind);
        Arrow(table, 2, joints_.P, per_world, color, kind);
    }

    bool Forces(double per_world, const std::string& what, Color color) {
        if (model_.DynamicsDone) return Scale(per_world, what, model_.UnitLabel(10), color, Kind::kArrow);
        Say(what + ": not solved", color);
        return false;
    }

    void Pin_Forces() {
        if (!Forces(scales_.pin_force, "pin force", kForce)) return;
        const Spot at[] = {joints_.A, joints_.B, joints_.O2, joints_.O4};
        for (int i = 0; i < 4; ++i)
            Arrow(model_.RunTable.PinForce, kPins[i], at[i], scales_.pin_force, kForce, Kind::kArrow);
    }

    void Shaking_Force() {
        if (!Forces(scales_.shaking_force, "shaking force", kShaking)) return;
        Arrow(model_.RunTable.PinForce, kShakingRow, joints_.O2, scales_.shaking_force, kShaking, Kind::kArrow);
    }

    /// Away from the links that meet there.
    void Joint(const std::string& name, Spot at, double radius, std::initializer_list<Spot> others) {
        Spot away;
        for (const Spot other : others)
            if (other != at) away -= (other - at) / std::abs(other - at);
        Name(name, at, away, kLetters, radius);
    }

    void Names() {
        const Joints& j = joints_;
        Joint("O2", j.O2, model_.PivotRadius, {j.A, j.O4});
        Joint("O4", j.O4, model_.PivotRadius, {j.B, j.O2});
        Joint("A", j.A, model_.PinRadius, {j.O2, j.B, j.P});
        Joint("B", j.B, model_.PinRadius, {j.A, j.O4, j.P});
        Joint("P", j.P, model_.PinRadius, {j.A, j.B});
    }

    const LinkageModel& model_;
    const View_Wishes& wishes_;
    const Overlay_Scales& scales_;
    int step_;
    Joints joints_;
    Spot turn_;
    double window_;
    Overlay overlay_;
};

}  // namespace

Overlay_Scales Find_Scales(const LinkageModel& model, const View_Wishes& wishes) {
    Overlay_Scales scales;
    const RunResults& run = model.RunTable;
    constexpr int kABP[] = {0, 1, 2}, kShakingAlone[] = {kShakingRow};
    if (wishes.velocities) scales.velocity = Scale_Of(model, run.VelXY, kABP);
    if (wishes.accelerations) scales.acceleration = Scale_Of(model, run.AccXY, kABP);
    if (model.DynamicsDone && wishes.pin_forces) scales.pin_force = Scale_Of(model, run.PinForce, kPins);
    if (model.DynamicsDone && wishes.shaking_force) scales.shaking_force = Scale_Of(model, run.PinForce, kShakingAlone);
    scales.legend = Emptiest(model);
    for (scales.first = 0; scales.first < model.NSteps && !run.Assembled(scales.first);) ++scales.first;
    for (scales.last = model.NSteps; scales.last > 0 && !run.Assembled(scales.last);) --scales.last;
    return scales;
}

Overlay Overlay_At(const LinkageModel& model, int step, const View_Wishes& wishes, const Overlay_Scales& scales) {
    Overlay overlay;
    if (Closes(model, step)) overlay = Layer(model, step, wishes, scales).Make();
    if (wishes.grid) overlay.grid = Overlay::Grid{model.FlipSum};
    return overlay;
}

}  // namespace verlink
