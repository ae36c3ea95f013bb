// What a drag leaves as it was: the drive of a run by imported data, and after an undo the way from step to step.
#include "core/text.h"
#include "platform/deed.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

TEST_F(JointHand, ADriveOutlivesADrag) {
    for (const bool cam : {true, false}) {
        Fresh();
        cam ? By_Cam(20, 12) : By_Another_Stage(20, 12);
        Model.CamDriven = cam;
        Model.LinkDriven = !cam;
        After_First_Picture([&] {
            Show_Step(7);
            const double theta = Model.RunTable.Theta(7, 0), before = Model.L4;
            ASSERT_TRUE(Press_At(Where(Joint::kB)));
            Move(Where(Joint::kB) + Spot(6, 2) * Pixel());
            EXPECT_NE(Model.L4, before);
            EXPECT_EQ(Model.RunTable.Theta(7, 0), theta);
            // A goes to the ray of another position of the drive.
            Release();
            ASSERT_TRUE(Press_At(Where(Joint::kA)));
            Move(std::polar(1.2, Model.RunTable.Theta(9, 0) * M_PI / 180));
            EXPECT_EQ(form.hsc_step.Value(), 9);
            EXPECT_NEAR(Model.L2, 1.2, 0.001);
            Release();
            EXPECT_EQ(Model.Calctype, cam ? 4 : 5);
            EXPECT_EQ(Model.CamDriven, cam);
            EXPECT_EQ(Model.LinkDriven, !cam);
            EXPECT_EQ(Model.RunTable.DriveTheta(9), 108);
            EXPECT_TRUE(Model.RunStands);
            EXPECT_TRUE(form.cmd_Animate.Enabled);
        });
    }
}

TEST_F(JointHand, AnUndoneDragLeavesThePositionThatWasShownAndStepGoesOnFromThere) {
    After_First_Picture([&] {
        // What the fixture has done counts as done.
        { const platform::Deed deed("preparing"); }
        Show_Step(14);
        {
            const platform::Deed deed(Picture(), platform::Deed::Kind::kDrag);
            ASSERT_TRUE(Press_At(Where(Joint::kP)));
            Move(Where(Joint::kP) + Spot(20, 10) * Pixel());
            Release();
        }
        platform::Deed::Drag_Ended();
        EXPECT_EQ(form.hsc_step.Value(), 14);
        Pick_Menu(form, "mnu_Undo");
        EXPECT_EQ(form.hsc_step.Value(), 14);
        EXPECT_EQ(Number(), "140.0");
        Press(form, "cmd_Step");
        EXPECT_EQ(form.hsc_step.Value(), 15);
        EXPECT_EQ(Number(), "150.0");
    });
}

}  // namespace
}  // namespace verlink::test
