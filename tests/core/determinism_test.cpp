// The same run gives the same bits: in every build, twice in a row, and step by step as side by side.
#include <cmath>
#include <random>
#include <vector>

#include "core/classification.h"
#include "core/solver.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class Determinism : public Fixture {};

struct Lengths {
    double L1, L2, L3, L4;
};

/// Runs of every kind, one after the other.
std::uint64_t Hash_Of_Several_Runs() {
    ResultHash hash;
    Integer result;
    Reset_Model();
    Take_Crank_Rocker();
    Crankangle(result);
    hash.Add_Run();
    Take_Circuit(2);
    Turn_Ground(30);
    Model.ModuloMode = "180";
    Take_Angles(0, 360, 0.125);
    Crankangle(result);
    hash.Add_Run();
    Model.Omega2Input = -3;
    Model.Units = 5;
    Crankangle(result);
    hash.Add_Run();
    Model.Units = 1;
    Model.Calctype = 2;
    Model.ModuloMode = "abs";
    Model.TimeStep = 0.001;
    Model.Omega2Input = 2;
    Model.Alpha2 = 1.5;
    Model.NSteps = 1000;
    Timestep(result);
    hash.Add_Run();
    Take_Lengths(5, 4, 2, 3);
    Take_Angles(-60, 60, 0.5);
    Crankangle(result);
    hash.Add_Run();
    return hash.Value();
}

/// The results of the last run, to be compared with those of another.
RunResults Results() { return Model.RunTable; }

void Expect_Equal_Results(const RunResults& a, const RunResults& b, int last) {
    for (int step = 0; step <= last; ++step) {
        ASSERT_EQ(a.Assembled(step), b.Assembled(step)) << step;
        for (int row = 0; row <= 3; ++row) ASSERT_EQ(a.Theta(step, row), b.Theta(step, row)) << step << " " << row;
        for (int row = 0; row <= 2; ++row) {
            ASSERT_EQ(a.Omega(step, row), b.Omega(step, row)) << step << " " << row;
            ASSERT_EQ(a.Alpha(step, row), b.Alpha(step, row)) << step << " " << row;
        }
        for (int axis = 0; axis <= 1; ++axis) {
            for (int point = 0; point <= 2; ++point) {
                ASSERT_EQ(a.PointXY(step, point, axis), b.PointXY(step, point, axis)) << step;
                ASSERT_EQ(a.VelXY(step, point, axis), b.VelXY(step, point, axis)) << step;
            }
            for (int point = 0; point <= 4; ++point)
                ASSERT_EQ(a.AccXY(step, point, axis), b.AccXY(step, point, axis)) << step << " " << point;
            ASSERT_EQ(a.FixedCentrode(step, 0, axis), b.FixedCentrode(step, 0, axis)) << step;
            ASSERT_EQ(a.MovingCentrode(step, 0, axis), b.MovingCentrode(step, 0, axis)) << step;
        }
        ASSERT_EQ(a.OmegaRatio(step), b.OmegaRatio(step)) << step;
        ASSERT_EQ(a.MechAdvantage(step), b.MechAdvantage(step)) << step;
    }
}

/// The steps of an angle run by single solutions alone.
void Run_Angles_One_By_One() {
    Integer result = kRetrying;
    Model.Alpha2 = 0;
    Model.Omega2 = Model.Omega2Input;
    Model.Theta2Rad = Model.ThetaStartRad - Model.Link1AngleRad;
    Clear_RunTable();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const double limit = Single(Model.ThetaEndRad - Model.Link1AngleRad);
        if (Model.Theta2Rad > limit) Model.Theta2Rad = limit;
        Calculate(step, result);
        Model.Theta2Rad += Model.ThetaStepRad;
    }
}

TEST_F(Determinism, RunsHaveTheBitsThatOneBuildOnceGaveThem) {
    EXPECT_EQ(Hash_Of_Several_Runs(), 17465541987361489157u);
}

TEST_F(Determinism, ASecondRunHasTheBitsOfTheFirst) {
    const auto first = Hash_Of_Several_Runs();
    EXPECT_EQ(Hash_Of_Several_Runs(), first);
}

