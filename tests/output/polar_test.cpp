// Polar plots: tips, windows, modes, the refusal of transforms, and one vector at a time.
#include "output/polar.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "screens/frm_myplot4.h"
#include "tests/output/plotting.h"

namespace verlink::test {

namespace {

class PolarPlot : public Plotting {
   protected:
    PolarPlot() {
        Turn_Ground(20);
        By_Angle(0, 360, 45);
        // The boxes answer only on a screen that is up.
        form.chk_Envelope.OnClick = form.chk_Vectors.OnClick = nullptr;
    }
    void Boxes(bool envelope, bool vectors) {
        form.chk_Envelope.Value = envelope;
        form.chk_Vectors.Value = vectors;
    }
    void Whole() {
        MyPolarPlotSetup(form);
        MyPolarPlot(form, chosen);
    }
    void Choose_Polar(const std::string& variable) {
        Select_Variable(variable, 1);
        chosen.lbl_Function[0].Caption = variable;
        Model.PlotCount = 1;
    }
    std::string Text_At(const char* name, int index = platform::kNoIndex) { return Caption(form, name, index); }
    std::string Blue(const char* call, int step) {
        return Row(call, {Model.PolarX(step), Model.PolarY(step)}, Model.ColorBlue);
    }
    std::string From_Origin() { return Row("PSet", {0, 0}, Model.ColorBlue); }
    /// The blue calls, in which the curves are drawn.
    std::vector<std::string> Curves() {
        const std::string blue = From_Origin().substr(From_Origin().rfind(' '));
        std::vector<std::string> calls;
        for (const auto& call : log.Calls)
            if (call.size() > blue.size() && call.substr(call.size() - blue.size()) == blue) calls.push_back(call);
        return calls;
    }

    frm_MyPlot4 form;
    LogSurface log;
};

}  // namespace

TEST_F(PolarPlot, TipsAreTheVectorsOfTheWholeRun) {
    Choose_Polar("Veloc CP");
    Whole();
    double most = 0;
    for (int i = 0; i <= 8; ++i) {
        EXPECT_NEAR(Model.PolarX(i), Velocity(i).x, 1e-4);
        EXPECT_NEAR(Model.PolarY(i), Velocity(i).y, 1e-4);
        most = std::max({most, std::fabs(Velocity(i).x), std::fabs(Velocity(i).y)});
    }
    EXPECT_NEAR(Model.PlotYmax, most, 1e-4);
    const int d = most < 10 ? 2 : 1;
    ASSERT_LT(most, 100);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(most, d));
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(most, d));
    EXPECT_EQ(Text_At("pnl_Ymin"), FNRoundStr(-most, d));
    EXPECT_EQ(Text_At("pnl_Xmin"), FNRoundStr(-most, d));
    EXPECT_NEAR(form.pct_Plot.Drawing().Right(), 1.1 * most, 1e-3);
    EXPECT_NEAR(form.pct_Plot.Drawing().Top(), 1.115 * most, 1e-3);
    EXPECT_EQ(Model.PlotSlot, 1);
}

TEST_F(PolarPlot, StandsInItsOwnBoxWhateverOthersOfTheNameThereAre) {
    platform::PictureBox other(form, "pct_Plot", 1);
    Choose_Polar("Veloc CP");
    Boxes(true, true);
    form.pct_Plot.Redirect(&log);
    Whole();
    EXPECT_EQ(other.Drawing().Right(), platform::Picture().Right());
    EXPECT_EQ(std::ranges::count_if(log.Calls, [](const auto& call) { return call.starts_with("Scale"); }), 1);
    MyPolarStep(form, 2);
    EXPECT_TRUE(other.Drawing().Primitives().empty());
}

TEST_F(PolarPlot, TheWindowHoldsTheFirstAndTheLastVectorToo) {
    Choose_Polar("Veloc CP");
    Model.Link1Angle = 0;
    for (const int step : {0, 8}) {
        for (int i = 0; i <= 8; ++i)
            for (const int axis : {0, 1}) Model.RunTable.VelXY(i, 2, axis) = i == step ? -50 : 1;
        Whole();
        EXPECT_EQ(Model.PlotYmax, 50) << step;
    }
}

TEST_F(PolarPlot, HeadersNameFunctionAndUnit) {
    Choose_Polar("Accel CP");
    form.Get<platform::Label>("lbl_Header3").Caption = "of an earlier plot";
    Whole();
    const std::string unit = Model.UnitLabel(Model.FuncGroup(1));
    EXPECT_EQ(Text_At("lbl_Header2"), "Linkage Accel CP  -  " + unit);
    EXPECT_EQ(Text_At("lbl_Header3"), "");
    EXPECT_EQ(Text_At("pnl_LeftTitle"), "Accel CP");
    EXPECT_EQ(Text_At("pnl_PlotUnits"), unit);
}

TEST_F(PolarPlot, AnAngleComponentOfTheSlotDoesNotChangeTheUnit) {
    Choose_Polar("Accel CP");
    Set_Component("Ang", 1);
    Whole();
    EXPECT_EQ(Text_At("pnl_PlotUnits"), Model.UnitLabel(Model.FuncGroup(1)));
}

