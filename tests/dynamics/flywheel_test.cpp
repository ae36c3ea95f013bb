// Pulses of the crank torque, their table, and the smoothed torque.
#include "dynamics/flywheel.h"

#include <cmath>
#include <string>
#include <vector>

#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

struct Paper : platform::Screen {
    Paper() : Screen("frm_Paper") {}
    platform::PictureBox pct_Pict1{*this, "pct_Pict1"};
};

class Pulses : public Fixture {
   protected:
    Pulses() {
        Initialize();
        Use_Units(1);
        Model.ThetaStepRad = 0.5;
    }
    TorqueTable& torque = Model.RunTable.BalancedMoment;
    PulseAreas negative, positive;
    Integer count, sign;

    /// A cycle of these torques in row 0.
    void Take(const std::vector<double>& values) {
        Model.NSteps = static_cast<int>(values.size()) - 1;
        for (int step = 0; step <= Model.NSteps; ++step) {
            torque(step, 0) = values[static_cast<std::size_t>(step)];
            Model.RunTable.LinkTorque(step, 0) = values[static_cast<std::size_t>(step)];
        }
    }
    void Find(double average = 0) {
        Flywheel([this](int step) { return torque(step, 0); }, 0, Model.NSteps, 0.5, average, negative, positive, count,
                 sign);
    }
    static std::vector<std::string> Printed(Single fluct = 0.05) {
        Paper paper;
        paper.pct_Pict1.Print("from before");
        Fly(Model, paper, fluct, Model.RunTable.BalancedMoment);
        return paper.pct_Pict1.Lines;
    }
    /// A torque that changes its sign at every step.
    static std::vector<double> Alternating(int steps) {
        std::vector<double> values;
        for (int i = 0; i <= steps; ++i) values.push_back(i % 2 == 0 ? 1 : -1);
        return values;
    }
};

}  // namespace

TEST_F(Pulses, TheFirstIntervalIsLeftOut) {
    Take({1000, 2, 4, 6});
    Find();
    EXPECT_EQ(sign, 1);
    EXPECT_EQ(count, 2);
    EXPECT_NEAR(positive(1), 0.5 * (3 + 5), 1e-6);
    EXPECT_EQ(negative(1), 0);
}

TEST_F(Pulses, AChangeOfSignBelongsToTheNewPulse) {
    Take({0, 4, 2, -1, -3, 5});
    Find();
    EXPECT_NEAR(positive(1), 0.5 * 3, 1e-6);
    EXPECT_NEAR(negative(1), 0.5 * (0.5 - 2), 1e-6);
    EXPECT_NEAR(positive(2), 0.5 * 1, 1e-6);
    EXPECT_EQ(count, 4);
}

TEST_F(Pulses, AreMeasuredFromTheAverage) {
    Take({9, 12, 14, 8});
    Find(10);
    EXPECT_NEAR(positive(1), 0.5 * 3, 1e-6);
    EXPECT_NEAR(negative(1), 0.5 * 1, 1e-6);  // the crossing counts as a whole for the new pulse
}

TEST_F(Pulses, TheSignOfTheFirstOneIsThatAfterTheSecondInterval) {
    Take({5, 5, -1, 5});
    Find();
    EXPECT_EQ(sign, -1);
    Take({-5, -5, 0, -5});
    Find();
    EXPECT_EQ(sign, 1);
}

TEST_F(Pulses, AreOfOneSignOrNoneInAShortRun) {
    Take({3, 4});
    Find();
    EXPECT_EQ(count, 2);
    EXPECT_EQ(sign, 0);
}

TEST_F(Pulses, TwoOfEachSignCountFiveOrSix) {
    Take({1, 1, 1, -1, -1, 1, 1, -1, -1});
    Find();
    EXPECT_EQ(count, 5);
    Take({1, 1, 1, -1, -1, 1, 1, -1, -1, 1});
    Find();
    EXPECT_EQ(count, 6);
    Take({-1, -1, -1, 1, 1, -1, -1, 1, 1});
    Find();
    EXPECT_EQ(count, 5);
}

TEST_F(Pulses, EntriesOfAnEarlierCycleAreZeroedAsFarAsTheirCountSays) {
    for (int i = 0; i <= 10; ++i) negative(i) = positive(i) = 100;
    count = 4;
    Take({1, 1, 1, -1, 1});
    Find();
    EXPECT_NEAR(positive(1), 0.5, 1e-6);
    EXPECT_EQ(positive(3), 0);
    EXPECT_EQ(negative(4), 0);
    EXPECT_EQ(positive(5), 100);
    EXPECT_EQ(negative(0), 100);
}

TEST_F(Pulses, TenOfASignFitAndElevenAreReported) {
    Take(Alternating(21));
    Find();
    EXPECT_EQ(count, 21);
    Take(Alternating(22));
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Flywheel\r\n\r\n");
    Find();
}

TEST_F(Pulses, TheTableOfACycleThatStartsAbove) {
    Take({12, 20, 30, -10, -22, 14, 12});  // 8 on the average
    EXPECT_EQ(Printed(), (std::vector<std::string>{
                             "", " Areas of Crank Torque", " Pulses in Order over 1 cycle ", "",
                             "    in Energy Units of :", "     lb-in - radians", "", " Order   Pos Area   Neg Area",
                             "----------------------------------------------", "    1   8.5      -11 ",
                             "    2  -3.5       0 ", "", "    Average Torque:", "    8   lb-in"}));
}

