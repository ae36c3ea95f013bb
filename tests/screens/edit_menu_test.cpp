// What the screens say of the model in hand, and what a menu of files does with a text that is still being typed.
#include "screens/edit_menu.h"

#include <cmath>

#include "core/results.h"
#include "files/in_hand.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

class ModelInHand : public InputScreen {
   protected:
    std::string Told() {
        Show_What_Is_Done();
        return input.Get<Label>("lbl_Model").Caption;
    }
    std::string Tip() { return input.Get<Label>("lbl_Model").Tip; }
};

TEST_F(ModelInHand, IsToldByNameFileAndWhetherItIsModified) {
    Model.ModelName = "press";
    Model_Came();
    EXPECT_EQ(Told(), "press   -   Save asks where to   -   not modified");
    EXPECT_EQ(Tip(), "press: it lies in no file as it stands, and Save asks where to put it");
    EXPECT_EQ(Name_In_Hand(), "press");
    Model.FilePath = "/models/of/a/press.vlk";
    Model_Saved();
    EXPECT_EQ(Told(), "press   -   press.vlk   -   not modified");
    EXPECT_EQ(Tip(), "press: Save writes it to /models/of/a/press.vlk");
    Model.LinkMass(2) = 9;
    EXPECT_EQ(Told(), "press   -   press.vlk   -   modified");
    EXPECT_EQ(Name_In_Hand(), "press*");
}

TEST_F(ModelInHand, IsToldByTheBeginningOfALongNameWithNoLetterCutInTwo) {
    const auto name_told = [&](const std::string& name) {
        Model.ModelName = name;
        const std::string told = Told();
        return told.substr(0, told.find("   -   "));
    };
    const std::string twenty_four = "abcdefghijklmnopqrstuvwx";
    EXPECT_EQ(name_told(twenty_four), twenty_four);
    EXPECT_EQ(name_told(twenty_four + "y"), "abcdefghijklmnopqrstu...");
    std::string two_bytes, ten;
    for (int i = 0; i < 13; ++i) two_bytes += "\xc3\xa4";
    for (int i = 0; i < 10; ++i) ten += "\xc3\xa4";
    EXPECT_EQ(name_told(two_bytes), ten + "...");
    Model.FilePath = "/models/" + twenty_four + "y.vlk";
    Model_Saved();
    EXPECT_NE(Told().find("   -   abcdefghijklmnopqrstu...   -   "), std::string::npos) << Told();
}

TEST_F(ModelInHand, IsInTheTitlesOfTheScreensThatAreAboutIt) {
    for (const char* name : {"frm_Title", "frm_User", "frm_About", "frm_Help", "frm_Quit"})
        EXPECT_FALSE(Tells_Of_The_Model(Screens::Get(name))) << name;
    for (const char* name : {"frm_HomeScreen", "frm_Inputnew", "frm_Animate", "frm_Plot1", "frm_Checks"})
        EXPECT_TRUE(Tells_Of_The_Model(Screens::Get(name))) << name;
}

TEST_F(ModelInHand, ChangesATitleWhenItsNameOrItsMarkIsAnother) {
    Model_Came();
    Show_What_Is_Done();
    int painted = 0;
    input.ShapeWatcher() = [&painted] { ++painted; };
    Show_What_Is_Done();
    EXPECT_EQ(painted, 0);
    Model.LinkMass(2) = 9;
    Show_What_Is_Done();
    EXPECT_EQ(painted, 1);
    Model.ModelName = "another";
    Show_What_Is_Done();
    EXPECT_EQ(painted, 2);
    input.ShapeWatcher() = nullptr;
}

class BeingTyped : public InputScreen {
   protected:
    /// A length is being typed into a model that was not modified.
    void With_A_Length(const std::function<void()>& user) {
        Set_Identity();
        Show([&] {
            Model_Came();
            Type(input, "txt_Linkout", 1, "1.4");
            user();
        });
        EXPECT_EQ(Model.L2, Single(1.4));
    }
    void Expect_Asked(Answer answer) { desktop.Expect_Message_With("The current data has not been saved", answer); }
};

