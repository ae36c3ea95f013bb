// The transform screen when it comes up, and the ways out of it.
#include <gtest/gtest.h>

#include "output/transform.h"
#include "tests/screens/frm_fft_fixture.h"

namespace verlink::test {

using platform::Answer;
using platform::Screen;

namespace {

struct FftActivation : FftScreen {
    std::vector<std::string> Harmonics_Of(int steps) {
        Run(steps);
        Activate();
        return form.cmb_Harmonics.Items();
    }
    void Ask(Answer answer) { desktop.Expect_Message_With("Do you want to proceed with a direct print?", answer); }
    using Texts = std::vector<std::string>;
};

}  // namespace

TEST_F(FftActivation, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.fra_Function1.Caption, "Function for FFT");
    EXPECT_EQ(form.lbl_Var[0].Caption, "Variable");
    EXPECT_EQ(form.lbl_Var[1].Caption, "No of Harmonics");
    EXPECT_EQ(form.lbl_Comp[0].Caption, "Component");
    EXPECT_EQ(form.cmd_Clear1.Caption, "&Clear");
    EXPECT_EQ(form.cmd_Calc.Caption, "&Calculate");
    EXPECT_EQ(form.cmd_Cancel.Caption, "< &Back");
    EXPECT_EQ(form.cmd_Done.Caption, "&Next >");
    EXPECT_EQ(form.cmd_Print.Caption, "&Print");
    EXPECT_EQ(form.cmd_Copy.Caption, "C&opy");
    EXPECT_EQ(form.chk_Line.Caption, "Envelope");
    EXPECT_EQ(form.chk_Sticks.Caption, "Spectral Lines");
}

TEST_F(FftActivation, LoadsWithComponentXAndFifteenHarmonics) {
    EXPECT_EQ(form.cmb_Com1.Items(), (Texts{"X", "Y", "Mag", "Ang"}));
    EXPECT_EQ(form.cmb_Com1.Text, "X");
    EXPECT_EQ(Model.FuncComponent(1), 0);
    EXPECT_EQ(Model.ComponentLabel(1), "X");
    EXPECT_EQ(form.cmb_Harmonics.Text, "15");
    EXPECT_EQ(Model.Harmonics, 15);
}

TEST_F(FftActivation, StartsAnewEachTimeItComesUp) {
    Transform_Holds();
    for (int i = 0; i <= 200; ++i) {
        Model.FFTResult(i, 2) = 7;
        Model.DFTTable(i, 2) = 7;
    }
    form.cmb_Var1.Text = "Theta3";
    form.lbl_Header2.Caption = "Fourier Transform of  Theta3";
    form.Width() = 500;
    Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_EQ(form.Height(), 8950);
    EXPECT_FALSE(Model.FFTDone);
    EXPECT_TRUE(Model.FFTSelecting);
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_FALSE(form.cmd_Print.Enabled);
    EXPECT_FALSE(form.cmd_Copy.Enabled);
    EXPECT_EQ(form.cmb_Var1.Text, "");
    EXPECT_EQ(form.cmb_Var1.ListIndex(), -1);
    EXPECT_EQ(form.cmb_Var1.Items().size(), 19u);
    EXPECT_EQ(form.cmb_Var1.Items().front(), "Theta2");
    EXPECT_EQ(Model.PlotStyle, 5);
    EXPECT_EQ(Model.GraphWindows, 4);
    EXPECT_EQ(Model.PlotCount, 1);
    EXPECT_EQ(form.lbl_Header2.Caption, "");
    Expect_No_Results(180);
    EXPECT_EQ(Model.DFTTable(180, 2), 0);
    EXPECT_EQ(Model.FFTResult(181, 2), 7.0);  // half the steps, no further
}

TEST_F(FftActivation, DrawsEmptyGraphs) {
    Activate();
    for (int i = 0; i <= 3; ++i) {
        EXPECT_EQ(form.grf_Plot[i].Drawings(), 1);
        EXPECT_EQ(form.grf_Plot[i].Sets()[0].values, std::vector<double>(16));
    }
}

TEST_F(FftActivation, TheHarmonicsAreHalfTheStepsAndItsWholeQuotientsDownToThree) {
    EXPECT_EQ(Harmonics_Of(360),
              (Texts{"180", "90", "60", "45", "36", "30", "20", "18", "15", "12", "10", "9", "6", "5", "4", "3"}));
    EXPECT_EQ(Harmonics_Of(36), (Texts{"18", "9", "6", "3"}));
    EXPECT_EQ(Harmonics_Of(14), (Texts{"7"}));
    EXPECT_EQ(Harmonics_Of(4), (Texts{"2"}));
}

