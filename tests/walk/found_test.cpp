// What long walks have found, each as the shortest walk to it.
#include "tests/walk/walk_fixture.h"

namespace verlink::walk {
using platform::Answer;
using platform::kNoIndex;

namespace {

TEST(WalkFound, AWeightThatNoNumberHoldsGivesWayToTheOneInForce) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_MRproduct", 2, "1234567890123456789012345678901234567890"),
        Option("frm_Balance", "opt_Back", 2),
    });
}

TEST(WalkFound, AChangeOfUnitsKeepsThePlaceOfO4ThatWasTyped) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Cheby"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Pick("frm_Inputnew", "mnu_Cog", 2),
        Type("frm_Inputnew", "txt_Linkout", 16, "4.6728"),
        Close("frm_Inputnew"),
        Pick("frm_HomeScreen", "mnu_pick", 5),
    });
}

TEST(WalkFound, TheClassFollowsALengthBeforeTheDiagramIsLookedAt) {
    Expect_Sound({
        Return("frm_HomeScreen"),
        Type("frm_Inputnew", "txt_Linkout", 2, "0"),
        Pulse("frm_Inputnew", "Timer1"),
        Go("frm_Inputnew", "txt_Linkout", 15),
        Pick("frm_Inputnew", "mnu_Cog", 3),
        Pick("frm_Inputnew", "mnu_Cayley").Looks(),
        Escape("frm_Cayley").Looks(),
    });
}

TEST(WalkFound, AWeightBesideARadiusThatIsNoNumberIsTheOneInForce) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Done"),
        Type("frm_Animate", "txt_Linkout", 16, "2.8"),
        Type("frm_Animate", "txt_Linkout", 3, "3"),
        Press("frm_Animate", "cmd_Recalc"),
        Close("frm_Animate"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_Radius", 2, "5 in"),
        Type("frm_Balance", "txt_MRproduct", 4, "0.01"),
        Type("frm_Balance", "txt_Radius", 4, "1.5e"),
    });
}

TEST(WalkFound, TenPulsesOfEachSignAreTenRows) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 2),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_Radius", 2, "99999999999"),
        Option("frm_Balance", "opt_Back", 0),
    });
}

TEST(WalkFound, AResultOfADyadThatCouldNotBeSolvedIsNotShown) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Twopos2"),
        Type("frm_Synth2B", "txt_Smag", kNoIndex, "-1e39"),
        Press("frm_Synth2B", "cmd_Calc"),
    });
}

TEST(WalkFound, AProductAtARadiusOfNothingIsToldAndTheWeightsStay) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_MRproduct", 4, "0"),
        Type("frm_Balance", "txt_BerkMass", 4, "99999999999"),
        Type("frm_Balance", "txt_MRproduct", 4, "6"),
        Option("frm_Balance", "opt_Back", 0),
    });
}

TEST(WalkFound, TogglesAreThoseOfTheLinkageInHand) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Type("frm_Inputnew", "txt_Linkout", 15, "8"),
        Close("frm_Inputnew"),
        Pick("frm_HomeScreen", "mnu_pick", 3),
        Pulse("frm_Inputnew", "Timer1"),
        Pick("frm_Inputnew", "mnu_Cayley").Looks(),
        Close("frm_Cayley").Looks(),
    });
}

TEST(WalkFound, AGroundOfManyTurnsIsSavedAsItIs) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Step"),
        Option("frm_Inputnew", "opt_Polar", 1),
        Press("frm_Inputnew", "cmd_Animate"),
        Close("frm_Animate"),
        Pick("frm_HomeScreen", "mnu_Watts"),
        Press("frm_Inputnew", "cmd_Done"),
        Option("frm_Animate", "opt_Shift_Drag", 2),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.612, 0.357, 1, 1),
        Press("frm_Animate", "cmd_Done"),
        Pick("frm_HomeScreen", "mnu_Cog", 2),
        Press("frm_Inputnew", "cmd_Animate"),
        Press("frm_Animate", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Input"),
        Type("frm_Inputnew", "txt_Linkout", 6, "99999999999"),
        Press("frm_Inputnew", "cmd_Done"),
        Press("frm_Animate", "cmd_Animate"),
        Close("frm_Animate"),
        Pick("frm_HomeScreen", "mnu_pick", 5),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Print"),
    });
}

