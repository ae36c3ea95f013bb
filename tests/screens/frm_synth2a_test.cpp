// Two positions with all directions assumed: what the screen shows, takes and gives.
#include "screens/frm_synth2a.h"

#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

constexpr char kNoDivisor[] = " Attempting to divide by zero in TwoPosition, Method 1";

struct Synth2A : SynthesisScreenTest {
    Synth2A() { Model.SynPositions = 1; }
    void Activate() { form.Form_Activate(); }
    frm_Synth2A& form = Made<frm_Synth2A>("frm_Synth2A");
    using Texts = std::vector<std::string>;
};

}  // namespace

TEST_F(Synth2A, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.fra_Given.Caption, "Given Data Common to both Dyads");
    EXPECT_EQ(form.fra_Left.Caption, "Left Dyad Assumed");
    EXPECT_EQ(form.fra_Right.Caption, "Right Dyad Assumed");
    EXPECT_EQ(form.fra_LeftCalc.Caption, "Calc for Left Dyad");
    EXPECT_EQ(form.fra_RightCalc.Caption, "Calc for Right Dyad");
    EXPECT_EQ(form.fra_Ground.Caption, "Angle of Ground Link");
    EXPECT_EQ(Captions(form, "lbl_Name"), (Texts{"P21x", "P21y", "Alpha2", "Theta", "Beta2", "Phi", "Sigma", "Gamma2",
                                                 "Xi", "W mag", "Z mag", "U mag", "S mag", "Theta1"}));
}

TEST_F(Synth2A, ComesUpWithTheModelsValuesAndWithoutResults) {
    form.Width() = 500;
    Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_EQ(form.Height(), 8950);
    EXPECT_EQ(Captions(form, "Label13"), Texts(8, "deg"));
    EXPECT_EQ(Captions(form, "lbl_Length"), Texts(5, "in"));
    EXPECT_EQ(Captions(form, "lbl_Theta1"), Texts(2, ""));
    const std::pair<const char*, const char*> boxes[] = {
        {"txt_P21x", "-0.575"}, {"txt_P21y", "0.803"}, {"txt_Alpha2", "-8.69"}, {"txt_Theta", "30.00"},
        {"txt_Beta2", "45.00"}, {"txt_Phi", "83.00"},  {"txt_Sigma", "100.77"}, {"txt_Xi", "194.98"}};
    for (const auto& [box, text] : boxes) EXPECT_EQ(Box(form, box), text) << box;
    EXPECT_EQ(Caption(form, "lbl_Header").substr(0, 1), "\r") << "the title block of a user without a name";
    Expect_Ways_On(form, false);
    EXPECT_EQ(form.Focus(), &form.txt_P21x);
}

TEST_F(Synth2A, TheDiagramIsLabelledFromTheStart) {
    Activate();
    EXPECT_EQ(Caption(form, "lbl_P21mag"), "0.988");
    EXPECT_EQ(Caption(form, "lbl_Delta"), "125.61");
    EXPECT_EQ(Model.P21Mag, Single(std::hypot(Model.P21x, Model.P21y)));
    const std::pair<const char*, const char*> copies[] = {
        {"lbl_Alpha2", "txt_Alpha2"}, {"lbl_Theta", "txt_Theta"},   {"lbl_Beta2", "txt_Beta2"}, {"lbl_Phi", "txt_Phi"},
        {"lbl_Sigma", "txt_Sigma"},   {"lbl_Gamma2", "txt_Gamma2"}, {"lbl_Xi", "txt_Xi"}};
    for (const auto& [label, box] : copies) EXPECT_EQ(Caption(form, label), Box(form, box)) << label;
    EXPECT_EQ(Caption(form, "lbl_Symbol", 0), "W") << "a value that is not known yet has no equals sign";
    EXPECT_EQ(Caption(form, "lbl_Symbol", 14), "Beta2 =");
    EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
    for (const platform::Control* control : form.Controls())
        if (control->Name() == "lbl_Symbol") {
            const auto& name = static_cast<const platform::Label&>(*control);
            EXPECT_TRUE(name.Visible) << name.Caption.Get();
            EXPECT_TRUE(name.At.Get().has_value()) << name.Caption.Get();
        }
    EXPECT_GT(form.Image1.Drawing().Alive(), 100U);
}

TEST_F(Synth2A, ACalculationSolvesBothDyadsAndTheLinkage) {
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Activate();
    Calculate(form);
    EXPECT_EQ(Model.SynAlpha2, Single(-8.69)) << "from the box, as it was rounded";
    EXPECT_EQ(Model.SynGamma2, Val(Box(form, "txt_Gamma2")) == 3.36 ? Single(3.36) : Single(3.35));
    Expect_Both_Reach(2, 1e-5);
    EXPECT_NEAR(std::arg(W()), 30 * kRadians, 1e-6);
    EXPECT_NEAR(std::arg(Z()), 83 * kRadians, 1e-6);
    EXPECT_NEAR(Model.L2, std::abs(W()), 1e-6);
    EXPECT_NEAR(Model.L4, std::abs(U()), 1e-5);
    EXPECT_NEAR(Model.L3, std::abs(Z() - S()), 1e-5);
    EXPECT_NEAR(Model.L1, std::abs(W() + Z() - U() - S()), 1e-5);
    EXPECT_NEAR(Model.Rpa, std::abs(Z()), 1e-6);
    EXPECT_NEAR(Model.ThetaStart, 30, 1e-5);
    EXPECT_NEAR(Model.ThetaEnd, 75, 1e-5);
    EXPECT_TRUE(Model.Synthesized);
    for (const bool result : {Model.Calculated, Model.DynamicsDone, Model.BalanceDone})
        EXPECT_FALSE(result) << "results of the linkage before";
    Expect_Ways_On(form, true);
}

