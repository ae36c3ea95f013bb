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

TEST_F(FftCalc, VectorsAreTransformedInTheGlobalFrameWhateverWasPlottedBefore) {
    Pick("Veloc CP");
    const double mean = Model.FFTResult(0, 0), second = Model.FFTResult(2, 0);
    Model.CoordSystem = 2;  // as a plot in the frame of a link leaves it
    for (int i = 0; i <= Model.NSteps; ++i) Model.RunTable.Theta(i, 0) = i;
    Pick("Veloc CP");
    EXPECT_EQ(Model.FFTResult(0, 0), mean);
    EXPECT_EQ(Model.FFTResult(2, 0), second);
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

TEST_F(FftCalc, ReturnInAListWithATextThatNamesNoEntrySaysSoAndTransformsNothing) {
    Pick("Veloc CP");
    const std::pair<platform::ComboBox*, const char*> lists[] = {{&form.cmb_Var1, "variables that have been computed"},
                                                                 {&form.cmb_Com1, "components"}};
    for (const auto& [list, what] : lists) {
        const std::string before = list->Text;
        list->SetFocus();
        list->Text = "sideways";
        const int drawn = Drawings();
        desktop.Expect_Message_With("\"sideways\" is not one of the " + std::string(what));
        form.cmd_Calc_Click();
        EXPECT_EQ(list->Text.Get(), before);
        EXPECT_EQ(Drawings(), drawn);
        EXPECT_EQ(form.Focus(), list);
    }
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

TEST_F(FftCalc, OneHarmonicIsEnough) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "1";
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.Harmonics, 1);
    EXPECT_EQ(form.grf_Plot[0].NumPoints(), 2);
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

TEST_F(FftCalc, ATypedNumberAboveHalfTheStepsIsCutByCalculateWithOneMessage) {
    Pick("Omega4");
    for (const char* typed : {"200", "2881", "3500", "99999", "1E+20"}) {
        SCOPED_TRACE(typed);
        form.cmb_Harmonics.Text = typed;
        desktop.Expect_Message(kTooMany);
        Press(form, "cmd_Calc");
        EXPECT_EQ(Model.Harmonics, 180);
        EXPECT_EQ(form.cmb_Harmonics.Text, "180");
        EXPECT_EQ(form.grf_Plot[0].NumPoints(), 181);
        EXPECT_TRUE(Model.FFTDone);
        EXPECT_NEAR(Model.FFTResult(1, 0), 8, 1e-4);
    }
}

TEST_F(FftCalc, ATypedNumberIsTakenWhenItsBoxIsLeft) {
    Pick("Omega4");
    form.cmb_Harmonics.SetFocus();
    form.cmb_Harmonics.Text = "42";
    form.chk_HGrid.SetFocus();
    EXPECT_EQ(Model.Harmonics, 42);
    EXPECT_EQ(form.grf_Plot[1].NumPoints(), 43);
    form.cmb_Harmonics.SetFocus();
    form.cmb_Harmonics.Text = "3500";
    desktop.Expect_Message(kTooMany);
    form.chk_HGrid.SetFocus();
    EXPECT_EQ(form.cmb_Harmonics.Text, "180");
    EXPECT_EQ(form.grf_Plot[1].NumPoints(), 181);
    form.cmb_Harmonics.SetFocus();
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.Harmonics, 180);
}

TEST_F(FftCalc, NoHarmonicsLeftInTheBoxAreRefusedAndTheNumberBeforeIsBack) {
    Pick("Omega4");
    for (const char* none : {"0", "", "many", "-99999"}) {
        form.cmb_Harmonics.SetFocus();
        form.cmb_Harmonics.Text = none;
        desktop.Expect_Message(kNoHarmonics);
        form.chk_HGrid.SetFocus();
        EXPECT_EQ(form.cmb_Harmonics.Text, "15");
        EXPECT_EQ(Model.Harmonics, 15);
    }
}

TEST_F(FftCalc, WhoGoesBackIsNotAskedAboutHarmonics) {
    Pick("Omega4");
    form.cmb_Harmonics.SetFocus();
    form.cmb_Harmonics.Text = "many";
    Press(form, "cmd_Cancel");
    EXPECT_FALSE(Model.FFTDone);
}

TEST_F(FftCalc, NeverMoreHarmonicsThanThereAreReachAPlotOrATable) {
    Run(20);
    form.cmb_Harmonics.Text = "15";
    Pick("Omega4");
    EXPECT_EQ(form.cmb_Harmonics.Text, "10");
    EXPECT_EQ(Model.Harmonics, 10);
    EXPECT_TRUE(Model.FFTDone);
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
    Choose(form.cmb_Var1, "Omega4");
    EXPECT_TRUE(Model.FFTDone) << "the next pick is as good as the first";
    EXPECT_TRUE(form.cmd_Done.Enabled);
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

TEST_F(FftCalc, OneOfEnvelopeAndSpectralLinesAlwaysShows) {
    Pick("Omega4");
    Tick(form, "chk_Sticks", false);
    EXPECT_TRUE(form.chk_Sticks.Value);
    EXPECT_EQ(form.grf_Plot[2].GraphStyle, 2);
    Tick(form, "chk_Line", true);
    Tick(form, "chk_Sticks", false);
    EXPECT_EQ(form.grf_Plot[2].GraphStyle, 4);
    Tick(form, "chk_Line", false);
    EXPECT_TRUE(form.chk_Line.Value);
    EXPECT_EQ(form.grf_Plot[2].GraphStyle, 4);
}

TEST_F(FftCalc, ANumberThatIsNoneIsReportedUnderTheHandlersNames) {
    Pick("Omega4");
    form.cmb_Harmonics.Text = "1E+999";
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in cmb_Harmonics_Click\r\n\r\n");
    form.cmb_Harmonics_Click();
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_FFT_cmb_Calc_Click\r\n\r\n");
    Press(form, "cmd_Calc");
}

}  // namespace verlink::test