TEST(WalkFound, ALinkageBeyondAllSenseHasNoScaleAndIsTold) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Animate"),
        Tick("frm_Animate", "chk_Showlinks"),
        Tick("frm_Animate", "chk_Showlinks"),
        Tick("frm_Animate", "chk_Showlinks"),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.039, 0.706, 1, 1),
        Press("frm_Animate", "cmd_Done"),
        Pick("frm_HomeScreen", "mnu_Unspec"),
        Type("frm_Synth3", "txt_P31y", kNoIndex, "1e38"),
        Type("frm_Synth3", "txt_Beta3", kNoIndex, "-90"),
        Press("frm_Synth3", "cmd_Calc"),
        Close("frm_Synth3"),
        Press("frm_HomeScreen", "cmd_Input"),
    });
}

TEST(WalkFound, AFunctionThatIsTypedIsTransformedAsItsScreenIsLeft) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Hoekens"),
        Press("frm_Inputnew", "cmd_Animate"),
        Press("frm_Animate", "cmd_Done"),
        Pick("frm_HomeScreen", "mnu_CalcFFT"),
        Item("frm_FFT", "cmb_Var1", kNoIndex, 14),
        Write("frm_FFT", "cmb_Var1", kNoIndex, "Omega4"),
        Press("frm_FFT", "cmd_Done"),
    });
}

TEST(WalkFound, LinksOfVeryUnequalLengthsAreSavedAsFarAsSevenDigitsTell) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Open").Opens("<fixtures>/rev7_format2.vlk"),
        Option("frm_Inputnew", "opt_OpenCross", 0),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Saveas").Saves("<folder>/other.vlk"),
        Pick("frm_HomeScreen", "mnu_pick", 5),
        Option("frm_Inputnew", "opt_Modulo", 0),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Twopos1"),
        Type("frm_Synth2A", "txt_Sigma", kNoIndex, "62.5"),
        Type("frm_Synth2A", "txt_P21x", kNoIndex, "0.5"),
        Type("frm_Synth2A", "txt_Theta", kNoIndex, "25.4"),
        Type("frm_Synth2A", "txt_P21y", kNoIndex, "1.6"),
        Type("frm_Synth2A", "txt_Alpha2", kNoIndex, "200"),
        Press("frm_Synth2A", "cmd_Calc"),
        Press("frm_Synth2A", "cmd_Done"),
        Press("frm_Inputnew", "cmd_Done"),
        Pick("frm_HomeScreen", "mnu_Open").Says(Answer::kYes).Saves("<folder>/mine.vlk").Opens("<folder>/mine.vlk"),
        Pick("frm_Inputnew", "mnu_Cog", 2),
        Press("frm_Inputnew", "cmd_Calc"),
        Close("frm_Inputnew"),
        Pick("frm_HomeScreen", "mnu_Link_Data_Import").Opens("<folder>/drive.out"),
        Type("frm_Inputnew", "txt_Linkout", 3, "6.006"),
        Press("frm_Inputnew", "cmd_Reset"),
        Option("frm_Inputnew", "opt_OpenCross", 1),
        Type("frm_Inputnew", "txt_Linkout", 3, "-12.02"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Spec"),
        Press("frm_Synth3", "cmd_Calc"),
        Press("frm_Synth3", "cmd_Done"),
        Press("frm_Inputnew", "cmd_Step"),
        Thumb("frm_Inputnew", "hsc_step", kNoIndex, 0),
    });
}

TEST(WalkFound, LengthsThatOnlyJustReachGiveADrivenRunNoResults) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Lobetra").Opens("<folder>/cam_mm.sva"),
        Press("frm_Inputnew", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 1, "1"),
        Option("frm_Animate", "opt_Polar", 1),
        Type("frm_Animate", "txt_Linkout", 0, "0"),
        Type("frm_Animate", "txt_Linkout", 2, "2"),
        Press("frm_Animate", "cmd_Recalc"),
    });
}

TEST(WalkFound, MassesThatNoBalanceCanBeFoundForLeaveTheWeightsThatAreInForce) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 3),
        Press("frm_Inputnew", "cmd_Animate"),
        Press("frm_Animate", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Type("frm_MassProp", "txt_DistCG", 3, "1e38"),
        Press("frm_MassProp", "cmd_Solve"),
        Close("frm_MassProp"),
        Press("frm_HomeScreen", "cmd_Balance"),
    });
}

TEST(WalkFound, ATextThatIsDoneAgainWaitsInItsBoxWithTheCursor) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Cheby"),
        Press("frm_Inputnew", "cmd_Done"),
        Type("frm_Animate", "txt_Linkout", 15, "1"),
        Pick("frm_Animate", "mnu_Undo"),
        Tick("frm_Animate", "chk_Showlinks"),
        Pick("frm_Animate", "mnu_Redo"),
    });
}