TEST_F(FftActivation, HalfOfAnOddNumberOfStepsIsRoundedToTheEvenNeighbour) {
    EXPECT_EQ(Harmonics_Of(25).front(), "12");
    EXPECT_EQ(Harmonics_Of(27).front(), "14");
}

TEST_F(FftActivation, TheHarmonicsChosenBeforeStay) {
    Activate();
    Choose(form.cmb_Harmonics, "36");
    Activate();
    EXPECT_EQ(form.cmb_Harmonics.Text, "36");
    EXPECT_EQ(Model.Harmonics, 36);
}

TEST_F(FftActivation, AShorterRunCutsTheHarmonicsChosenBefore) {
    Activate();
    Choose(form.cmb_Harmonics, "36");
    Run(24);
    Activate();
    EXPECT_EQ(form.cmb_Harmonics.Text, "12");
    EXPECT_EQ(Model.Harmonics, 12);
    EXPECT_EQ(form.grf_Plot[0].NumPoints(), 13);
}

TEST_F(FftActivation, NextTellsWhereTheTransformIs) {
    desktop.Expect_Screen("frm_FFT", [this](Screen& screen) {
        Choose(form.cmb_Var1, "Omega4");
        EXPECT_TRUE(Model.FFTSelecting);
        Press(screen, "cmd_Done");
    });
    desktop.Expect_Message(
        " The FFT of the selected function is \r\n now available for output as \r\n"
        " 'Current FFT' from the Preset Format\r\n lists on the PRINT and PLOT screens",
        Answer::kOk, platform::Icon::kInformation);
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(Model.FFTSelecting);
    EXPECT_TRUE(Model.FFTDone);
}

TEST_F(FftActivation, BackDropsTheTransform) {
    desktop.Expect_Screen("frm_FFT", [this](Screen& screen) {
        Choose(form.cmb_Var1, "Omega4");
        EXPECT_TRUE(Model.FFTDone);
        Press(screen, "cmd_Cancel");
    });
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(Model.FFTSelecting);
    EXPECT_FALSE(Model.FFTDone);
}

TEST_F(FftActivation, ClosingTheWindowIsGoingBack) {
    desktop.Expect_Screen("frm_FFT", [this](Screen& screen) {
        Choose(form.cmb_Var1, "Omega4");
        screen.Close();
    });
    form.ShowModal();
    EXPECT_FALSE(Model.FFTSelecting);
    EXPECT_FALSE(Model.FFTDone);
}

TEST_F(FftActivation, OnComingUpAgainNothingIsAskedAboutATextThatWasLeftInAList) {
    for (platform::ComboBox* list : {&form.cmb_Var1, &form.cmb_Com1}) {
        Activate();
        list->SetFocus();
        list->Text = "sideways";
        form.Form_Unload();
        Activate();
        form.chk_HGrid.SetFocus();
        desktop.Verify();
        list->Text = "";
    }
}

TEST_F(FftActivation, PrintAsksAndPrintsTheScreen) {
    Pick("Omega4");
    Ask(Answer::kYes);
    desktop.Expect_Printer(true);
    Press(form, "cmd_Print");
    EXPECT_EQ(desktop.Printed, std::vector<std::string>{"frm_FFT"});
    Ask(Answer::kNo);
    Press(form, "cmd_Print");
    Ask(Answer::kYes);
    desktop.Expect_Printer(false);
    Press(form, "cmd_Print");
    EXPECT_EQ(desktop.Printed.size(), 1u);
}

TEST_F(FftActivation, CopySaysHow) {
    Pick("Omega4");
    desktop.Expect_Message("Use the Alt-PrintScrn key combo to copy the screen to the clipboard", Answer::kOk,
                           platform::Icon::kInformation);
    Press(form, "cmd_Copy");
}

TEST_F(FftActivation, HelpOpensThePageOfTransforms) {
    desktop.Expect_Screen("frm_Help", [](Screen& help) {
        EXPECT_EQ(help.Get<platform::DocumentView>("WebBrowser1").Document.Get(),
                  "helpfiles/linkages/linkage_fft_help.pdf");
        help.Hide();
    });
    form.mnu_Help.Click();
}

TEST_F(FftActivation, AScreenWithoutGraphsIsReportedUnderTheProceduresNames) {
    Screen bare("frm_Bare");
    Model.GraphWindows = 4;
    Model.Harmonics = 15;
    for (const char* name : {"SetGridstyle", "FFT_Plot_Setup"})
        desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in " + std::string(name) + "\r\n\r\n");
    FFT_Plot_Setup(bare);
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in FFT_Plot\r\n\r\n");
    FFT_Plot(bare);
}

}  // namespace verlink::test
