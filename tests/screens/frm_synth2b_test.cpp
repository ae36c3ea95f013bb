// Two positions with Z and S assumed: what the screen shows, takes and gives.
#include "screens/frm_synth2b.h"

#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

constexpr char kNoDivisor2B[] = " Attempting to divide by zero in TwoPosition, Method 2";

struct Synth2B : SynthesisScreenTest {
    Synth2B() { Model.SynPositions = 1; }
    void Activate() { form.Form_Activate(); }
    frm_Synth2B& form = Made<frm_Synth2B>("frm_Synth2B");
};

}  // namespace

TEST_F(Synth2B, ComesUpWithTheModelsValuesAndNothingFound) {
    Activate();
    EXPECT_EQ(Box(form, "txt_Zmag"), "4.307");
    EXPECT_EQ(Box(form, "txt_Smag"), "5.970");
    EXPECT_EQ(Box(form, "txt_Phi"), "83.00");
    EXPECT_EQ(Box(form, "txt_Wmag"), "");
    EXPECT_EQ(Box(form, "txt_Umag"), "");
    EXPECT_EQ(Caption(form, "lbl_Name", 11), "U mag");
    for (const auto* box : {&form.txt_Theta, &form.txt_Wmag, &form.txt_Sigma, &form.txt_Umag})
        EXPECT_TRUE(box->Locked) << box->Name();
    for (const auto* box : {&form.txt_Zmag, &form.txt_Phi, &form.txt_Beta2, &form.txt_Smag, &form.txt_Gamma2})
        EXPECT_FALSE(box->Locked) << box->Name();
    Expect_Ways_On(form, false);
}

TEST_F(Synth2B, ACalculationFindsBothGroundedLinks) {
    Activate();
    Calculate(form);
    Expect_Both_Reach(2, 1e-5);
    EXPECT_NEAR(std::abs(Z()), 4.307, 1e-6);
    EXPECT_NEAR(std::arg(Z()), 83 * kRadians, 1e-6);
    EXPECT_NEAR(Val(Box(form, "txt_Wmag")), std::abs(W()), 5.1e-4);
    EXPECT_EQ(Box(form, "txt_Theta"), Text_Of(FNRound(std::arg(W()) / kRadians, 2)));
    EXPECT_NEAR(Val(Box(form, "txt_Umag")), std::abs(U()), 5.1e-4);
    EXPECT_NEAR(Val(Box(form, "txt_Sigma")), std::arg(U()) / kRadians, 5.1e-3);
    EXPECT_EQ(Caption(form, "lbl_Wmag", 1), Box(form, "txt_Wmag"));
    EXPECT_EQ(Caption(form, "lbl_Theta"), Box(form, "txt_Theta"));
    EXPECT_EQ(Caption(form, "lbl_Theta1", 0), Caption(form, "lbl_Theta1", 1));
    EXPECT_NEAR(Val(Caption(form, "lbl_Theta1", 0)), Model.Link1Angle, 5.1e-3);
    EXPECT_TRUE(Model.Synthesized);
    Expect_Ways_On(form, true);
}

TEST_F(Synth2B, TheDyadsAreThoseOfWhatIsTyped) {
    Activate();
    const std::pair<const char*, const char*> typed[] = {
        {"txt_P21x", "-0.7"}, {"txt_P21y", "0.9"},  {"txt_Alpha2", "-12"}, {"txt_Beta2", "50"}, {"txt_Zmag", "3.5"},
        {"txt_Phi", "71"},    {"txt_Gamma2", "14"}, {"txt_Smag", "2.5"},   {"txt_Xi", "200"}};
    for (const auto& [box, text] : typed) Enter_Box(form, box, text);
    Calculate(form);
    EXPECT_LT(Miss(W(), Z(), 50, -12, {-0.7, 0.9}), 1e-5);
    EXPECT_LT(Miss(U(), S(), 14, -12, {-0.7, 0.9}), 1e-5);
    EXPECT_LT(std::abs(Z() - std::polar(3.5, 71 * kRadians)), 1e-5);
    EXPECT_LT(std::abs(S() - std::polar(2.5, 200 * kRadians)), 1e-5);
    const std::pair<const char*, const char*> copies[] = {{"lbl_Beta2", "txt_Beta2"},
                                                          {"lbl_Phi", "txt_Phi"},
                                                          {"lbl_Gamma2", "txt_Gamma2"},
                                                          {"lbl_Sigma", "txt_Sigma"},
                                                          {"lbl_Xi", "txt_Xi"}};
    for (const auto& [label, box] : copies) EXPECT_EQ(Val(Caption(form, label)), Val(Box(form, box))) << label;
}

