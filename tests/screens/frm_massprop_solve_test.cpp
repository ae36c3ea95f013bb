// What the dynamics screen does when it solves, and its torque table.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>

#include "core/runs.h"
#include "files/model_file.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {

using platform::Pointer;

namespace {

constexpr char kNoNumber[] = "Error 13   (Type mismatch)  has occurred in frm_MassProp.cmd_Solve\r\n\r\n";

struct MassPropSolve : MassPropScreen {
    MassPropSolve() { form.Form_Activate(); }
    void No_Masses() {
        for (int link = 2; link <= 4; ++link) {
            Fill("txt_Mass", link, "0");
            Fill("txt_Inertia", link, "0");
        }
    }
    /// A table of torques on disk, half of each step's number.
    void Put_Table(int last) {
        std::ofstream file(Path("torque.trq"));
        file << last << "\r\n";
        for (int step = 0; step <= last; ++step) file << step / 2.0 << "\r\n";
    }
    void Expect_Torque_Read() {
        desktop.Expect_Open(Path("torque.trq"));
        desktop.Expect_Message("File " + Path("torque.trq") + " of Torque data successfully read.",
                               platform::Answer::kOk, platform::Icon::kInformation);
    }
    void Expect_No_Import(const std::string& torque) {
        EXPECT_FALSE(form.chk_Torque.Value);
        EXPECT_FALSE(Model.TorqueImported);
        EXPECT_EQ(In("txt_Torque", 4), torque);
        EXPECT_TRUE(form.txt_Torque[4].Enabled);
        EXPECT_TRUE(form.cmd_Solve.Enabled);
    }
    /// As an import leaves the screen and the record.
    void With_Torque_Table() {
        for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.ImportedTorque(step) = 10 + step;
        Model.TorqueImported = true;
        Model.DiskFile = true;
        form.Form_Activate();
        form.cmd_Solve.Enabled = true;
    }
};

}  // namespace

TEST_F(MassPropSolve, LeavesWhatNoHandHasChangedWithAllItsDigits) {
    Model.LinkMass(2) = 9.067357e-05F;
    Model.LinkInertia(3) = 3.022452e-05F;
    Model.CG(4, 0) = 1.2345678F;
    Model.CG(4, 1) = 0.7654321F;
    Model.ExtTorque(3) = 0.00123F;
    Model.FrictionForce = 0.0456789F;
    const MassProperties before = Model;
    form.Form_Activate();
    EXPECT_EQ(In("txt_Inertia", 3), "0.0000");
    Fill("txt_Mass", 3, "0.0012345");
    form.cmd_Solve.Click();
    form.Form_Activate();
    EXPECT_EQ(In("txt_Mass", 3), "0.0012");
    form.cmd_Solve.Click();
    EXPECT_EQ(Model.LinkMass(3), 0.0012345F);
    EXPECT_EQ(Model.LinkMass(2), before.LinkMass(2));
    EXPECT_EQ(Model.LinkInertia(3), before.LinkInertia(3));
    EXPECT_EQ(Model.CG(4, 0), before.CG(4, 0));
    EXPECT_EQ(Model.CG(4, 1), before.CG(4, 1));
    EXPECT_EQ(Model.ExtTorque(3), before.ExtTorque(3));
    EXPECT_EQ(Model.FrictionForce, before.FrictionForce);
}