TEST_F(BeingTyped, IsPartOfTheModelForNew) {
    With_A_Length([&] {
        Expect_Asked(Answer::kNo);
        desktop.Expect_Message_With("confirm", Answer::kCancel);
        EXPECT_TRUE(input.Press_Keys("Ctrl+N"));
    });
}

TEST_F(BeingTyped, IsPartOfTheModelForOpen) {
    With_A_Length([&] {
        Expect_Asked(Answer::kNo);
        desktop.Expect_Open({});
        EXPECT_TRUE(input.Press_Keys("Ctrl+O"));
    });
}

TEST_F(BeingTyped, IsPartOfTheModelForSaveAs) {
    With_A_Length([&] {
        desktop.Expect_Save({});
        EXPECT_TRUE(input.Press_Keys("Ctrl+Shift+S"));
        EXPECT_EQ(Model.L2, Single(1.4));
    });
}

TEST_F(BeingTyped, IsPartOfTheModelForQuit) {
    With_A_Length([&] {
        desktop.Expect_Save({});
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
        EXPECT_TRUE(input.Press_Keys("Ctrl+Q"));
    });
}

TEST_F(InputScreen, ADragMakesTheRunAnewAndLeavesTheWaysOnOpen) {
    Show([&] {
        Calculate_Now();
        const double angle = Model.RunTable.Theta(input.hsc_step.Value(), 0) * M_PI / 180;
        const auto touch = [&](double radius) {
            return Touch{radius * std::cos(angle), Model.FlipSum - radius * std::sin(angle), 0, 0.01};
        };
        ASSERT_TRUE(input.Picture1.OnSeize(touch(Model.L2)));
        input.Picture1.OnDrag(touch(0.9));
        EXPECT_NEAR(Model.L2, 0.9, 0.01);
        EXPECT_TRUE(Model.RunStands);
        for (int step = 0; step <= Model.NSteps; ++step)
            EXPECT_NEAR(std::hypot(Model.RunTable.PointXY(step, 0, 0), Model.RunTable.PointXY(step, 0, 1)), Model.L2,
                        1e-5);
        Expect_Ways_On(true, true);
        EXPECT_EQ(input.hsc_step.Max(), Model.NSteps);
        input.Picture1.OnRelease();
    });
}

/// What makes one run another.
TEST_F(InputScreen, ForcesFallWhereTheRunThatIsMadeAnewDiffersInOneNumber) {
    const std::function<void(int)> changes[] = {
        [](int step) { Model.RunTable.Assembled(step) = !Model.RunTable.Assembled(step); },
        [](int step) { Model.RunTable.Theta(step, 0) = Model.RunTable.Theta(step, 0) + 1; },
        [](int step) { Model.RunTable.Theta(step, 2) = Model.RunTable.Theta(step, 2) + 1; },
        [](int step) { Model.RunTable.Omega(step, 1) = Model.RunTable.Omega(step, 1) + 1; },
        [](int step) { Model.RunTable.Omega(step, 2) = Model.RunTable.Omega(step, 2) + 1; },
        [](int step) { Model.RunTable.Alpha(step, 1) = Model.RunTable.Alpha(step, 1) + 1; },
        [](int step) { Model.RunTable.PointXY(step, 2, 0) = Model.RunTable.PointXY(step, 2, 0) + 1; },
        [](int step) { Model.RunTable.PointXY(step, 2, 1) = Model.RunTable.PointXY(step, 2, 1) + 1; },
        [](int step) { Model.RunTable.PointXY(step, 0, 1) = Model.RunTable.PointXY(step, 0, 1) + 1; }};
    for (const auto& change : changes)
        for (const bool last : {false, true}) {
            Show([&] { Calculate_Now(); });
            Forces_Hold();
            Show([&] { EXPECT_TRUE(Model.DynamicsDone); });
            change(last ? int{Model.NSteps} : 0);
            Show([&] { EXPECT_FALSE(Model.DynamicsDone) << (&change - changes) << last; });
        }
}

}  // namespace
}  // namespace verlink::test
