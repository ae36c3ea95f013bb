// The dynamics screen when it comes up, what typing does, and the ways out.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/model_on_screens.h"
#include "core/text.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {

using platform::Screen;

namespace {

struct MassPropActivation : MassPropScreen {
    using Units = std::vector<std::string>;
    Units Shown_Units() {
        return {form.lbl_MassUnit.Caption.Get(),    form.lbl_InertiaUnit.Caption.Get(), form.lbl_TorqueUnit.Caption,
                form.Lbl_DistUnit[1].Caption.Get(), form.Lbl_DistUnit[2].Caption.Get(), form.lbl_ForceUnit[1].Caption,
                form.lbl_ForceUnit[2].Caption.Get()};
    }
};

constexpr const char* kBoxes[] = {"txt_Mass",     "txt_Inertia", "txt_DistCG", "txt_AngCG",  "txt_MagForce",
                                  "txt_AngForce", "txt_DistP",   "txt_AngP",   "txt_Torque", "txt_Frict"};

}  // namespace

TEST_F(MassPropActivation, CaptionsStandAsDesigned) {
    const std::pair<std::string, std::string> captions[] = {
        {form.fra_Mass.Caption, "Mass Properties"},
        {form.fra_CG.Caption, "CG Locations"},
        {form.fra_Force.Caption, "External Forces"},
        {form.fra_ForceAt.Caption, "External Force Locations"},
        {form.fra_Torque.Caption, "External Torques"},
        {form.fra_Frict.Caption, "Friction"},
        {form.lbl_Mass.Caption, "Mass of Link"},
        {form.lbl_Inertia.Caption, "Mass Moment of Inertia about CG"},
        {form.lbl_DistCG.Caption, "Distance to CG from Pivot"},
        {form.lbl_AngCG.Caption, "Angle to CG in LRCS*"},
        {form.lbl_MagForce.Caption, "Force Magnitude"},
        {form.lbl_AngForce.Caption, "Angle of Force in GCS*"},
        {form.lbl_DistP.Caption, "Distance to Force Point from CG"},
        {form.lbl_AngP.Caption, "Angle to Force Point in LRCS*"},
        {form.lbl_Torque.Caption, "Torque on Link"},
        {form.lbl_Frict.Caption, "Friction Force on Link"},
        {form.lbl_Note.Caption, "*  LCRS = Local Rotating Coordinate System.    GCS = Global Coordinate System"},
        {form.chk_Torque.Caption, "Import a Torque Function File to Apply to Link 4"},
        {form.cmd_Solve.Caption, "&Solve"},
        {form.cmd_Matrix.Caption, "Show &Matrix"},
        {form.cmd_Done.Caption, "&Next >"},
        {form.cmd_Cancel.Caption, "< &Back"},
        {form.cmd_Print.Caption, "&Print"},
        {form.cmd_Copy.Caption, "&Copy"},
    };
    for (const auto& [shown, expected] : captions) EXPECT_EQ(shown, expected);
}

TEST_F(MassPropActivation, BoxesAreFilledWithTheDecimalsOfTheUnitSystem) {
    Model.ExtForceMag(3) = 1500.25;
    Model.ExtForceAng(3) = -33.333;
    Model.ForceDist3 = 0.1236;
    Model.ForceAng3 = 12.3456;
    Model.ExtTorque(4) = -7.125;
    Model.FrictionForce = 0.256;
    form.Width() = 500;
    form.Form_Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_EQ(form.Height(), 8950);
    EXPECT_EQ(In("txt_Mass", 2), "0.0030");
    EXPECT_EQ(In("txt_Mass", 4), "0.0060");
    EXPECT_EQ(In("txt_Inertia", 3), "0.2200");
    EXPECT_EQ(In("txt_DistCG", 2), "0.500");
    EXPECT_EQ(In("txt_AngCG", 3), "-50.00");
    EXPECT_EQ(In("txt_MagForce", 3), "1500.25");
    EXPECT_EQ(In("txt_MagForce", 4), "0");
    EXPECT_EQ(In("txt_AngForce", 3), "-33.333");
    EXPECT_EQ(In("txt_DistP", 3), "0.124");
    EXPECT_EQ(In("txt_DistP", 4), "0.000");
    EXPECT_EQ(In("txt_AngP", 3), "12.3456");
    EXPECT_EQ(In("txt_Torque", 3), "0.00");
    EXPECT_EQ(In("txt_Torque", 4), "-7.13");
    EXPECT_EQ(In("txt_Frict", 3), "0.26");
    EXPECT_EQ(form.lbl_Header.Caption.Get().find(Model.UserName + "\r Design No. 1"), 0U);
}

