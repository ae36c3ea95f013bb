// The pane of live plots on the animate screen.
#include <algorithm>
#include <cmath>
#include <memory>

#include "core/linkage_door.h"
#include "core/text.h"
#include "dynamics/balancing.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "platform/deed.h"
#include "tests/screens/live_plots_fixture.h"

namespace verlink::test {
namespace {

TEST_F(LivePlots, ThePaneIsClosedUntilTheMenuOpensIt) {
    After_First_Picture([&] {
        EXPECT_FALSE(form.live.fra_Live.Visible);
        EXPECT_FALSE(form.live.cmb_LivePreset.Visible);
        Open();
        EXPECT_TRUE(form.mnu_ViewLive.Checked);
        EXPECT_TRUE(form.live.fra_Live.Visible);
        EXPECT_EQ(Note(), "Choose a preset, or functions one by one.");
        EXPECT_TRUE(All_Empty());
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        EXPECT_FALSE(All_Empty());
        Open();
        EXPECT_FALSE(form.live.fra_Live.Visible);
        EXPECT_TRUE(All_Empty());
    });
}

TEST_F(LivePlots, OpeningChoosingAndClosingLeaveModelAndPlotsAlone) {
    Select_Variable("Omega3", 1);
    Select_Variable("Accel CP", 2);
    Set_Component("Y", 2);
    Model.CoordSystem = 2;
    Model.PlotCount = 2;
    Model.PlotSlot = 2;
    After_First_Picture([&] {
        const auto before = std::make_unique<LinkageModel>(Model);
        Open();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Pick(form.live.Slots[1]->cmb_LiveVar, "Coupler Pt");
        Choose_Option(form, "opt_LiveScale", 1);
        Choose_Option(form, "opt_LiveX", 1);
        Open();
        EXPECT_TRUE(Model.SavedFlag);
        EXPECT_EQ(Model.RunStands, before->RunStands);
        EXPECT_EQ(Model.CurrentStep, before->CurrentStep);
        EXPECT_EQ(Model.PlotCount, 2);
        EXPECT_EQ(Model.PlotSlot, 2);
        EXPECT_EQ(Model.CoordSystem, 2);
        EXPECT_FALSE(Model.DynamicsDone);
        for (int slot = 1; slot <= 4; ++slot) {
            EXPECT_EQ(Model.FuncGroup(slot), before->FuncGroup(slot));
            EXPECT_EQ(Model.FuncRow(slot), before->FuncRow(slot));
            EXPECT_EQ(Model.FuncComponent(slot), before->FuncComponent(slot));
            EXPECT_EQ(Model.ComponentLabel(slot), before->ComponentLabel(slot));
        }
    });
}

TEST_F(LivePlots, APresetFillsFourFunctionsEachInItsOwnScale) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        EXPECT_EQ(Note(), "");
        EXPECT_EQ(form.live.Slots[3]->cmb_LiveVar.Text, "Veloc CP");
        EXPECT_EQ(form.live.Slots[3]->cmb_LiveCom.Text, "Ang");
        EXPECT_FALSE(Own(0).Visible);
        EXPECT_FALSE(Own(0).InLine);
        for (int slot = 1; slot <= 4; ++slot) {
            EXPECT_TRUE(Own(slot).Visible);
            EXPECT_EQ(Own(slot).NumSets(), 1);
            EXPECT_EQ(Own(slot).NumPoints(), 37);
            EXPECT_EQ(Own(slot).Labelled, slot == 4);
            EXPECT_EQ(Own(slot).BottomTitle, slot == 4 ? "Crank Angle (Deg)" : "");
            EXPECT_TRUE(Own(slot).InLine);
            EXPECT_EQ(Own(slot).GridStyle, 3);
            EXPECT_EQ(Own(slot).TickEvery, 6);
            EXPECT_EQ(Own(slot).LabelEvery, 12);
            EXPECT_EQ(Own(slot).PatternedLines, 0);
            EXPECT_EQ(Own(slot).FirstColor, slot - 1);
            for (const auto& font : {Own(slot).TextFont(), Own(slot).TitleFont()}) EXPECT_EQ(font.size, 85);
        }
        EXPECT_EQ(Own(1).Sets()[0].legend, "Veloc CP X  " + Model.UnitLabel(4));
        EXPECT_EQ(Own(4).Sets()[0].legend, "Veloc CP Ang  degrees");
        EXPECT_EQ(Own(4).Labels().front(), "0.");
        EXPECT_EQ(Own(4).Labels()[9], "90.");
        EXPECT_EQ(Own(4).Labels().back(), "360.");
        for (int step = 0; step <= 36; ++step) {
            const auto at = static_cast<std::size_t>(step);
            const double x = Velocity_X(step), y = Velocity_Y(step);
            Expect_Near(Values(Own(1))[at], x);
            Expect_Near(Values(Own(2))[at], y);
            Expect_Near(Values(Own(3))[at], std::hypot(x, y));
            EXPECT_NEAR(std::remainder(Values(Own(4))[at] - std::atan2(y, x) * 180 / M_PI, 360), 0, 1e-2);
        }
    });
}

