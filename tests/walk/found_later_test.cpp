// What long walks have found lately, each as the shortest walk to it.
#include "tests/walk/walk_fixture.h"

namespace verlink::walk {

using platform::kNoIndex;

namespace {

TEST(WalkFound, CognatesOfAnAngleOfManyTurnsHaveFewDigits) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Type("frm_Inputnew", "txt_Linkout", 5, "99999999999"),
        On_Picture("frm_Inputnew", "Picture1", "O"),
    });
}

TEST(WalkFound, ACouplerPointBeyondAllTurnsLiesAnywhereOnItsCircle) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 5, "1e38"),
        Press("frm_Animate", "cmd_Back"),
        Press("frm_Inputnew", "cmd_Step"),
    });
}

TEST(WalkFound, CognatesOfALinkageThatWasTypedAreItsOwn) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Hoekens"),
        Type("frm_Inputnew", "txt_Linkout", 2, "5"),
        Press("frm_Inputnew", "cmd_PlotPrint").Looks(),
    });
}

TEST(WalkFound, AMassCentreBeyondAllTurnsHasNoBalance) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_AngCG", 4, "1234567890123456789012345678901234567890"),
        Press("frm_MassProp", "cmd_Solve"),
        Press("frm_MassProp", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Press("frm_Balance", "cmd_Calc"),
    });
}

TEST(WalkFound, ACrankOfManyTurnsLeavesFewDigitsForSpeeds) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Type("frm_Inputnew", "txt_initial", 3, "99999999999"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Option("frm_Inputnew", "opt_Calctype", 2),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_pick", 4),
        Press("frm_Inputnew", "cmd_Cancel"),
    });
}

TEST(WalkFound, AFilmThatIsNotSavedLeavesTheWordsOfADrag) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 4),
        Pick("frm_Inputnew", "mnu_Minus"),
        Tick("frm_Inputnew", "chk_Lock", 1),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Watts"),
        Press("frm_Inputnew", "cmd_Done"),
        Pulse("frm_Animate", "Timer1"),
        Pick("frm_Animate", "mnu_Plus"),
        Haul("frm_Animate", "Picture1", 0.399, 0.375, 0.429, 0.398, 0),
        Pulse("frm_Inputnew", "Timer1"),
        Option("frm_Animate", "opt_OpenCross", 1),
        Haul("frm_Animate", "Picture1", 0.5668, 0.9169, 0.6668, 0.9929, 0),
        Pick("frm_Animate", "mnu_SaveMotion").Saves("<folder>/a folder.vlk").Looks(),
    });
}

TEST(WalkFound, NamesOfJointsAreThereWhenARunComesBackThatWasDropped) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Link_Data_Import").Opens("<folder>/drive.out"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Drop("frm_Inputnew", "<folder>/cam.sva"),
        Press("frm_Inputnew", "cmd_Calc"),
        Press("frm_Inputnew", "cmd_Animate"),
        Pick("frm_Animate", "mnu_ViewNames").Looks(),
        Press("frm_Animate", "cmd_Back"),
    });
}

TEST(WalkFound, ATextIsNotDoneAgainWhereAnotherBoxKeepsTheCursor) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Watts"),
        Press("frm_Inputnew", "cmd_Animate"),
        Pick("frm_Animate", "mnu_ViewLive"),
        Item("frm_Animate", "cmb_LivePreset", kNoIndex, 5),
        Type("frm_Animate", "txt_Linkout", 2, "-5.35"),
        Pick("frm_Animate", "mnu_Undo"),
        Write("frm_Animate", "cmb_LiveFrame3", kNoIndex, "-3.5"),
        Pick("frm_Animate", "mnu_Redo"),
    });
}

TEST(WalkFound, CognatesOfALinkageInOtherUnitsAreRoundedWithIt) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Pick("frm_Inputnew", "mnu_Cog", 3),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_pick", 3),
        Option("frm_Inputnew", "opt_OpenCross", 1),
    });
}

TEST(WalkFound, ArrowsOfARunHaveTheScaleOfItsOwnLinkage) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Animate"),
        Tick("frm_Animate", "chk_Lock", 4),
        Pick("frm_Animate", "mnu_ViewAccelerations").Looks(),
        Type("frm_Animate", "txt_Cycles", kNoIndex, "0"),
        Type("frm_Animate", "txt_Linkout", 1, "2.23"),
        Tick("frm_Animate", "chk_Lock", 5),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.343, 0.802, 1, 1),
        Press("frm_Animate", "cmd_Animate"),
    });
}

TEST(WalkFound, WhatWasImportedIsShownAtHomeAfterADrawingThatIsNotThere) {
    Expect_Sound({
        Drop("frm_HomeScreen", "<samples>/first_stage.out"),
        Press("frm_Inputnew", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 4, "1e38"),
        Thumb("frm_Animate", "hsc_step", kNoIndex, 22),
        Close("frm_Animate"),
        Pick("frm_HomeScreen", "mnu_SaveDrawing").Saves("<folder>/other.dxf"),
    });
}

TEST(WalkFound, CognatesOfLengthsBeyondAllSenseAreNotCompared) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Pick("frm_Inputnew", "mnu_Open").Opens("<samples>/non_grashof.vlk"),
        Press("frm_Inputnew", "cmd_Done"),
        Type("frm_Animate", "txt_Linkout", 4, "1e38"),
        Press("frm_Animate", "cmd_Back"),
        Type("frm_Inputnew", "txt_Linkout", 16, "-2"),
        Haul("frm_Inputnew", "Picture1", 0.244, 0.867, 0.114, 1.122, 0),
    });
}