TEST_F(MassPropActivation, LengthsAreShownInCentimetresAndMillimetres) {
    for (const auto& [units, cg, point] : {std::tuple{4, "2.500", "-1.250"}, {5, "25.00", "-12.50"}}) {
        Use_Units(units);
        Model.CG(3, 0) = 0.025;
        Model.ForceDist4 = -0.0125;
        form.Form_Activate();
        EXPECT_EQ(In("txt_DistCG", 3), cg);
        EXPECT_EQ(In("txt_DistP", 4), point);
    }
}

TEST_F(MassPropActivation, UnitsFollowTheUnitSystem) {
    form.Form_Activate();
    EXPECT_EQ(Shown_Units(), (Units{"bl", "in-lb-s^2", "lb-in", "in", "in", "lb", "lb"}));
    Use_Units(2);
    form.Form_Activate();
    EXPECT_EQ(Shown_Units(), (Units{"sl", "ft-lb-^2", "lb-ft", "ft", "ft", "lb", "lb"}));
    Use_Units(4);
    form.Form_Activate();
    EXPECT_EQ(Shown_Units(), (Units{"kg", "kg-m^2", "N- m", "cm", "cm", "N", "N"}));
    for (int row = 1; row <= 3; ++row) EXPECT_EQ(form.lbl_AngUnit[row].Caption, "degrees");
}

TEST_F(MassPropActivation, ResultsAreClosedUntilSolved) {
    form.Form_Activate();
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_TRUE(form.cmd_Cancel.Enabled);
    Expect_Results_Open(false);
}

TEST_F(MassPropActivation, TypingInAnyBoxLeavesTheForcesButBlocksTheWayForward) {
    form.Form_Activate();
    for (const char* box : kBoxes)
        for (int link = 2; link <= 4; ++link) {
            if (!form.Text(box, link).Enabled) continue;
            SCOPED_TRACE(std::string(box) + std::to_string(link));
            Solve();
            Expect_Results_Open(true);
            const double force = Model.RunTable.PinForce(7, 0, 0);
            Fill(box, link, "1.25");
            EXPECT_TRUE(form.Text(box, link).SelectedAll) << "selected when the focus came";
            Expect_Results_Open(false);
            EXPECT_EQ(Model.RunTable.PinForce(7, 0, 0), force);
            EXPECT_TRUE(Model.DynamicsDone);
        }
}

TEST_F(MassPropActivation, Link2TakesNoLoadsAndOnlyLink3Friction) {
    form.Form_Activate();
    for (const char* box : {"txt_MagForce", "txt_AngForce", "txt_DistP", "txt_AngP", "txt_Torque", "txt_Frict"}) {
        EXPECT_FALSE(form.Text(box, 2).Enabled) << box;
        form.Text(box, 2).Text = "17";
    }
    EXPECT_FALSE(form.txt_Frict[4].Enabled);
    form.txt_Frict[4].Text = "17";
    Solve();
    EXPECT_EQ(Model.ExtForceMag(2), 0.0);
    EXPECT_EQ(Model.ExtForceAng(2), 0.0);
    EXPECT_EQ(Model.ExtTorque(2), 0.0);
    EXPECT_EQ(Model.FrictionForce, 0.0);
}

