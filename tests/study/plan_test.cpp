// Grids, lists, corners and samples in the order of their numbers.
#include "study/plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace verlink::study {

namespace {

class Plans : public testing::Test {
   protected:
    Plans() {
        design.PolarCoords = true;
        design.L1 = 4, design.L2 = 1, design.L3 = 3, design.L4 = 2.5;
    }
    int Field_At(const std::string& name) {
        std::string fault;
        return Field_Named(name, design, fault).value();
    }
    /// The moved values of a linkage.
    std::vector<double> Values(Number linkage) {
        const std::vector<int> moved = plan.Moved();
        std::vector<Single> home;
        home.reserve(moved.size());
        Design at = design;
        for (const int field : moved) home.push_back(Fields()[static_cast<std::size_t>(field)].place(at));
        plan.Put(linkage, moved, home, at);
        std::vector<double> values;
        values.reserve(moved.size());
        for (const int field : moved) values.push_back(Fields()[static_cast<std::size_t>(field)].place(at));
        return values;
    }
    using Numbers = std::vector<double>;

    Design design;
    Plan plan;
};

TEST_F(Plans, AGridGoesThroughItsLastSweepFirst) {
    plan.sweeps = {{Field_At("L2"), 1, 2, 3}, {Field_At("L4"), 5, 7, 2}};
    ASSERT_EQ(plan.Count(), 6u);
    EXPECT_EQ(Values(0), (Numbers{1, 5}));
    EXPECT_EQ(Values(1), (Numbers{1, 7}));
    EXPECT_EQ(Values(2), (Numbers{1.5, 5}));
    EXPECT_EQ(Values(5), (Numbers{2, 7}));
}

TEST_F(Plans, TheLastOfASweepIsItsEndAndASingleOneItsBeginning) {
    // Which the differences do not bring back beside so large a number.
    plan.sweeps = {{Field_At("L2"), 1e9, 0.1, 3}};
    EXPECT_EQ(Values(2), Numbers{0.1F});
    EXPECT_EQ(Values(0), Numbers{1e9});
    EXPECT_EQ(Values(1), Numbers{5e8});
    plan.sweeps = {{Field_At("L2"), 1, 2, 1}};
    EXPECT_EQ(plan.Count(), 1u);
    EXPECT_EQ(Values(0), Numbers{1});
    plan.sweeps = {{Field_At("L2"), 1, 2, 2}};
    EXPECT_EQ(Values(0), Numbers{1});
    EXPECT_EQ(Values(1), Numbers{2});
}

TEST_F(Plans, ToleranceIsThreeDeviationsOfANormalOneAndTheHalfWidthOfAnEvenOne) {
    EXPECT_EQ((Tolerance{0, 6, Spread::kNormal}).Deviation(), 2);
    EXPECT_NEAR((Tolerance{0, 6, Spread::kUniform}).Deviation(), 12 / std::sqrt(12), 1e-12);
    EXPECT_EQ((Tolerance{0, 6, Spread::kWorst}).Deviation(), 6);
    plan.tolerances = {{Field_At("L4"), 0.75, Spread::kNormal}, {Field_At("L2"), 0.5, Spread::kUniform}};
    plan.samples = 20000;
    double sum = 0, squares = 0, even = 0, even_squares = 0, most = 0;
    for (Number k = 0; k < plan.samples; ++k) {
        const Numbers values = Values(k);
        sum += values[0] - 2.5;
        squares += std::pow(values[0] - 2.5, 2);
        even += values[1] - 1;
        even_squares += std::pow(values[1] - 1, 2);
        most = std::max(most, std::abs(values[1] - 1));
    }
    // Within four deviations of what so many samples give.
    EXPECT_NEAR(sum / 20000, 0, 4 * 0.25 / std::sqrt(20000));
    EXPECT_NEAR(std::sqrt(squares / 20000), 0.25, 4 * 0.25 / std::sqrt(40000));
    EXPECT_NEAR(even / 20000, 0, 4 * 0.289 / std::sqrt(20000));
    EXPECT_NEAR(std::sqrt(even_squares / 20000), 0.5 / std::sqrt(3), 0.004);
    EXPECT_LE(most, 0.5);
    EXPECT_GT(most, 0.499);
}

TEST_F(Plans, CornersAndSamplesAndRowsAreCountedTogether) {
    plan.sweeps = {{Field_At("L2"), 1, 2, 3}};
    plan.list = {{Field_At("L3")}, {{3}, {5}}};
    plan.tolerances = {{Field_At("L4"), 0.5, Spread::kWorst}, {Field_At("Rpa"), 0.5, Spread::kUniform}};
    plan.samples = 7;
    EXPECT_EQ(plan.Count(), 3u * 2 * 2 * 7);
    EXPECT_EQ(plan.Moved(), (std::vector<int>{Field_At("L2"), Field_At("L3"), Field_At("L4"), Field_At("Rpa")}));
    // Samples first, then corners, rows and the grid.
    const Number linkage = ((1 * 2 + 1) * 2 + 1) * 7 + 3;
    const Numbers values = Values(linkage);
    EXPECT_EQ(values[0], 1.5);
    EXPECT_EQ(values[1], 5);
    EXPECT_EQ(values[2], 3);
    EXPECT_EQ(Values(3)[3], values[3]) << "the same sample";
    EXPECT_EQ(Values(3)[2], 2);
    plan.samples = 0;
    EXPECT_FALSE(plan.Count());
    plan.tolerances = std::vector<Tolerance>(53, {Field_At("L4"), 0.5, Spread::kWorst});
    plan.sweeps.clear();
    plan.list = {};
    EXPECT_EQ(plan.Count(), Number{1} << 53U);
    plan.tolerances.push_back({Field_At("L4"), 0.5, Spread::kWorst});
    EXPECT_FALSE(plan.Count());
}

TEST_F(Plans, RowsOfAListStandInEachPlaceOfTheGrid) {
    plan.sweeps = {{Field_At("L2"), 1, 2, 2}};
    plan.list = {{Field_At("L3"), Field_At("L4")}, {{3, 4}, {5, 6}, {7, 8}}};
    ASSERT_EQ(plan.Count(), 6u);
    EXPECT_EQ(Values(0), (Numbers{1, 3, 4}));
    EXPECT_EQ(Values(2), (Numbers{1, 7, 8}));
    EXPECT_EQ(Values(3), (Numbers{2, 3, 4}));
}

TEST_F(Plans, TheWorstTriesAllCornersAboutWhatIsSwept) {
    plan.sweeps = {{Field_At("L2"), 1, 2, 2}};
    plan.tolerances = {{Field_At("L2"), 0.25, Spread::kWorst}, {Field_At("L4"), 0.5, Spread::kWorst}};
    ASSERT_EQ(plan.Count(), 8u);
    EXPECT_EQ(Values(0), (Numbers{0.75, 2}));
    EXPECT_EQ(Values(1), (Numbers{1.25, 2}));
    EXPECT_EQ(Values(2), (Numbers{0.75, 3}));
    EXPECT_EQ(Values(7), (Numbers{2.25, 3}));
}

TEST_F(Plans, SamplesAreTheSameAtEachPlace) {
    plan.sweeps = {{Field_At("L2"), 1, 2, 2}};
    plan.tolerances = {{Field_At("L4"), 0.5, Spread::kUniform}};
    plan.samples = 5;
    ASSERT_EQ(plan.Count(), 10u);
    for (Number k = 0; k < 5; ++k) {
        EXPECT_EQ(Values(k)[1], Values(k + 5)[1]);
        EXPECT_LE(std::abs(Values(k)[1] - 2.5), 0.5);
    }
    EXPECT_NE(Values(0)[1], Values(1)[1]);
    const Numbers before = Values(3);
    plan.samples = 5000;
    EXPECT_EQ(Values(3), before);
    plan.seed = 2;
    EXPECT_NE(Values(3), before);
}

TEST_F(Plans, AFieldThatIsNotMovedKeepsTheModelsValueAndNothingPilesUp) {
    plan.tolerances = {{Field_At("L4"), 0.5, Spread::kWorst}};
    EXPECT_EQ(Values(0), Values(0));
    EXPECT_EQ(Values(0), (Numbers{2}));
    EXPECT_EQ(Values(1), (Numbers{3}));
}

TEST_F(Plans, MoreThanCanBeNumberedAreNone) {
    plan.sweeps = {{Field_At("L2"), 1, 2, Number{1} << 30U}, {Field_At("L3"), 1, 2, Number{1} << 23U}};
    EXPECT_EQ(plan.Count(), Number{1} << 53U);
    plan.sweeps.push_back({Field_At("L4"), 1, 2, 2});
    EXPECT_FALSE(plan.Count());
}

}  // namespace

}  // namespace verlink::study