TEST(WalkFound, AMassCentreBeyondAllSenseStopsASolveOfOnePosition) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 2),
        Drop("frm_Inputnew", "<samples>/straight_line.vlk"),
        Option("frm_Inputnew", "opt_Calctype", 1),
        Press("frm_Inputnew", "cmd_Calc"),
        Press("frm_Inputnew", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_DistCG", 2, "1e38"),
        Press("frm_MassProp", "cmd_Solve"),
    });
}

TEST(WalkFound, AWeightOfAllTheWorldBalancesAsFarAsItsDigitsGo) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_BerkMass", 4, "99999999999"),
        Type("frm_Balance", "txt_BerkMass", 2, "0.017"),
    });
}

TEST(WalkFound, ALimitOfThousandsIsReadAsItIsShown) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Twopos1"),
        Type("frm_Synth2A", "txt_Beta2", kNoIndex, "5000"),
        Return("frm_Synth2A"),
        Press("frm_Synth2A", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Hoekens"),
        Pick("frm_Inputnew", "mnu_Undo"),
    });
}

TEST(WalkFound, StepsThatNoSingleHoldsAreNotCompared) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Animate"),
        Pick("frm_Animate", "mnu_Open").Opens("<samples>/cam_driven.vlk"),
        Type("frm_Inputnew", "txt_Linkout", 4, "1e38"),
        Press("frm_Inputnew", "cmd_Calc"),
    });
}

TEST(WalkFound, AShakingMomentIsTheSmallRestOfTwoLargeOnes) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Option("frm_Inputnew", "opt_Polar", 1),
        Press("frm_Inputnew", "cmd_Animate"),
        Press("frm_Animate", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_Inertia", 3, "0.198"),
        Type("frm_MassProp", "txt_MagForce", 3, "3.2"),
        Type("frm_MassProp", "txt_AngForce", 4, "4.4"),
        Type("frm_MassProp", "txt_MagForce", 4, "-0.5"),
        Type("frm_MassProp", "txt_DistP", 4, "0.8"),
        Return("frm_MassProp"),
        Press("frm_MassProp", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Hoekens"),
        Press("frm_Inputnew", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 4, "5.25"),
        Type("frm_Animate", "txt_Linkout", 0, "2.31"),
        Type("frm_Animate", "txt_Linkout", 1, "-2"),
        Type("frm_Animate", "txt_Linkout", 2, "2.25"),
        Type("frm_Animate", "txt_Linkout", 5, "-45"),
        Drop("frm_Animate", "<samples>/first_stage.out"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_Torque", 3, "-0.5"),
        Type("frm_MassProp", "txt_Mass", 2, "0"),
        Type("frm_MassProp", "txt_DistP", 3, "1.8"),
        Type("frm_MassProp", "txt_Mass", 3, "0"),
        Type("frm_MassProp", "txt_AngCG", 4, "123"),
        Type("frm_MassProp", "txt_AngP", 4, "30"),
        Type("frm_MassProp", "txt_DistCG", 4, "0.9"),
        Type("frm_MassProp", "txt_AngP", 3, "30"),
        Type("frm_MassProp", "txt_Frict", 3, "-3"),
        Press("frm_MassProp", "cmd_Solve"),
    });
}

TEST(WalkFound, WhatNoFieldHoldsAndWaitsForDynamicsLeavesTheRun) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_DistP", 4, "1e39"),
        Press("frm_MassProp", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
    });
}

TEST(WalkFound, ATurnOfNothingLeavesNoDirectionOfADyad) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Twopos2"),
        Type("frm_Synth2B", "txt_Gamma2", kNoIndex, "0"),
        Return("frm_Synth2B"),
    });
}

TEST(WalkFound, ATorqueThatWaitsDoesSoAfterAnImportThatWasGivenUp) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Roberts"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_Torque", 4, "1.88"),
        Press("frm_MassProp", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Tick("frm_MassProp", "chk_Torque"),
    });
}

TEST(WalkFound, WhatWaitsForDynamicsIsNotInTheRecord) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Hoekens"),
        Press("frm_Inputnew", "cmd_Animate"),
        Press("frm_Animate", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_DistCG", 3, "1.8"),
        Press("frm_MassProp", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
    });
}

TEST(WalkFound, APivotThatIsDraggedOnTheMapOverflowsNothing) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Unspec"),
        Press("frm_Synth3", "cmd_Explore"),
        Type("frm_Explore", "txt_Area", 3, "at 0 0, 3 1"),
        Tick("frm_Explore", "chk_ThrownOut"),
        Type("frm_Explore", "txt_Area", 1, "at 0 0, 3 1"),
        Type("frm_Explore", "txt_Limit", 1, "1.2"),
        Item("frm_Explore", "cmb_Count", kNoIndex, 0),
        Haul("frm_Explore", "pic_Map", 0.7407, 0.5261, 0.7007, 0.5811, 0),
    });
}

TEST(WalkFound, APositionOffThePathIsNotMarkedAsPassed) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Twopos1"),
        Type("frm_Synth2A", "txt_Gamma2", kNoIndex, "0"),
        Press("frm_Synth2A", "cmd_Calc"),
        Press("frm_Synth2A", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Unspec"),
        Type("frm_Synth3", "txt_Beta2", kNoIndex, "359.99"),
        Type("frm_Synth3", "txt_Gamma3", kNoIndex, "-45"),
        Press("frm_Synth3", "cmd_Calc"),
        Press("frm_Synth3", "cmd_Explore"),
        Escape("frm_Explore"),
        Escape("frm_Synth3"),
        Press("frm_HomeScreen", "cmd_Input"),
        Type("frm_Inputnew", "txt_initial", 3, "25"),
        Press("frm_Inputnew", "cmd_PlotPrint").Looks(),
    });
}

}  // namespace
}  // namespace verlink::walk