TEST_F(Pulses, TheTableHasAreasToATenthAndTheAverageToAHundredth) {
    Take({0.25, 0.25, 1.625, 0.25, -1.3125});  // 0.2125 on the average
    const auto lines = Printed();
    EXPECT_EQ(lines[9], "    1   0.7      -0.4 ");
    EXPECT_EQ(lines.back(), "    0.21   lb-in");
}

TEST_F(Pulses, TheTableOfACycleThatStartsBelowHasItsColumnsTheOtherWayRound) {
    Take({-12, -20, -30, 10, 22, -14, -12});
    const auto lines = Printed();
    EXPECT_EQ(lines[7], " Order   Neg Area   Pos Area");
    EXPECT_EQ(lines[9], "    1  -8.5       11 ");
    EXPECT_EQ(lines[10], "    2   3.5       0 ");
    EXPECT_EQ(lines[13], "   -8   lb-in");
}

TEST_F(Pulses, TheEnergyIsInTheUnitOfTorqueTimesRadians) {
    Take({12, 20, 30, -10, -22, 14, 12});
    const char* labels[] = {"lb-in", "lb-ft", "N-m", "N- m", "N- m"};
    for (int units = 1; units <= 5; ++units) {
        Use_Units(units);
        const auto lines = Printed();
        const std::string label = labels[units - 1];
        EXPECT_EQ(lines[5], "     " + label + " - radians");
        EXPECT_EQ(lines.back(), "    8   " + label);
    }
}

TEST_F(Pulses, AConstantTorqueIsAllPositiveWithEmptyAreas) {
    Take({7, 7, 7, 7, 7});
    Find(7);
    EXPECT_EQ(sign, 1);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(positive(1), 0);
    EXPECT_EQ(negative(1), 0);
    const auto lines = Printed();
    EXPECT_EQ(lines[7], " Order   Pos Area   Neg Area");
    EXPECT_EQ(lines[9], "    1   0         0 ");
}

TEST_F(Pulses, TheRowsAreHalfOfTheCountAndOneRoundedToEven) {
    const auto rows = [] { return Printed().size() - 12; };
    Take({7, 7, 7, 7, 7});  // a count of 2: one and a half, which is 2
    EXPECT_EQ(rows(), 2u);
    Take({1, 1, 1, -1, -1});  // 3
    EXPECT_EQ(rows(), 2u);
    Take({1, 1, 1, -1, -1, 1});  // 4: two and a half, which is 2
    EXPECT_EQ(rows(), 2u);
    Take({1, 1, 1, -1, -1, 1, 1, -1, -1});  // 5
    EXPECT_EQ(rows(), 3u);
    Take({1, 1, 1, -1, -1, 1, 1, -1, -1, 1});  // 6: three and a half, which is 4
    EXPECT_EQ(rows(), 4u);
}

TEST_F(Pulses, ARunTooShortForAPulseHasNeitherHeadNorRows) {
    Take({3, 5});
    EXPECT_EQ(Printed(), (std::vector<std::string>{"", " Areas of Crank Torque", " Pulses in Order over 1 cycle ", "",
                                                   "    in Energy Units of :", "     lb-in - radians", "",
                                                   "----------------------------------------------", "",
                                                   "    Average Torque:", "    4   lb-in"}));
}

TEST_F(Pulses, TenOfEachSignAreTenRows) {
    // Behind the tenth negative pulse an eleventh positive one is counted, though nothing is added to it.
    std::vector<double> values{1, 1};
    for (int i = 0; i < 20; ++i) values.push_back(i % 2 == 0 ? 1 : -1);
    Take(values);
    Find();
    ASSERT_EQ(count, 21);
    const auto lines = Printed();
    ASSERT_EQ(lines.size(), 22u);
    EXPECT_TRUE(lines[18].starts_with("    10 ")) << lines[18];
    EXPECT_EQ(lines[19], "");
}

TEST_F(Pulses, TooManyAreReportedAndTheTorqueIsSmoothedAllTheSame) {
    Take(Alternating(30));
    Model.RunTable.FlywheelTorque(3) = 999;
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Flywheel\r\n\r\n");
    Printed(1);
    EXPECT_EQ(Model.RunTable.FlywheelTorque(3), -1);
}

TEST_F(Pulses, WithACoefficientOf0TheTorqueIsItsAverage) {
    Take({12, 20, 30, -10, -22, 14, 12});
    Printed(0);
    for (int step = 0; step <= Model.NSteps; ++step) EXPECT_EQ(Model.RunTable.FlywheelTorque(step), 8);
}

TEST_F(Pulses, WithACoefficientOf1TheTorqueIsTheDrivingTorque) {
    Take({12, 20, 30, -10, -22, 14, 12});
    Printed(1);
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_EQ(Model.RunTable.FlywheelTorque(step), Model.RunTable.LinkTorque(step, 0));
}

TEST_F(Pulses, TheUnbalancedTorqueIsSmoothedAboutTheBalancedAverage) {
    Take({12, 20, 30, -10, -22, 14, 12});
    for (int step = 0; step <= Model.NSteps; ++step) torque(step, 0) += 100;
    Smooth_Torque(Model, 0.5, torque);
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_NEAR(Model.RunTable.FlywheelTorque(step), 0.5 * Model.RunTable.LinkTorque(step, 0) + 54, 1e-5);
}

}  // namespace verlink::test