TEST_F(MassPropActivation, TheMatrixComesUpAndLeavesTheResultsOpen) {
    Inside(form, [this] {
        Solve();
        bool seen = false;
        desktop.Expect_Screen("frm_Matrix", [&seen](Screen& matrix) {
            seen = true;
            EXPECT_EQ(matrix.Left(), (25600 - 11850) / 2);
            Press(matrix, "cmd_Done");
        });
        // Coming back changes nothing, not even the decimals of a box.
        form.txt_AngP[3].Text = "1.50";
        Solve();
        Press(form, "cmd_Matrix");
        EXPECT_TRUE(seen);
        EXPECT_EQ(In("txt_AngP", 3), "1.50");
        Expect_Results_Open(true);
    });
    Inside(form, [this] { Expect_Results_Open(false); });
}

TEST_F(MassPropActivation, TypingBeginsInTheFirstBoxButNotOnComingBackFromTheMatrix) {
    Inside(form, [this] {
        EXPECT_EQ(form.Focus(), &form.txt_Mass[2]);
        Solve();
        desktop.Expect_Screen("frm_Matrix", [](Screen& matrix) { Press(matrix, "cmd_Done"); });
        Press(form, "cmd_Matrix");
        EXPECT_NE(form.Focus(), &form.txt_Mass[2]);
    });
}

