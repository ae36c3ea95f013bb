// From a choice to its plot: every preset on the screens that plot and tabulate it, and the ways there.
#include <cmath>
#include <numbers>
#include <span>

#include "core/numeric.h"
#include "platform/graph.h"
#include "platform/grid.h"
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect3.h"
#include "screens/frm_plotselect4.h"
#include "screens/frm_printselect.h"
#include "tests/output/preset_rows.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::Graph;
using platform::Grid;
using platform::Label;
using platform::Screen;
using platform::Screens;

class FromChoiceToPlotTest : public SelectionScreenTest {
   protected:
    FromChoiceToPlotTest() {
        Model.ModuloMode = "abs";
        Screens::Get("frm_FFT");  // a transform was made there; its load sets the number of harmonics
        Model.Harmonics = 4;
        for (int step = 0; step <= Model.NSteps; ++step) {
            for (int row = 0; row < 4; ++row) table.Theta(step, row) = 100 * row + 5 * step + 1;
            for (int row = 0; row < 3; ++row) table.Omega(step, row) = 10 * row - step - 2;
            for (int row = 0; row < 3; ++row) table.Alpha(step, row) = 7 * row + step + 3;
            for (int row = 0; row < 6; ++row) table.VelXY(step, row, 0) = 2 * row - step;
            for (int row = 0; row < 6; ++row) table.VelXY(step, row, 1) = 3 * step - row - 1;
            for (int row = 0; row < 8; ++row) table.AccXY(step, row, 0) = 20 * row - 9 * step;
            for (int row = 0; row < 8; ++row) table.AccXY(step, row, 1) = 30 - 4 * step - row;
            table.PointXY(step, 2, 0) = 0.5 * step - 1.25;
            table.PointXY(step, 2, 1) = 0.25 * step + 0.5;
            for (int row = 0; row < 8; ++row) {
                table.PinForce(step, row, 0) = 11 * row - 2 * step - 1;
                table.PinForce(step, row, 1) = 5 + 3 * row - step;
                table.BalancedForce(step, row, 0) = 4 * row - 7 * step - 2;
                table.BalancedForce(step, row, 1) = 6 * step + row + 1;
            }
            for (int row = 0; row < 4; ++row) table.LinkTorque(step, row) = 13 * row - 6 * step + 1;
            for (int row = 0; row < 4; ++row) table.BalancedMoment(step, row) = 17 * row + 8 * step - 3;
            table.FlywheelTorque(step) = 1.5 * step - 2.25;
            table.OmegaRatio(step) = 0.1 * step + 0.3;
            table.MechAdvantage(step) = 2 - 0.2 * step;
            for (int row = 0; row < 4; ++row) Model.FFTResult(step, row) = 40 + 10 * row + step;
        }
    }

    /// Below the three of the head and the three of the statistics, in three decimals.
    void Expect_Values(const Grid& grid, int slot, int variable, const std::string& component) const {
        for (int step = 0; step <= 4; ++step)
            EXPECT_EQ(grid.Cell(6 + step, slot), FNRoundStr(Single(Expected(variable, component, step)), 3))
                << slot << ' ' << step;
    }

    /// What a slot has to show in the global frame, the ground link lying along x.
    double Expected(int number, const std::string& component, int step) const {
        const Row& row = kRows[number - 1];
        switch (row.group) {
            case 1: return table.Theta(step, row.row);
            case 2: return table.Omega(step, row.row);
            case 3: return table.Alpha(step, row.row);
            case 4: return Part(table.VelXY(step, row.row, 0), table.VelXY(step, row.row, 1), component);
            case 5: return Part(table.AccXY(step, row.row, 0), table.AccXY(step, row.row, 1), component);
            case 6: return Part(table.PointXY(step, row.row, 0), table.PointXY(step, row.row, 1), component);
            case 7: return table.OmegaRatio(step);
            case 8: return table.MechAdvantage(step);
            case 9: return table.LinkTorque(step, row.row);
            case 10: return Part(table.PinForce(step, row.row, 0), table.PinForce(step, row.row, 1), component);
            case 11:
                return Part(table.BalancedForce(step, row.row, 0), table.BalancedForce(step, row.row, 1), component);
            case 12: return table.BalancedMoment(step, row.row);
            case 18: return table.FlywheelTorque(step);
            case 14: return Model.FFTResult(step, Component_Number(component));
            default: return 0;
        }
    }
    static double Part(double x, double y, const std::string& component) {
        if (component == "X") return x;
        if (component == "Y") return y;
        if (component == "Mag") return std::hypot(x, y);
        const double angle = std::atan2(y, x) * 180 / std::numbers::pi;
        return angle < -90 ? angle + 360 : angle;
    }

