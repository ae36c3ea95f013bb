// Three positions, with fixed pivots found or specified: what the screen shows, takes and gives.
#include "screens/frm_synth3.h"

#include <array>
#include <cmath>

#include "core/numeric.h"
#include "core/text.h"
#include "tests/core/linkages.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr char kSingular[] = "An error has occurred in Simq - check your data - matrix is singular - Threepos";
constexpr char kNoRotations[] =
    "Something is wrong - trying to take the square root of a negative number in FixedPivots";

struct Synth3 : SynthesisScreenTest {
    Synth3() { Model.SynPositions = 2; }
    void Activate() { form.Form_Activate(); }
    void Specify() {
        Model.SynPositions = 3;
        Model.SpecifiedPivots = true;
        Activate();
    }
    /// No dyad turns at all: both systems are singular, from the first column on.
    void No_Turns() {
        for (const char* turn : {"txt_Beta2", "txt_Beta3", "txt_Gamma2", "txt_Gamma3"}) Enter_Box(form, turn, "0");
    }
    /// Positions that no dyad reaches from a pivot at the origin, and both pivots there.
    void No_Turns_About_The_Origin() {
        const std::pair<const char*, const char*> given[] = {{"txt_P21x", "0"},   {"txt_P21y", "0.6"},
                                                             {"txt_P31x", "2"},   {"txt_P31y", "0.1"},
                                                             {"txt_Alpha2", "0"}, {"txt_Alpha3", "180"}};
        for (const auto& [box, text] : given) Enter_Box(form, box, text);
        Enter_Box(form, "txt_P1", "-1", 0);
        Enter_Box(form, "txt_P1", "2.9", 1);
        for (const char* pivot : {"txt_O2", "txt_O4"})
            for (int i = 0; i < 2; ++i) Enter_Box(form, pivot, "0", i);
    }
    void Expect_Singular(Answer answer) {
        desktop.Expect_Message_With("There is a zero value on diagonal");
        desktop.Expect_Message(kSingular, answer, Icon::kExclamation, Buttons::kRetryCancel);
    }
    frm_Synth3& form = Made<frm_Synth3>("frm_Synth3");
    using Texts = std::vector<std::string>;
};

}  // namespace

TEST_F(Synth3, CaptionsStandAsDesigned) {
    Activate();
    EXPECT_EQ(form.fra_Given.Caption, "Given Data Common to both Dyads");
    EXPECT_EQ(form.fra_Left.Caption, "Left Dyad Assumed");
    EXPECT_EQ(form.fra_Right.Caption, "Right Dyad Assumed");
    EXPECT_EQ(form.fra_LeftCalc.Caption, "Calc for Left Dyad");
    EXPECT_EQ(form.fra_RightCalc.Caption, "Calc for Right Dyad");
    EXPECT_EQ(form.fra_Pivot[0].Caption, "Coords of Pivot O2");
    EXPECT_EQ(form.fra_Pivot[1].Caption, "Coords of Pivot O4");
    EXPECT_EQ(form.fra_Pivot[2].Caption, "Coords of Point P1");
    EXPECT_EQ(form.fra_Links.Caption, "Linkage Data");
    EXPECT_EQ(Captions(form, "Label13"), Texts(11, "deg"));
    EXPECT_EQ(Captions(form, "lbl_Length"), Texts(9, "in"));
}

