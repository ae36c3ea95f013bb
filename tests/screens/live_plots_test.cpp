// The pane of live plots on the animate screen.
#include <algorithm>
#include <cmath>
#include <memory>

#include "core/linkage_door.h"
#include "core/text.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "platform/deed.h"
#include "platform/settings.h"
#include "screens/frm_plotselect1.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

using platform::Graph;
using platform::The_Settings;

constexpr char kNoRun[] = "Nothing is calculated for this linkage as it stands.";
constexpr char kVelocityPreset[] = "Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates";
constexpr char kForcePreset[] = "Force of Link 1 on 2  -  X, Y, Mag, Ang Coordinates";

class LivePlots : public AnimateScreen {
   protected:
    LivePlots() {
        The_Settings().Open(Path("config"));
        Load_Catalogue();
    }
    ~LivePlots() override { The_Settings().Open(""); }

    /// The pane is open and shows that function in slot 1 alone.
    void Watching(const std::string& variable, const std::string& component, const std::function<void()>& user) {
        After_First_Picture([&] {
            Open();
            Pick(form.live.Slots[0]->cmb_LiveVar, variable);
            if (!component.empty()) Pick(form.live.Slots[0]->cmb_LiveCom, component);
            user();
        });
    }
    void Open() { Pick_Menu(form, "mnu_ViewLive"); }
    static void Pick(platform::ComboBox& box, const std::string& item) {
        const auto found = std::find(box.Items().begin(), box.Items().end(), item);
        ASSERT_NE(found, box.Items().end()) << item;
        box.Choose(static_cast<int>(found - box.Items().begin()));
    }
    Graph& Own(int slot) { return form.live.grf_Live[slot]; }
    static const std::vector<double>& Values(const Graph& graph, int set = 0) {
        return graph.Sets().at(static_cast<std::size_t>(set)).values;
    }
    double At_Cursor(int slot = 1) {
        const int point = Own(slot).Cursor;
        return point < 1 ? NAN : Values(Own(slot)).at(static_cast<std::size_t>(point - 1));
    }
    std::string Note() { return form.live.lbl_LiveNote.Caption; }
    bool All_Empty() {
        for (const auto& graph : form.live.grf_Live)
            if (graph->Visible || graph->NumPoints() > 0 || graph->Cursor != 0) return false;
        return true;
    }
    void Drag(double x, double y) { form.Picture1.OnMouseMove(1, 1, x, Model.FlipSum - y); }
    void Give_Masses() {
        for (int link = 2; link <= 4; ++link) {
            Model.LinkMass(link) = 0.1 * link;
            Model.LinkInertia(link) = 0.05 * link;
            Model.CG(link, 0) = 0.5;
            Model.CG(link, 1) = 0.3;
        }
        ASSERT_TRUE(Solve_Forces(Model));
    }
    /// Velocity of the coupler point in the global frame, by the angle and speed of the links that carry it.
    static double Velocity_X(int step) {
        const double to_shown = Shown_Factor(), k = M_PI / 180;
        const double theta2 = Model.RunTable.Theta(step, 0) * k, theta3 = Model.RunTable.Theta(step, 1) * k;
        return to_shown * (-Model.L2 * Model.RunTable.Omega(step, 0) * std::sin(theta2) -
                           Model.Rpa * Model.RunTable.Omega(step, 1) * std::sin(theta3 + Model.DeltaRad));
    }
    static double Velocity_Y(int step) {
        const double to_shown = Shown_Factor(), k = M_PI / 180;
        const double theta2 = Model.RunTable.Theta(step, 0) * k, theta3 = Model.RunTable.Theta(step, 1) * k;
        return to_shown * (Model.L2 * Model.RunTable.Omega(step, 0) * std::cos(theta2) +
                           Model.Rpa * Model.RunTable.Omega(step, 1) * std::cos(theta3 + Model.DeltaRad));
    }
    static void Expect_Near(double found, double expected) {
        EXPECT_NEAR(found, expected, 2e-5 * std::max(1.0, std::abs(expected)));
    }
};

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
        for (int slot = 1; slot <= 4; ++slot) {
            EXPECT_TRUE(Own(slot).Visible);
            EXPECT_EQ(Own(slot).NumSets(), 1);
            EXPECT_EQ(Own(slot).NumPoints(), 37);
            EXPECT_EQ(Own(slot).Labelled, slot == 4);
        }
        EXPECT_EQ(Own(1).Sets()[0].legend, "Veloc CP X  " + Model.UnitLabel(4));
        EXPECT_EQ(Own(4).Sets()[0].legend, "Veloc CP Ang  Deg");
        EXPECT_EQ(Own(4).BottomTitle, "Crank Angle (Deg)");
        EXPECT_EQ(Own(4).Labels()[9], "90.");
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

