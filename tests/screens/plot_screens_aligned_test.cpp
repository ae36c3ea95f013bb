// The screens of aligned windows: their controls, and the moment before the first drawing.
#include "core/numeric.h"
#include "screens/frm_myplot2.h"
#include "screens/frm_myplot3.h"
#include "tests/screens/plot_screens_fixture.h"

namespace verlink::test {

namespace {

class AlignedScreens : public Plot_Screens {
   protected:
    AlignedScreens() {
        const char* variables[] = {"Theta3", "Theta4", "Omega3", "Omega4"};
        for (int slot = 1; slot <= 4; ++slot) Choose("frm_PlotSelect3", slot, variables[slot - 1], "Mag");
        for (int slot = 1; slot <= 2; ++slot) Choose("frm_PlotSelect2", slot, variables[slot - 1], "Mag");
    }

    frm_Myplot2& two = static_cast<frm_Myplot2&>(platform::Screens::Get("frm_Myplot2"));
    frm_MyPlot3& four = static_cast<frm_MyPlot3&>(platform::Screens::Get("frm_MyPlot3"));
};

}  // namespace

TEST_F(AlignedScreens, Captions) {
    for (Aligned_Screen* form : {static_cast<Aligned_Screen*>(&two), static_cast<Aligned_Screen*>(&four)}) {
        EXPECT_EQ(form->cmd_Replot.Caption, "&Replot");
        EXPECT_EQ(form->cmd_Back.Caption, "< &Back");
        EXPECT_EQ(form->cmd_PlotDone.Caption, "&Next >");
        EXPECT_EQ(form->cmd_PlotPrint.Caption, "&Print");
        EXPECT_EQ(form->pnl_zero[0].Caption, "0");
        EXPECT_EQ(form->lbl_PeakName[1].Caption, "Peak");
        EXPECT_EQ(form->lbl_PtoPName[1].Caption, "P to P");
        EXPECT_EQ(form->Summary.lbl_LinkName[4].Caption, "Dist. from I 2,3 to Coupler Pt");
        Every_Input_Is_Explained(*form);
    }
    EXPECT_FALSE(two.pct_Plot.Has(2));
    EXPECT_TRUE(four.pct_Plot.Has(3));
}

TEST_F(AlignedScreens, ThePlotDrawsAtTheFirstTickAndTheTimerStops) {
    Inside(two, [&] {
        EXPECT_EQ(Model.ReplotDelay, 0);
        EXPECT_TRUE(two.Timer1.Enabled);
        EXPECT_EQ(two.Timer1.Interval, 250);
        EXPECT_EQ(two.pct_Plot[0].Drawing().Alive(), 0U);
        two.Timer1.Tick();
        EXPECT_FALSE(two.Timer1.Enabled);
        EXPECT_GT(two.pct_Plot[0].Drawing().Alive(), 36U);
        EXPECT_GT(two.pct_Plot[1].Drawing().Alive(), 36U);
        EXPECT_EQ(two.pnl_LeftTitle[1].Caption, "Theta4");
    });
}

TEST_F(AlignedScreens, AReplotDelayIsWaitedForInWholeSeconds) {
    Inside(two, [&] {
        Model.ReplotDelay = 3600;
        two.Timer1.Tick();
        EXPECT_TRUE(two.Timer1.Enabled);
        EXPECT_EQ(two.pct_Plot[0].Drawing().Alive(), 0U);
        Model.ReplotDelay = 0;
        two.Timer1.Tick();
        EXPECT_FALSE(two.Timer1.Enabled);
        EXPECT_GT(two.pct_Plot[0].Drawing().Alive(), 36U);
    });
}

TEST_F(AlignedScreens, WhoLeavesBeforeTheFirstTickGetsNoPlot) {
    Model.ThetaEnd = Model.ThetaStart;
    Inside(two, [&] { Press(two, "cmd_PlotDone"); });
    two.Timer1.Tick();
    EXPECT_FALSE(two.Timer1.Enabled);
    EXPECT_EQ(two.pnl_LeftTitle[0].Caption, "");
}

TEST_F(AlignedScreens, FourWindowsAreDrawn) {
    Inside(four, [&] {
        four.Timer1.Tick();
        for (int i = 0; i < 4; ++i) {
            EXPECT_GT(four.pct_Plot[i].Drawing().Alive(), 36U);
            EXPECT_EQ(four.pnl_Xmax[i].Caption, FNRoundStr(360, 0));
        }
        EXPECT_EQ(four.pnl_PlotUnits[2].Caption, "rad/sec");
    });
}

TEST_F(AlignedScreens, ACrankThatTurnsBackwardIsDrawnAcrossTheWindowWithoutAChord) {
    Model.Omega2Input = -10;
    By_Angle(0, 360, 10);
    Inside(two, [&] {
        two.Timer1.Tick();
        EXPECT_EQ(two.pnl_Xmin[0].Caption, FNRoundStr(360, 0));
        EXPECT_EQ(two.pnl_Xmax[0].Caption, FNRoundStr(0, 0));
        int pieces = 0;
        for (const auto& primitive : two.pct_Plot[0].Drawing().Primitives()) {
            if (!primitive.alive || primitive.color != Model.ColorBlue ||
                primitive.kind != platform::Picture::Primitive::Kind::kSegment)
                continue;
            ++pieces;
            EXPECT_LT(std::abs(primitive.x2 - primitive.x1), 10.01);
            EXPECT_GT(primitive.x2, -0.01);
            EXPECT_LT(primitive.x2, 360.01);
        }
        EXPECT_EQ(pieces, 37);
    });
}

TEST_F(AlignedScreens, ReplotDrawsAnewFromTheRunTable) {
    Inside(two, [&] {
        two.Timer1.Tick();
        for (int i = 0; i <= 36; ++i) Model.RunTable.Theta(i, 1) = i == 4 ? 1234 : 0;
        Press(two, "cmd_Replot");
        EXPECT_EQ(two.lbl_Max[0].Caption, FNRoundStr(1234, 0));
        EXPECT_EQ(two.lbl_Peak[0].Caption, FNRoundStr(1234, 0));
    });
}

TEST_F(AlignedScreens, BackLeadsToTheScreenThatChose) {
    Go_Back(two, "cmd_Back", "frm_PlotSelect2");
    Go_Back(four, "cmd_Back", "frm_PlotSelect3");
}

TEST_F(AlignedScreens, NextLeavesForTheHomeScreen) {
    Inside(four, [&] {
        Press(four, "cmd_PlotDone");
        EXPECT_TRUE(Model.ScreenReturn);
        EXPECT_FALSE(four.Visible());
    });
}

TEST_F(AlignedScreens, PrintAsksOpensThePrinterDialogAndPrintsTheScreen) { Printing(two); }

TEST_F(AlignedScreens, CopyTellsTheKeys) { Copying(four); }

TEST_F(AlignedScreens, HelpLeavesThePlotAsItIs) {
    Inside(two, [&] {
        two.Timer1.Tick();
        two.pnl_LeftTitle[0].Caption = "as it was";
        desktop.Expect_Screen("frm_Help", [](platform::Screen& help) { help.Hide(); });
        Pick_Menu(two, "mnu_Help");
        EXPECT_FALSE(two.Timer1.Enabled);
        EXPECT_EQ(two.pnl_LeftTitle[0].Caption, "as it was");
    });
    Inside(two, [&] { EXPECT_TRUE(two.Timer1.Enabled) << "it comes up for another plot"; });
}

TEST_F(AlignedScreens, HelpIsThatOfPlots) { Helping(four); }

}  // namespace verlink::test