TEST_F(Synth3, WithFreePivotsTheTurnsAreOpenAndThePivotsHidden) {
    Model.Link1Angle = 12.345;
    Activate();
    const std::pair<const char*, const char*> boxes[] = {
        {"txt_P21x", "-0.575"},   {"txt_P21y", "0.803"},  {"txt_P31x", "-1.928"}, {"txt_P31y", "0.553"},
        {"txt_Alpha3", "-10.96"}, {"txt_Beta2", "45.00"}, {"txt_Beta3", "90.00"}, {"txt_Gamma3", "14.97"}};
    for (const auto& [box, text] : boxes) EXPECT_EQ(Box(form, box), text) << box;
    for (const auto* turn : {&form.txt_Beta2, &form.txt_Beta3, &form.txt_Gamma2, &form.txt_Gamma3})
        EXPECT_FALSE(turn->Locked) << turn->Name();
    for (const auto& frame : form.fra_Pivot) EXPECT_FALSE(frame->Visible);
    EXPECT_EQ(Caption(form, "lbl_Theta1", 0), Text_Of(FNRound(Model.Link1Angle, 2)));
    EXPECT_EQ(Caption(form, "lbl_P21mag"), "0.988");
    EXPECT_EQ(Caption(form, "lbl_Delta2"), "125.61");
    EXPECT_EQ(Caption(form, "lbl_P31mag"), "2.006");
    EXPECT_EQ(Caption(form, "lbl_Delta3"), "164.00");
    EXPECT_EQ(Caption(form, "lbl_Alpha3"), "-10.96");
    EXPECT_EQ(Caption(form, "lbl_Beta3"), "90.00");
    EXPECT_EQ(Caption(form, "lbl_Gamma3"), "14.97");
    Expect_Ways_On(form, false);
}

TEST_F(Synth3, WithSpecifiedPivotsTheTurnsAreBlankAndLockedAndThePivotsOpen) {
    Model.P1x = 1.5;
    Specify();
    for (const auto* turn : {&form.txt_Beta2, &form.txt_Beta3, &form.txt_Gamma2, &form.txt_Gamma3}) {
        EXPECT_EQ(turn->Text, "") << turn->Name();
        EXPECT_TRUE(turn->Locked) << turn->Name();
    }
    for (const auto& frame : form.fra_Pivot) EXPECT_TRUE(frame->Visible);
    EXPECT_EQ(Box(form, "txt_O2", 0), "-2.264");
    EXPECT_EQ(Box(form, "txt_O2", 1), "-5.279");
    EXPECT_EQ(Box(form, "txt_O4", 0), "7.111");
    EXPECT_EQ(Box(form, "txt_P1", 0), "1.500");
    Expect_Ways_On(form, false);
}

TEST_F(Synth3, FreePivotsComeOutOfTheTurns) {
    Activate();
    Calculate(form);
    Expect_Both_Reach(2, 2e-4);
    Expect_Both_Reach(3, 2e-4);
    EXPECT_NEAR(Model.O2x, -(W() + Z()).real(), 1e-5);
    EXPECT_NEAR(Model.O4y, -(U() + S()).imag(), 1e-5);
    EXPECT_TRUE(Model.Synthesized);
    Expect_Ways_On(form, true);
}

TEST_F(Synth3, TheDyadsAreThoseOfWhatIsTyped) {
    Activate();
    const std::pair<const char*, const char*> typed[] = {
        {"txt_P21x", "-0.7"},  {"txt_P21y", "0.9"}, {"txt_Alpha2", "-12"}, {"txt_P31x", "-2.1"}, {"txt_P31y", "0.4"},
        {"txt_Alpha3", "-16"}, {"txt_Beta2", "40"}, {"txt_Beta3", "80"},   {"txt_Gamma2", "6"},  {"txt_Gamma3", "21"}};
    for (const auto& [box, text] : typed) Enter_Box(form, box, text);
    Calculate(form);
    EXPECT_LT(Miss(W(), Z(), 40, -12, {-0.7, 0.9}), 2e-4);
    EXPECT_LT(Miss(W(), Z(), 80, -16, {-2.1, 0.4}), 2e-4);
    EXPECT_LT(Miss(U(), S(), 6, -12, {-0.7, 0.9}), 2e-4);
    EXPECT_LT(Miss(U(), S(), 21, -16, {-2.1, 0.4}), 2e-4);
    EXPECT_NEAR(Model.ThetaEnd - Model.ThetaStart, 80, 1e-3) << "the run goes through all three";
    const std::pair<const char*, Vector> directions[] = {
        {"lbl_Theta", W()}, {"lbl_Phi", Z()}, {"lbl_Sigma", U()}, {"lbl_Xi", S()}};
    for (const auto& [label, vector] : directions)
        EXPECT_NEAR(std::remainder(Val(Caption(form, label)) - std::arg(vector) / kRadians, 360), 0, 6e-4) << label;
}

