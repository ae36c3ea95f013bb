// Forces where some steps do not close, and forces made anew: the same numbers as a solve that tells, and silence.
#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "dynamics/solve_again.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

class ClosedSteps : public Fixture {
   protected:
    ClosedSteps() { Initialize(); }
    RunResults& table = Model.RunTable;
    using Rows = std::vector<std::vector<double>>;

    /// By step, what `add` puts into a row.
    template <class Add>
    static Rows By_Step(Add add) {
        Rows rows;
        for (int step = 0; step <= Model.NSteps; ++step) add(step, rows.emplace_back());
        return rows;
    }
    static void Add_All(std::vector<double>& row, int step, const ForceTable& forces, const TorqueTable& torques) {
        for (int slot = 0; slot <= 7; ++slot)
            for (int axis = 0; axis <= 1; ++axis) row.push_back(forces(step, slot, axis));
        for (int slot = 0; slot <= 3; ++slot) row.push_back(torques(step, slot));
    }
    Rows Balanced() const {
        return By_Step([this](int step, auto& row) { Add_All(row, step, table.BalancedForce, table.BalancedMoment); });
    }
    Rows Counterweights() const {
        return By_Step([this](int step, auto& row) { Add_All(row, step, table.BerkForce, table.BerkTorque); });
    }
    Rows Own() const {
        return By_Step([this](int step, auto& row) { Add_All(row, step, table.PinForce, table.LinkTorque); });
    }
    Rows Centres() const {
        return By_Step([this](int step, auto& row) {
            for (int axis = 0; axis <= 1; ++axis)
                for (int centre = 0; centre <= 2; ++centre) {
                    row.push_back(table.VelXY(step, 3 + centre, axis));
                    row.push_back(table.AccXY(step, 5 + centre, axis));
                }
        });
    }
    void Fill(double value) {
        for (int step = 0; step <= Model.NSteps; ++step) {
            for (int slot = 0; slot <= 7; ++slot)
                for (int axis = 0; axis <= 1; ++axis)
                    for (ForceTable* forces : {&table.PinForce, &table.BerkForce, &table.BalancedForce})
                        (*forces)(step, slot, axis) = value;
            for (int slot = 0; slot <= 3; ++slot)
                for (TorqueTable* torques : {&table.LinkTorque, &table.BerkTorque, &table.BalancedMoment})
                    (*torques)(step, slot) = value;
        }
    }
    static double Most(const Rows& rows) {
        double most = 0;
        for (const auto& row : rows)
            for (const double number : row) most = std::max(most, std::abs(number));
        return most;
    }
    static void Expect_Row(const std::vector<double>& found, const std::vector<double>& expected, double close) {
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], close) << i;
    }
    /// All steps but one, which was filled with -77.
    static void Expect_But(std::size_t step, const Rows& found, const Rows& expected) {
        const double close = 2e-6 * Most(expected);
        for (std::size_t i = 0; i < expected.size(); ++i)
            Expect_Row(found[i], i == step ? std::vector<double>(expected[i].size(), -77) : expected[i], close);
    }
    static std::vector<char> Solved() { return std::vector<char>(static_cast<std::size_t>(Model.NSteps) + 1, 7); }
};

}  // namespace

TEST_F(ClosedSteps, AreBalancedAsAWholeRunIsAndTheOthersAreLeft) {
    for (const Scenario& scenario : kScenarios) {
        SCOPED_TRACE(scenario.name);
        Run_Scenario(scenario);
        Solve_Forces();
        const Rows centres = Centres();
        ASSERT_TRUE(Default_Weights(Model));
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        const Rows balanced = Balanced(), weights = Counterweights();
        const double mass = Model.BerkMass(2);
        Fill(-77);
        Model.BerkMass(2) = 1234;
        table.Assembled(1) = false;
        auto solved = Solved();
        Solve_Closed_Steps(Model, solved);
        Balance_Closed_Steps(Model, solved);
        Expect_But(1, Balanced(), balanced);
        Expect_But(1, Counterweights(), weights);
        for (std::size_t step = 0; step < solved.size(); ++step) EXPECT_EQ(solved[step], step != 1) << step;
        EXPECT_EQ(Model.BerkMass(2), 1234) << "the weights in the record are those that the user sees";
        EXPECT_NE(mass, 1234);
        const Rows now = Centres();
        for (std::size_t step = 0; step < now.size(); ++step)
            if (step != 1) Expect_Row(now[step], centres[step], 2e-6 * Most(centres));
    }
}

