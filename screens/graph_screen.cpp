// How the screens with graphs look, and what their style boxes do.
#include "screens/graph_screen.h"

#include <string>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/cartesian.h"
#include "platform/guard.h"
#include "screens/plot_tips.h"
#include "screens/style_boxes.h"

namespace verlink {

namespace {

constexpr platform::Color kDarkBlue = 128 << 16;

}  // namespace

Graph_Screen::Graph_Screen(const std::string& name, const std::string& selection, std::initializer_list<int> graphs)
    : Plot_Screen(name, selection), grf_Plot(*this, "grf_Plot", graphs), windows_(static_cast<int>(graphs.size())) {
    chk_HGrid.Value = true;
    chk_VGrid.Value = true;
    chk_Line.Value = true;
    opt_Back[0].Value = true;
    chk_HGrid.Tip = "Horizontal grid lines";
    chk_VGrid.Tip = "Vertical grid lines";
    chk_Line.Tip = "Join the values by a line; the last of these two boxes stays ticked";
    chk_Sticks.Tip = "Draw each value from the axis; the last of these two boxes stays ticked";
    opt_Back[0].Tip = "White graphs";
    opt_Back[1].Tip = "Blue graphs";
    opt_Back[2].Tip = "Gray graphs";
    for (const auto& graph : grf_Plot) graph->Tip = std::string("The functions by step, with their values") + kPlotHand;
    Bind_Ways_Out(cmd_Replot, cmd_Done);
    Bind();
}

void Graph_Screen::Bind() {
    opt_Back.On(&platform::OptionButton::OnClick, [this](int) { opt_Back_Click(); });
    for (platform::CheckBox* box : {&chk_HGrid, &chk_VGrid}) box->OnClick = [this] { Style_Click(); };
    Keep_One(chk_Line, chk_Sticks, [this] { Style_Click(); });
    cmd_Replot.OnClick = [this] { Go_Back(); };
    cmd_Done.OnClick = [this] { Leave(); };
}

void Graph_Screen::Form_Activate() {
    Guarded(Procedure("Activate"), [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        chk_Line.Caption = Model.FFTFunction ? "Envelope" : "Lines";
        chk_Sticks.Caption = Model.FFTFunction ? "Lines" : "Fills";
        Put_Colors();
        Replot();
    });
}

void Graph_Screen::Put_Colors() {
    constexpr int kBlueGraph = 1;
    constexpr int kGrayGraph = 7;
    constexpr int kWhiteGraph = 15;
    int background = kWhiteGraph;
    platform::Color mount = kDarkBlue;
    if (opt_Back[1].Value) {
        background = kBlueGraph;
        mount = Model.ColorWhite;
    } else if (opt_Back[2].Value) {
        background = kGrayGraph;
        mount = Model.ColorBlack;
    }
    for (const auto& graph : grf_Plot) graph->Background = background;
    pct_Frame.BackColor = mount;
}

void Graph_Screen::Replot() {
    Plot_Setup(*this, windows_);
    Draw_Functions();
}

void Graph_Screen::opt_Back_Click() {
    Guarded(Procedure("opt_Back"), [&] {
        Put_Colors();
        Replot();
    });
}

void Graph_Screen::Style_Click() {
    Guarded(Procedure("Style"), [&] { Replot(); });
}

}  // namespace verlink
