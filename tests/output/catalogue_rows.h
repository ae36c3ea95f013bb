// The table of output variables as tests expect it.
#pragma once

namespace verlink::test {

inline constexpr int kNoRow = -1;

/// What picking a variable by name has to lead to.
struct Row {
    int number;
    const char* label;
    int group;
    int row;
    bool scalar;
    bool coordinates;
};

inline constexpr Row kRows[] = {
    {1, "Theta2", 1, 0, true, false},
    {2, "Theta3", 1, 1, true, false},
    {3, "Theta4", 1, 2, true, false},
    {4, "Trans Ang", 1, 3, true, false},
    {5, "Omega2", 2, 0, true, false},
    {6, "Omega3", 2, 1, true, false},
    {7, "Omega4", 2, 2, true, false},
    {8, "Alpha2", 3, 0, true, false},
    {9, "Alpha3", 3, 1, true, false},
    {10, "Alpha4", 3, 2, true, false},
    {11, "Veloc I 2,3", 4, 0, false, true},
    {12, "Veloc I 3,4", 4, 1, false, true},
    {13, "Veloc CP", 4, 2, false, true},
    {14, "Accel I 2,3", 5, 0, false, true},
    {15, "Accel I 3,4", 5, 1, false, true},
    {16, "Accel CP", 5, 2, false, true},
    {17, "Coupler Pt", 6, 2, false, false},
    {18, "w4 / w2", 7, 0, true, false},
    {19, "T4 / T2", 8, 0, true, false},
    {20, "Veloc CG 2", 4, 3, false, true},
    {21, "Veloc CG 3", 4, 5, false, true},
    {22, "Veloc CG 4", 4, 4, false, true},
    {23, "Accel CG 2", 5, 6, false, true},
    {24, "Accel CG 3", 5, 5, false, true},
    {25, "Accel CG 4", 5, 7, false, true},
    {26, "Force 12", 10, 5, false, true},
    {27, "Force 32", 10, 0, false, true},
    {28, "Force 43", 10, 1, false, true},
    {29, "Force 14", 10, 6, false, true},
    {30, "F Shaking", 10, 7, false, true},
    {31, "Torque 12", 9, 0, true, true},
    {32, "M Shaking", 9, 3, true, false},
    {33, "Torque L3", 9, 1, true, false},
    {34, "Torque L4", 9, 2, true, false},
    {35, "F Inertia L2", 10, 3, false, true},
    {36, "F Inertia L3", 10, 2, false, true},
    {37, "F Inertia L4", 10, 4, false, true},
    {38, "F Shk Balcd", 11, 7, false, false},
    {39, "MShk Balcd", 12, 3, true, false},
    {40, "F12 Balcd", 11, 5, false, false},
    {41, "F14 Balcd", 11, 6, false, false},
    {42, "Flywl Torque", 18, 0, false, false},
    {43, "Current FFT", 14, kNoRow, false, false},
};

}  // namespace verlink::test
