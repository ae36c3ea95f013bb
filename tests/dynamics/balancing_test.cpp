// Counterweights, the sums with them, what is refused, and what balancing leaves behind.
#include "dynamics/balancing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

class Balancing : public Fixture {
   protected:
    Balancing() { Initialize(); }
    RunResults& table = Model.RunTable;

    static void Balance() {
        ASSERT_TRUE(Default_Weights(Model));
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    }
    double Largest(const ForceTable& forces, int row) const {
        double largest = 0;
        for (int step = 0; step <= Model.NSteps; ++step) largest = std::max(largest, std::abs(At(forces, step, row)));
        return largest;
    }
    /// The sums with numbers of their own in the tables.
    void Expect_Sums_Of_What_The_Tables_Hold(int calctype, const std::string& message) {
        Model.Calctype = calctype;
        Model.NSteps = 3;
        for (int step = 0; step <= 3; ++step) {
            for (int row = 0; row <= 7; ++row)
                for (int axis = 0; axis <= 1; ++axis) {
                    table.BerkForce(step, row, axis) = 100 * step + 10 * row + axis;
                    table.PinForce(step, row, axis) = 0.5;
                }
            for (int row = 0; row <= 3; ++row) {
                table.BerkTorque(step, row) = step - row;
                table.LinkTorque(step, row) = 0.25;
            }
        }
        desktop.Expect_Message(message, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
        EXPECT_FALSE(Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius).first);
        EXPECT_TRUE(Model.BalanceDone);
        for (int step = 0; step <= 3; ++step) {
            for (int row = 0; row <= 3; ++row) EXPECT_EQ(table.BalancedMoment(step, row), step - row + 0.25);
            for (int axis = 0; axis <= 1; ++axis) {
                for (int row = 0; row <= 6; ++row)
                    EXPECT_EQ(table.BalancedForce(step, row, axis), 100 * step + 10 * row + axis + 0.5);
                EXPECT_EQ(table.BalancedForce(step, 7, axis), -(200 * step + 110 + 2 * axis + 1.0));
            }
        }
    }
};

}  // namespace

TEST_F(Balancing, FullCounterweightsLeaveNoShakingForce) {
    for (const Scenario& scenario : kScenarios) {
        if (scenario.loads || scenario.friction != 0) continue;
        SCOPED_TRACE(scenario.name);
        Run_Scenario(scenario);
        Solve_Forces();
        Balance();
        ASSERT_GT(Largest(table.PinForce, 7), 1);
        EXPECT_LT(Largest(table.BalancedForce, 7), 1e-5 * Largest(table.PinForce, 7));
        EXPECT_GT(Largest(table.BalancedForce, 5), 0.1 * Largest(table.PinForce, 5));
    }
}

TEST_F(Balancing, MassTradedForRadiusBalancesAsWell) {
    Run_Scenario({.name = "masses alone"});
    Solve_Forces();
    Berkof_Setup(Model);
    Model.BerkMass(2) = 0.02;
    Model.BerkRadius(2) = Model.MRNeeded(2) / 0.02;
    Model.BerkRadius(4) = 0.3;
    Model.BerkMass(4) = Model.MRNeeded(4) / 0.3;
    Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    EXPECT_LT(Largest(table.BalancedForce, 7), 1e-5 * Largest(table.PinForce, 7));
}

TEST_F(Balancing, WeightsAreCompletedWithInertiaAndPlace) {
    Run_Scenario({.name = "masses alone"});
    for (const int link : {1, 3}) Model.BerkMass(link) = Model.BerkInertia(link) = 5;
    Balance();
    for (const int link : {2, 4}) {
        const double mass = Model.BerkMass(link), radius = Model.LinkArray(link) / 2;
        EXPECT_NEAR(mass * radius, Model.MRNeeded(link), 1e-8);
        EXPECT_NEAR(Model.BerkInertia(link), mass * radius * radius, 1e-8);
        EXPECT_EQ(Model.BerkCG(link, 0), Model.BerkRadius(link));
        EXPECT_EQ(Model.BerkCG(link, 1), Model.MRAngle(link));
    }
    for (const int link : {1, 3}) {
        EXPECT_EQ(Model.BerkMass(link), 0);
        EXPECT_EQ(Model.BerkInertia(link), 0);
        for (const int column : {0, 1}) EXPECT_EQ(Model.BerkCG(link, column), Model.CG(link, column));
    }
}

TEST_F(Balancing, ACrankAndACouplerWithoutMassNeedNothingOnLink2) {
    Run_Scenario({.name = "masses alone"});
    Model.LinkMass(2) = Model.LinkMass(3) = 0;
    ASSERT_TRUE(Default_Weights(Model));
    EXPECT_EQ(Model.MRNeeded(2), 0);
    EXPECT_EQ(Model.BerkMass(2), 0);
    EXPECT_EQ(Model.BerkRadius(2), Single(Model.LinkArray(2) / 2));
    EXPECT_GT(Model.MRNeeded(4), 0);
}

TEST_F(Balancing, WithoutMassesTheCounterweightsAddNothing) {
    Run_Scenario({.name = "friction", .friction = 2});
    for (const int link : {2, 3, 4}) Model.LinkMass(link) = 0;
    Solve_Forces();
    Balance();
    for (int step = 0; step <= Model.NSteps; ++step) {
        for (const int row : {0, 1, 5, 6}) {
            EXPECT_EQ(At(table.BerkForce, step, row), Vector{});
            EXPECT_EQ(At(table.BalancedForce, step, row), At(table.PinForce, step, row));
        }
        EXPECT_EQ(table.BalancedMoment(step, 0), table.LinkTorque(step, 0));
    }
}

