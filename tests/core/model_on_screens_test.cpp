// The status panel, the enabling of menus and buttons, the header of printed screens, and the captions of screens.
#include "core/model_on_screens.h"

#include <map>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::CommandButton;
using platform::Label;
using platform::MenuEntry;
using platform::Screen;
using platform::Screens;

class ModelOnScreensTest : public Fixture {
   protected:
    Screen& home = Screens::Get("frm_HomeScreen");
    /// The captions of the labels 0 to 8 that are shown, joined by commas.
    std::string Shown() {
        std::string all;
        for (int i = 0; i <= 8; ++i) {
            auto& label = home.Get<Label>("lbl_Status", i);
            if (label.Visible) all += (all.empty() ? "" : ",") + label.Caption.Get();
        }
        return all;
    }
    std::string Caption(int i) { return home.Get<Label>("lbl_Status", i).Caption; }
    bool On(const std::string& name, int index = platform::kNoIndex) {
        if (auto* button = home.FindAs<CommandButton>(name, index)) return button->Enabled;
        return home.Get<MenuEntry>(name, index).Enabled;
    }
};

TEST_F(ModelOnScreensTest, BeforeTheFirstCalculationThePanelShowsOnlyTheUnits) {
    Forces_Hold();
    Balance_Holds();
    Transform_Holds();
    Model_Saved();
    Model.LinkDriven = Model.CamDriven = Model.Synthesized = Model.DiskFile = true;
    Refresh_Status();
    EXPECT_EQ(Shown(), "");
    EXPECT_TRUE(home.Get<Label>("lbl_Status", 9).Visible);
    EXPECT_EQ(Caption(9), "Units are:");
    EXPECT_TRUE(home.Get<Label>("lbl_Status", 10).Visible);
    EXPECT_EQ(Caption(10), "in-lb-bl-s");
}

TEST_F(ModelOnScreensTest, ACalculatedModelShowsCalculatedAndItsCognate) {
    Run_Holds();
    Model.CognateNumber = 2;
    Refresh_Status();
    EXPECT_EQ(Shown(), "Calculated,Cognate 2");
}

TEST_F(ModelOnScreensTest, ANewModelIsOfferedOnceThereIsAnyOther) {
    Run_Dropped();
    Model.DiskFile = Model.CamDriven = Model.LinkDriven = false;
    Set_Menus();
    EXPECT_FALSE(On("mnu_New"));
    for (bool* flag : {&Model.DiskFile, &Model.CamDriven, &Model.LinkDriven}) {
        *flag = true;
        Set_Menus();
        EXPECT_TRUE(On("mnu_New"));
        *flag = false;
    }
    Run_Holds();
    Set_Menus();
    EXPECT_TRUE(On("mnu_New"));
}

TEST_F(ModelOnScreensTest, AModelFromDiskShowsDiskFile) {
    Run_Holds();
    Model.DiskFile = true;
    Refresh_Status();
    EXPECT_EQ(Shown(), "DiskFile,Cognate 1");
}

TEST_F(ModelOnScreensTest, ImportedOverridesDiskFileAndCalculated) {
    Run_Holds();
    Model.DiskFile = true;
    Model.CamDriven = true;
    Refresh_Status();
    EXPECT_EQ(Shown(), "Imported,Cam Driven,Cognate 1");
    Model.CamDriven = false;
    Model.DiskFile = false;
    Model.LinkDriven = true;
    Refresh_Status();
    EXPECT_EQ(Shown(), "Imported,Link Driven,Cognate 1");
}

TEST_F(ModelOnScreensTest, EachFlagHasItsLabel) {
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Transform_Holds();
    Model_Saved();
    Model.LinkDriven = Model.CamDriven = Model.Synthesized = true;
    Refresh_Status();
    EXPECT_EQ(Shown(), "Imported,Link Driven,Cam Driven,Dynamics,Balanced,FFT Done,Synthesized,Cognate 1,Saved");
    for (int i = 1; i <= 6; ++i) EXPECT_TRUE(home.Get<Label>("lbl_Status", i).Visible) << i;
}

