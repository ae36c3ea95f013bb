// Two dyads joined: the linkage in the record, the crank's range, the input screen, and the report.
#include "synthesis/dyads.h"
#include "tests/core/linkages.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

const char kEnd[] =
    " These data have been transferred to the Input and Animate screens.\r\r"
    " Note that this synthesis procedure cannot predict which circuit (open \r"
    " or crossed) of the linkage is required to obtain the specified positions.\r"
    " You will have to try each circuit from the input sheet to find out.";

/// W = 3, 4; Z = 1, 1; U = 0, 6; S = -3, 1: so the coupler is 4 long and lies level, and O4 is at 7, -2 from O2.
struct Assembly : Synthesis {
    /// The crank stands at atan(4/3).
    const double kCrank = Degrees(std::atan2(4, 3));

    void Assemble(int mode, double beta2, double beta3 = 0) {
        Notes notes(desktop);
        Assemblevlnk(mode, 3, 4, 1, 1, 0, 6, -3, 1, beta2, beta3, Model.Link1Angle);
        ASSERT_EQ(notes.Messages().size(), 1u);
        report = notes.Messages()[0];
    }
    static void Expect_Range(double start, double end, double step) {
        EXPECT_NEAR(Model.ThetaStart, start, 1e-4);
        EXPECT_NEAR(Model.ThetaEnd, end, 1e-4);
        EXPECT_NEAR(Model.ThetaStep, step, 1e-4);
    }

    /// In the box, in the record, and so in the next run.
    static void Expect_Speed(double omega2) {
        EXPECT_EQ(Model.Omega2Input, omega2);
        EXPECT_EQ(Model.Omega2, omega2);
        EXPECT_EQ(Input_Box("txt_initial", 3), Text_Of(Single(omega2)));
    }

    platform::Message report;
};

}  // namespace

TEST_F(Assembly, MakesTheLinkageOfTheRecord) {
    Assemble(1, 30);
    EXPECT_EQ(Model.L2, 5);
    EXPECT_EQ(Model.L3, 4);
    EXPECT_EQ(Model.L4, 6);
    EXPECT_EQ(Model.Rpa, Stored(std::sqrt(2.0)));
    EXPECT_NEAR(Model.Delta, 45, 1e-5);
    EXPECT_NEAR(Model.DeltaRad, std::numbers::pi / 4, 1e-7);
    EXPECT_EQ(Vector(Model.O2x, Model.O2y), Vector(-4, -5));
    EXPECT_EQ(Vector(Model.O4x, Model.O4y), Vector(3, -7));
    EXPECT_NEAR(Model.L1, std::hypot(7, 2), 1e-6);
    EXPECT_NEAR(Model.Link1Angle, Degrees(std::atan2(-2, 7)), 1e-5);
    EXPECT_EQ(Model.LinkArray(1), Model.L1);
    EXPECT_EQ(Model.LinkArray(0), Model.Rpa);
    EXPECT_TRUE(Model.Synthesized);
}

TEST_F(Assembly, LeavesSpecifiedPivotsWhereTheyAre) {
    Model.SpecifiedPivots = true;
    Model.O2x = 1;
    Model.O2y = 2;
    Model.O4x = 1;
    Model.O4y = 7;
    Assemble(3, 30, 60);
    EXPECT_EQ(Vector(Model.O2x, Model.O2y), Vector(1, 2));
    EXPECT_EQ(Vector(Model.O4x, Model.O4y), Vector(1, 7));
    EXPECT_EQ(Model.L1, 5);
    EXPECT_NEAR(Model.Link1Angle, 90, 1e-5);
}

TEST_F(Assembly, OfTwoPositionsRunsFromOneToTheOtherInOneStep) {
    Assemble(1, 30);
    Expect_Range(kCrank, kCrank + 30, 30);
    EXPECT_EQ(Model.ThetaStartStr, "53.13");
    EXPECT_EQ(Model.ThetaEndStr, "83.13");
    EXPECT_EQ(Model.ThetaStepStr, "30.00");
}

TEST_F(Assembly, OfThreePositionsStopsHalfWayWhereverPosition2Lies) {
    for (const int mode : {2, 3, 4}) {
        Model.ThetaStart = Model.ThetaEnd = Model.ThetaStep = 1;
        Assemble(mode, 10, 80);
        Expect_Range(kCrank, kCrank + 80, 40);
    }
}

TEST_F(Assembly, OfAnyOtherModeLeavesTheRange) {
    Model.ThetaStart = 5;
    Model.ThetaEnd = 50;
    Model.ThetaStep = 15;
    Assemble(5, 10, 80);
    Expect_Range(5, 50, 15);
    EXPECT_EQ(Model.ThetaStartStr, "5.00");
}

