// Choices are kept by their names, and checked when they come back.
#include "screens/live_choice.h"

#include <algorithm>
#include <span>

#include "output/reading.h"
#include "platform/settings.h"
#include "screens/last_selection.h"

namespace verlink {

namespace {

constexpr char kFunctions[] = "live.functions", kPreset[] = "live.preset", kAbscissa[] = "live.x",
               kScale[] = "live.scale";
constexpr char kTime[] = "time", kOne[] = "one", kLocal[] = "local";
constexpr char kBetween = '|';

constexpr const char* kComponents[] = {"X", "Y", "Mag", "Ang"};

std::string Line_Of(const Output_Function& function) {
    return function.variable + kBetween + function.component + kBetween + (function.local ? kLocal : "");
}

/// Nothing for a line that no function was kept as.
Output_Function Function_In(const std::string& line) {
    const std::size_t first = line.find(kBetween), second = line.rfind(kBetween);
    if (first == std::string::npos || second == first) return {};
    Output_Function function{line.substr(0, first), line.substr(first + 1, second - first - 1),
                             line.substr(second + 1) == kLocal};
    return Can_Be_Read(function) ? function : Output_Function{};
}

std::string Component_In(const Preset& preset, std::size_t slot, const Output_Function& present) {
    using Components = Preset::Components;
    switch (preset.components) {
        case Components::kMagnitudes: return "Mag";
        case Components::kXY:
        case Components::kXYXY: return kComponents[slot % 2];
        case Components::kAsTheyStand:
            if (present.variable.empty() || present.component.empty()) return kComponents[slot];
            return present.component;
        default: return kComponents[slot];
    }
}

}  // namespace

void Live_Choice::Take(const Preset& of) {
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        Output_Function& function = functions[slot];
        const int number = of.variables[slot];
        if (number == 0) {
            function = {};
            continue;
        }
        const std::string component = Component_In(of, slot, function);
        function = {Variable_Name(number), component, false};
        if (!Has_Components(function)) function.component.clear();
    }
    preset = of.text;
}

void Live_Choice::Take(const std::vector<Output_Function>& chosen) {
    functions = {};
    preset.clear();
    std::copy_n(chosen.begin(), std::min<std::size_t>(chosen.size(), kSlots), functions.begin());
}

bool Live_Choice::Empty() const {
    return std::all_of(functions.begin(), functions.end(), [](const auto& one) { return one.variable.empty(); });
}

void Live_Choice::Keep() const {
    platform::Settings& settings = platform::The_Settings();
    std::vector<std::string> lines;
    for (const Output_Function& function : functions) lines.push_back(Line_Of(function));
    settings.Put(kFunctions, lines);
    settings.Put(kPreset, preset);
    settings.Put(kAbscissa, abscissa == Abscissa::kTime ? kTime : "");
    settings.Put(kScale, one_scale ? kOne : "");
    settings.Save();
}

Live_Choice Live_Choice::Kept() {
    const platform::Settings& settings = platform::The_Settings();
    Live_Choice choice;
    const std::vector<std::string> lines = settings.List(kFunctions);
    for (std::size_t slot = 0; slot < std::min<std::size_t>(lines.size(), kSlots); ++slot)
        choice.functions[slot] = Function_In(lines[slot]);
    if (settings.Text(kAbscissa) == kTime) choice.abscissa = Abscissa::kTime;
    choice.one_scale = settings.Text(kScale) == kOne;
    // A preset counts as the choice only while its functions are those chosen.
    for (const Preset* preset : Live_Presets()) {
        if (preset->text != settings.Text(kPreset)) continue;
        Live_Choice same = choice;
        same.Take(*preset);
        if (same.functions == choice.functions) choice.preset = preset->text;
    }
    return choice;
}

std::vector<const Preset*> Live_Presets() {
    std::vector<const Preset*> presets;
    const auto add = [&](std::span<const Preset> table) {
        for (const Preset& preset : table)
            if (Facts_Of(Variable_Name(preset.variables[0]))->group != kTransformGroup) presets.push_back(&preset);
    };
    add(Presets_Of_Four());
    add(Presets_Of_Two());
    return presets;
}

Needs Needs_Of(const Preset& preset) {
    Needs most = Needs::kRun;
    for (const int number : preset.variables)
        if (number != 0) most = std::max(most, Needs_Of(Output_Function{Variable_Name(number), {}, {}}));
    return most;
}

std::vector<Output_Function> Last_Plotted() {
    const Selection last = Selection_Kept(Last_Plot_Screen());
    const bool local = Text_In(last, "opt_Coord") == "1";
    std::vector<Output_Function> chosen;
    if (Text_In(last, "opt_PrintSet") == "0") {
        for (const Preset* preset : Live_Presets()) {
            if (preset->text != Text_In(last, "cmb_Preset")) continue;
            Live_Choice filled;
            filled.Take(*preset);
            for (const Output_Function& function : filled.functions)
                if (!function.variable.empty()) chosen.push_back(function);
            break;
        }
    } else {
        for (int slot = 1; slot <= Live_Choice::kSlots; ++slot) {
            const std::string number = std::to_string(slot);
            const std::string &variable = Text_In(last, "cmb_Var" + number),
                              &component = Text_In(last, "cmb_Com" + number);
            // The polar screen has one variable, and shows its vector.
            if (component.empty())
                for (const char* part : {"Mag", "Ang"}) chosen.push_back({variable, part});
            else
                chosen.push_back({variable, component});
        }
        std::erase_if(chosen, [](const auto& one) { return !Can_Be_Read(one); });
    }
    for (Output_Function& function : chosen) {
        function.local = local && Has_Frames(function);
        if (!Has_Components(function)) function.component.clear();
    }
    return chosen;
}

}  // namespace verlink
