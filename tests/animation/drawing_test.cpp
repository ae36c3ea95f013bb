// What each drawing procedure puts on the surface, call by call, for tables filled by hand.
#include "animation/drawing.h"

#include <cmath>

#include "animation/engine.h"
#include "tests/animation/engine.h"
#include "tests/support/colors.h"
#include "tests/support/drawing.h"

namespace verlink::test {
namespace {

/// Two steps of a made-up table: A (1, 2), B (4, 6), P (3, 8), and then P at (5, 1); L1 is 7.
class DrawingCalls : public Drawing {
   protected:
    DrawingCalls() {
        Set_Palette();
        Model.AnimMax = 20;
        Model.AnimMin = -10;
        Model.FlipSum = 10;
        Model.PinRadius = 0.5;
        Model.CouplerPinRadius = 0.4;
        Model.PivotRadius = 1;
        Model.CentrodeRadius = 0.2;
        Model.PenColor = Model.LinkColor = Model.DrawColor = Model.ColorMagenta;
        Model.PivotColor = Model.ColorBlue;
        Model.TracePinColor = Model.ColorBlack;
        Model.L1 = 7;
        Model.NSteps = 1;
        Model.LastStep = 1;
        Put(0, 0, 1, 2);
        Put(0, 1, 4, 6);
        Put(0, 2, 3, 8);
        Put(1, 2, 5, 1);
        Model.RunTable.Assembled(0) = true;
        Model.RunTable.Assembled(1) = true;
    }
    static void Put(int step, int row, double x, double y) {
        Model.RunTable.PointXY(step, row, 0) = x;
        Model.RunTable.PointXY(step, row, 1) = y;
    }
    static double Cos(double degrees) { return std::cos(degrees * M_PI / 180); }
    static double Sin(double degrees) { return std::sin(degrees * M_PI / 180); }
    Rows Take() {
        Rows rows = std::move(stage.log.Calls);
        stage.log.Calls.clear();
        return rows;
    }
    Stage stage;
};

TEST_F(DrawingCalls, TheLinksAreAChainATriangleAndThreePins) {
    Drawsub(0, stage);
    EXPECT_EQ(Take(),
              (Rows{"Line 0 10 1 8 FF00FF", "LineTo 4 4 FF00FF", "LineTo 7 10 FF00FF", "Line 1 8 3 2 FF00FF",
                    "LineTo 4 4 FF00FF", "Circle 1 8 0.5 FF00FF", "Circle 4 4 0.5 FF00FF", "Circle 3 2 0.4 FF00FF"}));
}

TEST_F(DrawingCalls, TheLinksAreDrawnInThePresentPenColour) {
    Model.PenColor = Model.ColorWhite;
    Drawsub(0, stage);
    for (const auto& row : Take()) EXPECT_NE(row.find("FFFFFF"), std::string::npos) << row;
}

TEST_F(DrawingCalls, ATraceHasItsPinsInBlack) {
    Model.TraceFlag = "Y";
    Drawsub(0, stage);
    const Rows rows = Take();
    ASSERT_EQ(rows.size(), 8U);
    EXPECT_EQ(rows[4], "LineTo 4 4 FF00FF");
    EXPECT_EQ(rows[5], "Circle 1 8 0.5 000000");
    EXPECT_EQ(rows[7], "Circle 3 2 0.4 000000");
}

TEST_F(DrawingCalls, HiddenLinksAreNotDrawn) {
    Model.HideLinksFlag = "Y";
    Drawsub(0, stage);
    EXPECT_EQ(Take(), Rows{});
}

TEST_F(DrawingCalls, TheGlobalPictureIsTurnedByTheGroundAngle) {
    for (const double ground : {30, 1, -1}) {
        Model.Link1Angle = ground;
        Drawsub(0, stage);
        const auto x = [&](double px, double py) { return px * Cos(ground) - py * Sin(ground); };
        const auto y = [&](double px, double py) { return 10 - (px * Sin(ground) + py * Cos(ground)); };
        Expect_Rows(
            Take(),
            {Row("Line", {0, 10, x(1, 2), y(1, 2)}, kMagenta), Row("LineTo", {x(4, 6), y(4, 6)}, kMagenta),
             Row("LineTo", {x(7, 0), y(7, 0)}, kMagenta), Row("Line", {x(1, 2), y(1, 2), x(3, 8), y(3, 8)}, kMagenta),
             Row("LineTo", {x(4, 6), y(4, 6)}, kMagenta), Row("Circle", {x(1, 2), y(1, 2), 0.5}, kMagenta),
             Row("Circle", {x(4, 6), y(4, 6), 0.5}, kMagenta), Row("Circle", {x(3, 8), y(3, 8), 0.4}, kMagenta)});
    }
}

TEST_F(DrawingCalls, AGroundAngleOfZeroDrawsTheLocalFrameAsItIs) {
    // Numbers that a turn by zero degrees would already round.
    Put(0, 0, 1.1, 2.3);
    Drawsub(0, stage);
    EXPECT_EQ(Take()[0], "Line 0 10 1.1 7.7 FF00FF");
}

TEST_F(DrawingCalls, InCentimetresAndMillimetresTheGroundLinkIsScaledToTheTable) {
    Model.L1 = 0.07;
    Model.Units = 4;
    Drawsub(0, stage);
    EXPECT_EQ(Take()[2], "LineTo 7 10 FF00FF");
    Model.Units = 5;
    Drawsub(0, stage);
    EXPECT_EQ(Take()[2], "LineTo 70 10 FF00FF");
}

TEST_F(DrawingCalls, TheCamFollowerIsARollerOnAnArmAndIsNotTurned) {
    Model.Calctype = 4;
    Model.CamPhase = 10;
    Model.RunTable.Theta(0, 0) = 50;
    Model.CamDataLength1 = 3;
    Model.CamDataLength2 = 0.25;
    Model.Link1Angle = 30;
    Drawsub(0, stage);
    Rows rows = Take();
    rows.erase(rows.begin(), rows.begin() + 8);
    const double rx = 3 * Cos(60);
    const double ry = 10 - 3 * Sin(60);
    Expect_Rows(rows, {Row("Circle", {rx, ry, 0.25}, kMagenta), Row("Circle", {rx, ry, 0.5}, kMagenta),
                       Row("Line", {0, 10, rx, ry}, kMagenta),
                       Row("LineTo", {Cos(30) - 2 * Sin(30), 10 - (Sin(30) + 2 * Cos(30))}, kMagenta)});
}

TEST_F(DrawingCalls, WithHiddenLinksTheCamFollowerIsStillDrawn) {
    Model.Calctype = 4;
    Model.HideLinksFlag = "Y";
    Model.CamDataLength1 = 3;
    Model.CamDataLength2 = 0.25;
    Drawsub(0, stage);
    EXPECT_EQ(Take(), (Rows{"Circle 3 10 0.25 FF00FF", "Circle 3 10 0.5 FF00FF", "Line 0 10 3 10 FF00FF",
                            "LineTo 1 8 FF00FF"}));
}

TEST_F(DrawingCalls, TheCamDataIsScaledToCentimetres) {
    Model.Calctype = 4;
    Model.HideLinksFlag = "Y";
    Model.Units = 4;
    Model.CamDataLength1 = 0.03;
    Model.CamDataLength2 = 0.0025;
    Drawsub(0, stage);
    EXPECT_EQ(Take()[0], "Circle 3 10 0.25 FF00FF");
}

TEST_F(DrawingCalls, MassCentersStandOffTheirLinksInThePenColour) {
    Forces_Hold();
    Model.HideLinksFlag = "Y";
    for (int link : {2, 3, 4}) {
        Model.CG(link, 0) = link;
        Model.CG(link, 1) = 20 * M_PI / 180;
        Model.RunTable.Theta(0, link - 2) = 10 * link;
    }
    Drawsub(0, stage);
    const double x2 = 2 * Cos(40);
    const double y2 = 10 - 2 * Sin(40);
    const double x4 = 7 + 4 * Cos(60);
    const double y4 = 10 - 4 * Sin(60);
    const double x3 = 1 + 3 * Cos(50);
    const double y3 = 10 - (2 + 3 * Sin(50));
    Expect_Rows(Take(), {Row("Line", {0, 10, x2, y2}, kMagenta), Row("LineTo", {1, 8}, kMagenta),
                         Row("Circle", {x2, y2, 0.5}, kMagenta), Row("Line", {7, 10, x4, y4}, kMagenta),
                         Row("LineTo", {4, 4}, kMagenta), Row("Circle", {x4, y4, 0.5}, kMagenta),
                         Row("PSet", {1, 8}, kMagenta), Row("LineTo", {x3, y3}, kMagenta),
                         Row("LineTo", {4, 4}, kMagenta), Row("Circle", {x3, y3, 0.5}, kMagenta)});
}

TEST_F(DrawingCalls, MassCentersAreTakenToTheLocalFrameAndTurnedBack) {
    Forces_Hold();
    Model.HideLinksFlag = "Y";
    Model.Link1Angle = 30;
    Model.Link1AngleRad = 30 * M_PI / 180;
    Model.CG(2, 0) = 2;
    Model.RunTable.Theta(0, 0) = 40;
    Drawsub(0, stage);
    // The crank's own direction is global already: turned back and forth it stays.
    Expect_Rows({Take()[0]}, {Row("Line", {0, 10, 2 * Cos(40), 10 - 2 * Sin(40)}, kMagenta)});
}

TEST_F(DrawingCalls, MassCentersAreInMillimetresLikeTheTableBesideThem) {
    Forces_Hold();
    Model.HideLinksFlag = "Y";
    Model.Units = 5;
    Model.L1 = 0.07;
    Model.CG(4, 0) = 0.5;
    Drawsub(0, stage);
    EXPECT_EQ(Take()[3], "Line 70 10 570 10 FF00FF");
}

TEST_F(DrawingCalls, BalanceWeightsAreCirclesOnCrankAndRocker) {
    Balance_Holds();
    Model.HideLinksFlag = "Y";
    Model.BerkCG(2, 0) = 2;
    Model.BerkCG(2, 1) = 20 * M_PI / 180;
    Model.BerkCG(4, 0) = 3;
    Model.BerkCG(4, 1) = 30 * M_PI / 180;
    Model.RunTable.Theta(0, 0) = 40;
    Model.RunTable.Theta(0, 2) = 70;
    Drawsub(0, stage);
    const double x2 = 2 * Cos(60);
    const double y2 = 10 - 2 * Sin(60);
    const double x4 = 7 + 3 * Cos(100);
    const double y4 = 10 - 3 * Sin(100);
    Expect_Rows(Take(), {Row("Line", {0, 10, x2, y2}, kMagenta), Row("Circle", {x2, y2, 1}, kMagenta),
                         Row("Line", {7, 10, x4, y4}, kMagenta), Row("Circle", {x4, y4, 1}, kMagenta)});
}

TEST_F(DrawingCalls, BalanceWeightsAreTurnedWithTheGroundOnce) {
    Balance_Holds();
    Model.HideLinksFlag = "Y";
    Model.Link1Angle = 30;
    Model.Link1AngleRad = 30 * M_PI / 180;
    Model.BerkCG(2, 0) = 2;
    Model.RunTable.Theta(0, 0) = 40;
    Drawsub(0, stage);
    Expect_Rows({Take()[0]}, {Row("Line", {0, 10, 2 * Cos(40), 10 - 2 * Sin(40)}, kMagenta)});
}

TEST_F(DrawingCalls, TheAxesEndShortOfTheWindowAndTheUpperEndShorterStill) {
    Axes(stage);
    EXPECT_EQ(Take(), (Rows{"Line -9 10 18 10 000000", "Line 0 18 0 -8.5 000000"}));
}

TEST_F(DrawingCalls, ThePivotsAreTwoRings) {
    Drawpivots(stage);
    EXPECT_EQ(Take(), (Rows{"Circle 0 10 1 FF0000", "Circle 0 10 0.5 FF0000", "Circle 7 10 1 FF0000",
                            "Circle 7 10 0.5 FF0000"}));
}

TEST_F(DrawingCalls, PivotO4TurnsWithTheGroundAndTheCamDoesNot) {
    Model.Calctype = 4;
    Model.Link1Angle = 30;
    Model.CamCenterX = 2;
    Model.CamCenterY = -3;
    Model.CamDiameter = 1.5;
    Drawpivots(stage);
    Rows rows = Take();
    rows.erase(rows.begin(), rows.begin() + 2);
    Expect_Rows(rows, {Row("Circle", {7 * Cos(30), 10 - 7 * Sin(30), 1}, kBlue),
                       Row("Circle", {7 * Cos(30), 10 - 7 * Sin(30), 0.5}, kBlue), Row("Circle", {-2, 7, 1.5}, kBlue),
                       Row("Circle", {-2, 7, 1}, kBlue)});
}

TEST_F(DrawingCalls, AngleStepsGiveAGreenLineThroughTheCouplerPoint) {
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), (Rows{"PSet 3 2", "LineTo 3 2 00FF00", "LineTo 5 9 00FF00"}));
}