TEST_F(LivePlots, APlotIsDrawnOnceWhenItsRunFallsAndOnceForTheNext) {
    Watching("Omega3", "", [&] {
        const int before = Own(1).Drawings();
        Enter(form, "txt_Linkout", 1, "1.2");
        EXPECT_TRUE(All_Empty());
        EXPECT_EQ(Own(1).Drawings(), before + 1);
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Own(1).NumPoints(), 37);
        EXPECT_EQ(Own(1).Drawings(), before + 2);
        Pick(form.live.Slots[0]->cmb_LiveVar, "(none)");
        EXPECT_EQ(Own(1).Drawings(), before + 3) << "and once more without anything";
    });
}

TEST_F(LivePlots, APresetOfTwoLeavesTheOtherSlotsEmpty) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Pick(form.live.cmb_LivePreset, "Omega3 and Omega4 Magnitudes");
        EXPECT_EQ(form.live.Slots[2]->cmb_LiveVar.Text, "(none)");
        EXPECT_EQ(Values(Own(2))[5], Model.RunTable.Omega(5, 2));
        EXPECT_FALSE(Own(3).Visible);
        EXPECT_EQ(std::pair(Own(3).NumPoints(), Own(3).NumSets()), std::pair(0, 0));
        EXPECT_TRUE(Own(2).Labelled);
    });
}

TEST_F(LivePlots, FunctionsAreMixedFreelyAndOneScaleTakesThemAll) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.Slots[0]->cmb_LiveVar, "Theta4");
        EXPECT_FALSE(form.live.Slots[0]->cmb_LiveCom.Enabled);
        Pick(form.live.Slots[2]->cmb_LiveVar, "Veloc I 2,3");
        EXPECT_EQ(form.live.Slots[2]->cmb_LiveCom.Text, "Mag");
        Pick(form.live.Slots[2]->cmb_LiveCom, "Y");
        Pick(form.live.Slots[2]->cmb_LiveFrame, "Local");
        EXPECT_EQ(form.live.cmb_LivePreset.Text, "");
        Choose_Option(form, "opt_LiveScale", 1);
        for (int slot = 1; slot <= 4; ++slot) EXPECT_EQ(Own(slot).NumPoints(), 0);
        ASSERT_EQ(Own(0).NumSets(), 2);
        EXPECT_FALSE(Own(0).InLine) << "there is none below it";
        EXPECT_EQ(Own(0).BottomTitle, "Crank Angle (Deg)");
        EXPECT_EQ(Own(0).Sets()[1].legend, "Veloc I 2,3 Y local  " + Model.UnitLabel(4));
        // In the crank's own frame all of its end's velocity stands across.
        for (int step = 0; step <= 36; ++step) {
            EXPECT_EQ(Values(Own(0), 0)[static_cast<std::size_t>(step)], Model.RunTable.Theta(step, 2));
            Expect_Near(Values(Own(0), 1)[static_cast<std::size_t>(step)], Model.L2 * Model.Omega2);
        }
        Pick(form.live.Slots[2]->cmb_LiveVar, "(none)");
        EXPECT_EQ(Own(0).NumSets(), 1);
        EXPECT_FALSE(form.live.Slots[2]->cmb_LiveCom.Enabled);
    });
}

