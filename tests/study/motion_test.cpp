// A study's numbers are those of the record's run, to the bit.
#include "study/motion.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "core/linkage_model.h"
#include "core/runs.h"
#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "output/catalogue.h"
#include "output/series.h"
#include "study/measure.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

std::uint32_t Bits(double x) { return std::bit_cast<std::uint32_t>(static_cast<float>(x)); }

#define EXPECT_SAME(a, b) ASSERT_EQ(Bits(a), Bits(b)) << what << " at step " << step

class Study_Motion : public Random_Linkages {
   protected:
    /// A random linkage with random loads, solved; false where this one is not to be.
    bool Take_Loaded_Run() {
        if (!Take_Random() || Model.Calctype > 3) return false;
        Take_Forces();
        Model.TorqueImported = false;
        Notes notes(desktop, platform::Answer::kOk);
        return static_cast<bool>(verlink::Solve_Forces(Model));
    }
    /// Both runs step by step; how many steps closed.
    static int Compare_Motion(const study::Motion& motion, study::Wanted wanted) {
        const RunResults &a = motion.Table(), &b = Model.RunTable;
        int closed = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const char* what = "motion";
            EXPECT_EQ(a.Assembled(step), b.Assembled(step)) << step;
            if (!b.Assembled(step)) continue;
            ++closed;
            Compare_Step(a, b, step, what, wanted);
            if (testing::Test::HasFatalFailure()) return closed;
        }
        return closed;
    }
    static void Compare_Step(const RunResults& a, const RunResults& b, int step, const char* what,
                             study::Wanted wanted) {
        for (int row = 0; row <= 3; ++row) EXPECT_SAME(a.Theta(step, row), b.Theta(step, row));
        if (wanted == study::Wanted::kAngles) return;
        for (int point = 0; point <= 2; ++point)
            for (int axis = 0; axis <= 1; ++axis)
                EXPECT_SAME(a.PointXY(step, point, axis), b.PointXY(step, point, axis));
        if (wanted == study::Wanted::kPoints) return;
        for (int row = 0; row <= 2; ++row) {
            EXPECT_SAME(a.Omega(step, row), b.Omega(step, row));
            EXPECT_SAME(a.Alpha(step, row), b.Alpha(step, row));
        }
        for (int axis = 0; axis <= 1; ++axis) {
            for (int point = 0; point <= 2; ++point)
                EXPECT_SAME(a.VelXY(step, point, axis), b.VelXY(step, point, axis));
            for (int point = 0; point <= 3; ++point)
                EXPECT_SAME(a.AccXY(step, point, axis), b.AccXY(step, point, axis));
        }
        EXPECT_SAME(a.OmegaRatio(step), b.OmegaRatio(step));
        EXPECT_SAME(a.MechAdvantage(step), b.MechAdvantage(step));
    }
    /// Mass centres to the bit; what the equations give, which are solved in another order, to the last place of the
    /// largest of them.
    static void Compare_Forces(const RunResults& a, const RunResults& b, int step) {
        const char* what = "mass centres";
        double force = 0;
        for (int axis = 0; axis <= 1; ++axis) {
            for (int row = 3; row <= 5; ++row) EXPECT_SAME(a.VelXY(step, row, axis), b.VelXY(step, row, axis));
            for (int row = 5; row <= 7; ++row) EXPECT_SAME(a.AccXY(step, row, axis), b.AccXY(step, row, axis));
            for (int row = 0; row <= 7; ++row) force = std::max(force, std::abs(b.PinForce(step, row, axis)));
        }
        constexpr double kLastPlace = 1.2e-7;
        for (int axis = 0; axis <= 1; ++axis)
            for (int row = 0; row <= 7; ++row)
                ASSERT_NEAR(a.PinForce(step, row, axis), b.PinForce(step, row, axis), kLastPlace * force) << step;
        const double torque = force * std::max({double{Model.L2}, double{Model.L3}, double{Model.L4}});
        for (int row = 0; row <= 3; ++row)
            ASSERT_NEAR(a.LinkTorque(step, row), b.LinkTorque(step, row),
                        kLastPlace * std::max(torque, std::abs(b.LinkTorque(step, row))))
                << step;
    }
    /// The sums to the last place of the largest force, or of the torque that it makes on the longest link; the
    /// smoothed torque where its average is over the same steps.
    static void Compare_Balance(const RunResults& a, const RunResults& b, int step, bool whole) {
        double force = 0;
        for (int axis = 0; axis <= 1; ++axis)
            for (int row = 0; row <= 7; ++row)
                force =
                    std::max({force, std::abs(b.PinForce(step, row, axis)), std::abs(b.BerkForce(step, row, axis))});
        constexpr double kLastPlaces = 4e-7;
        for (int axis = 0; axis <= 1; ++axis)
            for (int row = 0; row <= 7; ++row)
                ASSERT_NEAR(a.BalancedForce(step, row, axis), b.BalancedForce(step, row, axis), kLastPlaces * force)
                    << step;
        const double torque = force * std::max({double{Model.L2}, double{Model.L3}, double{Model.L4}});
        for (int row = 0; row <= 3; ++row)
            ASSERT_NEAR(a.BalancedMoment(step, row), b.BalancedMoment(step, row),
                        kLastPlaces * std::max(torque, std::abs(b.LinkTorque(step, row))))
                << step;
        if (!whole) return;
        ASSERT_NEAR(a.FlywheelTorque(step), b.FlywheelTorque(step),
                    kLastPlaces * std::max(torque, std::abs(b.LinkTorque(step, 0))))
            << step;
    }
};