TEST_F(Synth3, ACalculationFillsTheReadOuts) {
    Activate();
    Calculate(form);
    const std::pair<const char*, Vector> vectors[] = {
        {"lbl_Wmag", W()}, {"lbl_Zmag", Z()}, {"lbl_Umag", U()}, {"lbl_Smag", S()}};
    int direction = 0;
    for (const auto& [label, vector] : vectors) {
        EXPECT_NEAR(Val(Caption(form, label, 0)), std::abs(vector), 5.1e-4) << label;
        EXPECT_EQ(Caption(form, label, 1), Caption(form, label, 0));
        const double turns = (Val(Caption(form, "lbl_Direction", direction++)) - std::arg(vector) / kRadians) / 360;
        EXPECT_NEAR(turns, std::round(turns), 1e-5) << label;
    }
    EXPECT_NEAR(Val(Caption(form, "lbl_Theta1", 0)), Model.Link1Angle, 5.1e-3);
    EXPECT_EQ(Caption(form, "lbl_Scale"), "To scale");
    EXPECT_EQ(Box(form, "txt_Linkout", 1), Caption(form, "lbl_Wmag", 0));
    EXPECT_EQ(Box(form, "txt_Linkout", 3), Caption(form, "lbl_Umag", 0));
    EXPECT_NEAR(Val(Box(form, "txt_Linkout", 0)), Model.L1, 5.1e-4);
    EXPECT_NEAR(Val(Box(form, "txt_Linkout", 5)), Model.Delta, 5.1e-3);
}

TEST_F(Synth3, SpecifiedPivotsGiveTheTurns) {
    Specify();
    Calculate(form);
    EXPECT_EQ(Model.O2x, Single(-2.264));
    EXPECT_EQ(Model.O4y, Single(-5.279));
    EXPECT_EQ(Box(form, "txt_Beta2"), FNRoundStr(Model.SynBeta2, 3));
    EXPECT_EQ(Box(form, "txt_Beta3"), FNRoundStr(Model.SynBeta3, 3));
    EXPECT_EQ(Box(form, "txt_Gamma2"), FNRoundStr(Model.SynGamma2, 3));
    EXPECT_EQ(Box(form, "txt_Gamma3"), FNRoundStr(Model.SynGamma3, 3));
    EXPECT_EQ(Caption(form, "lbl_Beta2"), Box(form, "txt_Beta2"));
    // The linkage that the default positions were taken from turns by these.
    EXPECT_NEAR(Model.SynBeta2, 45, 0.5);
    EXPECT_NEAR(Model.SynBeta3, 90, 0.5);
    EXPECT_NEAR(Model.SynGamma2, 3.355, 0.1);
    EXPECT_NEAR(Model.SynGamma3, 14.972, 0.1);
    // The dyads hang on the pivots as given, P1 being at the origin.
    EXPECT_LT(std::abs(W() + Z() + Vector(Model.O2x, Model.O2y)), 5e-3);
    EXPECT_LT(std::abs(U() + S() + Vector(Model.O4x, Model.O4y)), 5e-3);
    Expect_Both_Reach(2, 1e-3);
    Expect_Both_Reach(3, 1e-3);
    EXPECT_EQ(Caption(form, "lbl_Scale"), "To scale");
    Expect_Ways_On(form, true);
}

TEST_F(Synth3, TurnsThatWereFoundBeforeANumberThatNoFieldHoldsAreThoseOfBefore) {
    Specify();
    Calculate(form);
    const std::string beta2 = Box(form, "txt_Beta2"), beta3 = Box(form, "txt_Beta3");
    Enter_Box(form, "txt_O2", "-2.5", 0);
    Enter_Box(form, "txt_O4", "1e39", 0);
    desktop.Expect_Message_With("Error 6   (Overflow)");
    Press(form, "cmd_Calc");
    EXPECT_EQ(Box(form, "txt_Beta2"), beta2);
    EXPECT_EQ(Box(form, "txt_Beta3"), beta3);
    EXPECT_EQ(Model.O2x, Single(-2.264));
    Enter_Box(form, "txt_O4", "7.111", 0);
    Calculate(form);
    EXPECT_NE(Box(form, "txt_Beta2"), beta2) << "another pivot has other turns";
}

