// The unit system in force: its labels, decimals and conversion factors.
#pragma once

#include <string>

#include "core/array.h"
#include "core/number.h"

namespace verlink {

struct UnitSystem {
    Integer Units = 1;                    ///< 1 in-lb-bl-s, 2 ft-lb-sl-s, 3 m-kg-N-s, 4 cm-kg-N-s, 5 mm-kg-N-s
    Array<std::string, 0, 25> UnitLabel;  ///< text by kind of quantity, 1 to 18 in use
    Integer DecLength, DecLengthShown, DecForce, DecTorque, DecMass, DecInertia;  ///< decimals
    Single ConvLength, ConvForce, ConvTorque, ConvMass, ConvInertia;              ///< factors of the last conversion
};

}  // namespace verlink
