// What presets put into the slots of the live plots.
#include "screens/live_choice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "output/reading.h"
#include "platform/settings.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

struct LiveChoice : Fixture {
    /// The component of a slot, from 0, of a vector; empty for a scalar.
    static std::string Component(const Preset& preset, std::size_t slot, const Output_Function& function) {
        constexpr const char* kInTurn[] = {"X", "Y", "Mag", "Ang"};
        const bool second = slot == 1 || slot == 3;
        if (!Has_Components(function)) return "";
        using enum Preset::Components;
        if (preset.components == kMagnitudes) return "Mag";
        if (preset.components == kXY || preset.components == kXYXY) return second ? "Y" : "X";
        if (preset.components == kMagAng) return second ? "Ang" : "Mag";
        return kInTurn[slot];
    }
};

TEST_F(LiveChoice, EveryPresetPutsItsFunctionsWithTheirComponents) {
    std::set<Preset::Components> kinds;
    for (const Preset* preset : Live_Presets()) {
        SCOPED_TRACE(preset->text);
        kinds.insert(preset->components);
        Live_Choice choice;
        choice.Take(*preset);
        EXPECT_EQ(choice.preset, preset->text);
        EXPECT_FALSE(choice.Empty());
        Needs most = Needs::kRun;
        for (const int number : preset->variables)
            if (number != 0) most = std::max(most, Facts_Of(Variable_Name(number))->needs);
        EXPECT_EQ(Needs_Of(*preset), most);
        for (std::size_t slot = 0; slot < 4; ++slot) {
            const Output_Function& function = choice.functions[slot];
            const int number = preset->variables[slot];
            ASSERT_EQ(function.variable, number == 0 ? "" : Variable_Name(number));
            if (number == 0) continue;
            EXPECT_EQ(function.component, Component(*preset, slot, function)) << slot;
            EXPECT_FALSE(function.local);
        }
    }
    for (const Preset* preset : Live_Presets())
        EXPECT_NE(Facts_Of(Variable_Name(preset->variables[0]))->group, kTransformGroup) << preset->text;
    EXPECT_TRUE(kinds.contains(Preset::Components::kXYXY));
    EXPECT_TRUE(kinds.contains(Preset::Components::kAsTheyStand));
}

TEST_F(LiveChoice, FunctionsThatWereChosenOneByOneAreNoPresetThoughOneHasThem) {
    platform::The_Settings().Open(Path("config"));
    Live_Choice choice;
    choice.Take(*Live_Presets().front());
    choice.Keep();
    EXPECT_EQ(Live_Choice::Kept().preset, choice.preset);
    choice.preset.clear();
    choice.Keep();
    EXPECT_EQ(Live_Choice::Kept().preset, "");
    EXPECT_EQ(Live_Choice::Kept().functions, choice.functions);
    platform::The_Settings().Open("");
}

TEST_F(LiveChoice, APresetThatLeavesTheComponentsKeepsThoseThatStand) {
    for (const Preset* preset : Live_Presets()) {
        if (preset->components != Preset::Components::kAsTheyStand) continue;
        Live_Choice choice;
        choice.functions[0] = {"Veloc CP", "Ang", true};
        choice.functions[1] = {"Theta3", "", false};
        choice.Take(*preset);
        EXPECT_EQ(choice.functions[0].component, "Ang");
        EXPECT_EQ(choice.functions[1].component, "Y") << "a scalar has none";
        EXPECT_FALSE(choice.functions[0].local);
    }
}

TEST_F(LiveChoice, FunctionsFillTheSlotsInTheirOrderAndTheRestIsEmpty) {
    Live_Choice choice;
    choice.Take(*Live_Presets().front());
    const std::vector<Output_Function> six(6, {"Omega4", "", false});
    choice.Take(six);
    for (const Output_Function& function : choice.functions) EXPECT_EQ(function.variable, "Omega4");
    EXPECT_EQ(choice.preset, "");
    choice.Take({{"Theta3", "", false}});
    EXPECT_EQ(choice.functions[0].variable, "Theta3");
    for (const std::size_t slot : {1U, 2U, 3U}) EXPECT_EQ(choice.functions[slot], Output_Function{});
    EXPECT_FALSE(choice.Empty());
    choice.Take(std::vector<Output_Function>{});
    EXPECT_TRUE(choice.Empty());
}

TEST_F(LiveChoice, WhatIsNoFunctionComesBackAsNone) {
    platform::The_Settings().Open(Path("config"));
    for (const char* line : {"", "Theta3", "Theta3|", "Nothing||", "|Theta3|", "Veloc CP|Up|"}) {
        platform::The_Settings().Put("live.functions", std::vector<std::string>{line, "Theta3||"});
        const Live_Choice back = Live_Choice::Kept();
        EXPECT_EQ(back.functions[0], Output_Function{}) << line;
        EXPECT_EQ(back.functions[1].variable, "Theta3") << line;
        EXPECT_EQ(back.functions[2], Output_Function{}) << line;
    }
    platform::The_Settings().Open("");
}

TEST_F(LiveChoice, OfFunctionsPlottedLastAllFourSlotsCount) {
    platform::The_Settings().Open(Path("config"));
    platform::The_Settings().Put("selection.plot", "frm_PlotSelect1");
    std::vector<std::string> lines{"opt_PrintSet=1", "opt_Coord=0"};
    std::vector<Output_Function> expected;
    for (const char* slot : {"1", "2", "3", "4"}) {
        lines.push_back(std::string("cmb_Var") + slot + "=Theta" + (*slot % 2 == 0 ? "4" : "3"));
        lines.push_back(std::string("cmb_Com") + slot + "=Mag");
        expected.push_back({*slot % 2 == 0 ? "Theta4" : "Theta3", "", false});
    }
    platform::The_Settings().Put("selection.frm_PlotSelect1", lines);
    const std::vector<Output_Function> last = Last_Plotted();
    ASSERT_EQ(last.size(), expected.size());
    for (std::size_t i = 0; i < last.size(); ++i) EXPECT_EQ(last[i].variable, expected[i].variable);
    platform::The_Settings().Open("");
}

TEST_F(LiveChoice, ThePresetPlottedLastCountsWithItsFrame) {
    platform::The_Settings().Open(Path("config"));
    platform::The_Settings().Put("selection.plot", "frm_PlotSelect2");
    for (const int coord : {0, 1})
        for (const Preset* preset : {Live_Presets().front(), Live_Presets().back()}) {
            platform::The_Settings().Put(
                "selection.frm_PlotSelect2",
                std::vector<std::string>{"opt_PrintSet=0", "opt_Coord=" + std::to_string(coord),
                                         std::string("cmb_Preset=") + preset->text});
            Live_Choice choice;
            choice.Take(*preset);
            std::vector<Output_Function> expected;
            for (Output_Function function : choice.functions) {
                if (function.variable.empty()) continue;
                function.local = coord == 1 && Has_Frames(function);
                expected.push_back(function);
            }
            EXPECT_EQ(Last_Plotted(), expected) << preset->text;
        }
    platform::The_Settings().Open("");
}

}  // namespace
}  // namespace verlink::test
