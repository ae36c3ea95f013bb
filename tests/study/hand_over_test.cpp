// A linkage of a study becomes the one in hand: its values, and what no longer holds.
#include "study/hand_over.h"

#include <cmath>

#include "core/results.h"
#include "study/design.h"
#include "tests/support/fixture.h"
#include "tests/support/study_model.h"

namespace verlink::test {

namespace {

class HandOver : public Fixture {
   protected:
    HandOver() {
        Begin_With_A_Crank_Rocker();
        Run_Holds();
        Forces_Hold();
        Model_Saved();
    }
    static void Take(const char* name, float value) {
        // By time the crank's acceleration and its first angle move something, too.
        Model.Calctype = 2;
        std::string fault;
        const int field = study::Field_Named(name, study::Design_Of(Model), fault).value();
        study::Hand_Over(std::span(&field, 1), std::span(&value, 1), Model);
    }
};

}  // namespace

TEST_F(HandOver, LengthsComeThroughTheDoorWithAllThatFollows) {
    Take("Delta", -90);
    EXPECT_EQ(Model.Delta, -90);
    EXPECT_NEAR(Model.DeltaRad, -M_PI / 2, 1e-6);
    EXPECT_FALSE(Model.RunStands);
    EXPECT_FALSE(Model.SavedFlag);
    Take("L2", 1.0F / 3);
    EXPECT_EQ(Model.L2, Single(1.0F / 3)) << "to the last digit";
    EXPECT_EQ(Model.LinkArray(2), Model.L2);
}

TEST_F(HandOver, WithAnotherDriveTheRunFalls) {
    for (const char* name : {"ThetaZero", "Omega2Input", "Alpha2"}) {
        Run_Holds();
        Model_Saved();
        Take(name, 12.5F);
        EXPECT_FALSE(Model.RunStands) << name;
        EXPECT_FALSE(Model.SavedFlag) << name;
    }
    EXPECT_EQ(Model.ThetaZero, 12.5);
    EXPECT_EQ(Model.Omega2Input, 12.5);
    EXPECT_EQ(Model.Alpha2, 12.5);
}

TEST_F(HandOver, WithOtherMassesOrLoadsTheForcesFallAndTheRunStands) {
    for (const char* name : {"LinkMass(2)", "CG(3,1)", "ExtTorque(4)"}) {
        Forces_Hold();
        Model_Saved();
        Take(name, 12.5F);
        EXPECT_TRUE(Model.RunStands) << name;
        EXPECT_FALSE(Model.DynamicsDone) << name;
        EXPECT_FALSE(Model.SavedFlag) << name;
    }
    EXPECT_EQ(Model.LinkMass(2), 12.5);
    EXPECT_EQ(Model.CG(3, 1), 12.5);
    EXPECT_EQ(Model.ExtTorque(4), 12.5);
}

TEST_F(HandOver, TheSameValuesChangeNothing) {
    for (const char* name : {"L2", "L3", "Rpa", "L1", "Omega2Input", "Alpha2", "LinkMass(3)"}) {
        std::string fault;
        study::Design design = study::Design_Of(Model);
        const int field = study::Field_Named(name, design, fault).value_or(0);
        Take(name, static_cast<float>(double{study::Fields()[static_cast<std::size_t>(field)].place(design)}));
        EXPECT_TRUE(Model.RunStands) << name;
        EXPECT_TRUE(Model.DynamicsDone) << name;
        EXPECT_TRUE(Model.SavedFlag) << name;
    }
}

}  // namespace verlink::test