TEST_F(PolarPlot, InLocalRotatingCoordinatesTheTipsAreTurnedAtEachStep) {
    Choose_Polar("Veloc CP");
    Model.CoordSystem = 2;
    Whole();
    for (int i = 0; i <= 8; ++i) {
        const Plane_Vector seen = Velocity(i).Turned(-Model.RunTable.Theta(i, 1));
        EXPECT_NEAR(Model.PolarX(i), seen.x, 2e-4);
        EXPECT_NEAR(Model.PolarY(i), seen.y, 2e-4);
    }
    EXPECT_EQ(Text_At("lbl_Coord"), "Local Rotating");
}

TEST_F(PolarPlot, TheSetUpClearsAndFillsThePanels) {
    form.pct_Plot.Drawing().Line(0, 0, 1, 1, 255);
    MyPolarPlotSetup(form);
    EXPECT_EQ(form.pct_Plot.Drawing().Alive(), 0U);
    EXPECT_EQ(Text_At("lbl_Initial", 1), "Min Theta");
    EXPECT_EQ(Text_At("lbl_Coord"), "Global");
    EXPECT_NE(Text_At("lbl_Header").find("Design No. "), std::string::npos);
    for (const int type : {2, 4, 5}) {
        Model.Calctype = type;
        form.Summary.lbl_Initial[1].Caption = "";
        MyPolarPlotSetup(form);
        EXPECT_EQ(Text_At("lbl_Initial", 1), "Start Time");
        EXPECT_EQ(form.Summary.fra_Initial.Visible, type == 2);
    }
    Model.Calctype = 1;
    MyPolarPlotSetup(form);
    EXPECT_FALSE(form.Summary.lbl_Initial[1].Visible);
    EXPECT_EQ(Text_At("lbl_Initial", 4), "Theta2");
}

TEST_F(PolarPlot, TheModeFollowsTheBoxesAndWithNeitherItStays) {
    Boxes(true, false);
    MyPolarPlotSetup(form);
    EXPECT_EQ(Model.PolarMode, 1);
    EXPECT_TRUE(Model.PolarEnvelope);
    EXPECT_FALSE(Model.PolarVectors);
    Boxes(false, true);
    MyPolarPlotSetup(form);
    EXPECT_EQ(Model.PolarMode, 2);
    EXPECT_TRUE(Model.PolarVectors);
    Boxes(true, true);
    MyPolarPlotSetup(form);
    EXPECT_EQ(Model.PolarMode, 3);
    Boxes(false, false);
    MyPolarPlotSetup(form);
    EXPECT_EQ(Model.PolarMode, 3);
    EXPECT_FALSE(Model.PolarEnvelope);
    EXPECT_FALSE(Model.PolarVectors);
    Boxes(true, false);
    MyPolarPlotSetup(form);
    EXPECT_EQ(Model.PolarMode, 1);
}

TEST_F(PolarPlot, BothBoxesClearAtTheFirstPlotDrawByTheLastMode) {
    Choose_Polar("Veloc CP");
    Model.PolarMode = 2;
    Boxes(false, false);
    form.pct_Plot.Redirect(&log);
    Whole();
    EXPECT_EQ(Curves().size(), 18U);
}

TEST_F(PolarPlot, EnvelopeAlone) {
    Choose_Polar("Veloc CP");
    Boxes(true, false);
    form.pct_Plot.Redirect(&log);
    Whole();
    std::vector<std::string> expected{Blue("PSet", 0)};
    for (int i = 1; i <= 8; ++i) expected.push_back(Blue("LineTo", i));
    Expect_Rows(Curves(), expected);
    Expect_Log("polar_envelope", log);
}

TEST_F(PolarPlot, VectorsAlone) {
    Choose_Polar("Veloc CP");
    Boxes(false, true);
    form.pct_Plot.Redirect(&log);
    Whole();
    std::vector<std::string> expected;
    for (int i = 0; i <= 8; ++i) {
        expected.push_back(From_Origin());
        expected.push_back(Blue("LineTo", i));
    }
    Expect_Rows(Curves(), expected);
    Expect_Log("polar_vectors", log);
}

TEST_F(PolarPlot, BothAreTheVectorsFirstThenThePathWhichCloses) {
    Choose_Polar("Accel CP");
    Boxes(true, true);
    form.pct_Plot.Redirect(&log);
    Whole();
    std::vector<std::string> expected;
    for (int i = 0; i <= 8; ++i) {
        expected.push_back(From_Origin());
        expected.push_back(Blue("LineTo", i));
    }
    expected.push_back(Blue("PSet", 0));
    for (int i = 1; i <= 8; ++i) expected.push_back(Blue("LineTo", i));
    expected.push_back(Blue("LineTo", 0));
    Expect_Rows(Curves(), expected);
    Expect_Log("polar_both", log);
}

