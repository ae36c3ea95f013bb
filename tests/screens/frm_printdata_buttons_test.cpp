// The screen of a table: what comes up on it, and what its buttons do.
#include <gtest/gtest.h>

#include <cmath>

#include "core/model_on_screens.h"
#include "core/runs.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {

using platform::Answer;
using platform::Screen;

namespace {

constexpr char kQuestion[] =
    "You can print this form directly to a printer from here.\r\n\r\n"
    "But a better quality print can be obtained by copying the\r\n"
    "screen to the clipboard with the key combo Alt-PrintScrn,\r\n"
    "and pasting it into a word processing or graphics program,\r\n"
    "then printing it from that program.\r\n\r\nDo you want to proceed with a direct print?";

struct PrintData : SelectionScreenTest {
    frm_PrintData& form = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));

    void Ask(Answer answer) {
        desktop.Expect_Message(kQuestion, answer, platform::Icon::kQuestion, platform::Buttons::kYesNo);
    }
};

}  // namespace

TEST_F(PrintData, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.cmd_Reprint.Caption, "< &Back");
    EXPECT_EQ(form.cmd_Done.Caption, "&Next >");
    EXPECT_EQ(form.cmd_PrintForm.Caption, "&Print Form");
    EXPECT_EQ(form.cmd_Copy.Caption, "&Copy");
    EXPECT_EQ(form.Summary.fra_Links.Caption, "Linkage Data");
    EXPECT_EQ(form.Summary.fra_Initial.Caption, "Initial Conditions");
    EXPECT_EQ(form.DefaultButton, &form.cmd_Done);
    EXPECT_EQ(form.CancelButton, &form.cmd_Reprint);
}

TEST_F(PrintData, ItsCaptionIsTheBannerAlone) {
    Set_Screen_Titles();
    EXPECT_EQ(form.Caption().Get(), Model.TitleSuffix);
}

TEST_F(PrintData, ActivationBringsItToTheStandardSize) {
    form.Width() = 5000;
    form.Height() = 4000;
    form.Form_Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_EQ(form.Height(), 8950);
}

TEST_F(PrintData, ATableGoesFromThePresetToTheGrid) {
    Integer result;
    Calc_Setup(3, result);
    Model.ScreenReturn = true;
    auto& select = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose(select.cmb_Preset, Model.PresetList4(6));
    Choose(select.cmb_Decimal, "4");
    Choose(select.cmb_Step, "1");
    desktop.Expect_Screen("frm_PrintData", [&](Screen& screen) {
        const auto& grid = form.grd_Data;
        ASSERT_EQ(grid.Rows(), Model.NSteps + 7);
        ASSERT_EQ(grid.Cols(), 5);
        for (int slot = 1; slot <= 4; ++slot) {
            EXPECT_EQ(grid.Cell(0, slot), Slot(select, slot).lbl_Function.Caption.Get());
            EXPECT_EQ(grid.Cell(1, slot), Slot(select, slot).lbl_Component.Caption.Get());
        }
        EXPECT_EQ(grid.Cell(0, 1), "Veloc CP");
        for (int step = 0; step <= Model.NSteps; ++step) {
            const double x = Model.RunTable.VelXY(step, 2, 0), y = Model.RunTable.VelXY(step, 2, 1);
            EXPECT_NEAR(std::stod(grid.Cell(6 + step, 1)), x, 1e-4);
            EXPECT_NEAR(std::stod(grid.Cell(6 + step, 2)), y, 1e-4);
            EXPECT_NEAR(std::stod(grid.Cell(6 + step, 3)), std::hypot(x, y), 1e-4);
        }
        EXPECT_EQ(form.lbl_Header2.Caption, "Selected Linkage Parameters");
        Press(screen, "cmd_Done");
    });
    Press(select, "cmd_Done");
    EXPECT_TRUE(Model.ScreenReturn);
}

TEST_F(PrintData, BackLeavesForTheChoiceOfFunctionsCentred) {
    Model.HomeTop = 300;
    desktop.Expect_Screen("frm_PrintData", [](Screen& screen) { Press(screen, "cmd_Reprint"); });
    desktop.Expect_Screen("frm_PrintSelect", [this](Screen& screen) {
        EXPECT_FALSE(form.Visible());
        EXPECT_EQ(screen.Left(), (desktop.Size.width - screen.Width()) / 2);
        EXPECT_EQ(screen.Top(), 300);
        screen.Hide();
    });
    form.ShowModal();
}

TEST_F(PrintData, NextLeavesForTheHomeScreen) {
    Model.ScreenReturn = false;
    desktop.Expect_Screen("frm_PrintData", [](Screen& screen) { Press(screen, "cmd_Done"); });
    form.ShowModal();
    EXPECT_TRUE(Model.ScreenReturn);
    EXPECT_FALSE(form.Visible());
}

TEST_F(PrintData, PrintAsksAndPrintsTheScreen) {
    Ask(Answer::kYes);
    desktop.Expect_Printer(true);
    Press(form, "cmd_PrintForm");
    EXPECT_EQ(desktop.Printed, std::vector<std::string>{"frm_PrintData"});
}

TEST_F(PrintData, PrintIsLeftAtNo) {
    Ask(Answer::kNo);
    Press(form, "cmd_PrintForm");
    EXPECT_TRUE(desktop.Printed.empty());
}

TEST_F(PrintData, ACancelledPrinterPrintsNothingAndIsNotReported) {
    Ask(Answer::kYes);
    desktop.Expect_Printer(false);
    Press(form, "cmd_PrintForm");
    EXPECT_TRUE(desktop.Printed.empty());
}

TEST_F(PrintData, APrinterThatRefusesIsReported) {
    desktop.FailPrinting = platform::kPrinterError;
    Ask(Answer::kYes);
    desktop.Expect_Printer(true);
    desktop.Expect_Message("Error 482   (Printer error)  has occurred in frm_PrintData.cmd_PrintForm\r\n\r\n");
    Press(form, "cmd_PrintForm");
}

TEST_F(PrintData, CopySaysHow) {
    desktop.Expect_Message("Use the Alt-PrintScrn key combo to copy the screen to the clipboard");
    Press(form, "cmd_Copy");
}

TEST_F(PrintData, HelpOpensThePageOfPrinting) {
    desktop.Expect_Screen("frm_Help", [](Screen& help) {
        EXPECT_EQ(help.Get<platform::DocumentView>("WebBrowser1").Document.Get(), "helpfiles/general/PrintHelp.pdf");
        help.Hide();
    });
    form.mnu_Help.Click();
}

}  // namespace verlink::test