TEST_F(DrawingCalls, TimeStepsAndDrivenRunsGiveACircleAtEachStep) {
    for (int mode : {2, 4, 5}) {
        Model.Calctype = mode;
        DrawCouplerCurve(stage);
        EXPECT_EQ(Take(), (Rows{"PSet 3 2", "Circle 3 2 0.25 000000", "Circle 5 9 0.25 000000"})) << mode;
    }
}

TEST_F(DrawingCalls, OnePositionHasNoCurveButItsStart) {
    Model.Calctype = 1;
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), Rows{"PSet 3 2"});
}

TEST_F(DrawingCalls, ACyanPointStartsEachNewPieceOfCurveAndNoLineJoinsThem) {
    Model.LastStep = 4;
    Put(2, 2, 0, 0);
    Put(3, 2, 6, 2);
    Put(4, 2, 7, 3);
    for (int step : {1, 3, 4}) Model.RunTable.Assembled(step) = true;
    Model.RunTable.Assembled(2) = false;
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), (Rows{"PSet 3 2", "LineTo 3 2 00FF00", "LineTo 5 9 00FF00", "PSet 6 8 FFFF00",
                            "LineTo 6 8 00FF00", "LineTo 7 7 00FF00"}));
}

TEST_F(DrawingCalls, ACurveThatBeginsWithAGapStartsWithACyanPoint) {
    Model.RunTable.Assembled(0) = false;
    Put(0, 2, 0, 0);
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), (Rows{"PSet 5 9", "PSet 5 9 FFFF00", "LineTo 5 9 00FF00"}));
}

