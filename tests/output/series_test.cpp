// Functions over a run, and where its steps stand.
#include "output/series.h"

#include <cmath>

#include "core/numeric.h"
#include "output/reading.h"
#include "tests/output/plotting.h"

namespace verlink::test {
namespace {

class SeriesTest : public Plotting {
   protected:
    static std::vector<double> Values(const Output_Function& function) {
        return Series(function, Model.RunTable, Model.Link1Angle, Model.NSteps);
    }
    static Stations By(Abscissa wished) { return Stations_Of(wished, Model, Model.RunTable, Model.Link1Angle); }
};

TEST_F(SeriesTest, AVectorIsTurnedIntoTheGlobalFrameOrIntoThatOfItsLink) {
    Turn_Ground(30);
    By_Angle(0, 360, 10);
    const auto x = Values({"Veloc CP", "X", false}), angle = Values({"Veloc CP", "Ang", false});
    const auto local_y = Values({"Accel CP", "Y", true}), size = Values({"Accel CP", "Mag", true});
    ASSERT_EQ(x.size(), 37U);
    for (int step = 0; step <= 36; ++step) {
        const auto at = static_cast<std::size_t>(step);
        EXPECT_NEAR(x[at], Velocity(step).x, 1e-4) << step;
        EXPECT_NEAR(std::remainder(angle[at] - Velocity(step).Ang(), 360), 0, 1e-3) << step;
        // The coupler point turns with link 3.
        EXPECT_NEAR(local_y[at], Acceleration(step).Turned(-Model.RunTable.Theta(step, 1)).y, 1e-2) << step;
        EXPECT_NEAR(size[at], Acceleration(step).Mag(), 1e-2) << step;
    }
}

TEST_F(SeriesTest, EveryFunctionIsToTheBitWhatPlotsRead) {
    Turn_Ground(-20);
    By_Angle(0, 360, 10);
    for (int number = 1; number <= 42; ++number)
        for (const char* component : {"X", "Y", "Mag", "Ang"})
            for (const bool local : {false, true}) {
                const Output_Function function{Variable_Name(number), component, local};
                ASSERT_TRUE(Can_Be_Read(function));
                Choose(1, function.variable, component);
                Model.PlotSlot = 1;
                Model.CoordSystem = local && Has_Frames(function) ? 2 : 0;
                const std::vector<double> values = Values(function);
                for (int step = 0; step <= 36; step += 7) {
                    Single plotted;
                    Transform_XY(step, 1, plotted);
                    EXPECT_EQ(values[static_cast<std::size_t>(step)], plotted) << Words_Of(function) << " at " << step;
                }
            }
}

TEST_F(SeriesTest, APositionThatDoesNotCloseHasNoValue) {
    Model.L3 = 1.2;
    Model.L4 = 1.4;
    By_Angle(0, 360, 10);
    const std::vector<double> values = Values({"Omega4", "", false});
    int open = 0;
    for (int step = 0; step <= 36; ++step) {
        EXPECT_EQ(std::isnan(values[static_cast<std::size_t>(step)]), !Model.RunTable.Assembled(step)) << step;
        open += !Model.RunTable.Assembled(step);
    }
    EXPECT_GT(open, 0);
    EXPECT_LT(open, 37);
}

TEST_F(SeriesTest, WhatCannotBeReadSaysSo) {
    EXPECT_FALSE(Can_Be_Read({"", "X", false}));
    EXPECT_FALSE(Can_Be_Read({"Current FFT", "Mag", false}));
    EXPECT_FALSE(Can_Be_Read({"Veloc CP", "", false}));
    EXPECT_FALSE(Can_Be_Read({"Veloc CP", "Z", false}));
    EXPECT_TRUE(Can_Be_Read({"Omega4", "", false}));
}

TEST_F(SeriesTest, AFunctionKnowsWhatItNeedsAndItsUnit) {
    EXPECT_EQ(Needs_Of({"T4 / T2", "", false}), Needs::kRun);
    EXPECT_EQ(Needs_Of({"Veloc CG 2", "X", false}), Needs::kForces);
    EXPECT_EQ(Needs_Of({"F Inertia L4", "X", false}), Needs::kForces);
    EXPECT_EQ(Needs_Of({"F Shk Balcd", "X", false}), Needs::kBalance);
    EXPECT_EQ(Needs_Of({"Flywl Torque", "", false}), Needs::kBalance);
    EXPECT_EQ(Words_Of({"Veloc CP", "Ang", true}), "Veloc CP Ang local");
    EXPECT_EQ(Words_Of({"Omega4", "Mag", true}), "Omega4");
    EXPECT_EQ(Unit_Of({"Veloc CP", "Ang", false}, Model), "degrees");
    EXPECT_EQ(Unit_Of({"Veloc CP", "X", false}, Model), Model.UnitLabel(4));
    EXPECT_EQ(Unit_Of({"Flywl Torque", "Ang", false}, Model), Model.UnitLabel(9));
}

TEST_F(SeriesTest, ARunByAngleHasItsAnglesInTheirOrderAndTimesByItsSpeed) {
    By_Angle(30, 90, 20);
    EXPECT_EQ(By(Abscissa::kAngle).labels, (std::vector<std::string>{"30.", "50.", "70.", "90."}));
    EXPECT_EQ(By(Abscissa::kAngle).title, "Crank Angle (Deg)");
    EXPECT_TRUE(By(Abscissa::kAngle).places.empty());
    By_Angle(30, 85, 20);
    EXPECT_EQ(By(Abscissa::kAngle).labels, (std::vector<std::string>{"30.", "50.", "70.", "85."})) << "no farther";
    By_Angle(30, 90, 20);
    // 20 degrees take 0.034907 s at 10 rad/s.
    Model.Omega2Input = 10;
    EXPECT_EQ(By(Abscissa::kTime).labels, (std::vector<std::string>{"0.000", "0.035", "0.070", "0.105"}));
    EXPECT_EQ(By(Abscissa::kTime).title, "Time (Sec)");

    Model.Omega2Input = -10;
    By_Angle(30, 90, 20);
    Model.Omega2Input = -10;
    EXPECT_EQ(By(Abscissa::kAngle).labels, (std::vector<std::string>{"90.", "70.", "50.", "30."}));
    Model.Omega2Input = 0;
    EXPECT_EQ(By(Abscissa::kAngle).labels, (std::vector<std::string>{"90.", "90.", "90.", "90."}));
    EXPECT_EQ(Abscissa_In_Force(Abscissa::kTime, Model), Abscissa::kAngle);
    EXPECT_EQ(By(Abscissa::kTime).title, "Crank Angle (Deg)");
}

TEST_F(SeriesTest, LabelsHaveAsManyDecimalsAsTellTheStepsApart) {
    Model.NSteps = 1;
    Model.Calctype = 2;
    Model.TimeStart = 0;
    for (const auto& [step, label] : {std::pair{10.0, "10.00"},
                                      {1.0, "1.00"},
                                      {0.25, "0.25"},
                                      {0.05, "0.050"},
                                      {0.001, "0.0010"},
                                      {2e-5, "0.000 020"},
                                      {2e-6, "0.000 002"},
                                      {0.0, "0.00"}}) {
        Model.TimeStep = step;
        EXPECT_EQ(By(Abscissa::kTime).labels.at(1), label);
    }
    Model.TimeStart = 100;
    Model.TimeStep = 0.25;
    EXPECT_EQ(By(Abscissa::kTime).labels.at(1), "100.25") << "wherever they begin";
    Model.Calctype = 3;
    Model.Omega2Input = 1;
    Model.ThetaStart = 0;
    Model.ThetaEnd = 90;
    for (const auto& [step, label] : {std::pair{30.0, "30."},
                                      {0.5, "0.5"},
                                      {0.25, "0.25"},
                                      {0.125, "0.125"},
                                      {1.0 / 3, "0.333"},
                                      {0.0625, "0.063"}}) {
        Model.ThetaStep = step;
        EXPECT_EQ(By(Abscissa::kAngle).labels.at(1), label);
    }
    Model.Calctype = 1;
    Model.NSteps = 0;
    Model.ThetaZero = 67.5;
    EXPECT_EQ(By(Abscissa::kTime).labels, std::vector<std::string>{"67.5"}) << "one position has no time";
    EXPECT_EQ(By(Abscissa::kTime).title, "Crank Angle (Deg)");
}

TEST_F(SeriesTest, ARunByTimeStandsAtItsAnglesWhichGoOnBeyondATurn) {
    Turn_Ground(40);
    Model.ThetaZero = 300;
    Model.Omega2Input = 2;
    Model.Alpha2 = -1;
    for (const char* mode : {"abs", "180"}) {
        Model.ModuloMode = mode;
        By_Time(0, 4, 0.5);
        EXPECT_EQ(By(Abscissa::kTime).labels[3], "1.50");
        const std::vector<double> places = By(Abscissa::kAngle).places;
        ASSERT_EQ(places.size(), 9U);
        for (int step = 0; step <= 8; ++step) {
            // The crank slows down, stands still at 2 s, and comes back.
            const double t = 0.5 * step, turned = (2 * t - t * t / 2) * 180 / M_PI;
            EXPECT_NEAR(places[static_cast<std::size_t>(step)] - places[0], turned, 1e-3) << mode << step;
        }
        EXPECT_NEAR(std::remainder(places[0] - 300, 360), 0, 1e-3);
    }
    const Stations stations = By(Abscissa::kAngle);
    EXPECT_EQ(stations.labels[1], FNRoundStr(stations.places[1], 2)) << "two decimals";
    // Where it does not close the table has the crank in the ground link's frame.
    Model.RunTable.Assembled(3) = false;
    Model.RunTable.Theta(3, 0) -= 40;
    EXPECT_NEAR(By(Abscissa::kAngle).places[3], stations.places[3], 1e-3);
}

}  // namespace
}  // namespace verlink::test
