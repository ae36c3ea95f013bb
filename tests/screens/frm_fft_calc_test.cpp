// The transform screen at work: what a pick calculates, what the graphs show, and what is refused.
#include <gtest/gtest.h>

#include "tests/screens/frm_fft_fixture.h"

namespace verlink::test {

namespace {

constexpr char kNoFunction[] = " Please select a function for FFT calculation";
constexpr char kNoHarmonics[] = " Must set the number of harmonics to a value > 0";
constexpr char kTooMany[] =
    "Number of harmonics cannot exceed 1/2 the number of data points available.\r\n"
    "If you want more bandwidth, recalculate all data with smaller increments. \r\n"
    "Use the [INPUT] button from the Home Screen to do so.";

struct FftCalc : FftScreen {
    int Drawings() { return form.grf_Plot[0].Drawings(); }
};

}  // namespace

TEST_F(FftCalc, APickCalculatesAndAllowsGoingOn) {
    Pick("Omega4");
    EXPECT_EQ(form.lbl_Header2.Caption, "Fourier Transform of  Omega4");
    EXPECT_TRUE(Model.FFTDone);
    EXPECT_EQ(Model.FFTUnitLabel, "rad/sec");
    EXPECT_EQ(Model.FuncGroup(1), 2);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_TRUE(form.cmd_Print.Enabled);
    EXPECT_TRUE(form.cmd_Copy.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
    EXPECT_NEAR(Model.FFTResult(0, 0), 3, 1e-4);
    EXPECT_NEAR(Model.FFTResult(1, 0), 8, 1e-4);
    EXPECT_NEAR(Model.FFTResult(5, 1), -2, 1e-4);
    EXPECT_NEAR(Model.FFTResult(5, 2), 2, 1e-4);
}

TEST_F(FftCalc, TheGraphsShowRealImaginaryMagnitudeAndPhaseByHarmonic) {
    Pick("Omega4");
    const std::vector<std::string> titles{"Real", "Imaginary", "Magnitude", "Phase"};
    for (int i = 0; i <= 3; ++i) {
        const auto& graph = form.grf_Plot[i];
        EXPECT_EQ(graph.GraphTitle, titles[static_cast<std::size_t>(i)]);
        EXPECT_EQ(graph.BottomTitle, "Harmonic Number");
        EXPECT_EQ(graph.NumSets(), 1);
        ASSERT_EQ(graph.NumPoints(), 16);
        for (int j = 0; j <= 15; ++j) {
            EXPECT_EQ(graph.Labels()[static_cast<std::size_t>(j)], std::to_string(j));
            EXPECT_EQ(graph.Sets()[0].values[static_cast<std::size_t>(j)], double{Model.FFTResult(j, i)});
        }
    }
    EXPECT_NEAR(form.grf_Plot[2].Sets()[0].values[5], 2, 1e-4);
    EXPECT_EQ(Model.PlotSlot, 4);
}

TEST_F(FftCalc, UpToFifteenHarmonicsHaveALabelEachAndMoreHaveFifteen) {
    Pick("Omega4");
    EXPECT_EQ(form.grf_Plot[0].LabelEvery, 1);
    Choose(form.cmb_Harmonics, "12");
    EXPECT_EQ(form.grf_Plot[0].LabelEvery, 1);
    EXPECT_EQ(form.grf_Plot[0].NumPoints(), 13);
    Choose(form.cmb_Harmonics, "60");
    EXPECT_EQ(form.grf_Plot[0].LabelEvery, 4);
    EXPECT_EQ(form.grf_Plot[0].NumPoints(), 61);
}

TEST_F(FftCalc, APickOfAComponentCalculatesAgain) {
    Pick("Veloc CP");
    EXPECT_NEAR(Model.FFTResult(0, 0), 1, 1e-4);
    Choose(form.cmb_Com1, "Y");
    EXPECT_EQ(Model.FuncComponent(1), 1);
    EXPECT_NEAR(Model.FFTResult(0, 0), 6, 1e-4);
    EXPECT_EQ(Model.FFTUnitLabel, "in/sec");
}

TEST_F(FftCalc, ABlankPickAsksForAFunctionAndClearsTheResults) {
    Pick("Omega4");
    const int before = Drawings();
    desktop.Expect_Message(kNoFunction);
    form.cmb_Var1.Choose(-1);
    Expect_No_Results(360);
    EXPECT_GT(Drawings(), before);
    EXPECT_EQ(form.Focus(), &form.cmb_Var1);
}

TEST_F(FftCalc, CalculateWithoutAFunctionAsksForOne) {
    Activate();
    desktop.Expect_Message(kNoFunction);
    Press(form, "cmd_Calc");
    EXPECT_FALSE(Model.FFTDone);
    EXPECT_FALSE(form.cmd_Done.Enabled);
    desktop.Expect_Message(kNoFunction);
    Choose(form.cmb_Com1, "Mag");
    EXPECT_FALSE(Model.FFTDone);
}

TEST_F(FftCalc, NoHarmonicsAreRefusedAndTheBoxIsBlanked) {
    Pick("Omega4");
    for (const char* none : {"0", "", "many", "-3"}) {
        form.cmb_Harmonics.Text = none;
        desktop.Expect_Message(kNoHarmonics);
        Press(form, "cmd_Calc");
        EXPECT_EQ(form.cmb_Harmonics.Text, "");
    }
    form.cmb_Harmonics.Text = "0";
    desktop.Expect_Message(kNoHarmonics);
    form.cmb_Harmonics_Click();
}

TEST_F(FftCalc, HarmonicsAboveHalfTheStepsAreCutAndTheMessageIsShown) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "181";
    desktop.Expect_Message(kTooMany);
    form.cmb_Harmonics_Click();
    EXPECT_EQ(Model.Harmonics, 180);
    EXPECT_EQ(form.cmb_Harmonics.Text, "180");
    EXPECT_EQ(form.grf_Plot[3].NumPoints(), 181);
}

TEST_F(FftCalc, TheLargestNumberOnTheListIsNeverTooMany) {
    for (const int steps : {27, 361, 363}) {
        Run(steps);
        Pick("Omega4");
        form.cmb_Harmonics.Choose(0);
        EXPECT_EQ(form.cmb_Harmonics.Text, form.cmb_Harmonics.Items()[0]);
    }
}

TEST_F(FftCalc, ATypedNumberAboveHalfTheStepsIsCutByThePickAloneAndNotByCalculate) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "200";
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.Harmonics, 200);
    EXPECT_EQ(form.cmb_Harmonics.Text, "200");
    EXPECT_EQ(form.grf_Plot[0].NumPoints(), 201);
    for (int j = 180; j <= 200; ++j) EXPECT_EQ(Model.FFTResult(j, 2), 0.0) << j;
}