    template <std::size_t n>
    using Components = std::array<std::string, n>;
    template <std::size_t n>
    static void Note(const PresetRow<n>& row, Components<n>& components) {
        for (std::size_t slot = 0; slot < n; ++slot)
            if (*row.components[slot]) components[slot] = row.components[slot];
    }
    void Expect_Points(const Graph& graph, std::size_t set, int number, const std::string& component) const {
        ASSERT_LT(set, graph.Sets().size());
        const auto& values = graph.Sets()[set].values;
        ASSERT_EQ(values.size(), 5u);
        for (int step = 0; step <= 4; ++step) {
            const double expected = Expected(number, component, step);
            EXPECT_NEAR(values[static_cast<std::size_t>(step)], expected, 1e-5 * (1 + std::abs(expected)))
                << kRows[number - 1].label << ' ' << component << ' ' << step;
        }
    }
    static std::string Unit(int number, const std::string& component, bool legend) {
        if (component == "Ang") return "Deg";
        if (number == 43) return legend ? "" : Model.FFTUnitLabel;
        return Model.UnitLabel(kRows[number - 1].group);
    }

    /// Chooses a preset and goes on to `plot`, where `look` looks.
    void Plot(Preset_Screen& form, std::size_t number, const char* plot, const std::function<void(Screen&)>& look) {
        form.Form_Activate();
        desktop.Expect_Screen(plot, [&](Screen& screen) {
            EXPECT_FALSE(form.Visible());
            look(screen);
            screen.Hide();
        });
        form.cmb_Preset.Choose(static_cast<int>(number));
        Press(form, "cmd_Done");
    }

    RunResults& table = Model.RunTable;
};

/// The four functions of a preset in a single graph, each a set.
TEST_F(FromChoiceToPlotTest, EveryPresetOfFourInASingleGraph) {
    Model.PlotStyle = 1;
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Components<4> components;
    for (std::size_t number = 0; number < std::size(kPresetsOfFour); ++number) {
        const auto& row = kPresetsOfFour[number];
        SCOPED_TRACE(row.text);
        Note(row, components);
        Plot(form, number, "frm_Plot1", [&](Screen& screen) {
            const auto& graph = screen.Get<Graph>("grf_Plot", 0);
            ASSERT_EQ(graph.NumSets(), 4);
            for (std::size_t set = 0; set < 4; ++set) {
                const int variable = row.variables[set];
                EXPECT_EQ(graph.Sets()[set].legend, std::string(kRows[variable - 1].label) + " " +
                                                        (number == 3 ? "" : components[set]) + " " +
                                                        Unit(variable, number == 3 ? "" : components[set], true));
                Expect_Points(graph, set, variable, number == 3 ? "Mag" : components[set]);
            }
            EXPECT_EQ(Model.PlotCount, 4);
        });
    }
}

/// Each function of a preset in its own graph.
TEST_F(FromChoiceToPlotTest, EveryPresetOfTwoInTwoGraphs) {
    Model.PlotStyle = 2;
    Model.FFTUnitLabel = "in/sec";
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    Choose_Option(form, "opt_Plotstyle", 1);
    Components<2> components;
    for (std::size_t number = 0; number < std::size(kPresetsOfTwo); ++number) {
        const auto& row = kPresetsOfTwo[number];
        SCOPED_TRACE(row.text);
        Note(row, components);
        Plot(form, number, "frm_Plot2", [&](Screen& screen) {
            for (int i = 0; i < 2; ++i) {
                const auto slot = static_cast<std::size_t>(i);
                const auto& graph = screen.Get<Graph>("grf_Plot", i);
                const int variable = row.variables[slot];
                EXPECT_EQ(graph.GraphTitle, std::string(kRows[variable - 1].label) + "  (" +
                                                Unit(variable, components[slot], false) + ")");
                EXPECT_EQ(graph.Sets()[0].legend, components[slot]);
                Expect_Points(graph, 0, variable, components[slot]);
            }
        });
    }
}