TEST_F(MassPropActivation, NextTakesTheSolutionToTheHomeScreen) {
    Model.ScreenReturn = false;
    Inside(form, [this] {
        Solve();
        Press(form, "cmd_Done");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_TRUE(Model.DynamicsDone);
    EXPECT_TRUE(Model.ScreenReturn);
}

TEST_F(MassPropActivation, BackStoresNothingThatWasTypedWhichWaitsForTheNextTime) {
    Model.ScreenReturn = false;
    Inside(form, [this] {
        Fill("txt_Mass", 2, "0.02");
        Solve();
        Fill("txt_Mass", 2, "0.05");
        Press(form, "cmd_Cancel");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Model.LinkMass(2), Single(0.02));
    EXPECT_TRUE(Model.DynamicsDone);
    EXPECT_FALSE(Model.ScreenReturn);
    Inside(form, [this] {
        EXPECT_EQ(In("txt_Mass", 2), "0.05");
        EXPECT_TRUE(form.txt_Mass[2].Touched());
        EXPECT_TRUE(form.txt_Mass[2].SelectedAll) << "as when nothing waits";
        EXPECT_EQ(form.CancelButton, nullptr);
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_FALSE(form.txt_Mass[3].Touched());
        form.Close();  // by its frame
    });
    Inside(form, [this] {
        EXPECT_EQ(In("txt_Mass", 2), "0.05");
        Solve();
        EXPECT_EQ(Model.LinkMass(2), Single(0.05));
    });
    Inside(form, [this] { EXPECT_EQ(In("txt_Mass", 2), "0.0500") << "what was solved with does not wait"; });
}

TEST_F(MassPropActivation, WhatWaitsEndsWithOtherNumbersUnitsOrAnotherModel) {
    const auto leave_typed = [this] {
        Inside(form, [this] {
            Fill("txt_Mass", 2, "0.05");
            Fill("txt_Mass", 4, "0.07");
            Press(form, "cmd_Cancel");
        });
    };
    leave_typed();
    Model.LinkMass(2) = 3;
    Inside(form, [this] {
        EXPECT_EQ(In("txt_Mass", 2), "3.0000");
        EXPECT_EQ(In("txt_Mass", 4), "0.07");
    });
    leave_typed();
    Model.LinkMass(4) = 0;
    Model_Came();
    Inside(form, [this] { EXPECT_EQ(In("txt_Mass", 4), "0.0000"); });
    Inside(form, [this] {
        Fill("txt_AngCG", 2, "12");
        form.Close();
    });
    Inside(form, [this] {
        EXPECT_EQ(In("txt_AngCG", 2), "12");
        form.Close();
    });
    Use_Units(2);
    Inside(form, [this] { EXPECT_EQ(Val(In("txt_AngCG", 2)), 0); });
}

TEST_F(MassPropActivation, EscapeGoesBackOnlyWhereNothingTypedIsLost) {
    form.Form_Activate();
    EXPECT_EQ(form.CancelButton, &form.cmd_Cancel);
    EXPECT_EQ(form.DefaultButton, &form.cmd_Solve);
    Fill("txt_Mass", 2, "0.05");
    EXPECT_EQ(form.CancelButton, nullptr);
    Solve();
    EXPECT_EQ(form.CancelButton, &form.cmd_Cancel);
}

TEST_F(MassPropActivation, PrintAsksAndCopySaysHow) {
    Inside(form, [this] {
        Solve();
        Printing_And_Copying(form, "cmd_Copy");
    });
}

TEST_F(MassPropActivation, TheHelpOnForcesIsThreeMessages) {
    desktop.Expect_Message(
        " You must resolve the link's external force system to a\r single force acting at some point with respect to "
        "each link's CG.\r That force will be considered to be constant and non-rotating\r at a fixed angle with "
        "respect to the global coordinate system");
    desktop.Expect_Message(
        " You must also define the Position Vector (Mag and Angle) from \r the link CG to the point of application of "
        "the force on that link. \r Note that this angle is referenced to the link's embedded, rotating \r local "
        "coordinate system whose X axis lies along its line of centers");
    desktop.Expect_Message(" There may also be an external torque on the link, independent of \r the external forces");
    form.Forcehelp();
}

TEST_F(MassPropActivation, TheHomeScreenLeadsHereOnceThereAreResults) {
    Screen& home = platform::Screens::Get("frm_HomeScreen");
    auto& button = home.Get<platform::CommandButton>("cmd_Dynamics");
    Run_Dropped();
    Set_Menus();
    EXPECT_FALSE(button.Enabled);
    Run_Holds();
    Set_Menus();
    EXPECT_TRUE(button.Enabled);
    desktop.Expect_Screen("frm_MassProp", [](Screen& screen) { Press(screen, "cmd_Cancel"); });
    button.Click();
}

TEST_F(MassPropActivation, AModelThatIsReadFillsTheBoxes) {
    Set_Identity();
    In_Units(5);
    Model.LinkMass(4) = 2.5;
    Model.CG(3, 0) = 0.025;
    Model.CG(3, 1) = -0.5;
    Model.ExtForceMag(4) = 12.5;
    Model.ExtForceAng(4) = 270;
    Model.ForceDist3 = 0.031;
    Model.ForceAng3 = 15;
    Model.ExtTorque(3) = 0.75;
    Model.FrictionForce = 3;
    const std::string file = File_Content();
    Initialize();
    In_Units(1);
    form.Form_Activate();
    Solve();
    Model.JustStarted = true;
    Readfile(file);
    EXPECT_EQ(In("txt_Mass", 4), "2.500");
    EXPECT_EQ(In("txt_DistCG", 3), "25.00");
    EXPECT_EQ(In("txt_AngCG", 3), "-28.65");
    EXPECT_EQ(In("txt_MagForce", 4), "12.5");
    EXPECT_EQ(In("txt_AngForce", 4), "270");
    EXPECT_EQ(In("txt_DistP", 3), "31.00");
    EXPECT_EQ(In("txt_AngP", 3), "15");
    EXPECT_EQ(In("txt_Torque", 3), "0.750");
    EXPECT_EQ(In("txt_Frict", 3), "3.00");
    EXPECT_FALSE(form.cmd_Done.Enabled) << "other data are to be solved first";
}

}  // namespace verlink::test
