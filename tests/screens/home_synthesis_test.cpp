// The home screen's menus of examples, cognates and synthesis.
#include <cmath>
#include <functional>

#include "core/classification.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "screens/synthesis_screen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using platform::Screen;
using platform::Screens;

struct HomeSynthesis : Fixture {
    HomeSynthesis() {
        Set_Identity();
        Initialize();
        Use_Units(1);
    }
    /// Picks the entry; `user` acts on the screen that comes up and goes back.
    void Pick(const char* entry, const char* screen, const std::function<void()>& user,
              int index = platform::kNoIndex) {
        desktop.Expect_Screen(screen, [&](Screen& shown) {
            user();
            Press(shown, shown.Find("cmd_Cancel") ? "cmd_Cancel" : "cmd_Done");
        });
        Pick_Menu(home, entry, index);
    }
    void Inside_Input(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Inputnew", [&user](Screen& shown) {
            user();
            Press(shown, "cmd_Cancel");
        });
        input.ShowModal();
    }
    void Pick_Example(const char* entry, const std::function<void()>& user) { Pick(entry, "frm_Inputnew", user); }
    void Calculate() {
        Run_Holds();
        home.Form_Activate();
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
    frm_Inputnew& input = dynamic_cast<frm_Inputnew&>(Screens::Get("frm_Inputnew"));
};

}  // namespace

TEST_F(HomeSynthesis, EachExampleComesUpOnTheInputScreenCalculatedWithItsCognates) {
    constexpr struct {
        const char* entry;
        const char* name;
        const char* lengths[4];
        const char* start;
        double speed;
    } kExamples[] = {{"mnu_Grashof", "Testlink", {"18", "6", "16", "12"}, "45", 10},
                     {"mnu_Hoekens", "Hoeckens", {"2", "1", "2.5", "2.5"}, "0", 10},
                     {"mnu_Roberts", "Roberts", {"2", "1", "1", "1"}, "49", 1},
                     {"mnu_Watts", "Watts", {"2.5", "1.25", "0.625", "1.25"}, "-40", 1},
                     {"mnu_Cheby", "Chebychv", {"2", "2.5", "1", "2.5"}, "37", 1}};
    for (const auto& example : kExamples) {
        SCOPED_TRACE(example.entry);
        Forces_Hold();
        Balance_Holds();
        Model_Saved();
        Model.DiskFile = Model.LinkDriven = true;
        Model.Calctype = 2;
        Pick_Example(example.entry, [&] {
            EXPECT_EQ(Model.ModelName, example.name);
            EXPECT_EQ(Model.Calctype, 3);
            for (int i = 0; i < 4; ++i) EXPECT_EQ(input.txt_Linkout[i].Text, example.lengths[i]);
            EXPECT_EQ(input.txt_initial[0].Text, example.start);
            EXPECT_EQ(Model.Omega2Input, example.speed);
            EXPECT_EQ(Model.Cognates(1, 2), Single(Val(example.lengths[1])));
            EXPECT_EQ(Model.CognateNumber, 1);
            EXPECT_FALSE(Model.DynamicsDone);
            EXPECT_FALSE(Model.BalanceDone);
            EXPECT_FALSE(Model.SavedFlag) << "what lies on disk is another linkage";
            EXPECT_FALSE(Model.DiskFile);
            EXPECT_FALSE(Model.LinkDriven);
            Press(input, "cmd_Calc");
            EXPECT_TRUE(Model.RunTable.Assembled(0));
        });
        EXPECT_TRUE(Model.Calculated);
        EXPECT_EQ(Model.Units, 1);
        EXPECT_TRUE(home.mnu_pick[1].Checked);
    }
}

using WithoutInputScreen = Fixture;