TEST_F(FromChoiceToPlotTest, EveryPresetOfFourInFourGraphs) {
    Model.PlotStyle = 3;
    auto& form = Activated<frm_PlotSelect3>("frm_PlotSelect3");
    Choose_Option(form, "opt_Plotstyle", 1);
    Components<4> components;
    for (std::size_t number = 0; number < std::size(kPresetsOfFour); ++number) {
        const auto& row = kPresetsOfFour[number];
        SCOPED_TRACE(row.text);
        Note(row, components);
        Plot(form, number, "frm_Plot3", [&](Screen& screen) {
            for (int i = 0; i < 4; ++i) {
                const auto slot = static_cast<std::size_t>(i);
                EXPECT_EQ(screen.Get<Graph>("grf_Plot", i).Sets()[0].legend, number == 3 ? "" : components[slot]);
                Expect_Points(screen.Get<Graph>("grf_Plot", i), 0, row.variables[slot],
                              number == 3 ? "Mag" : components[slot]);
            }
        });
    }
}

TEST_F(FromChoiceToPlotTest, EveryPresetOfTwoButTheTransformsInAlignedWindows) {
    Model.PlotStyle = 2;
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    Components<2> components;
    for (std::size_t number = 0; number < 32; ++number) {
        const auto& row = kPresetsOfTwo[number];
        SCOPED_TRACE(row.text);
        Note(row, components);
        Plot(form, number, "frm_Myplot2", [&](Screen& screen) {
            Press(screen, "cmd_Replot");
            for (int i = 0; i < 2; ++i) {
                const auto slot = static_cast<std::size_t>(i);
                EXPECT_EQ(screen.Get<Label>("pnl_LeftTitle", i).Caption.Get(), kRows[row.variables[slot] - 1].label);
                EXPECT_EQ(screen.Get<Label>("pnl_Comp", i).Caption.Get(), components[slot]);
            }
        });
    }
}

TEST_F(FromChoiceToPlotTest, TheTransformsOfTwoAreDrawnInGraphsThoughAlignedWasChosen) {
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    for (const std::size_t number : {32u, 33u}) Plot(form, number, "frm_Plot2", [](Screen&) {});
    form.opt_Plotstyle[0].Value = true;
    desktop.Expect_Screen("frm_Plot2", [](Screen& screen) { screen.Hide(); });
    form.cmb_Preset.OnDblClick();
}

TEST_F(FromChoiceToPlotTest, EveryPresetOfFourInATable) {
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    form.cmb_Step.Choose(0);
    form.cmb_Decimal.Choose(3);
    Components<4> components;
    for (std::size_t number = 0; number < std::size(kPresetsOfFour); ++number) {
        const auto& row = kPresetsOfFour[number];
        SCOPED_TRACE(row.text);
        Note(row, components);
        Plot(form, number, "frm_PrintData", [&](Screen& screen) {
            const auto& grid = screen.Get<Grid>("grd_Data");
            ASSERT_EQ(grid.Cols(), 5);
            for (int slot = 1; slot <= 4; ++slot) {
                const auto at = static_cast<std::size_t>(slot - 1);
                const int variable = row.variables[at];
                EXPECT_EQ(grid.Cell(0, slot), kRows[variable - 1].label);
                EXPECT_EQ(grid.Cell(1, slot), components[at]);
                Expect_Values(grid, slot, variable, components[at]);
            }
        });
    }
}

TEST_F(FromChoiceToPlotTest, ThePlotTakesThePlaceOfTheChoice) {
    for (const auto& [name, plot] : {std::pair{"frm_PlotSelect1", "frm_Plot1"},
                                     {"frm_PlotSelect2", "frm_Myplot2"},
                                     {"frm_PlotSelect3", "frm_MyPlot3"}}) {
        auto& form = dynamic_cast<Preset_Screen&>(Screens::Get(name));
        desktop.Expect_Screen(name, [&form](Screen&) {
            form.cmb_Preset.Choose(0);
            Press(form, "cmd_Done");
        });
        desktop.Expect_Screen(plot, [&form](Screen& shown) {
            EXPECT_FALSE(form.Visible());
            shown.Hide();
        });
        form.ShowModal();
    }
}

