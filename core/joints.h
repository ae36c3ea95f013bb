// What follows from where the joints of a linkage are at one position alone: its poles, and how its coupler curve
// bends. Nothing is stored here.
#pragma once

#include <complex>
#include <optional>

namespace verlink {

/// A place or a direction in a plane: x, and i times y.
using Spot = std::complex<double>;

/// All in one frame and one unit of length.
struct Joints {
    Spot O2, O4, A, B, P;
};

/// Where the lines of two links meet.
struct Pole {
    Spot at;                   ///< not where the lines are parallel
    bool at_infinity = false;  ///< they are parallel, or as nearly as single numbers can tell
};

// Poles of stored joints are within 2e-6 of their distance, radii of curvature within 2e-5 of their own, more where
// lines are nearly parallel or a path is nearly straight: tests/core/joints_test.cpp, against tests/reference/poles.py.

/// The pole of the coupler against the ground: crank and rocker meet there. None where both lie on one line.
std::optional<Pole> Pole_13(const Joints& joints);
/// The pole of the rocker against the crank: coupler and ground meet there. None where both lie on one line.
std::optional<Pole> Pole_24(const Joints& joints);

/// The circle that has two derivatives in common with the path of P.
struct Curvature {
    Spot centre;        ///< not where the path is straight
    Spot along;         ///< direction of the path, length 1
    double radius = 0;  ///< infinite where the path is straight
};

/// From the closure of the loop, differentiated twice by the crank angle: so it holds for any speed of the crank, for
/// none as well. Nothing where it is not defined: at a toggle of coupler and rocker, and where P stands still as the
/// crank moves, in a cusp.
std::optional<Curvature> Curvature_At_P(const Joints& joints);

}  // namespace verlink
