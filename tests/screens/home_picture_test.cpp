// The picture of the home screen: when there is one, and how large.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/linkage_model.h"
#include "core/results.h"
#include "dynamics/units.h"
#include "screens/frm_homescreen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class HomePicture : public Fixture {
   protected:
    HomePicture() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
        Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
        Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
        Model.NSteps = 36;
        Run_Dropped();
    }
    bool There() {
        home.Form_Activate();
        EXPECT_EQ(home.lbl_Name.Visible.Get(), !home.Picture1.Visible.Get());
        EXPECT_EQ(home.lbl_Advice.Visible.Get(), !home.Picture1.Visible.Get());
        EXPECT_FALSE(Model.RunStands) << "its run is its own";
        return home.Picture1.Visible;
    }
    /// Whether it is there with that length, which goes back then.
    bool There_With(Single& length, double value) {
        const Single before = length;
        length = value;
        const bool there = There();
        length = before;
        return there;
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(platform::Screens::Get("frm_HomeScreen"));
};

TEST_F(HomePicture, IsThereWhereTheLinkageClosesSomewhereAndHasAllItsLengths) {
    EXPECT_TRUE(There());
    for (Single* length : {&Model.L1, &Model.L2, &Model.L3, &Model.L4}) {
        EXPECT_FALSE(There_With(*length, 0));
        EXPECT_FALSE(There_With(*length, -1));
        EXPECT_FALSE(There_With(*length, 1e13));
        EXPECT_FALSE(There_With(*length, 50)) << "it does not reach";
    }
    EXPECT_TRUE(There());
}

TEST_F(HomePicture, IsThereForAsManyStepsAsARunMayHave) {
    for (const auto& [steps, there] : {std::pair(-1, false), {0, true}, {2880, true}, {2881, false}}) {
        Model.NSteps = steps;
        Model.ThetaStepRad = steps > 0 ? 2 * M_PI / steps : 1;
        EXPECT_EQ(There(), there) << steps;
    }
}

TEST_F(HomePicture, TellsNothingToDrawWhereThereIsNone) {
    Model.L2 = 0;
    home.Form_Activate();
    desktop.Expect_Message("There is no linkage to be drawn. Calculate first.");
    Pick_Menu(home, "mnu_SaveDrawing");
}

TEST_F(HomePicture, HasNoCentrodesAlsoWhereTheAnimationHas) {
    EXPECT_TRUE(There());
    const std::size_t strokes = home.Picture1.Drawing().Alive();
    Model.ShowCentrodesFlag = "Y";
    EXPECT_TRUE(There());
    EXPECT_EQ(home.Picture1.Drawing().Alive(), strokes);
    EXPECT_EQ(Model.ShowCentrodesFlag, "Y");
}

TEST_F(HomePicture, HasAirOfATwentiethAroundCounterweights) {
    EXPECT_TRUE(There());
    const double left = home.Picture1.Drawing().Left();
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Model.BerkCG(2, 0) = 20;
    Model.BerkCG(4, 0) = 0.1;
    home.Form_Activate();
    EXPECT_LT(home.Picture1.Drawing().Left(), -20);
    EXPECT_LT(home.Picture1.Drawing().Left(), left);
    EXPECT_NEAR(home.Picture1.Drawing().Right(), -home.Picture1.Drawing().Left(), 1e-4) << "they turn about O2";
    Model.BerkCG(2, 0) = 0.1;
    Model.BerkCG(4, 0) = 20;
    home.Form_Activate();
    EXPECT_GT(home.Picture1.Drawing().Right(), 20 + Model.L1);
    EXPECT_LT(home.Picture1.Drawing().Left(), Model.L1 - 20);
    Model.Link1AngleRad = std::numbers::pi / 2;
    home.Form_Activate();
    EXPECT_GT(std::max(home.Picture1.Drawing().Top(), home.Picture1.Drawing().Bottom()), 20 + Model.L1);
    EXPECT_LT(home.Picture1.Drawing().Left(), -20) << "the pivot stands above the other";
    Model.Link1AngleRad = 0;
    Balance_Dropped();
    home.Form_Activate();
    EXPECT_GT(home.Picture1.Drawing().Left(), -20) << "no weights, no room for them";
}

}  // namespace
}  // namespace verlink::test