TEST_F(Balancing, LoadsOnLinks3And4CountTwiceInTheirNetTorques) {
    Run_Scenario({.name = "loads", .loads = true});
    Solve_Forces();
    Balance();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        const double load3 = Load_On_3(at.l3).Moment(), load4 = Load_On_4(at.l4).Moment();
        EXPECT_NEAR(table.BerkTorque(step, 1), load3, 1e-4);
        EXPECT_NEAR(table.BalancedMoment(step, 1), -at.l3.Moment() + 2 * load3, 1e-4);
        EXPECT_NEAR(table.BalancedMoment(step, 2), -at.l4.Moment() - Model.BerkInertia(4) * at.l4.a + 2 * load4, 1e-3);
    }
}

TEST_F(Balancing, AveragesAndEffectiveValuesOfTheTorquesAreKept) {
    Run_Scenario({.name = "loads", .loads = true});
    Solve_Forces();
    Balance();
    const int count = Model.NSteps + 1;
    for (int row = 0; row <= 3; ++row) {
        int column = 0;
        for (const TorqueTable* torques : {&table.BerkTorque, &table.BalancedMoment}) {
            double sum = 0, squares = 0;
            for (int step = 0; step < count; ++step) {
                const double value = (*torques)(step, row);
                sum += value;
                // Each interval counts the squares of its two ends.
                squares += value * value * (step == 0 || step == count - 1 ? 0.5 : 1);
            }
            EXPECT_NEAR(Model.BerkAverage(row, column), sum / count, 1e-4);
            EXPECT_NEAR(Model.BerkRms(row, column), std::sqrt(squares / count), 1e-4);
            ++column;
        }
    }
}

TEST_F(Balancing, AfterwardsTheMassCentresAreThoseOfTheCounterweights) {
    Run_Scenario({.name = "ground turned", .ground = 30});
    Solve_Forces();
    Balance();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion weights(step, Model.BerkMass, Model.BerkInertia, Model.BerkCG), links(step);
        EXPECT_LT(std::abs(At(table.VelXY, step, 3) - weights.l2.velocity), 1e-4);
        EXPECT_LT(std::abs(At(table.AccXY, step, 7) - weights.l4.acceleration), 1e-2);
        EXPECT_LT(std::abs(At(table.VelXY, step, 5) - links.l3.velocity), 1e-4);
    }
    Solve_Forces();
    EXPECT_LT(std::abs(At(table.VelXY, 0, 3) - Motion(0).l2.velocity), 1e-4);
}

TEST_F(Balancing, GivesBackTheFirstEquationsOfTheCounterweights) {
    Run_Scenario({.name = "masses alone"});
    Solve_Forces();
    ASSERT_TRUE(Default_Weights(Model));
    const ForceSolve solve = Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    EXPECT_TRUE(solve);
    ASSERT_TRUE(solve.first);
    const Motion weights(0, Model.BerkMass, Model.BerkInertia, Model.BerkCG);
    EXPECT_NEAR(solve.first->A[18], weights.l2.centre.imag(), 1e-6);
    EXPECT_EQ(solve.first->C[5], 0);  // link 3 has no mass here
}

TEST_F(Balancing, UnderAnImportedTorqueLeavesMassesAndLoadsAsTheyAre) {
    Run_Scenario({.name = "loads", .loads = true, .friction = 0.7});
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) table.ImportedTorque(step) = 0.25 * step - 3;
    const Masses_And_Loads before;
    Solve_Forces();
    Balance();
    EXPECT_EQ(Masses_And_Loads(), before);
    for (int step = 0; step <= Model.NSteps; ++step) {
        const double load4 = Load_On_4(Motion(step).l4).Moment() + 2.25 + table.ImportedTorque(step);
        EXPECT_NEAR(table.BerkTorque(step, 2), -Model.BerkInertia(4) * table.Alpha(step, 2) + load4, 1e-3);
    }
}

TEST_F(Balancing, NothingThatARunOrASolveReadsIsChanged) {
    Run_Scenario({.name = "all at once", .units = 5, .circuit = 2, .loads = true, .friction = 0.7});
    Solve_Forces();
    const ForceTable forces = table.PinForce;
    Balance();
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step)
        for (int row = 0; row <= 7; ++row) EXPECT_EQ(At(table.PinForce, step, row), At(forces, step, row));
}

TEST_F(Balancing, OnePositionIsRefusedAndTheSumsAreMadeOfWhatTheTablesHold) {
    Expect_Sums_Of_What_The_Tables_Hold(
        1, "Cannot balance a linkage for one position.\rPlease recalculate for multi-positions.");
}

TEST_F(Balancing, TimeStepsAreRefusedAndTheSumsAreMadeOfWhatTheTablesHold) {
    Expect_Sums_Of_What_The_Tables_Hold(
        2, "Cannot balance a linkage for Time Steps.\rPlease recalculate for multi-positions.");
}

TEST_F(Balancing, ImportedMotionIsRefusedAndTheSumsAreMadeOfWhatTheTablesHold) {
    for (const int calctype : {4, 5})
        Expect_Sums_Of_What_The_Tables_Hold(calctype, "Cannot balance a cam- or linkage-driven linkage.\r");
}

TEST_F(Balancing, ALinkWithoutLengthIsReported) {
    Run_Scenario({.name = "masses alone"});
    Model.LinkArray(3) = 0;
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Berkof_Setup\r\n\r\n");
    Berkof_Setup(Model);
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Berkof_Setup\r\n\r\n");
    EXPECT_FALSE(Default_Weights(Model));
}

}  // namespace verlink::test
