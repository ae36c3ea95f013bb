// From lists to words, and back.
#include "screens/measure_choice.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "dynamics/typed_units.h"
#include "output/reading.h"
#include "study/measure.h"
#include "study/words.h"

namespace verlink {

namespace {

using study::Statistic;

struct Kind_Of {
    const char* word;
    Statistic statistic;
    bool of_a_variable = true;
};
constexpr std::array<Kind_Of, 9> kStatistics{{{"min", Statistic::kMin},
                                              {"max", Statistic::kMax},
                                              {"mean", Statistic::kMean},
                                              {"rms", Statistic::kRms},
                                              {"range", Statistic::kRange},
                                              {"at", Statistic::kAt},
                                              {"deviation", Statistic::kDeviation, false},
                                              {"deviation line", Statistic::kLine, false},
                                              {"closes", Statistic::kCloses, false}}};
constexpr const char* kMeasuredComponents[] = {"X", "Y", "Mag", "Ang"};
constexpr const char* kOrders[] = {"<", "<=", ">", ">="};
constexpr char kNoMeasure[] = "(none)";

const Kind_Of* Statistic_Named(const std::string& word) {
    const auto* found =
        std::ranges::find(kStatistics, word, [](const Kind_Of& kind) { return std::string(kind.word); });
    return found == kStatistics.end() ? nullptr : found;
}

bool Is_Vector(const std::string& variable) {
    const auto facts = Facts_Of(variable);
    return facts && facts->vector;
}

}  // namespace

Measure_Choice::Measure_Choice(platform::Screen& owner, int index, Kind kind, const UnitSystem& units)
    : cmb_Statistic(owner, "cmb_Statistic", "", index),
      txt_Angle(owner, "txt_Angle", "", index),
      cmb_Variable(owner, "cmb_Variable", "", index),
      cmb_Component(owner, "cmb_Component", "", index),
      txt_Words(owner, "txt_Words", "", index) {
    if (kind == Kind::kBound) {
        cmb_Order = std::make_unique<platform::ComboBox>(owner, "cmb_Order", "", index);
        txt_Bound = std::make_unique<platform::TextBox>(owner, "txt_Bound", "", index);
    }
    Fill_Lists();
    Write_Tips();
    Bind(units);
}

void Measure_Choice::Fill_Lists() {
    if (cmb_Order) cmb_Statistic.AddItem(kNoMeasure);
    for (const Kind_Of& kind : kStatistics) cmb_Statistic.AddItem(kind.word);
    for (const std::string& variable : Variables_Up_To(Needs::kBalance)) cmb_Variable.AddItem(variable);
    for (const char* component : kMeasuredComponents) cmb_Component.AddItem(component);
    if (!cmb_Order) return;
    for (const char* order : kOrders) cmb_Order->AddItem(order);
}

void Measure_Choice::Write_Tips() {
    const bool bound = cmb_Order != nullptr;
    const std::string of = bound ? " of the bound" : " of the measure";
    cmb_Statistic.Tip = "What is taken over the positions of the run" + of;
    txt_Angle.Tip = "Crank angle of \"at\", global, degrees" + of;
    cmb_Variable.Tip = "A function of the run" + of;
    cmb_Component.Tip = "Component of a vector" + of;
    txt_Words.Tip = bound ? "The bound in words, as in \"min Trans Ang > 40\"; empty to keep all linkages"
                          : "The measure in words, as in \"max Torque 12\" or \"at 90 Theta4\"";
    if (!bound) return;
    cmb_Order->Tip = "On which side of the bound a linkage is kept";
    txt_Bound->Tip = "The bound, in the unit that tables have the function in";
}

void Measure_Choice::Bind(const UnitSystem& units) {
    Reads_As(txt_Angle, units, Quantity::kAngle);
    for (platform::ComboBox* list : {&cmb_Statistic, &cmb_Variable, &cmb_Component, cmb_Order.get()})
        if (list) list->OnClick = list->OnLostFocus = [this] { Picked(); };
    txt_Angle.OnLostFocus = txt_Angle.OnReturn = [this] {
        if (txt_Angle.Touched()) Picked();
    };
    txt_Words.OnLostFocus = txt_Words.OnReturn = [this] { Written(); };
    if (!txt_Bound) return;
    Reads_As(*txt_Bound, units, Quantity::kNumber);
    txt_Bound->OnLostFocus = txt_Bound->OnReturn = [this] {
        if (txt_Bound->Touched()) Picked();
    };
}

/// As the lists say it.
std::string Measure_Choice::Words() const {
    const std::string statistic = cmb_Statistic.Text;
    if (statistic == kNoMeasure || statistic.empty()) return "";
    std::string words = statistic;
    const Kind_Of* kind = Statistic_Named(statistic);
    const auto given = [](const std::string& text, const char* usual) { return text.empty() ? usual : text; };
    if (kind && kind->statistic == Statistic::kAt) words += " " + Text_Of(Val(txt_Angle.Text.Get()));
    if (!kind || kind->of_a_variable) {
        const std::string variable = given(cmb_Variable.Text, "Trans Ang");
        words += " " + variable;
        if (Is_Vector(variable)) words += ":" + given(cmb_Component.Text, "X");
    }
    if (cmb_Order)
        words += " " + given(cmb_Order->Text, ">") + " " + study::Shortest(Val(Ungrouped(txt_Bound->Text.Get())));
    return words;
}

void Measure_Choice::Picked() {
    if (filling_) return;
    // Lists beside words that name no measure are empty, and say nothing until one is picked.
    if (cmb_Statistic.Text.Get().empty()) return;
    // Words that were written otherwise stay as they are until a list says something else.
    const std::string words = Words();
    if (words != picked_ && OnChoose) OnChoose(words);
}

void Measure_Choice::Written() {
    if (!txt_Words.Touched()) return;
    txt_Words.Settle();
    if (txt_Words.Text.Get() != words_ && OnChoose) OnChoose(txt_Words.Text);
}

void Measure_Choice::Show(const std::string& words) {
    filling_ = true;
    words_ = words;
    txt_Words.Text = words;
    std::string fault;
    std::optional<study::Measure> measure;
    std::optional<study::Keep> keep;
    if (cmb_Order) {
        keep = study::Keep_Of(words, false, fault);
        if (keep) measure = keep->measure;
    } else {
        measure = study::Measure_Of(words, false, fault);
    }
    const auto* kind = measure ? std::ranges::find(kStatistics, measure->statistic, &Kind_Of::statistic) : nullptr;
    cmb_Statistic.Text = kind ? kind->word : cmb_Order && words.empty() ? kNoMeasure : "";
    const bool variable = kind && kind->of_a_variable, vector = variable && measure->facts.vector;
    const bool at = kind && kind->statistic == Statistic::kAt;
    txt_Angle.Text = at ? Text_Of(measure->angle) : "";
    cmb_Variable.Text = variable ? measure->function.variable : "";
    cmb_Component.Text = vector ? kMeasuredComponents[measure->component] : "";
    txt_Angle.Enabled = at;
    cmb_Variable.Enabled = variable;
    cmb_Component.Enabled = vector;
    if (cmb_Order) {
        cmb_Order->Text = keep ? kOrders[static_cast<std::size_t>(keep->order)] : "";
        txt_Bound->Text = keep ? Text_Of(keep->bound) : "";
        cmb_Order->Enabled = txt_Bound->Enabled = keep.has_value();
    }
    picked_ = Words();
    filling_ = false;
}

void Measure_Choice::Enable(bool enabled) {
    cmb_Statistic.Enabled = txt_Words.Enabled = enabled;
    if (enabled) return;
    for (platform::ComboBox* list : {&cmb_Variable, &cmb_Component, cmb_Order.get()})
        if (list) list->Enabled = false;
    txt_Angle.Enabled = false;
    if (txt_Bound) txt_Bound->Enabled = false;
}

}  // namespace verlink