TEST_F(PolarPlot, ATransformIsRefused) {
    Choose_Polar("Current FFT");
    form.pnl_LeftTitle.Caption = "before";
    desktop.Expect_Message("FFT data are not suited to polar plots.\r\nUse a cartesian plot format instead.");
    MyPolarPlot(form, chosen);
    EXPECT_EQ(Text_At("pnl_LeftTitle"), "before");
    EXPECT_EQ(form.pct_Plot.Drawing().Alive(), 0U);
}

TEST_F(PolarPlot, TheFlywheelTorqueHasNoVectorAndAllItsTipsAreTheOrigin) {
    Choose_Polar("Flywl Torque");
    Whole();
    for (int i = 0; i <= 8; ++i) {
        EXPECT_EQ(Model.PolarX(i), 0);
        EXPECT_EQ(Model.PolarY(i), 0);
    }
    EXPECT_EQ(Model.PlotYmax, Single(0.0001));
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(0.0001, 3));
}

TEST_F(PolarPlot, AWindowThatFailsIsToldSkippedAndNumberedAllTheSame) {
    Choose_Polar("Veloc CP");
    for (int i = 0; i <= 8; ++i)
        for (const int axis : {0, 1}) Model.RunTable.VelXY(i, 2, axis) = axis == 0 ? 2.9e38 : 0;
    Model.Link1Angle = 0;
    // A magnitude whose window is wider than numbers go.
    desktop.Expect_Message("The magnitude of Veloc CP exceeds the capacity of this window.");
    Whole();
    EXPECT_TRUE(Model.WindowFailed);
    EXPECT_EQ(form.pct_Plot.Drawing().Alive(), 0U);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(Model.PlotYmax, 0));
    MyPolarStep(form, 3);
    EXPECT_EQ(form.pct_Plot.Drawing().Alive(), 0U);
    EXPECT_TRUE(form.pct_Plot.Reading().Empty());
    EXPECT_NE(Text_At("pnl_vector", 0), "");
}

TEST_F(PolarPlot, AStepShowsItsVectorAloneWithItsValues) {
    Choose_Polar("Veloc CP");
    Boxes(false, true);
    Whole();
    form.pct_Plot.Redirect(&log);
    MyPolarStep(form, 3);
    Expect_Rows(Curves(), {From_Origin(), Blue("LineTo", 3)});
    EXPECT_EQ(log.Calls.front(), "Cls");
    EXPECT_EQ(Text_At("lbl_StepLabel"), "Theta2");
    EXPECT_EQ(Text_At("lbl_StepUnit"), "deg");
    EXPECT_EQ(Text_At("lbl_StepNumber"), FNRoundStr(Model.RunTable.Theta(3, 0), 1));
    EXPECT_EQ(Text_At("pnl_vector", 0), Text_Of(FNRound(Single(Velocity(3).Mag()), 3)));
    const std::string angle = Text_At("pnl_vector", 1);
    EXPECT_LE(angle.size() - angle.find('.') - 1, 3U) << angle;
    EXPECT_NEAR(std::stod(Text_At("pnl_vector", 0)), Velocity(3).Mag(), 6e-4);
    EXPECT_NEAR(std::stod(Text_At("pnl_vector", 1)), Velocity(3).Ang(), 2e-3);
}

TEST_F(PolarPlot, AStepOfTheOtherModes) {
    Choose_Polar("Veloc CP");
    Boxes(true, false);
    Whole();
    form.pct_Plot.Redirect(&log);
    MyPolarStep(form, 3);
    Expect_Rows(Curves(), {Blue("PSet", 2), Blue("LineTo", 3)});
    log.Calls.clear();
    MyPolarStep(form, 0);
    Expect_Rows(Curves(), {Blue("PSet", 0)});
    Model.PolarMode = 3;
    log.Calls.clear();
    MyPolarStep(form, 3);
    Expect_Rows(Curves(), {From_Origin(), Blue("LineTo", 3), Blue("PSet", 2), Blue("LineTo", 3)});
    Expect_Log("polar_step", log);
}

TEST_F(PolarPlot, AStepOfATimeOrDrivenRunShowsTheTime) {
    By_Time(0.5, 1, 0.05);
    Choose_Polar("Veloc CP");
    for (const int type : {2, 4, 5}) {
        Model.Calctype = type;
        form.lbl_StepLabel.Caption = form.lbl_StepUnit.Caption = form.lbl_StepNumber.Caption = "";
        Whole();
        MyPolarStep(form, 4);
        EXPECT_EQ(Text_At("lbl_StepLabel"), "Time");
        EXPECT_EQ(Text_At("lbl_StepUnit"), "sec");
        EXPECT_EQ(Text_At("lbl_StepNumber"), FNRoundStr(0.7, 2));
    }
}

TEST_F(PolarPlot, FailuresAreReportedUnderTheNames) {
    platform::Screen bare("frm_Bare");
    desktop.Expect_Message_With("MyPolarPlotSetup");
    MyPolarPlotSetup(bare);
    desktop.Expect_Message_With("MyPolarPlot");
    MyPolarPlot(form, bare);
    desktop.Expect_Message_With("MyPolarStep");
    MyPolarStep(bare, 0);
    desktop.Expect_Message_With("MyPolarStep");
    MyPolarStep(form, 2881);
}

}  // namespace verlink::test
