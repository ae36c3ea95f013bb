// How far the crank of a non-Grashof linkage can swing.
#pragma once

#include "core/number.h"
#include "core/record/geometry.h"

namespace verlink {

/// The angle in degrees to which it can swing either way from the ground link, in single precision.
Single Toggle_Angle(const Geometry& linkage);

}  // namespace verlink
