// What the lists offer, by what has been computed.
#include <gtest/gtest.h>

#include <vector>

#include "tests/output/selection_stage.h"

namespace verlink::test {

namespace {

struct Lists : Fixture {
    Lists() { Load_Catalogue(); }

    static void Have(bool dynamics, bool balance, bool transform = false) {
        dynamics ? Forces_Hold() : Forces_Dropped();
        balance ? Balance_Holds() : Balance_Dropped();
        transform ? Transform_Holds() : Transform_Dropped();
    }
    static std::vector<std::string> Names(const std::vector<std::pair<int, int>>& runs) {
        std::vector<std::string> names;
        for (const auto& [first, last] : runs)
            for (int number = first; number <= last; ++number) names.push_back(Model.VariableNames(number));
        return names;
    }
    template <class List>
    static std::vector<std::string> Texts(const List& list, int last, const std::vector<int>& more = {}) {
        std::vector<std::string> texts;
        for (int number = 1; number <= last; ++number) texts.push_back(list(number));
        for (const int number : more) texts.push_back(list(number));
        return texts;
    }
    std::vector<std::string> Variables() {
        Load_Variables(screen, combo);
        return combo.Items();
    }
    std::vector<std::string> Polar() {
        Load_PolarVariables(screen, combo);
        return combo.Items();
    }
    std::vector<std::string> Presets(int n) {
        Load_Presets(screen, combo, n);
        return combo.Items();
    }
    platform::Screen screen{"frm_Lists"};
    platform::ComboBox combo{screen, "cmb_Any"};
};

}  // namespace

TEST_F(Lists, VariablesFollowTheFlags) {
    Have(false, false);
    EXPECT_EQ(Variables(), Names({{1, 19}}));
    Have(true, false);
    EXPECT_EQ(Variables(), Names({{1, 37}}));
    Have(true, true);
    EXPECT_EQ(Variables(), Names({{1, 42}}));
}

TEST_F(Lists, ABalanceWithoutDynamicsListsVariablesOneToFortyTwo) {
    Have(false, true);
    EXPECT_EQ(Variables(), Names({{1, 42}}));
}

TEST_F(Lists, TheCurrentTransformIsNeverAmongTheVariables) {
    Have(true, true, true);
    EXPECT_EQ(Variables().size(), 42u);
    EXPECT_EQ(Variables().back(), "Flywl Torque");
}

TEST_F(Lists, PolarVariablesAreVectorsAndFollowTheFlags) {
    Have(false, false);
    EXPECT_EQ(Polar(), Names({{11, 17}}));
    Have(true, false);
    EXPECT_EQ(Polar(), Names({{11, 17}, {20, 30}, {35, 37}}));
    Have(false, true);
    EXPECT_EQ(Polar(), Names({{11, 17}, {38, 38}, {40, 42}}));
    Have(true, true, true);
    EXPECT_EQ(Polar(), Names({{11, 17}, {20, 30}, {35, 37}, {38, 38}, {40, 42}}));
}

TEST_F(Lists, ComponentsAreFourAndAListReplacesTheOneBefore) {
    Load_Variables(screen, combo);
    Load_Components(screen, combo);
    EXPECT_EQ(combo.Items(), (std::vector<std::string>{"X", "Y", "Mag", "Ang"}));
    platform::ComboBox other(screen, "cmb_Other");
    Load_Lists(screen, combo, other);
    EXPECT_EQ(combo.Items().size(), 19u);
    EXPECT_EQ(other.Items().size(), 4u);
}

TEST_F(Lists, PresetsOfFourFollowTheFlags) {
    const auto& list = Model.PresetList4;
    Have(false, false);
    EXPECT_EQ(Presets(4), Texts(list, 10));
    Have(true, false);
    EXPECT_EQ(Presets(4), Texts(list, 25));
    Have(true, true);
    EXPECT_EQ(Presets(4), Texts(list, 30));
    Have(false, true);
    EXPECT_EQ(Presets(4), Texts(list, 30));
    Have(true, true, true);
    EXPECT_EQ(Presets(4), Texts(list, 31));
    Have(false, false, true);
    EXPECT_EQ(Presets(4), Texts(list, 10, {31}));
    Have(true, false, true);
    EXPECT_EQ(Presets(4), Texts(list, 25, {31}));
    Have(false, true, true);
    EXPECT_EQ(Presets(4), Texts(list, 30, {31}));
}

TEST_F(Lists, PresetsOfTwoFollowTheFlags) {
    const auto& list = Model.PresetList2;
    Have(false, false);
    EXPECT_EQ(Presets(2), Texts(list, 11));
    Have(true, false);
    EXPECT_EQ(Presets(2), Texts(list, 26));
    Have(true, true);
    EXPECT_EQ(Presets(2), Texts(list, 32));
    Have(false, true);
    EXPECT_EQ(Presets(2), Texts(list, 32));
    Have(true, true, true);
    EXPECT_EQ(Presets(2), Texts(list, 34));
    Have(false, false, true);
    EXPECT_EQ(Presets(2), Texts(list, 11, {33, 34}));
    Have(true, false, true);
    EXPECT_EQ(Presets(2), Texts(list, 26, {33, 34}));
    Have(false, true, true);
    EXPECT_EQ(Presets(2), Texts(list, 32, {33, 34}));
}

TEST_F(Lists, ThereAreNoPresetsOfOtherCountsAndTheBoxIsCleared) {
    Presets(4);
    for (const int n : {0, 1, 3, 5}) EXPECT_TRUE(Presets(n).empty()) << n;
}

}  // namespace verlink::test
