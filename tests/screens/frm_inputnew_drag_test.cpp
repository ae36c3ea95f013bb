// A joint dragged in the picture of the input screen: what is drawn, counted and kept.
#include <cstdio>

#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

class InputDrag : public InputScreen {
   protected:
    static Touch Touch_At(double x, double y) { return {x, Model.FlipSum - y, 0, 0.01}; }
    /// Takes the pivot O4, of a ground that lies level.
    bool Take_O4() { return input.Picture1.OnSeize(Touch_At(Model.L1, 0)); }
    void Pull(double x, double y) { input.Picture1.OnDrag(Touch_At(x, y)); }
    void Let_Go() { input.Picture1.OnRelease(); }
    bool Circle_Is_Drawn_At(double x, double y) const {
        for (const std::string& call : Drawn()) {
            double cx, cy;
            if (std::sscanf(call.c_str(), "Circle %lf %lf", &cx, &cy) != 2) continue;
            if (std::hypot(cx - x, Model.FlipSum - cy - y) < 0.011) return true;
        }
        return false;
    }
};

TEST_F(InputDrag, IsDrawnWhereTheHandIsAndStepGoesOnFromThere) {
    Show([&] {
        Calculate_Now();
        input.hsc_step.Drag(7);
        input.hsc_step.Drop();
        Model.ShowCouplerLinesFlag = "Y";
        Model.ScreenReturn = false;
        ASSERT_TRUE(Take_O4());
        log.Calls.clear();
        Pull(2.5, 0.2);
        EXPECT_TRUE(Circle_Is_Drawn_At(2.5, 0.2));
        EXPECT_TRUE(Circle_Is_Drawn_At(Model.RunTable.PointXY(7, 0, 0), Model.RunTable.PointXY(7, 0, 1)) ||
                    Model.Link1Angle != 0)
            << "the crank's pin, of the position in the picture";
        EXPECT_EQ(Model.ShowCouplerLinesFlag, "N");
        EXPECT_TRUE(Model.ScreenReturn);
        Let_Go();
        EXPECT_EQ(input.hsc_step.Value(), 7);
        Press(input, "cmd_Step");
        EXPECT_EQ(input.hsc_step.Value(), 8);
    });
}

TEST_F(InputDrag, OfOnePositionHasNoStepToGoOnWith) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 1);
        Calculate_Now();
        ASSERT_TRUE(Take_O4());
        Pull(2.5, 0.2);
        EXPECT_EQ(Model.Link1X, 2.5);
        EXPECT_EQ(Model.CurrentStep, 0);
        Let_Go();
    });
}

TEST_F(InputDrag, ACrankThatIsTurnedTakesTheBarAlong) {
    Show([&] {
        Calculate_Now();
        const auto at = [](int step) { return Model.RunTable.Theta(step, 0) * M_PI / 180; };
        const double now = at(input.hsc_step.Value()), later = at(9), L2 = Model.L2;
        ASSERT_TRUE(input.Picture1.OnSeize(Touch_At(L2 * std::cos(now), L2 * std::sin(now))));
        Pull(L2 * std::cos(later), L2 * std::sin(later));
        EXPECT_EQ(input.hsc_step.Value(), 9);
        Let_Go();
    });
}

TEST_F(InputDrag, WhatIsTypedMeanwhileStays) {
    Show([&] {
        Calculate_Now();
        ASSERT_TRUE(Take_O4());
        Enter_Link(15, "2.6");
        Pull(2.5, 0.2);
        EXPECT_EQ(Model.Link1X, Single(2.6));
        EXPECT_NEAR(Model.Link1Y, 0.2, 0.01);
        Let_Go();
    });
}

TEST_F(InputDrag, TheCognatesFollowALinkageThatNoCamDrives) {
    for (const bool cam : {false, true}) {
        SCOPED_TRACE(cam);
        Show([&] {
            Calculate_Now();
            const double before = Model.Cognates(1, 1);
            Model.CamDriven = cam;
            ASSERT_TRUE(Take_O4());
            Pull(Model.L1 - 0.1, 0);
            ASSERT_NEAR(Model.L1, before - 0.1, 0.011);
            EXPECT_EQ(Model.Cognates(1, 1), cam ? Single(before) : Model.L1);
            Let_Go();
            Model.CamDriven = false;
        });
    }
}

}  // namespace
}  // namespace verlink::test
