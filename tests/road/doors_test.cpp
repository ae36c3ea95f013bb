// A linkage on its way through the program: what is shown of it is so, whichever road it came by and whatever was
// looked at.
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/runs.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "screens/frm_animate.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"
#include "tests/support/drive_data.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;

class Doors : public Fixture {
   protected:
    Doors() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Set_Screen_Titles();
        Model.FilePath = Path("");
    }

    template <class Form>
    static Form& The(const char* name) {
        return dynamic_cast<Form&>(Screens::Get(name));
    }
    frm_HomeScreen& home = The<frm_HomeScreen>("frm_HomeScreen");
    frm_Inputnew& input = The<frm_Inputnew>("frm_Inputnew");
    frm_Animate& animate = The<frm_Animate>("frm_Animate");

    /// The user on the home screen.
    void At_Home(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_HomeScreen", [&](Screen& screen) {
            user();
            screen.Hide();
        });
        Model.JustStarted = false;
        home.ShowModal();
    }
    /// The user on another screen, which he leaves as `user` does, or by its window's button.
    void Then(const char* name, const std::function<void(Screen&)>& user) {
        desktop.Expect_Screen(name, [user](Screen& screen) {
            user(screen);
            if (screen.Visible()) screen.Close();
        });
    }
    void Calculate_At_Input() {
        Then("frm_Inputnew", [](Screen& screen) { Press(screen, "cmd_Done"); });
        Then("frm_Animate", [](Screen& screen) { Press(screen, "cmd_Done"); });
        Press(home, "cmd_Input");
    }
    /// The results in the table, each number to the bit.
    static std::vector<double> Motion() {
        std::vector<double> all;
        const auto& t = Model.RunTable;
        for (int step = 0; step <= Model.NSteps; ++step) {
            for (int row = 0; row <= 3; ++row) all.push_back(t.Theta(step, row));
            for (int row = 0; row <= 2; ++row) all.insert(all.end(), {t.Omega(step, row), t.Alpha(step, row)});
            for (int axis = 0; axis <= 1; ++axis) {
                for (int point = 0; point <= 2; ++point)
                    all.insert(all.end(), {t.PointXY(step, point, axis), t.VelXY(step, point, axis)});
                for (int point = 0; point <= 4; ++point) all.push_back(t.AccXY(step, point, axis));
            }
        }
        return all;
    }
    /// What is marked as calculated is the run of the model as it stands.
    static void Expect_Results_Of_The_Model() {
        if (!Model.Calculated) return;
        const auto shown = Motion();
        Integer result;
        Model.Calctype > 3 ? Imported_Run(result) : Calc_Setup(Model.Calctype, result);
        EXPECT_EQ(Motion(), shown);
    }
    /// The synthesis of two positions with the values that stand there, left by this button.
    void Then_Synthesis(const char* button) {
        Then("frm_Synth2A", [button](Screen& screen) {
            Press(screen, "cmd_Calc");
            Press(screen, button);
        });
        desktop.Expect_Message_With(" The resulting link lengths and coupler point location are:");
    }
    std::string Box(int index) const { return input.Text("txt_Linkout", index).Text; }
    static Single Shown(double length) { return FNRound(length * Shown_Factor(), Model.DecLengthShown); }
};