TEST_F(Synth2A, TheDyadsAreThoseOfWhatIsTyped) {
    Activate();
    const std::pair<const char*, const char*> typed[] = {
        {"txt_P21x", "-0.7"}, {"txt_P21y", "0.9"},  {"txt_Alpha2", "-12"}, {"txt_Theta", "35"}, {"txt_Beta2", "50"},
        {"txt_Phi", "71"},    {"txt_Sigma", "110"}, {"txt_Gamma2", "14"},  {"txt_Xi", "200"}};
    for (const auto& [box, text] : typed) Enter_Box(form, box, text);
    Calculate(form);
    EXPECT_LT(Miss(W(), Z(), 50, -12, {-0.7, 0.9}), 1e-5);
    EXPECT_LT(Miss(U(), S(), 14, -12, {-0.7, 0.9}), 1e-5);
    Expect_Along(W(), 35);
    Expect_Along(Z(), 71);
    Expect_Along(U(), 110);
    Expect_Along(S(), 200);
    EXPECT_NEAR(Model.ThetaEnd - Model.ThetaStart, 50, 1e-4);
    for (const char* angle : {"Alpha2", "Theta", "Beta2", "Phi", "Sigma", "Gamma2", "Xi"})
        EXPECT_EQ(Val(Caption(form, ("lbl_" + std::string(angle)).c_str())),
                  Val(Box(form, ("txt_" + std::string(angle)).c_str())))
            << angle;
}

TEST_F(Synth2A, ACalculationFillsTheReadOutsInTheFramesAndOnTheDiagram) {
    Activate();
    Calculate(form);
    const std::pair<const char*, double> lengths[] = {{"lbl_Wmag", std::abs(W())},
                                                      {"lbl_Zmag", std::abs(Z())},
                                                      {"lbl_Umag", std::abs(U())},
                                                      {"lbl_Smag", std::abs(S())}};
    for (const auto& [label, length] : lengths)
        for (int i = 0; i < 2; ++i) EXPECT_NEAR(Val(Caption(form, label, i)), length, 5.1e-4) << label;
    const double ground = std::arg(W() + Z() - U() - S()) / kRadians;
    for (int i = 0; i < 2; ++i) EXPECT_NEAR(Val(Caption(form, "lbl_Theta1", i)), ground, 5.1e-3);
    EXPECT_EQ(Caption(form, "lbl_Symbol", 0), "W =");
    EXPECT_EQ(Caption(form, "lbl_Scale"), "To scale");
}

TEST_F(Synth2A, ANegativeTurnRunsTheCrankTheOtherWayAndAPositiveOneBackAgain) {
    for (const auto& [beta, speed] : {std::pair{"-45", -10.0}, {"45", 10.0}}) {
        SCOPED_TRACE(beta);
        desktop.Expect_Screen(form.Name(), [&, beta = beta, speed = speed](platform::Screen&) {
            Enter_Box(form, "txt_Beta2", beta);
            Calculate(form);
            desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& input) {
                EXPECT_EQ(Box(input, "txt_initial", 3), Text_Of(Single(speed)));
                EXPECT_EQ(Model.Omega2Input, speed);
                Press(input, "cmd_Calc");
                EXPECT_EQ(Box(input, "txt_initial", 3), Text_Of(Single(speed)));
                ASSERT_EQ(Model.NSteps, 1);
                // The run starts where the synthesis has position 1.
                EXPECT_NEAR(std::remainder(Model.RunTable.Theta(0, 0) - std::arg(W()) / kRadians, 360), 0, 0.01);
                EXPECT_EQ(Model.RunTable.Omega(1, 0), speed);
                input.Hide();
            });
            Press(form, "cmd_Done");
        });
        form.ShowModal();
    }
}

TEST_F(Synth2A, LengthsAreShownInTheUnitAndStoredInMetres) {
    Use_Units(4);
    Model.P21x = -0.0146;
    Model.P21y = 0.0204;
    Activate();
    EXPECT_EQ(Captions(form, "lbl_Length"), Texts(5, "cm"));
    EXPECT_EQ(Box(form, "txt_P21x"), "-1.460");
    EXPECT_EQ(Caption(form, "lbl_P21mag"), "2.509");
    Enter_Box(form, "txt_P21x", "-1.5");
    Calculate(form);
    EXPECT_EQ(Model.P21x, Single(-0.015));
    EXPECT_NEAR(Val(Caption(form, "lbl_Wmag", 0)), 100 * std::abs(W()), 5.1e-4);
    Expect_Both_Reach(2, 1e-6);
}

