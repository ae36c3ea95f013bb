// The two tables of presets.
#include "output/presets.h"

#include "core/linkage_model.h"

namespace verlink {

namespace {

using Components = Preset::Components;

// Number 4 leaves the components of whatever was chosen before, unlike its neighbours; numbers 2 and 3 both show the
// angular velocity ratio.
constexpr Preset kOfFour[] = {
    Preset{"Theta magnitudes for all links", {1, 2, 3, 4}, Components::kMagnitudes, false},
    Preset{"Omega magnitudes for all links", {5, 6, 7, 18}, Components::kMagnitudes, false},
    Preset{"Alpha magnitudes for all links", {8, 9, 10, 18}, Components::kMagnitudes, false},
    Preset{"Velocity of Instant Center 2-3  -  X, Y, Mag, Ang Coordinates",
           {11, 11, 11, 11},
           Components::kAsTheyStand,
           false},
    Preset{"Velocity of Instant Center 3-4  -  X, Y, Mag, Ang Coordinates", {12, 12, 12, 12}, Components::kAll, false},
    Preset{"Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates", {13, 13, 13, 13}, Components::kAll, false},
    Preset{"Acceleration of Instant Ctr 2-3  -  X, Y, Mag, Ang Coordinates", {14, 14, 14, 14}, Components::kAll, false},
    Preset{"Acceleration of Instant Ctr 3-4  -  X, Y, Mag, Ang Coordinates", {15, 15, 15, 15}, Components::kAll, true},
    Preset{"Acceleration of Coupler Point  -  X, Y, Mag, Ang Coordinates", {16, 16, 16, 16}, Components::kAll, true},
    Preset{"Coupler Point Coordinates  -  X, Y, Mag, Ang Coordinates", {17, 17, 17, 17}, Components::kAll, false},
    Preset{"Velocity of CG of Link 2  -  X, Y, Mag, Ang Coordinates", {20, 20, 20, 20}, Components::kAll, false},
    Preset{"Velocity of CG of Link 3  -  X, Y, Mag, Ang Coordinates", {21, 21, 21, 21}, Components::kAll, false},
    Preset{"Velocity of CG of Link 4  -  X, Y, Mag, Ang Coordinates", {22, 22, 22, 22}, Components::kAll, false},
    Preset{"Acceleration of CG of Link 2  -  X, Y, Mag, Ang Coordinates", {23, 23, 23, 23}, Components::kAll, false},
    Preset{"Acceleration of CG of Link 3  -  X, Y, Mag, Ang Coordinates", {24, 24, 24, 24}, Components::kAll, false},
    Preset{"Acceleration of CG of Link 4  -  X, Y, Mag, Ang Coordinates", {25, 25, 25, 25}, Components::kAll, false},
    Preset{"Force of Link 1 on 2  -  X, Y, Mag, Ang Coordinates", {26, 26, 26, 26}, Components::kAll, false},
    Preset{"Force of Link 3 on 2  -  X, Y, Mag, Ang Coordinates", {27, 27, 27, 27}, Components::kAll, false},
    Preset{"Force of Link 4 on 3  -  X, Y, Mag, Ang Coordinates", {28, 28, 28, 28}, Components::kAll, false},
    Preset{"Force of Link 1 on 4  -  X, Y, Mag, Ang Coordinates", {29, 29, 29, 29}, Components::kAll, false},
    Preset{"Shaking Force - Unbalanced   -  X, Y, Mag, Ang Coordinates", {30, 30, 30, 30}, Components::kAll, false},
    Preset{"Torque Magnitudes for all links", {31, 32, 33, 34}, Components::kMagnitudes, false},
    Preset{"Inertia Force on Link 2  -  X, Y, Mag, Ang Coordinates", {35, 35, 35, 35}, Components::kAll, false},
    Preset{"Inertia Force on Link 3  -  X, Y, Mag, Ang Coordinates", {36, 36, 36, 36}, Components::kAll, false},
    Preset{"Inertia Force on Link 4  -  X, Y, Mag, Ang Coordinates", {37, 37, 37, 37}, Components::kAll, false},
    Preset{"Shaking Force - Balanced   -  X, Y, Mag, Ang Coordinates", {38, 38, 38, 38}, Components::kAll, false},
    Preset{"Balanced and Unbalanced Shaking Force and Torque", {30, 38, 32, 39}, Components::kMagnitudes, false},
    Preset{"Compare Force12 with Unbalanced and Balanced Links", {26, 26, 40, 40}, Components::kXYXY, false},
    Preset{"Compare Force14 with Unbalanced and Balanced Links", {29, 29, 41, 41}, Components::kXYXY, false},
    Preset{"Compare Shake Force with Unbalanced and Balanced Links", {30, 30, 38, 38}, Components::kXYXY, false},
    Preset{"Current FFT - Real, Imag, Mag, Phase", {43, 43, 43, 43}, Components::kAll, false},
};

constexpr Preset kOfTwo[] = {
    Preset{"Theta3 and Theta4 Magnitudes", {2, 3}, Components::kMagnitudes, false},
    Preset{"Omega3 and Omega4 Magnitudes", {6, 7}, Components::kMagnitudes, false},
    Preset{"Alpha3 and Alpha4 Magnitudes", {9, 10}, Components::kMagnitudes, false},
    Preset{"Velocity of Instant Center 2-3  -  X, Y components", {11, 11}, Components::kXY, false},
    Preset{"Velocity of Instant Center 3-4  -  X, Y components", {12, 12}, Components::kXY, false},
    Preset{"Velocity of Coupler Point  -  X, Y components", {13, 13}, Components::kXY, false},
    Preset{"Acceleration of Instant Ctr 2-3  -  X, Y components", {14, 14}, Components::kXY, false},
    Preset{"Acceleration of Instant Ctr 3-4  -  X, Y components", {15, 15}, Components::kXY, true},
    Preset{"Acceleration of Coupler Point  -  X, Y components", {16, 16}, Components::kXY, true},
    Preset{"Coupler Point Coordinates  -  X, Y components", {17, 17}, Components::kXY, false},
    Preset{"Ratios w4 / w2 and T4 / T2", {18, 19}, Components::kMagnitudes, false},
    Preset{"Velocity of CG of Link 2  -  X, Y components", {20, 20}, Components::kXY, false},
    Preset{"Velocity of CG of Link 3  -  X, Y components", {21, 21}, Components::kXY, false},
    Preset{"Velocity of CG of Link 4  -  X, Y components", {22, 22}, Components::kXY, false},
    Preset{"Acceleration of CG of Link 2  -  X, Y components", {23, 23}, Components::kXY, false},
    Preset{"Acceleration of CG of Link 3  -  X, Y components", {24, 24}, Components::kXY, false},
    Preset{"Acceleration of CG of Link 4  -  X, Y components", {25, 25}, Components::kXY, false},
    Preset{"Force of Link 1 on 2  -  X, Y components", {26, 26}, Components::kXY, false},
    Preset{"Force of Link 3 on 2  -  X, Y components", {27, 27}, Components::kXY, false},
    Preset{"Force of Link 4 on 3  -  X, Y components", {28, 28}, Components::kXY, false},
    Preset{"Force of Link 1 on 4  -  X, Y components", {29, 29}, Components::kXY, false},
    Preset{"Shaking Force before Balancing  -  X, Y components", {30, 30}, Components::kXY, false},
    Preset{"Torque 12 and Shaking Moment Magnitudes Compared", {31, 32}, Components::kMagnitudes, false},
    Preset{"D'Alembert Inertia Force on Link 2  -  X, Y components", {35, 35}, Components::kXY, false},
    Preset{"D'Alembert Inertia Force on Link 3  -  X, Y components", {36, 36}, Components::kXY, false},
    Preset{"D'Alembert Inertia Force on Link 4  -  X, Y components", {37, 37}, Components::kXY, false},
    Preset{"Shaking Force after Balancing  -  X, Y components", {38, 38}, Components::kXY, false},
    Preset{"Shaking Force - Compare Unbalanced to Balanced ", {30, 38}, Components::kMagnitudes, false},
    Preset{"Shaking Moment - Compare Unbalanced to Balanced ", {32, 39}, Components::kMagnitudes, false},
    Preset{"Force on 12 with Links Balanced -  X, Y components", {40, 40}, Components::kXY, false},
    Preset{"Force on 14 with Links Balanced  -  X, Y components ", {41, 41}, Components::kXY, false},
    Preset{"Torque 12 and Flywheel-Smoothed Torque 12 Compared", {31, 42}, Components::kMagnitudes, false},
    Preset{"Current FFT - Real, Imag", {43, 43}, Components::kXY, false},
    Preset{"Current FFT - Mag, Phase", {43, 43}, Components::kMagAng, false},
};

}  // namespace

std::span<const Preset> Presets_Of_Four() { return kOfFour; }
std::span<const Preset> Presets_Of_Two() { return kOfTwo; }

void Load_Preset_Texts() {
    int number = 0;
    for (const Preset& preset : kOfFour) Model.PresetList4(++number) = preset.text;
    number = 0;
    for (const Preset& preset : kOfTwo) Model.PresetList2(++number) = preset.text;
}

}  // namespace verlink