TEST_F(Doors, ASynthesisedLinkageShowsItsCircuitAndItsPivotAndADragKeepsBoth) {
    for (const int circuit : {1, 2}) {
        Model.CircuitIndex = circuit;
        At_Home([&] {
            Then_Synthesis("cmd_Done");
            Then("frm_Inputnew", [&](Screen& screen) {
                EXPECT_TRUE(input.opt_OpenCross[circuit - 1].Value);
                EXPECT_EQ(Single(Val(Box(15))), Shown(Model.Link1X));
                EXPECT_EQ(Single(Val(Box(16))), Shown(Model.Link1Y));
                Press(screen, "cmd_Animate");
            });
            Then("frm_Animate", [&](Screen& screen) {
                EXPECT_TRUE(animate.opt_OpenCross[circuit - 1].Value);
                const Single x = Model.Link1X, y = Model.Link1Y;
                animate.Picture1_MouseMove(1, 1, 0.3, Model.FlipSum - 0.4);
                EXPECT_EQ(Model.CircuitIndex, circuit);
                EXPECT_NEAR(Model.Link1X, x, 6e-4);
                EXPECT_NEAR(Model.Link1Y, y, 6e-4);
                Press(screen, "cmd_Done");
            });
            Pick_Menu(home, "mnu_Twopos1");
            Expect_Results_Of_The_Model();
        });
    }
}

TEST_F(Doors, ASynthesisedModelInCoordinatesKeepsItsGroundLinkThroughAFile) {
    const std::string file = Path("made.vlk");
    At_Home([&] {
        Then_Synthesis("cmd_Cancel");
        Pick_Menu(home, "mnu_Twopos1");
    });
    ASSERT_TRUE(Model.Synthesized);
    const Single L1 = Model.L1, x = Model.Link1X;
    Model.PolarCoords = false;
    const std::string content = File_Content();
    Screens::Discard();
    Reset_Model();
    Set_Identity();
    Initialize();
    Use_Units(1);
    Model.JustStarted = true;
    ASSERT_TRUE(Readfile(content, file));
    EXPECT_TRUE(Model.Synthesized);
    auto& again = The<frm_Inputnew>("frm_Inputnew");
    Then("frm_Inputnew", [&](Screen&) { EXPECT_EQ(Single(Val(again.txt_Linkout[15].Text.Get())), Shown(x)); });
    again.ShowModal();
    EXPECT_NEAR(Model.L1, L1, 6e-4);
    EXPECT_NEAR(Model.Link1X, x, 6e-4);
}

TEST_F(Doors, AnExampleBehindASynthesisIsTheExample) {
    At_Home([&] {
        Then_Synthesis("cmd_Cancel");
        Pick_Menu(home, "mnu_Twopos1");
        Then("frm_Inputnew", [&](Screen&) {
            EXPECT_FALSE(Model.Synthesized);
            EXPECT_TRUE(input.opt_OpenCross[1].Value);
            EXPECT_EQ(Box(15), "2");
        });
        Pick_Menu(home, "mnu_Cheby");
        EXPECT_EQ(Model.CircuitSign, 1);
        Then_Synthesis("cmd_Cancel");
        Pick_Menu(home, "mnu_Twopos1");
        Then("frm_Inputnew", [&](Screen&) {
            EXPECT_TRUE(input.opt_OpenCross[0].Value);
            EXPECT_EQ(Box(15), "2");
            EXPECT_EQ(Box(16), "0");
        });
        Pick_Menu(home, "mnu_Hoekens");
        EXPECT_EQ(Model.Link1X, 2);
        EXPECT_EQ(Model.Link1Y, 0);
    });
}

TEST_F(Doors, AnExampleInMillimetresShowsInchesWithTheirNumbers) {
    At_Home([&] {
        Then("frm_Inputnew", [](Screen&) {});
        Pick_Menu(home, "mnu_pick", 5);
        Then("frm_Inputnew", [&](Screen&) {
            EXPECT_EQ(input.lbl_Units[1].Caption, "in");
            EXPECT_EQ(Box(1), "1.25");
        });
        Pick_Menu(home, "mnu_Watts");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 1.25 * std::cos(-40 * kDegToRad), 1e-6);
        Expect_Results_Of_The_Model();
    });
}