TEST(WalkFound, ARefusedTextThatIsTakenAfterACalculationWaitsForTheNext) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Twopos1"),
        Type("frm_Synth2A", "txt_Beta2", kNoIndex, "abc"),
        Press("frm_Synth2A", "cmd_Calc"),
        Go("frm_Synth2A", "txt_Beta2"),
        Type("frm_Synth2A", "txt_Sigma", kNoIndex, "53.98"),
    });
}

TEST(WalkFound, ATableOfTorquesThatIsDroppedOverAnEditHasNoRunToGoBy) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Calc"),
        Press("frm_Inputnew", "cmd_Done"),
        Type("frm_Animate", "txt_initial", 0, "-30"),
        Drop("frm_Animate", "<samples>/second_stage.trq"),
        Tick("frm_MassProp", "chk_Torque"),
        Press("frm_MassProp", "cmd_Solve"),
        Press("frm_MassProp", "cmd_Cancel"),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.742, 0.629, 1, 1),
    });
}
TEST(WalkFound, TheMenuOfRecentFilesOpensWithTheFirstOfThem) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Roberts"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pulse("frm_Inputnew", "Timer1"),
        Pick("frm_HomeScreen", "mnu_Save").Saves("<folder>/other.vlk"),
        Pick("frm_HomeScreen", "mnu_Quit").Looks(),
        Press("frm_Quit", "cmd_NoQuit").Looks(),
    });
}

TEST(WalkFound, ARefusedRadiusIsInForceNowhere) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 2),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_MRproduct", 4, "--"),
        Type("frm_Balance", "txt_Radius", 4, "-1.2"),
        Type("frm_Balance", "txt_MRproduct", 4, "0.02"),
    });
}

TEST(WalkFound, AfterAnUndoToWhatHasNoRunThereIsNoPositionToBeShown) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Watts"),
        Press("frm_Inputnew", "cmd_Animate"),
        Pick("frm_Animate", "mnu_Undo"),
        Thumb("frm_Animate", "hsc_step", kNoIndex, -431),
    });
}

TEST(WalkFound, ABoxThatChangesNothingLeavesTheLinkageToTheLastDigit) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Open").Opens("<samples>/second_stage.vlk"),
        Press("frm_Inputnew", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Dynamics"),
        Return("frm_MassProp"),
        Press("frm_MassProp", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 0, ".5"),
        Press("frm_Animate", "cmd_Step"),
    });
}

TEST(WalkFound, TheForcesComeBackWhereABalanceHasFallen) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Watts"),
        Press("frm_Inputnew", "cmd_Done"),
        Press("frm_Animate", "cmd_Done"),
        Press("frm_HomeScreen", "cmd_Balance"),
        Type("frm_Balance", "txt_MRproduct", 2, "0.0465"),
        Type("frm_Balance", "txt_MRproduct", 4, "0.264"),
        Type("frm_Balance", "txt_Radius", 2, "1e-40"),
        Escape("frm_Balance"),
        Pick("frm_HomeScreen", "mnu_pick", 2),
    });
}

TEST(WalkFound, WhatWasTypedBeforeACognateWasChosenIsNotTakenBackBeforeTheChoice) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Pick("frm_Inputnew", "mnu_Cog", 3),
        Type("frm_Inputnew", "txt_Linkout", 3, "6.172"),
        Pick("frm_Inputnew", "mnu_Cog", 1),
        Pick("frm_Inputnew", "mnu_Undo"),
        Go("frm_Inputnew", "txt_Linkout", 2),
    });
}

TEST(WalkFound, ASynthesisedRangeThatAnUndoCameToIsDividedBeforeADragRunsIt) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Roberts"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Twopos1"),
        Press("frm_Synth2A", "cmd_Calc"),
        Press("frm_Synth2A", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_pick", 4),
        Press("frm_Inputnew", "cmd_Done"),
        Pick("frm_Animate", "mnu_Undo"),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.009, 0.067, 1, 1),
    });
}

TEST(WalkFound, RecentFilesFollowASaveThatAnImportAskedFor) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Pick("frm_Inputnew", "mnu_Plus"),
        Pulse("frm_Inputnew", "Timer1"),
        Close("frm_Inputnew"),
        Pick("frm_HomeScreen", "mnu_Link_Data_Import").Says(Answer::kYes).Saves("<folder>/mine.vlk"),
        Pick("frm_HomeScreen", "mnu_About").Looks(),
        Click("frm_About").Looks(),
    });
}

TEST(WalkFound, TheHalvesOfASynthesisedRangeAreStepsBeforeADragRunsThem) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Syntest"),
        Press("frm_Synth3", "cmd_Calc"),
        Press("frm_Synth3", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Roberts"),
        Press("frm_Inputnew", "cmd_Done"),
        Pick("frm_Animate", "mnu_Undo"),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.903, 0.905, 1, 1),
    });
}