TEST_F(Study_Motion, IsTheRecordsRunToTheBitForRandomLinkagesAndBothWidths) {
    SCOPED_TRACE(Trace());
    int runs = 0, gaps = 0;
    study::Motion pairs({}, Lanes::kTwo), widest;
    while (runs < 150) {
        if (!Take_Random() || Model.Calctype > 3) continue;
        ++runs;
        study::Design design = study::Design_Of(Model);
        for (study::Motion* motion : {&pairs, &widest})
            for (const auto wanted : {study::Wanted::kAngles, study::Wanted::kPoints, study::Wanted::kMotion}) {
                motion->Solve(design, wanted);
                ASSERT_EQ(motion->Last(), Model.NSteps);
                const int closed = Compare_Motion(*motion, wanted);
                if (HasFailure()) return;
                EXPECT_EQ(motion->Closed_Steps(), closed);
                gaps += closed <= Model.NSteps ? 1 : 0;
            }
    }
    EXPECT_GT(gaps, 10);
}

TEST_F(Study_Motion, HasTheRecordsForcesToTheirLastPlace) {
    SCOPED_TRACE(Trace());
    study::Motion motion;
    int runs = 0;
    while (runs < 60) {
        if (!Take_Loaded_Run()) continue;
        ++runs;
        study::Design design = study::Design_Of(Model);
        motion.Solve(design, study::Wanted::kForces);
        for (int step = 0; step <= Model.NSteps; ++step) {
            if (!motion.Closed(step)) continue;
            ASSERT_TRUE(motion.Loaded(step));
            Compare_Forces(motion.Table(), Model.RunTable, step);
            if (HasFatalFailure()) return;
        }
    }
}

/// Full balance by counterweights at half the length of their link, as it stands without a choice.
TEST_F(Study_Motion, HasTheRecordsBalanceToItsLastPlace) {
    SCOPED_TRACE(Trace());
    study::Motion motion;
    int runs = 0, steps = 0;
    while (runs < 60) {
        if (!Take_Loaded_Run() || Model.Calctype != 3) continue;
        ++runs;
        Notes notes(desktop, platform::Answer::kOk);
        study::Design design = study::Design_Of(Model);
        motion.Solve(design, study::Wanted::kBalance);
        // The record balances each step, those that do not close among them.
        const bool whole = motion.Closed_Steps() == Model.NSteps + 1;
        ASSERT_TRUE(Default_Weights(Model));
        ASSERT_TRUE(Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius));
        Smooth_Torque(Model, 0.05, Model.RunTable.BalancedMoment);
        for (int step = 0; step <= Model.NSteps; ++step) {
            if (!motion.Closed(step)) continue;
            ++steps;
            ASSERT_TRUE(motion.Balanced(step));
            Compare_Balance(motion.Table(), Model.RunTable, step, whole);
            if (HasFatalFailure()) return;
        }
    }
    EXPECT_GT(steps, 1000);
}

