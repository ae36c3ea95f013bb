// What long walks have found, each as the shortest walk to it.
#include "tests/walk/walk_fixture.h"

namespace verlink::walk {
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
        Type("frm_Synth2B", "txt_Smag", platform::kNoIndex, "-1e39"),
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

}  // namespace
}  // namespace verlink::walk
