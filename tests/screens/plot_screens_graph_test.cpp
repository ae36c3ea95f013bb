// The screens with graphs: their looks, and each change of style drawn anew.
#include "core/numeric.h"
#include "screens/frm_plot1.h"
#include "screens/frm_plot2.h"
#include "screens/frm_plot3.h"
#include "tests/screens/plot_screens_fixture.h"

namespace verlink::test {

namespace {

class GraphScreens : public Plot_Screens {
   protected:
    template <class Form>
    static Form& Of(const char* name) {
        return static_cast<Form&>(platform::Screens::Get(name));
    }
    static double Value(platform::Graph& graph, std::size_t set, std::size_t point) {
        return graph.Sets().at(set).values.at(point);
    }

    frm_Plot1& one = Of<frm_Plot1>("frm_Plot1");
    frm_Plot2& two = Of<frm_Plot2>("frm_Plot2");
    frm_Plot3& four = Of<frm_Plot3>("frm_Plot3");
};

constexpr platform::Color kDarkBlue = 128 * 65536;

}  // namespace

TEST_F(GraphScreens, CaptionsAndBoxes) {
    for (Graph_Screen* form :
         {static_cast<Graph_Screen*>(&one), static_cast<Graph_Screen*>(&two), static_cast<Graph_Screen*>(&four)}) {
        EXPECT_EQ(form->chk_HGrid.Caption, "Horiz");
        EXPECT_EQ(form->chk_VGrid.Caption, "Vertic");
        EXPECT_EQ(form->opt_Back[0].Caption, "White");
        EXPECT_EQ(form->opt_Back[1].Caption, "Blue");
        EXPECT_EQ(form->opt_Back[2].Caption, "Gray");
        EXPECT_EQ(form->cmd_Copy.Caption, "&Copy");
        EXPECT_EQ(form->cmd_Replot.Caption, "< &Back");
        EXPECT_EQ(form->cmd_Done.Caption, "&Next >");
        EXPECT_EQ(form->cmd_PlotPrint.Caption, "&Print");
        EXPECT_EQ(form->Summary.fra_Links.Caption, "Linkage Data");
        EXPECT_EQ(form->Width(), 11850);
        EXPECT_EQ(form->Height(), 8950);
        Every_Input_Is_Explained(*form);
    }
    EXPECT_FALSE(one.grf_Plot.Has(1));
    EXPECT_TRUE(two.grf_Plot.Has(1));
    EXPECT_FALSE(two.grf_Plot.Has(2));
    EXPECT_TRUE(four.grf_Plot.Has(3));
}

TEST_F(GraphScreens, ActivationPlotsAllFunctionsInOneGraph) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Choose("frm_PlotSelect1", 2, "Omega4", "Mag");
    Inside(one, [&] {
        ASSERT_EQ(one.grf_Plot[0].NumSets(), 2);
        for (int i = 0; i <= 36; ++i) {
            EXPECT_EQ(Value(one.grf_Plot[0], 0, static_cast<std::size_t>(i)), Model.RunTable.Theta(i, 1));
            EXPECT_EQ(Value(one.grf_Plot[0], 1, static_cast<std::size_t>(i)), Model.RunTable.Omega(i, 2));
        }
        EXPECT_EQ(one.grf_Plot[0].Sets()[0].legend, "Theta3 Mag degrees");
        EXPECT_EQ(one.lbl_Header2.Caption, "Selected Linkage Parameters");
        EXPECT_EQ(one.chk_Line.Caption, "Lines");
        EXPECT_EQ(one.chk_Sticks.Caption, "Fills");
        EXPECT_EQ(one.Summary.lbl_Links[1].Caption, FNRoundStr(1.115, Model.DecLengthShown));
    });
}

TEST_F(GraphScreens, ActivationPlotsOneFunctionInEachGraph) {
    Choose("frm_PlotSelect2", 1, "Theta3", "Mag");
    Choose("frm_PlotSelect2", 2, "Omega4", "Mag");
    Inside(two, [&] {
        EXPECT_EQ(two.grf_Plot[0].GraphTitle, "Theta3  (degrees)");
        EXPECT_EQ(two.grf_Plot[1].GraphTitle, "Omega4  (rad/sec)");
        EXPECT_EQ(Value(two.grf_Plot[1], 0, 7), Model.RunTable.Omega(7, 2));
    });
    const char* variables[] = {"Theta2", "Theta3", "Theta4", "Omega3"};
    for (int slot = 1; slot <= 4; ++slot) Choose("frm_PlotSelect3", slot, variables[slot - 1], "Mag");
    Inside(four, [&] {
        for (int i = 0; i < 4; ++i) EXPECT_EQ(four.grf_Plot[i].Drawings(), 1);
        EXPECT_EQ(Value(four.grf_Plot[2], 0, 11), Model.RunTable.Theta(11, 2));
        EXPECT_EQ(Value(four.grf_Plot[3], 0, 11), Model.RunTable.Omega(11, 1));
    });
}