TEST_F(Doors, CognatesAreConvertedWithTheUnits) {
    At_Home([&] {
        Calculate_At_Input();
        const Single L2 = Model.L2, L1 = Model.L1;
        input.chk_autocalc.Value = false;  // the others do not close over the whole range
        Then("frm_Inputnew", [](Screen&) {});
        Pick_Menu(home, "mnu_Cog", 2);
        Then("frm_Inputnew", [](Screen& screen) { Pick_Menu(screen, "mnu_Cog", 1); });
        Pick_Menu(home, "mnu_pick", 5);
        EXPECT_NEAR(Model.L2, L2 * 0.0254, 6e-5) << "metres, to the decimals of the system";
        EXPECT_NEAR(Model.L1, L1 * 0.0254, 6e-5);
        EXPECT_EQ(Model.CognateNumber, 1);
    });
}

TEST_F(Doors, CognatesFollowAnImportedLinkage) {
    const std::string file = Path("cam.sva");
    Write_File(file, CamFile{}.Content());
    At_Home([&] {
        Calculate_At_Input();
        desktop.Expect_Open(file);
        desktop.Expect_Message("File " + file + " of Lobetra S-V-A data successfully read.");
        Then("frm_Inputnew", [](Screen& screen) { Press(screen, "cmd_Calc"); });
        Pick_Menu(home, "mnu_Lobetra");
        Then("frm_Inputnew", [](Screen&) {});
        Pick_Menu(home, "mnu_Cog", 1);
        EXPECT_EQ(Model.L2, 1.25);
        EXPECT_EQ(Model.L1, 3.75);
        EXPECT_TRUE(Model.CamDriven);
    });
}

TEST_F(Doors, ASynthesisOverADrivenModelFromDiskIsRunByAngle) {
    Model.Calctype = 4;
    Model.CamDriven = Model.DiskFile = true;
    Model.NSteps = 3;
    At_Home([&] {
        Then_Synthesis("cmd_Cancel");
        Pick_Menu(home, "mnu_Twopos1");
        EXPECT_FALSE(Model.CamDriven);
        EXPECT_FALSE(Model.DiskFile);
        EXPECT_EQ(Model.Calctype, 3);
        EXPECT_NEAR(Model.Link1AngleRad, Model.Link1Angle * kDegToRad, 1e-6);
        EXPECT_NEAR(std::hypot(Model.Link1X, Model.Link1Y), Model.L1, 1e-5);
    });
}

TEST_F(Doors, APendingRecalculationLeavesNoResultsHoweverTheScreenIsLeft) {
    At_Home([&] {
        Calculate_At_Input();
        EXPECT_TRUE(Model.Calculated);
        Then("frm_Animate", [&](Screen& screen) {
            Enter(screen, "txt_Linkout", 1, "1.3");
            Then("frm_Help", [](Screen& help) { help.Hide(); });
            Pick_Menu(screen, "mnu_Help");
            EXPECT_FALSE(animate.cmd_Done.Enabled) << "as it was left";
            EXPECT_TRUE(animate.cmd_Recalc.Enabled);
            screen.Close();
        });
        Press(home, "cmd_Animate");
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(home.cmd_Plot.Enabled);
        EXPECT_EQ(Model.L2, Single(1.3));
        EXPECT_TRUE(home.Picture1.Visible) << "the linkage as it stands";
    });
}

TEST_F(Doors, AnEditWithAutocalcOffAndBackLeavesNoResults) {
    At_Home([&] {
        Calculate_At_Input();
        Then("frm_Inputnew", [&](Screen& screen) {
            Tick(screen, "chk_autocalc", false);
            Type(screen, "txt_Linkout", 2, "2.6");
            Press(screen, "cmd_Cancel");
        });
        Press(home, "cmd_Input");
        EXPECT_EQ(Model.L3, Single(2.6));
        EXPECT_FALSE(Model.Calculated);
        // Looking without an edit costs nothing.
        Then("frm_Inputnew", [&](Screen& screen) { Press(screen, "cmd_Calc"); });
        Press(home, "cmd_Input");
        EXPECT_TRUE(Model.Calculated);
        Forces_Hold();
        Then("frm_Inputnew", [&](Screen& screen) { Press(screen, "cmd_Cancel"); });
        Press(home, "cmd_Input");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Model.DynamicsDone);
    });
}

