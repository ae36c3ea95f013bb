// A four-bar of the global frame, and what can be said of it without a task.
#pragma once

#include <optional>
#include <string>

#include "core/why.h"
#include "design/dyads.h"

namespace verlink::design {

/// The crank is link 2, on the pivots O2 and A; the other link is link 4, on O4 and B.
struct FourBar {
    Dyad crank, other;          ///< with the coupler in position 1
    Point coupler;              ///< coupler point in position 1
    bool crank_is_left = true;  ///< which of the task's sides the crank is
    FourBar With_Other_Crank() const { return {other, crank, coupler, !crank_is_left}; }
};

Links Links_Of(const FourBar& linkage);
/// From AB to AP, radians; the distance is that from A to the coupler point.
double Delta_Of(const FourBar& linkage);
/// Of the ground link, O2 to O4, radians, -pi to pi.
double Ground_Angle(const FourBar& linkage);

/// What a crank, turning one way, passes: angles from the ground link, radians; at most a turn.
struct Stroke {
    double from, to;
    /// Whether an angle, or that angle and some turns, lies between.
    bool Passes(double angle) const;
};

/// Whether the loop closes all the way. It is told by the least and the largest distance from A to O4, which are at the
/// ends or where the crank lies along the ground link.
bool Closes_Over(const Links& links, const Stroke& stroke);
/// The smallest transmission angle on the way, degrees, found in the same places; 0 where it does not close.
double Transmission_Over(const Links& links, const Stroke& stroke);
/// Whether the crank can turn fully: the loop closes with it along the ground link both ways.
bool Turns_Fully(const Links& links);

/// A and B and the coupler point at a crank angle, global frame.
struct Pose {
    Point A, B, P;
};
/// By the triangle of diagonal, coupler and rocker; `open` is the circuit on which B lies to the left of the way from A
/// to O4. Turn is the crank's, radians, from position 1. None where it does not close, or where a
/// coupler without length tells no place of P.
std::optional<Pose> Pose_Of(const FourBar& linkage, bool open, double turn);
/// On which circuit it stands in position 1.
bool Is_Open(const FourBar& linkage);

/// The upright box around pivots, joints and coupler point while the crank turns, radians from position 1.
Box Room_Of(const FourBar& linkage, bool open, double first, double last);

enum class Class { kCrankRocker, kDoubleCrank, kDoubleRocker, kRockerCrank, kSpecialCase, kNonGrashof, kNone };
/// By the Grashof condition in single precision, and by which link is the shortest.
Class Class_Of(const Links& links);
const char* Words_Of(Class kind);

}  // namespace verlink::design