TEST_F(Assembly, StoresTheWholeRangeAsTheStepInRadians) {
    Assemble(2, 10, 80);
    EXPECT_NEAR(Model.ThetaStartRad, Radians(kCrank), 1e-6);
    EXPECT_NEAR(Model.ThetaEndRad, Radians(kCrank + 80), 1e-6);
    EXPECT_EQ(Model.ThetaStepRad, Stored(Model.ThetaEndRad - Model.ThetaStartRad));
}

TEST_F(Assembly, TurnsTheCrankRoundWhereItsTurnIsNegative) {
    Model.Omega2Input = 10;
    Assemble(1, -30);
    Expect_Range(kCrank - 30, kCrank, 30);
    Expect_Speed(-10);
}

TEST_F(Assembly, LeavesACrankThatTurnsClockwiseAlready) {
    Model.Omega2Input = -4;
    Assemble(2, -10, -50);
    Expect_Range(kCrank - 50, kCrank, 25);
    Expect_Speed(-4);
    Assemble(2, 10, 50);
    Expect_Range(kCrank, kCrank + 50, 25);
    Expect_Speed(-4);
}

TEST_F(Assembly, TurnsACrankBackThatItHasTurnedRound) {
    Model.Omega2Input = 10;
    Assemble(1, -30);
    Assemble(1, -40);
    Expect_Speed(-10);
    Assemble(1, 30);
    Expect_Speed(10);
    Assemble(1, 30);
    Expect_Speed(10);
}

TEST_F(Assembly, LeavesASpeedThatWasTypedAgainAfterItHadBeenTurnedBack) {
    Model.Omega2Input = 0.5;
    Assemble(1, -30);
    Expect_Speed(-0.5);
    Assemble(1, 30);
    Expect_Speed(0.5);
    Model.Omega2Input = -0.5;
    Assemble(1, 30);
    Expect_Speed(-0.5);
}

TEST_F(Assembly, OfAWholeTurnBeginsAndEndsAtOnePlaceAndIsNotTurnedRound) {
    Model.Omega2Input = 10;
    Notes notes(desktop);
    Assemblevlnk(1, 0, 4, 1, 1, 0, 6, -3, 1, 360, 0, Model.Link1Angle);
    Expect_Range(90, 90, 360);
    Expect_Speed(10);
}

TEST_F(Assembly, GivesTheGroundsAngleToTheCallerAndToTheRecord) {
    Notes notes(desktop);
    Single ground = 77;
    Assemblevlnk(1, 3, 4, 1, 1, 0, 6, -3, 1, 30, 0, ground);
    EXPECT_NEAR(ground, Degrees(std::atan2(-2, 7)), 1e-5);
    EXPECT_EQ(Model.Link1Angle, ground);
}

TEST_F(Assembly, DoesNotTurnACrankBackWhoseSpeedIsAnother) {
    Model.Omega2Input = 10;
    Assemble(1, -30);
    Model.Omega2Input = -7;
    Assemble(1, 30);
    Expect_Speed(-7);
}

TEST_F(Assembly, TakesAWholeTurnOffARangeThatEndsBeyondItAndSwapsItsEnds) {
    Model.Omega2Input = 10;
    Assemble(1, 330);
    Expect_Range(kCrank + 330 - 360, kCrank, -330);
    EXPECT_EQ(Model.ThetaStepStr, "-330.00");
    Expect_Speed(-10);
}

TEST_F(Assembly, FillsTheBoxesOfTheInputScreen) {
    Model.Omega2Input = 7;
    Model.Omega2 = 3;  // of the last step of a run by time
    Assemble(1, 30);
    const std::pair<int, const char*> links[] = {{0, "7.28"},  {1, "5"},  {2, "4"},     {3, "6"},
                                                 {4, "1.414"}, {5, "45"}, {6, "-15.95"}};
    for (const auto& [index, text] : links) EXPECT_EQ(Input_Box("txt_Linkout", index), text) << index;
    const char* const limits[] = {"53.13", "83.13", "30", "7"};
    for (int box = 0; box <= 3; ++box) EXPECT_EQ(Input_Box("txt_initial", box), limits[box]) << box;
}

TEST_F(Assembly, EntersTheGroundByLengthAndAngleAlsoWhereThatOptionWasOn) {
    auto& input = platform::Screens::Get("frm_Inputnew");
    Assemble(1, 30);
    EXPECT_TRUE(input.Get<platform::OptionButton>("opt_Polar", 1).Value);
    EXPECT_TRUE(Model.PolarCoords);
    New_Model();
    EXPECT_FALSE(Model.PolarCoords);
    Assemble(1, 30);
    EXPECT_TRUE(Model.PolarCoords);
}