TEST_F(GraphScreens, ATransformIsDrawnByItsEnvelopeAndLines) {
    Choose("frm_PlotSelect2", 1, "Current FFT", "X");
    Choose("frm_PlotSelect2", 2, "Current FFT", "Y");
    Inside(two, [&] {
        EXPECT_EQ(two.chk_Line.Caption, "Envelope");
        EXPECT_EQ(two.chk_Sticks.Caption, "Lines");
        EXPECT_EQ(two.grf_Plot[0].BottomTitle, "Harmonic Number");
    });
    Choose("frm_PlotSelect2", 1, "Theta3", "Mag");
    Inside(two, [&] {
        EXPECT_EQ(two.chk_Line.Caption, "Lines");
        EXPECT_EQ(two.chk_Sticks.Caption, "Fills");
    });
}

TEST_F(GraphScreens, TheColorOfTheGraphsAndOfTheirMount) {
    Choose("frm_PlotSelect2", 1, "Theta3", "Mag");
    Choose("frm_PlotSelect2", 2, "Theta4", "Mag");
    Inside(two, [&] {
        EXPECT_EQ(two.grf_Plot[1].Background, 15);
        EXPECT_EQ(two.pct_Frame.BackColor, kDarkBlue);
        Choose_Option(two, "opt_Back", 1);
        EXPECT_EQ(two.grf_Plot[0].Background, 1);
        EXPECT_EQ(two.grf_Plot[1].Background, 1);
        EXPECT_EQ(two.pct_Frame.BackColor, Model.ColorWhite);
        Choose_Option(two, "opt_Back", 2);
        EXPECT_EQ(two.grf_Plot[1].Background, 7);
        EXPECT_EQ(two.pct_Frame.BackColor, Model.ColorBlack);
        EXPECT_EQ(two.grf_Plot[0].Drawings(), 3);
    });
    // The choice holds when the screen comes up again.
    Inside(two, [&] { EXPECT_EQ(two.grf_Plot[0].Background, 7); });
}

TEST_F(GraphScreens, EachChangeOfStyleRedrawsFromTheRunTable) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Inside(one, [&] {
        platform::Graph& graph = one.grf_Plot[0];
        EXPECT_EQ(graph.GridStyle, 3);
        EXPECT_EQ(graph.GraphStyle, 4);
        int drawings = graph.Drawings();
        double value = 1000;
        const auto changed = [&] {
            EXPECT_EQ(graph.Drawings(), ++drawings);
            EXPECT_EQ(Value(graph, 0, 5), value);
            Model.RunTable.Theta(5, 1) = ++value;
        };
        Model.RunTable.Theta(5, 1) = value;
        Tick(one, "chk_HGrid", false);
        EXPECT_EQ(graph.GridStyle, 2);
        changed();
        Tick(one, "chk_VGrid", false);
        EXPECT_EQ(graph.GridStyle, 0);
        changed();
        Tick(one, "chk_Sticks", true);
        EXPECT_EQ(graph.GraphStyle, 6);
        changed();
        Tick(one, "chk_Line", false);
        EXPECT_EQ(graph.GraphStyle, 2);
        changed();
        Choose_Option(one, "opt_Back", 1);
        changed();
    });
}

TEST_F(GraphScreens, OneOfLinesAndFillsAlwaysShows) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Inside(one, [&] {
        platform::Graph& graph = one.grf_Plot[0];
        const int drawings = graph.Drawings();
        Tick(one, "chk_Line", false);
        EXPECT_TRUE(one.chk_Line.Value);
        EXPECT_EQ(graph.GraphStyle, 4);
        EXPECT_EQ(graph.Drawings(), drawings + 1);
        Tick(one, "chk_Sticks", true);
        Tick(one, "chk_Line", false);
        EXPECT_FALSE(one.chk_Line.Value);
        EXPECT_EQ(graph.GraphStyle, 2);
        Tick(one, "chk_Sticks", false);
        EXPECT_TRUE(one.chk_Sticks.Value);
        EXPECT_FALSE(one.chk_Line.Value);
        EXPECT_EQ(graph.GraphStyle, 2) << "no line comes back";
    });
}

TEST_F(GraphScreens, BackLeadsToTheScreenThatChose) {
    for (int slot = 1; slot <= 4; ++slot)
        for (const char* selection : {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3"})
            if (slot < 3 || std::string(selection) != "frm_PlotSelect2") Choose(selection, slot, "Theta3", "Mag");
    Go_Back(one, "cmd_Replot", "frm_PlotSelect1");
    Go_Back(two, "cmd_Replot", "frm_PlotSelect2");
    Go_Back(four, "cmd_Replot", "frm_PlotSelect3");
    EXPECT_FALSE(Model.ScreenReturn);
}

TEST_F(GraphScreens, NextLeavesForTheHomeScreen) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Inside(one, [&] {
        Press(one, "cmd_Done");
        EXPECT_TRUE(Model.ScreenReturn);
        EXPECT_FALSE(one.Visible());
    });
}

TEST_F(GraphScreens, PrintAsksOpensThePrinterDialogAndPrintsTheScreen) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Printing(one);
}

TEST_F(GraphScreens, CopyTellsTheKeys) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    Copying(one);
}

TEST_F(GraphScreens, HelpIsThatOfPlots) {
    Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
    EXPECT_EQ(one.Caption(), "Output Screen");
    Helping(one);
    one.Caption() = "Output ScreenVERLINK - 2008";
    Helping(one);
}

TEST_F(GraphScreens, WithoutTheScreenThatChoseThePlotIsReported) {
    platform::Screens::Register("frm_PlotSelect1", nullptr);
    desktop.Expect_Message_With("frm_Plot1.Activate");
    Inside(one, [] {});
}

}  // namespace verlink::test
