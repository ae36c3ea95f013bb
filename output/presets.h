// The presets: what a user would fill into the combo boxes of a selection screen, by one choice.
#pragma once

#include <array>
#include <span>

namespace verlink {

struct Preset {
    /// How the component boxes are filled.
    enum class Components {
        kAsTheyStand,
        kMagnitudes,  ///< "Mag" in each
        kAll,         ///< "X", "Y", "Mag", "Ang"
        kXYXY,
        kXY,
        kMagAng,
    };
    const char* text;              ///< as it stands in the list, trailing blanks included
    std::array<int, 4> variables;  ///< numbers of the catalogue by slot; 0 for none
    Components components;
    bool opens_coordinates;  ///< allows the local frame until the functions are taken over
};

/// Numbers 1 to 31 of the presets of four functions.
std::span<const Preset> Presets_Of_Four();
/// Numbers 1 to 34 of the presets of two functions.
std::span<const Preset> Presets_Of_Two();

/// Fills `PresetList4` and `PresetList2`.
void Load_Preset_Texts();

}  // namespace verlink