TEST_F(DrawingCalls, AnAssembledStepAtTheExactOriginDrawsNoLine) {
    Put(1, 2, 0, 0);
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), (Rows{"PSet 3 2", "LineTo 3 2 00FF00"}));
}

TEST_F(DrawingCalls, APointOnAnAxisIsNotTheOrigin) {
    Put(0, 2, 0, 1);
    Put(1, 2, 1, 0);
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), (Rows{"PSet 0 9", "LineTo 0 9 00FF00", "LineTo 1 10 00FF00"}));
}

TEST_F(DrawingCalls, TheStartOfTheCouplerCurveIsKeptInBothFrames) {
    Model.Link1Angle = 90;
    DrawCouplerCurve(stage);
    EXPECT_NEAR(Model.CurveStartX, -8, 1e-5);
    EXPECT_NEAR(Model.CurveStartY, 3, 1e-5);
    EXPECT_EQ(Model.CurveStartLocalX, 3);
    EXPECT_EQ(Model.CurveStartLocalY, 8);
}

TEST_F(DrawingCalls, WithNoStepAssembledNothingIsDrawn) {
    for (int step : {0, 1}) {
        Model.RunTable.Assembled(step) = false;
        Put(step, 2, 0, 0);
    }
    DrawCouplerCurve(stage);
    EXPECT_EQ(Take(), Rows{});
}