TEST_F(ModelOnScreensTest, TheUnitSystemsAreNamed) {
    const char* names[] = {"in-lb-bl-s", "ft-lb-sl-s", "m-kg-N-s", "cm-kg-N-s", "mm-kg-N-s"};
    for (int units = 1; units <= 5; ++units) {
        Model.Units = units;
        Refresh_Status();
        EXPECT_EQ(Caption(10), names[units - 1]);
    }
}

TEST_F(ModelOnScreensTest, BeforeTheFirstCalculationTheOutputButtonsAreOff) {
    Model.Calctype = 3;
    Set_Menus();
    for (const char* name : {"cmd_Animate", "cmd_Plot", "cmd_Print", "cmd_Dynamics", "cmd_Balance", "mnu_New",
                             "mnu_Save", "mnu_Saveas", "mnu_Export", "mnu_Cayley", "mnu_CalcFFT"})
        EXPECT_FALSE(On(name)) << name;
    for (int i = 1; i <= 3; ++i) EXPECT_FALSE(On("mnu_Cog", i));
    EXPECT_TRUE(On("mnu_Open"));
    EXPECT_TRUE(On("cmd_Input"));
    EXPECT_TRUE(On("cmd_Quit"));
    EXPECT_EQ(home.Get<CommandButton>("cmd_Animate").Tip.Get(), "Calculate a linkage on the input screen first");
}

TEST_F(ModelOnScreensTest, ACalculatedModelCanBeSavedAndAnimated) {
    Run_Holds();
    Model.Calctype = 3;
    Set_Menus();
    for (const char* name : {"cmd_Animate", "mnu_New", "mnu_Save", "mnu_Saveas", "mnu_Export"})
        EXPECT_TRUE(On(name)) << name;
}

TEST_F(ModelOnScreensTest, OnePositionCannotBeAnimated) {
    Run_Holds();
    Model.Calctype = 1;
    Set_Menus();
    EXPECT_FALSE(On("cmd_Animate"));
    EXPECT_EQ(home.Get<CommandButton>("cmd_Animate").Tip.Get(),
              "Calculate a range of positions on the input screen first");
}

TEST_F(ModelOnScreensTest, ButtonsAndEntriesThatLeadToNoScreenStayOff) {
    Run_Holds();
    Model.Calctype = 3;
    Set_Menus();
    const std::pair<const char*, const char*> ways[] = {
        {"cmd_Plot", "frm_PlotType"},   {"cmd_Print", "frm_PrintSelect"}, {"cmd_Dynamics", "frm_MassProp"},
        {"cmd_Balance", "frm_Balance"}, {"mnu_CalcFFT", "frm_FFT"},       {"mnu_Cayley", "frm_Cayley"}};
    for (const auto& [name, screen] : ways) EXPECT_EQ(On(name), Screens::Knows(screen)) << name;
}

TEST_F(ModelOnScreensTest, ButtonsComeOnWithTheScreensTheyLeadTo) {
    const char* screens[] = {"frm_PlotType", "frm_PrintSelect", "frm_MassProp", "frm_Balance", "frm_FFT", "frm_Cayley"};
    std::vector<std::string> added;
    for (const char* name : screens) {
        if (Screens::Knows(name)) continue;
        added.emplace_back(name);
        Screens::Register(name, [name] { return std::make_unique<Screen>(name); });
    }
    Run_Holds();
    Model.Calctype = 2;
    Set_Menus();
    for (const char* name : {"cmd_Plot", "cmd_Print", "cmd_Dynamics", "cmd_Balance", "mnu_CalcFFT", "mnu_Cayley"})
        EXPECT_TRUE(On(name)) << name;
    EXPECT_TRUE(On("mnu_Cog", 3));
    Model.Calctype = 1;
    Set_Menus();
    EXPECT_FALSE(On("mnu_CalcFFT"));
    for (const std::string& name : added) Screens::Register(name, nullptr);
}

