// Each way in which a position is refused, what the refusal asks, and what it leaves.
#include <cmath>
#include <limits>
#include <tuple>

#include "core/solver.h"
#include "tests/core/linkages.h"
#include "tests/core/question.h"

namespace verlink::test {

namespace {

using platform::Answer;

class Refusals : public Fixture {
   protected:
    Refusals() {
        Take_Crank_Rocker();
        Model.NSteps = 5;
        // Whatever a refused step held has to go.
        auto& table = Model.RunTable;
        for (int i = 0; i <= 2; ++i) table.Theta(1, i) = table.Omega(1, i) = table.Alpha(1, i) = 7;
        table.Theta(1, 3) = table.OmegaRatio(1) = table.MechAdvantage(1) = 7;
        for (int axis = 0; axis <= 1; ++axis) {
            for (int point = 0; point <= 3; ++point) table.PointXY(1, point, axis) = 7;
            for (int point = 0; point <= 5; ++point) table.VelXY(1, point, axis) = 7;
            for (int point = 0; point <= 7; ++point) table.AccXY(1, point, axis) = 7;
            table.FixedCentrode(1, 0, axis) = table.MovingCentrode(1, 0, axis) = 7;
        }
    }

    /// Solves step 1 at a local crank angle in radians.
    void Solve(double theta2) {
        Model.Theta2Rad = theta2;
        Calculate(1, result);
    }

    void Expect_Refused() const {
        const auto& table = Model.RunTable;
        EXPECT_FALSE(table.Assembled(1));
        EXPECT_TRUE(Model.NoConnectSeen);
        EXPECT_FALSE(Model.Calculated);
        for (int axis = 0; axis <= 1; ++axis) {
            for (int point = 0; point <= 2; ++point) EXPECT_EQ(table.PointXY(1, point, axis), 0);
            for (int point = 0; point <= 3; ++point) {
                EXPECT_EQ(table.VelXY(1, point, axis), 0);
                EXPECT_EQ(table.AccXY(1, point, axis), 0);
            }
            EXPECT_EQ(table.FixedCentrode(1, 0, axis), 0);
            EXPECT_EQ(table.MovingCentrode(1, 0, axis), 0);
        }
        EXPECT_EQ(table.OmegaRatio(1), 0);
        EXPECT_EQ(table.MechAdvantage(1), 0);
        for (int i = 1; i <= 2; ++i) {
            EXPECT_EQ(table.Theta(1, i), 0);
            EXPECT_EQ(table.Omega(1, i), 0);
            EXPECT_EQ(table.Alpha(1, i), 0);
        }
        EXPECT_EQ(table.Theta(1, 3), 0);
    }