TEST_F(MassPropSolve, TakesAllBoxesOver) {
    for (int link = 2; link <= 4; ++link) {
        Fill("txt_Mass", link, std::to_string(link) + ".5");
        Fill("txt_Inertia", link, std::to_string(link) + ".25");
        Fill("txt_DistCG", link, std::to_string(link) + ".125");
        Fill("txt_AngCG", link, std::to_string(link) + "0");
    }
    Fill("txt_MagForce", 3, "10");
    Fill("txt_AngForce", 3, "30");
    Fill("txt_MagForce", 4, "20");
    Fill("txt_AngForce", 4, "-60");
    Fill("txt_DistP", 3, "0.75");
    Fill("txt_AngP", 3, "45");
    Fill("txt_DistP", 4, "0.5");
    Fill("txt_AngP", 4, "-15");
    Fill("txt_Torque", 3, "6");
    Fill("txt_Torque", 4, "-7");
    Fill("txt_Frict", 3, " 1.5 ");
    Solve();
    for (int link = 2; link <= 4; ++link) {
        EXPECT_EQ(Model.LinkMass(link), link + 0.5);
        EXPECT_EQ(Model.LinkInertia(link), link + 0.25);
        EXPECT_EQ(Model.CG(link, 0), link + 0.125);
        EXPECT_NEAR(Model.CG(link, 1), link * 10 * M_PI / 180, 1e-6);
    }
    EXPECT_NEAR(Model.ExtForce3X, 10 * std::sqrt(0.75), 1e-5);
    EXPECT_NEAR(Model.ExtForce3Y, 5, 1e-5);
    EXPECT_NEAR(Model.ExtForce4X, 10, 1e-5);
    EXPECT_NEAR(Model.ExtForce4Y, -20 * std::sqrt(0.75), 1e-5);
    EXPECT_EQ(Model.ForceDist3, 0.75);
    EXPECT_EQ(Model.ForceAng3, 45.0);
    EXPECT_EQ(Model.ForceDist4, 0.5);
    EXPECT_EQ(Model.ForceAng4, -15.0);
    EXPECT_EQ(Model.ExtTorque(3), 6.0);
    EXPECT_EQ(Model.ExtTorque(4), -7.0);
    EXPECT_EQ(Model.FrictionForce, 1.5);
}

TEST_F(MassPropSolve, ADistanceInMillimetresIsStoredInMetresAndShownAgain) {
    Inside(form, [this] {
        In_Units(5);
        form.Form_Activate();
        Fill("txt_DistCG", 3, "25");
        Fill("txt_DistP", 4, "12");
        Solve();
        EXPECT_EQ(Model.CG(3, 0), Single(0.025));
        EXPECT_EQ(Model.ForceDist4, Single(0.012));
        form.Form_Activate();
        EXPECT_EQ(In("txt_DistCG", 3), "25.00");
        In_Units(4);
        form.Form_Activate();
        EXPECT_EQ(In("txt_DistCG", 3), "2.500");
        Fill("txt_DistCG", 3, "25");
        Solve();
        EXPECT_EQ(Model.CG(3, 0), Single(0.25));
    });
}

TEST_F(MassPropSolve, AnEmptyBoxReadsAsZeroAndTheLeadingNumberCounts) {
    Fill("txt_Mass", 2, "");
    for (int time = 1; time <= 2; ++time) {
        Fill("txt_Mass", 3, "abc");
        Fill("txt_Mass", 4, "0.5 pounds");
    }
    Fill("txt_MagForce", 3, "");
    Solve();
    EXPECT_EQ(Model.LinkMass(2), 0.0);
    EXPECT_EQ(Model.LinkMass(3), 0.0);
    EXPECT_EQ(Model.LinkMass(4), 0.5);
    EXPECT_EQ(Model.ExtForceMag(3), 0.0);
    Expect_Results_Open(true);
}

TEST_F(MassPropSolve, AnEmptyFrictionStopsTheSolutionWithAReport) {
    Model.RunTable.PinForce(3, 0, 0) = 17;
    Balance_Holds();
    for (const char* text : {"", "abc", "2 kg"}) {
        Fill("txt_Frict", 3, text);
        Fill("txt_Mass", 2, "0.02");
        Fill("txt_Frict", 3, text);
        desktop.Expect_Message(kNoNumber, platform::Answer::kOk, platform::Icon::kInformation);
        Solve();
        EXPECT_EQ(Model.LinkMass(2), Single(0.003)) << "none of the boxes is taken over";
        EXPECT_EQ(Model.RunTable.PinForce(3, 0, 0), 17.0);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_TRUE(Model.BalanceDone);
        Expect_Results_Open(false);
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    }
}

