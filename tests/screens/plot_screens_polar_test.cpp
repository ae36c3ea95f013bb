// The polar screen: its boxes, and the mode that shows one vector at a time.
#include "core/numeric.h"
#include "screens/frm_myplot4.h"
#include "tests/screens/plot_screens_fixture.h"

namespace verlink::test {

namespace {

class PolarScreen : public Plot_Screens {
   protected:
    PolarScreen() {
        Choose("frm_PlotSelect4", 1, "Veloc CP", "X");
        form.pct_Plot.Redirect(&log);
    }
    /// The vectors and pieces of the path that were drawn since the log was cleared.
    int Blue() {
        return static_cast<int>(std::count_if(log.Calls.begin(), log.Calls.end(),
                                              [](const auto& call) { return call.starts_with("LineTo"); }));
    }
    void After_First_Plot(const std::function<void()>& user) {
        Inside(form, [&] {
            form.Timer1.Tick();
            log.Calls.clear();
            user();
        });
    }
    void Expect_Step_Controls(bool shown) {
        for (platform::Label* label : {&form.lbl_StepUnit, &form.lbl_StepLabel, &form.lbl_StepNumber,
                                       &form.pnl_PlotUnits, &form.pnl_name[0], &form.pnl_name[1], &form.pnl_vector[0]})
            EXPECT_EQ(label->Visible, shown) << label->ObjectName();
        EXPECT_EQ(form.chk_Envelope.Enabled, !shown);
        EXPECT_EQ(form.chk_Vectors.Enabled, !shown);
    }

    frm_MyPlot4& form = static_cast<frm_MyPlot4&>(platform::Screens::Get("frm_MyPlot4"));
    LogSurface log;
};

}  // namespace

TEST_F(PolarScreen, Captions) {
    EXPECT_EQ(form.cmd_Step.Caption, "Plot");
    EXPECT_EQ(form.chk_Pause.Caption, "Pause");
    EXPECT_EQ(form.cmd_Replot.Caption, "&Replot");
    EXPECT_EQ(form.cmd_Back.Caption, "< &Back");
    EXPECT_EQ(form.cmd_PlotDone.Caption, "&Next >");
    EXPECT_EQ(form.pnl_vector[0].Caption, "data");
    EXPECT_TRUE(form.chk_Envelope.Value);
    Every_Input_Is_Explained(form);
}

TEST_F(PolarScreen, ThePlotDrawsAtTheFirstTickAndTheTimerStops) {
    Inside(form, [&] {
        EXPECT_TRUE(log.Calls.empty());
        EXPECT_TRUE(form.Timer1.Enabled);
        form.Timer1.Tick();
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_EQ(Blue(), 36);
        EXPECT_EQ(form.lbl_Header2.Caption, "Linkage Veloc CP  -  in/sec");
        EXPECT_EQ(form.pnl_LeftTitle.Caption, "Veloc CP");
        Expect_Step_Controls(false);
    });
}

TEST_F(PolarScreen, TheBoxesReplot) {
    After_First_Plot([&] {
        Tick(form, "chk_Vectors", true);
        EXPECT_EQ(Model.PolarMode, 3);
        EXPECT_EQ(Blue(), 37 + 36 + 1);
        log.Calls.clear();
        Tick(form, "chk_Envelope", false);
        EXPECT_EQ(Model.PolarMode, 2);
        EXPECT_EQ(Blue(), 37);
    });
}

TEST_F(PolarScreen, OneOfTheTwoBoxesAlwaysShows) {
    After_First_Plot([&] {
        Tick(form, "chk_Envelope", false);
        EXPECT_TRUE(form.chk_Envelope.Value);
        EXPECT_FALSE(form.chk_Vectors.Value);
        EXPECT_EQ(Model.PolarMode, 1);
        EXPECT_EQ(Blue(), 36) << "drawn once more, as it was";
        Tick(form, "chk_Vectors", true);
        Tick(form, "chk_Envelope", false);
        EXPECT_EQ(Model.PolarMode, 2);
        log.Calls.clear();
        Tick(form, "chk_Vectors", false);
        EXPECT_TRUE(form.chk_Vectors.Value);
        EXPECT_FALSE(form.chk_Envelope.Value);
        EXPECT_EQ(Model.PolarMode, 2);
        EXPECT_EQ(Blue(), 37);
    });
}

TEST_F(PolarScreen, HelpLeavesThePauseAtItsStep) {
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        for (int step = 1; step <= 5; ++step) Press(form, "cmd_Step");
        const std::string number = form.lbl_StepNumber.Caption, size = form.pnl_vector[0].Caption;
        log.Calls.clear();
        desktop.Expect_Screen("frm_Help", [](platform::Screen& help) { help.Hide(); });
        Pick_Menu(form, "mnu_Help");
        form.Timer1.Tick();
        EXPECT_TRUE(form.chk_Pause.Value);
        EXPECT_EQ(form.cmd_Step.Caption, "S&tep");
        Expect_Step_Controls(true);
        EXPECT_EQ(form.lbl_StepNumber.Caption, number);
        EXPECT_EQ(form.pnl_vector[0].Caption, size);
        EXPECT_TRUE(log.Calls.empty()) << log.Calls.front();
        Press(form, "cmd_Step");
        EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(Model.RunTable.Theta(6, 0), 1));
    });
}

