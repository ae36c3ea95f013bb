// What the program leaves out is named with its size.
#include <algorithm>
#include <vector>

#include "core/numeric.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

class By_Design : public Random_Linkages {
   protected:
    static void Make_Run(double ground = 0, int units = 1) {
        auto& m = Model;
        Use_Units(units);
        Enter_Linkage(Road::kBoxes, [&] {
            m.PolarCoords = true;
            m.Link1Angle = ground;
        });
        Take_Angles(0, 360, 10);
        Integer result;
        Calc_Setup(3, result);
    }
    static const Check* Find(const std::vector<Check>& checks, const std::string& name) {
        const auto found = std::ranges::find(checks, name, &Check::name);
        return found == checks.end() ? nullptr : &*found;
    }
    void Expect_Named(const std::string& name, const std::string& words) {
        const std::vector<Check> checks = Checks_Of(Model);
        const Check* check = Find(checks, name);
        ASSERT_NE(check, nullptr) << name;
        EXPECT_EQ(check->verdict, Verdict::kByDesign);
        EXPECT_GT(check->worst, check->expected);
        EXPECT_NE(check->meaning.find(words), std::string::npos) << check->meaning;
        EXPECT_FALSE(Any_Fails(checks));
    }
};

}  // namespace

TEST_F(By_Design, FrictionHasNoMoment) {
    Notes notes(desktop);
    Make_Run();
    verlink::Solve_Forces(Model);
    EXPECT_EQ(Find(Checks_Of(Model), "Moment of friction"), nullptr);
    Model.FrictionForce = 2;
    verlink::Solve_Forces(Model);
    Expect_Named("Moment of friction", "Friction acts at the mass centre of link 3, without a moment");
}

TEST_F(By_Design, LoadsCountFromATurnedGround) {
    Notes notes(desktop);
    Make_Run(30);
    Model.ExtForceMag(3) = 5;
    verlink::Solve_Forces(Model);
    Expect_Named("Directions of loads", "count from the ground link");
    Make_Run(0);
    verlink::Solve_Forces(Model);
    EXPECT_EQ(Find(Checks_Of(Model), "Directions of loads"), nullptr);
}

TEST_F(By_Design, AnImportedTorqueIsTakenAsItStands) {
    Notes notes(desktop);
    Make_Run();
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.ImportedTorque(step) = step == 9 ? -7 : 1;
    verlink::Solve_Forces(Model);
    const std::vector<Check> checks = Checks_Of(Model);
    const Check* check = Find(checks, "Torque on link 4");
    ASSERT_NE(check, nullptr);
    EXPECT_EQ(check->worst, 7);
    EXPECT_EQ(check->where, "step 9, 90 deg");
    Expect_Named("Torque on link 4", "taken as it stands");
}

TEST_F(By_Design, ABalanceLeavesTheMotionOfTheCounterweights) {
    Notes notes(desktop);
    Make_Run(0, 5);
    verlink::Solve_Forces(Model);
    EXPECT_EQ(Find(Checks_Of(Model), "Velocities of mass centres")->verdict, Verdict::kGood);
    Default_Weights(Model);
    Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    Expect_Named("Velocities of mass centres", "A balance leaves those of the counterweights");
    Expect_Named("Accelerations of mass centres", "A balance leaves those of the counterweights");
    Model.RunTable.VelXY(7, 3, 0) += 1;
    EXPECT_EQ(Find(Checks_Of(Model), "Velocities of mass centres")->verdict, Verdict::kFails);
}

TEST_F(By_Design, ASolveStopsWhereNumbersAreBeyondASingle) {
    Notes notes(desktop);
    Make_Run();
    Model.CG(3, 0) = 9e11F;
    Model.LinkMass(3) = 9e11F;
    for (int link = 0; link <= 2; ++link) Model.RunTable.Omega(0, link) = 1e9F;
    verlink::Solve_Forces(Model);
    const std::vector<Check> stopped = Checks_Of(Model);
    const Check* steps = Find(stopped, "Steps not solved");
    ASSERT_NE(steps, nullptr);
    EXPECT_EQ(steps->verdict, Verdict::kByDesign);
    EXPECT_EQ(steps->meaning, "Steps without forces. The solve stopped there, and the steps that follow have none.");
    EXPECT_EQ(steps->unit, "steps");
    EXPECT_EQ(steps->worst, Model.NSteps + 1);
    EXPECT_EQ(steps->where, "step 0, 0 deg");
    for (const char* name : {"Power in and out", "Pin forces", "Shaking force", "Shaking moment", "Net torques"})
        EXPECT_EQ(Find(stopped, name), nullptr) << "nothing is compared where there is nothing";
    Model.CG(3, 0) = 1;
    Model.LinkMass(3) = 1;
    EXPECT_TRUE(Any_Fails(Checks_Of(Model))) << "nothing stops it there";
    EXPECT_EQ(Find(Checks_Of(Model), "Steps not solved"), nullptr);
}