    Integer result = kRetrying;
};

TEST_F(Refusals, APositionThatDoesNotCloseIsRefused) {
    Take_Lengths(4, 2, 3, 2);
    Solve(3);
    Expect_Refused();
}

TEST_F(Refusals, AZeroLeadingCoefficientOfTheRockerIsRefused) {
    Take_Lengths(1, 1, 1, 1);
    Solve(0);
    Expect_Refused();
}

TEST_F(Refusals, ACouplerThatDoesNotCloseByARoundingIsRefusedThoughTheRockerCloses) {
    Take_Lengths(2.28992629, 2.50689387, 0.73200202, 1.79538143);
    Model.Theta4Rad = 9;
    Solve(1.10655832);
    Expect_Refused();
    EXPECT_NE(Model.Theta4Rad, 9) << "link 4 was solved before";
}

TEST_F(Refusals, AZeroLeadingCoefficientOfTheCouplerIsAskedAboutAndThenFailsToDivide) {
    Take_Lengths(1.125, 1, 8, 8.125);
    Model.InputScreenOpen = true;
    desktop.Expect_Message(Question("0"), Answer::kRetry);
    desktop.Expect_Message(Report(11, "Division by zero", "Calculate"), Answer::kOk, platform::Icon::kInformation);
    Solve(0);
    Expect_Refused();
    EXPECT_EQ(Model.Ax, 1) << "the crank pin was stored before";
}

TEST_F(Refusals, TheRunGoesOnBehindAFailedDivision) {
    Take_Lengths(1.125, 1, 8, 8.125);
    Take_Angles(0, 3, 1);
    desktop.Expect_Message(Report(11, "Division by zero", "Calculate"));
    Crankangle(result);
    EXPECT_FALSE(Model.RunTable.Assembled(0));
    EXPECT_TRUE(Model.RunTable.Assembled(1));
    EXPECT_TRUE(Model.RunTable.Assembled(3));
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(Refusals, CouplerAndRockerInOneLineAreRefusedThoughThePositionExists) {
    Take_Lengths(2, 1, 2, 1);
    Solve(0);
    Expect_Refused();
    EXPECT_EQ(Model.Bx, 3) << "the position itself was found";
}

TEST_F(Refusals, AZeroDeterminantOfTheAccelerationsIsRefused) {
    Take_Lengths(2.667e-30, 1.115e-30, 2.5e-30, 2.5e-30);  // products of two lengths are below the smallest float
    Model.Alpha3 = 9;
    Solve(1);
    Expect_Refused();
    EXPECT_NE(Model.Theta3Rad, Model.Theta4Rad);
    EXPECT_NE(Model.Omega3, 0) << "the speeds were solved before";
    EXPECT_EQ(Model.Alpha3, 9);
}

TEST_F(Refusals, TheAngleAskedAboutAndKeptIsTheGlobalOneToTwoDecimals) {
    Take_Lengths(4, 2, 3, 2);
    Model.InputScreenOpen = true;
    for (const auto& [ground, asked, kept] :
         {std::tuple{0.0, "171.89", 171.89F}, {30.0, "201.89", 201.89F}, {-75.5, "96.39", 96.39F}}) {
        Turn_Ground(ground);
        desktop.Expect_Message(Question(asked), Answer::kRetry);
        Solve(3);
        EXPECT_DOUBLE_EQ(Model.RunTable.Theta(1, 0), static_cast<double>(kept));
    }
}

TEST_F(Refusals, ARunOverATurnedGroundHasOneFrameForAllItsSteps) {
    Take_Lengths(4, 2, 3, 2);
    Turn_Ground(30);
    Take_Angles(45, 405, 10);
    Crankangle(result);
    int refused = 0;
    for (int step = 0; step <= Model.NSteps; ++step) {
        refused += Model.RunTable.Assembled(step) ? 0 : 1;
        EXPECT_NEAR(std::remainder(Model.RunTable.Theta(step, 0) - (45 + 10 * step), 360), 0, 0.006) << step;
    }
    EXPECT_GT(refused, 5);
    EXPECT_LT(refused, Model.NSteps);
}

TEST_F(Refusals, RowsBeyondTheLastPointStand) {
    Take_Lengths(4, 2, 3, 2);
    Solve(3);
    EXPECT_EQ(Model.RunTable.PointXY(1, 3, 0), 7);
    EXPECT_EQ(Model.RunTable.VelXY(1, 4, 0), 7);
    EXPECT_EQ(Model.RunTable.AccXY(1, 4, 1), 7);
    Model.RunTable.VelXY(1, 5, 1) = 7;
    Single angle = 3;
    Integer step = 1, last_point = 5;
    Noconnect(angle, step, last_point, result);
    EXPECT_EQ(Model.RunTable.VelXY(1, 5, 1), 0);
    EXPECT_EQ(Model.RunTable.AccXY(1, 5, 1), 0);
    EXPECT_EQ(Model.RunTable.AccXY(1, 6, 1), 7);
}

TEST_F(Refusals, ImportedSpeedsAndAccelerationsOfTheCrankStand) {
    Take_Lengths(4, 2, 3, 2);
    Model.Calctype = 4;
    Solve(3);
    Expect_Refused();
    EXPECT_EQ(Model.RunTable.Omega(1, 0), 7);
    EXPECT_EQ(Model.RunTable.Alpha(1, 0), 7);
}

TEST_F(Refusals, GeneratedRunsLoseTheSpeedOfTheCrankToo) {
    Take_Lengths(4, 2, 3, 2);
    Solve(3);
    EXPECT_EQ(Model.RunTable.Omega(1, 0), 0);
    EXPECT_EQ(Model.RunTable.Alpha(1, 0), 0);
}

TEST_F(Refusals, TheQuestionHasThreeButtonsAndLeansToIgnore) {
    Take_Lengths(4, 2, 3, 2);
    Model.InputScreenOpen = true;
    Notes notes(desktop, Answer::kRetry);
    Solve(3);
    ASSERT_EQ(notes.Messages().size(), 1u);
    const auto& message = notes.Messages().front();
    EXPECT_EQ(message.text, Question("171.89"));
    EXPECT_EQ(message.icon, platform::Icon::kExclamation);
    EXPECT_EQ(message.buttons, platform::Buttons::kAbortRetryIgnore);
    EXPECT_EQ(message.default_button, 3);
    EXPECT_EQ(message.title, "");
    EXPECT_EQ(result, kRetrying);
}

TEST_F(Refusals, TheQuestionIsAskedOnTheInputScreenAndInImportedRunsAlone) {
    Take_Lengths(4, 2, 3, 2);
    Notes notes(desktop, Answer::kRetry);
    Solve(3);
    EXPECT_EQ(notes.Messages().size(), 0u);
    Model.InputScreenOpen = true;
    Solve(3);
    EXPECT_EQ(notes.Messages().size(), 1u);
    Model.InputScreenOpen = false;
    Model.CamDriven = true;
    Solve(3);
    EXPECT_EQ(notes.Messages().size(), 2u);
    Model.CamDriven = false;
    Model.LinkDriven = true;
    Solve(3);
    EXPECT_EQ(notes.Messages().size(), 3u);
}

TEST_F(Refusals, IgnoringSilencesTheRestOfTheRun) {
    Take_Lengths(4, 2, 3, 2);
    Model.InputScreenOpen = true;
    Notes notes(desktop, Answer::kIgnore);
    Solve(3);
    EXPECT_EQ(result, kIgnoring);
    Solve(3.1);
    EXPECT_EQ(notes.Messages().size(), 1u);
    EXPECT_EQ(result, kIgnoring);
}

TEST_F(Refusals, AnAbortEndsTheRunAndKeepsTheStepsDoneSoFar) {
    Take_Lengths(4, 2, 3, 2);
    Take_Angles(0, 360, 5);
    Model.InputScreenOpen = true;
    Notes notes(desktop, Answer::kAbort);
    Crankangle(result);
    EXPECT_EQ(notes.Messages().size(), 1u);
    EXPECT_EQ(result, kAborted);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    EXPECT_NE(Model.RunTable.PointXY(5, 2, 0), 0);
    int asked = 0;
    while (Model.RunTable.Assembled(asked)) ++asked;
    EXPECT_GT(asked, 10);
    EXPECT_EQ(Model.RunTable.PointXY(asked + 1, 0, 0), 0) << "the run ended there";
    EXPECT_FALSE(Model.RunTable.Assembled(asked + 30));
}

TEST_F(Refusals, OnePositionThatIsAbortedIsNotCalculated) {
    Take_Lengths(4, 2, 3, 2);
    Model.ThetaZero = 180;
    Model.InputScreenOpen = true;
    desktop.Expect_Message(Question("180"), Answer::kAbort);
    Oneposition(result);
    EXPECT_EQ(result, kAborted);
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(Refusals, AnAbortedTimeRunEndsThere) {
    Take_Lengths(4, 2, 3, 2);
    Model.Calctype = 2;
    Model.TimeStart = 0;
    Model.TimeStep = 0.01;
    Model.NSteps = 60;
    Model.InputScreenOpen = true;
    Notes notes(desktop, Answer::kAbort);
    Timestep(result);
    EXPECT_EQ(notes.Messages().size(), 1u);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_TRUE(Model.RunTable.Assembled(1));
    EXPECT_FALSE(Model.RunTable.Assembled(60));
}

TEST_F(Refusals, OneGoodStepMakesARunCalculatedWhateverFollows) {
    Take_Lengths(4, 2, 3, 2);
    Take_Angles(70, 200, 10);
    Crankangle(result);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    EXPECT_FALSE(Model.RunTable.Assembled(13));
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(Refusals, AStepOutsideTheTableIsReportedByTheRefusalItself) {
    Single angle = 1;
    Integer step = 2881, last_point = 3;
    desktop.Expect_Message(Report(9, "Subscript out of range", "Noconnect"));
    Noconnect(angle, step, last_point, result);
}

TEST_F(Refusals, EachOfTheThreeZeroLengthsFailsToDivide) {
    for (int link = 0; link <= 2; ++link) {
        Take_Lengths(3, link == 0 ? 0 : 2, link == 1 ? 0 : 2, link == 2 ? 0 : 2);
        desktop.Expect_Message(Report(11, "Division by zero", "Calculate"));
        Solve(1);
    }
}

TEST_F(Refusals, SpeedsThatOverflowAreReportedAndTheStepCountsAsNotClosed) {
    Model.Omega2 = 3e38;
    Run_Dropped();
    desktop.Expect_Message(Report(6, "Overflow", "Calculate"));
    Solve(1);
    EXPECT_FALSE(Model.RunTable.Assembled(1));
    EXPECT_FALSE(Model.Calculated);
    EXPECT_EQ(Model.RunTable.OmegaRatio(1), 7);
}

TEST_F(Refusals, LengthsThatOverflowAreReported) {
    Take_Lengths(3e38, 1e-30, 1, 1);
    desktop.Expect_Message(Report(6, "Overflow", "Calculate"));
    Solve(1);
}

TEST_F(Refusals, LengthsWhoseProductNoNumberHoldsAreReportedAndNotTakenForNoAcceleration) {
    Take_Lengths(2.667e20, 1.115e20, 2.5e20, 2.5e20);
    desktop.Expect_Message(Report(6, "Overflow", "Calculate"));
    Solve(1);
    EXPECT_FALSE(Model.RunTable.Assembled(1));
}

TEST_F(Refusals, ACouplerTooShortForItsDiscriminantIsAnOverflowAndNoPositionThatDoesNotClose) {
    // Crank and rocker in line, but for a rounding by which the rocker closes at some angles.
    Take_Lengths(2, 4, 0x1p-100, 2);
    Notes notes(desktop);
    for (int i = 0; i < 32; ++i) Solve(1e-4 + 1e-6 * i);
    EXPECT_GT(notes.Messages().size(), 0U);
    EXPECT_LT(notes.Messages().size(), 32U);
    for (const auto& message : notes.Messages()) EXPECT_EQ(message.text, Report(6, "Overflow", "Calculate"));
}

TEST_F(Refusals, AccelerationsThatOverflowInMillimetresAreReportedByTheirScaling) {
    Model.Units = 5;
    Model.Omega2 = 1e18;
    desktop.Expect_Message(Report(6, "Overflow", "Scale_Accelerations"));
    Solve(1);
    EXPECT_FALSE(Model.RunTable.Assembled(1)) << "the step is half in metres";
}

}  // namespace

}  // namespace verlink::test
