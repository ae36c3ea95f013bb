// Both lists of presets as tests expect them: texts, variables by number, components by slot.
#pragma once

#include <array>

namespace verlink::test {

template <std::size_t n>
struct PresetRow {
    const char* text;
    std::array<int, n> variables;
    std::array<const char*, n> components;  ///< empty where the box is left as it stands
};

// clang-format off
inline constexpr PresetRow<4> kPresetsOfFour[] = {
    {"Theta magnitudes for all links", {1, 2, 3, 4}, {"Mag", "Mag", "Mag", "Mag"}},
    {"Omega magnitudes for all links", {5, 6, 7, 18}, {"Mag", "Mag", "Mag", "Mag"}},
    {"Alpha magnitudes for all links", {8, 9, 10, 18}, {"Mag", "Mag", "Mag", "Mag"}},
    {"Velocity of Instant Center 2-3  -  X, Y, Mag, Ang Coordinates", {11, 11, 11, 11}, {"", "", "", ""}},
    {"Velocity of Instant Center 3-4  -  X, Y, Mag, Ang Coordinates", {12, 12, 12, 12}, {"X", "Y", "Mag", "Ang"}},
    {"Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates", {13, 13, 13, 13}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of Instant Ctr 2-3  -  X, Y, Mag, Ang Coordinates", {14, 14, 14, 14}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of Instant Ctr 3-4  -  X, Y, Mag, Ang Coordinates", {15, 15, 15, 15}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of Coupler Point  -  X, Y, Mag, Ang Coordinates", {16, 16, 16, 16}, {"X", "Y", "Mag", "Ang"}},
    {"Coupler Point Coordinates  -  X, Y, Mag, Ang Coordinates", {17, 17, 17, 17}, {"X", "Y", "Mag", "Ang"}},
    {"Velocity of CG of Link 2  -  X, Y, Mag, Ang Coordinates", {20, 20, 20, 20}, {"X", "Y", "Mag", "Ang"}},
    {"Velocity of CG of Link 3  -  X, Y, Mag, Ang Coordinates", {21, 21, 21, 21}, {"X", "Y", "Mag", "Ang"}},
    {"Velocity of CG of Link 4  -  X, Y, Mag, Ang Coordinates", {22, 22, 22, 22}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of CG of Link 2  -  X, Y, Mag, Ang Coordinates", {23, 23, 23, 23}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of CG of Link 3  -  X, Y, Mag, Ang Coordinates", {24, 24, 24, 24}, {"X", "Y", "Mag", "Ang"}},
    {"Acceleration of CG of Link 4  -  X, Y, Mag, Ang Coordinates", {25, 25, 25, 25}, {"X", "Y", "Mag", "Ang"}},
    {"Force of Link 1 on 2  -  X, Y, Mag, Ang Coordinates", {26, 26, 26, 26}, {"X", "Y", "Mag", "Ang"}},
    {"Force of Link 3 on 2  -  X, Y, Mag, Ang Coordinates", {27, 27, 27, 27}, {"X", "Y", "Mag", "Ang"}},
    {"Force of Link 4 on 3  -  X, Y, Mag, Ang Coordinates", {28, 28, 28, 28}, {"X", "Y", "Mag", "Ang"}},
    {"Force of Link 1 on 4  -  X, Y, Mag, Ang Coordinates", {29, 29, 29, 29}, {"X", "Y", "Mag", "Ang"}},
    {"Shaking Force - Unbalanced   -  X, Y, Mag, Ang Coordinates", {30, 30, 30, 30}, {"X", "Y", "Mag", "Ang"}},
    {"Torque Magnitudes for all links", {31, 32, 33, 34}, {"Mag", "Mag", "Mag", "Mag"}},
    {"Inertia Force on Link 2  -  X, Y, Mag, Ang Coordinates", {35, 35, 35, 35}, {"X", "Y", "Mag", "Ang"}},
    {"Inertia Force on Link 3  -  X, Y, Mag, Ang Coordinates", {36, 36, 36, 36}, {"X", "Y", "Mag", "Ang"}},
    {"Inertia Force on Link 4  -  X, Y, Mag, Ang Coordinates", {37, 37, 37, 37}, {"X", "Y", "Mag", "Ang"}},
    {"Shaking Force - Balanced   -  X, Y, Mag, Ang Coordinates", {38, 38, 38, 38}, {"X", "Y", "Mag", "Ang"}},
    {"Balanced and Unbalanced Shaking Force and Torque", {30, 38, 32, 39}, {"Mag", "Mag", "Mag", "Mag"}},
    {"Compare Force12 with Unbalanced and Balanced Links", {26, 26, 40, 40}, {"X", "Y", "X", "Y"}},
    {"Compare Force14 with Unbalanced and Balanced Links", {29, 29, 41, 41}, {"X", "Y", "X", "Y"}},
    {"Compare Shake Force with Unbalanced and Balanced Links", {30, 30, 38, 38}, {"X", "Y", "X", "Y"}},
    {"Current FFT - Real, Imag, Mag, Phase", {43, 43, 43, 43}, {"X", "Y", "Mag", "Ang"}},
};

inline constexpr PresetRow<2> kPresetsOfTwo[] = {
    {"Theta3 and Theta4 Magnitudes", {2, 3}, {"Mag", "Mag"}},
    {"Omega3 and Omega4 Magnitudes", {6, 7}, {"Mag", "Mag"}},
    {"Alpha3 and Alpha4 Magnitudes", {9, 10}, {"Mag", "Mag"}},
    {"Velocity of Instant Center 2-3  -  X, Y components", {11, 11}, {"X", "Y"}},
    {"Velocity of Instant Center 3-4  -  X, Y components", {12, 12}, {"X", "Y"}},
    {"Velocity of Coupler Point  -  X, Y components", {13, 13}, {"X", "Y"}},
    {"Acceleration of Instant Ctr 2-3  -  X, Y components", {14, 14}, {"X", "Y"}},
    {"Acceleration of Instant Ctr 3-4  -  X, Y components", {15, 15}, {"X", "Y"}},
    {"Acceleration of Coupler Point  -  X, Y components", {16, 16}, {"X", "Y"}},
    {"Coupler Point Coordinates  -  X, Y components", {17, 17}, {"X", "Y"}},
    {"Ratios w4 / w2 and T4 / T2", {18, 19}, {"Mag", "Mag"}},
    {"Velocity of CG of Link 2  -  X, Y components", {20, 20}, {"X", "Y"}},
    {"Velocity of CG of Link 3  -  X, Y components", {21, 21}, {"X", "Y"}},
    {"Velocity of CG of Link 4  -  X, Y components", {22, 22}, {"X", "Y"}},
    {"Acceleration of CG of Link 2  -  X, Y components", {23, 23}, {"X", "Y"}},
    {"Acceleration of CG of Link 3  -  X, Y components", {24, 24}, {"X", "Y"}},
    {"Acceleration of CG of Link 4  -  X, Y components", {25, 25}, {"X", "Y"}},
    {"Force of Link 1 on 2  -  X, Y components", {26, 26}, {"X", "Y"}},
    {"Force of Link 3 on 2  -  X, Y components", {27, 27}, {"X", "Y"}},
    {"Force of Link 4 on 3  -  X, Y components", {28, 28}, {"X", "Y"}},
    {"Force of Link 1 on 4  -  X, Y components", {29, 29}, {"X", "Y"}},
    {"Shaking Force before Balancing  -  X, Y components", {30, 30}, {"X", "Y"}},
    {"Torque 12 and Shaking Moment Magnitudes Compared", {31, 32}, {"Mag", "Mag"}},
    {"D'Alembert Inertia Force on Link 2  -  X, Y components", {35, 35}, {"X", "Y"}},
    {"D'Alembert Inertia Force on Link 3  -  X, Y components", {36, 36}, {"X", "Y"}},
    {"D'Alembert Inertia Force on Link 4  -  X, Y components", {37, 37}, {"X", "Y"}},
    {"Shaking Force after Balancing  -  X, Y components", {38, 38}, {"X", "Y"}},
    {"Shaking Force - Compare Unbalanced to Balanced ", {30, 38}, {"Mag", "Mag"}},
    {"Shaking Moment - Compare Unbalanced to Balanced ", {32, 39}, {"Mag", "Mag"}},
    {"Force on 12 with Links Balanced -  X, Y components", {40, 40}, {"X", "Y"}},
    {"Force on 14 with Links Balanced  -  X, Y components ", {41, 41}, {"X", "Y"}},
    {"Torque 12 and Flywheel-Smoothed Torque 12 Compared", {31, 42}, {"Mag", "Mag"}},
    {"Current FFT - Real, Imag", {43, 43}, {"X", "Y"}},
    {"Current FFT - Mag, Phase", {43, 43}, {"Mag", "Ang"}},
};
// clang-format on

}  // namespace verlink::test