TEST_F(By_Design, NumbersBeyondAllSenseAreNamedAndNothingElseIsChecked) {
    Notes notes(desktop);
    Make_Run();
    Model.LinkMass(3) = 2e12F;
    std::vector<Check> checks = Checks_Of(Model);
    ASSERT_EQ(checks.size(), 1U);
    EXPECT_EQ(checks[0].name, "Size of the numbers");
    EXPECT_EQ(checks[0].verdict, Verdict::kByDesign);
    EXPECT_NEAR(checks[0].worst, 2e12, 1e6);
    EXPECT_EQ(checks[0].expected, 1e12);
    Model.LinkMass(3) = 1;
    Model.ForceAng3 = -3e6F;
    checks = Checks_Of(Model);
    ASSERT_EQ(checks.size(), 1U);
    EXPECT_EQ(checks[0].worst, 3e6);
    EXPECT_EQ(checks[0].expected, 1e6);
    Model.ForceAng3 = 30;
    EXPECT_GT(Checks_Of(Model).size(), 5U);
}

TEST_F(By_Design, EachNumberTypedCountsWhereItIsBeyondAllSense) {
    Notes notes(desktop);
    Make_Run();
    auto& m = Model;
    std::vector<Single*> sizes{&m.L1, &m.L2, &m.L3, &m.L4, &m.Rpa};
    for (Single* more : {&m.Omega2Input, &m.Alpha2, &m.FrictionForce, &m.ForceDist3, &m.ForceDist4})
        sizes.push_back(more);
    std::vector<Single*> angles{&m.Delta, &m.Link1Angle, &m.ForceAng3, &m.ForceAng4};
    for (const int link : {2, 3, 4}) {
        for (Single* more : {&m.LinkMass(link), &m.LinkInertia(link), &m.ExtForceMag(link), &m.ExtTorque(link),
                             &m.BerkMass(link), &m.BerkRadius(link), &m.CG(link, 0)})
            sizes.push_back(more);
        angles.push_back(&m.CG(link, 1));
        angles.push_back(&m.ExtForceAng(link));
    }
    const auto expect = [&](Single* number, double limit) {
        const Single kept = *number;
        for (const double sign : {1.0, -1.0}) {
            *number = sign * 1.125 * limit;
            const std::vector<Check> checks = Checks_Of(m);
            ASSERT_EQ(checks.size(), 1U);
            EXPECT_EQ(checks[0].worst, std::abs(*number));
            EXPECT_EQ(checks[0].expected, limit);
            EXPECT_EQ(checks[0].where, "");
            EXPECT_EQ(checks[0].unit, "");
            EXPECT_EQ(checks[0].meaning,
                      "Single precision has no digits left beside numbers of this size: nothing else is checked.");
        }
        *number = kept;
    };
    for (Single* number : sizes) expect(number, 1e12);
    for (Single* number : angles) expect(number, 1e6);
    m.ForceAng3 = 1e6;
    EXPECT_EQ(Checks_Of(m).size(), 1U) << "the limit itself is beyond";
    m.ForceAng4 = 3e6;
    EXPECT_EQ(Checks_Of(m)[0].worst, 3e6) << "the largest is told";
    m.LinkMass(2) = 2e12F;
    EXPECT_EQ(Checks_Of(m)[0].expected, 1e12);
    m.ForceAng4 = 30;
    m.ForceAng3 = Single(0.99e6);
    m.LinkMass(2) = 0.99e12F;
    EXPECT_GT(Checks_Of(m).size(), 5U);
}

TEST_F(By_Design, ACognateInHandMayHaveTheLengthsOfTheBoxes) {
    Notes notes(desktop);
    Make_Run();
    Find_Cognates();
    EXPECT_EQ(Find(Checks_Of(Model), "Cognates")->verdict, Verdict::kGood);
    const Single shown = FNRound(Model.L4, Model.DecLengthShown);
    constexpr int kItemL4 = 4;
    Model.Cognates(1, kItemL4) = Single(shown + 0.0004);
    Cayley(Model.Cognates, Model.CayleyRows);
    Model.L4 = shown;
    const std::vector<Check> checks = Checks_Of(Model);
    const Check* check = Find(checks, "Cognates");
    ASSERT_NE(check, nullptr);
    EXPECT_EQ(check->verdict, Verdict::kByDesign);
    EXPECT_NEAR(check->worst, 0.0004, 1e-6);
    EXPECT_NE(check->meaning.find("Lengths are rounded, as the boxes show them"), std::string::npos);
    Model.L4 = Single(shown + 0.02);
    EXPECT_EQ(Find(Checks_Of(Model), "Cognates")->verdict, Verdict::kFails);
}

TEST_F(By_Design, ADrivenRunTakesTheAccelerationOfTheStepBefore) {
    Notes notes(desktop);
    Make_Run();
    Drive();
    Integer result;
    Imported_Run(result);
    Expect_Named("Accelerations", "the crank's acceleration of the step before");
}

TEST_F(By_Design, StepsBehindOneThatIsNotSolvedHaveNoForces) {
    Notes notes(desktop, platform::Answer::kIgnore);
    auto& m = Model;
    Solve_Near_The_Ground();
    ASSERT_FALSE(m.RunTable.Assembled(20));
    EXPECT_EQ(Find(Checks_Of(m), "Steps not solved"), nullptr);
    // What a solve leaves that stopped at step 20.
    for (int step = 20; step <= m.NSteps; ++step) {
        for (int row = 0; row <= 7; ++row)
            for (int axis = 0; axis <= 1; ++axis) m.RunTable.PinForce(step, row, axis) = 0;
        for (int row = 0; row <= 3; ++row) m.RunTable.LinkTorque(step, row) = 0;
    }
    Expect_Named("Steps not solved", "The solve stopped there");
}

}  // namespace verlink::test
