// A position of the linkage and its motion by the triangle that the diagonal makes with coupler and rocker.
#pragma once

#include <complex>

#include "core/record/drive.h"
#include "core/record/geometry.h"

namespace verlink::checks {

using Vector = std::complex<double>;
inline constexpr Vector kQuarter{0, 1};  ///< of a turn

/// Both components of a row of a table at a step.
template <class Column>
Vector At(const Column& column, int step, int row) {
    return {column(step, row, 0), column(step, row, 1)};
}

/// z component of a x b, and their scalar product.
inline double Cross(Vector a, Vector b) { return (std::conj(a) * b).imag(); }
inline double Dot(Vector a, Vector b) { return (std::conj(a) * b).real(); }
inline Vector Toward(double radians) { return std::polar(1.0, radians); }

/// Lengths as the record stores them; radians.
struct Shape {
    double L1, L2, L3, L4, Rpa, delta;
    bool open;  ///< the circuit on which the coupler lies to the left of the diagonal from A to O4
};
Shape Shape_Of(const Geometry& linkage, const Drive& drive);

/// An angle of a link and its first and second derivative by the crank's angle.
struct Turning {
    double angle = 0, first = 0, second = 0;
};

/// In the ground link's frame from O2; primes are derivatives by the crank's angle.
struct Pose {
    bool closes = false;  ///< the rest means nothing where it does not
    Turning th2, th3, th4;
    Vector A, B, P, A1, B1, P1, A2, B2, P2;
};

/// By the sides and angles of the triangle O4 A B, whose side from A to O4 and whose angles are known functions of the
/// crank's angle, differentiated twice.
Pose Pose_At(const Shape& shape, double th2);

}  // namespace verlink::checks