TEST_F(MassPropSolve, ANumberThatTheScreenHasGroupedReadsAsItWas) {
    Model.LinkInertia(2) = 1234567.5;
    Model.ExtTorque(3) = -2500.75;
    Model.FrictionForce = 1500;
    form.Form_Activate();
    EXPECT_EQ(In("txt_Torque", 3), "-2,500.75");
    EXPECT_EQ(In("txt_Frict", 3), "1,500.00");
    Solve();
    EXPECT_EQ(Model.LinkInertia(2), 1234567.5);
    EXPECT_EQ(Model.ExtTorque(3), -2500.75);
    EXPECT_EQ(Model.FrictionForce, 1500.0);
}

TEST_F(MassPropSolve, OpensTheWayOnAndDropsTheBalance) {
    Balance_Holds();
    Model_Saved();
    Run_Holds();
    Solve();
    EXPECT_TRUE(Model.DynamicsDone);
    EXPECT_FALSE(Model.BalanceDone);
    EXPECT_FALSE(Model.SavedFlag);
    Expect_Results_Open(true);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
    EXPECT_EQ(desktop.Pointers, (std::vector<Pointer>{Pointer::kHourglass, Pointer::kDefault}));
    auto& badge = platform::Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 3);
    EXPECT_EQ(badge.Caption, "Dynamics");
    EXPECT_TRUE(badge.Visible);
}

TEST_F(MassPropSolve, WithoutMassesTheForcesAreThoseOfTheLoadsAlone) {
    No_Masses();
    Solve();
    for (int step = 0; step <= Model.NSteps; ++step)
        for (int row : {0, 1, 5, 6, 7}) EXPECT_EQ(Model.RunTable.PinForce(step, row, 0), 0.0);
    Fill("txt_MagForce", 3, "10");
    Fill("txt_AngForce", 3, "90");
    Fill("txt_MagForce", 4, "4");
    Solve();
    for (int step = 0; step <= Model.NSteps; ++step) {
        // Nothing is accelerated, so that the frame takes the loads.
        EXPECT_NEAR(Model.RunTable.PinForce(step, 7, 0), 4, 1e-4);
        EXPECT_NEAR(Model.RunTable.PinForce(step, 7, 1), 10, 1e-4);
        for (int row : {2, 3, 4}) EXPECT_EQ(Model.RunTable.PinForce(step, row, 1), 0.0);
    }
}

