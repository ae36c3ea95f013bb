// The table of output variables: every name, where it leads, and what picking it leaves in the flags.
#include "output/catalogue.h"

#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "output/reading.h"
#include "tests/output/catalogue_rows.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

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

TEST_F(Catalogue, EveryVariableIsFoundByItsNameUnderItsNumber) {
    for (const Row& row : kRows) {
        const auto facts = Facts_Of(row.label);
        ASSERT_TRUE(facts) << row.label;
        EXPECT_EQ(facts->number, row.number);
        EXPECT_EQ(facts->group, row.group) << row.label;
        EXPECT_EQ(Variable_Name(row.number), row.label);
    }
    EXPECT_FALSE(Facts_Of(""));
}

TEST_F(Catalogue, TheGroupsWithComponentsAreThoseThatReadOtherwiseByThem) {
    RunResults& run = Model.RunTable;
    for (const int axis : {0, 1}) {
        run.VelXY(0, 0, axis) = run.AccXY(0, 0, axis) = run.PointXY(0, 0, axis) = 3 + axis;
        run.PinForce(0, 0, axis) = run.BalancedForce(0, 0, axis) = run.BerkForce(0, 0, axis) = 3 + axis;
    }
    for (int group = 0; group <= 22; ++group) {
        const auto x = Read_Run(run, group, 0, 0, 0, 0, {}), y = Read_Run(run, group, 0, 0, 0, 1, {});
        EXPECT_EQ(Group_Has_Components(group), x != y) << group;
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