TEST_F(Doors, AnotherCalculationModeAndBackLeavesNoResults) {
    At_Home([&] {
        Calculate_At_Input();
        Then("frm_Inputnew", [&](Screen& screen) {
            Choose_Option(screen, "opt_Calctype", 2);
            Press(screen, "cmd_Cancel");
        });
        Press(home, "cmd_Input");
        EXPECT_EQ(Model.Calctype, 2);
        EXPECT_FALSE(Model.Calculated);
    });
}

TEST_F(Doors, ARunOfLengthsThatCannotCloseLeavesNoResultsOnEitherScreen) {
    At_Home([&] {
        Calculate_At_Input();
        Then("frm_Animate", [&](Screen& screen) {
            Enter(screen, "txt_Linkout", 1, "20");
            desktop.Expect_Message_With("Your link lengths are incompatible");
            Press(screen, "cmd_Recalc");
        });
        Press(home, "cmd_Animate");
        EXPECT_FALSE(Model.Calculated);
        desktop.Expect_Message_With("Your link lengths are incompatible");
        Then("frm_Inputnew", [&](Screen& screen) {
            desktop.Expect_Message_With("Your link lengths are incompatible");
            Press(screen, "cmd_Calc");
        });
        Press(home, "cmd_Input");
        EXPECT_FALSE(Model.Calculated);
    });
}

TEST_F(Doors, AnOpenedModelIsShownAtHomeCalculatedOrNot) {
    const std::string file = std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk";
    input.chk_autocalc.Value = false;
    At_Home([&] {
        desktop.Expect_Open(file);
        desktop.Expect_Message("File " + file + " successfully read.", Answer::kOk, Icon::kInformation);
        Then("frm_Inputnew", [](Screen& screen) { Press(screen, "cmd_Cancel"); });
        Pick_Menu(home, "mnu_Open");
        EXPECT_TRUE(home.Picture1.Visible);
        EXPECT_FALSE(Model.Calculated);
        Then("frm_Inputnew", [](Screen& screen) {
            Press(screen, "cmd_Calc");
            Press(screen, "cmd_Animate");
        });
        Then("frm_Animate", [](Screen& screen) { Press(screen, "cmd_Done"); });
        Press(home, "cmd_Input");
        EXPECT_TRUE(home.Picture1.Visible);
        for (const auto* way : {&home.cmd_Animate, &home.cmd_Plot, &home.cmd_Print, &home.cmd_Dynamics})
            EXPECT_TRUE(way->Enabled);
    });
}

TEST_F(Doors, AnOpenedModelThatIsSeenOnTheInputScreenCountsWithNext) {
    const std::string file = std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk";
    At_Home([&] {
        desktop.Expect_Open(file);
        desktop.Expect_Message("File " + file + " successfully read.", Answer::kOk, Icon::kInformation);
        Then("frm_Inputnew", [](Screen& screen) { Press(screen, "cmd_Done"); });
        Then("frm_Animate", [](Screen& screen) { Press(screen, "cmd_Done"); });
        Pick_Menu(home, "mnu_Open");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(home.cmd_Plot.Enabled);
        EXPECT_TRUE(home.Picture1.Visible);
        Expect_Results_Of_The_Model();
    });
}

