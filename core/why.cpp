// The gap from A to O4, and what coupler and rocker make of it.
#include "core/why.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <vector>

namespace verlink {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

/// What a cosine may lie beyond 1 by the roundings of four single lengths.
constexpr double kRounding = 1e-6;

double Sum(const Links& links) { return links.L1 + links.L2 + links.L3 + links.L4; }

/// The ground may be without: both pivots are one then.
int Without_Length(const Links& links) {
    for (int link = 2; link <= 4; ++link)
        if (links.Of(link) == 0) return link;
    return 0;
}

double Gap(const Links& links, double degrees) {
    // As a sum of squares it keeps its digits where the gap is small.
    const double s = std::sin(degrees * kDegree / 2), apart = links.L1 - links.L2;
    return std::sqrt(apart * apart + 4 * links.L1 * links.L2 * s * s);
}

/// The cosine of the crank angle at which the gap is that; between -1 and 1 but for roundings, or none.
std::optional<double> Cosine_At(const Links& links, double gap) {
    const double cosine = (links.L1 * links.L1 + links.L2 * links.L2 - gap * gap) / (2 * links.L1 * links.L2);
    if (!(std::fabs(cosine) <= 1 + kRounding)) return {};
    return std::clamp(cosine, -1.0, 1.0);
}

/// The angle next to another one.
double Next_To(double degrees, double angle) { return degrees + std::remainder(angle - degrees, 360); }

/// Where on one side of `from` the loop closes: +1, -1, or 0 for both.
int Way_At(const Links& links, double angle) {
    constexpr double kAside = 1e-3;
    const auto closes = [&](double degrees) { return Closing_At(links, degrees).is == Closing::Is::kClosed; };
    return int{closes(angle + kAside)} - int{closes(angle - kAside)};
}

/// The two lengths of crank or ground, the other one given, that leave just that gap at a crank angle; none where
/// there are not two.
std::vector<double> Lengths_At(double other, double degrees, double gap) {
    const double along = other * std::cos(degrees * kDegree), across = other * std::sin(degrees * kDegree);
    const double square = gap * gap - across * across;
    if (square <= 0) return {};
    return {along - std::sqrt(square), along + std::sqrt(square)};
}

/// Every length of that link, the others given, at which the loop begins or ends to close.
std::vector<double> Bounds_Of(const Links& links, double degrees, int link) {
    if (link >= 3) {
        const double gap = Gap(links, degrees), other = links.Of(7 - link);
        return {std::fabs(gap - other), gap + other};
    }
    const double other = links.Of(3 - link);
    std::vector<double> bounds = Lengths_At(other, degrees, links.L3 + links.L4);
    std::ranges::copy(Lengths_At(other, degrees, std::fabs(links.L3 - links.L4)), std::back_inserter(bounds));
    return bounds;
}

}  // namespace

Links Links_Of(const Geometry& geometry) { return {geometry.L1, geometry.L2, geometry.L3, geometry.L4}; }

Closing Closing_At(const Links& links, double degrees) {
    if (const int link = Without_Length(links)) return {Closing::Is::kNoLength, link};
    const double gap = Gap(links, degrees);
    const double stretched = links.L3 + links.L4, folded = std::fabs(links.L3 - links.L4);
    if (gap > stretched) return {Closing::Is::kTooShort, 0, gap - stretched};
    if (gap < folded) return {Closing::Is::kTooLong, links.L3 > links.L4 ? 3 : 4, folded - gap};
    return {Closing::Is::kClosed};
}

double Transmission_At(const Links& links, double degrees) {
    if (Without_Length(links)) return 0;
    // Half the angle between coupler and rocker, by the half perimeter of their triangle: exact near a toggle too.
    const double gap = Gap(links, degrees), half = (links.L3 + links.L4 + gap) / 2;
    const double folded = std::max(0.0, (half - links.L3) * (half - links.L4));
    const double stretched = std::max(0.0, half * (half - gap));
    const double angle = 2 * std::atan2(std::sqrt(folded), std::sqrt(stretched)) / kDegree;
    return std::min(angle, 180 - angle);
}

std::optional<Bound> Nearest_Toggle(const Links& links, double degrees) {
    if (Without_Length(links)) return {};
    std::vector<double> toggles;
    for (const double gap : {links.L3 + links.L4, std::fabs(links.L3 - links.L4)}) {
        const auto cosine = Cosine_At(links, gap);
        if (!cosine) continue;
        const double angle = std::acos(*cosine) / kDegree;
        for (const double either : {angle, -angle}) toggles.push_back(Next_To(degrees, either));
    }
    const auto nearest = std::ranges::min_element(toggles, {}, [=](double next) { return std::fabs(next - degrees); });
    if (nearest == toggles.end()) return {};
    return Bound{*nearest, Way_At(links, *nearest)};
}

std::optional<Bound> Nearest_Length(const Links& links, double degrees, int link) {
    if (Without_Length(links) || Closing_At(links, degrees).is == Closing::Is::kClosed) return {};
    const double own = links.Of(link);
    std::optional<Bound> nearest;
    for (const double bound : Bounds_Of(links, degrees, link)) {
        if (bound <= 0 || (nearest && std::fabs(bound - own) >= std::fabs(nearest->value - own))) continue;
        // From its own length on, the first bound is where the loop begins to close.
        nearest = {bound, bound > own ? 1 : -1};
    }
    return nearest;
}

std::optional<Longest> Too_Long(const Links& links) {
    int longest = 1;
    for (const int link : {2, 3, 4})
        if (links.Of(link) > links.Of(longest)) longest = link;
    Single lengths[3];
    int count = 0;
    for (int link = 1; link <= 4; ++link)
        if (link != longest) lengths[count++] = links.Of(link);
    std::sort(std::begin(lengths), std::end(lengths));
    double others = 0;
    for (const Single other : lengths) others += other;
    const double length = links.Of(longest), limit = Sum(links) - length;
    // What no single holds is more than any length.
    const bool held = others <= std::numeric_limits<float>::max();
    if (!held || !(Single(others) <= Single(length))) return {};
    return Longest{longest, std::max(0.0, length - limit), limit};
}

std::optional<std::size_t> Nearest_Miss(const Links& links, std::span<const double> degrees) {
    std::optional<std::size_t> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        const Closing closing = Closing_At(links, degrees[i]);
        if (closing.is == Closing::Is::kClosed || closing.is == Closing::Is::kNoLength) return {};
        if (closing.by >= least) continue;
        nearest = i;
        least = closing.by;
    }
    return nearest;
}

}  // namespace verlink
