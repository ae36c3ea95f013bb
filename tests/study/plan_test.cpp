// Grids, lists, corners and samples in the order of their numbers.
#include "study/plan.h"

#include <gtest/gtest.h>

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
        Design at = design;
        for (const int field : moved) home.push_back(Fields()[static_cast<std::size_t>(field)].place(at));
        plan.Put(linkage, moved, home, at);
        std::vector<double> values;
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