TEST_F(Doors, HelpFromTheInputScreenLeavesPictureSpeedTitleAndCountOfDesigns) {
    At_Home([&] {
        Then("frm_Inputnew", [&](Screen& screen) {
            Enter(screen, "txt_Linkout", 1, "1.2");
            Type(screen, "txt_initial", 3, "12");
            Type(screen, "txt_Figure", kNoIndex, "My press");
            Type(screen, "txt_Linkout", 2, "2.7");
            const auto drawn = input.Picture1.Drawing().Alive();
            Pick_Menu(screen, "mnu_Linkage");
            EXPECT_EQ(input.Picture1.Drawing().Alive(), drawn);
            EXPECT_GT(drawn, 0U);
            EXPECT_EQ(input.txt_initial[3].Text, "12");
            EXPECT_EQ(input.txt_Figure.Text, "My press");
            EXPECT_EQ(Box(2), "2.7");
            EXPECT_TRUE(Model.LinkEdited);
            EXPECT_TRUE(Model.Calculated);
            Press(screen, "cmd_Done");
        });
        Then("frm_Help", [](Screen& help) { help.Hide(); });
        Then("frm_Animate", [](Screen&) {});
        Press(home, "cmd_Input");
        EXPECT_EQ(Model.FigureTitle, "My press");
        EXPECT_EQ(Model.Omega2Input, 12);
        EXPECT_EQ(Model.L3, Single(2.7));
        EXPECT_EQ(Model.DesignNumber, 2);
    });
}

TEST_F(Doors, ACognateFromTheDiagramIsShownOnTheInputScreen) {
    At_Home([&] {
        Then("frm_Inputnew", [&](Screen& screen) {
            Press(screen, "cmd_Calc");
            Then("frm_Cayley", [](Screen& diagram) {
                Choose_Option(diagram, "opt_Cognate", 1);
                Press(diagram, "cmd_Done");
            });
            Pick_Menu(screen, "mnu_Cayley");
            EXPECT_EQ(Model.CognateNumber, 2);
            EXPECT_EQ(Single(Val(Box(1))), Shown(Model.L2));
            EXPECT_FALSE(input.cmd_Done.Enabled) << "there is no run of it yet";
        });
        Press(home, "cmd_Input");
        EXPECT_FALSE(Model.Calculated);
    });
}

TEST_F(Doors, NewEmptiesTheTitleAndDoesNotTakeItBackFromTheBox) {
    At_Home([&] {
        Then("frm_Inputnew", [](Screen& screen) {
            Type(screen, "txt_Figure", kNoIndex, "An old one");
            Press(screen, "cmd_Cancel");
        });
        Press(home, "cmd_Input");
        EXPECT_EQ(Model.FigureTitle, "An old one");
        desktop.Expect_Message_With("The current data has not been saved.", Answer::kNo);
        desktop.Expect_Message_With("Please confirm your order", Answer::kOk);
        Pick_Menu(home, "mnu_New");
        EXPECT_EQ(Model.FigureTitle, "");
        Calculate_At_Input();
        EXPECT_EQ(Model.FigureTitle, "");
    });
}

TEST_F(Doors, ThePhaseOfADrivingLinkageFromDiskIsUsedAsItIsTyped) {
    const std::string file = std::string(VERLINK_SAMPLES) + "/second_stage.vlk";
    At_Home([&] {
        desktop.Expect_Open(file);
        desktop.Expect_Message("File " + file + " successfully read.", Answer::kOk, Icon::kInformation);
        Then("frm_Inputnew", [&](Screen& screen) {
            const double before = Model.RunTable.Theta(0, 0);
            const Single L2 = Model.L2;
            Enter(screen, "txt_initial", 4, Text_Of(Single(Model.Delta2 + 5)));
            EXPECT_NEAR(Model.RunTable.Theta(0, 0), before + 5, 1e-3);
            EXPECT_EQ(Model.L2, L2);
            Enter(screen, "txt_Linkout", 1, Text_Of(Single(Val(Box(1)) * 0.9)));
            EXPECT_NEAR(Model.L2, L2 * 0.9, 1e-5);
            EXPECT_TRUE(Model.Calculated);
        });
        Pick_Menu(home, "mnu_Open");
        Expect_Results_Of_The_Model();
    });
}

}  // namespace
}  // namespace verlink::test