TEST_F(Study_Motion, KeepsTheMassCentresOfTheLinksWhereItBalances) {
    SCOPED_TRACE(Trace());
    while (!Take_Loaded_Run() || Model.Calctype != 3) continue;
    study::Design design = study::Design_Of(Model);
    study::Motion loaded, balanced;
    loaded.Solve(design, study::Wanted::kForces);
    balanced.Solve(design, study::Wanted::kBalance);
    for (int step = 0; step <= Model.NSteps; ++step) {
        if (!loaded.Closed(step)) continue;
        const char* what = "mass centres";
        for (int axis = 0; axis <= 1; ++axis) {
            for (int row = 3; row <= 5; ++row)
                EXPECT_SAME(balanced.Table().VelXY(step, row, axis), loaded.Table().VelXY(step, row, axis));
            for (int row = 5; row <= 7; ++row)
                EXPECT_SAME(balanced.Table().AccXY(step, row, axis), loaded.Table().AccXY(step, row, axis));
        }
        EXPECT_FALSE(loaded.Balanced(step));
    }
}

TEST_F(Study_Motion, SolvesAFurtherAngleAsARunOfOnePositionDoes) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Model.PolarCoords = true;
    Turn_Ground(20);
    Model.Calctype = 3;
    Take_Angles(0, 360, 7);
    study::Design design = study::Design_Of(Model);
    study::Motion motion({33.25, 500});
    ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
    Model.Calctype = 1;
    Model.Alpha2 = 0;
    for (const int angle : {0, 1}) {
        Model.ThetaZero = angle == 0 ? 33.25 : 500;
        Integer result;
        Oneposition(result);
        const int step = motion.Step_At(angle);
        ASSERT_TRUE(motion.Closed(step));
        const char* what = "angle";
        for (int row = 0; row <= 3; ++row) EXPECT_SAME(motion.Table().Theta(step, row), Model.RunTable.Theta(0, row));
        EXPECT_SAME(motion.Table().AccXY(step, 2, 1), Model.RunTable.AccXY(0, 2, 1));
    }
}

TEST_F(Study_Motion, ACrankThatIsSpedUpOrAtRestIsTheRecords) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Model.PolarCoords = true;
    Turn_Ground(20);
    study::Motion motion;
    for (const double speed : {7.0, -7.0, 0.0})
        for (const double acceleration : {-3.75, 0.0})
            for (const int calctype : {1, 2, 3}) {
                SCOPED_TRACE(testing::Message() << speed << ' ' << acceleration << ' ' << calctype);
                Model.Omega2Input = speed;
                Model.Alpha2 = acceleration;
                Model.ThetaZero = 33;
                Model.TimeStart = 0.125;
                Model.TimeStep = 0.03125;
                Take_Angles(10, 85, 10);
                Model.Calctype = calctype;
                Model.NSteps = calctype == 1 ? 0 : 8;
                study::Design design = study::Design_Of(Model);
                ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
                Integer result;
                Calc_Setup(calctype, result);
                EXPECT_EQ(motion.Last(), Model.NSteps);
                EXPECT_EQ(Compare_Motion(motion, study::Wanted::kMotion), motion.Closed_Steps());
                EXPECT_GT(motion.Closed_Steps(), 0);
            }
}

TEST_F(Study_Motion, ARunThatStartsAtAWholeTurnStartsAtZeroAsTheRecordsDoes) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Take_Angles(360, 720, 30);
    Model.Calctype = 3;
    Model.NSteps = 12;
    study::Motion motion;
    for (const char* mode : {"abs", "180", "mod"}) {
        Model.ModuloMode = mode;
        study::Design design = study::Design_Of(Model);
        ASSERT_TRUE(motion.Solve(design, study::Wanted::kAngles));
        Integer result;
        Calc_Setup(3, result);
        EXPECT_EQ(motion.Table().Theta(0, 0), Model.RunTable.Theta(0, 0)) << mode;
        EXPECT_EQ(Compare_Motion(motion, study::Wanted::kAngles), 13);
        if (std::string(mode) == "abs") {
            EXPECT_EQ(motion.Table().Theta(0, 0), 0);
        }
    }
}

TEST_F(Study_Motion, StepsBehindTheLimitOfTheRunDoNotClose) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Take_Angles(10, 85, 10);
    Model.Calctype = 3;
    study::Motion motion;
    for (const double speed : {7.0, -7.0}) {
        Model.Omega2Input = speed;
        Model.NSteps = 12;
        study::Design design = study::Design_Of(Model);
        ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
        EXPECT_EQ(motion.Last(), 12);
        EXPECT_EQ(motion.Closed_Steps(), 9) << "seven and a half strides";
        for (int step = 0; step <= 12; ++step) EXPECT_EQ(motion.Closed(step), step <= 8) << step;
    }
}

