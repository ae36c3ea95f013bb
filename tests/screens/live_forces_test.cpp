// Forces, loads and balance in the pane of live plots.
#include "core/linkage_door.h"
#include "dynamics/balancing.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "tests/screens/live_plots_fixture.h"

namespace verlink::test {
namespace {

TEST_F(LivePlots, ForcesAreSolvedAnewWhileAJointIsDragged) {
    After_First_Picture([&] {
        Give_Masses();
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Choose_Option(form, "opt_Shift_Drag", 1);
        for (const double length : {1.0, 0.8}) {
            Drag(length, 0);
            EXPECT_TRUE(Model.DynamicsDone);
            EXPECT_EQ(Note(), "");
            const auto shown = std::make_unique<RunResults>(Model.RunTable);
            ASSERT_TRUE(Solve_Forces(Model));
            for (int step = 0; step <= 36; ++step) {
                const auto at = static_cast<std::size_t>(step);
                for (const int axis : {0, 1})
                    EXPECT_EQ(shown->PinForce(step, 5, axis), Model.RunTable.PinForce(step, 5, axis));
                const double x = Model.RunTable.PinForce(step, 5, 0), y = Model.RunTable.PinForce(step, 5, 1);
                EXPECT_NEAR(Values(Own(1))[at], x, 1e-4) << step;
                EXPECT_NEAR(Values(Own(2))[at], y, 1e-4) << step;
                EXPECT_NEAR(Values(Own(3))[at], std::hypot(x, y), 1e-3 + 1e-6 * std::hypot(x, y)) << step;
            }
        }
    });
}

TEST_F(LivePlots, ForcesThatThePaneDoesNotShowFallWithTheRun) {
    After_First_Picture([&] {
        Give_Masses();
        Choose_Option(form, "opt_Shift_Drag", 1);
        Open();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Drag(1, 0);
        EXPECT_FALSE(Model.DynamicsDone);
        Give_Masses();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Open();
        Drag(0.9, 0);
        EXPECT_FALSE(Model.DynamicsDone);
    });
}

TEST_F(LivePlots, ForcesThatWereNotSolvedAreNotSolvedByADrag) {
    After_First_Picture([&] {
        Give_Masses();
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Open();
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(1, 0);
        ASSERT_FALSE(Model.DynamicsDone);
        Open();
        EXPECT_EQ(Note(), "The forces of this linkage are not solved.");
        EXPECT_TRUE(All_Empty());
        Drag(0.9, 0);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_TRUE(All_Empty());
    });
}

TEST_F(LivePlots, ATypedLengthHasItsForcesSolvedAnewToo) {
    After_First_Picture([&] {
        Give_Masses();
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Type(form, "txt_Linkout", 1, "0.8");
        form.txt_Linkout[2].SetFocus();
        EXPECT_TRUE(All_Empty());
        Press(form, "cmd_Recalc");
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_NEAR(Values(Own(1))[4], Model.RunTable.PinForce(4, 5, 0), 1e-4);
    });
}

TEST_F(LivePlots, ForcesThatCannotBeSolvedAreToldAndNothingStaleIsShown) {
    Model.L4 = 2;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Give_Masses();
        // Mass centres upon the pins leave nothing to hold links that lie in line.
        for (int link = 2; link <= 4; ++link) Model.CG(link, 0) = 0;
        ASSERT_TRUE(Solve_Forces(Model));
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Pick(form.live.Slots[3]->cmb_LiveVar, "Omega4");
        Choose_Option(form, "opt_Shift_Drag", 1);
        form.hsc_step.Drag(9);
        form.hsc_step.Drop();
        // The first position does not close with that crank, and counts as all links in line; no message tells of it.
        Drag(0, 2.5);
        ASSERT_NEAR(Model.L2, 2.5, 1e-6);
        ASSERT_TRUE(Model.RunStands);
        ASSERT_FALSE(Model.RunTable.Assembled(0));
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_EQ(Note(), "The forces of this linkage cannot be solved at every step of the run.");
        for (int slot = 1; slot <= 3; ++slot) EXPECT_EQ(Own(slot).NumPoints(), 0);
        EXPECT_EQ(Own(4).NumPoints(), 37);
        // The hand goes on, and back where they can.
        Drag(0, 1);
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_EQ(Note(), "");
        EXPECT_EQ(Own(1).NumPoints(), 37);
    });
}

TEST_F(LivePlots, AnImportedTorqueFellWithItsRunAndTheForcesWithIt) {
    After_First_Picture([&] {
        Give_Masses();
        Model.TorqueImported = true;
        for (int step = 0; step <= 36; ++step) Model.RunTable.ImportedTorque(step) = step;
        ASSERT_TRUE(Solve_Forces(Model));
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(1, 0);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_EQ(
            Note(),
            "The imported torque has a row for each step of the run before; import it again to solve the forces.");
        EXPECT_TRUE(All_Empty());
    });
    After_First_Picture([&] { EXPECT_EQ(Note(), "The forces of this linkage are not solved.") << "that was before"; });
}

TEST_F(LivePlots, WithTheImportUndoneNothingIsSaidOfItsTorqueAnyMore) {
    After_First_Picture([&] {
        platform::Deed::By_Itself();
        The_History().Begin();
        {
            const platform::Deed solved("solve");
            Model.TorqueImported = true;
            Give_Masses();
        }
        Open();
        Pick(form.live.cmb_LivePreset, kForcePreset);
        Choose_Option(form, "opt_Shift_Drag", 1);
        {
            const platform::Deed dragged("drag");
            Drag(1, 0);
        }
        EXPECT_TRUE(Note().starts_with("The imported torque")) << Note();
        The_History().Undo();
        EXPECT_EQ(Note(), "");
        The_History().Undo();
        EXPECT_EQ(Note(), "The forces of this linkage are not solved.");
    });
}

TEST_F(LivePlots, ABalanceFallsWithTheDragAndThePaneSaysSo) {
    After_First_Picture([&] {
        Give_Masses();
        Berkof_Setup(Model);
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        Balance_Holds();
        Open();
        Pick(form.live.cmb_LivePreset, "Shaking Force - Balanced   -  X, Y, Mag, Ang Coordinates");
        EXPECT_EQ(Note(), "");
        EXPECT_EQ(Own(3).NumPoints(), 37);
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(1, 0);
        EXPECT_EQ(Note(), "The balance of this linkage is not calculated.");
        EXPECT_TRUE(All_Empty());
    });
}

}  // namespace
}  // namespace verlink::test