TEST_F(DrawingCalls, CouplerLinesStandOnBothSidesOfTheCouplerPoint) {
    Model.LineAngle = 40;
    Model.RunTable.Theta(0, 1) = 20;
    Model.RunTable.Assembled(1) = false;
    Model.CurveStartLocalX = 3;
    Model.CurveStartLocalY = 8;
    DrawCentrodeCurves(stage);
    const double dx = 0.6 * Cos(60);
    const double dy = 0.6 * Sin(60);
    Rows rows = Take();
    // The dot at the start is not flipped.
    EXPECT_EQ(rows[0], "PSet 3 8");
    EXPECT_EQ(rows[2], "PSet 3 2");
    EXPECT_EQ(rows[4], "PSet 3 2");
    Expect_Rows({rows[1], rows[3], rows[5]}, {Row("Circle", {3, 2, 0.25}, kBlue), Row("LineStep", {dx, -dy}, kBlue),
                                              Row("LineStep", {-dx, dy}, kBlue)});
    EXPECT_EQ(rows.size(), 6U);
}

TEST_F(DrawingCalls, CouplerLinesAreTurnedByTheGroundAngleOnTopOfTheGlobalOne) {
    Model.Link1Angle = 30;
    Model.LineAngle = 40;
    Model.RunTable.Theta(0, 1) = 20;
    Model.RunTable.Assembled(1) = false;
    DrawCentrodeCurves(stage);
    Expect_Rows({Take()[3]}, {Row("LineStep", {0.6 * Cos(90), -0.6 * Sin(90)}, kBlue)});
}