TEST_F(PolarScreen, PauseShowsTheFirstVectorWithItsValues) {
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        EXPECT_EQ(form.cmd_Step.Caption, "S&tep");
        EXPECT_TRUE(form.cmd_Step.Enabled);
        Expect_Step_Controls(true);
        EXPECT_FALSE(form.chk_Envelope.Value);
        EXPECT_TRUE(form.chk_Vectors.Value);
        EXPECT_EQ(Model.PolarMode, 2);
        EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(0, 1));
        EXPECT_EQ(form.pnl_PlotUnits.Caption, "in/sec");
        const double speed = std::hypot(Model.RunTable.VelXY(0, 2, 0), Model.RunTable.VelXY(0, 2, 1));
        EXPECT_NEAR(std::stod(form.pnl_vector[0].Caption), speed, 6e-4);
        // Only this vector is to be seen.
        const auto last_clear = std::find(log.Calls.rbegin(), log.Calls.rend(), "Cls");
        EXPECT_EQ(
            std::count_if(log.Calls.rbegin(), last_clear, [](const auto& call) { return call.starts_with("LineTo"); }),
            1);
    });
}

TEST_F(PolarScreen, StepGoesFromVectorToVector) {
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        for (int step = 1; step <= 3; ++step) {
            log.Calls.clear();
            Press(form, "cmd_Step");
            EXPECT_EQ(Blue(), 1);
            EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(Model.RunTable.Theta(step, 0), 1));
            const double x = Model.RunTable.VelXY(step, 2, 0);
            const double y = Model.RunTable.VelXY(step, 2, 1);
            EXPECT_NEAR(std::stod(form.pnl_vector[0].Caption), std::hypot(x, y), 6e-4);
            const double angle = std::atan2(y, x) * 57.29577951308232;
            EXPECT_NEAR(std::remainder(std::stod(form.pnl_vector[1].Caption) - angle, 360), 0, 2e-3);
        }
    });
}

TEST_F(PolarScreen, SteppingPastTheLastStepEndsThePauseAndRedrawsTheWholePlot) {
    By_Angle(0, 20, 10);
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        Press(form, "cmd_Step");
        Press(form, "cmd_Step");
        EXPECT_TRUE(form.chk_Pause.Value);
        log.Calls.clear();
        Press(form, "cmd_Step");
        EXPECT_FALSE(form.chk_Pause.Value);
        EXPECT_EQ(form.cmd_Step.Caption, "Plot");
        Expect_Step_Controls(false);
        // The boxes stay as the pause has set them.
        EXPECT_EQ(Blue(), 3);
        EXPECT_TRUE(form.chk_Vectors.Value);
        EXPECT_FALSE(form.chk_Envelope.Value);
    });
}

TEST_F(PolarScreen, APauseEndsWhenTheScreenComesUpForAnotherPlot) {
    After_First_Plot([&] { Tick(form, "chk_Pause", true); });
    Inside(form, [&] {
        EXPECT_FALSE(form.chk_Pause.Value);
        Expect_Step_Controls(false);
    });
}

TEST_F(PolarScreen, APauseStartsAtTheFirstStepAgain) {
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        Press(form, "cmd_Step");
        Tick(form, "chk_Pause", false);
        Tick(form, "chk_Pause", true);
        EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(0, 1));
        Press(form, "cmd_Step");
        EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(Model.RunTable.Theta(1, 0), 1));
    });
}

TEST_F(PolarScreen, WithoutAPauseThePlotButtonReplots) {
    After_First_Plot([&] {
        Press(form, "cmd_Step");
        EXPECT_EQ(Blue(), 36);
        log.Calls.clear();
        Press(form, "cmd_Replot");
        EXPECT_EQ(Blue(), 36);
    });
}

TEST_F(PolarScreen, ATimeRunStepsByTime) {
    By_Time(0, 0.5, 0.05);
    After_First_Plot([&] {
        Tick(form, "chk_Pause", true);
        Press(form, "cmd_Step");
        EXPECT_EQ(form.lbl_StepLabel.Caption, "Time");
        EXPECT_EQ(form.lbl_StepUnit.Caption, "sec");
        EXPECT_EQ(form.lbl_StepNumber.Caption, FNRoundStr(0.05, 2));
    });
}

TEST_F(PolarScreen, BackAndNext) {
    Go_Back(form, "cmd_Back", "frm_PlotSelect4");
    Inside(form, [&] {
        Press(form, "cmd_PlotDone");
        EXPECT_TRUE(Model.ScreenReturn);
        EXPECT_FALSE(form.Visible());
    });
}

TEST_F(PolarScreen, PrintAndCopy) {
    Printing(form);
    Copying(form);
}

}  // namespace verlink::test
