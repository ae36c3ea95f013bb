// Tasks that have no dyads, or none that serve, and why.
#include <algorithm>

#include "core/numeric.h"
#include "core/text.h"
#include "design/dyads.h"

namespace verlink::design {

namespace {

constexpr double kSamePlace = 1e-9, kSameAngle = 1e-7;

bool Same_Angle(const Place& a, const Place& b) {
    return std::abs(std::remainder(a.angle - b.angle, 360)) <= kSameAngle;
}

std::string No_Numbers(std::span<const Place> places) {
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto& [at, angle] = places[i];
        // A relative position may lie twice as far.
        if (std::abs(at.real()) <= 2 * kLargestLength && std::abs(at.imag()) <= 2 * kLargestLength &&
            std::abs(angle) <= 2 * kLargestAngle)
            continue;
        return "Position " + std::to_string(i + 1) +
               " has a number that is none or too large: give its place and angle anew.";
    }
    return "";
}

std::string Coinciding(std::span<const Place> places, double near) {
    for (std::size_t i = 0; i < places.size(); ++i)
        for (std::size_t j = i + 1; j < places.size(); ++j)
            if (Same_Angle(places[i], places[j]) && Distance(places[i].at, places[j].at) <= near)
                return "Positions " + std::to_string(i + 1) + " and " + std::to_string(j + 1) +
                       " coincide: move or turn one of them, or leave it out.";
    return "";
}

bool In_A_Line(std::span<const Place> places, double near) {
    const auto way = [&](const Place& place) { return place.at - places[0].at; };
    const Point along =
        way(*std::ranges::max_element(places, {}, [&](const Place& place) { return std::abs(way(place)); }));
    return std::ranges::all_of(
        places, [&](const Place& place) { return std::abs(Cross(along, way(place))) <= near * std::abs(along); });
}

std::string Not_Turning(std::span<const Place> places, double near) {
    const bool turns = !std::ranges::all_of(places, [&](const Place& place) { return Same_Angle(place, places[0]); });
    if (turns) return "";
    if (In_A_Line(places, near))
        return "The positions lie on a line and do not turn, so that no circle passes through the places of any point: "
               "turn one of them, or move one off the line.";
    if (places.size() == 3) return "";
    return "The positions do not turn, so that all points of the body move alike: turn one of them, or give three "
           "positions.";
}

/// The point about which the body turns from the first place to the other.
Point Pole_Of(const Place& a, const Place& b) {
    const Point turn = std::polar(1.0, (b.angle - a.angle) * kDegree);
    return (b.at - turn * a.at) / (1.0 - turn);
}

std::string One_Pole(std::span<const Place> places, double span) {
    constexpr double kNear = 1e-7;
    if (places.size() < 3) return "";
    for (const Place& place : places.subspan(1))
        if (Same_Angle(place, places[0])) return "";
    const Point pole = Pole_Of(places[0], places[1]);
    for (const Place& place : places.subspan(2))
        if (Distance(Pole_Of(places[0], place), pole) > kNear * span) return "";
    return "All positions turn about the one point " + Text_Of(FNRound(pole.real(), 3)) + ", " +
           Text_Of(FNRound(pole.imag(), 3)) +
           ", so that every link has its pivot there: a single joint does it. Move or turn one of the positions.";
}

std::string Too_Many_Conditions(const Task& task) {
    const std::size_t count = task.positions.size();
    const std::pair<const Side*, const char*> sides[] = {{&task.left, "left"}, {&task.right, "right"}};
    for (const auto& [side, name] : sides) {
        const bool fixed = side->fixed.is == Area::Is::kPoints, moving = side->moving.is == Area::Is::kPoints;
        const std::string link = std::string("the ") + name + " link";
        if (fixed && moving)
            return "Both pivots of " + link +
                   " are given as points, which leaves nothing to find: give a rectangle for "
                   "one of them.";
        if ((fixed || moving) && count > 3)
            return "With " + std::to_string(count) + " positions a pivot of " + link +
                   " cannot be given as a point: "
                   "its places are found. Give a rectangle, or three positions.";
    }
    return "";
}

}  // namespace

std::string Trouble_With(const Task& task) {
    const std::vector<Place> places = Absolute_Positions(task);
    const bool few = places.size() < kFewestPositions;
    if (few || places.size() > kMostPositions)
        return "A task has two to five positions: give " + std::string(few ? "more." : "fewer.");
    if (std::string words = No_Numbers(places); !words.empty()) return words;
    double far = 0;
    for (const Place& place : places) far = std::max(far, std::abs(place.at));
    const double span = Span_Of(task), near = kSamePlace * (span + far);
    for (const std::string& words : {Coinciding(places, near), places.size() > 2 ? Not_Turning(places, near) : "",
                                     One_Pole(places, span + far), Too_Many_Conditions(task)})
        if (!words.empty()) return words;
    return "";
}

}  // namespace verlink::design
