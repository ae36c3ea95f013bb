// The whole road of a user's first session: start, name, home, input, animate, save, open, quit.
#include <cmath>
#include <filesystem>
#include <fstream>

#include "core/linkage_model.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;

class Road : public Fixture {
   public:
    std::string Box(const char* name, int index) { return Screens::Get("frm_Inputnew").Text(name, index).Text; }
    bool Flag_Shown(int index) { return Screens::Get("frm_HomeScreen").Get<Label>("lbl_Status", index).Visible; }
    bool Way(const char* screen, const char* button) { return Screens::Get(screen).Get<CommandButton>(button).Enabled; }
    static std::string First_Line(const std::string& path) {
        std::ifstream file(path);
        std::string line;
        std::getline(file, line);
        if (line.ends_with('\r')) line.pop_back();
        return line;
    }

    // What the user does at each screen, in the order of the road.

    void Title(Screen& title) { Press(title, "cmd_Start"); }

    void Name(Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "A designer");
        Press(user, "cmd_Done");
    }

    void Home(Screen& home) {
        EXPECT_FALSE(Flag_Shown(0));
        EXPECT_FALSE(Way("frm_HomeScreen", "cmd_Animate"));
        Press(home, "cmd_Input");

        EXPECT_TRUE(Flag_Shown(0));
        EXPECT_EQ(home.Get<Label>("lbl_Status", 0).Caption, "Calculated");
        EXPECT_TRUE(Way("frm_HomeScreen", "cmd_Animate"));
        Pick_Menu(home, "mnu_Save");
        EXPECT_TRUE(Flag_Shown(8));

        Pick_Menu(home, "mnu_Open");
        EXPECT_EQ(Model.ModelName, "press");
        EXPECT_TRUE(Flag_Shown(0));
        EXPECT_EQ(home.Get<Label>("lbl_Status", 0).Caption, "DiskFile");
        EXPECT_FALSE(Flag_Shown(8));

        Pick_Menu(home, "mnu_Save");
        Press(home, "cmd_Quit");
    }

    void Input(Screen& input) {
        EXPECT_EQ(Box("txt_Linkout", 1), "1.115");
        Type(input, "txt_Linkout", 1, "1.25");
        Type(input, "txt_initial", 0, "0");  // leaving the link's box calculates
        EXPECT_EQ(Model.L2, 1.25);
        EXPECT_EQ(Model.LinkArray(2), 1.25);
        EXPECT_TRUE(Model.LinkEdited);
        EXPECT_TRUE(Model.Calculated);
        Type(input, "txt_initial", 1, "360");
        Type(input, "txt_initial", 2, "5");
        Press(input, "cmd_Calc");
        Expect_Closed_Run(1.25, 0, 5, 72);
        input.Text("txt_Figure").Type("A press");
        Press(input, "cmd_Done");
    }

    void Play(Screen& animate) {
        EXPECT_EQ(Model.DesignNumber, 2);
        EXPECT_EQ(animate.Text("txt_Linkout", 1).Text, "1.25");
        animate.Get<Timer>("Timer1").Tick();
        EXPECT_EQ(animate.Get<Label>("lbl_StepNumber").Caption, "0.0");
        Press(animate, "cmd_Animate");
        EXPECT_EQ(desktop.Pauses.size(), 73u);
        for (const auto pause : desktop.Pauses) EXPECT_EQ(pause, std::chrono::microseconds(16383));
        Press(animate, "cmd_Done");
    }

    void Input_Again(Screen& input) {
        EXPECT_TRUE(Model.DiskFile);
        EXPECT_EQ(Box("txt_Linkout", 1), "1.25");
        EXPECT_EQ(Box("txt_initial", 1), "360");
        EXPECT_EQ(input.Text("txt_Figure").Text, "A press");
        EXPECT_EQ(Model.UserName, "A designer");
        EXPECT_EQ(Model.DesignNumber, 2);
        Expect_Closed_Run(1.25, 0, 5, 72);
        Press(input, "cmd_Calc");
        Press(input, "cmd_Cancel");
    }

    /// Every step stands at its angle, and the lengths between its points are those of the linkage.
    void Expect_Closed_Run(double crank, double start, double step_angle, int steps) {
        ASSERT_EQ(Model.NSteps, steps);
        const auto& xy = Model.RunTable.PointXY;
        for (int step = 0; step <= steps; ++step) {
            const double theta = (start + step_angle * step) * M_PI / 180;
            ASSERT_TRUE(Model.RunTable.Assembled(step));
            ASSERT_NEAR(xy(step, 0, 0), crank * std::cos(theta), 3e-6);
            ASSERT_NEAR(xy(step, 0, 1), crank * std::sin(theta), 3e-6);
            ASSERT_NEAR(std::hypot(xy(step, 1, 0) - xy(step, 0, 0), xy(step, 1, 1) - xy(step, 0, 1)), 2.5, 3e-6);
            ASSERT_NEAR(std::hypot(xy(step, 1, 0) - 2.667, xy(step, 1, 1)), 2.5, 3e-6);
        }
    }
};