TEST_F(FftCalc, ATypedNumberBeyondTheTableIsReportedByTheGraphsAndTheTransformStandsAllTheSame) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "2881";
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in FFT_Plot\r\n\r\n");
    Press(form, "cmd_Calc");
    EXPECT_TRUE(Model.FFTDone);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_NEAR(Model.FFTResult(1, 0), 8, 1e-5);
    form.cmb_Harmonics.Text = "2880";
    Press(form, "cmd_Calc");
    EXPECT_EQ(form.grf_Plot[3].NumPoints(), 2881);
}

TEST_F(FftCalc, HarmonicsWithoutAFunctionAreOnlyTaken) {
    Activate();
    const int before = Drawings();
    Choose(form.cmb_Harmonics, "36");
    EXPECT_EQ(Model.Harmonics, 36);
    EXPECT_EQ(Drawings(), before);
}

TEST_F(FftCalc, TheHarmonicAtHalfTheStepsReadsZero) {
    Pick("Omega4");
    form.cmb_Harmonics.Choose(0);
    EXPECT_EQ(Model.HalfSamples, 180);
    for (int i = 0; i <= 3; ++i) EXPECT_EQ(form.grf_Plot[i].Sets()[0].values[180], 0);
}

TEST_F(FftCalc, ClearEmptiesTheResultsAndTheGraphs) {
    Pick("Omega4");
    Press(form, "cmd_Clear1");
    EXPECT_FALSE(Model.FFTDone);
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.cmb_Var1.Text, "");
    Expect_No_Results(360);
    EXPECT_EQ(form.grf_Plot[2].Sets()[0].values, std::vector<double>(16));
}

TEST_F(FftCalc, EachStyleBoxDrawsAnew) {
    Pick("Omega4");
    for (const char* box : {"chk_HGrid", "chk_VGrid", "chk_Line"}) {
        const int before = Drawings();
        Tick(form, box, true);
        EXPECT_EQ(Drawings(), before + 1) << box;
    }
    EXPECT_EQ(form.grf_Plot[3].GridStyle, 3);
    EXPECT_EQ(form.grf_Plot[3].GraphStyle, 6);
    Tick(form, "chk_Sticks", false);
    EXPECT_EQ(form.grf_Plot[0].GraphStyle, 4);
}

TEST_F(FftCalc, AnImpossibleNumberOfHarmonicsIsReportedUnderTheHandlersNames) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "99999";
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in cmb_Harmonics_Click\r\n\r\n");
    form.cmb_Harmonics_Click();
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_FFT_cmb_Calc_Click\r\n\r\n");
    Press(form, "cmd_Calc");
}

}  // namespace verlink::test
