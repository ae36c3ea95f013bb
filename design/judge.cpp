// The questions that a linkage is asked, in turn.
#include "design/judge.h"

#include <algorithm>

namespace verlink::design {

namespace {

/// Below this a linkage jams, whatever a task allows; degrees.
constexpr double kJams = 2;
/// Lengths that differ by more have no digits in common.
constexpr double kUnlike = 200;
/// A crank that turns less between positions stands; radians.
constexpr double kStands = 1e-3;
/// What seven digits may be off after a solution, in lengths of the linkage, and degrees.
constexpr double kDigits = 2e-5, kDigitsDegrees = 2e-3;

/// What stays on each circuit of a Grashof linkage: the side to which the joint opens that has the shortest link
/// neither beside nor in it.
bool Side_Of_Circuit(const Links& links, Point ground, Point crank, Point coupler, Point rocker) {
    const double shortest = std::min({links.L1, links.L2, links.L3, links.L4});
    return links.L1 == shortest || links.L2 == shortest ? Cross(coupler, rocker) > 0 : Cross(ground, crank) > 0;
}

}  // namespace

struct Judge::Case {
    const FourBar& linkage;
    Links links;
    Judgement& j;
    std::array<Point, 5> A{}, B{};

    void Refuse(Refusal refusal, double amount = 0) const {
        j.refusal = refusal;
        j.amount = amount;
        j.from = j.to = 0;
    }
    void Refuse_Between(Refusal refusal, std::size_t from, std::size_t to) const {
        Refuse(refusal);
        j.from = static_cast<int>(from);
        j.to = static_cast<int>(to);
    }
};

Judge::Judge(const Task& task)
    : task_(task), span_(Span_Of(task)), carried_(Carried_Through(Absolute_Positions(task))) {}

Judgement Judge::Of(const FourBar& linkage) const {
    Judgement judgement;
    Case c{linkage, Links_Of(linkage), judgement};
    for (std::size_t i = 0; i < carried_.size(); ++i) {
        c.A[i] = carried_[i].Of(linkage.crank.moving);
        c.B[i] = carried_[i].Of(linkage.other.moving);
    }
    void (Judge::*const questions[])(Case&) const = {&Judge::Ask_Links,  &Judge::Ask_Pivots, &Judge::Ask_Circuits,
                                                     &Judge::Ask_Stroke, &Judge::Ask_Digits, &Judge::Score};
    for (const auto question : questions) {
        (this->*question)(c);
        if (!judgement.Good()) break;
    }
    return judgement;
}

void Judge::Ask_Links(Case& c) const {
    const auto [shortest, longest] = std::minmax({c.links.L1, c.links.L2, c.links.L3, c.links.L4});
    // Beyond doubles' own roundings of a length that a given point leaves.
    constexpr double kSlack = 1e-9;
    const bool is_length = std::isfinite(longest) && shortest > kSlack * span_;
    if (!is_length || shortest < task_.shortest * (1 - kSlack))
        return c.Refuse(Refusal::kLength, is_length ? shortest : 0);
    if (longest > task_.longest * (1 + kSlack)) return c.Refuse(Refusal::kLength, longest);
    if (longest > kUnlike * shortest) return c.Refuse(Refusal::kUnlike, longest / shortest);
    c.j.proportion = longest / shortest;
}

void Judge::Ask_Pivots(Case& c) const {
    const auto fits = [](const Side& side, const Dyad& dyad) {
        return side.fixed.Holds(dyad.fixed) && side.moving.Holds(dyad.moving);
    };
    const bool left = c.linkage.crank_is_left;
    if (!fits(left ? task_.left : task_.right, c.linkage.crank) ||
        !fits(left ? task_.right : task_.left, c.linkage.other))
        c.Refuse(Refusal::kPivot);
}

void Judge::Ask_Circuits(Case& c) const {
    c.j.kind = Class_Of(c.links);
    const bool two_circuits = c.j.kind != Class::kNonGrashof && c.j.kind != Class::kSpecialCase;
    const Point O2 = c.linkage.crank.fixed, O4 = c.linkage.other.fixed;
    const auto side = [&](std::size_t i) {
        return Side_Of_Circuit(c.links, O4 - O2, c.A[i] - O2, c.B[i] - c.A[i], c.B[i] - O4);
    };
    const auto open = [&](std::size_t i) { return Cross(O4 - c.A[i], c.B[i] - c.A[i]) > 0; };
    c.j.open = open(0);
    for (std::size_t i = 1; two_circuits && i < carried_.size(); ++i)
        if (side(i) != side(0)) return c.Refuse_Between(Refusal::kCircuit, 1, i + 1);
    for (std::size_t i = 1; i < carried_.size(); ++i)
        if (open(i) != c.j.open) return c.Refuse_Between(Refusal::kBranch, 1, i + 1);
}

void Judge::Ask_Stroke(Case& c) const {
    Ask_Stroke(c, 1);
    const Judgement left = c.j;
    c.j.refusal = Refusal::kNone;
    Ask_Stroke(c, -1);
    // What says more of why: a way that has the order.
    const bool better = left.Good() ? !c.j.Good() || left.transmission > c.j.transmission
                                    : !c.j.Good() && c.j.refusal == Refusal::kOrder;
    if (better) c.j = left;
}

/// With the crank turning that way, +1 to the left.
void Judge::Ask_Stroke(Case& c, double way) const {
    const std::size_t count = carried_.size();
    const Point O2 = c.linkage.crank.fixed;
    c.j.crank[0] = std::arg(c.A[0] - O2);
    for (std::size_t i = 1; i < count; ++i) {
        double turn = way * std::arg(Times(c.A[i] - O2, std::conj(c.A[i - 1] - O2)));
        if (std::abs(turn) < kStands) return c.Refuse_Between(Refusal::kStands, i, i + 1);
        if (turn < 0) turn += kTurn;
        c.j.crank[i] = c.j.crank[i - 1] + way * turn;
        if (std::abs(c.j.crank[i] - c.j.crank[0]) > kTurn - kStands) return c.Refuse_Between(Refusal::kOrder, i, i + 1);
    }
    const double ground = Ground_Angle(c.linkage);
    for (std::size_t i = 1; i < count; ++i)
        if (!Closes_Over(c.links, {c.j.crank[i - 1] - ground, c.j.crank[i] - ground}))
            return c.Refuse_Between(Refusal::kGap, i, i + 1);
    Stroke stroke{c.j.crank[0] - ground, c.j.crank[count - 1] - ground};
    if (task_.full_turn) {
        if (!Turns_Fully(c.links)) return c.Refuse(Refusal::kFullTurn);
        stroke.to = stroke.from + kTurn;
    }
    c.j.transmission = Transmission_Over(c.links, stroke);
    if (c.j.transmission < std::max(kJams, task_.transmission)) c.Refuse(Refusal::kTransmission, c.j.transmission);
}

void Judge::Ask_Digits(Case& c) const {
    const std::span<const double> crank(c.j.crank.data(), carried_.size());
    c.j.miss = Miss_Of(c.linkage, c.j.open, carried_, crank, task_.units, false);
    const double length =
        std::max({c.links.L1, c.links.L2, c.links.L3, c.links.L4, Distance(c.linkage.coupler, c.linkage.crank.moving)});
    if (!c.j.miss.closes || c.j.miss.place > kDigits * length || c.j.miss.angle > kDigitsDegrees)
        return c.Refuse(Refusal::kDigits, c.j.miss.place);
    c.j.rounded = Miss_Of(c.linkage, c.j.open, carried_, crank, task_.units, true);
}

void Judge::Score(Case& c) const {
    constexpr double kRightAngle = 90, kFine = 1e-3, kFull = 100;
    const double first = c.j.crank[0];
    const double last = task_.full_turn ? first + kTurn : c.j.crank[carried_.size() - 1];
    c.j.room = Room_Of(c.linkage, c.j.open, 0, last - first);
    const double room = Distance(c.j.room.low, c.j.room.high);
    const Weights& w = task_.weights;
    const double sum = w.transmission + w.proportion + w.room + w.rounding;
    double merit = w.transmission * c.j.transmission / kRightAngle + w.proportion / std::sqrt(c.j.proportion) +
                   w.room * span_ / (span_ + room);
    if (c.j.rounded.closes) merit += w.rounding / (1 + c.j.rounded.place / (kFine * span_));
    c.j.score = kFull * merit / sum;
}

}  // namespace verlink::design