TEST_F(ClosedSteps, ThatAreNotNamedAreNotBalanced) {
    Run_Scenario({.name = "loads", .loads = true});
    auto solved = Solved();
    Solve_Closed_Steps(Model, solved);
    Fill(-77);
    std::ranges::fill(solved, char{0});
    solved[2] = 1;
    Balance_Closed_Steps(Model, solved);
    for (std::size_t step = 0; step < solved.size(); ++step) EXPECT_EQ(solved[step], step == 2) << step;
    EXPECT_EQ(table.BalancedForce(1, 0, 0), -77);
    EXPECT_EQ(table.BerkForce(3, 0, 0), -77);
    EXPECT_EQ(table.BalancedForce(2, 0, 0), Single(-77 + table.BerkForce(2, 0, 0)));
}

TEST_F(ClosedSteps, ThatCannotBeBalancedAreStruckOffAndTheOthersStay) {
    Run_Scenario({.name = "loads", .loads = true});
    auto solved = Solved();
    Solve_Closed_Steps(Model, solved);
    for (const int slot : {5, 6}) table.PinForce(2, slot, 0) = 2.5e38;  // which no single holds together
    Balance_Closed_Steps(Model, solved);
    for (std::size_t step = 0; step < solved.size(); ++step) EXPECT_EQ(solved[step], step != 2) << step;
    Run_To_An_Open_Step(true);
    table.Assembled(2) = true;
    solved.assign(3, 1);
    Balance_Closed_Steps(Model, solved);
    EXPECT_EQ(solved, (std::vector<char>{1, 1, 0}));
}

TEST_F(ClosedSteps, OfALinkageWithoutALinkCannotBeBalanced) {
    Run_Scenario({.name = "loads", .loads = true});
    auto solved = Solved();
    Model.LinkArray(3) = 0;
    try {
        Balance_Closed_Steps(Model, solved);
        FAIL() << "no failure";
    } catch (const platform::RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), 11);
    }
}

TEST_F(ClosedSteps, AreSmoothedAboutTheAverageOfThoseUpToTheLast) {
    for (int step = 0; step <= 6; ++step) {
        table.BalancedMoment(step, 0) = 10 * step + 4;
        table.LinkTorque(step, 0) = 100 + step;
        table.FlywheelTorque(step) = -77;
    }
    const std::vector<char> all{1, 0, 1, 0, 1, 0, 1};
    const std::span<const char> solved(all.data(), 6);  // a step behind them is nobody's
    Smooth_Solved_Steps(table, 3, 0.25, solved);
    const double average = (4 + 24) / 2.0;
    for (int step = 0; step <= 6; ++step)
        EXPECT_EQ(table.FlywheelTorque(step), step % 2 == 0 && step < 6 ? average + (100 + step - average) / 4 : -77)
            << step;
    Smooth_Solved_Steps(table, 4, 0, solved);
    EXPECT_EQ(table.FlywheelTorque(0), 24);
    Smooth_Solved_Steps(table, 0, 0, solved);
    EXPECT_EQ(table.FlywheelTorque(4), 4);
    Smooth_Solved_Steps(table, 1, 0.25, std::vector<char>{0, 0, 0, 0, 1});
    EXPECT_EQ(table.FlywheelTorque(4), 26) << "of none the average is 0";
}

TEST_F(ClosedSteps, ForcesMadeAnewAreThoseOfTheFirstSolve) {
    for (const Scenario& scenario : kScenarios) {
        SCOPED_TRACE(scenario.name);
        Run_Scenario(scenario);
        Solve_Forces();
        const Rows forces = Own(), centres = Centres();
        Fill(-77);
        Model.ExtForce3X = Model.ExtForce4Y = 99;  // they follow from magnitude and angle
        ASSERT_TRUE(Solve_Forces_Again(Model));
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_EQ(Own(), forces);
        EXPECT_EQ(Centres(), centres);
    }
}

TEST_F(ClosedSteps, WithoutARunNoForcesAreMadeAnewAndTheOldOnesDoNotHold) {
    Run_Scenario({.name = "loads", .loads = true});
    Solve_Forces();
    Forces_Hold();
    Fill(-77);
    Run_Dropped();
    EXPECT_FALSE(Solve_Forces_Again(Model));
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_EQ(table.PinForce(0, 0, 0), -77);
}

TEST_F(ClosedSteps, ForcesThatCannotBeMadeAnewAreZeroFromThereOnAndNobodyIsTold) {
    Run_To_An_Open_Step(true);
    Forces_Hold();
    Fill(-77);
    EXPECT_FALSE(Solve_Forces_Again(Model));
    EXPECT_FALSE(Model.DynamicsDone);
    const Rows forces = Own();
    for (std::size_t step = 0; step <= 1; ++step) {
        EXPECT_GT(std::abs(forces[step][0]), 0) << step;
        EXPECT_NE(forces[step][0], -77) << step;
    }
    EXPECT_EQ(forces[2], std::vector<double>(20, 0));
    Run_Scenario({.name = "heavy"});
    Model.LinkMass(3) = 3e38;
    Fill(-77);
    EXPECT_FALSE(Solve_Forces_Again(Model));
    EXPECT_EQ(Own()[0], std::vector<double>(20, 0));
}

}  // namespace verlink::test