TEST_F(Assembly, ShowsThePivotAndTheCircuitInForceOnTheInputScreen) {
    auto& input = platform::Screens::Get("frm_Inputnew");
    input.Text("txt_Linkout", 15).Text = "a";
    input.Text("txt_Linkout", 16).Text = "b";
    Model.CircuitIndex = 2;
    Assemble(1, 30);
    EXPECT_EQ(Input_Box("txt_Linkout", 15), "7");
    EXPECT_EQ(Input_Box("txt_Linkout", 16), "-2");
    EXPECT_EQ(Model.Link1X, 7);
    EXPECT_TRUE(input.Get<platform::OptionButton>("opt_OpenCross", 1).Value);
}

TEST_F(Assembly, ReportsTwoPositions) {
    Assemble(1, 30);
    EXPECT_EQ(report.text, std::string(" The resulting link lengths and coupler point location are:\r\r"
                                       "  L1 = 7.280 in at an angle of -15.95 deg\r"
                                       "  L2 = 5.000 in\r"
                                       "  L3 = 4.000 in\r"
                                       "  L4 = 6.000 in\r\r"
                                       " The Precision (coupler) Point is at: 1.414 in @ 45.00 deg\r\r"
                                       " Theta2 at position 1 in the global coord system is 53.13 deg\r"
                                       " Theta2 at position 2 in the global coord system is 83.13 deg\r\r") +
                               kEnd);
    EXPECT_EQ(report.icon, platform::Icon::kNone);
    EXPECT_EQ(report.buttons, platform::Buttons::kOk);
}

TEST_F(Assembly, ReportsThreePositionsInTheShownUnit) {
    Use_Units(5);
    Assemble(3, 10, 80);
    EXPECT_EQ(report.text, std::string(" The resulting link lengths and coupler point location are:\r\r"
                                       "  L1 = 7,280.11 mm at an angle of -15.95 deg\r"
                                       "  L2 = 5,000.00 mm\r"
                                       "  L3 = 4,000.00 mm\r"
                                       "  L4 = 6,000.00 mm\r\r"
                                       " The Precision (coupler) Point is at: 1,414.21 mm @ 45.00 deg\r\r"
                                       " Theta2 at position 1 in the global coord system is 53.13 deg\r"
                                       " Theta2 at position 2 in the global coord system is 93.13 deg\r"
                                       " Theta2 at position 3 in the global coord system is 133.13 deg\r\r") +
                               kEnd);
}

TEST_F(Assembly, ReportsEachPositionWithItsOwnAngleAlsoWhereTheCrankTurnsClockwise) {
    const auto line = [](int position, const char* angle) {
        return " Theta2 at position " + std::to_string(position) + " in the global coord system is " + angle + " deg\r";
    };
    Assemble(1, -30);
    EXPECT_NE(report.text.find(line(1, "53.13") + line(2, "23.13") + "\r"), std::string::npos) << report.text;
    Assemble(3, -10, -50);
    EXPECT_NE(report.text.find(line(1, "53.13") + line(2, "28.13") + line(3, "3.13") + "\r"), std::string::npos)
        << report.text;
}

TEST_F(Assembly, GoesThroughTheInputScreenToTheAnimateScreen) {
    Assemble(1, 30);
    desktop
        .Expect_Screen("frm_Inputnew",
                       [&](platform::Screen& screen) {
                           EXPECT_EQ(Input_Box("txt_Linkout", 15), "7");
                           EXPECT_EQ(Input_Box("txt_Linkout", 16), "-2");
                           EXPECT_TRUE(Model.Synthesized);
                           EXPECT_EQ(Model.NSteps, 1);
                           EXPECT_TRUE(Model.RunTable.Assembled(0));
                           EXPECT_NEAR(Wrapped(Model.RunTable.Theta(0, 1)), 0, 1e-2);
                           EXPECT_NEAR(Model.RunTable.Theta(1, 0), kCrank + 30, 1e-2);
                           Press(screen, "cmd_Done");
                       })
        .Expect_Screen("frm_Animate", [&](platform::Screen& screen) {
            const std::pair<int, const char*> links[] = {{0, "7.28"}, {1, "5"},      {2, "4"},  {3, "6"},
                                                         {5, "45"},   {6, "-15.95"}, {15, "7"}, {16, "-2"}};
            for (const auto& [index, text] : links) EXPECT_EQ(Box("frm_Animate", "txt_Linkout", index), text) << index;
            EXPECT_EQ(Box("frm_Animate", "txt_initial", 0), "53.13");
            EXPECT_EQ(Box("frm_Animate", "txt_initial", 1), "83.13");
            EXPECT_FALSE(Model.Synthesized);
            screen.Hide();
        });
    platform::Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Assembly, OfAVectorThatIsTooLongIsReportedForTheCrankAndForTheGround) {
    for (int link = 0; link < 2; ++link)
        desktop.Expect_Message("Error 6   (Overflow)  has occurred in Cart_to_Polar\r\n\r\n");
    desktop.Expect_Message_With(" The resulting link lengths");
    Assemblevlnk(1, 3e38, 3e38, 1, 1, 0, 6, -3, 1, 30, 0, Model.Link1Angle);
}

}  // namespace verlink::test
