// The table of output variables: every name, where it leads, and what picking it leaves in the flags.
#include "output/catalogue.h"

#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

constexpr int kNoRow = -1;

struct Row {
    int number;
    const char* label;
    int group;
    int row;
    bool scalar;
    bool coordinates;
};

constexpr Row kRows[] = {
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

struct Catalogue : Fixture {
    Catalogue() { Load_Catalogue(); }
};

}  // namespace

TEST_F(Catalogue, HoldsFortyThreeNamesInTheirOrder) {
    ASSERT_EQ(std::size(kRows), 43u);
    for (const Row& row : kRows) EXPECT_EQ(Model.VariableNames(row.number), row.label) << row.number;
    EXPECT_EQ(Model.VariableNames(0), "");
    for (int number = 44; number <= 50; ++number) EXPECT_EQ(Model.VariableNames(number), "");
}

TEST_F(Catalogue, HoldsFourComponentNames) {
    EXPECT_EQ(Model.ComponentNames(0), "");
    EXPECT_EQ(Model.ComponentNames(1), "X");
    EXPECT_EQ(Model.ComponentNames(2), "Y");
    EXPECT_EQ(Model.ComponentNames(3), "Mag");
    EXPECT_EQ(Model.ComponentNames(4), "Ang");
}

TEST_F(Catalogue, EveryVariableLeadsToItsGroupRowAndKindInEverySlot) {
    for (const Row& row : kRows)
        for (int slot = 1; slot <= 4; ++slot) {
            SCOPED_TRACE(row.label);
            Model.FuncGroup(slot) = -7;
            Model.FuncRow(slot) = -7;
            Select_Variable(row.label, slot);
            EXPECT_EQ(Model.FuncGroup(slot), row.group);
            EXPECT_EQ(Model.FuncRow(slot), row.row == kNoRow ? -7 : row.row);
            EXPECT_EQ(Model.ScalarFunction, row.scalar);
            EXPECT_EQ(Model.CoordFunction, row.coordinates);
            EXPECT_EQ(Model.FFTFunction, row.number == 43);
        }
}

TEST_F(Catalogue, TheCurrentTransformLeavesTheRowOfItsSlot) {
    Select_Variable("Accel CG 4", 2);
    Select_Variable("Current FFT", 2);
    EXPECT_EQ(Model.FuncGroup(2), 14);
    EXPECT_EQ(Model.FuncRow(2), 7);
}

TEST_F(Catalogue, TheDrivingTorqueIsAScalarWithTheFrameLeftOpen) {
    Select_Variable("Torque 12", 1);
    EXPECT_TRUE(Model.ScalarFunction);
    EXPECT_TRUE(Model.CoordFunction);
}

TEST_F(Catalogue, OtherSlotsAreLeftAlone) {
    Select_Variable("Veloc CP", 1);
    Select_Variable("Accel CG 2", 3);
    EXPECT_EQ(Model.FuncGroup(1), 4);
    EXPECT_EQ(Model.FuncRow(1), 2);
    EXPECT_EQ(Model.FuncGroup(2), 0);
    EXPECT_EQ(Model.FuncGroup(3), 5);
    EXPECT_EQ(Model.FuncRow(3), 6);
}

TEST_F(Catalogue, AnUnknownNameClearsTheFlagsAndLeavesTheSlot) {
    for (const char* unknown : {"", "theta2", "Theta2 ", " Theta2", "Veloc I 2,", "Veloc"}) {
        Select_Variable("Torque 12", 1);
        Model.FFTFunction = true;
        Select_Variable(unknown, 1);
        EXPECT_FALSE(Model.ScalarFunction || Model.CoordFunction || Model.FFTFunction) << unknown;
        EXPECT_EQ(Model.FuncGroup(1), 9);
        EXPECT_EQ(Model.FuncRow(1), 0);
    }
}

TEST_F(Catalogue, AComponentIsHeldAsNumberAndText) {
    int expected = 0;
    for (const char* name : {"X", "Y", "Mag", "Ang"}) {
        Set_Component(name, 2);
        EXPECT_EQ(Model.FuncComponent(2), expected++);
        EXPECT_EQ(Model.ComponentLabel(2), name);
    }
    EXPECT_EQ(Model.FuncComponent(1), 0);
    EXPECT_EQ(Model.ComponentLabel(1), "");
}

TEST_F(Catalogue, AnEmptyOrUnknownComponentChangesNothing) {
    Set_Component("Mag", 3);
    for (const char* unknown : {"", "x", "Magnitude", "Ang ", "Z"}) {
        Set_Component(unknown, 3);
        EXPECT_EQ(Model.FuncComponent(3), 2);
        EXPECT_EQ(Model.ComponentLabel(3), "Mag");
    }
}

TEST_F(Catalogue, ASlotBeyondTheTablesIsReportedAndLeavesTheOthers) {
    Select_Variable("Veloc CP", 1);
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Select_Variable");
    Select_Variable("Theta3", 5);
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Set_Component");
    Set_Component("Y", 5);
    EXPECT_EQ(Model.FuncGroup(1), 4);
    EXPECT_EQ(Model.FuncRow(1), 2);
}

}  // namespace verlink::test