TEST_F(Determinism, LongRunsHaveTheBitsOfSingleSolutions) {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> length(0.5, 4), angle(-180, 180);
    int closed = 0, open = 0;
    for (int i = 0; i < 120; ++i) {
        Reset_Model();
        Take_Crank_Rocker();
        Take_Lengths(length(random), length(random), length(random), length(random));
        Take_Coupler_Point(length(random), angle(random));
        Take_Circuit(1 + i % 2);
        Turn_Ground(i % 3 == 0 ? angle(random) : 0);
        Model.ModuloMode = i % 5 == 0 ? "180" : i % 5 == 1 ? "none" : "abs";
        Model.Units = 1 + i % 5;
        Model.Parallelogram = i % 7 == 0;
        Take_Angles(-30, 330, 2.5);
        Run_Angles_One_By_One();
        const RunResults single = Results();
        Integer result;
        Crankangle(result);
        Expect_Equal_Results(single, Model.RunTable, Model.NSteps);
        if (HasFatalFailure()) FAIL() << "linkage " << i;
        for (int step = 0; step <= Model.NSteps; ++step) ++(Model.RunTable.Assembled(step) ? closed : open);
    }
    EXPECT_GT(closed, 5000);
    EXPECT_GT(open, 1000);
}

/// The steps of an angle run that can be solved side by side, with these lanes; gives back how many.
int Look_Ahead_By(Lanes lanes) {
    Integer result = kRetrying;
    Model.Alpha2 = 0;
    Model.Omega2 = Model.Omega2Input;
    Model.Theta2Rad = Model.ThetaStartRad - Model.Link1AngleRad;
    Clear_RunTable();
    Calculate(0, result);
    StepsAtOnce several(lanes);
    int solved = 0;
    double angle = Model.Theta2Rad + Model.ThetaStepRad;
    for (int step = 1; step + StepsAtOnce::kSteps <= Model.NSteps; step += StepsAtOnce::kSteps) {
        const bool done = several.Solve(step, [&](double& theta2, double& omega2) {
            theta2 = angle;
            omega2 = Model.Omega2;
            angle = Single(angle + Model.ThetaStepRad);
            return true;
        });
        if (done) solved += StepsAtOnce::kSteps;
    }
    return solved;
}

TEST_F(Determinism, StepsAtOnceHaveTheSameBitsInFoursAsInPairs) {
    if (Widest_Lanes() != Lanes::kFour) GTEST_SKIP() << "this machine has no fours";
    std::mt19937 random(21);
    std::uniform_real_distribution<double> length(0.5, 4), angle(-180, 180);
    int at_once = 0;
    for (int i = 0; i < 200; ++i) {
        Reset_Model();
        Take_Crank_Rocker();
        Take_Lengths(length(random), length(random), length(random), length(random));
        Take_Coupler_Point(length(random), angle(random));
        Take_Circuit(1 + i % 2);
        Turn_Ground(i % 3 == 0 ? angle(random) : 0);
        Model.ModuloMode = i % 5 == 0 ? "180" : i % 5 == 1 ? "none" : "abs";
        Model.Units = 1 + i % 5;
        Model.Parallelogram = i % 7 == 0;
        Model.Omega2Input = i % 11 == 0 ? 2e18 : 10;  // too fast for some of the steps
        Take_Angles(-30, 330, 1);
        Notes notes(desktop);
        const int by_pairs = Look_Ahead_By(Lanes::kTwo);
        const RunResults pairs = Results();
        ASSERT_EQ(Look_Ahead_By(Lanes::kFour), by_pairs) << "linkage " << i;
        Expect_Equal_Results(pairs, Model.RunTable, Model.NSteps);
        if (HasFatalFailure()) FAIL() << "linkage " << i;
        at_once += by_pairs;
    }
    EXPECT_GT(at_once, 20000);
}

TEST_F(Determinism, CrankAnglesOfManyThousandTurnsHaveTheBitsOfSingleSolutions) {
    Take_Crank_Rocker();
    Take_Angles(0, 360, 1);
    constexpr double kFar = 3e6;
    const auto far_away = [](double& theta2, double& omega2) {
        theta2 = kFar;
        omega2 = Model.Omega2;
        return true;
    };
    Integer result = kRetrying;
    Model.Theta2Rad = kFar;
    Calculate(0, result);
    for (const Lanes lanes : {Lanes::kTwo, Widest_Lanes()}) {
        Clear_RunTable();
        // Or they are left to those.
        if (!StepsAtOnce(lanes).Solve(1, far_away)) continue;
        const RunResults several = Results();
        Calculate(1, result);
        EXPECT_EQ(several.Theta(1, 1), Model.RunTable.Theta(1, 1));
        EXPECT_EQ(several.AccXY(1, 2, 0), Model.RunTable.AccXY(1, 2, 0));
    }
    EXPECT_TRUE(StepsAtOnce(Lanes::kTwo).Solve(1, far_away));
}

