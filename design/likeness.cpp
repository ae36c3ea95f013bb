// How like two linkages are.
#include <algorithm>
#include <array>

#include "design/search.h"

namespace verlink::design {

namespace {

double Dyads_Apart(const Dyad& a, const Dyad& b) {
    return std::max(Distance(a.fixed, b.fixed), Distance(a.moving, b.moving));
}

/// The other two linkages of the curve, by Roberts' triangles: the third pivot stands to O2 and O4 as P to A and B.
std::array<FourBar, 2> Cognates_Of(const FourBar& linkage) {
    const auto& [left, right, P, crank_is_left] = linkage;
    const Point A = left.moving, B = right.moving, shape = (P - A) / (B - A);
    const Point third = left.fixed + shape * (right.fixed - left.fixed);
    const Dyad left_first{left.fixed, left.fixed + P - A};
    const Dyad left_second{third, left.fixed + P - A + shape * (A - left.fixed)};
    const Dyad right_first{right.fixed, right.fixed + P - B};
    const Dyad right_second{third, right.fixed + P - B + (1.0 - shape) * (B - right.fixed)};
    return {FourBar{left_first, left_second, P}, FourBar{right_first, right_second, P}};
}

}  // namespace

double Apart_As_Driven(const FourBar& a, const FourBar& b) {
    return std::max(Dyads_Apart(a.crank, b.crank), Dyads_Apart(a.other, b.other));
}

double Apart(const FourBar& a, const FourBar& b) {
    return std::min(Apart_As_Driven(a, b), Apart_As_Driven(a, b.With_Other_Crank()));
}

bool Twins(const FourBar& a, const FourBar& b, double near) { return Apart_As_Driven(a, b.With_Other_Crank()) <= near; }

bool Cognates(const FourBar& a, const FourBar& b, double near) {
    if (Distance(a.coupler, b.coupler) > near || Distance(a.crank.moving, a.other.moving) <= near) return false;
    return std::ranges::any_of(Cognates_Of(a), [&](const FourBar& cognate) { return Apart(cognate, b) <= near; });
}

}  // namespace verlink::design