TEST_F(WithoutInputScreen, AnExampleIsCalculatedWhenTheInputScreenIsReached) {
    // The activation of that screen takes the flag back; what was before it is seen where there is no such screen.
    Screens::Register("frm_Inputnew", nullptr);
    Initialize();
    Use_Units(1);
    Model.CognateNumber = 3;
    desktop.Expect_Message_With("has occurred in frm_Homescreen.cmd_Input");
    dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen")).mnu_Cheby.OnClick();
    EXPECT_TRUE(Model.Calculated);
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_EQ(Model.Cognates(1, 2), 2.5);
}

TEST_F(HomeSynthesis, TheFirstLinkageComesBackFromACognateThatIsAPoint) {
    // The coupler point on the rocker's joint: the third cognate has no extent.
    Inside_Input([this] {
        Enter(input, "txt_Linkout", 4, "2.5");
        Enter(input, "txt_Linkout", 5, "0");
    });
    ASSERT_EQ(Model.Rpa, Model.L3);
    Calculate();
    desktop.Expect_Message_With("Your link lengths are incompatible");
    Pick(
        "mnu_Cog", "frm_Inputnew",
        [this] {
            EXPECT_EQ(Model.L2, 0.0);
            EXPECT_EQ(Model.CognateNumber, 3);
            Pick_Menu(input, "mnu_Cog", 1);
            EXPECT_EQ(Model.CognateNumber, 1);
            EXPECT_EQ(Model.L1, Single(2.667));
            EXPECT_EQ(Model.L2, Single(1.115));
            EXPECT_EQ(Model.L3, 2.5);
            EXPECT_EQ(Model.Rpa, 2.5);
            Press(input, "cmd_Calc");
            EXPECT_TRUE(Model.RunTable.Assembled(0));
        },
        3);
}

TEST_F(HomeSynthesis, AnExampleIsInInchesFromTheFirstAndWhatItLeavesIsConverted) {
    Use_Units(4);
    home.mnu_pick[4].Checked = true;
    Model.LinkMass(2) = 1;
    Pick_Example("mnu_Roberts", [this] {
        EXPECT_EQ(Model.Units, 1);
        EXPECT_EQ(input.lbl_Units[1].Caption, "in");
        EXPECT_NEAR(Model.LinkMass(2), 2.2046225 / 386, 1e-4) << "a kilogram";
    });
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_EQ(Model.L1, 2);
    EXPECT_TRUE(home.mnu_pick[1].Checked);
    EXPECT_FALSE(home.mnu_pick[4].Checked);
    EXPECT_EQ(home.lbl_Status[10].Caption, "in-lb-bl-s");
}

TEST_F(HomeSynthesis, HoekensLinkageIsInInchesFromTheStart) {
    Use_Units(4);
    Pick_Example("mnu_Hoekens", [this] {
        EXPECT_EQ(Model.Units, 1);
        EXPECT_EQ(input.lbl_Units[1].Caption, "in");
        EXPECT_EQ(Model.Rpa, 5);
        EXPECT_EQ(Model.Delta, 0);
    });
    EXPECT_TRUE(home.lbl_Status[0].Visible);
    EXPECT_EQ(home.lbl_Status[0].Caption, "Calculated");
}

TEST_F(HomeSynthesis, TheRangeOfTheSynthesisTestIsThatOfItsText) {
    Use_Units(3);
    Model.ThetaStart = Model.ThetaEnd = 123;
    Model.ThetaStep = 4;
    Model.NSteps = 7;
    home.Form_Activate();
    EXPECT_EQ(home.lbl_Status[10].Caption, "m-kg-N-s");
    Pick("mnu_Syntest", "frm_Synth3", [] {
        EXPECT_EQ(Model.ThetaStart, Single(Val(Model.ThetaStartStr)));
        EXPECT_EQ(Model.ThetaEnd, Single(Val(Model.ThetaEndStr)));
        EXPECT_EQ(Model.ThetaStep, Single(Val(Model.ThetaStepStr)));
        EXPECT_EQ(Model.ThetaEndRad, Single(Model.ThetaEnd * kDegToRad));
        EXPECT_EQ(Model.NSteps, std::lround((Model.ThetaEnd - Model.ThetaStart) / Model.ThetaStep));
    });
    EXPECT_EQ(home.lbl_Status[10].Caption, "in-lb-bl-s");
}

