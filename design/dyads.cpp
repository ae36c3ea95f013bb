// Dyads of two and three positions, in closed form.
#include "design/dyads.h"

namespace verlink::design {

namespace {

/// What is farther than this, in distances of the places, has lost its digits.
constexpr double kFarthest = 1e6;

std::optional<Dyad> If_Near(const Dyad& dyad, double measure) {
    if (!(Distance(dyad.fixed, dyad.moving) <= kFarthest * measure)) return {};
    return dyad;
}

/// None for three points in a line.
std::optional<Point> Centre_Of_Circle(Point a, Point b, Point c) {
    const Point u = b - a, v = c - a;
    const double across = Cross(u, v), uu = std::norm(u), vv = std::norm(v);
    if (std::abs(across) * kFarthest <= std::sqrt(uu * vv)) return {};
    return a - Left_Of(uu * v - vv * u) / (2 * across);
}

}  // namespace

std::vector<Carried> Carried_Through(std::span<const Place> absolute) {
    std::vector<Carried> all;
    const Place& first = absolute.front();
    for (const Place& place : absolute)
        all.push_back({std::polar(1.0, (place.angle - first.angle) * kDegree), first.at, place.at});
    return all;
}

std::optional<Dyad> Dyad_Of_Moving(std::span<const Carried> two, Point moving, double turn) {
    const Point link = std::polar(1.0, turn), second = two[1].Of(moving);
    return If_Near({(second - Times(link, moving)) / (1.0 - link), moving}, Distance(second, moving));
}

std::optional<Dyad> Dyad_Of_Fixed(std::span<const Carried> two, Point fixed, double turn) {
    const Point link = std::polar(1.0, turn);
    const auto& [body, from, to] = two[1];
    const Point moving = (Times(1.0 - link, fixed) - to + Times(body, from)) / (body - link);
    return If_Near({fixed, moving}, Distance(two[1].Of(moving), moving));
}

std::optional<Dyad> Dyad_Of_Moving(std::span<const Carried> three, Point moving) {
    const auto centre = Centre_Of_Circle(moving, three[1].Of(moving), three[2].Of(moving));
    if (!centre) return {};
    return If_Near({*centre, moving}, std::abs(moving - three[1].Of(moving)));
}

std::optional<Dyad> Dyad_Of_Fixed(std::span<const Carried> three, Point fixed) {
    const auto pivot = Centre_Of_Circle(fixed, three[1].Back(fixed), three[2].Back(fixed));
    if (!pivot) return {};
    return If_Near({fixed, *pivot}, std::abs(fixed - three[1].Back(fixed)));
}

}  // namespace verlink::design