TEST_F(MassPropSolve, ASystemWithoutASolutionIsToldAndCountsAsSolved) {
    Model.L2 = Model.L3 = Model.L4 = 0;
    for (int link = 2; link <= 4; ++link) Fill("txt_DistCG", link, "0");
    desktop.Expect_Message_With("There is a zero value on diagonal in column ");
    desktop.Expect_Message("Error in Computing Simultaneous Equations at step    0", platform::Answer::kOk,
                           platform::Icon::kQuestion);
    Solve();
    EXPECT_TRUE(Model.DynamicsDone);
    Expect_Results_Open(true);
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(MassPropSolve, AModelFromDiskBringsItsTorqueTableAndKeepsSolveClosed) {
    Model.TorqueImported = true;
    Model.DiskFile = true;
    form.Form_Activate();
    EXPECT_TRUE(form.chk_Torque.Value);
    EXPECT_EQ(In("txt_Torque", 4), "0");
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
    EXPECT_FALSE(form.cmd_Solve.Enabled);
    EXPECT_EQ(form.cmd_Solve.Tip,
              "The torque table came with the file: clear its box, or leave and come back, to solve");
    form.Form_Activate();
    EXPECT_TRUE(form.cmd_Solve.Enabled);
}

TEST_F(MassPropSolve, ATableBroughtInPlaceOfTheOneFromDiskIsSolvedWith) {
    Model.TorqueImported = Model.DiskFile = true;
    form.Form_Activate();
    ASSERT_FALSE(form.cmd_Solve.Enabled);
    Put_Table(Model.NSteps);
    desktop.Expect_Message_With("successfully read.");
    form.OnDrop(Path("torque.trq"));
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_EQ(form.cmd_Solve.Tip,
              "Solve for the forces and torques at every step with the data shown and the imported torque");
}

TEST_F(MassPropSolve, AFileThatCannotBeTakenLeavesTheTableAndItsForces) {
    With_Torque_Table();
    Solve();
    Model_Saved();
    const auto drop = [&](const char* name) {
        form.OnDrop(Path(name));
        EXPECT_TRUE(Model.TorqueImported);
        EXPECT_EQ(Model.RunTable.ImportedTorque(3), 13);
        EXPECT_TRUE(form.chk_Torque.Value);
        EXPECT_FALSE(form.txt_Torque[4].Enabled);
        EXPECT_TRUE(Model.DynamicsDone) << "nothing has changed";
        EXPECT_TRUE(Model.SavedFlag);
        EXPECT_TRUE(form.cmd_Solve.Enabled);
        Expect_Results_Open(true);
    };
    desktop.Expect_Message("An error has occurred in the Import_Torque routine");
    desktop.Expect_Message_With("has occurred in Import_Torque");
    drop("none.trq");
    Put_Table(Model.NSteps - 1);
    desktop.Expect_Message("This file has a different number of data than your current model and is incompatible");
    drop("torque.trq");
}

TEST_F(MassPropSolve, UndoLeavesSolveOpenUnlessTheTableCameFromDisk) {
    The_History().Begin();
    for (const bool from_disk : {false, true})
        for (const bool imported : {false, true}) {
            Model.DiskFile = from_disk;
            Model.TorqueImported = imported;
            Inside(form, [&] {
                {
                    const platform::Deed deed("weigh");
                    Model.LinkMass(3) = Model.LinkMass(3) + 1;
                }
                The_History().Undo();
                EXPECT_EQ(form.cmd_Solve.Enabled.Get(), !from_disk || !imported) << from_disk << imported;
            });
        }
}

TEST_F(MassPropSolve, UndoClosesTheWayOnThoughNoBoxShowsWhatItBroughtBack) {
    The_History().Begin();
    Inside(form, [&] {
        Solve();
        Expect_Results_Open(true);
        {
            const platform::Deed deed("weigh");
            Model.LinkMass(3) = Model.LinkMass(3) + 1e-7;
        }
        const std::string shown = In("txt_Mass", 3);
        The_History().Undo();
        EXPECT_EQ(In("txt_Mass", 3), shown);
        Expect_Results_Open(false);
    });
}

TEST_F(MassPropSolve, AModelFromDiskTakesATorqueTableOnceItsOwnIsCleared) {
    With_Torque_Table();
    form.chk_Torque.Click();
    EXPECT_FALSE(Model.TorqueImported);
    Put_Table(Model.NSteps);
    Expect_Torque_Read();
    form.chk_Torque.Click();
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_EQ(form.cmd_Solve.Tip,
              "Solve for the forces and torques at every step with the data shown and the imported torque");
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
    No_Masses();
    Solve();
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_EQ(Model.RunTable.LinkTorque(step, 2), step / 2.0) << "the new table";
}

TEST_F(MassPropSolve, AModelFromDiskWhoseRunHasDroppedItsTableTakesAnother) {
    Model.TorqueImported = true;
    Set_Identity();
    Model.JustStarted = true;
    Readfile(File_Content());
    ASSERT_TRUE(Model.DiskFile);
    ASSERT_TRUE(Model.TorqueImported);
    Integer result;
    Calc_Setup(3, result);
    Model.JustStarted = false;
    form.Form_Activate();
    EXPECT_FALSE(form.chk_Torque.Value);
    Put_Table(Model.NSteps);
    Expect_Torque_Read();
    form.chk_Torque.Click();
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_TRUE(form.cmd_Solve.Enabled);
}

TEST_F(MassPropSolve, ACancelledImportInAModelFromDiskOpensTheBoxAgain) {
    Model.ExtTorque(4) = 2;
    With_Torque_Table();
    form.chk_Torque.Click();
    desktop.Expect_Open({});
    form.chk_Torque.Click();
    Expect_No_Import("2");
}

TEST_F(MassPropSolve, AnImportedTorqueTakesThePlaceOfTheTypedOne) {
    Model.ExtTorque(4) = 99;
    With_Torque_Table();
    No_Masses();
    Solve();
    EXPECT_EQ(Model.ExtTorque(4), 0.0);
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_EQ(Model.RunTable.LinkTorque(step, 2), 10.0 + step) << "follows the table step by step";
}

TEST_F(MassPropSolve, TickingTheImportReadsATableOfTheRunsLength) {
    Put_Table(Model.NSteps);
    Expect_Torque_Read();
    Model.ExtTorque(4) = 2;
    form.chk_Torque.Click();
    EXPECT_TRUE(form.chk_Torque.Value);
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_EQ(In("txt_Torque", 4), "0");
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_EQ(Model.RunTable.ImportedTorque(3), 1.5);
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a Torque Data file");
    form.Form_Activate();
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
}

TEST_F(MassPropSolve, ATableOfAnotherLengthIsRefusedAndTheBoxGoesOff) {
    Put_Table(Model.NSteps / 2);
    Fill("txt_Torque", 4, "2");
    desktop.Expect_Open(Path("torque.trq"));
    desktop.Expect_Message("This file has a different number of data than your current model and is incompatible",
                           platform::Answer::kOk, platform::Icon::kExclamation);
    form.chk_Torque.Click();
    Expect_No_Import("2");
}

TEST_F(MassPropSolve, ACancelledImportLeavesTheScreenAsItWas) {
    Fill("txt_Torque", 4, "7.5");
    desktop.Expect_Open({});
    form.chk_Torque.Click();
    Expect_No_Import("7.5");
    EXPECT_TRUE(form.txt_Torque[4].Touched()) << "it still waits for Solve";
    Solve();
    EXPECT_EQ(Model.ExtTorque(4), 7.5);
    Model_Saved();
    desktop.Expect_Open({});
    form.chk_Torque.Click();
    Expect_No_Import("7.5");
    EXPECT_FALSE(form.txt_Torque[4].Touched());
    Expect_Results_Open(true);
    EXPECT_EQ(form.CancelButton, &form.cmd_Cancel);
    EXPECT_TRUE(Model.DynamicsDone);
    EXPECT_TRUE(Model.SavedFlag);
}

TEST_F(MassPropSolve, AFileThatCannotBeReadLeavesTheScreenAsItWas) {
    Fill("txt_Torque", 4, "7.5");
    desktop.Expect_Open(Path("none.trq"));
    desktop.Expect_Message("An error has occurred in the Import_Torque routine");
    desktop.Expect_Message_With("has occurred in Import_Torque");
    form.chk_Torque.Click();
    Expect_No_Import("7.5");
}

TEST_F(MassPropSolve, ForcesOfTheTorqueBeforeDoNotCountOnceATableIsTakenOrCleared) {
    Put_Table(Model.NSteps);
    Solve();
    Balance_Holds();
    Expect_Torque_Read();
    form.chk_Torque.Click();
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.BalanceDone);
    Expect_Results_Open(false);
    Solve();
    EXPECT_TRUE(Model.DynamicsDone);
    Model_Saved();
    form.chk_Torque.Click();
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.SavedFlag);
    Expect_Results_Open(false);
}

TEST_F(MassPropSolve, ComingUpAgainKeepsTheForcesOfAnImportedTorque) {
    Put_Table(Model.NSteps);
    Expect_Torque_Read();
    form.chk_Torque.Click();
    Solve();
    form.Form_Activate();
    EXPECT_TRUE(Model.DynamicsDone);
}

TEST_F(MassPropSolve, ATableThatIsInForceIsNotAskedForAgain) {
    Model.TorqueImported = true;
    Model.DiskFile = false;
    form.Form_Activate();
    EXPECT_TRUE(form.chk_Torque.Value);
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_FALSE(form.txt_Torque[4].Enabled);
}

TEST_F(MassPropSolve, ClearingTheImportOpensTheBoxAndKeepsTheTable) {
    Model.ExtTorque(4) = 1.5;
    With_Torque_Table();
    form.cmd_Solve.Enabled = false;
    form.chk_Torque.Value = false;
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_EQ(In("txt_Torque", 4), "1.5");
    EXPECT_TRUE(form.txt_Torque[4].Enabled);
    EXPECT_TRUE(form.cmd_Solve.Enabled);
    EXPECT_EQ(Model.RunTable.ImportedTorque(5), 15.0);
}

}  // namespace verlink::test
