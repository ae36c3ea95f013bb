// The rule of live plots: what they show is what the plots would read of the run as it stands.
#include <cmath>
#include <string>

#include "output/catalogue.h"
#include "platform/graph.h"
#include "screens/live_choice.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using namespace platform;

namespace {

constexpr int kSlots = 4;

std::string In(const Screen& top, const char* box, int slot) {
    return top.Get<ComboBox>(box + std::to_string(slot)).Text;
}

/// What is being typed into one of a function's boxes is chosen when the box is left.
bool Is_Chosen(const Screen& top, int slot) {
    const Output_Function function = Live_Choice::Kept().functions[static_cast<std::size_t>(slot - 1)];
    const auto typed = [&](const char* box) { return top.Focus() == &top.Get<ComboBox>(box + std::to_string(slot)); };
    if (typed("cmb_LiveVar")) return In(top, "cmb_LiveVar", slot) == function.variable;
    if (typed("cmb_LiveCom")) return In(top, "cmb_LiveCom", slot) == function.component;
    return !typed("cmb_LiveFrame") || (In(top, "cmb_LiveFrame", slot) == "Local") == function.local;
}

/// The set of a slot in a graph; null where it is not shown there.
const Graph::Set* Set_Of(const Screen& top, const Graph& graph, int slot) {
    if (graph.Index() > 0) return graph.Index() == slot && graph.NumSets() == 1 ? &graph.Sets().front() : nullptr;
    std::string words = In(top, "cmb_LiveVar", slot);
    if (const std::string part = In(top, "cmb_LiveCom", slot); !part.empty()) words += " " + part;
    if (In(top, "cmb_LiveFrame", slot) == "Local") words += " local";
    for (const Graph::Set& set : graph.Sets())
        if (set.legend.starts_with(words + "  ")) return &set;
    return nullptr;
}

/// By the road of the plots, which is left as it was.
bool Is_Read_So(const Screen& top, int slot, const Graph::Set& set) {
    const FunctionSlots kept = Model;
    Select_Variable(In(top, "cmb_LiveVar", slot), 1);
    Set_Component(In(top, "cmb_LiveCom", slot), 1);
    Model.PlotSlot = 1;
    Model.CoordSystem = In(top, "cmb_LiveFrame", slot) == "Local" ? 2 : 0;
    bool so = set.values.size() == static_cast<std::size_t>(Model.NSteps + 1);
    for (int step = 0; so && step <= Model.NSteps; ++step) {
        const double shown = set.values[static_cast<std::size_t>(step)];
        Single read;
        Transform_XY(step, 1, read);
        so = Model.RunTable.Assembled(step) ? shown == read : std::isnan(shown);
    }
    static_cast<FunctionSlots&>(Model) = kept;
    return so;
}

}  // namespace

Found Live_Plots_Are_Of_The_Run(const Screen& top) {
    for (int index = 0; index <= kSlots; ++index) {
        const auto* graph = top.FindAs<Graph>("grf_Live", index);
        if (!graph) return {};
        const std::string where = top.Name() + "." + graph->ObjectName();
        if (graph->Visible != (graph->NumPoints() > 0))
            return Finding{"live plots", "hidden values", where + " holds values and is hidden, or is empty and shown"};
        if (graph->NumPoints() == 0) continue;
        if (!Model.RunStands) return Finding{"live plots", "no run", where + " shows a run that does not stand"};
        if (graph->Cursor < 0 || graph->Cursor > graph->NumPoints())
            return Finding{"live plots", "cursor", where + " has its cursor nowhere"};
        for (int slot = 1; slot <= kSlots; ++slot)
            if (const Graph::Set* set = Set_Of(top, *graph, slot);
                set && Is_Chosen(top, slot) && !Is_Read_So(top, slot, *set))
                return Finding{"live plots", In(top, "cmb_LiveVar", slot), where + " shows another run"};
    }
    return {};
}

}  // namespace verlink::walk