TEST_F(Road, FromTheStartToAMovingLinkageIntoAFileAndBack) {
    const std::string folder = desktop.Documents + "/VERLINK/";
    const std::string file = Path("press.vlk");
    const auto at = [this](void (Road::*act)(Screen&)) {
        return [this, act](Screen& screen) { (this->*act)(screen); };
    };
    desktop.Expect_Screen("frm_Title", at(&Road::Title))
        .Expect_Screen("frm_User", at(&Road::Name))
        .Expect_Message("Your default path for saved files is: " + folder, Answer::kOk, Icon::kInformation)
        .Expect_Screen("frm_HomeScreen", at(&Road::Home))
        .Expect_Screen("frm_Inputnew", at(&Road::Input))
        .Expect_Screen("frm_Animate", at(&Road::Play))
        .Expect_Save(file)
        .Expect_Message("File was successfully written to \r" + file, Answer::kOk, Icon::kInformation)
        .Expect_Open(file)
        .Expect_Message("File " + file + " successfully read.", Answer::kOk, Icon::kInformation)
        .Expect_Screen("frm_Inputnew", at(&Road::Input_Again))
        .Expect_Save(file)
        .Expect_Message("File was successfully written to \r" + file)
        .Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(desktop.Ending());
    EXPECT_EQ(First_Line(folder + "Run_Check.txt"), "\"Normal Exit\"");
    EXPECT_EQ(First_Line(file), "\"VERLINK\"");
    ASSERT_EQ(desktop.Dialogs.size(), 3u);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Model_1.vlk");
    EXPECT_EQ(desktop.Dialogs[2].file_name, "press.vlk");
}

TEST_F(Road, AModelNamedOnTheCommandLineIsThereWhenTheInputScreenComesUp) {
    Screens::Get("frm_HomeScreen");
    const std::string file = Path("press.vlk");
    {
        const auto leave = [](Screen& screen) { Press(screen, "cmd_Start"); };
        desktop.Expect_Screen("frm_Title", leave)
            .Expect_Screen("frm_User", [this](Screen& user) { Name(user); })
            .Expect_Message_With("Your default path for saved files is: ")
            .Expect_Screen("frm_HomeScreen",
                           [](Screen& home) {
                               Press(home, "cmd_Input");
                               Pick_Menu(home, "mnu_Save");
                               home.Hide();
                           })
            .Expect_Screen("frm_Inputnew",
                           [](Screen& input) {
                               Enter(input, "txt_Linkout", 1, "1.25");
                               Press(input, "cmd_Cancel");
                           })
            .Expect_Save(file)
            .Expect_Message_With("File was successfully written to ");
        Sub_Main("");
        desktop.Verify();
    }
    Terminate();
    ASSERT_TRUE(std::filesystem::exists(file));

    Screens::Discard();
    Reset_Model();
    Use_Desktop(nullptr);
    ScriptedDesktop second;
    second.Documents = desktop.Documents;
    second.Expect_Screen("frm_Title", [](Screen& title) { Press(title, "cmd_Start"); })
        .Expect_Screen("frm_User", [this](Screen& user) { Name(user); })
        .Expect_Message_With("Your default path for saved files is: ")
        .Expect_Screen("frm_HomeScreen",
                       [](Screen& home) {
                           Press(home, "cmd_Input");
                           home.Hide();
                       })
        .Expect_Screen("frm_Inputnew", [this](Screen& input) {
            EXPECT_EQ(Box("txt_Linkout", 1), "1.25");
            EXPECT_EQ(Model.L2, 1.25);
            Press(input, "cmd_Cancel");
        });
    Sub_Main(file);
    second.Verify();
    Screens::Discard();
}

}  // namespace
}  // namespace verlink::test