TEST_F(FromChoiceToPlotTest, ADoubleClickOnAPresetGoesStraightToThePlot) {
    Model.PlotStyle = 1;
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Text = "Omega magnitudes for all links";
    desktop.Expect_Screen("frm_Plot1", [](Screen& screen) { screen.Hide(); });
    form.cmb_Preset.OnDblClick();
    EXPECT_EQ(Slot(form, 4).lbl_Function.Caption.Get(), "w4 / w2");
    EXPECT_EQ(Model.PlotCount, 4);
}

TEST_F(FromChoiceToPlotTest, ADoubleClickOnAVariableGoesOnWhereFourFunctionsWereCounted) {
    Model.PlotStyle = 1;
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Choose(0);
    Slot(form, 2).cmb_Var.Text = "Omega3";
    desktop.Expect_Screen("frm_Plot1", [](Screen& screen) { screen.Hide(); });
    Slot(form, 2).cmb_Var.OnDblClick();
    EXPECT_EQ(Model.FuncGroup(2), 2);
    Model.PlotCount = 3;
    Slot(form, 2).cmb_Var.OnDblClick();
}

TEST_F(FromChoiceToPlotTest, TheLocalFrameIsTakenAndTheChoiceGoesBackToTheGlobalOne) {
    Model.PlotStyle = 1;
    const std::pair<const char*, const char*> ways[] = {
        {"frm_PlotSelect1", "frm_Plot1"}, {"frm_PlotSelect2", "frm_Myplot2"}, {"frm_PlotSelect3", "frm_MyPlot3"}};
    for (const auto& [name, plot] : ways) {
        SCOPED_TRACE(name);
        auto& form = Activated<Preset_Screen>(name);
        form.cmb_Preset.Choose(4);
        Choose_Option(form, "opt_Coord", 1);
        desktop.Expect_Screen(plot, [&form](Screen& screen) {
            EXPECT_EQ(Model.CoordSystem, 2);
            EXPECT_EQ(screen.Get<Label>("lbl_Coord").Caption.Get(), "Local Rotating");
            EXPECT_TRUE(form.opt_Coord[0].Value);
            EXPECT_FALSE(form.fra_coord.Enabled);
            screen.Hide();
        });
        Press(form, "cmd_Done");
    }
}

TEST_F(FromChoiceToPlotTest, ThePolarPlotShowsItsVector) {
    Model.PlotStyle = 4;
    auto& form = Activated<frm_PlotSelect4>("frm_PlotSelect4");
    Choose(Slot(form, 1).cmb_Var, "Veloc CP");
    Choose_Option(form, "opt_Coord", 1);
    Model.PlotCount = 3;
    desktop.Expect_Screen("frm_MyPlot4", [&form](Screen& screen) {
        EXPECT_EQ(Model.CoordSystem, 2);
        EXPECT_EQ(Model.PlotCount, 1);
        EXPECT_FALSE(form.Visible());
        EXPECT_TRUE(form.opt_Coord[0].Value);
        Press(screen, "cmd_Replot");
        EXPECT_EQ(screen.Get<Label>("pnl_LeftTitle").Caption.Get(), "Veloc CP");
        screen.Hide();
    });
    Press(form, "cmd_Done");
}

TEST_F(FromChoiceToPlotTest, OneFunctionOfASingleWindowIsPlottedAlone) {
    Model.PlotStyle = 1;
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Mix(form);
    Fill(form, 1, "Accel CP", "Y");
    desktop.Expect_Screen("frm_Plot1", [this](Screen& screen) {
        const auto& graph = screen.Get<Graph>("grf_Plot", 0);
        EXPECT_EQ(graph.NumSets(), 1);
        Expect_Points(graph, 0, 16, "Y");
        screen.Hide();
    });
    Press(form, "cmd_Done");
    EXPECT_EQ(Model.PlotCount, 1);
}

}  // namespace
}  // namespace verlink::test
