// What a hand has typed into a box, as a number: with a decimal comma, as a sum, in another unit.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink {

/// A unit that may stand behind a number. A mark within its name ("N-m", "rad/s^2") may be typed as another or be
/// left out; capitals count as small letters.
struct TypedUnit {
    const char* name;
    double factor;  ///< how many of the box's own unit it is
};

/// How the number of a box is written.
struct TypedForm {
    std::vector<TypedUnit> units = {};
    bool grouped = false;  ///< the box itself writes thousands apart by commas
    bool strict = false;   ///< a text that cannot be read as a whole is left to whoever reads the box
};

/// The number in a text, as the text that the box then shows. Of what is no plain number it reads: numbers joined by
/// + - * / and brackets; a comma as the decimal point where it can be nothing else; a unit behind each term of the
/// sum, or behind none. A plain number and a blank text stay as they are; results have 7 digits. Of a text that has
/// more than that, the leading number is read and `whole` is false.
platform::Reading Read_Typed(const std::string& text, const TypedForm& form);

}  // namespace verlink
