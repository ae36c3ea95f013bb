// How far the crank of a non-Grashof linkage can swing.
#pragma once

#include "core/number.h"
#include "core/record/geometry.h"

namespace verlink {

/// The angle in degrees to which it can swing either way from the ground link, in single precision, by the law of
/// cosines of the triangle that coupler and rocker in line make with crank and ground.
Single Toggle_Angle(const Geometry& linkage);

}  // namespace verlink
