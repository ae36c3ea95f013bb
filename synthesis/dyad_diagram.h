// The diagram of two dyads in their two or three positions.
#pragma once

#include <array>
#include <complex>
#include <string>
#include <vector>

#include "platform/label_places.h"
#include "platform/surface.h"

namespace verlink {

/// Two dyads as they are drawn: vectors as complex numbers in the global frame, angles in degrees.
struct DyadFigure {
    using Vector = std::complex<double>;
    int positions = 2;
    Vector W, Z, U, S;                               ///< in position 1
    double theta = 0, phi = 0, sigma = 0, xi = 0;    ///< directions of W, Z, U, S as they are told
    std::array<double, 3> alpha{}, beta{}, gamma{};  ///< turns of coupler, W and U from position 1
    std::array<Vector, 3> P{};                       ///< displacements of the coupler point from position 1
    bool to_scale = false;                           ///< the record's own dyads
};

/// The dyads of the record, if they carry the coupler point to its positions and hang on the pivots that were
/// specified; else `Dyad_Sketch`.
DyadFigure Dyads_In_Force(int positions);
/// Dyads of pleasant proportions, for showing what is meant by what as long as nothing has been calculated.
DyadFigure Dyad_Sketch(int positions);

/// What the diagram wants to have written where: a vector "W", "Z", "U", "S", "P21", "P31", a point "O2", "O4", "P1",
/// "P2", "P3", or an angle "Theta", "Phi", "Sigma", "Xi", "Theta1", "Alpha2", "Beta3", "Delta2" and so on.
struct DyadMark {
    std::string name;
    platform::Anchor at;
};

/// Clears the surface, fits its window around the figure and draws: the left dyad in `ColorBlue`, the right one in
/// `ColorRed`, displacements in `ColorMagenta`, angles and pivots in `ColorBlack`; positions 2 and 3 and the coupler in
/// lighter shades. Angles that are 0 are drawn as their reference line alone.
std::vector<DyadMark> Draw_Dyads(platform::Surface& surface, const DyadFigure& figure);

}  // namespace verlink