TEST_F(Synth3, TheWayThroughThePositionsIsToldBesideTheReport) {
    Specify();
    Calculate(form);
    EXPECT_EQ(Caption(form, "lbl_Reach"),
              "The linkage reaches all positions on the open circuit, in the order 1, 2, 3 as the crank turns "
              "counterclockwise.");
}

TEST_F(Synth3, LengthsAreShownInTheUnitAndStoredInMetres) {
    Use_Units(5);
    Model.P1x = 0.05;
    Specify();
    EXPECT_EQ(Captions(form, "lbl_Length"), Texts(9, "mm"));
    EXPECT_EQ(Box(form, "txt_P1", 0), "50.00");
    EXPECT_EQ(Box(form, "txt_O2", 1), "-5,279.00");
    Enter_Box(form, "txt_P1", "0", 0);
    Calculate(form);
    EXPECT_EQ(Model.P1x, 0);
    EXPECT_EQ(Model.O2y, Single(-5.279));
    EXPECT_NEAR(Val(Caption(form, "lbl_Wmag", 0)), 1000 * std::abs(W()), 0.051);
}

TEST_F(Synth3, ACalculationShowsWhatItIsMadeFromAnew) {
    Activate();
    const std::array labels{&form.lbl_P21mag, &form.lbl_P31mag, &form.lbl_Delta2, &form.lbl_Delta3,
                            &form.lbl_Alpha3, &form.lbl_Beta3,  &form.lbl_Gamma3};
    Texts before;
    for (const auto* label : labels) before.push_back(label->Caption);
    EXPECT_NEAR(Val(before[1]), std::hypot(Model.P31x, Model.P31y), 6e-3);
    for (auto* label : labels) label->Caption = "of another";
    Calculate(form);
    for (std::size_t i = 0; i < labels.size(); ++i) EXPECT_EQ(labels[i]->Caption.Get(), before[i]) << i;
}

TEST_F(Synth3, CancelAtASingularSystemEndsTheCalculation) {
    Activate();
    No_Turns();
    Expect_Singular(Answer::kCancel);
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.SimqAnswer, 2);
    EXPECT_FALSE(Model.Synthesized);
    EXPECT_EQ(Caption(form, "lbl_Wmag", 0), "");
    EXPECT_EQ(Model.L2, Single(1.115));
    Expect_Ways_On(form, false);
}

TEST_F(Synth3, PositionsThatCoincideAreToldWhateverTheirNumbers) {
    Activate();
    Enter_Box(form, "txt_P31x", "-0.575");
    Enter_Box(form, "txt_P31y", "0.803");
    Enter_Box(form, "txt_Alpha3", "-8.69");
    const Single crank = Model.L2;
    int by_the_elimination = 0;
    for (const char* beta : {"45", "33.37", "14.97", "-71.3", "123.45", "0.07", "90", "-171.01"}) {
        for (const char* box : {"txt_Beta2", "txt_Beta3"}) Enter_Box(form, box, beta);
        Notes notes(desktop, Answer::kCancel);
        Press(form, "cmd_Calc");
        ASSERT_FALSE(notes.Messages().empty()) << beta;
        EXPECT_EQ(notes.Messages().back().text, kSingular) << beta;
        by_the_elimination += notes.Messages().size() > 1 ? 1 : 0;
        EXPECT_FALSE(Model.Synthesized);
        EXPECT_EQ(Model.L2, crank);
        Expect_Ways_On(form, false);
    }
    EXPECT_LT(by_the_elimination, 8) << "some numbers hide it from the elimination";
}

