// What kind of four-bar the lengths make, and how far a non-Grashof crank swings.
#include "core/classification.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/linkage_model.h"
#include "core/parameters.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Frame;
using platform::Label;
using platform::OptionButton;
using platform::Screens;

class Classification : public Fixture {
   protected:
    /// Ground, crank, coupler, rocker.
    static void Lengths(double L1, double L2, double L3, double L4) {
        Model.L1 = L1;
        Model.L2 = L2;
        Model.L3 = L3;
        Model.L4 = L4;
        LoadLinkArray();
    }
    static void Classify(double L1, double L2, double L3, double L4) {
        Lengths(L1, L2, L3, L4);
        Grashof();
    }
    static std::string Outcome(const char* screen) { return Screens::Get(screen).Get<Label>("lbl_Grashof").Caption; }
    static bool Toggle_Shown() { return Screens::Get("frm_Inputnew").Get<Frame>("fra_toggle").Visible; }
};

TEST_F(Classification, ShortestAndLongestBelowTheOthersIsGrashof) {
    Classify(3, 1, 3, 2.5);
    EXPECT_EQ(Model.Grashof_Code, "Y");
    EXPECT_EQ(Outcome("frm_Inputnew"), "Linkage is Grashof");
    EXPECT_EQ(Outcome("frm_Animate"), "Linkage is Grashof");
    EXPECT_FALSE(Toggle_Shown());
}

TEST_F(Classification, OneTwoThreeFourIsTheSpecialCase) {
    Classify(1, 2, 3, 4);
    EXPECT_EQ(Model.Grashof_Code, "SC");
    EXPECT_EQ(Outcome("frm_Inputnew"), "Special-Case Grashof Linkage");
}

TEST_F(Classification, FourEqualLengthsAreTheSpecialCaseAndAParallelogram) {
    Classify(2, 2, 2, 2);
    EXPECT_EQ(Model.Grashof_Code, "SC");
    Model.PolarCoords = true;
    Derive_Linkage(Leading::kInForce);
    EXPECT_TRUE(Model.Parallelogram);
}

TEST_F(Classification, LongestBeyondTheSumOfTheOthersCannotConnectThoughAlsoNonGrashof) {
    Classify(1, 1, 1, 5);
    EXPECT_EQ(Model.Grashof_Code, "NL");
    EXPECT_EQ(Outcome("frm_Inputnew"), "Can't Connect");
    EXPECT_FALSE(Toggle_Shown());
}

TEST_F(Classification, LongestEqualToTheSumOfTheOthersCannotConnect) {
    Classify(1, 1, 1, 3);
    EXPECT_EQ(Model.Grashof_Code, "NL");
}

TEST_F(Classification, ShortestCouplerIsADoubleRocker) {
    Classify(3, 3, 1, 3.5);
    EXPECT_EQ(Model.Grashof_Code, "Y");
    EXPECT_EQ(Outcome("frm_Inputnew"), "Grashof Double-Rocker");
}

// Two links of the shortest length leave no room for a Grashof linkage: the sums can at best be equal, and then the
// special case has the last word on the text, coupler or not.
TEST_F(Classification, CouplerAsShortAsAnotherShortestLinkIsDecidedByTheSums) {
    Classify(4, 1, 1, 4);
    EXPECT_EQ(Model.Grashof_Code, "SC");
    EXPECT_EQ(Outcome("frm_Inputnew"), "Special-Case Grashof Linkage");
    Classify(4, 1, 1, 4.5);
    EXPECT_EQ(Model.Grashof_Code, "N");
}

TEST_F(Classification, ShortestAndLongestAboveTheOthersIsNonGrashofAndShowsItsToggles) {
    Classify(4, 2, 3, 2);
    EXPECT_EQ(Model.Grashof_Code, "N");
    EXPECT_EQ(Outcome("frm_Animate"), "Linkage is Non-Grashof");
    EXPECT_TRUE(Toggle_Shown());
}

TEST_F(Classification, SumsThatDifferByLessThanSinglePrecisionAreTheSpecialCase) {
    Classify(4e7, 1, 3e7, 1e7 + 2);  // 40000001 and 40000002 are one single
    EXPECT_EQ(Model.Grashof_Code, "SC");
}