TEST_F(DrawingCalls, TheStartOfTheCurveForCouplerLinesIsInTheLocalFrame) {
    Model.Link1Angle = 30;
    Model.ShowCouplerLinesFlag = "Y";
    DrawCouplerCurve(stage);
    const Rows rows = Take();
    Expect_Rows({rows[0]}, {Row("PSet", {3 * Cos(30) - 8 * Sin(30), 10 - (3 * Sin(30) + 8 * Cos(30))})});
    EXPECT_EQ(rows[3], "PSet 3 8");
}

TEST_F(DrawingCalls, CouplerLinesWithoutTheCurveAreNotDrawn) {
    Model.ShowCouplerLinesFlag = "Y";
    Model.ShowCouplerFlag = "N";
    DrawLinkage(stage, 0);
    for (const auto& row : Take()) EXPECT_EQ(row.find("LineStep"), std::string::npos);
}

TEST_F(DrawingCalls, CentrodeCirclesAreBlackForTheFixedAndRedForTheMoving) {
    Model.RunTable.FixedCentrode(0, 0, 0) = 3;
    Model.RunTable.FixedCentrode(0, 0, 1) = -4;
    Model.RunTable.MovingCentrode(0, 0, 0) = 100;
    Model.RunTable.MovingCentrode(0, 0, 1) = 6;
    PlotCentrodeCircles(0, stage);
    EXPECT_EQ(Take(), (Rows{"Circle 3 14 0.2 000000", "Circle 100 4 0.2 0000FF"}));
}

TEST_F(DrawingCalls, AFixedCentrodeBeyondTwiceTheWindowLeavesBothCirclesOut) {
    Model.RunTable.FixedCentrode(0, 0, 0) = -40;
    PlotCentrodeCircles(0, stage);
    Model.RunTable.FixedCentrode(0, 0, 0) = 0;
    Model.RunTable.FixedCentrode(0, 0, 1) = 40;
    PlotCentrodeCircles(0, stage);
    EXPECT_EQ(Take(), Rows{});
    Model.RunTable.FixedCentrode(0, 0, 1) = 39.99;
    PlotCentrodeCircles(0, stage);
    EXPECT_EQ(Take().size(), 2U);
}

TEST_F(DrawingCalls, AFaultInADrawingCallEndsTheProcedureAndIsReported) {
    Model.Calctype = 4;
    Model.CamDiameter = -1;
    Model.CamCenterX = 2;
    stage.Picture1.Redirect(nullptr);
    desktop.Expect_Message("Error 5   (Invalid procedure call or argument)  has occurred in Drawpivots\r\n\r\n");
    Drawpivots(stage);
    EXPECT_EQ(stage.Picture1.Drawing().Alive(), 4U);
}

TEST_F(DrawingCalls, AStepBeyondTheTableIsReported) {
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Drawsub\r\n\r\n");
    Drawsub(2881, stage);
}

}  // namespace
}  // namespace verlink::test
