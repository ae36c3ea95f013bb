// What is to be seen after a run, and whole drawings against their logs.
#include <cmath>

#include "animation/drawing.h"
#include "animation/engine.h"
#include "core/parameters.h"
#include "dynamics/units.h"
#include "tests/support/drawing.h"

namespace verlink::test {
namespace {

class AfterARun : public Drawing {
   protected:
    AfterARun() {
        stage.chk_autoscale.Value = true;
        Model.ShowCouplerFlag = "Y";
    }
    /// What a run leaves must be what a fresh picture of its last position shows.
    void Expect_Clean() {
        stage.Picture1.Redirect(nullptr);
        Animate(stage);
        const auto left = Seen(stage.Picture1.Drawing());
        Model.RedrawFlag = "Y";
        Integer last = Model.NSteps;
        Step(stage, last);
        const auto fresh = Seen(stage.Picture1.Drawing());
        for (const auto& shape : left)
            EXPECT_TRUE(fresh.contains(shape)) << "left over: " << testing::PrintToString(shape);
        for (const auto& shape : fresh) EXPECT_TRUE(left.contains(shape)) << "lost: " << testing::PrintToString(shape);
        EXPECT_GT(left.size(), 10U);
    }
    Stage stage;
};

TEST_F(AfterARun, ErasingLeavesACleanPictureOfTheLastPosition) {
    By_Angle(0, 360, 5);
    Expect_Clean();
}

TEST_F(AfterARun, ErasingIsCleanByTime) {
    By_Time(0, 0.5, 0.01);
    Expect_Clean();
}

TEST_F(AfterARun, ErasingIsCleanOnATurnedGround) {
    Turn_Ground(33);
    By_Angle(0, 360, 5);
    Expect_Clean();
}

TEST_F(AfterARun, ErasingIsCleanForACamFollower) {
    By_Cam(60, 4);
    Expect_Clean();
}

TEST_F(AfterARun, ErasingIsCleanWithOverlaysAndCouplerLines) {
    By_Angle(0, 360, 5);
    Forces_Hold();
    Balance_Holds();
    Model.BerkCG(2, 0) = 0.5;
    Model.BerkCG(4, 0) = 0.6;
    Model.BerkCG(4, 1) = 2;
    Model.ShowCouplerLinesFlag = "Y";
    Model.Cycles = 2;
    Expect_Clean();
}

TEST_F(AfterARun, ErasingIsCleanInTheLongestRun) {
    By_Angle(0, 360, 0.125);
    EXPECT_EQ(Model.NSteps, 2880);
    Model.ShowCouplerFlag = "N";
    Expect_Clean();
}

TEST_F(AfterARun, ATraceKeepsEveryPosition) {
    By_Angle(0, 360, 10);
    Model.TraceFlag = "Y";
    stage.Picture1.Redirect(nullptr);
    Animate(stage);
    const auto seen = Seen(stage.Picture1.Drawing());
    int pins = 0;
    for (int step = 0; step <= Model.NSteps; ++step)
        for (int row = 0; row <= 2; ++row) {
            const double radius = row == 2 ? Model.CouplerPinRadius : Model.PinRadius;
            const double x = Model.RunTable.PointXY(step, row, 0);
            const double y = Model.FlipSum - Model.RunTable.PointXY(step, row, 1);
            pins += static_cast<int>(
                seen.count({static_cast<int>(platform::Picture::Primitive::Kind::kPin), 0, x, y, radius, 0}));
        }
    // The first and the last position of a full turn are the same but for the last bits.
    EXPECT_GE(pins, 36 * 3);
    for (const auto& shape : seen) EXPECT_NE(std::get<1>(shape), 0xFFFFFF);
}

TEST_F(AfterARun, CentrodeCirclesAddUpAndAreNotErased) {
    By_Angle(10, 100, 10);
    Model.ShowCouplerFlag = "N";
    Model.ShowCentrodesFlag = "Y";
    stage.Picture1.Redirect(nullptr);
    Animate(stage);
    int fixed = 0;
    for (const auto& shape : Seen(stage.Picture1.Drawing()))
        if (std::get<1>(shape) == 0x0000FF) ++fixed;
    int near = 0;
    for (int step = 0; step <= Model.NSteps; ++step) {
        const auto& F = Model.RunTable.FixedCentrode;
        if (std::abs(F(step, 0, 0)) < 2 * Model.AnimMax && std::abs(F(step, 0, 1)) < 2 * Model.AnimMax) ++near;
    }
    EXPECT_GT(near, 2);
    EXPECT_EQ(fixed, near);
}

// Whole drawings.

class DrawingLog : public Drawing {
   protected:
    DrawingLog() {
        stage.chk_autoscale.Value = true;
        Model.ShowCouplerFlag = "Y";
    }
    /// A run, and then the still picture of the third position.
    void Expect(const std::string& name) {
        Animate(stage);
        Model.RedrawFlag = "Y";
        Integer third = 2;
        Step(stage, third);
        Expect_Log("drawing_" + name, stage.log);
    }
    Stage stage;
};

TEST_F(DrawingLog, AngleSteps) {
    By_Angle(0, 360, 60);
    Expect("angle_steps");
}

TEST_F(DrawingLog, BackwardAngleSteps) {
    Model.Omega2Input = -10;
    By_Angle(0, 180, 60);
    Expect("backward");
}

TEST_F(DrawingLog, TimeSteps) {
    By_Time(0, 0.25, 0.05);
    Expect("time_steps");
}

TEST_F(DrawingLog, CamDrivenFollower) {
    By_Cam(4, 40);
    Expect("cam_driven");
}

TEST_F(DrawingLog, RotatedGround) {
    Turn_Ground(30);
    By_Angle(0, 360, 60);
    Expect("rotated_ground");
}

TEST_F(DrawingLog, HiddenLinks) {
    Model.HideLinksFlag = "Y";
    By_Angle(0, 360, 60);
    Expect("hidden_links");
}

TEST_F(DrawingLog, CouplerLines) {
    Model.ShowCouplerLinesFlag = "Y";
    Model.LineAngle = 45;
    By_Angle(0, 360, 90);
    Expect("coupler_lines");
}

TEST_F(DrawingLog, Centrodes) {
    Model.ShowCentrodesFlag = "Y";
    By_Angle(0, 360, 60);
    Expect("centrodes");
}

TEST_F(DrawingLog, GapsOfANonGrashofLinkage) {
    Model.L2 = 2.6;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 40);
    EXPECT_EQ(Model.Grashof_Code, "N");
    EXPECT_TRUE(Model.NoConnectSeen);
    Expect("gaps");
}

TEST_F(DrawingLog, Centimetres) {
    Use_Units(4);
    for (Single* length : {&Model.L2, &Model.L3, &Model.L4, &Model.Rpa, &Model.Link1X}) *length /= 100;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 90);
    Expect("centimetres");
}

TEST_F(DrawingLog, Millimetres) {
    Use_Units(5);
    for (Single* length : {&Model.L2, &Model.L3, &Model.L4, &Model.Rpa, &Model.Link1X}) *length /= 1000;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 90);
    Expect("millimetres");
}

TEST_F(DrawingLog, DynamicsAndBalanceOverlays) {
    By_Angle(0, 360, 90);
    Forces_Hold();
    Balance_Holds();
    Model.BerkCG(2, 0) = 0.5;
    Model.BerkCG(2, 1) = 3;
    Model.BerkCG(4, 0) = 0.75;
    Model.BerkCG(4, 1) = 2;
    Expect("overlays");
}

TEST_F(DrawingLog, ATracedRun) {
    Model.TraceFlag = "Y";
    By_Angle(0, 180, 60);
    Expect("trace");
}

}  // namespace
}  // namespace verlink::test
