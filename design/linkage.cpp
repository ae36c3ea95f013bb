// Closing, transmission angle, room and class of a four-bar of the global frame.
#include "design/linkage.h"

#include <algorithm>

#include "core/grashof.h"

namespace verlink::design {

namespace {

constexpr double kHalfTurn = std::numbers::pi;

/// With the crank along the ground link either way.
constexpr double kAlong[] = {0, kHalfTurn};

bool Closes_At(const Links& links, double angle) {
    return Closing_At(links, angle / kDegree).is == Closing::Is::kClosed;
}

}  // namespace

Links Links_Of(const FourBar& linkage) {
    const auto& [crank, other, coupler, left] = linkage;
    return {Distance(crank.fixed, other.fixed), Distance(crank.fixed, crank.moving),
            Distance(crank.moving, other.moving), Distance(other.fixed, other.moving)};
}

double Delta_Of(const FourBar& linkage) {
    const Point A = linkage.crank.moving;
    return std::arg(Times(linkage.coupler - A, std::conj(linkage.other.moving - A)));
}

double Ground_Angle(const FourBar& linkage) { return std::arg(linkage.other.fixed - linkage.crank.fixed); }

bool Stroke::Passes(double angle) const {
    const double low = std::min(from, to), high = std::max(from, to);
    return angle + std::ceil((low - angle) / kTurn) * kTurn <= high;
}

bool Closes_Over(const Links& links, const Stroke& stroke) {
    return std::ranges::all_of(kAlong, [&](double angle) { return !stroke.Passes(angle) || Closes_At(links, angle); });
}

double Transmission_Over(const Links& links, const Stroke& stroke) {
    double least = std::min(Transmission_At(links, stroke.from / kDegree), Transmission_At(links, stroke.to / kDegree));
    for (const double angle : kAlong)
        if (stroke.Passes(angle)) least = std::min(least, Transmission_At(links, angle / kDegree));
    return least;
}

bool Turns_Fully(const Links& links) {
    return std::ranges::all_of(kAlong, [&](double angle) { return Closes_At(links, angle); });
}

bool Is_Open(const FourBar& linkage) {
    const Point A = linkage.crank.moving;
    return Cross(linkage.other.fixed - A, linkage.other.moving - A) > 0;
}

std::optional<Pose> Pose_Of(const FourBar& linkage, bool open, double turn) {
    const auto& [crank, other, coupler, left] = linkage;
    const Point A = crank.fixed + Times(std::polar(1.0, turn), crank.moving - crank.fixed);
    const Point diagonal = other.fixed - A, AB = other.moving - crank.moving;
    const double d = std::norm(diagonal), l3 = std::norm(AB), l4 = std::norm(other.moving - other.fixed);
    const double along = (d + l3 - l4) / (2 * d), square = l3 / d - along * along;
    if (!(square >= 0) || l3 == 0) return {};
    const double across = open ? std::sqrt(square) : -std::sqrt(square);
    const Point toB = Times(diagonal, {along, across});
    return Pose{A, A + toB, A + Times(toB, (coupler - crank.moving) / AB)};
}

Box Room_Of(const FourBar& linkage, bool open, double first, double last) {
    constexpr int kSteps = 24;
    Point low = linkage.crank.fixed, high = low;
    const auto take = [&](Point p) {
        low = {std::min(low.real(), p.real()), std::min(low.imag(), p.imag())};
        high = {std::max(high.real(), p.real()), std::max(high.imag(), p.imag())};
    };
    take(linkage.other.fixed);
    for (int i = 0; i <= kSteps; ++i) {
        const auto pose = Pose_Of(linkage, open, first + (last - first) * i / kSteps);
        if (!pose) continue;
        take(pose->A);
        take(pose->B);
        take(pose->P);
    }
    return {low, high};
}

Class Class_Of(const Links& links) {
    const std::string_view code = Grashof_Kind(links).code;
    if (code == kCannotConnect) return Class::kNone;
    if (code == "N") return Class::kNonGrashof;
    if (code == "SC") return Class::kSpecialCase;
    const double shortest = std::min({links.L1, links.L2, links.L3, links.L4});
    if (shortest == links.L3) return Class::kDoubleRocker;
    if (shortest == links.L2) return Class::kCrankRocker;
    return shortest == links.L1 ? Class::kDoubleCrank : Class::kRockerCrank;
}

const char* Words_Of(Class kind) {
    constexpr const char* kWords[] = {"Grashof crank-rocker",
                                      "Grashof double-crank",
                                      "Grashof double-rocker",
                                      "Grashof rocker-crank",
                                      "special-case Grashof",
                                      "non-Grashof triple-rocker",
                                      "no linkage"};
    return kWords[static_cast<int>(kind)];
}

}  // namespace verlink::design