TEST_F(Determinism, FoursAreForAnglesBelowHalfOfWhatTheirTrigonometryHolds) {
    if (Widest_Lanes() != Lanes::kFour) GTEST_SKIP() << "this machine has no fours";
    Take_Crank_Rocker();
    Take_Angles(0, 360, 1);
    Integer result = kRetrying;
    Calculate(0, result);
    const auto solved = [](int far, double away) {
        int next = 0;
        return StepsAtOnce(Lanes::kFour).Solve(1, [&](double& theta2, double& omega2) {
            theta2 = 1 + (next++ == far ? away : 0);
            omega2 = Model.Omega2;
            return true;
        });
    };
    constexpr double kHalfOfIt = 8e5;
    for (int far = 0; far < StepsAtOnce::kSteps; ++far)
        for (const double sign : {1.0, -1.0}) {
            EXPECT_TRUE(solved(far, sign * kHalfOfIt * 0.9)) << far;
            EXPECT_FALSE(solved(far, sign * kHalfOfIt - 1)) << far;
        }
    Model.DeltaRad = kHalfOfIt * 0.9;
    EXPECT_TRUE(solved(0, 0));
    Model.DeltaRad = kHalfOfIt;
    EXPECT_FALSE(solved(0, 0));
}

TEST_F(Determinism, OneAngleOfVeryManyTurnsAmongOthersHasTheBitsOfASingleSolution) {
    Take_Crank_Rocker();
    Take_Angles(0, 360, 1);
    constexpr int kSteps = StepsAtOnce::kSteps;
    for (const Lanes lanes : {Lanes::kTwo, Widest_Lanes()})
        for (const double far_away : {3.1e12, -3.1e12})
            // Behind the last crank angle it is the coupler point's that is so far away.
            for (int place = 0; place <= kSteps; ++place) {
                Model.DeltaRad = place == kSteps ? far_away : 0.5;
                const auto angle = [&](int i) { return Single(0.1 + 0.02 * i + (i == place ? far_away : 0)); };
                Integer result = kRetrying;
                Model.Theta2Rad = 0;
                Calculate(0, result);
                for (int i = 0; i < kSteps; ++i) {
                    Model.Theta2Rad = angle(i);
                    Calculate(1 + i, result);
                }
                const RunResults single = Results();
                int next = 0;
                const bool done = StepsAtOnce(lanes).Solve(1, [&](double& theta2, double& omega2) {
                    theta2 = angle(next++);
                    omega2 = Model.Omega2;
                    return true;
                });
                if (done) Expect_Equal_Results(single, Model.RunTable, kSteps);
                if (HasFatalFailure()) FAIL() << place;
            }
}

TEST_F(Determinism, LongTimeRunsHaveTheBitsOfSingleSolutions) {
    Take_Crank_Rocker();
    Model.Calctype = 2;
    Model.TimeStart = 0.1;
    Model.TimeStep = 0.01;
    Model.Alpha2 = -5;
    Model.Omega2Input = 10;
    Model.ThetaZero = 20;
    Model.NSteps = 500;  // the crank turns back at 2 s
    Integer result = kRetrying;
    Single t = Model.TimeStart;
    for (int step = 0; step <= Model.NSteps; ++step) {
        Model.Omega2 = Time_Omega(t);
        Model.Theta2Rad = Time_Theta(t) - Model.Link1AngleRad;
        Calculate(step, result);
        t += Model.TimeStep;
    }
    const RunResults single = Results();
    Timestep(result);
    Expect_Equal_Results(single, Model.RunTable, Model.NSteps);
}

TEST_F(Determinism, ALongRunLeavesTheCurrentPositionOfItsLastStep) {
    Take_Crank_Rocker();
    Take_Angles(0, 360, 1);
    Integer result;
    Crankangle(result);
    const auto& table = Model.RunTable;
    EXPECT_EQ(table.PointXY(360, 0, 0), Model.Ax);
    EXPECT_EQ(table.PointXY(360, 1, 1), Model.By);
    EXPECT_EQ(table.PointXY(360, 2, 0), Model.Px);
    EXPECT_EQ(table.Omega(360, 1), Model.Omega3);
    EXPECT_EQ(table.Alpha(360, 2), Model.Alpha4);
    EXPECT_EQ(table.FixedCentrode(360, 0, 0), Model.IC13x);
}

TEST_F(Determinism, OverflowsInALongRunAreReportedAtTheirOwnSteps) {
    Take_Crank_Rocker();
    Take_Angles(0, 360, 1);
    Model.Omega2Input = 1.4e19;  // accelerations pass the largest float where the linkage is fast
    Notes single_notes(desktop);
    Run_Angles_One_By_One();
    const RunResults single = Results();
    const auto reports = single_notes.Messages();
    ASSERT_GT(reports.size(), 10u);
    ASSERT_LT(reports.size(), 350u);
    Notes notes(desktop);
    Integer result;
    Crankangle(result);
    Expect_Equal_Results(single, Model.RunTable, Model.NSteps);
    ASSERT_EQ(notes.Messages().size(), reports.size());
    EXPECT_EQ(notes.Messages().front().text, Report(6, "Overflow", "Calculate"));
}

}  // namespace

}  // namespace verlink::test