TEST_F(HomeSynthesis, TheNumericLimitsOfAnExampleAreThoseOfItsText) {
    input.chk_autocalc.Value = false;  // a calculation would read the boxes too
    Model.ThetaStart = 123;
    Pick_Example("mnu_Roberts", [] {
        EXPECT_EQ(Model.ThetaStart, 49);
        EXPECT_EQ(Model.ThetaEnd, 69);
        EXPECT_EQ(Model.ThetaStep, 2);
        EXPECT_EQ(Model.ThetaEndStr, "69");
    });
    Model.ThetaStart = 123;
    Pick_Example("mnu_Cheby", [] {
        EXPECT_EQ(Model.ThetaStart, 37);
        EXPECT_EQ(Model.ThetaStartStr, "37");
        EXPECT_EQ(Model.NSteps, 53);
        EXPECT_EQ(Model.ThetaStepRad, Single(kDegToRad));
    });
}

TEST_F(HomeSynthesis, WattsLinkageLeavesTheSynthesisOfTheOneBefore) {
    Pick_Example("mnu_Hoekens", [] {});
    Pick_Example("mnu_Watts", [] {});
    EXPECT_EQ(Model.P21x, Single(43.8));
    EXPECT_EQ(Model.SynXi, Single(78.43));
    EXPECT_EQ(Model.SynTheta2, 20);
}

TEST_F(HomeSynthesis, ChebychevsIsTheOneOnTheCrossedCircuit) {
    const std::pair<const char*, int> circuits[] = {
        {"mnu_Grashof", 1}, {"mnu_Hoekens", 1}, {"mnu_Roberts", 1}, {"mnu_Watts", 1}, {"mnu_Cheby", 2}};
    for (const auto& [entry, circuit] : circuits)
        Pick_Example(entry, [&, entry = entry, circuit = circuit] {
            EXPECT_EQ(Model.CircuitIndex, circuit) << entry;
            EXPECT_TRUE(input.opt_OpenCross[circuit - 1].Value) << entry;
        });
}

TEST_F(HomeSynthesis, TheSynthesisTestReproducesItsLinkageInInches) {
    Use_Units(3);
    Model.SynPositions = 2;
    Calculate();
    ASSERT_TRUE(home.Get<platform::CommandButton>("cmd_Dynamics").Enabled);
    Pick("mnu_Syntest", "frm_Synth3", [this] {
        EXPECT_TRUE(Model.SpecifiedPivots);
        EXPECT_EQ(Model.SynPositions, 2) << "as it was";
        EXPECT_EQ(Model.Units, 1);
        EXPECT_FALSE(Model.Calculated);
        EXPECT_EQ(Model.Cognates(1, 1), Single(9.375));
        desktop.Expect_Message_With(" The resulting link lengths and coupler point location are:");
        Press(Screens::Get("frm_Synth3"), "cmd_Calc");
        // The given positions have three decimals, and the boxes of turns two.
        EXPECT_NEAR(Model.L1, 9.375, 0.1);
        EXPECT_NEAR(Model.L2, 2, 0.01);
        EXPECT_NEAR(Model.L3, 8.625, 0.1);
        EXPECT_NEAR(Model.L4, 7, 0.1);
        EXPECT_NEAR(Model.Rpa, 4.376, 0.1);
        EXPECT_NEAR(Model.Delta, 39.5, 1);
    });
    EXPECT_FALSE(home.Get<platform::CommandButton>("cmd_Dynamics").Enabled) << "of this one there is no run";
    EXPECT_EQ(Model.Units, 1);
    EXPECT_TRUE(home.mnu_pick[1].Checked);
}