TEST_F(ModelOnScreensTest, TheEntryOfTheUnitSystemIsMarkedAlone) {
    for (int units = 5; units >= 1; --units) {
        Integer marked = units;
        Check_mnu_Units(home, marked);
        for (int i = 1; i <= 5; ++i) EXPECT_EQ(home.Get<MenuEntry>("mnu_pick", i).Checked.Get(), i == units);
    }
}

TEST_F(ModelOnScreensTest, AUnitSystemBelow1IsSetTo1) {
    Integer units = -3;
    Check_mnu_Units(home, units);
    EXPECT_EQ(units, 1);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_pick", 1).Checked);
}

struct HeadedScreen : Screen {
    HeadedScreen() : Screen("frm_Headed") {}
    Label lbl_Header{*this, "lbl_Header"};
};

TEST_F(ModelOnScreensTest, TitleboxWithFilePathEmptyHasNoThirdLine) {
    HeadedScreen screen;
    Model.UserName = "Ada";
    Model.DesignNumber = 4;
    Model.DateStr = "1/2/2026";
    Model.TimeStr = "9:05:00";
    Model.ModelName = "press";
    Titlebox(screen);
    EXPECT_EQ(screen.lbl_Header.Caption.Get(), "Ada\r Design No. 4\r\n1/2/2026\r at 9:05:00");
}

TEST_F(ModelOnScreensTest, TitleboxNamesTheModelOnceItHasAPath) {
    HeadedScreen screen;
    Model.UserName = "Ada";
    Model.DesignNumber = 4;
    Model.DateStr = "1/2/2026";
    Model.TimeStr = "9:05:00";
    Model.ModelName = "press";
    Model.FilePath = "/home/ada/press.vlk";
    Titlebox(screen);
    EXPECT_EQ(screen.lbl_Header.Caption.Get(), "Ada\r Design No. 4\r\n1/2/2026\r at 9:05:00\r File: press");
    EXPECT_EQ(screen.lbl_Header.Tip.Get(),
              "The model's own name, design number, date and file, as they are saved with it");
}

TEST_F(ModelOnScreensTest, ScreensAreCaptionedWithTheBannerDirectlyBehindTheirWords) {
    Model.TitleSuffix = "BANNER";
    const std::map<std::string, std::vector<const char*>> titles = {
        {"Animation Screen", {"frm_Animate"}},
        {"Linkage Balancing", {"frm_Balance"}},
        {"Linkage Cognates", {"frm_Cayley"}},
        {"Fourier Transform", {"frm_FFT"}},
        {"Input Screen", {"frm_Inputnew"}},
        {"Dynamics Screen", {"frm_MassProp"}},
        {"Matrix Screen", {"frm_Matrix"}},
        {"Output Screen", {"frm_Plot1", "frm_Plot2", "frm_Plot3", "frm_Myplot2", "frm_MyPlot3", "frm_MyPlot4"}},
        {"Select Plot Data", {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4"}},
        {"Select Plot Type", {"frm_PlotType"}},
        {"Print Select", {"frm_PrintSelect"}},
        {"Two-Position Synthesis", {"frm_Synth2A", "frm_Synth2B"}},
        {"Three-Position Synthesis", {"frm_Synth3"}},
        {"", {"frm_PrintData", "frm_Title", "frm_User", "frm_HomeScreen", "frm_Quit", "frm_About", "frm_Help"}}};
    for (const auto& [words, names] : titles)
        for (const char* name : names) Screens::Get(name);
    Set_Screen_Titles();
    for (const auto& [words, names] : titles)
        for (const char* name : names) EXPECT_EQ(Screens::Get(name).Caption().Get(), words + "BANNER") << name;
}

}  // namespace
}  // namespace verlink::test