TEST_F(LivePlots, ATypedFunctionIsLookedUpInItsList) {
    After_First_Picture([&] {
        Open();
        auto& box = form.live.Slots[0]->cmb_LiveVar;
        box.SetFocus();
        box.Text = " omega4 ";
        form.cmd_Step.SetFocus();
        EXPECT_EQ(box.Text, "Omega4");
        EXPECT_EQ(Values(Own(1))[3], Model.RunTable.Omega(3, 2));
        box.SetFocus();
        box.Text = "Omega5";
        desktop.Expect_Message("\"Omega5\" is not one of the variables. Please choose from the list.");
        form.cmd_Step.SetFocus();
        EXPECT_EQ(box.Text, "Omega4");
        EXPECT_EQ(Own(1).NumPoints(), 37);
    });
}

TEST_F(LivePlots, TheCursorFollowsStepBarResetAndArrowKeys) {
    Watching("Theta4", "", [&] {
        EXPECT_EQ(Own(1).Cursor, 1);
        Press(form, "cmd_Step");
        EXPECT_EQ(Own(1).Cursor, 2);
        EXPECT_EQ(At_Cursor(), Model.RunTable.Theta(1, 2));
        form.hsc_step.Drag(20);
        EXPECT_EQ(Own(1).Cursor, 21);
        form.hsc_step.Drop();
        form.key_After.Press();
        EXPECT_EQ(Own(1).Cursor, 22);
        EXPECT_EQ(At_Cursor(), Model.RunTable.Theta(21, 2));
        Press(form, "cmd_Reset");
        EXPECT_EQ(Own(1).Cursor, 1);
    });
}

TEST_F(LivePlots, TheCursorGoesAlongWithARunAndStandsWhereItIsStopped) {
    Watching("Theta4", "", [&] {
        std::vector<int> seen;
        Own(1).Watcher = [&] {
            if (seen.empty() || seen.back() != Own(1).Cursor) seen.push_back(Own(1).Cursor);
        };
        desktop.Pauses.clear();
        desktop.StopAtPause = 12;
        const int drawings = Own(1).Drawings();
        Press(form, "cmd_Animate");
        Own(1).Watcher = nullptr;
        EXPECT_EQ(Own(1).Cursor, 12);
        EXPECT_EQ(At_Cursor(), Model.RunTable.Theta(11, 2));
        // A frame moves the cursor, and draws no curve anew.
        EXPECT_EQ(Own(1).Drawings(), drawings);
        for (int point = 1; point <= 12; ++point)
            EXPECT_NE(std::find(seen.begin(), seen.end(), point), seen.end()) << point;
    });
}

TEST_F(LivePlots, AClickAndADragInAGraphShowThePositionByTheRoadOfTheBar) {
    Watching("Omega4", "", [&] {
        Own(1).OnSeek(19);
        EXPECT_EQ(form.hsc_step.Value(), 18);
        EXPECT_EQ(Number(), "180.0");
        EXPECT_EQ(Own(1).Cursor, 19);
        Own(1).OnSeek(28);
        Own(1).OnSought();
        EXPECT_EQ(form.hsc_step.Value(), 27);
        EXPECT_EQ(Own(1).Cursor, 28);
        Own(1).OnSeek(1);
        Own(1).OnSought();
        EXPECT_EQ(Own(1).Cursor, 1);
        EXPECT_EQ(Number(), "0.0");
        // Step goes on from there.
        Press(form, "cmd_Step");
        EXPECT_TRUE(Model.SavedFlag);
    });
}

