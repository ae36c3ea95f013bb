// What does not close, is not loaded or not balanced in a study's run, and what such a run leaves out.
#include <cmath>
#include <string>

#include "core/linkage_model.h"
#include "core/runs.h"
#include "study/measure.h"
#include "study/motion.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

class Study_Refusals : public Random_Linkages {
   protected:
    /// One position, or a run by angle, of a crank that goes round.
    static study::Design Crank_That_Turns(int calctype, double stride = 30) {
        study::Design d;
        d.PolarCoords = true;
        d.L1 = 4, d.L2 = 1, d.L3 = 3.5, d.L4 = 3, d.Rpa = 2.5, d.Delta = 20;
        d.CircuitSign = -1;
        d.Calctype = calctype;
        d.ThetaZero = 40;
        d.ThetaEnd = 360, d.ThetaStep = stride;
        d.ThetaEndRad = 360 * kDegToRad;
        d.ThetaStepRad = stride * kDegToRad;
        d.Omega2Input = 7;
        EXPECT_EQ(study::Take_Limits(d), "");
        return d;
    }
};

}  // namespace

TEST_F(Study_Refusals, NoStepClosesWhereNothingFollowsFromTheValues) {
    study::Motion motion;
    for (const int calctype : {1, 3}) {
        const study::Design sound = Crank_That_Turns(calctype);
        study::Design none[] = {sound, sound, sound, sound};
        none[0].Rpa = -1;
        none[1].L2 = -1;
        none[2].L1 = 8;
        // Its length is more than a single holds, and the one before still stands there.
        none[3].PolarCoords = false;
        none[3].Link1X = none[3].Link1Y = 3e38;
        for (study::Design& broken : none) {
            study::Design before = sound;
            EXPECT_TRUE(motion.Solve(before, study::Wanted::kMotion));
            EXPECT_EQ(motion.Closed_Steps(), motion.Last() + 1);
            EXPECT_FALSE(motion.Solve(broken, study::Wanted::kMotion)) << &broken - none;
            EXPECT_EQ(motion.Closed_Steps(), 0) << &broken - none;
            for (int step = 0; step <= motion.Last(); ++step) EXPECT_FALSE(motion.Closed(step)) << &broken - none;
        }
    }
}

/// The crank is so near to the ground that its cosine is 1. Then the rocker lies along the ground, or the coupler does,
/// turned round by half a turn, which leaves nothing of the square's factor in its equation.
TEST_F(Study_Refusals, AnAngleWhoseEquationIsLinearIsRefusedAsInTheRecord) {
    const double lengths[][4] = {{4, 1, 1, 2}, {4, 1, 2, 5}};
    study::Motion motion;
    for (const auto& [L1, L2, L3, L4] : lengths)
        for (const int circuit : {1, 2}) {
            SCOPED_TRACE(testing::Message() << L3 << ' ' << circuit);
            Notes notes(desktop, platform::Answer::kIgnore);
            Take_Lengths(L1, L2, L3, L4);
            Take_Coupler_Point(1.5, 20);
            Take_Circuit(circuit);
            Model.PolarCoords = true;
            Turn_Ground(0);
            Model.Calctype = 1;
            Model.NSteps = 0;
            Model.ThetaZero = 1e-7;
            Model.Omega2Input = 7;
            Model.Alpha2 = 0;
            study::Design design = study::Design_Of(Model);
            Integer result;
            Calc_Setup(1, result);
            EXPECT_FALSE(Model.RunTable.Assembled(0));
            EXPECT_FALSE(motion.Solve(design, study::Wanted::kMotion));
            EXPECT_FALSE(motion.Closed(0));
        }
}

TEST_F(Study_Refusals, ARunHasNoPoles) {
    study::Motion motion;
    study::Design design = Crank_That_Turns(3);
    ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
    for (int step = 0; step <= motion.Last(); ++step)
        for (const int axis : {0, 1}) {
            EXPECT_EQ(motion.Table().FixedCentrode(step, 0, axis), 0);
            EXPECT_EQ(motion.Table().MovingCentrode(step, 0, axis), 0);
        }
}

TEST_F(Study_Refusals, TheLongestRunIsLoadedToItsEnd) {
    study::Motion motion;
    study::Design design = Crank_That_Turns(3, 0.125);
    design.LinkMass(3) = 2;
    design.CG(3, 0) = 1;
    ASSERT_TRUE(motion.Solve(design, study::Wanted::kForces));
    ASSERT_EQ(motion.Last(), kLastStep);
    EXPECT_TRUE(motion.Loaded(kLastStep));
    // All round the last position is the first one.
    const double torque = motion.Table().LinkTorque(0, 0);
    EXPECT_GT(std::abs(torque), 1);
    EXPECT_NEAR(motion.Table().LinkTorque(kLastStep, 0), torque, 1e-4 * std::abs(torque));
}

/// The coupler's mass times its distance is more than a single holds; as slow as it is, its inertia is not.
TEST_F(Study_Refusals, WhatNeedsCounterweightsThatNoSingleHoldsIsLoadedAndNotBalanced) {
    study::Motion motion;
    study::Meter meter;
    study::Design design = Crank_That_Turns(3);
    design.Omega2Input = 1e-10;
    design.LinkMass(3) = 1e30;
    design.CG(3, 0) = 1e10;
    ASSERT_TRUE(motion.Solve(design, study::Wanted::kBalance));
    for (int step = 0; step <= motion.Last(); ++step) {
        EXPECT_TRUE(motion.Loaded(step)) << step;
        EXPECT_FALSE(motion.Balanced(step)) << step;
    }
    std::string fault;
    const auto taken = [&](const char* words) {
        return meter.Take(study::Measure_Of(words, false, fault).value(), motion, design, 0);
    };
    EXPECT_TRUE(study::Is_None(taken("max MShk Balcd")));
    EXPECT_FALSE(study::Is_None(taken("max Torque 12")));
}

}  // namespace verlink::test
