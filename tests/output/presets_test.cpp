// The two lists of presets: every text to the letter, and what each choice writes into the boxes.
#include "output/presets.h"

#include <gtest/gtest.h>

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

TEST_F(Presets, BothSecondAndThirdShowTheVelocityRatioAndNeitherTheTorqueRatio) {
    EXPECT_EQ(Presets_Of_Four()[1].variables[3], 18);
    EXPECT_EQ(Presets_Of_Four()[2].variables[3], 18);
}

}  // namespace verlink::test
