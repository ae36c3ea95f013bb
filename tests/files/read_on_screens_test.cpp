// What a model that is read changes on the screens, and what is said of it.
#include "core/linkage_door.h"
#include "core/model_on_screens.h"
#include "core/results.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"

namespace verlink::test {

using platform::Answer;
using platform::Icon;
using platform::Pointer;
using platform::Screens;

class ReadOnScreens : public ModelFiles {};

TEST_F(ReadOnScreens, TheInputScreenIsFilled) {
    Model.JustStarted = true;
    auto content = With_Line(With_Line(Held(Fixture_File("rev9.vlk")), 44, "3"), 11, "1234.5678");
    Readfile(content);
    auto& input = Screens::Get("frm_Inputnew");
    const auto box = [&](const char* name, int index) { return input.Text(name, index).Text.Get(); };
    EXPECT_EQ(box("txt_Linkout", 0), "1,234.568");
    EXPECT_EQ(box("txt_Linkout", 1), "8.250");
    EXPECT_EQ(box("txt_Linkout", 2), "9.250");
    EXPECT_EQ(box("txt_Linkout", 3), "10.250");
    EXPECT_EQ(box("txt_Linkout", 4), "12.250");
    EXPECT_EQ(box("txt_Linkout", 5), "13.25");
    EXPECT_EQ(box("txt_Linkout", 6), "82.25");
    EXPECT_EQ(box("txt_initial", 0), "10");
    EXPECT_EQ(box("txt_initial", 1), "100");
    EXPECT_EQ(box("txt_initial", 2), "7.5");
    EXPECT_EQ(box("txt_initial", 3), "38.25");
    EXPECT_EQ(box("txt_initial", 4), "39.25");
    EXPECT_EQ(box("txt_Thetazero", platform::kNoIndex), "37.25");
    EXPECT_TRUE(input.Get<platform::OptionButton>("opt_Calctype", 3).Value);
    EXPECT_TRUE(input.Get<platform::OptionButton>("opt_OpenCross", 1).Value);
    Readfile(With_Line(content, 43, "1"));
    EXPECT_TRUE(input.Get<platform::OptionButton>("opt_OpenCross", 0).Value);
    EXPECT_FALSE(input.Get<platform::OptionButton>("opt_OpenCross", 1).Value);
}

TEST_F(ReadOnScreens, FillingTheScreenChangesNoValueOfTheFile) {
    // Lengths with more digits than their boxes show, a ground link that is not horizontal, a negative speed.
    Take_Full_Turn();
    Model.L2 = 1.115555;
    Model.Rpa = 1.697777;
    Model.Link1Angle = 30.12345;
    Model.Link1AngleRad = 30.12345 * kDegToRad;
    Model.Link1X = 2.306888;
    Model.Link1Y = 1.338444;
    Model.Omega2Input = -7.5;
    Model.CircuitIndex = 2;
    Model.Calctype = 3;
    const std::string content = File_Content();
    Model.CircuitIndex = 1;
    Model.Calctype = 1;
    Model.JustStarted = true;
    Screens::Get("frm_Inputnew").Get<platform::OptionButton>("opt_Calctype", 1).Value = true;
    Readfile(content);
    EXPECT_EQ(File_Content(), content);
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(ReadOnScreens, TheUnitsMenuIsMarked) {
    Model.JustStarted = true;
    Readfile(Held(Fixture_File("rev9.vlk")));
    auto& home = Screens::Get("frm_HomeScreen");
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(home.Get<platform::MenuEntry>("mnu_pick", i).Checked.Get(), i == 3) << i;
}

TEST_F(ReadOnScreens, ReadingSaysSoAndShowsTheInputScreen) {
    Model.FilePath = "/models/press.vlk";
    Expect_Read("/models/press.vlk");
    desktop.Set_Pointer(Pointer::kHourglass);
    Readfile(Held(Fixture_File("rev9.vlk")));
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(ReadOnScreens, TheRunTypeOfTheFileIsChosen) {
    Model.JustStarted = true;
    auto& input = Screens::Get("frm_Inputnew");
    for (const int type : {2, 1, 3, 1}) {
        Readfile(With_Line(Held(Fixture_File("rev9.vlk")), 44, std::to_string(type)));
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(input.Get<platform::OptionButton>("opt_Calctype", other).Value.Get(), other == type) << type;
    }
}

TEST_F(ReadOnScreens, MenusAndPointerAreThoseOfAModelThatIsThereAndNotCalculatedAlsoInSilence) {
    Model.JustStarted = true;
    Run_Holds();
    Set_Menus();
    auto& home = Screens::Get("frm_HomeScreen");
    ASSERT_TRUE(home.Get<platform::MenuEntry>("mnu_Save").Enabled);
    desktop.Set_Pointer(Pointer::kHourglass);
    Readfile(Held(Fixture_File("rev9.vlk")));
    EXPECT_FALSE(home.Get<platform::MenuEntry>("mnu_Save").Enabled);
    EXPECT_TRUE(home.Get<platform::MenuEntry>("mnu_New").Enabled);
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(ReadOnScreens, ThePanelShowsNoMoreOfTheRunBefore) {
    Model.JustStarted = true;
    Run_Holds();
    Model_Saved();
    Refresh_Status();
    auto& saved = Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 8);
    saved.Visible = true;
    Readfile(Held(Fixture_File("rev9.vlk")));
    EXPECT_FALSE(saved.Visible);
}

TEST_F(ReadOnScreens, WhileTheProgramStartsAModelIsReadInSilence) {
    Model.JustStarted = true;
    Readfile(Held(Fixture_File("rev9.vlk")));
    EXPECT_EQ(Model.L2, 8.25);
}

}  // namespace verlink::test
