// How functions are drawn: on a screen of plots that nobody sees.
#include "batch/plot.h"

#include "batch/functions.h"
#include "core/linkage_model.h"
#include "output/cartesian.h"
#include "output/graph_svg.h"
#include "screens/frm_plot1.h"

namespace verlink {

namespace {

/// What a plot reads of a selection screen.
struct Chosen : platform::Screen {
    Chosen() : Screen("frm_Chosen") {}
    platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {0, 1, 2, 3}};
    platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {0, 1, 2, 3}};
};

}  // namespace

std::string Plot_Svg(const std::vector<FunctionChoice>& choices, bool local) {
    Chosen chosen;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const int slot = static_cast<int>(i) + 1;
        Take_Function(choices[i], slot);
        chosen.lbl_Function[slot - 1].Caption = choices[i].label;
        chosen.lbl_Component[slot - 1].Caption = Model.ComponentLabel(slot);
    }
    Use_Frame(local);
    Model.PlotCount = static_cast<int>(choices.size());
    frm_Plot1 form;
    Plot_Setup(form, 1);
    MultiPlot(form, chosen);
    return Graph_Svg(form.grf_Plot[0]);
}

}  // namespace verlink