TEST_F(Study_Motion, TheLimitOfARunIsOneStepMoreWhereTheStridesEndThereAsTheRecordsIs) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Model.PolarCoords = true;
    Turn_Ground(0);
    Take_Angles(0, 57, 7);
    Model.ThetaStartRad = 0, Model.ThetaEndRad = 1, Model.ThetaStepRad = 0.125;
    Model.Calctype = 3;
    study::Motion motion({200, 300});
    for (const double speed : {7.0, -7.0}) {
        Model.Omega2Input = speed;
        Model.NSteps = 12;
        study::Design design = study::Design_Of(Model);
        ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
        for (int step = 0; step <= 12; ++step) EXPECT_EQ(motion.Closed(step), step <= 9) << step;
        EXPECT_EQ(motion.Table().Theta(8, 0), motion.Table().Theta(9, 0));
        for (const int angle : {0, 1}) {
            EXPECT_TRUE(motion.Closed(motion.Step_At(angle)));
            EXPECT_NEAR(motion.Table().Theta(motion.Step_At(angle), 0), angle == 0 ? 200 : 300, 1e-4);
        }
    }
}

TEST_F(Study_Motion, TheLongestRunIsTheRecords) {
    Take_Crank_Rocker();
    Take_Circuit(2);
    Take_Angles(0, 360, 0.125);
    Model.Calctype = 3;
    Model.NSteps = kLastStep;
    study::Design design = study::Design_Of(Model);
    study::Motion motion;
    ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
    Integer result;
    Calc_Setup(3, result);
    EXPECT_EQ(Compare_Motion(motion, study::Wanted::kMotion), kLastStep + 1);
}

TEST_F(Study_Motion, WhereLinksLieOnOneAnotherItClosesWhereTheRecordsDoes) {
    study::Motion motion;
    int open = 0;
    const double lengths[][4] = {{2, 1, 1, 2}, {2, 1, 2, 1}, {2, 2, 1, 1}, {1, 2, 2, 1}, {4, 3, 2, 2}, {3, 1, 2, 2}};
    for (const auto& [L1, L2, L3, L4] : lengths)
        for (const int circuit : {1, 2}) {
            SCOPED_TRACE(testing::Message() << L1 << ' ' << L2 << ' ' << L3 << ' ' << L4 << ' ' << circuit);
            Notes notes(desktop, platform::Answer::kIgnore);
            Take_Lengths(L1, L2, L3, L4);
            Take_Coupler_Point(1.5, 20);
            Take_Circuit(circuit);
            Model.PolarCoords = true;
            Turn_Ground(0);
            Take_Angles(0, 360, 15);
            Model.Calctype = 3;
            Model.Omega2Input = 7;
            Model.NSteps = 24;
            study::Design design = study::Design_Of(Model);
            motion.Solve(design, study::Wanted::kMotion);
            Integer result;
            Calc_Setup(3, result);
            open += 25 - Compare_Motion(motion, study::Wanted::kMotion);
        }
    EXPECT_GT(open, 30);
}

TEST_F(Study_Motion, ACrankThatComesToRestBehindAStepThatDoesNotCloseHasTheRatioOfTheRecords) {
    // It closes up to 68 degrees, and comes to rest after half a radian from 80.
    Take_Lengths(4, 3, 2, 2);
    Take_Coupler_Point(1.5, 20);
    Take_Circuit(1);
    Model.PolarCoords = true;
    Turn_Ground(0);
    Model.Calctype = 2;
    Model.NSteps = 1;
    Model.TimeStart = 0, Model.TimeEnd = 1, Model.TimeStep = 1;
    Model.ThetaZero = 80;
    Model.Omega2Input = -1;
    Model.Alpha2 = 1;
    study::Motion motion;
    for (const double zero : {50.0, 80.0}) {
        Model.ThetaZero = zero;
        study::Design design = study::Design_Of(Model);
        ASSERT_TRUE(motion.Solve(design, study::Wanted::kMotion));
        EXPECT_EQ(motion.Closed(0), zero < 68);
        EXPECT_TRUE(motion.Closed(1));
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Calc_Setup(2, result);
        EXPECT_EQ(Compare_Motion(motion, study::Wanted::kMotion), zero < 68 ? 2 : 1);
        EXPECT_EQ(motion.Table().OmegaRatio(1) == 0, zero > 68);
    }
}