TEST_F(Synth3, RetryAtASingularSystemGoesOnWithTheOldDyads) {
    Activate();
    Calculate(form);
    const Vector left = W(), right = U();
    No_Turns();
    Expect_Singular(Answer::kRetry);
    Expect_Singular(Answer::kRetry);
    Calculate(form);
    EXPECT_EQ(W(), left);
    EXPECT_EQ(U(), right);
    Expect_Ways_On(form, true);
}

TEST_F(Synth3, CancelAtTheRightDyadLeavesTheLeftOneSolved) {
    Activate();
    Enter_Box(form, "txt_Gamma2", "0");
    Enter_Box(form, "txt_Gamma3", "0");
    Expect_Singular(Answer::kCancel);
    Press(form, "cmd_Calc");
    EXPECT_LT(Miss(W(), Z(), 45, Model.SynAlpha2, {Model.P21x, Model.P21y}), 2e-4);
    EXPECT_NEAR(Model.SynW, std::abs(W()), 1e-6);
    EXPECT_EQ(U(), Vector(0, 0));
    Expect_Ways_On(form, false);
}

TEST_F(Synth3, ACancelDoesNotStopTheNextCalculation) {
    Activate();
    No_Turns();
    Expect_Singular(Answer::kCancel);
    Press(form, "cmd_Calc");
    Activate();
    Enter_Box(form, "txt_Beta2", "45");
    Enter_Box(form, "txt_Beta3", "90");
    Enter_Box(form, "txt_Gamma2", "3.36");
    Enter_Box(form, "txt_Gamma3", "14.97");
    Calculate(form);
    Expect_Ways_On(form, true);
}

TEST_F(Synth3, WhereNoTurnsLeadThroughTheLinkageStays) {
    Model.SynBeta2 = 20;
    Model.SynBeta3 = 50;
    Model.SynGamma2 = 25;
    Model.SynGamma3 = 60;
    Specify();
    No_Turns_About_The_Origin();
    for (int dyad = 0; dyad < 2; ++dyad) desktop.Expect_Message(kNoRotations);
    const Single crank = Model.L2;
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.SynBeta2, 20);
    EXPECT_EQ(Model.SynGamma3, 60);
    for (const char* turn : {"txt_Beta2", "txt_Beta3", "txt_Gamma2", "txt_Gamma3"}) EXPECT_EQ(Box(form, turn), "");
    EXPECT_EQ(Captions(form, "lbl_Direction"), Texts(4, ""));
    EXPECT_EQ(Model.L2, crank);
    EXPECT_FALSE(Model.Synthesized);
    Expect_Ways_On(form, false);
    EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
}

TEST_F(Synth3, ADyadFoundWithoutTheOtherShowsItsTurnsInTheBoxesAlone) {
    Specify();
    No_Turns_About_The_Origin();
    Enter_Box(form, "txt_O2", "-3", 0);
    Enter_Box(form, "txt_O2", "-2", 1);
    desktop.Expect_Message(kNoRotations);
    Press(form, "cmd_Calc");
    EXPECT_EQ(Box(form, "txt_Beta2"), FNRoundStr(Model.SynBeta2, 3));
    EXPECT_NE(Box(form, "txt_Beta2"), "");
    EXPECT_EQ(Box(form, "txt_Gamma2"), "");
    EXPECT_EQ(Caption(form, "lbl_Beta2"), "");
    Expect_Ways_On(form, false);
}

TEST_F(Synth3, APivotUnderTheCouplerPointHasAWEqualAndOppositeToZ) {
    Specify();
    Enter_Box(form, "txt_O2", "0", 0);
    Enter_Box(form, "txt_O2", "0", 1);
    Calculate(form);
    Expect_Both_Reach(3, 1e-3);
    EXPECT_LT(std::abs(W() + Z()), 2e-2 * std::abs(W()));
}

TEST_F(Synth3, AWrittenTurnTakesTheResultsBackUntilTheCalculationIsDone) {
    Specify();
    Calculate(form);
    Expect_Ways_On(form, true);
    Enter_Box(form, "txt_P1", "0.1", 1);
    Expect_Ways_On(form, false);
}

}  // namespace verlink::test
