// Why a linkage does or does not close, and what would close it: plain geometry of its four lengths.
#pragma once

#include <optional>
#include <span>

#include "core/record/geometry.h"

namespace verlink {

/// The four links of a loop, all in one unit.
struct Links {
    double L1, L2, L3, L4;

    /// By the number of the link, 1 to 4.
    double& Of(int link) { return link == 1 ? L1 : link == 2 ? L2 : link == 3 ? L3 : L4; }
    double Of(int link) const { return Links(*this).Of(link); }
};
/// Stored units.
Links Links_Of(const Geometry& geometry);

// Crank angles are in the local frame, from the ground link, in degrees; results lie next to the angle that was asked
// about, so that the difference of the two is the way between them. A link without length closes nothing, and has
// neither an angle nor a length that would do. All is in double precision: angles to 2e-6 degrees, lengths to 1e-9 of
// the links' sum, by tests/core/why_test.cpp against tests/reference/why.py.

/// What is so of the loop at a crank angle. Crank and ground leave a gap from A to O4, which coupler and rocker have to
/// bridge: stretched they reach their sum, folded their difference.
struct Closing {
    enum class Is { kClosed, kTooShort, kTooLong, kNoLength };
    Is is;
    int link = 0;   ///< kTooLong: the longer one, 3 or 4; kNoLength: the link without length
    double by = 0;  ///< kTooShort, kTooLong: by how much, length
};
Closing Closing_At(const Links& links, double degrees);

/// The transmission angle, between coupler and rocker, degrees, 0 to 90; 0 where they do not meet.
double Transmission_At(const Links& links, double degrees);

/// A bound of what closes.
struct Bound {
    double value;  ///< an angle in degrees, or a length
    int way;       ///< +1: closes above it, -1: closes below it
};

/// The nearest crank angle at which coupler and rocker are in line: from an angle that does not close, the nearest that
/// does. A change point, where the loop is closed on both sides, has way 0. None where the crank meets no limit.
std::optional<Bound> Nearest_Toggle(const Links& links, double degrees);

/// The length of one link nearest to its own with which the loop closes at that crank angle; none where no length does
/// and where it closes as it is.
std::optional<Bound> Nearest_Length(const Links& links, double degrees, int link);

/// A link that is as long as the three others together, or longer: the loop closes nowhere. Compared in single
/// precision, as the class of a linkage is found.
struct Longest {
    int link;
    double excess;  ///< over the three others, length, not negative
    double limit;   ///< their sum; it closes with less
};
std::optional<Longest> Too_Long(const Links& links);

/// Of crank angles of which none closes, the index of the one that misses by least; none where any closes or where
/// there is none.
std::optional<std::size_t> Nearest_Miss(const Links& links, std::span<const double> degrees);

}  // namespace verlink