TEST_F(Synth2B, TheLengthsOfZAndSAreReadAsTheyAreShownWithThousandsApart) {
    Activate();
    for (const char* box : {"txt_Zmag", "txt_Smag"}) {
        Type(form, box, platform::kNoIndex, "1,234.5");
        form.txt_P21x.SetFocus();
        EXPECT_FALSE(form.Text(box).Refused()) << box;
        EXPECT_EQ(Box(form, box), "1,234.5");
    }
}

TEST_F(Synth2B, TheLengthsOfZAndSAreMetresAlsoWhereCentimetresAreShown) {
    Use_Units(4);
    Model.P21x = -0.0146;
    Model.P21y = 0.0204;
    Model.SynZ = 0.1094;
    Activate();
    EXPECT_EQ(Box(form, "txt_Zmag"), "0.1094");
    Enter_Box(form, "txt_Zmag", "0.11");
    Enter_Box(form, "txt_Smag", "0.15");
    Calculate(form);
    EXPECT_EQ(Model.SynZ, Single(0.11));
    EXPECT_EQ(Model.SynS, Single(0.15));
    EXPECT_EQ(Model.P21x, Single(-0.0146));
    EXPECT_EQ(Caption(form, "lbl_Zmag", 1), "11");
    EXPECT_NEAR(Val(Box(form, "txt_Wmag")), 100 * std::abs(W()), 5.1e-4);
    Expect_Both_Reach(2, 1e-6);
}

TEST_F(Synth2B, ABetaOfNoTurnOrOfAWholeOneIsRefusedAfterZIsWritten) {
    for (const char* beta : {"0", "360"}) {
        Activate();
        Model.SynWx = 0.5;
        Enter_Box(form, "txt_Beta2", beta);
        Enter_Box(form, "txt_Zmag", "2");
        Enter_Box(form, "txt_Phi", "90");
        desktop.Expect_Message(kNoDivisor2B, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
        Press(form, "cmd_Calc");
        EXPECT_EQ(Model.SynWx, 0.5) << beta;
        EXPECT_NEAR(Model.SynZx, 0, 1e-6);
        EXPECT_NEAR(Model.SynZy, 2, 1e-6);
        for (const char* found : {"txt_Wmag", "txt_Theta", "txt_Umag", "txt_Sigma"}) EXPECT_EQ(Box(form, found), "");
        EXPECT_FALSE(Model.Synthesized);
        Expect_Ways_On(form, false);
    }
}

TEST_F(Synth2B, ABetaOfHalfATurnHasAPlainSolution) {
    Activate();
    Enter_Box(form, "txt_Beta2", "180");
    Calculate(form);
    const Vector wanted = (Vector(Model.P21x, Model.P21y) - Z() * (std::polar(1.0, -8.69 * kRadians) - 1.0)) / -2.0;
    EXPECT_LT(std::abs(W() - wanted), 1e-6);
}

TEST_F(Synth2B, NothingCanBeTypedWhereResultsStand) {
    Activate();
    Type(form, "txt_Wmag", platform::kNoIndex, "7");
    EXPECT_EQ(Box(form, "txt_Wmag"), "");
    EXPECT_EQ(form.Focus(), &form.txt_Wmag);
    EXPECT_TRUE(form.txt_Wmag.SelectedAll) << "but the text can be taken elsewhere";
}

}  // namespace verlink::test