TEST_F(LivePlots, ADragMovesTheCurvesWithTheLinkage) {
    Watching("Omega4", "", [&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        const std::vector<double> before = Values(Own(1));
        for (const double length : {0.9, 0.7}) {
            Drag(length, 0);
            ASSERT_NEAR(Model.L2, length, 1e-6);
            for (int step = 0; step <= 36; ++step)
                EXPECT_EQ(Values(Own(1))[static_cast<std::size_t>(step)], Model.RunTable.Omega(step, 2));
            EXPECT_NE(Values(Own(1)), before);
        }
        EXPECT_GE(Own(1).Cursor, 1);
    });
}

TEST_F(LivePlots, ATypedLengthEmptiesThePaneUntilItIsCalculated) {
    Watching("Omega4", "", [&] {
        Type(form, "txt_Linkout", 1, "0.8");
        form.txt_Linkout[2].SetFocus();
        EXPECT_TRUE(All_Empty());
        EXPECT_EQ(Note(), kNoRun);
        Own(1).OnSeek(5);
        EXPECT_EQ(form.hsc_step.Value(), 0);
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Note(), "");
        EXPECT_EQ(Values(Own(1))[10], Model.RunTable.Omega(10, 2));
        EXPECT_EQ(Own(1).Cursor, 1);
        Type(form, "txt_initial", 1, "180");
        form.txt_Linkout[2].SetFocus();
        EXPECT_TRUE(All_Empty());
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Own(1).NumPoints(), 19);
        EXPECT_EQ(Own(1).Labels().back(), "180.");
    });
}

TEST_F(LivePlots, UndoBringsTheCurvesBack) {
    Watching("Omega4", "", [&] {
        // What the fixture has done counts as done.
        { const platform::Deed deed("preparing"); }
        const std::vector<double> before = Values(Own(1));
        {
            const platform::Deed deed(form.Picture1, platform::Deed::Kind::kDrag);
            Choose_Option(form, "opt_Shift_Drag", 1);
            Drag(0.7, 0);
        }
        platform::Deed::Drag_Ended();
        EXPECT_NE(Values(Own(1)), before);
        Pick_Menu(form, "mnu_Undo");
        EXPECT_EQ(Values(Own(1)), before);
        Pick_Menu(form, "mnu_Redo");
        EXPECT_EQ(Values(Own(1))[7], Model.RunTable.Omega(7, 2));
        EXPECT_NE(Values(Own(1)), before);
    });
}

TEST_F(LivePlots, TheOtherCircuitIsPlottedAsSoonAsItIsChosen) {
    Watching("Theta4", "", [&] {
        const std::vector<double> open = Values(Own(1));
        Choose_Option(form, "opt_OpenCross", 1);
        EXPECT_NE(Values(Own(1)), open);
        EXPECT_EQ(Values(Own(1))[6], Model.RunTable.Theta(6, 2));
    });
}

TEST_F(LivePlots, OnATurnedGroundVectorsAreGlobal) {
    Turn_Ground(35);
    By_Angle(0, 360, 10);
    Watching("Veloc CP", "X", [&] {
        for (int step = 0; step <= 36; ++step)
            Expect_Near(Values(Own(1))[static_cast<std::size_t>(step)], Velocity_X(step));
        Choose_Option(form, "opt_Shift_Drag", 0);
        Drag(1.4, -0.9);
        for (int step = 0; step <= 36; ++step)
            Expect_Near(Values(Own(1))[static_cast<std::size_t>(step)], Velocity_X(step));
    });
}

TEST_F(LivePlots, ValuesAndUnitsAreThoseShown) {
    for (const int units : {2, 3, 4, 5}) {
        SCOPED_TRACE(units);
        const Integer old = Model.Units;
        Use_Units(units);
        Convert_Units(old, units);
        By_Angle(0, 360, 10);
        Watching("Veloc CP", "Y", [&] {
            EXPECT_EQ(Own(1).Sets()[0].unit, Model.UnitLabel(4));
            for (const int step : {0, 9, 30})
                Expect_Near(Values(Own(1))[static_cast<std::size_t>(step)], Velocity_Y(step));
            Open();
        });
    }
}