TEST_F(Study_Motion, WhatOverflowsInItsMotionDoesNotCloseWhereAnglesAloneAreWanted) {
    study::Motion motion;
    const auto expect = [&](double scale, double speed, double acceleration, bool closes) {
        SCOPED_TRACE(testing::Message() << scale << ' ' << speed << ' ' << acceleration);
        Notes notes(desktop, platform::Answer::kIgnore);
        Take_Lengths(2.667 * scale, 1.115 * scale, 2.5 * scale, 2.5 * scale);
        Take_Coupler_Point(1.697 * scale, -92.66);
        Take_Circuit(1);
        Model.PolarCoords = true;
        Model.Calctype = 1;
        Model.NSteps = 0;
        Model.ThetaZero = 50;
        Model.Omega2Input = speed;
        Model.Alpha2 = acceleration;
        study::Design design = study::Design_Of(Model);
        Integer result;
        Calc_Setup(1, result);
        EXPECT_EQ(bool(Model.RunTable.Assembled(0)), closes);
        for (const auto wanted : {study::Wanted::kAngles, study::Wanted::kPoints, study::Wanted::kMotion}) {
            EXPECT_EQ(motion.Solve(design, wanted), closes);
            EXPECT_EQ(motion.Closed(0), closes);
        }
    };
    expect(1, 7, 3, true);
    expect(1, 1e25, 0, false);
    expect(1, -1e25, 0, false);
    expect(1, 7, 3.3e38, false);
    expect(1, 7, -3.3e38, false);
    expect(1e31, 9000, 0, false);
    expect(1e15, 9000, 0, true);
}

TEST_F(Study_Motion, NothingIsLeftOfForcesAndBalanceWhereTheNextLinkageDoesNotClose) {
    SCOPED_TRACE(Trace());
    while (!Take_Loaded_Run() || Model.Calctype != 3) continue;
    study::Motion motion;
    study::Meter meter;
    const auto measured = [&](const char* words, study::Design design) {
        std::string fault;
        const auto measure = study::Measure_Of(words, false, fault).value();
        motion.Solve(design, measure.wanted);
        return meter.Take(measure, motion, design, 0);
    };
    for (const char* words : {"max Torque 12", "max MShk Balcd", "max F14 Balcd:Mag", "max Theta4"}) {
        study::Design design = study::Design_Of(Model);
        EXPECT_FALSE(study::Is_None(measured(words, design))) << words;
        design.PolarCoords = true;
        design.L1 = 2 * (design.L2 + design.L3 + design.L4);
        EXPECT_TRUE(study::Is_None(measured(words, design))) << words;
    }
}

/// Each statistic from the series that plots have, for every variable and component.
TEST_F(Study_Motion, MeasuresAreThoseOfTheSeriesOfEveryVariable) {
    SCOPED_TRACE(Trace());
    study::Motion motion;
    int runs = 0, balanced = 0;
    while (runs < 8 || balanced < 3) {
        if (!Take_Loaded_Run()) continue;
        ++runs;
        study::Design design = study::Design_Of(Model);
        const bool balances = Model.Calctype == 3;
        balanced += balances ? 1 : 0;
        motion.Solve(design, balances ? study::Wanted::kBalance : study::Wanted::kForces);
        study::Meter meter;
        for (const std::string& variable : Variables_Up_To(balances ? Needs::kBalance : Needs::kForces))
            for (const char* component : {"X", "Y", "Mag", "Ang"})
                for (const bool local : {false, true}) {
                    const Output_Function function{variable, component, local};
                    std::vector<double> values = Series(function, motion.Table(), Model.Link1Angle, Model.NSteps);
                    std::erase_if(values, [](double v) { return std::isnan(v); });
                    const std::string words =
                        function.variable + (Has_Components(function) ? ":" + function.component : "");
                    const auto take = [&](const std::string& statistic) {
                        std::string fault;
                        const auto measure = study::Measure_Of(statistic + " " + words, local, fault);
                        EXPECT_TRUE(measure) << fault;
                        return measure ? meter.Take(*measure, motion, design, 0) : 0.0F;
                    };
                    const auto [least, most] = std::minmax_element(values.begin(), values.end());
                    double sum = 0, squares = 0;
                    for (const double v : values) sum += v, squares += v * v;
                    const auto count = static_cast<double>(values.size());
                    ASSERT_EQ(take("min"), static_cast<float>(*least)) << words;
                    ASSERT_EQ(take("max"), static_cast<float>(*most)) << words;
                    ASSERT_EQ(take("range"), static_cast<float>(*most - *least)) << words;
                    ASSERT_EQ(take("mean"), static_cast<float>(sum / count)) << words;
                    ASSERT_EQ(take("rms"), static_cast<float>(std::sqrt(squares / count))) << words;
                }
    }
}

}  // namespace

}  // namespace verlink::test