TEST_F(Synth2A, MarksBetweenThousandsInABoxAreReadOver) {
    Use_Units(5);
    Model.P21x = -1.25;
    Activate();
    EXPECT_EQ(Box(form, "txt_P21x"), "-1,250.00");
    Calculate(form);
    EXPECT_EQ(Model.P21x, -1.25);
    EXPECT_GT(std::abs(W()), 0.1);
}

TEST_F(Synth2A, ABoxWithNoNumberReadsAsZero) {
    Activate();
    for (int time = 1; time <= 2; ++time) {
        Enter_Box(form, "txt_Theta", "north");
        Enter_Box(form, "txt_Xi", "");
    }
    Calculate(form);
    EXPECT_EQ(Model.SynTheta, 0);
    EXPECT_EQ(Model.SynXi, 0);
}

TEST_F(Synth2A, AlphaAndBetaOfZeroHaveNoSolutionAndTheMessageComesUp) {
    Activate();
    Enter_Box(form, "txt_Alpha2", "0");
    Enter_Box(form, "txt_Beta2", "0");
    // Without a turn of the coupler neither dyad has a solution of this kind.
    for (int dyad = 0; dyad < 2; ++dyad)
        desktop.Expect_Message(kNoDivisor, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.SynW, 0) << "as it was";
    EXPECT_FALSE(Model.Synthesized);
    Expect_Ways_On(form, false);
    EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
}

TEST_F(Synth2A, WhereOneDyadHasNoSolutionNothingIsPutTogetherAndNoReadOutIsLeft) {
    Activate();
    Calculate(form);
    const Geometry linkage = Model;
    ASSERT_NE(Caption(form, "lbl_Wmag", 0), "");
    EXPECT_EQ(Caption(form, "lbl_Symbol", 0), "W =");
    Enter_Box(form, "txt_Gamma2", "720");
    Enter_Box(form, "txt_P21x", "-3.14159");
    desktop.Expect_Message(kNoDivisor, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.L1, linkage.L1);
    EXPECT_EQ(Model.L2, linkage.L2);
    EXPECT_EQ(Model.L3, linkage.L3);
    EXPECT_EQ(Model.L4, linkage.L4);
    for (const char* label : {"lbl_Wmag", "lbl_Zmag", "lbl_Umag", "lbl_Smag", "lbl_Theta1"})
        EXPECT_EQ(Captions(form, label), Texts(2, "")) << label;
    EXPECT_EQ(Caption(form, "lbl_Symbol", 0), "W");
    EXPECT_EQ(Caption(form, "lbl_Symbol", 9), "Theta =") << "which was typed";
    Expect_Ways_On(form, false);
    EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
    EXPECT_FALSE(form.lbl_Reach.Visible);
    EXPECT_EQ(Box(form, "txt_P21x"), "-3.14159") << "what was typed stays";
    EXPECT_EQ(Model.SynGamma2, 720);
}

TEST_F(Synth2A, NegativeMagnitudesStandAndAreShownWhileTheLinkageIsRight) {
    Activate();
    Calculate(form);
    const std::string W_before = Caption(form, "lbl_Wmag", 0);
    const Single L2 = Model.L2;
    Enter_Box(form, "txt_Theta", "210");
    Calculate(form);
    EXPECT_LT(Model.SynW, 0.0);
    EXPECT_EQ(Caption(form, "lbl_Wmag", 0), "-" + W_before);
    EXPECT_NEAR(Model.L2, L2, 1e-6);
    Expect_Both_Reach(2, 1e-5);
}

TEST_F(Synth2A, TheReportIsAPlainMessage) {
    Activate();
    desktop.Expect_Message(
        " The resulting link lengths and coupler point location are:\r\r"
        "  L1 = 9.378 in at an angle of -1.07 deg\r  L2 = 1.998 in\r  L3 = 8.585 in\r  L4 = 7.114 in\r\r"
        " The Precision (coupler) Point is at: 4.297 in @ 40.36 deg\r\r"
        " Theta2 at position 1 in the global coord system is 30.00 deg\r"
        " Theta2 at position 2 in the global coord system is 75.00 deg\r\r"
        " These data have been transferred to the Input and Animate screens.\r\r"
        " Note that this synthesis procedure cannot predict which circuit (open \r"
        " or crossed) of the linkage is required to obtain the specified positions.\r"
        " You will have to try each circuit from the input sheet to find out.",
        platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
    Press(form, "cmd_Calc");
}

TEST_F(Synth2A, TheDirectionsOfANegativeVectorKeepTheirOwnLineOnTheDiagram) {
    Activate();
    Calculate(form);
    const auto plain = form.Image1.Drawing().Alive();
    Enter_Box(form, "txt_Theta", "210");
    Calculate(form);
    EXPECT_GT(form.Image1.Drawing().Alive(), plain) << "a dashed line more, and a longer arc";
}

}  // namespace verlink::test
