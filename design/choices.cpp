// Read off the dyads, and solved again as the synthesis does.
#include "design/choices.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/number.h"
#include "core/numeric.h"
#include "core/text.h"

namespace verlink::design {

namespace {

constexpr double kHalfTurn = 180, kFullTurn = 360;
constexpr double kInfinite = std::numeric_limits<double>::infinity();

/// Of the link that is not driven, within half a turn.
double Turn_Of(const Dyad& dyad, const Carried& carried) {
    return std::arg((carried.Of(dyad.moving) - dyad.fixed) / (dyad.moving - dyad.fixed)) / kDegree;
}

double As_Single(double value) { return Single(value); }
Point As_Single(Point value) { return {As_Single(value.real()), As_Single(value.imag())}; }

/// How a vector changes that turns so far, as a factor.
Point Change(double degrees) { return std::polar(1.0, As_Single(degrees) * kDegree) - 1.0; }

struct Vectors {
    Point link, arm;
};

double Longest(const Choices& c) { return std::max({std::abs(c.W), std::abs(c.Z), std::abs(c.U), std::abs(c.S)}); }

double Off(const Choices& c, const Vectors& left, const Vectors& right) {
    const double most = std::max(
        {std::abs(left.link - c.W), std::abs(left.arm - c.Z), std::abs(right.link - c.U), std::abs(right.arm - c.S)});
    return std::isfinite(most) ? most / Longest(c) : kInfinite;
}

Vectors By_Turns(const Choices& c, double turn2, double turn3) {
    const Point b2 = Change(turn2), b3 = Change(turn3), a2 = Change(c.alpha2), a3 = Change(c.alpha3);
    const Point to2 = As_Single(c.P21), to3 = As_Single(c.P31), determinant = b2 * a3 - b3 * a2;
    return {(to2 * a3 - to3 * a2) / determinant, (b2 * to3 - b3 * to2) / determinant};
}

Point Direction(Point vector) { return std::polar(1.0, As_Single(std::arg(vector) / kDegree) * kDegree); }

Vectors By_Directions(const Choices& c, double turn, Point link, Point arm) {
    const Point along = Direction(link), across = Direction(arm);
    const Point u = Change(turn) * along, v = Change(c.alpha2) * across, to = As_Single(c.P21);
    const double determinant = Cross(u, v);
    return {Cross(to, v) / determinant * along, Cross(u, to) / determinant * across};
}

Vectors By_Arm(const Choices& c, double turn, Point arm) {
    const Point given = As_Single(std::abs(arm)) * Direction(arm);
    return {(As_Single(c.P21) - Change(c.alpha2) * given) / Change(turn), given};
}

}  // namespace

Choices Choices_Of(const Task& task, const Solution& solution) {
    const FourBar& linkage = solution.linkage;
    const std::vector<Place> places = Absolute_Positions(task);
    const std::vector<Carried> carried = Carried_Through(places);
    const auto& crank = solution.judgement.crank;
    const auto driven = [&](std::size_t i) { return (crank.at(i) - crank[0]) / kDegree; };
    Choices c{};
    c.first = places[0].at;
    c.P21 = places[1].at - places[0].at;
    c.alpha2 = places[1].angle - places[0].angle;
    c.beta2 = driven(1);
    c.gamma2 = Turn_Of(linkage.other, carried[1]);
    if (places.size() > 2) {
        c.P31 = places[2].at - places[0].at;
        c.alpha3 = places[2].angle - places[0].angle;
        c.beta3 = driven(2);
        c.gamma3 = Turn_Of(linkage.other, carried[2]);
    }
    c.W = linkage.crank.moving - linkage.crank.fixed;
    c.Z = linkage.coupler - linkage.crank.moving;
    c.U = linkage.other.moving - linkage.other.fixed;
    c.S = linkage.coupler - linkage.other.moving;
    c.specified = task.left.fixed.is == Area::Is::kPoints && task.right.fixed.is == Area::Is::kPoints;
    return c;
}

double Off_By_Turns(const Choices& three) {
    return Off(three, By_Turns(three, three.beta2, three.beta3), By_Turns(three, three.gamma2, three.gamma3));
}

double Off_By_Directions(const Choices& two) {
    return Off(two, By_Directions(two, two.beta2, two.W, two.Z), By_Directions(two, two.gamma2, two.U, two.S));
}

double Off_By_Arms(const Choices& two) {
    return Off(two, By_Arm(two, two.beta2, two.Z), By_Arm(two, two.gamma2, two.S));
}

std::string Trouble_By_Pivots(const Choices& three) {
    constexpr double kLowest = -90, kLeast = 0.5, kSame = 0.1;
    const auto wrapped = [](double degrees) { return std::remainder(degrees, kFullTurn); };
    const auto trouble = [&](const std::string& link, double turn2, double turn3) -> std::string {
        const double to2 = wrapped(turn2);
        const std::string turns = "the " + link + " turns by " + Text_Of(FNRound(turn2, 2)) + " deg to position 2";
        if (to2 < kLowest + kLeast || to2 > kHalfTurn - kLeast)
            return turns + ", which specified pivots find between -90 and 180 deg alone";
        if (std::abs(to2) < kLeast) return turns + ", too little for specified pivots to find it";
        if (std::abs(wrapped(turn3 - three.alpha3)) < kSame)
            return "the " + link + " turns with the body to position 3, which specified pivots pass over";
        return "";
    };
    const std::string left = trouble("left link", three.beta2, three.beta3);
    return left.empty() ? trouble("right link", three.gamma2, three.gamma3) : left;
}

}  // namespace verlink::design
