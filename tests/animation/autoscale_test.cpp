// The window of a run: what it holds, its margin and the zoom.
#include <algorithm>
#include <cmath>

#include "animation/engine.h"
#include "tests/support/drawing.h"

namespace verlink::test {
namespace {

/// Links of length 4 each, so that the margin is 1, and a table of zeros with `NSteps` 1.
class Scaling : public Drawing {
   protected:
    Scaling() {
        Model.L1 = Model.L2 = Model.L3 = Model.L4 = 4;
        LoadLinkArray();
        Model.NSteps = 1;
    }
    static void Put(int step, int row, double x, double y) {
        Model.RunTable.PointXY(step, row, 0) = x;
        Model.RunTable.PointXY(step, row, 1) = y;
    }
    static void Expect_Window(double lower, double upper) {
        Autoscale();
        EXPECT_NEAR(Model.AnimMin, lower, 1e-5 * std::max(1.0, std::abs(lower)));
        EXPECT_NEAR(Model.AnimMax, upper, 1e-5 * std::max(1.0, std::abs(upper)));
    }
};

TEST_F(Scaling, OneWindowHoldsAllPointsOfAllStepsOnBothAxesWithAMargin) {
    Put(0, 0, 1, 2);
    Put(0, 1, 3, 9);
    Put(0, 2, 2, 2);
    Put(1, 0, -5, 1);
    Put(1, 1, 1, 1);
    Put(1, 2, 1, 1);
    Expect_Window(-6, 10);
}

TEST_F(Scaling, StepsBeyondTheRunDoNotCount) {
    Put(2, 1, 100, 0);
    Expect_Window(-1, 5);
}

TEST_F(Scaling, WithHiddenLinksOnlyTheCouplerPointAndTheOriginCount) {
    Model.HideLinksFlag = "Y";
    Put(0, 0, 50, 50);
    Put(0, 2, 7, 6);
    Put(1, 1, -50, 0);
    Put(1, 2, 5, 8);
    Expect_Window(-1, 9);
}

TEST_F(Scaling, TheGroundLinkCountsWhenLinksShowAndIsNotTurned) {
    Model.Link1Angle = 180;
    Model.L1 = 6;
    Expect_Window(-1, 7);
    Model.HideLinksFlag = "Y";
    Expect_Window(-1, 1);
}

TEST_F(Scaling, ThePointsAreTurnedByTheGroundAngle) {
    Model.Link1Angle = 90;
    Put(0, 2, 1, 1);
    Put(1, 2, 12, 0);
    Put(1, 1, 0, 9);
    // (12, 0) turns to (0, 12) and (0, 9) to (-9, 0).
    Expect_Window(-10, 13);
}

TEST_F(Scaling, TheCouplerPointOfStepZeroCountsAsItLiesInTheLocalFrameToo) {
    Model.Link1Angle = 90;
    Put(0, 2, 2, -10);
    // It turns to (10, 2).
    Expect_Window(-11, 11);
    Model.Link1Angle = 180;
    for (const double x : {10, -10}) {
        Put(0, 2, x, 1);
        Expect_Window(-11, 11);
    }
}

TEST_F(Scaling, StepsThatDidNotCloseCountAsTheOrigin) {
    Model.HideLinksFlag = "Y";
    Put(0, 2, 5, 6);
    Put(1, 2, 7, 8);
    Model.RunTable.Assembled(0) = Model.RunTable.Assembled(1) = true;
    Expect_Window(-1, 9);
}

TEST_F(Scaling, InCentimetresTheMarginCountsEachLengthAHundredAndOneTimes) {
    Model.Units = 4;
    Model.L1 = Model.L2 = Model.L3 = Model.L4 = 0.04;
    LoadLinkArray();
    const double margin = 101 * 0.04 / 4;
    Expect_Window(-margin, 4 + margin);
}

TEST_F(Scaling, InMillimetresTheMarginCountsEachLengthAThousandAndOneTimes) {
    Model.Units = 5;
    Model.L1 = Model.L2 = Model.L3 = Model.L4 = 0.04;
    LoadLinkArray();
    const double margin = 1001 * 0.04 / 4;
    Expect_Window(-margin, 40 + margin);
}

TEST_F(Scaling, ACamWidensTheLowerBoundAloneByHalfItsRadius) {
    Model.Calctype = 4;
    Model.CamCenterX = 6;
    Model.CamCenterY = -9;
    Model.CamDiameter = 3;
    // -(1.5 + 6); the other, +(1.5 + 9), is not below, and the upper bound stays.
    Expect_Window(-8.5, 5);
    Model.CamCenterY = 9;
    Expect_Window(-11.5, 5);
    Model.CamCenterX = Model.CamCenterY = 0;
    Expect_Window(-1, 5);
    Model.CamCenterX = -1;
    Expect_Window(-1, 5);
    Model.Calctype = 3;
    Model.CamCenterX = 6;
    Expect_Window(-1, 5);
}

TEST_F(Scaling, TheZoomScalesBothBoundsWithTheMargin) {
    Model.ZoomFactor = 0.5;
    Put(0, 2, -3, 7);
    Expect_Window(-2, 4);
}

TEST_F(Scaling, BeforeAnyRunTheWindowIsThatOfTheGroundLink) {
    Model.NSteps = -435;
    Expect_Window(-1, 5);
}

}  // namespace
}  // namespace verlink::test
