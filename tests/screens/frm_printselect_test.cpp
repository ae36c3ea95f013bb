// The screen of tables: where a table goes, its steps and decimals.
#include "screens/frm_printselect.h"

#include <filesystem>

#include "files/model_file.h"
#include "tests/screens/plot_select_fixture.h"
#include "tests/support/files.h"

namespace verlink::test {
namespace {

using platform::Screen;
using platform::Screens;

class PrintSelectTest : public SelectionScreenTest {
   protected:
    frm_PrintSelect& form = Activated<frm_PrintSelect>("frm_PrintSelect");

    void Send(int target) {
        Choose_Option(form, "opt_Whereto", target);
        Press(form, "cmd_Done");
    }
    void Velocities() { Choose(form.cmb_Preset, Model.PresetList4(6)); }
};

}  // namespace

TEST_F(PrintSelectTest, TheControlsOfATableAreCaptionedAndFilled) {
    EXPECT_EQ(form.Caption().Get(), "Print Select");
    EXPECT_EQ(form.fra_Whereto.Caption.Get(), "Direct Output to:");
    EXPECT_EQ(form.opt_Whereto[0].Caption.Get(), "Screen");
    EXPECT_EQ(form.opt_Whereto[1].Caption.Get(), "Printer");
    EXPECT_EQ(form.opt_Whereto[2].Caption.Get(), "Disk File");
    EXPECT_EQ(form.fra_Step.Caption.Get(), "Print Every");
    EXPECT_EQ(form.fra_Decimal.Caption.Get(), "Decimal Plcs");
    EXPECT_EQ(form.cmb_Step.Items(), (std::vector<std::string>{"1", "2", "3", "5", "10"}));
    EXPECT_EQ(form.cmb_Decimal.Items(), (std::vector<std::string>{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(form.Get<platform::CommandButton>("cmd_Cancel").Caption.Get(), "< &Back");
}

TEST_F(PrintSelectTest, ActivationOpensPrinterAndDiskAndReloadsTheLists) {
    for (int target : {1, 2}) form.opt_Whereto[target].Enabled = false;
    Velocities();
    Balance_Dropped();
    Transform_Dropped();
    form.Form_Activate();
    for (int target : {1, 2}) EXPECT_TRUE(form.opt_Whereto[target].Enabled);
    EXPECT_EQ(form.cmb_Preset.Items().size(), 25u);
    EXPECT_EQ(Slot(form, 4).cmb_Var.Items().size(), 37u);
    EXPECT_FALSE(form.cmd_Done.Enabled);
    for (const auto& slot : form.Slots) EXPECT_EQ(slot->lbl_Function.Caption.Get(), "");
    EXPECT_TRUE(form.cmb_Preset.Enabled);
    Expect_Locked(form);
}

TEST_F(PrintSelectTest, InMixAndMatchASlotThatStillHasBothSelectionsIsTakenOverAgain) {
    Mix(form);
    Fill(form, 1, "Accel CP", "Ang");
    form.Form_Activate();
    Expect_Slot(form, 1, 16, "Ang");
    EXPECT_EQ(form.Focus(), &Slot(form, 2).cmb_Var);
    EXPECT_FALSE(form.cmb_Preset.Enabled);
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(PrintSelectTest, InMixAndMatchWhatCanNoLongerBeHadIsGoneWithItsComponent) {
    Mix(form);
    Slot(form, 2).cmb_Var.Text = "Current FFT";
    Slot(form, 2).cmb_Com.Text = "Mag";
    form.Form_Activate();
    EXPECT_EQ(Slot(form, 2).cmb_Var.Text, "");
    EXPECT_EQ(Slot(form, 2).cmb_Com.Text, "");
}

TEST_F(PrintSelectTest, InMixAndMatchAnEmptyFirstSlotGetsTheFocus) {
    Mix(form);
    form.cmd_Done.SetFocus();
    form.Form_Activate();
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmb_Var);
    EXPECT_TRUE(Slot(form, 1).cmb_Var.Enabled);
    EXPECT_TRUE(Slot(form, 1).cmd_Clear.Enabled);
    EXPECT_EQ(Slot(form, 1).lbl_Function.Caption.Get(), "");
    Choose(Slot(form, 1).cmb_Var, "Accel CP");
    Slot(form, 1).cmb_Com.Text = "";
    form.cmd_Done.SetFocus();
    form.Form_Activate();
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmb_Var) << "half a choice is none";
}

TEST_F(PrintSelectTest, AStepPickedIsTheStepOfTheTable) {
    int expected[] = {1, 2, 3, 5, 10};
    for (int item = 0; item < 5; ++item) {
        form.cmb_Step.Choose(item);
        EXPECT_EQ(Model.PrintStep, expected[item]);
    }
}

TEST_F(PrintSelectTest, ATransformForcesAStepOfOne) {
    form.cmb_Step.Choose(4);
    EXPECT_EQ(Model.PrintStep, 10);
    Choose(form.cmb_Preset, "Current FFT - Real, Imag, Mag, Phase");
    form.cmb_Step.Choose(3);
    EXPECT_EQ(Model.PrintStep, 1);
    Model.PrintStep = 5;
    desktop.Expect_Printer(false);
    Send(1);
    EXPECT_EQ(Model.PrintStep, 1);
}

TEST_F(PrintSelectTest, TheStepOfAModelThatWasOpenedIsShownAndTheOneForcedByATransformIsNot) {
    EXPECT_EQ(form.cmb_Step.Text.Get(), "10");
    Model.PrintStep = 4;
    form.Form_Activate();
    EXPECT_EQ(form.cmb_Step.Text.Get(), "4");
    Choose(form.cmb_Preset, "Current FFT - Real, Imag, Mag, Phase");
    desktop.Expect_Printer(false);
    Send(1);
    EXPECT_EQ(Model.PrintStep, 1);
    form.Form_Activate();
    EXPECT_EQ(form.cmb_Step.Text.Get(), "4");
}

TEST_F(PrintSelectTest, AScreenThatIsNotThereIsReported) {
    Screens::Discard();
    Screens::Register("frm_PrintData", nullptr);
    auto& fresh = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose(fresh.cmb_Preset, Model.PresetList4(6));
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in frm_PrintSelect.cmd_Done");
    Press(fresh, "cmd_Done");
}

TEST_F(PrintSelectTest, ATypedStepBelowOneIsOne) {
    for (const char* typed : {"0", "-3", "", "many", "0.4"}) {
        form.cmb_Step.Text = typed;
        form.cmb_Step_Click();
        EXPECT_EQ(Model.PrintStep, 1) << typed;
    }
}

TEST_F(PrintSelectTest, GoingOnTakesTargetFrameStepAndDecimals) {
    Velocities();
    Choose_Option(form, "opt_Coord", 1);
    form.cmb_Step.Choose(2);
    form.cmb_Decimal.Choose(5);
    desktop.Expect_Printer(false);
    Send(1);
    EXPECT_EQ(Model.OutputTarget, 1);
    EXPECT_EQ(Model.CoordSystem, 2);
    EXPECT_EQ(Model.PrintStep, 3);
    EXPECT_EQ(Model.DecimalPlaces, 5);
    EXPECT_TRUE(form.opt_Coord[0].Value);
    EXPECT_FALSE(form.fra_coord.Enabled);
    desktop.Expect_Printer(false);
    Send(1);
    EXPECT_EQ(Model.CoordSystem, 0);
}

TEST_F(PrintSelectTest, ACancelledPrinterPrintsNothing) {
    Velocities();
    desktop.Expect_Printer(false);
    Send(1);
    EXPECT_TRUE(desktop.Pages.empty());
}

TEST_F(PrintSelectTest, APrinterGetsTheWholeTable) {
    for (int step = 0; step <= 4; ++step) Model.RunTable.VelXY(step, 2, 0) = step + 1;
    Velocities();
    form.cmb_Step.Choose(0);
    form.cmb_Decimal.Choose(2);
    desktop.Expect_Printer(true);
    Send(1);
    ASSERT_EQ(desktop.Pages.size(), 1u);
    const auto& page = desktop.Pages[0];
    ASSERT_GE(page.size(), 6u);
    EXPECT_NE(page[3].find("Page 1"), std::string::npos) << page[3];
    for (int step = 0; step <= 4; ++step) {
        const std::string& row = page[page.size() - 6 + static_cast<std::size_t>(step)];
        EXPECT_NE(row.find(std::to_string(step + 1) + ".00 "), std::string::npos) << row;
    }
}

TEST_F(PrintSelectTest, ACancelledSaveWritesNothingAndKeepsTheModelsName) {
    Velocities();
    const std::string path = Model.FilePath;
    desktop.Expect_Save({});
    Send(2);
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_EQ(Model.FilePath, path);
    ASSERT_EQ(desktop.Dialogs.size(), 1u);
    EXPECT_EQ(desktop.Dialogs[0].title, "Save the Data");
    EXPECT_EQ(desktop.Dialogs[0].filter, "(*.dat)|*.dat");
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Model_1.dat");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
}

TEST_F(PrintSelectTest, TheModelKeepsItsNameItsFileAndItsSavingBehindATable) {
    Velocities();
    Model.FilePath = Path("press.vlk");
    Model.ModelName = "press";
    Model_Saved();
    for (const char* table : {"speeds.dat", "again.dat"}) {
        desktop.Expect_Save(Path(table));
        Send(2);
        EXPECT_TRUE(std::filesystem::exists(Path(table)));
        EXPECT_EQ(desktop.Dialogs.back().file_name, "press.dat");
        EXPECT_EQ(desktop.Dialogs.back().kind, "table") << "of which a folder is remembered";
        EXPECT_EQ(Model.ModelName, "press");
        EXPECT_EQ(Model.FilePath, Path("press.vlk"));
        EXPECT_TRUE(Model.SavedFlag);
    }
    EXPECT_NE(Held(Path("again.dat")).find("File \tpress\t"), std::string::npos);
    desktop.Expect_Message_With("File was successfully written to");
    Menu_Save(Screens::Get("frm_HomeScreen"));
    EXPECT_EQ(Held(Path("speeds.dat")), Held(Path("again.dat"))) << "the data are not the model's file";
    EXPECT_TRUE(std::filesystem::exists(Path("press.vlk")));
}

TEST_F(PrintSelectTest, AFileGetsTheTable) {
    for (int step = 0; step <= 4; ++step) {
        Model.RunTable.Theta(step, 0) = 30 * step;
        Model.RunTable.VelXY(step, 2, 0) = step + 1;
    }
    Velocities();
    form.cmb_Step.Choose(1);
    form.cmb_Decimal.Choose(2);
    const std::string path = Path("speeds.dat");
    desktop.Expect_Save(path);
    Send(2);
    EXPECT_EQ(Model.OutputTarget, 2);
    const std::string text = Held(path);
    EXPECT_NE(text.find("Veloc CP\tVeloc CP\tVeloc CP\tVeloc CP\t"), std::string::npos) << text;
    EXPECT_NE(text.find("X\tY\tMag\tAng\t"), std::string::npos);
    std::size_t rows = 0;
    for (const char* value :
         {"\t1.00\t0.00\t1.00\t0.00\t\r\n", "\t3.00\t0.00\t3.00\t0.00\t\r\n", "\t5.00\t0.00\t5.00\t0.00\t\r\n"})
        if (text.find(value) != std::string::npos) ++rows;
    EXPECT_EQ(rows, 3u) << text;
    EXPECT_EQ(text.find("\t2.00\t0.00\t"), std::string::npos);
}

TEST_F(PrintSelectTest, AFolderThatIsNotThereIsReported) {
    Velocities();
    desktop.Expect_Save(Path("missing") + "/speeds.dat");
    desktop.Expect_Message_With("has occurred in frm_PrintSelect.cmd_Done");
    Send(2);
    EXPECT_FALSE(std::filesystem::exists(Path("missing")));
}

TEST_F(PrintSelectTest, ATableOnTheScreenTakesThePlaceOfTheChoice) {
    desktop.Expect_Screen("frm_PrintSelect", [this](Screen&) {
        Velocities();
        Press(form, "cmd_Done");
    });
    desktop.Expect_Screen("frm_PrintData", [this](Screen& table) {
        EXPECT_FALSE(form.Visible());
        EXPECT_EQ(Model.OutputTarget, 0);
        table.Hide();
    });
    form.ShowModal();
}

TEST_F(PrintSelectTest, BackLeavesForTheHomeScreen) {
    desktop.Expect_Screen("frm_PrintSelect", [](Screen& screen) { Press(screen, "cmd_Cancel"); });
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
}

TEST_F(PrintSelectTest, HelpOpensThePageOfPrinting) {
    desktop.Expect_Screen("frm_Help", [](Screen& help) {
        EXPECT_EQ(help.Get<platform::DocumentView>("WebBrowser1").Document.Get(), "helpfiles/general/PrintHelp.pdf");
        help.Hide();
    });
    form.mnu_Help.Click();
}

}  // namespace verlink::test