TEST_F(Classification, ToggleAngleClosesTheTriangleOfTheStretchedOrFoldedLinks) {
    Lengths(4, 2, 3, 2);
    const double angle = Toggle();
    // At the toggle coupler and rocker lie in one line: their sum or difference spans A to O4.
    const double ax = 2 * std::cos(angle * std::acos(-1.0) / 180), ay = 2 * std::sin(angle * std::acos(-1.0) / 180);
    EXPECT_NEAR(std::hypot(4 - ax, ay), 3 + 2, 1e-5);
    auto& input = Screens::Get("frm_Inputnew");
    EXPECT_EQ(input.Get<Label>("lbl_Toggle", 0).Caption.Get(),
              Screens::Get("frm_Animate").Get<Label>("lbl_Toggle", 0).Caption.Get());
    EXPECT_NEAR(std::stod(input.Get<Label>("lbl_Toggle", 0).Caption), angle, 0.05);
    EXPECT_FALSE(input.Get<OptionButton>("opt_Calctype", 2).Enabled);
}

TEST_F(Classification, TheToggleAngleSaysThatItCountsFromATurnedGround) {
    Lengths(4, 2, 3, 2);
    for (const char* screen : {"frm_Inputnew", "frm_Animate"}) {
        const auto& words = Screens::Get(screen).Get<Label>("lbl_Toggle", 1);
        Model.Link1Angle = 30;
        Toggle();
        EXPECT_EQ(words.Caption.Get(), "deg to link 1") << screen;
        Model.Link1Angle = 0;
        Toggle();
        EXPECT_EQ(words.Caption.Get(), "deg") << screen;
    }
}

TEST_F(Classification, ToggleAtTheLimitShowsOneRadianAsTheArcCosineHasIt) {
    Lengths(2, 2, 2, 2);  // K = 0 and M = 1: the cosine is exactly 1
    EXPECT_NEAR(Toggle(), 57.29577950560105, 1e-5);
    EXPECT_EQ(Screens::Get("frm_Inputnew").Get<Label>("lbl_Toggle", 0).Caption.Get(), "57.3");
    Lengths(4, 2, 3, 1);  // 5/8 and 3/8
    EXPECT_NEAR(Toggle(), 57.29577950560105, 1e-5);
}

TEST_F(Classification, GrashofLinkageKeepsTheOldToggleText) {
    auto& label = Screens::Get("frm_Inputnew").Get<Label>("lbl_Toggle", 0);
    label.Caption = "12.3";
    Classify(3, 1, 3, 2.5);
    EXPECT_EQ(label.Caption.Get(), "12.3");
    EXPECT_FALSE(Toggle_Shown());
}

TEST_F(Classification, RefusalOfCognatesStandsToTheLetter) {
    EXPECT_STREQ(kParallelogramMessage,
                 "Your present linkage is a parallelogram,\rwhich has an infinity of cognates\r"
                 "all of which have circular coupler curves.\r\rCognate switching and the Cayley diagram are\r"
                 "not available for parallelogram linkages\ras they have no value in this case.\r");
}

TEST_F(Classification, TheToggleAngleIsShownWithItsWordsWhereThereIsOne) {
    for (const bool toggles : {true, false, true}) {
        if (toggles)
            Lengths(7, 4, 5, 4.5);
        else
            Lengths(3, 1, 3, 2.5);
        Classify_Linkage();
        for (const char* screen : {"frm_Inputnew", "frm_Animate"})
            for (const int index : {0, 1})
                EXPECT_EQ(Screens::Get(screen).Get<Label>("lbl_Toggle", index).Visible.Get(), toggles) << screen;
    }
}

TEST_F(Classification, TheToggleAngleOfALinkageWithoutACrankIsReportedAndZero) {
    Lengths(3, 0, 2, 2);
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Toggle\r\n\r\n");
    EXPECT_EQ(Toggle(), 0);
}

TEST_F(Classification, LengthsCloseSomewhereUnlessOneIsAsLongAsTheOthersTogether) {
    Lengths(3, 1, 3, 2.5);
    EXPECT_TRUE(Closes_Somewhere());
    EXPECT_STREQ(Grashof_Long_Text(), "Linkage is Grashof");
    Lengths(6.5, 1, 3, 2.5);
    EXPECT_FALSE(Closes_Somewhere());
    EXPECT_STREQ(Grashof_Long_Text(), "Can't Connect");
}

}  // namespace
}  // namespace verlink::test