TEST_F(HomeSynthesis, EachSynthesisEntrySaysWhatItsScreenIsFor) {
    constexpr struct {
        const char* entry;
        const char* screen;
        int positions, method;
        bool pivots;
    } kEntries[] = {{"mnu_Twopos1", "frm_Synth2A", 1, 1, false},
                    {"mnu_Twopos2", "frm_Synth2B", 1, 2, false},
                    {"mnu_Unspec", "frm_Synth3", 2, 2, false},
                    {"mnu_Spec", "frm_Synth3", 3, 2, true}};
    Model.SpecifiedPivots = true;  // as the synthesis test leaves it
    for (const auto& entry : kEntries)
        Pick(entry.entry, entry.screen, [&] {
            EXPECT_EQ(Model.SynPositions, entry.positions) << entry.entry;
            EXPECT_EQ(Model.SynMethod, entry.method) << entry.entry;
            EXPECT_EQ(Model.SpecifiedPivots, entry.pivots) << entry.entry;
        });
}

TEST_F(HomeSynthesis, EntriesOfExamplesAndSynthesisAreAlwaysOpen) {
    home.Form_Activate();
    for (auto* entry : {&home.mnu_Grashof, &home.mnu_Hoekens, &home.mnu_Roberts, &home.mnu_Watts, &home.mnu_Cheby,
                        &home.mnu_Syntest, &home.mnu_Twopos1, &home.mnu_Twopos2, &home.mnu_Unspec, &home.mnu_Spec})
        EXPECT_TRUE(entry->Enabled) << entry->Name();
    EXPECT_FALSE(home.mnu_Cayley.Enabled);
    EXPECT_FALSE(home.mnu_Cog[1].Enabled);
    Calculate();
    EXPECT_TRUE(home.mnu_Cayley.Enabled);
    EXPECT_TRUE(home.mnu_Cog[3].Enabled);
}

TEST_F(HomeSynthesis, ACognateComesUpOnTheInputScreen) {
    Calculate();
    Model.Synthesized = true;
    Forces_Hold();
    Balance_Holds();
    Pick(
        "mnu_Cog", "frm_Inputnew",
        [this] {
            EXPECT_EQ(Model.CognateNumber, 3);
            EXPECT_TRUE(Model.CognateEdit);
            EXPECT_TRUE(home.mnu_Cog[3].Checked);
            EXPECT_FALSE(home.mnu_Cog[1].Checked);
            EXPECT_TRUE(input.mnu_Cog[3].Checked);
            EXPECT_NEAR(Val(input.txt_Linkout[3].Text.Get()), Model.Cognates(3, 4), 5.1e-4);
            EXPECT_FALSE(Model.Synthesized);
            EXPECT_FALSE(Model.DynamicsDone);
            EXPECT_FALSE(Model.BalanceDone);
        },
        3);
    EXPECT_TRUE(Model.Calculated) << "its run was shown and left with";
}

TEST_F(HomeSynthesis, AParallelogramHasNeitherCognatesNorADiagram) {
    Calculate();
    Model.Parallelogram = true;
    Model.Synthesized = true;
    for (const auto& [entry, index] : {std::pair{"mnu_Cog", 2}, std::pair{"mnu_Cayley", platform::kNoIndex}}) {
        desktop.Expect_Message(kParallelogramMessage, platform::Answer::kOk, platform::Icon::kInformation,
                               platform::Buttons::kOk);
        Pick_Menu(home, entry, index);
    }
    EXPECT_TRUE(Model.Calculated);
    EXPECT_TRUE(Model.Synthesized);
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_FALSE(home.mnu_Cog[2].Checked);
}

TEST_F(HomeSynthesis, TheCayleyDiagramComesUpFromTheMenu) {
    Calculate();
    Pick("mnu_Cayley", "frm_Cayley", [] {});
}

}  // namespace verlink::test
