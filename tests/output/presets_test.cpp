// The two lists of presets: every text to the letter, and what each choice writes into the boxes.
#include "output/presets.h"

#include <gtest/gtest.h>

#include <span>
#include <string>

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "tests/output/preset_rows.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

struct Presets : Fixture {
    Presets() { Load_Catalogue(); }
};

}  // namespace

TEST_F(Presets, TheListOfFourHoldsThirtyOneTextsInTheirOrder) {
    ASSERT_EQ(std::size(kPresetsOfFour), 31u);
    int number = 0;
    for (const auto& row : kPresetsOfFour) EXPECT_EQ(Model.PresetList4(++number), row.text);
    EXPECT_EQ(Model.PresetList4(0), "");
    for (number = 32; number <= 40; ++number) EXPECT_EQ(Model.PresetList4(number), "");
}

TEST_F(Presets, TheListOfTwoHoldsThirtyFourTextsInTheirOrder) {
    ASSERT_EQ(std::size(kPresetsOfTwo), 34u);
    int number = 0;
    for (const auto& row : kPresetsOfTwo) EXPECT_EQ(Model.PresetList2(++number), row.text);
    EXPECT_EQ(Model.PresetList2(0), "");
    for (number = 35; number <= 40; ++number) EXPECT_EQ(Model.PresetList2(number), "");
}

TEST_F(Presets, TheTrailingBlanksOfNumbers28And29And31BelongToTheText) {
    for (const int number : {28, 29, 31}) EXPECT_EQ(Model.PresetList2(number).back(), ' ') << number;
    EXPECT_NE(Model.PresetList2(30).back(), ' ');
}

/// The word of a slot that a way to fill the components comes to.
std::string Component_Of(Preset::Components components, std::size_t slot) {
    using enum Preset::Components;
    static const std::array<const char*, 4> all{"X", "Y", "Mag", "Ang"}, twice{"X", "Y", "X", "Y"};
    switch (components) {
        case kMagnitudes: return "Mag";
        case kAll: return all.at(slot);
        case kXYXY:
        case kXY: return twice.at(slot);
        case kMagAng: return all.at(2 + slot % 2);
        default: return "";
    }
}

template <std::size_t n>
void Expect_Rows(std::span<const Preset> presets, std::span<const PresetRow<n>> rows) {
    ASSERT_EQ(presets.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(presets[i].text, std::string(rows[i].text));
        for (std::size_t slot = 0; slot < 4; ++slot)
            EXPECT_EQ(presets[i].variables[slot], slot < n ? rows[i].variables[slot] : 0) << rows[i].text;
        for (std::size_t slot = 0; slot < n; ++slot) {
            if (rows[i].variables[slot] == 0) continue;
            EXPECT_EQ(Component_Of(presets[i].components, slot), rows[i].components[slot]) << rows[i].text;
        }
        const int first = rows[i].variables[0];
        EXPECT_EQ(presets[i].opens_coordinates, (first == 15 || first == 16)) << rows[i].text;
    }
}

TEST_F(Presets, TakeTheirVariablesAndComponentsAndOpenTheLocalFrameForTwoAccelerations) {
    Expect_Rows<4>(Presets_Of_Four(), kPresetsOfFour);
    Expect_Rows<2>(Presets_Of_Two(), kPresetsOfTwo);
}

TEST_F(Presets, BothSecondAndThirdShowTheVelocityRatioAndNeitherTheTorqueRatio) {
    EXPECT_EQ(Presets_Of_Four()[1].variables[3], 18);
    EXPECT_EQ(Presets_Of_Four()[2].variables[3], 18);
}

}  // namespace verlink::test
