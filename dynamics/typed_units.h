// The units in which a hand may type into a box, and how the number boxes of the screens read.
#pragma once

#include <functional>
#include <vector>

#include "core/record/units.h"
#include "core/typed_value.h"

namespace verlink {

/// What the number of a box is of. `kKeptLength` is a length in the unit in which it is kept, metres in all metric
/// systems; `kMassLength` a mass times a length.
enum class Quantity {
    kNumber,
    kAngle,
    kTime,
    kSpeed,
    kAcceleration,
    kLength,
    kKeptLength,
    kForce,
    kTorque,
    kMass,
    kInertia,
    kMassLength
};

/// The units of all five systems for it, each as so many of the unit that a box shows under `Units`; angles are in
/// degrees. None for a plain number.
std::vector<TypedUnit> Typed_Units(Quantity quantity, int Units);

/// From now on a hand's text in the box is read in the units that are in force when the box is left. `form.units` is
/// filled in.
void Reads_As(platform::TextBox& box, const UnitSystem& system, Quantity quantity, TypedForm form = {});
/// The same for a box whose quantity depends on the model.
void Reads_As(platform::TextBox& box, const UnitSystem& system, std::function<Quantity()> quantity,
              TypedForm form = {});

}  // namespace verlink