TEST(WalkFound, ADragLeavesTheBoxThatIsBeingTypedInto) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Press("frm_Inputnew", "cmd_Done"),
        Type("frm_Animate", "txt_Cycles", kNoIndex, "abc"),
        Mouse("frm_Animate", "Picture1", kNoIndex, 0.115, 0.49, 1, 1),
        Pick("frm_Animate", "mnu_Open")
            .Says(Answer::kYes)
            .Saves("<folder>/other.vlk")
            .Opens("<samples>/second_stage.vlk"),
    });
}

TEST(WalkFound, ATextThatIsDoneAgainAfterACalculationWaitsInItsBox) {
    Expect_Sound({
        Press("frm_HomeScreen", "cmd_Input"),
        Type("frm_Inputnew", "txt_Linkout", 4, "0.7"),
        Pick("frm_Inputnew", "mnu_Undo"),
        Press("frm_Inputnew", "cmd_Calc"),
        Pick("frm_Inputnew", "mnu_Redo"),
    });
}

TEST(WalkFound, WhatLiesOverThePictureFallsWithTheRun) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Watts"),
        Pick("frm_Inputnew", "mnu_ViewGrid"),
        Type("frm_Inputnew", "txt_Linkout", 16, "2.6"),
        Tick("frm_Inputnew", "chk_autocalc"),
    });
}

TEST(WalkFound, WhatLiesOverThePictureIsOfTheNewRunWhereNothingIsDrawnAnew) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_ViewAccelerations").Looks(),
        Pick("frm_HomeScreen", "mnu_Open").Opens("<samples>/second_stage.vlk"),
        Press("frm_Inputnew", "cmd_Animate"),
        Option("frm_Animate", "opt_OpenCross", 1),
    });
}

TEST(WalkFound, WhatLiesOverThePictureGoesWithAModelThatWasDropped) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Cheby"),
        Tick("frm_Inputnew", "chk_autocalc"),
        Option("frm_Inputnew", "opt_Calctype", 2),
        Press("frm_Inputnew", "cmd_Cancel"),
        Pick("frm_HomeScreen", "mnu_Cheby"),
        Pick("frm_Inputnew", "mnu_ViewGrid"),
        Press("frm_Inputnew", "cmd_Animate"),
        Drop("frm_Animate", "<folder>/drive.out").Saves("<folder>/other.vlk"),
    });
}

TEST(WalkFound, ATickOfTheAnimateScreenCountsAtOnce) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Lobetra").Opens("<folder>/cam_mm.sva"),
        Press("frm_Inputnew", "cmd_Cancel"),
        Press("frm_HomeScreen", "cmd_Animate"),
        Tick("frm_Animate", "chk_Trace"),
        Type("frm_Animate", "txt_Cycles", kNoIndex, "abc"),
        Drop("frm_Animate", "<folder>/drive.out").Says(Answer::kYes).Saves("<folder>/mine.vlk"),
    });
}

TEST(WalkFound, WhatLiesOverThePictureGoesWithAStepThatIsDoneAgainUnderAnotherScreen) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Watts"),
        Pick("frm_Inputnew", "mnu_ViewPoles").Looks(),
        Type("frm_Inputnew", "txt_Linkout", 15, "-1.252"),
        Pick("frm_Inputnew", "mnu_Quit"),
        Escape("frm_Quit"),
    });
}

TEST(WalkFound, AShiftDragTellsOnceThatTheLengthsCloseNowhere) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_pick", 3),
        Press("frm_Inputnew", "cmd_Animate"),
        Type("frm_Animate", "txt_Linkout", 16, "0.23"),
        Haul("frm_Animate", "Picture1", 0.834, 0.234, 0.742, 0.139, 1),
    });
}

TEST(WalkFound, WhatLiesOverThePictureGoesWithStepsThatAreDoneAgainAfterANewModel) {
    Expect_Sound({
        Pick("frm_HomeScreen", "mnu_Cheby"),
        Press("frm_Inputnew", "cmd_Done"),
        Pick("frm_Animate", "mnu_Quit").Saves("<folder>/mine.vlk"),
        Close("frm_Quit"),
        Pick("frm_Animate", "mnu_New").Says(Answer::kOk),
        Type("frm_Inputnew", "txt_Linkout", 1, "2.23"),
        Type("frm_Inputnew", "txt_Linkout", 15, "3.3"),
        Pick("frm_Inputnew", "mnu_ViewPinForces").Looks(),
        Pick("frm_Inputnew", "mnu_Quit").Says(Answer::kAbort),
        Return("frm_Quit"),
    });
}

}  // namespace
}  // namespace verlink::walk