TEST_F(LivePlots, APositionThatDoesNotCloseIsAGap) {
    Watching("Omega4", "", [&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        // A crank too long for the others to follow all the way.
        Drag(2.6, 0);
        ASSERT_TRUE(Model.RunStands);
        int gaps = 0;
        for (int step = 0; step <= 36; ++step) {
            const bool gap = std::isnan(Values(Own(1))[static_cast<std::size_t>(step)]);
            EXPECT_EQ(gap, !Model.RunTable.Assembled(step)) << step;
            gaps += gap;
        }
        EXPECT_GT(gaps, 0);
    });
}

TEST_F(LivePlots, TheXAxisIsTheCrankAngleOrTheTime) {
    Model.Omega2Input = 10;
    By_Angle(0, 360, 10);
    Watching("Omega4", "", [&] {
        EXPECT_EQ(Own(1).Labels()[18], "180.");
        Choose_Option(form, "opt_LiveX", 1);
        EXPECT_EQ(Own(1).BottomTitle, "Time (Sec)");
        EXPECT_EQ(std::pair(Own(1).TickEvery, Own(1).LabelEvery), std::pair(5, 10));
        // Half a turn at 10 rad/s.
        EXPECT_NEAR(Val(Own(1).Labels()[18]), M_PI / Model.Omega2, 1e-3);
        Choose_Option(form, "opt_LiveX", 0);
        EXPECT_EQ(Own(1).BottomTitle, "Crank Angle (Deg)");
    });
}

TEST_F(LivePlots, ARunByTimeStandsAtItsCrankAngles) {
    Model.Alpha2 = 20;
    By_Time(0, 1, 0.05);
    Watching("Omega4", "", [&] {
        ASSERT_EQ(Own(1).Places.size(), 21U);
        EXPECT_GT(Own(1).Places[20] - Own(1).Places[19], Own(1).Places[1] - Own(1).Places[0] + 1);
        Choose_Option(form, "opt_LiveX", 1);
        EXPECT_TRUE(Own(1).Places.empty());
        EXPECT_EQ(Own(1).Labels()[20], "1.000");
        Press(form, "cmd_Step");
        EXPECT_EQ(Own(1).Cursor, 2);
    });
}

TEST_F(LivePlots, ListsThatAreTheSameAreNotFilledAgain) {
    After_First_Picture([&] {
        Open();
        int changes = 0;
        form.live.Slots[0]->cmb_LiveVar.Watcher = [&changes] { ++changes; };
        form.live.Run_Made();
        EXPECT_EQ(changes, 0);
        Give_Masses();
        Press(form, "cmd_Step");
        EXPECT_GT(changes, 0);
    });
}

TEST_F(LivePlots, TheListsAreThoseOfThePlotScreensButForTheTransform) {
    After_First_Picture([&] {
        Open();
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveVar.Items().size(), 20U);
        EXPECT_EQ(form.live.cmb_LivePreset.Items().size(), 21U);
        Give_Masses();
        Press(form, "cmd_Step");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveVar.Items().size(), 38U);
        EXPECT_EQ(form.live.cmb_LivePreset.Items().size(), 51U);
        Balance_Holds();
        Transform_Holds();
        Press(form, "cmd_Step");
        EXPECT_EQ(form.live.Slots[3]->cmb_LiveVar.Items().size(), 43U);
        EXPECT_EQ(form.live.cmb_LivePreset.Items().size(), 62U);
    });
}

TEST_F(LivePlots, APaneThatWasLeftEmptyTakesWhatWasPlottedMeanwhile) {
    After_First_Picture([&] { Open(); });
    Model.ScreenReturn = true;
    auto& selection = static_cast<frm_PlotSelect1&>(platform::Screens::Get("frm_PlotSelect1"));
    selection.Form_Activate();
    selection.cmb_Preset.Choose(0);
    desktop.Expect_Screen("frm_Plot1", [](platform::Screen& screen) { screen.Hide(); });
    Press(selection, "cmd_Done");
    After_First_Picture([&] {
        EXPECT_NE(form.live.Slots[0]->cmb_LiveVar.Text, "(none)");
        EXPECT_TRUE(Own(1).Visible);
        EXPECT_EQ(Note(), "");
    });
}

}  // namespace
}  // namespace verlink::test