TEST_F(LivePlots, APresetOfTwoLeavesTheOtherSlotsEmpty) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Pick(form.live.cmb_LivePreset, "Omega3 and Omega4 Magnitudes");
        EXPECT_EQ(form.live.Slots[2]->cmb_LiveVar.Text, "(none)");
        EXPECT_EQ(Values(Own(2))[5], Model.RunTable.Omega(5, 2));
        EXPECT_FALSE(Own(3).Visible);
        EXPECT_EQ(Own(3).NumPoints(), 0);
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

TEST_F(LivePlots, TheChoiceOutlastsTheSession) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.Slots[1]->cmb_LiveVar, "Accel CP");
        Pick(form.live.Slots[1]->cmb_LiveCom, "Ang");
        Pick(form.live.Slots[1]->cmb_LiveFrame, "Local");
        Choose_Option(form, "opt_LiveScale", 1);
        Choose_Option(form, "opt_LiveX", 1);
    });
    platform::Screens::Discard();
    The_Settings().Open(Path("config"));
    auto& again = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    EXPECT_TRUE(again.live.fra_Live.Visible);
    again.Form_Activate();
    again.Timer1.Tick();
    EXPECT_TRUE(again.live.opt_LiveX[1].Value);
    ASSERT_EQ(again.live.grf_Live[0].NumSets(), 1);
    EXPECT_TRUE(again.live.grf_Live[0].Sets()[0].legend.starts_with("Accel CP Ang local"));
}

TEST_F(LivePlots, WhatWasPlottedLastIsOfferedFirst) {
    Model.ScreenReturn = true;
    auto& selection = static_cast<frm_PlotSelect1&>(platform::Screens::Get("frm_PlotSelect1"));
    selection.Form_Activate();
    Choose_Option(selection, "opt_PrintSet", 1);
    selection.Slots[0]->cmb_Var.Choose(12);
    selection.Slots[0]->cmb_Com.Choose(1);
    Press(selection, "cmd_OK1");
    Choose_Option(selection, "opt_Coord", 1);
    desktop.Expect_Screen("frm_Plot1", [](platform::Screen& screen) { screen.Hide(); });
    Press(selection, "cmd_Done");
    After_First_Picture([&] {
        Open();
        EXPECT_EQ(form.live.cmb_LivePreset.Items().front(), "Last Plot");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveVar.Text, "Veloc CP");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveCom.Text, "Y");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveFrame.Text, "Local");
        EXPECT_TRUE(Own(1).Visible);
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Pick(form.live.cmb_LivePreset, "Last Plot");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveCom.Text, "Y");
        EXPECT_EQ(form.live.Slots[1]->cmb_LiveVar.Text, "(none)");
    });
}

TEST_F(LivePlots, ASpoiltSettingIsNoChoice) {
    The_Settings().Put("live.functions",
                       std::vector<std::string>{"Veloc CP|Z|", "nothing", "Omega4||", "Current FFT|X|"});
    The_Settings().Put("view.live", "on");
    The_Settings().Save();
    platform::Screens::Discard();
    auto& again = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    again.Form_Activate();
    EXPECT_EQ(again.live.Slots[0]->cmb_LiveVar.Text, "(none)");
    EXPECT_EQ(again.live.Slots[2]->cmb_LiveVar.Text, "Omega4");
    EXPECT_EQ(again.live.grf_Live[3].NumPoints(), 37);
}

}  // namespace
}  // namespace verlink::test
